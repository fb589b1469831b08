/// @file XeGridCell.h
/// The ordinary cell of a grid.
#pragma once

#include "XeGridCellBase.h"

#include <cstddef>

class CInPlaceEdit_X;

/// The ordinary cell: it stores text, picture, colours, font and data, and is edited in a line of text.
///
///     grid.SetItemText(1, 1, L"17");
///     grid.SetItemFormat(1, 1, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
///     grid.SetItemFgColour(1, 1, RGB(192, 0, 0));
///
/// There may be millions of them: objects of this very class come from a pool, those of derived classes do not.
class XE_EXPORT CGridCell_X : public CGridCellBase_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridCell_X)

    CGridCell_X() = default;
    /// In a grid, with a font.
    CGridCell_X(CGridCtrl_X* grid, const QFont& font) : m_Font(font), m_pGrid(grid) {}
    /// An editor that is open on the cell goes, and tells nobody.
    ~CGridCell_X() override;

    using CGridCellBase_X::operator=;
    CGridCell_X& operator=(CGridCell_X& other)
    {
        *this = static_cast<CGridCellBase_X&>(other);
        return *this;
    }

    static void* operator new(std::size_t size);
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* cell, std::size_t size) noexcept;
    static void operator delete(void*, void*) noexcept {}

    void SetText(const wchar_t* text) override; ///< null stands for the empty text
    void SetImage(int image) override;
    void SetTile(int tile) override;
    void SetData(long long data) override;
    void SetFormat(unsigned int format) override;
    void SetTextClr(unsigned int colour) override;
    void SetBackClr(unsigned int colour) override;
    void SetFont(const CFont_X* font) override; ///< copies the font; nothing for null
    void SetMargin(unsigned int margin) override;
    void SetGrid(CGridCtrl_X* grid) override;
    void SetCoords(int row, int col) override; ///< nothing: the cell does not know its place

    const wchar_t* GetText() const override; ///< never null; until the text changes
    int GetImage() const override;
    int GetTile() const override;
    long long GetData() const override;
    unsigned int GetFormat() const override;
    unsigned int GetTextClr() const override;
    unsigned int GetBackClr() const override;
    const QFont* GetFont() const override; ///< the cell's own
    CGridCtrl_X* GetGrid() const override;
    unsigned int GetMargin() const override;
    int IsEditing() const override;

    /// Back to the values of a new cell, without a grid.
    void Reset() override;
    /// Opens a CInPlaceEdit_X in the rectangle, on the grid's widget, right-aligned or centred as the format says. An
    /// editor that is open already ends first. 1; 0 without a grid or widget, and when the editor could not be made.
    int Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch) override;
    void EndEdit() override;
    void OnEndEdit() override;

    // ---------------------------------------------------------------------------------------------------------- fields

    unsigned int m_nFormat = 0x8824; ///< DT_LEFT, DT_VCENTER, DT_SINGLELINE, DT_NOPREFIX, DT_END_ELLIPSIS
    CString_X m_strText;
    int m_nImage = -1;               ///< in the grid's image list
    int m_nTile = 0;                 ///< not 0: the picture is stretched over the cell
    COLORREF m_crBkClr = 0xFF000000; ///< CLR_DEFAULT: none of its own
    COLORREF m_crFgClr = 0xFF000000;
    long long m_lParam = 0;
    QFont m_Font;
    unsigned int m_nMargin = 3;   ///< pixels
    unsigned char m_bEditing = 0; ///< 1: an editor is open
    CGridCtrl_X* m_pGrid = nullptr;
    CInPlaceEdit_X* m_pEditWnd = nullptr;
};
