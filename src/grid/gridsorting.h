// Brings the rows of a grid into another order.
#pragma once

#include "XeGridCtrl.h"

#include <string>
#include <string_view>
#include <vector>

namespace xe {

/// Sorts by the texts of one column, which are read once; then moves the rows, with all that goes by their numbers.
class RowSorting
{
public:
    RowSorting(CGridCtrl_X& grid, int column, int low, int high);

    bool isNeeded() const { return m_order.size() > 1; }
    void sort(bool ascending);
    void moveRows();

private:
    // A row by its place in the part that is sorted, and the beginning of its text as a number of the same order: most
    // comparisons end there.
    struct Entry
    {
        unsigned long long beginning;
        std::size_t row;
    };
    using Index = std::ptrdiff_t;

    void readTexts(int column, int high);
    bool findCells(std::vector<const CGridCellBase_X*>& cells, int column);
    void copyTexts(int column, int high);
    bool isBefore(const Entry& a, const Entry& b) const
    {
        return a.beginning < b.beginning || (a.beginning == b.beginning && m_texts[a.row] < m_texts[b.row]);
    }
    bool isSame(const Entry& a, const Entry& b) const
    {
        return a.beginning == b.beginning && m_texts[a.row] == m_texts[b.row];
    }

    bool sortDifferent(bool ascending);
    template <class Before>
    void sort(Index low, Index high, Before before);
    bool isMoved(std::size_t i) const { return m_order[i].row != i; }
    void undoBlocks();
    void placeRows();
    const CGridCtrl_X::GridRow& cellsAt(std::size_t i) const;
    void tellPlaces();
    void tellPlaces(int row);
    void moveMarks();

    CGridCtrl_X& m_grid;
    const int m_low;
    std::wstring m_copies; // of the texts, one behind the other, unless the cells keep them
    std::vector<std::wstring_view> m_texts;
    std::vector<bool> m_rowsToTell; // those with cells that have to be told their place
    std::vector<Entry> m_order;
};

} // namespace xe
