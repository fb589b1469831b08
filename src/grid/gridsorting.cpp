#include "grid/gridsorting.h"

#include "core/overrides.h"
#include "grid/gridstate.h"
#include "grid/selectionmaps.h"

#include <algorithm>

namespace xe {

namespace {

constexpr unsigned fixed = CGridCellBase_X::Fixed;

// The first two elements, which have a sign. A missing one counts as the least.
unsigned long long beginningOf(std::wstring_view text)
{
    const auto unsignedAt = [text](std::size_t i) {
        return i < text.size() ? static_cast<unsigned>(text[i]) ^ 0x80000000U : 0U;
    };
    return static_cast<unsigned long long>(unsignedAt(0)) << 32 | unsignedAt(1);
}

// Whether a class of cells knows its place: the plain one does not.
bool knowsPlace(const CGridCellBase_X& cell)
{
    static const CGridCellBase_X plain;
    static const CGridCell_X plainCell;
    static const void* const none[] = {virtualTarget(&plain, &CGridCellBase_X::SetCoords),
                                       virtualTarget<CGridCellBase_X>(&plainCell, &CGridCellBase_X::SetCoords)};
    const void* const target = virtualTarget(&cell, &CGridCellBase_X::SetCoords);
    return !target || (target != none[0] && target != none[1]);
}

} // namespace

RowSorting::RowSorting(CGridCtrl_X& grid, int column, int low, int high) : m_grid(grid), m_low(low)
{
    std::vector<std::size_t> ends;
    for (int row = low; row <= high; ++row) {
        const CGridCellBase_X* const cell = grid.cellAt(row, column);
        const wchar_t* const text = cell ? cell->GetText() : nullptr;
        m_texts += text ? text : L"";
        ends.push_back(m_texts.size());
    }
    m_order.reserve(ends.size());
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        const auto text = std::wstring_view(m_texts).substr(begin, ends[i] - begin);
        m_order.push_back({beginningOf(text), text, low + static_cast<int>(i)});
    }
}

void RowSorting::sort(bool ascending)
{
    const Index last = static_cast<Index>(m_order.size()) - 1;
    if (ascending)
        sort(0, last, [](const Entry& a, const Entry& b) { return isBefore(a, b); });
    else
        sort(0, last, [](const Entry& a, const Entry& b) { return isBefore(b, a); });
}

// The order of equal texts is what these exchanges make of it. The larger part is left to the loop, so that the stack
// stays small.
template <class Before>
void RowSorting::sort(Index low, Index high, Before before)
{
    const auto at = [this](Index i) -> Entry& { return m_order[static_cast<std::size_t>(i)]; };
    while (low < high) {
        const Entry middle = at((low + high) / 2);
        Index i = low;
        Index j = high;
        while (i <= j) {
            while (i < high && before(at(i), middle))
                ++i;
            while (j > low && before(middle, at(j)))
                --j;
            if (i > j)
                break;
            if (at(i).text != at(j).text)
                std::swap(at(i), at(j));
            ++i;
            --j;
        }
        if (j - low < high - i) {
            sort(low, j, before);
            low = i;
        } else {
            sort(i, high, before);
            high = j;
        }
    }
}

void RowSorting::moveRows()
{
    undoBlocks();
    placeRows();
    tellPlaces();
    moveMarks();
}

void RowSorting::undoBlocks()
{
    std::vector<CCellID_X> masters;
    for (const CCellRange_X& block : GridState::of(m_grid).blocks) {
        const int last = qMin(block.m_nMaxRow, m_low + static_cast<int>(m_order.size()) - 1);
        for (int row = qMax(block.m_nMinRow, m_low); row <= last; ++row) {
            if (isMoved(static_cast<std::size_t>(row - m_low))) {
                masters.emplace_back(block.m_nMinRow, block.m_nMinCol);
                break;
            }
        }
    }
    for (const CCellID_X& master : masters)
        m_grid.UndoCellCombine(master.row, master.col);
}

void RowSorting::placeRows()
{
    const auto first = m_grid.m_RowData.begin() + m_low;
    const std::vector<CGridCtrl_X::GridRow*> rows(first, first + static_cast<Index>(m_order.size()));
    const unsigned* const data = m_grid.m_arRowHeights.GetData();
    const bool hasHeights = m_grid.m_arRowHeights.GetSize() >= m_low + static_cast<Index>(m_order.size());
    const std::vector<unsigned> heights =
        hasHeights ? std::vector<unsigned>(data + m_low, data + m_low + m_order.size()) : std::vector<unsigned>();
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        const auto from = static_cast<std::size_t>(m_order[i].row - m_low);
        m_grid.m_RowData[static_cast<std::size_t>(m_low) + i] = rows[from];
        if (hasHeights)
            m_grid.m_arRowHeights.SetAt(m_low + static_cast<Index>(i), heights[from]);
    }
    GridState::of(m_grid).rows.reset();
}

// Cells know their place, and whether it is a heading.
void RowSorting::tellPlaces()
{
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        const int row = m_low + static_cast<int>(i);
        for (int col = 0; isMoved(i) && col < m_grid.m_nCols; ++col) {
            CGridCellBase_X* const cell = m_grid.cellAt(row, col);
            if (!cell)
                continue;
            if (knowsPlace(*cell))
                cell->SetCoords(row, col);
            const bool isFixed = m_grid.IsCellFixed(row, col);
            if (m_low < m_grid.m_nFixedRows && isFixed != static_cast<bool>(cell->GetState() & fixed))
                cell->SetState(cell->GetState() ^ fixed);
        }
    }
}

// Focus and selection go with their cells.
void RowSorting::moveMarks()
{
    std::vector<int> rowOf(m_order.size());
    for (std::size_t i = 0; i < m_order.size(); ++i)
        rowOf[static_cast<std::size_t>(m_order[i].row - m_low)] = m_low + static_cast<int>(i);
    const auto isMoved = [&](int row) { return row >= m_low && row - m_low < static_cast<int>(rowOf.size()); };
    CCellID_X& focus = m_grid.m_idCurrentCell;
    if (isMoved(focus.row))
        focus.row = rowOf[static_cast<std::size_t>(focus.row - m_low)];

    const std::vector<CCellID_X> cells = selectedCells(m_grid);
    if (cells.empty())
        return;
    GridState& state = GridState::of(m_grid);
    m_grid.m_SelectedCellMap.RemoveAll();
    state.farSelected.clear();
    state.lastRange = CCellRange_X();
    for (CCellID_X cell : cells) {
        if (isMoved(cell.row))
            cell.row = rowOf[static_cast<std::size_t>(cell.row - m_low)];
        state.noteSelected(m_grid, cell.row, cell.col, true);
    }
}

} // namespace xe
