#include "grid/selectionmaps.h"

#include "grid/gridstate.h"

namespace xe {

namespace {

using Map = CGridCtrl_X::SelectionMap;

constexpr unsigned smallTable = 17;
constexpr long long load = 2; // keys a bucket at most

// The hash of a key grows by this from one row to the next.
constexpr long long rowStep = 16807;

bool isPrime(unsigned number)
{
    for (unsigned divisor = 3; divisor <= number / divisor; divisor += 2) {
        if (number % divisor == 0)
            return false;
    }
    return true;
}

// In a large table the key so many rows further belongs to the bucket before: see insertRange().
long long rowsToNextBucket(long long tableSize)
{
    return tableSize > rowStep && tableSize % rowStep == 1 ? tableSize / rowStep : 1;
}

unsigned tableFor(long long keys)
{
    constexpr long long largest = 1 << 28;
    if (keys > rowStep)
        return static_cast<unsigned>((qMin(keys, largest) / rowStep + 1) * rowStep + 1);
    unsigned size = static_cast<unsigned>(qBound<long long>(smallTable, keys, largest)) | 1;
    while (!isPrime(size))
        size += 2;
    return size;
}

void insert(Map& map, CCellID_X cell) { map.SetAt(selectionKey(cell.row, cell.col), cell); }

void append(std::vector<CCellID_X>& cells, const std::unordered_set<unsigned long long>& far)
{
    for (const unsigned long long key : far)
        cells.emplace_back(farRow(key), farColumn(key));
}

} // namespace

void reserveKeys(Map& map, long long more)
{
    const long long wanted = map.GetCount() + more;
    if (wanted <= load * map.GetHashTableSize())
        return;
    const std::vector<CCellID_X> cells = cellsOf(map);
    map.RemoveAll();
    map.InitHashTable(tableFor(wanted), FALSE);
    for (const CCellID_X& cell : cells)
        insert(map, cell);
}

// The order of the keys is that of their buckets, as far as possible: else each would wait for memory.
void insertRange(Map& map, const CCellRange_X& range)
{
    const auto step = static_cast<int>(rowsToNextBucket(map.GetHashTableSize()));
    for (int col = range.m_nMinCol; col <= range.m_nMaxCol; ++col) {
        for (int first = 0; first < step; ++first) {
            for (int row = range.m_nMinRow + first; row <= range.m_nMaxRow; row += step)
                insert(map, {row, col});
        }
    }
}

void emptyMap(Map& map)
{
    map.RemoveAll();
    map.InitHashTable(smallTable, FALSE);
}

std::vector<CCellID_X> cellsOf(const Map& map)
{
    std::vector<CCellID_X> cells;
    cells.reserve(static_cast<std::size_t>(map.GetCount()));
    for (const auto* pair = map.PGetFirstAssoc(); pair; pair = map.PGetNextAssoc(pair))
        cells.emplace_back(static_cast<int>(pair->key & 0xFFFF), static_cast<int>(pair->key >> 16));
    return cells;
}

std::vector<CCellID_X> selectedCells(const CGridCtrl_X& grid)
{
    std::vector<CCellID_X> cells = cellsOf(grid.m_SelectedCellMap);
    append(cells, GridState::of(grid).farSelected);
    return cells;
}

std::vector<CCellID_X> stayingCells(const CGridCtrl_X& grid)
{
    std::vector<CCellID_X> cells = cellsOf(grid.m_PrevSelectedCellMap);
    append(cells, GridState::of(grid).farPrevSelected);
    return cells;
}

void forgetStaying(CGridCtrl_X& grid)
{
    emptyMap(grid.m_PrevSelectedCellMap);
    GridState::of(grid).farPrevSelected.clear();
}

void keepSelected(CGridCtrl_X& grid)
{
    forgetStaying(grid);
    reserveKeys(grid.m_PrevSelectedCellMap, grid.m_SelectedCellMap.GetCount());
    for (const CCellID_X& cell : cellsOf(grid.m_SelectedCellMap))
        insert(grid.m_PrevSelectedCellMap, cell);
    GridState::of(grid).farPrevSelected = GridState::of(grid).farSelected;
}

} // namespace xe
