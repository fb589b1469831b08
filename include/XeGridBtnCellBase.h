/// @file XeGridBtnCellBase.h
/// What the cells with buttons share, and their base.
#pragma once

#include "XeGridCellBase.h"

#include <QFont>
#include <QPointer>

class CWnd_X;

// ------------------------------------------------------------------------------------------------------------- numbers

// Types of a control in a cell.
inline constexpr UINT DFC_CAPTION = 1;
inline constexpr UINT DFC_MENU = 2;
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;

// States of a control in a cell. Those of DFC_SCROLL and of DFC_BUTTON share numbers.
inline constexpr UINT DFCS_SCROLLUP = 0x0000;
inline constexpr UINT DFCS_SCROLLDOWN = 0x0001;
inline constexpr UINT DFCS_SCROLLLEFT = 0x0002;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x0003;
inline constexpr UINT DFCS_SCROLLCOMBOBOX = 0x0005;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0000;
inline constexpr UINT DFCS_BUTTONRADIO = 0x0004;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;

/// Where a control stands in its cell.
enum CTL_ALIGN {
    CTL_ALIGN_FULLCELL = 0, ///< over the whole cell
    CTL_ALIGN_LEFT = 1,     ///< left of the text
    CTL_ALIGN_RIGHT = 2,    ///< right of the text
};

// --------------------------------------------------------------------------------------------------------- shared data

/// What a group of cells with buttons has in common, so that a cell stays small: text attributes, grid and editor.
///
/// It belongs to the host and outlives the cells. A derived class may give each cell its own values, by row and column;
/// this one has one value for all.
class XE_EXPORT CBtnDataBase_X
{
public:
    CBtnDataBase_X();
    virtual ~CBtnDataBase_X();
    Q_DISABLE_COPY_MOVE(CBtnDataBase_X)

    virtual void SetText(int row, int col, const wchar_t* text); ///< null stands for the empty text
    virtual void SetImage(int row, int col, int image);
    virtual void SetTile(int row, int col, int tile);
    virtual void SetData(int row, int col, long long data);
    virtual void SetFormat(int row, int col, unsigned int format);
    virtual void SetTextClr(int row, int col, unsigned int colour);
    virtual void SetBackClr(int row, int col, unsigned int colour);
    virtual void SetFont(int row, int col, const CFont_X* font); ///< copies the font; nothing for null
    virtual void SetMargin(int row, int col, unsigned int margin);
    virtual void SetGrid(CGridCtrl_X* grid);
    virtual void SetEditWnd(CWnd_X* editor);
    virtual const wchar_t* GetText(int row, int col) const; ///< never null
    virtual int GetImage(int row, int col) const;
    virtual int GetTile(int row, int col) const;
    virtual long long GetData(int row, int col) const;
    virtual unsigned int GetFormat(int row, int col) const;
    virtual unsigned int GetTextClr(int row, int col) const;
    virtual unsigned int GetBackClr(int row, int col) const;
    virtual const QFont* GetFont(int row, int col) const;
    virtual unsigned int GetMargin(int row, int col) const;
    virtual CGridCtrl_X* GetGrid() const;
    virtual CWnd_X* GetEditWnd() const; ///< null once the editor has gone

    CString_X m_strText;
    unsigned int m_nFormat = 0x8024; ///< DT_VCENTER, DT_SINGLELINE, DT_END_ELLIPSIS
    int m_nImage = -1;
    int m_nTile = 0;
    COLORREF m_crFgClr = 0xFF000000; ///< CLR_DEFAULT: none of its own
    COLORREF m_crBkClr = 0xFF000000;
    long long m_lParam = 0;
    QFont m_Font;
    unsigned int m_nMargin = 3; ///< pixels
    CGridCtrl_X* m_pGrid = nullptr;
    QPointer<CWnd_X> m_pEditWnd;
};

// ------------------------------------------------------------------------------------------------------- the base cell

/// The base of cells with buttons: how controls are placed, painted and clicked.
///
/// The controls are no widgets. The style of the grid's widget paints them, and a click is looked up in their
/// rectangles: a control over the whole cell (CTL_ALIGN_FULLCELL), or some at the left of the text and some at its
/// right. Here there is none: CGridBtnCell_X stores four of them.
///
/// Text attributes come from the shared data, which the host sets, and which has to know the grid. Without it the cell
/// is not painted.
///
/// @code
/// CBtnDataBase_X shared; // a member of the host's window
/// shared.SetGrid(&grid);
/// grid.SetCellType(1, 2, RUNTIME_CLASS_X(CGridBtnCell_X));
/// auto* const cell = static_cast<CGridBtnCell_X*>(grid.cellAt(1, 2));
/// cell->SetBtnDataBase(&shared);
/// cell->SetupBtns(0, DFC_BUTTON, DFCS_BUTTONCHECK, CTL_ALIGN_LEFT, 0, FALSE, nullptr);
/// @endcode
class XE_EXPORT CGridBtnCellBase_X : public CGridCellBase_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridBtnCellBase_X)

    CGridBtnCellBase_X() = default;
    /// An editor that is open on the cell goes, and tells nobody.
    ~CGridBtnCellBase_X() override;
    using CGridCellBase_X::operator=;

    /// The shared data, the host's; null for none.
    void SetBtnDataBase(CBtnDataBase_X* data) { m_pBtnDataBase = data; }
    CBtnDataBase_X* GetBtnDataBase() const { return m_pBtnDataBase; }

    // -------------------------------------------------------------------------------- items, by way of the shared data

    void SetText(const wchar_t* text) override;
    void SetImage(int image) override;
    void SetTile(int tile) override;
    void SetData(long long data) override;
    void SetFormat(unsigned int format) override;
    void SetTextClr(unsigned int colour) override;
    void SetBackClr(unsigned int colour) override;
    void SetFont(const CFont_X* font) override;
    void SetMargin(unsigned int margin) override;
    void SetGrid(CGridCtrl_X* grid) override;
    void SetCoords(int row, int col) override;
    const wchar_t* GetText() const override; ///< null without shared data
    /// The text if there is room for it, otherwise the controls' texts without their ampersands, 1022 characters of
    /// them, in a buffer that all cells share: until the next call.
    const wchar_t* GetTipText() const override;
    int GetImage() const override;
    int GetTile() const override;
    long long GetData() const override;
    unsigned int GetFormat() const override;
    unsigned int GetTextClr() const override;
    unsigned int GetBackClr() const override;
    const QFont* GetFont() const override;
    CGridCtrl_X* GetGrid() const override;
    unsigned int GetMargin() const override;
    int IsEditing() const override;

    void Reset() override;
    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase) override;
    /// The part of the cell that the controls leave to the text, less a margin on both sides; all zero where they leave
    /// none.
    int GetTextRect(tagRECT* rect) override;
    int GetTipTextRect(tagRECT* rect) override;
    CSize GetCellExtent() override;
    /// Clicks the control at the point, or the first one for Space, or opens an editor over the text, or clicks the
    /// control whose hot key `ch` is. 0 for a click; 1 for an editor, and for a key that fits no control.
    ///
    /// A click by a key shows the control pushed for 150 ms and does not wait: it takes effect, and is notified, then.
    int Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch) override;
    void EndEdit() override;
    int PrintCell(CDC_X* dc, int row, int col, CRect rect) override; ///< nothing, 0
    void OnEndEdit() override;
    void OnClick(CPoint point) override;
    void OnClickDown(CPoint point) override;
    void OnRClick(CPoint point) override;
    void OnDblClick(CPoint point) override;

    // -------------------------------------------------------------------------------------------------------- controls
    // Counted from 0. An index without a control gives 0 or an empty text, and sets nothing.

    virtual short GetDrawCtlNbr() const; ///< how many there are
    virtual short GetLastCtlClicked() const;
    virtual short GetDrawCtlNbrMax() const; ///< how many there can be; here 0
    virtual unsigned int GetDrawCtlType(int index) const;
    virtual void SetDrawCtlType(int index, unsigned int type);
    virtual unsigned int GetDrawCtlState(int index) const;
    virtual void SetDrawCtlState(int index, unsigned int state);
    virtual int GetDrawCtlWidth(int index) const;
    virtual void SetDrawCtlWidth(int index, int width); ///< pixels; 0 or less: as there is room
    virtual CTL_ALIGN GetDrawCtlAlign(int index) const;
    virtual void SetDrawCtlAlign(int index, CTL_ALIGN align);
    virtual const wchar_t* GetDrawCtlBtnText(int index) const;
    virtual void SetDrawCtlBtnText(int index, const wchar_t* text); ///< with an ampersand before the hot key
    virtual int GetDrawCtlIsMbrRadioGrp(int index) const;
    virtual void SetDrawCtlIsMbrRadioGrp(int index, int isMember);
    virtual void SetDrawCtlNbr(short count); ///< held to what there can be
    virtual CCellID_X GetCoords() const;
    virtual void SetEditWnd(CWnd_X* editor);
    virtual CWnd_X* GetEditWnd() const;

    /// Sets a control up whole. 0, with nothing changed, for an index below 0 or past what there can be, for no
    /// alignment of the three, and for one over the whole cell that is not the first. Otherwise 1.
    int SetupBtns(int index, unsigned int type, unsigned int state, CTL_ALIGN align, int width, int isRadio,
                  const wchar_t* text);
    /// Whether the controls leave room for a text; 0 while the cell cannot be seen.
    int HasCellText() const;
    /// The control whose text has an ampersand before this character, upper and lower case alike; -1 for none. The
    /// first control without a text ends the search.
    int HotKeyBtnMatch(wchar_t ch) const;
    /// What a mouse message does to the control at a point relative to the cell. Whether there is one.
    int ProcessCtlClick(unsigned int message, const CPoint& point);
    /// What a mouse message does to a control. 0 for one that is not there or inactive, and for another message.
    int ClickedCellCtl(unsigned int message, int index);
    /// The control at a point relative to the cell, -1 for none.
    int RelPointInCtl(const CPoint& point) const;
    /// Fills in the rectangle of each control, and of the text behind them if there is room in `rects`. 0 if `count` is
    /// less than there can be controls, and without controls.
    int CalcDrawCtlRects(CRect* rects, int count, const CRect& cell) const;
    /// Paints the controls, and leaves in `rect` what is left for the text. 0 without a grid, on a null context and in
    /// an empty rectangle.
    int DrawBtnCell(CDC_X* dc, int row, int col, CRect* rect, int erase);

    short m_nLastCtlClicked = -1;
    short m_nDrawCtlNbr = 0;
    int m_nBtnRow = -1;
    int m_nBtnCol = -1;
    unsigned char m_bBtnEditing = 0;
    CBtnDataBase_X* m_pBtnDataBase = nullptr;

    static CString_X m_strTipText; ///< the last tip of a cell without room for its text

protected:
    /// Shows a control pushed for a moment, then clicks it and notifies the grid's window. Nothing for an inactive one,
    /// and for one that is shown so already.
    void pushByKey(int index);
    /// A control that was pushed is so no longer, and is not clicked either; a member of a group that stays down does.
    void popUp(int index);
    /// Takes over an editor that has been made for the cell, if both are still of use. 1 if so.
    static int keepEditor(CWnd_X* editor, const QPointer<CGridBtnCellBase_X>& living);

private:
    int openEditor(int row, int col, CRect rect, unsigned int id, unsigned int ch);
    bool isRadio(int index) const;
    bool staysDown(int index) const;
    void check(int index);
    void redraw();
};
