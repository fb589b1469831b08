#include "grid/gridsorting.h"

#include "core/overrides.h"
#include "grid/gridstate.h"
#include "grid/selectionmaps.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace xe {

namespace {

constexpr unsigned fixed = CGridCellBase_X::Fixed;

// Eight bytes of UTF-8, whose order is that of the code points. An element that is none ends them: a negative one is
// below all others, and a missing one below that.
unsigned long long beginningOf(std::wstring_view text)
{
    unsigned long long bytes = 0;
    int room = 64;
    const auto add = [&](int byte) {
        if (room > 0)
            bytes |= static_cast<unsigned long long>(byte) << (room -= 8);
    };
    for (std::size_t i = 0; i < text.size() && room > 0; ++i) {
        const auto value = static_cast<int>(text[i]);
        if (value < 0 || value > 0x1FFFFF) {
            add(value < 0 ? 1 : 0xFF);
            break;
        }
        if (value < 0x80) {
            add(value);
            continue;
        }
        const int more = value < 0x800 ? 1 : value < 0x10000 ? 2 : 3;
        add((0xF00 >> more & 0xFF) | value >> 6 * more);
        for (int k = more - 1; k >= 0; --k)
            add(0x80 | (value >> 6 * k & 0x3F));
    }
    return bytes;
}

// Whether cells are of no class that knows its place, or gives another text than the one that it keeps.
class PlainCells
{
public:
    PlainCells()
    {
        const CGridCellBase_X base;
        const CGridCell_X cell;
        m_placeless[0] = virtualTarget(&base, &CGridCellBase_X::SetCoords);
        m_placeless[1] = virtualTarget<CGridCellBase_X>(&cell, &CGridCellBase_X::SetCoords);
        m_keepingText = virtualTarget<CGridCellBase_X>(&cell, &CGridCellBase_X::GetText);
    }

    bool knowsPlace(const CGridCellBase_X& cell) const
    {
        const void* const target = virtualTarget(&cell, &CGridCellBase_X::SetCoords);
        return !target || (target != m_placeless[0] && target != m_placeless[1]);
    }
    bool keepsText(const CGridCellBase_X& cell) const
    {
        return m_keepingText && virtualTarget(&cell, &CGridCellBase_X::GetText) == m_keepingText;
    }

private:
    const void* m_placeless[2];
    const void* m_keepingText;
};

const PlainCells& plainCells()
{
    static const PlainCells plain;
    return plain;
}

void askFor(const CGridCtrl_X::GridRow& cells)
{
    for (const CGridCellBase_X* const cell : cells)
        __builtin_prefetch(cell);
}

bool knowsPlace(const CGridCtrl_X::GridRow& cells)
{
    const PlainCells& plain = plainCells();
    return std::any_of(cells.begin(), cells.end(),
                       [&](const CGridCellBase_X* cell) { return cell && plain.knowsPlace(*cell); });
}

} // namespace

RowSorting::RowSorting(CGridCtrl_X& grid, int column, int low, int high) : m_grid(grid), m_low(low)
{
    if (high <= low)
        return;
    readTexts(column, high);
    m_order.reserve(m_texts.size());
    for (std::size_t row = 0; row < m_texts.size(); ++row)
        m_order.push_back({beginningOf(m_texts[row]), row});
}

void RowSorting::readTexts(int column, int high)
{
    const auto rows = static_cast<std::size_t>(high - m_low) + 1;
    std::vector<const CGridCellBase_X*> cells(rows);
    m_texts.reserve(rows);
    if (findCells(cells, column)) {
        for (const CGridCellBase_X* const cell : cells)
            m_texts.emplace_back(cell->GetText());
    } else {
        m_rowsToTell.assign(rows, true);
        copyTexts(column, high);
    }
}

// The cells of a column. Whether all of them keep their texts, so that nothing changes while those are read.
//
// On the way each row is asked whether it has to be told its place, since its memory is at hand. Cells of sorted rows
// lie scattered, and each would be waited for, but for the request for some rows at once.
bool RowSorting::findCells(std::vector<const CGridCellBase_X*>& cells, int column)
{
    const bool hasHeadings = m_low < m_grid.m_nFixedRows;
    const std::size_t group = 1 + 128 / static_cast<std::size_t>(m_grid.m_nCols);
    m_rowsToTell.reserve(cells.size());
    for (std::size_t first = 0; first < cells.size(); first += group) {
        const std::size_t end = std::min(first + group, cells.size());
        for (std::size_t i = first; i < end; ++i)
            askFor(cellsAt(i));
        for (std::size_t i = first; i < end; ++i) {
            cells[i] = m_grid.cellAt(m_low + static_cast<int>(i), column);
            if (!cells[i] || !plainCells().keepsText(*cells[i]))
                return false;
            m_rowsToTell.push_back(hasHeadings || knowsPlace(cellsAt(i)));
        }
    }
    return true;
}

// A cell that makes its text may make it anew in the same place, or change others.
void RowSorting::copyTexts(int column, int high)
{
    std::vector<std::size_t> ends;
    for (int row = m_low; row <= high; ++row) {
        const CGridCellBase_X* const cell = m_grid.cellAt(row, column);
        const wchar_t* const text = cell ? cell->GetText() : nullptr;
        m_copies += text ? text : L"";
        ends.push_back(m_copies.size());
    }
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        m_texts.push_back(std::wstring_view(m_copies).substr(begin, end - begin));
        begin = end;
    }
}

void RowSorting::sort(bool ascending)
{
    if (sortDifferent(ascending))
        return;
    const Index last = static_cast<Index>(m_order.size()) - 1;
    if (ascending)
        sort(0, last, [this](const Entry& a, const Entry& b) { return isBefore(a, b); });
    else
        sort(0, last, [this](const Entry& a, const Entry& b) { return isBefore(b, a); });
}

// Where no two beginnings are the same there is but one order, and it is found byte by byte, without a comparison.
// False without a change if there are two.
bool RowSorting::sortDifferent(bool ascending)
{
    constexpr std::size_t worthwhile = 500;
    if (m_order.size() < worthwhile)
        return false;
    std::vector<Entry> sorted = m_order;
    std::vector<Entry> next(sorted.size());
    for (int shift = 0; shift < 64; shift += 8) {
        const auto byteOf = [shift](const Entry& entry) { return entry.beginning >> shift & 0xFF; };
        std::array<std::size_t, 257> places{}; // of the entries with each byte, behind those with lesser ones
        for (const Entry& entry : sorted)
            ++places[byteOf(entry) + 1];
        std::partial_sum(places.begin(), places.end(), places.begin());
        for (const Entry& entry : sorted)
            next[places[byteOf(entry)]++] = entry;
        sorted.swap(next);
    }
    const auto isSameBeginning = [](const Entry& a, const Entry& b) { return a.beginning == b.beginning; };
    if (std::adjacent_find(sorted.begin(), sorted.end(), isSameBeginning) != sorted.end())
        return false;
    if (!ascending)
        std::reverse(sorted.begin(), sorted.end());
    m_order.swap(sorted);
    return true;
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
            if (!isSame(at(i), at(j)))
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
        const std::size_t from = m_order[i].row;
        m_grid.m_RowData[static_cast<std::size_t>(m_low) + i] = rows[from];
        if (hasHeights)
            m_grid.m_arRowHeights.SetAt(m_low + static_cast<Index>(i), heights[from]);
    }
    GridState::of(m_grid).rows.reset();
}

const CGridCtrl_X::GridRow& RowSorting::cellsAt(std::size_t i) const
{
    static const CGridCtrl_X::GridRow none;
    const std::size_t row = static_cast<std::size_t>(m_low) + i;
    const CGridCtrl_X::GridRow* const cells = row < m_grid.m_RowData.size() ? m_grid.m_RowData[row] : nullptr;
    return cells ? *cells : none;
}

// Cells may know their place, and whether it is a heading.
void RowSorting::tellPlaces()
{
    for (std::size_t i = 0; i < m_order.size(); ++i) {
        if (isMoved(i) && m_rowsToTell[m_order[i].row])
            tellPlaces(m_low + static_cast<int>(i));
    }
}

void RowSorting::tellPlaces(int row)
{
    for (int col = 0; col < m_grid.m_nCols; ++col) {
        CGridCellBase_X* const cell = m_grid.cellAt(row, col);
        if (!cell)
            continue;
        if (plainCells().knowsPlace(*cell))
            cell->SetCoords(row, col);
        if (m_low < m_grid.m_nFixedRows && m_grid.IsCellFixed(row, col) != static_cast<bool>(cell->GetState() & fixed))
            cell->SetState(cell->GetState() ^ fixed);
    }
}

// Focus and selection go with their cells.
void RowSorting::moveMarks()
{
    std::vector<int> rowOf(m_order.size());
    for (std::size_t i = 0; i < m_order.size(); ++i)
        rowOf[m_order[i].row] = m_low + static_cast<int>(i);
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
