/// @file XeTitleTip.h
/// The tip that shows a text which does not fit into its place.
#pragma once

#include "xeafximg.h"
#include "xeafxwin.h"

#include <QFont>

/// A small child window that shows a text whole, below the place where it was cut off.
///
///     m_tip.Create(this);               // once
///     m_tip.Show(cell, L"a long text"); // opens only if the text is wider than the cell
///     m_tip.Hide();                     // at a click, a key, when the content scrolls
///
/// While it is open the tip has the mouse: when the pointer leaves the place, it closes and hands the move on to the
/// parent. Presses and the wheel go on to the parent too. Coordinates are pixels in the parent's client area.
///
/// CGridCtrl_X has one for its cells; CToolTipCtrl_X is for the tips of controls.
class XE_EXPORT CTitleTip_X : public CWnd_X
{
    Q_OBJECT

public:
    CTitleTip_X();
    ~CTitleTip_X() override;

    using CWnd_X::Create;
    /// Makes the hidden window on the parent's widget, and keeps the parent, which must outlive the tip. 0 for null and
    /// for a parent without a widget, otherwise 1. The base's forms of the name make a window without a parent to tip
    /// for.
    virtual BOOL Create(CWnd_X* parent);

    /// Opens the tip below `rect`, unless `text` is as narrow as that. Nothing for an empty rectangle, without a parent
    /// and while the tip is open.
    ///
    /// The tip stays open while the pointer is inside `hover`, for null `rect`, one pixel more at the right and the
    /// bottom; the caller's rectangle stays as it is. It begins `xoffset` to the right of `rect`. A null font stands
    /// for the parent's. A colour of CLR_DEFAULT stands for black text and for m_crBackDefault. Colours and hover
    /// rectangle are kept even if nothing opens, as when no window has the focus.
    ///
    /// A tip that would be cut off by the parent's right edge is moved to the left, one that would be cut off by the
    /// bottom comes above the place.
    void Show(CRect rect, const wchar_t* text, int xoffset = 0, tagRECT* hover = nullptr, const CFont_X* font = nullptr,
              COLORREF crText = CLR_DEFAULT, COLORREF crBack = CLR_DEFAULT);
    /// Closes the tip and gives the mouse up, if the tip has it.
    void Hide();

    int PreTranslateMessage(tagMSG* message) override;

    /// Closes the tip once the pointer is outside the hover rectangle, and posts the move to the parent if it is in its
    /// client area.
    void OnMouseMove(UINT flags, CPoint point);
    void OnPaint();

    // ---------------------------------------------------------------------------------------------------------- fields

    CWnd_X* m_pParentWnd = nullptr;
    CRect m_rectTitle;   ///< the text's place inside the tip
    CRect m_rectHover;   ///< in the tip's own client area: inside it the pointer keeps the tip open
    CRect m_rectDisplay; ///< the tip, in the parent's client area; on the screen as long as nothing has opened
    int m_dwLastClick = -1;
    CString_X m_strTitle; ///< a blank, the text and a blank
    QFont m_font;
    COLORREF m_crBack = CLR_DEFAULT;        ///< CLR_DEFAULT for none
    COLORREF m_crBackDefault = CLR_DEFAULT; ///< what is used then
    COLORREF m_crText = CLR_DEFAULT;        ///< CLR_DEFAULT for none

    DECLARE_MESSAGE_MAP_X()

private:
    void keepHover(const tagRECT& hover);
    void openAt(const CRect& place);
    void keepInside(const CRect& place);
};
