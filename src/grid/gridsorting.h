// Brings the rows of a grid into another order.
#pragma once

#include "XeGridCtrl.h"

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
    struct Entry
    {
        std::wstring_view text;
        int row;
    };
    using Index = std::ptrdiff_t;

    template <class Before>
    void sort(Index low, Index high, Before before);
    void undoBlocks();
    void placeRows();
    void tellPlaces();
    void moveMarks();

    CGridCtrl_X& m_grid;
    const int m_low;
    std::vector<CString_X> m_texts;
    std::vector<Entry> m_order;
};

} // namespace xe
