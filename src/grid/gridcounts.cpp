// The numbers of rows and columns, and what every change of them has in common.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"

#include <QPointer>

#include <algorithm>
#include <new>

namespace {

// Room for more lines than are needed now, since they may come one by one.
void resizeArray(CUIntArray_X& sizes, int count, int size)
{
    const auto before = static_cast<int>(sizes.GetSize());
    sizes.SetSize(count, std::max(1024, count / 2));
    for (int i = before; i < count; ++i)
        sizes.GetData()[i] = static_cast<unsigned>(size);
}

void setFixed(CGridCellBase_X* cell, bool isFixed)
{
    if (!cell)
        return;
    const unsigned others = cell->GetState() & ~UINT(CGridCellBase_X::Fixed);
    cell->SetState(isFixed ? others | CGridCellBase_X::Fixed : others);
    cell->SetTextClr(CLR_DEFAULT);
    cell->SetBackClr(CLR_DEFAULT);
}

} // namespace

// ------------------------------------------------------------------------------------------------ around every change

bool CGridCtrl_X::beforeChange()
{
    const QPointer<CGridCtrl_X> living(this);
    m_TitleTip.Hide();
    endOpenEditor();
    return living;
}

bool CGridCtrl_X::clearFocus()
{
    const QPointer<CGridCtrl_X> living(this);
    SetFocusCell(-1, -1);
    return living;
}

void CGridCtrl_X::afterChange()
{
    for (CCellID_X* cell : {&m_SelectionStartCell, &m_LeftClickDownCell, &m_LastDragOverCell}) {
        if (!IsValid(*cell))
            *cell = CCellID_X();
    }
    m_state->forgetGone(*this);
    SetModified(TRUE, -1, -1);
    resetBars();
    Refresh();
}

// ------------------------------------------------------------------------------------------------------------ counts

int CGridCtrl_X::SetRowCount(int n)
{
    if (n < 0)
        return 0;
    if (n == m_nRows)
        return 1;
    if (!beforeChange() || (n <= m_idCurrentCell.row && !clearFocus()))
        return 0;
    m_nFixedRows = std::min(m_nFixedRows, n);
    if (n < m_nRows)
        removeRows(n);
    else if (!addRows(n))
        return 0;
    afterChange();
    return 1;
}

int CGridCtrl_X::SetColumnCount(int n)
{
    if (n < 0)
        return 0;
    if (n == m_nCols)
        return 1;
    if (!beforeChange() || (n <= m_idCurrentCell.col && !clearFocus()))
        return 0;
    m_nFixedCols = std::min(m_nFixedCols, n);
    if (n < m_nCols)
        removeColumns(n);
    else if (!addColumns(n))
        return 0;
    afterChange();
    return 1;
}

bool CGridCtrl_X::addRows(int n)
{
    const QPointer<CGridCtrl_X> living(this);
    const int before = m_nRows;
    try {
        m_RowData.resize(static_cast<std::size_t>(n), nullptr);
        resizeArray(m_arRowHeights, n, m_nDefCellHeight);
        m_state->rows.reset();
        m_nRows = n;
        for (int row = before; row < m_nRows; ++row) {
            m_RowData[static_cast<std::size_t>(row)] = new GridRow(static_cast<std::size_t>(m_nCols), nullptr);
            if (!fillRow(row))
                return false;
        }
    } catch (const std::bad_alloc&) {
        if (living)
            removeRows(before);
        return false;
    }
    return true;
}

bool CGridCtrl_X::fillRow(int row)
{
    const QPointer<CGridCtrl_X> living(this);
    for (int col = 0; col < m_nCols; ++col) {
        if (!fillPlace(living, row, col))
            return false;
    }
    return true;
}

void CGridCtrl_X::removeRows(int n)
{
    m_state->undoBlocks(*this, [n](const CCellRange_X& block) { return block.m_nMaxRow >= n; });
    for (int row = m_nRows - 1; row >= n; --row)
        destroyRow(row);
    m_nRows = n;
    m_RowData.resize(static_cast<std::size_t>(n));
    m_arRowHeights.SetSize(n);
    m_state->rows.reset();
}

void CGridCtrl_X::destroyRow(int row)
{
    GridRow*& cells = m_RowData[static_cast<std::size_t>(row)];
    for (int col = 0; cells && col < static_cast<int>(cells->size()); ++col)
        DestroyCell(row, col);
    delete cells;
    cells = nullptr;
}

bool CGridCtrl_X::addColumns(int n)
{
    const QPointer<CGridCtrl_X> living(this);
    const int before = m_nCols;
    try {
        resizeArray(m_arColWidths, n, m_nDefCellWidth);
        m_state->columns.reset();
        m_nCols = n;
        for (int row = 0; row < m_nRows; ++row) {
            GridRow* const cells = m_RowData[static_cast<std::size_t>(row)];
            if (cells)
                cells->resize(static_cast<std::size_t>(n), nullptr);
            for (int col = before; cells && col < m_nCols; ++col) {
                if (!fillPlace(living, row, col))
                    return false;
            }
        }
    } catch (const std::bad_alloc&) {
        if (living)
            removeColumns(before);
        return false;
    }
    return true;
}

void CGridCtrl_X::removeColumns(int n)
{
    m_state->undoBlocks(*this, [n](const CCellRange_X& block) { return block.m_nMaxCol >= n; });
    for (int row = 0; row < m_nRows; ++row) {
        GridRow* const cells = m_RowData[static_cast<std::size_t>(row)];
        for (int col = n; cells && col < static_cast<int>(cells->size()); ++col)
            DestroyCell(row, col);
        if (cells && cells->size() > static_cast<std::size_t>(n))
            cells->resize(static_cast<std::size_t>(n));
    }
    m_nCols = n;
    m_arColWidths.SetSize(n);
    m_state->columns.reset();
}

// ------------------------------------------------------------------------------------------------------ fixed counts

int CGridCtrl_X::SetFixedRowCount(int n)
{
    if (n < 0)
        return 0;
    if (n == m_nFixedRows)
        return 1;
    if ((n > m_nRows && !SetRowCount(n)) || !beforeChange() || (n > m_idCurrentCell.row && !clearFocus()))
        return 0;
    n = std::min(n, m_nRows);
    for (int row = std::min(n, m_nFixedRows); row < std::max(n, m_nFixedRows); ++row) {
        for (int col = m_nFixedCols; col < m_nCols; ++col)
            setFixed(cellAt(row, col), n > m_nFixedRows);
    }
    m_nFixedRows = n;
    resetBars();
    Refresh();
    return 1;
}

int CGridCtrl_X::SetFixedColumnCount(int n)
{
    if (n < 0)
        return 0;
    if (n == m_nFixedCols)
        return 1;
    if ((n > m_nCols && !SetColumnCount(n)) || !beforeChange() || (n > m_idCurrentCell.col && !clearFocus()))
        return 0;
    n = std::min(n, m_nCols);
    for (int row = m_nFixedRows; row < m_nRows; ++row) {
        for (int col = std::min(n, m_nFixedCols); col < std::max(n, m_nFixedCols); ++col)
            setFixed(cellAt(row, col), n > m_nFixedCols);
    }
    m_nFixedCols = n;
    resetBars();
    Refresh();
    return 1;
}

void CGridCtrl_X::releaseFixedRow(int row)
{
    for (int col = m_nFixedCols; col < m_nCols; ++col)
        setFixed(cellAt(row, col), false);
}

void CGridCtrl_X::releaseFixedColumn(int col)
{
    for (int row = m_nFixedRows; row < m_nRows; ++row)
        setFixed(cellAt(row, col), false);
}
