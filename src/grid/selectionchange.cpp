#include "grid/selectionchange.h"

#include "core/overrides.h"
#include "grid/selectionmaps.h"

namespace xe {

namespace {

constexpr unsigned selected = CGridCellBase_X::Selected;

bool isSelected(const CGridCellBase_X& cell) { return cell.GetState() & selected; }

void deselect(CGridCellBase_X& cell) { cell.SetState(cell.GetState() & ~selected); }

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
    const int lastRow = qMin(range.m_nMaxRow, grid.m_nRows - 1);
    const int lastCol = qMin(range.m_nMaxCol, grid.m_nCols - 1);
    for (int row = range.m_nMinRow; row <= lastRow; ++row) {
        for (int col = range.m_nMinCol; col <= lastCol; ++col) {
            if (CGridCellBase_X* const cell = grid.cellAt(row, col))
                visit(*cell, row, col);
        }
    }
}

} // namespace

SelectionChange::SelectionChange(CGridCtrl_X& grid) : m_grid(grid), m_state(GridState::of(grid))
{
    if (grid.GetSafeHwnd() && grid.m_bAllowDraw)
        m_seen = grid.GetVisibleNonFixedCellRange();
}

long long SelectionChange::count() const
{
    return m_grid.m_SelectedCellMap.GetCount() + static_cast<long long>(m_state.farSelected.size());
}

void SelectionChange::note(int row, int col)
{
    m_isSeen = m_isSeen || m_seen.contains(row, col) || m_grid.IsCellFixed(row, col);
}

void SelectionChange::repaint()
{
    if (m_isSeen && m_grid.m_bAllowDraw)
        m_grid.Invalidate(TRUE);
}

// --------------------------------------------------------------------------------------------------------- deselecting

void SelectionChange::deselectOutside(const CCellRange_X& range)
{
    if (count() > 0 && !deselectLastOutside(range))
        deselectListed(range);
    m_state.lastRange = CCellRange_X();
}

// Goes by the range that was selected last. False, with nothing changed, if that is not all that is selected.
bool SelectionChange::deselectLastOutside(const CCellRange_X& range)
{
    long long kept = 0;
    std::vector<CCellID_X> gone;
    forEachCell(m_grid, m_state.lastRange, [&](const CGridCellBase_X& cell, int row, int col) {
        if (!isSelected(cell))
            return;
        if (range.contains(row, col) && !watchesState(cell))
            ++kept;
        else
            gone.emplace_back(row, col);
    });
    if (kept + static_cast<long long>(gone.size()) != count())
        return false;
    remove(gone, kept == 0);
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
    remove(gone, static_cast<long long>(gone.size()) == count());
}

void SelectionChange::remove(const std::vector<CCellID_X>& cells, bool areAll)
{
    for (const CCellID_X& id : cells) {
        if (CGridCellBase_X* const cell = m_grid.cellAt(id.row, id.col)) {
            deselect(*cell);
            note(id.row, id.col);
        }
        if (!areAll)
            m_state.noteSelected(m_grid, id.row, id.col, false);
    }
    if (areAll) {
        emptyMap(m_grid.m_SelectedCellMap);
        m_state.farSelected.clear();
    }
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
    const long long before = count();
    reserveKeys(m_grid.m_SelectedCellMap, qMax(0LL, areaOf(range) - before));
    forEachCell(m_grid, range, [this](CGridCellBase_X& cell, int row, int col) {
        if (!isSelected(cell))
            select(cell, row, col);
    });
    m_state.lastRange = range;
}

void SelectionChange::select(CGridCellBase_X& cell, int row, int col)
{
    cell.SetState(cell.GetState() | selected);
    m_state.noteSelected(m_grid, row, col, true);
    note(row, col);
}

} // namespace xe
