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
    // The beginning of the text as a number of the same order: most comparisons end there.
    struct Entry
    {
        unsigned long long beginning;
        std::wstring_view text;
        int row;
    };
    using Index = std::ptrdiff_t;

    static bool isBefore(const Entry& a, const Entry& b)
    {
        return a.beginning != b.beginning ? a.beginning < b.beginning : a.text < b.text;
    }

    template <class Before>
    void sort(Index low, Index high, Before before);
    bool isMoved(std::size_t i) const { return m_order[i].row != m_low + static_cast<int>(i); }
    void undoBlocks();
    void placeRows();
    void tellPlaces();
    void moveMarks();

    CGridCtrl_X& m_grid;
    const int m_low;
    std::wstring m_texts; // one behind the other
    std::vector<Entry> m_order;
};

} // namespace xe
