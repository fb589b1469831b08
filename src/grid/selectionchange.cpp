#include "grid/selectionchange.h"

#include "core/overrides.h"
#include "grid/selectionmaps.h"

#include <vector>

namespace xe {

namespace {

constexpr unsigned selected = CGridCellBase_X::Selected;

bool isSelected(const CGridCellBase_X& cell) { return cell.GetState() & selected; }

void deselect(CGridCellBase_X& cell) { cell.SetState(cell.GetState() & ~selected); }

// Whether the cell was not selected before.
bool becomesSelected(CGridCellBase_X& cell)
{
    const unsigned state = cell.GetState();
    if (!(state & selected))
        cell.SetState(state | selected);
    return !(state & selected);
}

// Whether a class sees the states of its cells change.
bool watchesState(const CGridCellBase_X& cell)
{
    static const CGridCellBase_X plain;
    static const void* const base = virtualTarget(&plain, &CGridCellBase_X::SetState);
    return !base || virtualTarget(&cell, &CGridCellBase_X::SetState) != base;
}

long long areaOf(const CCellRange_X& range)
{
    return (range.m_nMaxRow - range.m_nMinRow + 1LL) * (range.m_nMaxCol - range.m_nMinCol + 1LL);
}

bool isEmpty(const CCellRange_X& range) { return range.m_nMinRow < 0; }

template <class Visit>
void forEachCell(const CGridCtrl_X& grid, const CCellRange_X& range, Visit visit)
{
    if (isEmpty(range))
        return;
    const int lastRow = qMin(range.m_nMaxRow, qMin(grid.m_nRows, static_cast<int>(grid.m_RowData.size())) - 1);
    for (int row = range.m_nMinRow; row <= lastRow; ++row) {
        const CGridCtrl_X::GridRow* const cells = grid.m_RowData[static_cast<std::size_t>(row)];
        const int count = cells ? qMin(grid.m_nCols, static_cast<int>(cells->size())) : 0;
        for (int col = range.m_nMinCol; col <= range.m_nMaxCol && col < count; ++col) {
            if (CGridCellBase_X* const cell = (*cells)[static_cast<std::size_t>(col)])
                visit(*cell, row, col);
        }
    }
}

} // namespace

SelectionChange::SelectionChange(CGridCtrl_X& grid) : m_grid(grid), m_state(GridState::of(grid))
{
    m_isSeen = !grid.GetSafeHwnd() || !grid.m_bAllowDraw;
    m_repaints = !m_isSeen;
}

long long SelectionChange::count() const
{
    return m_grid.m_SelectedCellMap.GetCount() + static_cast<long long>(m_state.farSelected.size());
}

void SelectionChange::note(int row, int col)
{
    if (m_isSeen)
        return;
    if (!m_seen)
        m_seen = m_grid.GetVisibleNonFixedCellRange();
    m_isSeen = m_seen->contains(row, col) || m_grid.IsCellFixed(row, col);
}

void SelectionChange::repaint()
{
    if (m_repaints && m_isSeen)
        m_grid.Invalidate(TRUE);
}

// --------------------------------------------------------------------------------------------------------- deselecting

void SelectionChange::deselectOutside(const CCellRange_X& range)
{
    if (count() > 0 && !deselectLastOutside(range))
        deselectListed(range);
    m_state.lastRange = CCellRange_X();
}

// Goes by the range that was selected last. False if that is not all that is selected: entries of the map are left.
bool SelectionChange::deselectLastOutside(const CCellRange_X& range)
{
    long long kept = 0;
    long long gone = 0;
    std::vector<CCellID_X> keys;
    forEachCell(m_grid, m_state.lastRange, [&](CGridCellBase_X& cell, int row, int col) {
        if (!isSelected(cell))
            return;
        if (range.contains(row, col) && !watchesState(cell)) {
            ++kept;
            return;
        }
        ++gone;
        deselect(cell);
        note(row, col);
        if (!isEmpty(range))
            keys.emplace_back(row, col);
    });
    if (kept + gone != count())
        return false;
    if (kept == 0)
        emptyMaps();
    else
        forget(keys);
    return true;
}

void SelectionChange::deselectListed(const CCellRange_X& range)
{
    std::vector<CCellID_X> gone;
    for (const CCellID_X& id : selectedCells(m_grid)) {
        const CGridCellBase_X* const cell = m_grid.cellAt(id.row, id.col);
        if (!cell || !range.contains(id.row, id.col) || watchesState(*cell))
            gone.push_back(id);
    }
    for (const CCellID_X& id : gone) {
        if (CGridCellBase_X* const cell = m_grid.cellAt(id.row, id.col))
            deselect(*cell);
        note(id.row, id.col);
    }
    if (static_cast<long long>(gone.size()) == count())
        emptyMaps();
    else
        forget(gone);
}

void SelectionChange::forget(const std::vector<CCellID_X>& cells)
{
    for (const CCellID_X& id : cells)
        m_state.noteSelected(m_grid, id.row, id.col, false);
}

void SelectionChange::emptyMaps()
{
    emptyMap(m_grid.m_SelectedCellMap);
    m_state.farSelected.clear();
}

// ----------------------------------------------------------------------------------------------------------- selecting

void SelectionChange::selectStaying()
{
    const std::vector<CCellID_X> cells = stayingCells(m_grid);
    reserveKeys(m_grid.m_SelectedCellMap, static_cast<long long>(cells.size()));
    for (const CCellID_X& id : cells) {
        CGridCellBase_X* const cell = m_grid.cellAt(id.row, id.col);
        if (cell && !isSelected(*cell))
            select(*cell, id.row, id.col);
    }
}

void SelectionChange::select(const CCellRange_X& range)
{
    if (isEmpty(range))
        return;
    const bool wasEmpty = count() == 0 && fitsSelectionKey(range.m_nMaxRow, range.m_nMaxCol);
    reserveKeys(m_grid.m_SelectedCellMap, qMax(0LL, areaOf(range) - count()));
    if (!wasEmpty || !selectAll(range)) {
        forEachCell(m_grid, range, [this, wasEmpty](CGridCellBase_X& cell, int row, int col) {
            if (wasEmpty || !isSelected(cell))
                select(cell, row, col);
        });
    }
    m_state.lastRange = range;
}

// Selects a range while nothing is selected: states first, keys then. False, with no key added, if a cell is not there
// or is in the state without being in the map.
bool SelectionChange::selectAll(const CCellRange_X& range)
{
    long long selectedNow = 0;
    forEachCell(m_grid, range, [&](CGridCellBase_X& cell, int row, int col) {
        if (!becomesSelected(cell))
            return;
        note(row, col);
        ++selectedNow;
    });
    if (selectedNow != areaOf(range))
        return false;
    insertRange(m_grid.m_SelectedCellMap, range);
    return true;
}

void SelectionChange::select(CGridCellBase_X& cell, int row, int col)
{
    becomesSelected(cell);
    m_state.noteSelected(m_grid, row, col, true);
    note(row, col);
}

} // namespace xe
