// Rows and columns that come and go one by one.

#include "XeGridCtrl.h"

#include "grid/cellextent.h"
#include "grid/gridstate.h"

#include <QPointer>

#include <algorithm>
#include <new>
#include <utility>

namespace {

void makeRoom(CUIntArray_X& sizes)
{
    const long long count = sizes.GetSize();
    sizes.SetSize(count, std::max(1024LL, count / 2));
}

} // namespace

// ---------------------------------------------------------------------------------------------------- around a change

// The selection goes, the focus stays on its cell: nobody is told that it has moved.
void CGridCtrl_X::dropSelection()
{
    const CCellID_X focus = std::exchange(m_idCurrentCell, CCellID_X());
    ResetSelectedRange();
    m_idCurrentCell = focus;
    m_state->deselectAll(*this);
}

void CGridCtrl_X::moveIds(int CCellID_X::*line, int at, int by)
{
    for (CCellID_X* cell : {&m_idCurrentCell, &m_SelectionStartCell, &m_LeftClickDownCell, &m_LastDragOverCell}) {
        if (by < 0 && cell->*line == at)
            *cell = CCellID_X();
        else if (cell->*line >= at)
            cell->*line += by;
    }
}

void CGridCtrl_X::tellCoords(int firstRow, int firstCol)
{
    for (int row = firstRow; row < m_nRows; ++row) {
        for (int col = firstCol; col < m_nCols; ++col) {
            if (CGridCellBase_X* const cell = cellAt(row, col))
                cell->SetCoords(row, col);
        }
    }
}

// ---------------------------------------------------------------------------------------------------------- insertion

int CGridCtrl_X::InsertRow(const wchar_t* text, int pos)
{
    const QPointer<CGridCtrl_X> living(this);
    if (pos >= m_nRows || !beforeChange() || pos >= m_nRows)
        return -1;
    dropSelection();
    if (m_nCols == 0 && !SetColumnCount(1))
        return -1;
    const int row = pos < 0 ? m_nRows : pos;
    m_state->undoBlocks(*this,
                        [row](const CCellRange_X& block) { return block.m_nMinRow < row && row <= block.m_nMaxRow; });
    if (!insertNewRow(row, text) || !living)
        return -1;
    if (row < m_nFixedRows)
        releaseFixedRow(m_nFixedRows);
    tellCoords(row + 1, 0);
    resetBars();
    SetModified(TRUE, -1, -1);
    return row;
}

bool CGridCtrl_X::insertNewRow(int row, const wchar_t* text)
{
    try {
        auto cells = std::make_unique<GridRow>(static_cast<std::size_t>(m_nCols), nullptr);
        m_RowData.reserve(m_RowData.size() < m_RowData.capacity() ? 0 : m_RowData.size() * 2 + 16);
        makeRoom(m_arRowHeights);
        m_arRowHeights.InsertAt(row, 0U);
        m_RowData.insert(m_RowData.begin() + row, cells.release());
    } catch (const std::bad_alloc&) {
        return false;
    }
    ++m_nRows;
    m_state->rows.inserted(row, 0);
    moveIds(&CCellID_X::row, row, 1);
    m_state->moveBlocks(*this, xe::GridState::Rows, row, 1);
    try {
        if (!fillRow(row))
            return false;
        if (text)
            SetItemText(row, 0, text);
        CGridCellBase_X* const first = cellAt(row, 0);
        setSize(SB_VERT, row, first ? std::max(xe::textHeightOf(*first, text), 0) : 0);
    } catch (const std::bad_alloc&) {
        const int fixedRows = m_nFixedRows;
        removeRow(row);
        m_nFixedRows = fixedRows;
        return false;
    }
    return true;
}

int CGridCtrl_X::InsertColumn(const wchar_t* text, unsigned int format, int pos)
{
    const QPointer<CGridCtrl_X> living(this);
    if (pos >= m_nCols || !beforeChange() || pos >= m_nCols)
        return -1;
    dropSelection();
    if (m_nRows == 0 && !SetRowCount(1))
        return -1;
    const int col = pos < 0 ? m_nCols : pos;
    m_state->undoBlocks(*this,
                        [col](const CCellRange_X& block) { return block.m_nMinCol < col && col <= block.m_nMaxCol; });
    if (!insertNewColumn(col, text, format) || !living)
        return -1;
    if (col < m_nFixedCols)
        releaseFixedColumn(m_nFixedCols);
    tellCoords(0, col + 1);
    resetBars();
    SetModified(TRUE, -1, -1);
    return col;
}

bool CGridCtrl_X::insertNewColumn(int col, const wchar_t* text, unsigned int format)
{
    const QPointer<CGridCtrl_X> living(this);
    try {
        for (GridRow* cells : m_RowData) {
            if (cells)
                cells->reserve(static_cast<std::size_t>(m_nCols) + 1);
        }
        makeRoom(m_arColWidths);
        m_arColWidths.InsertAt(col, 0U);
    } catch (const std::bad_alloc&) {
        return false;
    }
    ++m_nCols;
    for (GridRow* cells : m_RowData) {
        if (cells)
            cells->insert(cells->begin() + std::min<std::ptrdiff_t>(col, static_cast<std::ptrdiff_t>(cells->size())),
                          nullptr);
    }
    m_state->columns.inserted(col, 0);
    moveIds(&CCellID_X::col, col, 1);
    m_state->moveBlocks(*this, xe::GridState::Columns, col, 1);
    try {
        for (int row = 0; row < m_nRows; ++row) {
            if (!fillPlace(living, row, col))
                return false;
        }
        if (text)
            SetItemText(0, col, text);
        for (int row = 0; row < m_nRows; ++row)
            SetItemFormat(row, col, format);
        setSize(SB_HORZ, col, std::max<int>(GetTextExtent(0, col, text).cx, 0));
    } catch (const std::bad_alloc&) {
        const int fixedColumns = m_nFixedCols;
        removeColumn(col);
        m_nFixedCols = fixedColumns;
        return false;
    }
    return true;
}

// ----------------------------------------------------------------------------------------------------------- deletion

int CGridCtrl_X::DeleteRow(int row)
{
    const auto isThere = [this, row] {
        return row >= 0 && row < m_nRows && m_RowData[static_cast<std::size_t>(row)] != nullptr;
    };
    if (!isThere() || !beforeChange() || !isThere())
        return 0;
    dropSelection();
    if (m_idCurrentCell.row == row && (!clearFocus() || !isThere()))
        return 0;
    m_state->undoBlocks(*this,
                        [row](const CCellRange_X& block) { return block.m_nMinRow <= row && row <= block.m_nMaxRow; });
    destroyRow(row);
    removeRow(row);
    tellCoords(row, 0);
    resetBars();
    SetModified(TRUE, -1, -1);
    return 1;
}

void CGridCtrl_X::removeRow(int row)
{
    if (m_RowData[static_cast<std::size_t>(row)])
        destroyRow(row);
    m_state->rows.removed(row, m_arRowHeights[row]);
    m_RowData.erase(m_RowData.begin() + row);
    m_arRowHeights.RemoveAt(row);
    --m_nRows;
    m_nFixedRows = m_nFixedRows - (row < m_nFixedRows);
    moveIds(&CCellID_X::row, row, -1);
    m_state->moveBlocks(*this, xe::GridState::Rows, row, -1);
}

int CGridCtrl_X::DeleteColumn(int column)
{
    const auto isThere = [this, column] { return column >= 0 && column < m_nCols; };
    if (!isThere() || !beforeChange() || !isThere())
        return 0;
    dropSelection();
    if (m_idCurrentCell.col == column && (!clearFocus() || !isThere()))
        return 0;
    m_state->undoBlocks(
        *this, [column](const CCellRange_X& block) { return block.m_nMinCol <= column && column <= block.m_nMaxCol; });
    removeColumn(column);
    tellCoords(0, column);
    resetBars();
    SetModified(TRUE, -1, -1);
    return 1;
}

void CGridCtrl_X::removeColumn(int col)
{
    for (int row = 0; row < m_nRows; ++row) {
        DestroyCell(row, col);
        GridRow* const cells = m_RowData[static_cast<std::size_t>(row)];
        if (cells && static_cast<std::size_t>(col) < cells->size())
            cells->erase(cells->begin() + col);
    }
    m_state->columns.removed(col, m_arColWidths[col]);
    m_arColWidths.RemoveAt(col);
    --m_nCols;
    m_nFixedCols = m_nFixedCols - (col < m_nFixedCols);
    moveIds(&CCellID_X::col, col, -1);
    m_state->moveBlocks(*this, xe::GridState::Columns, col, -1);
}

int CGridCtrl_X::DeleteNonFixedRows()
{
    const QPointer<CGridCtrl_X> living(this);
    for (int row = m_nRows; living && row >= m_nFixedRows; --row)
        DeleteRow(row);
    return 1;
}

int CGridCtrl_X::DeleteAllItems()
{
    const QPointer<CGridCtrl_X> living(this);
    if (!beforeChange())
        return 1;
    ResetSelectedRange();
    if (!living)
        return 1;
    m_state->deselectAll(*this);
    m_state->blocks.clear();
    for (int row = 0; row < m_nRows; ++row)
        destroyRow(row);
    m_arRowHeights.RemoveAll();
    m_arColWidths.RemoveAll();
    m_RowData.clear();
    m_nRows = m_nCols = m_nFixedRows = m_nFixedCols = 0;
    m_state->rows.reset();
    m_state->columns.reset();
    m_idCurrentCell = CCellID_X();
    afterChange();
    return 1;
}
