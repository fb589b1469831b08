/// @file XeGridCtrl.h
/// The grid: a table of cell objects with fixed headings.
#pragma once

#include "XeGridCell.h"
#include "XeTitleTip.h"
#include "xeafxarray.h"
#include "xeafximg.h"
#include "xeafxmap.h"
#include "xeafxwin.h"

#include <QFont>

#include <memory>
#include <vector>

class CCmdUI_X;
class QAbstractSlider;
class QImage;
class QMimeData;

namespace xe {
class GridLines;
struct GridState;
} // namespace xe

// ------------------------------------------------------------------------------------------------------------- numbers

// Codes of WM_HSCROLL and WM_VSCROLL.
inline constexpr UINT SB_LINEUP = 0;
inline constexpr UINT SB_LINELEFT = 0;
inline constexpr UINT SB_LINEDOWN = 1;
inline constexpr UINT SB_LINERIGHT = 1;
inline constexpr UINT SB_PAGEUP = 2;
inline constexpr UINT SB_PAGELEFT = 2;
inline constexpr UINT SB_PAGEDOWN = 3;
inline constexpr UINT SB_PAGERIGHT = 3;
inline constexpr UINT SB_THUMBPOSITION = 4;
inline constexpr UINT SB_THUMBTRACK = 5;
inline constexpr UINT SB_TOP = 6;
inline constexpr UINT SB_LEFT = 6;
inline constexpr UINT SB_BOTTOM = 7;
inline constexpr UINT SB_RIGHT = 7;

// What CGridCtrl_X::GetNextItem() looks for: one of the first six or more, and one direction.
inline constexpr int GVNI_FOCUSED = 0x0001;
inline constexpr int GVNI_SELECTED = 0x0002;
inline constexpr int GVNI_DROPHILITED = 0x0004;
inline constexpr int GVNI_READONLY = 0x0008;
inline constexpr int GVNI_FIXED = 0x0010;
inline constexpr int GVNI_MODIFIED = 0x0020;
inline constexpr int GVNI_ABOVE = 0x0100;
inline constexpr int GVNI_BELOW = 0x0200;
inline constexpr int GVNI_TOLEFT = 0x0400;
inline constexpr int GVNI_TORIGHT = 0x0800;
inline constexpr int GVNI_AREA = GVNI_BELOW | GVNI_TORIGHT;
inline constexpr int GVNI_ALL = GVNI_BELOW | GVNI_TOLEFT | GVNI_TORIGHT;

/// What an editor sends to its grid when it ends: WPARAM 8, LPARAM an XeGridEditEnd*.
inline constexpr UINT XE_WM_ENDEDIT = 1124;

// ------------------------------------------------------------------------------------------------------------ the grid

/// A table of cells, each an object of its own, with fixed rows at the top and fixed columns at the left.
///
/// @code
/// CGridCtrl_X grid;
/// grid.SubclassDlgItem("parts", this); // a plain QWidget of the form
/// grid.SetRowCount(100);
/// grid.SetColumnCount(5);
/// grid.SetFixedRowCount(1);
/// grid.SetItemText(0, 1, L"Name");
/// grid.SetItemText(1, 1, L"Drill");
/// grid.AutoSizeColumns();
/// @endcode
///
/// The grid paints itself on any widget and needs none to hold its cells. It tells the *top-level window* of its widget
/// what happens, by WM_NOTIFY with the widget as WPARAM and an XeGridNotification* as LPARAM:
///
/// | code                | when                                                                        |
/// | ------------------- | --------------------------------------------------------------------------- |
/// | NM_CLICK            | the left button has gone up after a click on a cell                         |
/// | NM_DBLCLK           | a double click                                                              |
/// | NM_RCLICK           | the right button has gone up; row and column are -1 outside the cells       |
/// | LVN_ITEMCHANGING    | the focus is about to leave a cell                                          |
/// | LVN_ITEMCHANGED     | the focus has come to a cell                                                |
/// | LVN_BEGINLABELEDITW | before a cell is edited, and before Delete, cut and paste change one        |
/// | LVN_ENDLABELEDITW   | after that                                                                  |
///
/// Rows and columns count from 0, fixed ones included. Sizes are pixels; one of 0 is hidden, and skipped by scrolling,
/// keys, copying and automatic sizes. Rectangles of cells have the last pixel as right and bottom, unlike other
/// rectangles here. A row or column that is not there gives what is said at each function, and changes nothing.
///
/// The fields are the host's too, `m_RowData` above all: `(*m_RowData[row])[col]` is the cell, which may be replaced by
/// another one or by null. A host that writes `m_arRowHeights` or `m_arColWidths` calls ResetScrollBars() afterwards. A
/// row or column above 65535 works as any other; its cells are in the selection without being in `m_SelectedCellMap`,
/// whose keys have 16 bits for each.
///
/// A handler, a notification or a cell may delete cells, rows and the grid.
class XE_EXPORT CGridCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridCtrl_X)

    /// What the mouse is doing, in `m_MouseMode`.
    enum MouseMode {
        MOUSE_NOTHING = 0,
        MOUSE_SELECT_ALL = 1,
        MOUSE_SELECT_COL = 2,
        MOUSE_SELECT_ROW = 3,
        MOUSE_SELECT_CELLS = 4,
        MOUSE_OVER_ROW_DIVIDE = 6,
        MOUSE_SIZING_ROW = 7,
        MOUSE_OVER_COL_DIVIDE = 8,
        MOUSE_SIZING_COL = 9,
        MOUSE_PREPARE_EDIT = 10,
        MOUSE_PREPARE_DRAG = 11,
        MOUSE_DRAGGING = 12,
    };

    using SelectionMap = CMap_X<unsigned int, unsigned int, CCellID_X, CCellID_X&>;
    using GridRow = std::vector<CGridCellBase_X*>;

    /// With cells of the class CGridCell_X. A derived class's CreateCell() is not reached from here.
    explicit CGridCtrl_X(int nRows = 0, int nCols = 0, int nFixedRows = 0, int nFixedCols = 0);
    /// Deletes the cells. The widget stays its owner's.
    ~CGridCtrl_X() override;

    // ------------------------------------------------------------------------------------------------------ attachment

    using CWnd_X::Create;
    /// SubclassWindow(), and gives all rows and columns the default sizes. `parent` and `id` have no meaning. 0 when
    /// that fails, for a null widget too; otherwise 1.
    int Create(CWnd_X* parent, QWidget* widget, unsigned int id);
    /// Wraps a widget, which gets the keyboard focus by a click from then on.
    int SubclassWindow(QWidget* widget);

    // ------------------------------------------------------------------------------------------------ counts and sizes

    int GetRowCount() const { return m_nRows; }
    int GetColumnCount() const { return m_nCols; }
    int GetFixedRowCount() const { return m_nFixedRows; }
    int GetFixedColumnCount() const { return m_nFixedCols; }

    /// Sets the number of rows. Rows are added and taken away at the end; a new one has the default height, and cells
    /// made by CreateCell(). Fixed rows become at most as many. The focus is cleared if its row goes. 1; 0, with the
    /// old number, below 0 and for want of memory.
    int SetRowCount(int n);
    int SetColumnCount(int n); ///< likewise
    /// Sets the number of fixed rows, and makes as many rows if there are fewer. Cells that become fixed, and those
    /// that no longer are, lose their own colours. The focus is cleared if its row becomes fixed. 1; 0 as
    /// SetRowCount().
    int SetFixedRowCount(int n = 1);
    int SetFixedColumnCount(int n = 1); ///< likewise
    /// Inserts a row before `pos`, a negative one appends, and sets the text of its first cell, whose height the row
    /// gets. A null text leaves that cell its own. A grid without columns gets one. The focus moves with its cell, the
    /// selection is cleared. The new row; -1 for a `pos` at the number of rows or above, and for want of memory.
    int InsertRow(const wchar_t* text, int pos = -1);
    /// The same with a column: the text goes into row 0, the format to all rows. 0x25 is centred in one line.
    int InsertColumn(const wchar_t* text, unsigned int format = 0x25, int pos = -1);
    int DeleteRow(int row);       ///< 1; 0 for a row that is not there
    int DeleteColumn(int column); ///< likewise
    int DeleteNonFixedRows();     ///< 1
    int DeleteAllItems();         ///< takes away all rows and columns, the fixed ones too; 1

    int GetRowHeight(int row) const;           ///< -1 for a row that is not there
    int GetColumnWidth(int column) const;      ///< likewise
    int SetRowHeight(int row, int height);     ///< 1; 0 below 0 and for a row that is not there
    int SetColumnWidth(int column, int width); ///< likewise
    int GetVirtualWidth() const;               ///< of all columns
    int GetVirtualHeight() const;              ///< of all rows
    int GetFixedColumnWidth() const;           ///< of the fixed columns
    int GetFixedRowHeight() const;             ///< of the fixed rows

    // ----------------------------------------------------------------------------------------------------------- cells

    /// The cell; null where there is none.
    CGridCellBase_X* cellAt(int row, int col) const;
    /// Replaces a cell by one of another class, which takes over its values and its merged block. 1; 0 without the cell
    /// and for a class that is not derived from CGridCellBase_X or cannot be made.
    int SetCellType(int row, int col, CRuntimeClass_X* type);
    /// Sets the class of the cells to come. 1; 0 for one that is not derived from CGridCellBase_X.
    int SetDefaultCellType(CRuntimeClass_X* type);

    CString_X GetItemText(int row, int col) const;          ///< empty without the cell
    int SetItemText(int row, int col, const wchar_t* text); ///< and SetModified(); 1, or 0 without the cell
    long long GetItemData(int row, int col) const;          ///< 0 without the cell, here and below
    int SetItemData(int row, int col, long long data);      ///< as SetItemText()
    int GetItemImage(int row, int col) const;
    int SetItemImage(int row, int col, int image); ///< as SetItemText(); an index of `m_pImageList`
    int GetItemTile(int row, int col) const;
    int SetItemTile(int row, int col, int tile); ///< as SetItemText()
    unsigned int GetItemState(int row, int col) const;
    /// Sets the state, bits of CGridCellBase_X::State, and keeps the selection in step with its bit. 1; 0 without the
    /// cell, here and below.
    int SetItemState(int row, int col, unsigned int state);
    unsigned int GetItemFormat(int row, int col) const;
    int SetItemFormat(int row, int col, unsigned int format); ///< DT_ bits
    COLORREF GetItemBkColour(int row, int col) const;
    int SetItemBkColour(int row, int col, COLORREF colour = CLR_DEFAULT); ///< CLR_DEFAULT: the grid's
    COLORREF GetItemFgColour(int row, int col) const;
    int SetItemFgColour(int row, int col, COLORREF colour = CLR_DEFAULT);
    const QFont* GetItemFont(int row, int col) const; ///< the grid's own without the cell
    int SetItemFont(int row, int col, const CFont_X* font);
    int IsItemEditing(int row, int col) const;
    /// Fills in what the mask of the record names. 1; 0 without the cell and for null.
    int GetItem(_GV_ITEM_X* item) const;
    /// Sets what the mask names. Before that it calls SetModified(row, column, -1), so the row's number becomes the
    /// grid's flag: row 0 takes it back. 1; 0 as GetItem().
    int SetItem(const _GV_ITEM_X* item);
    CSize GetTextExtent(int row, int col, const wchar_t* text) const; ///< CGridCellBase_X::GetTextExtent()
    int GetTextRect(int row, int col, tagRECT* rect) const; ///< GetCellRect(), then CGridCellBase_X::GetTextRect()

    /// Sets or clears the flag of one cell; setting it sets the grid's flag. With a row or column below 1, and so for
    /// the first row and column, it is the grid's flag alone that changes. When the grid is not modified, no cell is.
    /// The sort arrow goes in any case.
    void SetModified(int modified = TRUE, int row = -1, int col = -1);
    int GetModified(int row = -1, int col = -1) const; ///< by the same rule

    int IsValid(int row, int col) const { return row >= 0 && row < m_nRows && col >= 0 && col < m_nCols; }
    int IsValid(const CCellID_X& cell) const { return IsValid(cell.row, cell.col); }
    int IsValid(const CCellRange_X& range) const;
    int IsCellFixed(int row, int col) const { return row < m_nFixedRows || col < m_nFixedCols; }
    int IsCellEditable(int row, int col) const; ///< whether the grid is editable and the cell not read-only
    int IsCellEditable(const CCellID_X& cell) const { return IsCellEditable(cell.row, cell.col); }
    int IsCellSelected(int row, int col) const; ///< 0 while selection is off
    int IsCellSelected(const CCellID_X& cell) const { return IsCellSelected(cell.row, cell.col); }
    CCellRange_X GetCellRange() const { return {0, 0, m_nRows - 1, m_nCols - 1}; }

    // -------------------------------------------------------------------------------------------------------- geometry
    // Pixels of the widget.

    /// The first ordinary row and column that are not scrolled away.
    CCellID_X GetTopleftNonFixedCell() const;
    /// Where a cell begins. 0, with `point` unchanged, for a cell that is not there or scrolled away to the left or the
    /// top, and for null; otherwise 1.
    int GetCellOrigin(int row, int col, tagPOINT* point) const;
    int GetCellOrigin(const CCellID_X& cell, tagPOINT* point) const { return GetCellOrigin(cell.row, cell.col, point); }
    int GetCellRect(int row, int col, tagRECT* rect) const; ///< likewise
    int GetCellRect(const CCellID_X& cell, tagRECT* rect) const { return GetCellRect(cell.row, cell.col, rect); }
    int GetCellRangeRect(const CCellRange_X& range, tagRECT* rect) const; ///< likewise for both corners
    /// The cell at a point. Without `allowFixed` a point in the headings gives no column or no row, so that the cell is
    /// not valid. Beyond the last row the row is -1, and the column stays; beyond the last column both are -1.
    CCellID_X GetCellFromPt(CPoint point, int allowFixed = TRUE) const;
    /// The point relative to the cell; (0, 0) for one without a place.
    CPoint GetPointClicked(int row, int col, const CPoint& point) const;
    /// The ordinary cells that can be seen in part, and, unless it is null, the rectangle from (0, 0) that they cover
    /// with the headings.
    CCellRange_X GetVisibleNonFixedCellRange(tagRECT* rect = nullptr) const;
    /// The same without a last row or column that is cut off.
    CCellRange_X GetUnobstructedNonFixedCellRange() const;
    int IsCellVisible(int row, int col) const;
    int IsCellVisible(const CCellID_X& cell) const { return IsCellVisible(cell.row, cell.col); }
    /// Scrolls until the cell can be seen whole, by the messages of the scroll bars; far ones are reached by a jump.
    void EnsureVisible(int row, int col);
    void EnsureVisible(const CCellID_X& cell) { EnsureVisible(cell.row, cell.col); }

    // ------------------------------------------------------------------------------------------------------- scrolling

    /// Shows the bars that are needed, gives them their ranges and repaints. Nothing without a window or while drawing
    /// is off.
    void ResetScrollBars();
    int GetScrollPos32(int bar, int trackPos = FALSE) const;
    int SetScrollPos32(int bar, int pos, int redraw = TRUE);
    void EnableScrollBars(int bar, int enable = TRUE); ///< shows or hides; see CWnd_X::EnableScrollBarCtrl()

    /// Fits a column to its cells, from row 0 or, with `ignoreHeader`, from the first ordinary row. 1; 0 for a column
    /// that is hidden or not there. A visible line never becomes 0 wide, here and below; a merged block does not count.
    int AutoSizeColumn(int column, int ignoreHeader = FALSE);
    int AutoSizeRow(int row);
    void AutoSizeColumns();
    void AutoSizeRows();
    void AutoSize(int ignoreHeader = FALSE); ///< rows and columns in one pass
    /// Makes the visible columns wider or narrower so that they fill the window, and hides both bars.
    void ExpandColumnsToFit();
    void ExpandRowsToFit();
    void ExpandToFit();

    // -------------------------------------------------------------------------------------------------------- painting

    void SetRedraw(int allow, int resetScrollBars = FALSE);
    void Refresh(); ///< asks for a repaint
    /// Asks for a repaint of the whole window if the cell can be seen. 1; 0 for a cell that cannot, and while drawing
    /// is off.
    int RedrawCell(int row, int col);
    int RedrawCell(const CCellID_X& cell) { return RedrawCell(cell.row, cell.col); }
    int RedrawRow(int row);       ///< 1 if all cells gave 1
    int RedrawColumn(int column); ///< likewise
    /// Asks for a repaint of a cell's place, or of what can be seen of a range of ordinary cells. 1; 0 for cells that
    /// cannot be seen, without a window and while drawing is off.
    int InvalidateCellRect(const CCellID_X& cell);
    int InvalidateCellRect(const CCellRange_X& range);
    /// Makes the image that the grid is painted on, of the client area's size and the screen's resolution, or takes the
    /// one that there is; it is filled with (158, 158, 158), which stays where OnDraw() paints nothing. Nothing inside
    /// OnDraw().
    void CreateImage();
    /// Paints the backgrounds of headings and cells, and of the area without cells. Nothing for null.
    void EraseBkgnd(CDC_X* dc);

    /// Joins ordinary cells to a block that has so many further rows and columns: each cell stays itself, and is
    /// painted, hit and edited as before; flags and counts are the host's to read, as is the style. 1, also for a first
    /// cell that is a heading, which changes nothing; 0 for a block that is not all in the grid, for numbers below 0,
    /// and when a cell is in a block already. Without further cells only the style is kept.
    int SetCellCombine(int row, int col, int nRows, int nCols, int style);
    /// Joins headings to a block that is painted as one cell, from the first line on that can be seen. The last cell
    /// must be a heading. 1; 0 as SetCellCombine().
    int SetFixedCellCombine(int row, int col, int nRows, int nCols);
    /// Takes the block that begins at a cell apart; at any other cell nothing. 1; 0 without the cell.
    int UndoCellCombine(int row, int col);

    // --------------------------------------------------------------------------------------------- focus and selection

    /// Moves the focus to a cell, a heading giving way to the first ordinary row or column, and gives the cell that had
    /// it. A cell that is not there takes the focus away. The parent is told before and after; what it does then may
    /// move the focus again, which ends this move. In list mode the row is selected as by a press, up to the place
    /// where the last selection began.
    CCellID_X SetFocusCell(CCellID_X cell);
    CCellID_X SetFocusCell(int row, int col) { return SetFocusCell(CCellID_X(row, col)); }
    /// Selects a range of ordinary cells, cut to the grid, and what the mouse keeps selected with Ctrl; all else is
    /// deselected. Headings give way to the first ordinary cells. A row below 0 only deselects, a range that is
    /// reversed or outside selects nothing. Nothing at all while selection is off. `forceRepaint` has no meaning: the
    /// window is repainted once if any change can be seen. Cells that stay selected hear of it only if their class
    /// overrides SetState().
    void SetSelectedRange(int minRow, int minCol, int maxRow, int maxCol, int forceRepaint = FALSE);
    void SetSelectedRange(const CCellRange_X& range, int forceRepaint = FALSE)
    {
        SetSelectedRange(range.m_nMinRow, range.m_nMinCol, range.m_nMaxRow, range.m_nMaxCol, forceRepaint);
    }
    /// Deselects all cells, also those that the mouse keeps selected, and takes the focus away.
    void ResetSelectedRange();
    /// Selects all ordinary cells.
    void SelectAllCells();
    /// Select the columns, rows or cells between `m_SelectionStartCell` and a cell; of that alone while there is no
    /// such place, and the one row in list mode with single rows. Nothing for a cell that is not there, and for a
    /// heading where it does not stand for an ordinary line.
    void SelectColumns(CCellID_X cell);
    void SelectRows(CCellID_X cell);
    void SelectCells(CCellID_X cell);
    /// One of the four above, by `m_MouseMode`.
    void OnSelecting(const CCellID_X& cell);
    /// The smallest range with all selected cells; (rows, columns, -1, -1), which is not valid, if there are none.
    CCellRange_X GetSelectedCellRange() const;
    /// The next cell in one of the wanted states in a direction: GVNI_ALL goes on in the next rows from their first
    /// ordinary column, GVNI_AREA from the column behind `cell`. Of several directions the first in this order counts:
    /// all, area, above, below, left, right. (-1, -1) without one.
    CCellID_X GetNextItem(CCellID_X& cell, int flags) const;
    /// Whether a point of the headings is as near to the divider of two columns, or rows, as `m_nResizeCaptureRange`.
    int MouseOverColumnResizeArea(CPoint& point) const;
    int MouseOverRowResizeArea(CPoint& point) const;

    // ---------------------------------------------------------------------------------------------- text, files, stubs

    /// Sorts the ordinary rows by the texts of a column, compared by code point; the order of equal texts is not kept.
    /// Focus and selection are cleared, the sort arrow is shown. 1; 0 if there is nothing to sort and for a column that
    /// is not there.
    int SortTextItems(int column, int ascending);
    /// The same with the rows from `low` to `high`, -1 for the last. Focus and selection go with their cells, and the
    /// arrow stays where it is. Merged blocks of rows that move are taken apart.
    int SortTextItems(int column, int ascending, int low, int high);
    /// Fills the window with cells of the default sizes, one fixed row and column among them.
    void AutoFill();
    /// Writes the texts as UTF-8, a line a row, with "," between columns; nothing is quoted, so a text with a comma
    /// comes back as two. 0 if the file cannot be opened, else 1, also when the disk is full.
    int Save(const wchar_t* path);
    /// Replaces all cells by those of such a file; the first line has the headings, each an ordinary cell of row 0.
    /// Bytes stay elements of their own, so letters outside ASCII come back as several. A line of more than 1023 bytes
    /// is read in pieces, each a row. 0, with nothing changed, if the file cannot be opened; else 1.
    int Load(const wchar_t* path);

    /// Nothing: a grid is not printed.
    void Print() {}
    void OnBeginDrag() {} ///< nothing
    /// Takes the mark of a drop target off `m_LastDragOverCell`.
    void OnDragLeave();
    /// Stores those of the seven numbers that are not negative.
    void SetPrintMarginInfo(int header, int footer, int left, int right, int top, int bottom, int gap);
    /// Fills in what is not null.
    void GetPrintMarginInfo(int* header, int* footer, int* left, int* right, int* top, int* bottom, int* gap) const;

    /// Notifies the wrapper of the widget's top-level window, and gives its result; 0 without one.
    long long SendMessageToParent(int row, int col, int code);

    // ---------------------------------------------------------------------------------------------------- overridables

    /// Empties the selected cells that can be seen and edited, each with the notifications of an edit.
    virtual void CutSelectedText();
    /// The texts of the selected cells, as plain text with tabs and line feeds between; cells in between are empty,
    /// hidden lines left out. The caller owns it. Null without a selection.
    virtual QMimeData* CopyTextFromGrid();
    /// Sets the texts of cells from one on, a line a row; tabs and commas part columns, several of them count as one,
    /// and hidden lines are passed. Each change has the notifications of an edit. Only the first cell must be editable.
    /// 1; 0 for a cell that is not there or not editable, and without a text.
    virtual int PasteTextToGrid(CCellID_X cell, const QMimeData* data);
    /// Copy, cut and paste by the clipboard; nothing without a selection, cut and paste nothing in a grid that is not
    /// editable. Paste begins at the cell with the focus, else at the first ordinary one that can be seen.
    virtual void OnEditCut();
    virtual void OnEditCopy();
    virtual void OnEditPaste();
    virtual void OnEditSelectAll();
    virtual CImageList_X* CreateDragImage(CPoint* hotSpot); ///< null
    /// A press on a heading: selects rows, columns or all; in list mode one above a column sorts, the other way round
    /// if it is the column that was sorted last.
    virtual void OnFixedColumnClick(CCellID_X& cell);
    virtual void OnFixedRowClick(CCellID_X& cell);
    virtual void OnEndEditCell(int row, int col, CString_X text);
    virtual void OnEditCell(int row, int col, CPoint point, unsigned int ch);
    /// Ends the edit of the cell with the focus, and one in a cell that the focus has left.
    virtual void EndEditing();
    /// Paints the whole grid: backgrounds, cells, lines. Nothing for null and while drawing is off.
    virtual void OnDraw(CDC_X* dc);
    /// Makes the cell for a place, an object of `m_pRtcDefault` with the grid's font and the format of the cell above
    /// it. Null if that class cannot be made. The place gets the cell only when this returns.
    virtual CGridCellBase_X* CreateCell(int row, int col);
    /// Takes a cell out of the selection and deletes it; its place is null then.
    virtual void DestroyCell(int row, int col);

    /// Calls SetupUI() a second time, behind OnCreate(), and makes the title tip.
    void PreSubclassWindow() override;
    /// Has the mouse tracked, gives the widget the focus by click and shows both scroll bars until the next
    /// ResetScrollBars(). 0.
    int OnCreate(tagCREATESTRUCTW* createStruct) override;
    void OnMessageMap() override;
    bool eventFilter(QObject* target, QEvent* event) override;

    // -------------------------------------------------------------------------------------------------------- handlers

    void OnPaint();
    void OnSize(UINT type, int width, int height);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    /// One row a notch, whatever `delta` is. 0, so that the event goes on to the widget and its parent.
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    /// A step of a selection past the edge of the window, at each tick of timer 513.
    void OnTimer(UINT_PTR id);
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnChar(UINT character, UINT repeatCount, UINT modifiers);
    BOOL OnEraseBkgnd(CDC_X* dc); ///< 0
    /// 1: the shape of a divider, or what the cell under the mouse sets.
    BOOL OnSetCursor(QWidget* widget, UINT hitCode, UINT message);
    void OnSysColorChange();
    /// From the host alone: another widget has the mouse, so a selection ends.
    void OnCaptureChanged(QWidget* other);
    LRESULT OnSetFont(WPARAM font, LPARAM redraw); ///< nothing, 0
    LRESULT OnGetFont(WPARAM, LPARAM);             ///< 0
    /// `bar` may be null.
    void OnHScroll(UINT code, UINT position, QAbstractSlider* bar);
    void OnVScroll(UINT code, UINT position, QAbstractSlider* bar);
    LRESULT OnEndInPlaceEdit(WPARAM id, LPARAM record);

    /// Enable the command if it can do anything now. Nothing for null.
    void OnUpdateEditSelectAll(CCmdUI_X* command);
    void OnUpdateEditCopy(CCmdUI_X* command);
    void OnUpdateEditCut(CCmdUI_X* command);
    void OnUpdateEditPaste(CCmdUI_X* command);

    // ---------------------------------------------------------------------------------------------------------- fields

    COLORREF m_crTextColour;      ///< of ordinary cells
    COLORREF m_crTextBkColour;    ///< behind ordinary cells
    COLORREF m_crBkColour;        ///< where no cell is
    COLORREF m_crFixedTextColour; ///< of fixed cells
    COLORREF m_crFixedBkColour;
    COLORREF m_crGridColour = 0xC0C0C0; ///< of the lines
    COLORREF m_crWindowText;            ///< the system colours as they were last seen
    COLORREF m_crWindowColour;
    COLORREF m_cr3DFace;
    COLORREF m_crShadow;
    COLORREF m_crTTipBackClr = CLR_DEFAULT; ///< of the title tip
    COLORREF m_crTTipTextClr = CLR_DEFAULT;
    int m_nGridLines = 3;            ///< 0 none, 1 horizontal, 2 vertical, 3 both
    int m_bEditable = TRUE;          ///< cells may be edited
    int m_bModified = FALSE;         ///< the grid has been changed
    int m_bAllowDragAndDrop = FALSE; ///< a press on a selected cell prepares a drag
    int m_bListMode = FALSE;         ///< clicks select whole rows
    int m_bSingleRowSelection = FALSE;
    int m_bAllowDraw = TRUE;       ///< see SetRedraw()
    int m_bEnableSelection = TRUE; ///< cells can be selected
    int m_bSortOnClick = TRUE;     ///< in list mode a click on a heading sorts
    int m_bHandleTabKey = TRUE;    ///< Tab moves between cells
    int m_bTitleTips = TRUE;       ///< a text that is cut off is shown in a tip
    int m_nBarState = 0;           ///< 1: the horizontal bar is on, 2: the vertical one
    int m_bAllowColHide = TRUE;    ///< a hidden column can be pulled open, and one be pulled shut
    int m_bAllowRowHide = TRUE;
    CRect m_rcResizing; ///< the line that shows a resize by the mouse
    int m_nRows = 0;
    int m_nFixedRows = 0;
    int m_nCols = 0;
    int m_nFixedCols = 0;
    CUIntArray_X m_arRowHeights;
    CUIntArray_X m_arColWidths;
    int m_nDefCellWidth = 30; ///< of a new column
    int m_nDefCellHeight = 20;
    int m_nVScrollMax = 0; ///< the upper ends of the scroll ranges
    int m_nHScrollMax = 0;
    QFont m_Font;  ///< given to each new cell
    QFont m_Font1; ///< for the host
    QFont m_Font2;
    CImageList_X* m_pImageList = nullptr; ///< the pictures of the cells, the host's
    std::vector<GridRow*> m_RowData;
    int m_MouseMode = MOUSE_NOTHING;
    int m_bLMouseButtonDown = FALSE;
    int m_bRMouseButtonDown = FALSE;
    CPoint m_LeftClickDownPoint;
    CPoint m_LastMousePoint;
    CCellID_X m_LeftClickDownCell;
    CCellID_X m_SelectionStartCell; ///< where a selection began
    CCellID_X m_idCurrentCell;      ///< the cell with the focus
    unsigned long m_nTimerID = 0;
    int m_nTimerInterval = 25;       ///< milliseconds between two steps of a selection past the edge
    int m_nResizeCaptureRange = 3;   ///< pixels round a divider that count as over it
    int m_bAllowRowResize = TRUE;    ///< by the mouse
    int m_bAllowColumnResize = TRUE; ///< by the mouse
    SelectionMap m_SelectedCellMap{
        256}; ///< the selected cells: row in the low 16 bits of the key, column in the high ones
    SelectionMap m_PrevSelectedCellMap{256}; ///< what stays selected while the mouse selects more with Ctrl
    CRuntimeClass_X* m_pRtcDefault;          ///< the class of new cells
    CTitleTip_X m_TitleTip;
    CCellID_X m_LastDragOverCell;
    int m_bAscending = TRUE; ///< of the last sort
    int m_nSortColumn = -1;  ///< the column with the sort arrow; any change of a text takes it away
    int m_bShadedPrintOut = TRUE;
    int m_nPrintMargins[7] = {2, 2, 4, 4, 1, 1, 1}; ///< see SetPrintMarginInfo()
    QImage* m_pImage = nullptr;                     ///< what the grid is painted on first

    /// 1 while a grid of the process handles a change of its size.
    static int bAlreadyInsideThisProcedure;

private:
    friend struct xe::GridState;

    // Parts of the public members, each in the file of those that need it. False: the grid has gone meanwhile, or
    // there was no memory.
    void attachTip();
    void connectBar(int bar);
    void takeBarAction(int bar, int action);
    xe::GridLines& linesOf(int bar) const;
    void resetBars();
    void scroll(int bar, UINT code);
    void setBarRange(int bar, int page, int maximum);
    int scrollTarget(int bar, UINT code, int position) const;
    bool scrollToLine(int bar, int line);
    void setSize(int bar, int line, int size);
    void expandToFit(int bar);
    int widestExtent(int column, int firstRow) const;
    int highestExtent(int row) const;
    void endOpenEditor();
    bool editByInputMethod(QEvent& event);

    bool beforeChange();
    bool clearFocus();
    void afterChange();
    bool addRows(int n);
    bool addColumns(int n);
    bool fillRow(int row);
    bool fillPlace(const QPointer<CGridCtrl_X>& living, int row, int col);
    void removeRows(int n);
    void removeColumns(int n);
    void destroyRow(int row);
    void releaseFixedRow(int row);
    void releaseFixedColumn(int col);

    void dropSelection();
    void moveIds(int CCellID_X::*line, int at, int by);
    void tellCoords(int firstRow, int firstCol);
    bool insertNewRow(int row, const wchar_t* text);
    bool insertNewColumn(int col, const wchar_t* text, unsigned int format);
    void removeRow(int row);
    void removeColumn(int col);

    std::unique_ptr<xe::GridState> m_state; ///< what is no field of the interface
};

inline CGridCellBase_X* CGridCtrl_X::cellAt(int row, int col) const
{
    if (!IsValid(row, col) || static_cast<std::size_t>(row) >= m_RowData.size())
        return nullptr;
    const GridRow* const cells = m_RowData[static_cast<std::size_t>(row)];
    return cells && static_cast<std::size_t>(col) < cells->size() ? (*cells)[static_cast<std::size_t>(col)] : nullptr;
}
