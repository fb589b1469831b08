#include "grid/gridfocus.h"

#include "grid/selectionmaps.h"

#include <QPointer>

namespace {

constexpr unsigned focused = CGridCellBase_X::Focused;

// The headings of the cell with the focus are bold.
void redrawHeadings(CGridCtrl_X& grid, const CCellID_X& cell, const CCellID_X& other)
{
    for (int row = 0; cell.col != other.col && row < grid.m_nFixedRows; ++row)
        grid.RedrawCell(row, cell.col);
    for (int col = 0; cell.row != other.row && col < grid.m_nFixedCols; ++col)
        grid.RedrawCell(cell.row, col);
}

void setFocused(CGridCtrl_X& grid, const CCellID_X& id, bool isFocused)
{
    if (CGridCellBase_X* const cell = grid.cellAt(id.row, id.col))
        cell->SetState(isFocused ? cell->GetState() | focused : cell->GetState() & ~focused);
}

CCellID_X withoutFixed(const CGridCtrl_X& grid, CCellID_X cell)
{
    if (cell.row != -1)
        cell.row = qMax(cell.row, grid.m_nFixedRows);
    if (cell.col != -1)
        cell.col = qMax(cell.col, grid.m_nFixedCols);
    return grid.IsValid(cell) ? cell : CCellID_X();
}

// A step of a move of the focus: what it tells the parent may move the focus again, which ends this move, or insert and
// delete lines, which gives the cells other places.
class FocusMove
{
public:
    FocusMove(CGridCtrl_X& grid, const CCellID_X& to)
        : m_grid(&grid),
          m_from(grid.m_idCurrentCell),
          m_to(to),
          m_left(grid.cellAt(m_from.row, m_from.col)),
          m_reached(grid.cellAt(to.row, to.col))
    {
        grid.m_idCurrentCell = to;
    }

    bool leave()
    {
        if (!m_grid->IsValid(m_from))
            return true;
        const bool goesOn = tell(m_from, LVN_ITEMCHANGING);
        if (!m_grid || isAt(m_from, m_left))
            return false;
        if (m_left) // a move of the parent's has not known this cell
            m_left->SetState(m_left->GetState() & ~focused);
        else
            setFocused(*m_grid, m_from, false);
        m_grid->RedrawCell(m_from);
        redrawHeadings(*m_grid, m_from, m_to);
        return goesOn;
    }

    bool arrive()
    {
        if (!m_grid->IsValid(m_to))
            return false;
        setFocused(*m_grid, m_to, true);
        m_grid->RedrawCell(m_to);
        redrawHeadings(*m_grid, m_to, m_from);
        return tell(m_to, LVN_ITEMCHANGED);
    }

    bool isAlive() const { return m_grid; }

private:
    bool tell(const CCellID_X& cell, UINT code)
    {
        m_grid->SendMessageToParent(cell.row, cell.col, static_cast<int>(code));
        if (!m_grid || !isAt(m_to, m_reached))
            return false;
        m_to = m_grid->m_idCurrentCell;
        return true;
    }

    // Whether the focus is on a cell, wherever that has gone, or on what has taken its place.
    bool isAt(const CCellID_X& place, const CGridCellBase_X* cell) const
    {
        const CCellID_X current = m_grid->m_idCurrentCell;
        return cell ? m_grid->cellAt(current.row, current.col) == cell : current == place;
    }

    QPointer<CGridCtrl_X> m_grid;
    const CCellID_X m_from;
    CCellID_X m_to;
    const QPointer<CGridCellBase_X> m_left;
    const QPointer<CGridCellBase_X> m_reached;
};

} // namespace

namespace xe {

bool moveFocus(CGridCtrl_X& grid, CCellID_X cell, RowSelection rows)
{
    if (cell == grid.m_idCurrentCell)
        return true;
    FocusMove move(grid, withoutFixed(grid, cell));
    const bool hasArrived = move.leave() && move.arrive();
    if (hasArrived && grid.m_bListMode && rows == RowSelection::Follows) {
        forgetStaying(grid);
        grid.m_MouseMode = CGridCtrl_X::MOUSE_SELECT_ROW;
        grid.OnSelecting(grid.m_idCurrentCell);
    }
    return move.isAlive();
}

} // namespace xe

CCellID_X CGridCtrl_X::SetFocusCell(CCellID_X cell)
{
    const CCellID_X before = m_idCurrentCell;
    xe::moveFocus(*this, cell, xe::RowSelection::Follows);
    return before;
}

// ----------------------------------------------------------------------------------------------------------- next item

namespace {

constexpr unsigned wantedStates = 0x3F;

// The part of a block that the grid has.
CCellRange_X inside(const CGridCtrl_X& grid, const CCellRange_X& range)
{
    return {qMax(range.m_nMinRow, 0), qMax(range.m_nMinCol, 0), qMin(range.m_nMaxRow, grid.GetRowCount() - 1),
            qMin(range.m_nMaxCol, grid.GetColumnCount() - 1)};
}

// The first cell of a block, row by row, in one of the wanted states.
CCellID_X firstIn(const CGridCtrl_X& grid, const CCellRange_X& block, int flags)
{
    const CCellRange_X range = inside(grid, block);
    for (int row = range.m_nMinRow; row <= range.m_nMaxRow; ++row) {
        for (int col = range.m_nMinCol; col <= range.m_nMaxCol; ++col) {
            if (grid.GetItemState(row, col) & static_cast<unsigned>(flags) & wantedStates)
                return {row, col};
        }
    }
    return {};
}

// The same upwards or to the left: a block of one column or one row.
CCellID_X lastIn(const CGridCtrl_X& grid, const CCellRange_X& block, int flags)
{
    const CCellRange_X range = inside(grid, block);
    for (int row = range.m_nMaxRow; row >= range.m_nMinRow; --row) {
        for (int col = range.m_nMaxCol; col >= range.m_nMinCol; --col) {
            if (grid.GetItemState(row, col) & static_cast<unsigned>(flags) & wantedStates)
                return {row, col};
        }
    }
    return {};
}

bool has(int flags, int direction) { return (flags & direction) == direction; }

} // namespace

CCellID_X CGridCtrl_X::GetNextItem(CCellID_X& cell, int flags) const
{
    const int lastRow = m_nRows - 1;
    const int lastCol = m_nCols - 1;
    const int above = qMax(cell.row, 0) - 1;
    const int left = qMax(cell.col, 0) - 1;
    const int below = qBound(-1, cell.row, lastRow) + 1;
    const int right = qBound(-1, cell.col, lastCol) + 1;
    const int row = cell.row < 1 ? m_nFixedRows : cell.row;
    const int col = right < 1 ? m_nFixedCols : right;
    if (has(flags, GVNI_ALL)) {
        const CCellID_X found = firstIn(*this, {row, col, qMin(row, lastRow), lastCol}, flags);
        return IsValid(found) ? found : firstIn(*this, {qMin(row, lastRow) + 1, m_nFixedCols, lastRow, lastCol}, flags);
    }
    if (has(flags, GVNI_AREA))
        return firstIn(*this, {row, col, lastRow, lastCol}, flags);
    if (has(flags, GVNI_ABOVE) && above <= lastRow)
        return lastIn(*this, {m_nFixedRows, cell.col, above, cell.col}, flags);
    if (has(flags, GVNI_BELOW))
        return firstIn(*this, {below, cell.col, lastRow, cell.col}, flags);
    if (has(flags, GVNI_TOLEFT) && left <= lastCol)
        return lastIn(*this, {cell.row, m_nFixedCols, cell.row, left}, flags);
    if (has(flags, GVNI_TORIGHT))
        return firstIn(*this, {cell.row, right, cell.row, lastCol}, flags);
    return {};
}
