/// @file XeGridCellBase.h
/// What names the cells of a grid, the records that it is asked and notifies with, and the base of all cells.
#pragma once

#include "xeafx.h"
#include "xeafxstr.h"
#include "xeatltypes.h"
#include "xedef.h"

#include <QFont>

class CDC_X;
class CFont_X;
class CGridCtrl_X;

// ----------------------------------------------------------------------------------------------------------- positions

/// The place of a cell, from (0, 0), fixed rows and columns included; (-1, -1) is no cell.
class CCellID_X
{
public:
    CCellID_X() = default;
    CCellID_X(int itsRow, int itsCol) : row(itsRow), col(itsCol) {}

    bool operator==(const CCellID_X& other) const { return row == other.row && col == other.col; }
    bool operator!=(const CCellID_X& other) const { return !(*this == other); }

    int row = -1;
    int col = -1;
};

/// A block of cells, first and last row and column included; four times -1 is none.
class CCellRange_X
{
public:
    CCellRange_X() = default;
    CCellRange_X(int minRow, int minCol, int maxRow, int maxCol)
        : m_nMinRow(minRow),
          m_nMinCol(minCol),
          m_nMaxRow(maxRow),
          m_nMaxCol(maxCol)
    {}
    CCellRange_X(const CCellID_X& first, const CCellID_X& last) : CCellRange_X(first.row, first.col, last.row, last.col)
    {}

    bool operator==(const CCellRange_X& other) const
    {
        return m_nMinRow == other.m_nMinRow && m_nMinCol == other.m_nMinCol && m_nMaxRow == other.m_nMaxRow
               && m_nMaxCol == other.m_nMaxCol;
    }
    bool operator!=(const CCellRange_X& other) const { return !(*this == other); }

    bool contains(int row, int col) const
    {
        return row >= m_nMinRow && row <= m_nMaxRow && col >= m_nMinCol && col <= m_nMaxCol;
    }

    int m_nMinRow = -1;
    int m_nMinCol = -1;
    int m_nMaxRow = -1;
    int m_nMaxCol = -1;
};

static_assert(sizeof(CCellID_X) == 8 && sizeof(CCellRange_X) == 16, "plain values");

// ------------------------------------------------------------------------------------------------------------- records

/// What CGridCtrl_X::GetItem() and SetItem() exchange with a cell. The start values are those of a new cell.
struct _GV_ITEM_X
{
    enum Mask : UINT { ///< which fields count
        Text = 1,
        Image = 2, ///< both `iImage` and `iTile`
        Data = 4,
        State = 8,
        BackColour = 16,
        TextColour = 32,
        Format = 64,
        Font = 128,
        Margin = 256,
    };

    int row = -1;
    int col = -1;
    UINT mask = 0;
    UINT nState = 0;
    UINT nFormat = 0x8824; ///< DT_LEFT, DT_VCENTER, DT_SINGLELINE, DT_NOPREFIX, DT_END_ELLIPSIS
    CString_X strText;
    int iImage = -1;
    int iTile = 0;
    COLORREF crBkClr = 0xFF000000; ///< CLR_DEFAULT
    COLORREF crFgClr = 0xFF000000;
    LPARAM lParam = 0;
    QFont lfFont;
    UINT nMargin = 3; ///< pixels
};

/// The beginning of what WM_NOTIFY carries.
struct tagNMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

using NMHDR = tagNMHDR;
using LPNMHDR = tagNMHDR*;

/// What a grid notifies with: the LPARAM of its WM_NOTIFY.
struct XeGridNotification
{
    NMHDR hdr; ///< the grid's widget, 0, and the code
    int iRow;  ///< -1 outside the cells
    int iColumn;
};

/// What an editor of a cell ends with: the LPARAM of message 1124. `item` has text and data, the key that ended it.
struct XeGridEditEnd
{
    NMHDR hdr; ///< the editor's widget, 0, and LVN_ENDLABELEDITW
    _GV_ITEM_X item;
};

// Codes of WM_NOTIFY.
inline constexpr UINT NM_CLICK = 0U - 2U;
inline constexpr UINT NM_DBLCLK = 0U - 3U;
inline constexpr UINT NM_RCLICK = 0U - 5U;
inline constexpr UINT LVN_ITEMCHANGING = 0U - 100U;
inline constexpr UINT LVN_ITEMCHANGED = 0U - 101U;
inline constexpr UINT LVN_BEGINLABELEDITW = 0U - 175U;
inline constexpr UINT LVN_ENDLABELEDITW = 0U - 176U;

// ------------------------------------------------------------------------------------------------------- the base cell

/// The base of all cells of a grid: state and merging, and the painting that all share.
///
/// A cell is an object of its own that a grid makes by the run-time class of SetDefaultCellType() or SetCellType(), and
/// deletes. A class of a host's stores what its cells show and overrides the getters:
///
/// @code
/// class CTaskCell : public CGridCellBase_X
/// {
///     Q_OBJECT
///     DECLARE_DYNCREATE_X(CTaskCell)
/// public:
///     using CGridCellBase_X::operator=;
///     CGridCtrl_X* GetGrid() const override { return m_grid; }
///     void SetGrid(CGridCtrl_X* grid) override { m_grid = grid; }
///     const wchar_t* GetText() const override { return taskName(m_row); }
///     void SetCoords(int row, int) override { m_row = row; }
/// private:
///     CGridCtrl_X* m_grid = nullptr;
///     int m_row = -1;
/// };
/// @endcode
///
/// Here all setters but SetState() do nothing, and the getters answer 0, null or -1 as said below. CGridCell_X is the
/// ordinary cell, which stores all of it.
class XE_EXPORT CGridCellBase_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridCellBase_X)

    /// The bits of a state.
    enum State : UINT {
        Focused = 1,
        Selected = 2,
        DropHilited = 4,
        ReadOnly = 8,
        Fixed = 16, ///< the grid sets it on the cells of fixed rows and columns
        Modified = 32,
    };

    /// Without a grid, in the state 0 and in no merged block.
    CGridCellBase_X() = default;
    ~CGridCellBase_X() override;

    // --------------------------------------------------------------------------------------------- setters and getters

    virtual void SetText(const wchar_t* text);
    virtual void SetImage(int image);
    virtual void SetTile(int tile);
    virtual void SetData(long long data);
    /// Stores the state alone. A selected cell is in the grid's selection only when CGridCtrl_X::SetItemState() has
    /// selected it.
    virtual void SetState(unsigned int state);
    virtual void SetFormat(unsigned int format);
    virtual void SetTextClr(unsigned int colour);
    virtual void SetBackClr(unsigned int colour);
    virtual void SetFont(const CFont_X* font);
    virtual void SetMargin(unsigned int margin);
    virtual void SetGrid(CGridCtrl_X* grid);
    /// The grid tells the cell where it stands: at its making, and whenever it comes to another place.
    virtual void SetCoords(int row, int col);

    virtual const wchar_t* GetText() const;    ///< null
    virtual const wchar_t* GetTipText() const; ///< GetText(): what the title tip shows
    virtual int GetImage() const;              ///< -1
    virtual int GetTile() const;
    virtual long long GetData() const;
    virtual unsigned int GetState() const;
    virtual unsigned int GetFormat() const;
    virtual unsigned int GetTextClr() const;
    virtual unsigned int GetBackClr() const;
    virtual const QFont* GetFont() const; ///< null
    virtual CGridCtrl_X* GetGrid() const; ///< null
    virtual unsigned int GetMargin() const;
    virtual int IsEditing() const;

    // ------------------------------------------------------------------------------------------------------ operations

    /// Copies what the getters of the other cell give into the setters of this one: grid, text, image, tile, data,
    /// state, format, text colour, background, font and margin. The cell stays in its own merged block. Nothing for the
    /// cell itself.
    virtual CGridCellBase_X& operator=(CGridCellBase_X& other);
    /// Back to the state 0 and out of any merged block.
    virtual void Reset();

    /// Paints the cell into a rectangle whose right and bottom are the last pixels. `erase` has it fill its background
    /// also when the grid has done that; `widget` is not looked at. 1; 0, with nothing painted, without a grid, on a
    /// null or inactive context and in a rectangle whose width or height, right - left and bottom - top, is below 1.
    ///
    /// The painter is restored to what it was.
    virtual int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase);
    /// Moves the left side behind the picture, if there is one. 1; 0 for null.
    virtual int GetTextRect(tagRECT* rect);
    virtual int GetTipTextRect(tagRECT* rect); ///< GetTextRect()
    /// The size in pixels of a line of text, of the cell's own for null, with a margin on each side. Of a fixed cell in
    /// the bolder font of a heading that has the focus.
    virtual CSize GetTextExtent(const wchar_t* text);
    /// The size in pixels that shows text and picture whole, with two margins at each side and one above and below. A
    /// format that has Qt::TextWordWrap (0x1000) and not Qt::TextSingleLine (0x100), which no published format means,
    /// counts lines.
    virtual CSize GetCellExtent();
    /// Opens an editor over the cell. Here nothing, and 0.
    virtual int Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch);
    virtual void EndEdit(); ///< ends the editor; here nothing
    /// Paints the cell as Draw(), for paper: without the grid's shade flag (`m_bShadedPrintOut`) without backgrounds.
    virtual int PrintCell(CDC_X* dc, int row, int col, CRect rect);
    virtual void OnEndEdit(); ///< the editor has gone; here nothing

    // -------------------------------------------------------------------------------- called by the grid; here nothing
    // The points are relative to the cell.

    virtual void OnMouseEnter();
    virtual void OnMouseOver();
    virtual void OnMouseLeave();
    virtual void OnClick(CPoint point);
    virtual void OnClickDown(CPoint point);
    virtual void OnRClick(CPoint point);
    virtual void OnDblClick(CPoint point);
    /// Whether the cell has set the mouse cursor; here 1, and nothing set.
    virtual int OnSetCursor();

    /// CGridCtrl_X::SendMessageToParent() of the grid; 0 without one.
    long long SendMessageToParent(int row, int col, int code);

    // ---------------------------------------------------------------------------------------------------------- fields

    unsigned int m_nState = 0;
    int m_bMergeRight = 0;          ///< 1: a cell of the same block stands at the right
    int m_bMergeBottom = 0;         ///< 1: a cell of the same block stands below
    int m_bMergeSlave = 0;          ///< 1: the cell is covered by a block
    unsigned int m_nMergeStyle = 0; ///< of CGridCtrl_X::SetCellCombine(), for the host
    int m_nMergeRows = 0;           ///< of the first cell: how many further rows its block has
    int m_nMergeCols = 0;
    int m_nMasterRow = 0; ///< of a covered cell: where its block begins
    int m_nMasterCol = 0;
};
