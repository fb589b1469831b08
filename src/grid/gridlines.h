// The sizes of the rows or columns of a grid, summed up.
#pragma once

#include "xeafxarray.h"

#include <vector>

namespace xe {

/// Knows where each line of a grid begins. Sums are kept as far as they are known to hold: a change of one line drops
/// those behind it, and they are made again when somebody asks. The total is always kept.
class GridLines
{
public:
    /// Sums are cut to this, so that what is made from two of them fits in an int as well.
    static constexpr int maximum = 0x3FFFFFFF;

    /// Of the sizes in an array that outlives this object.
    explicit GridLines(const CUIntArray_X& sizes) : m_sizes(sizes) {}

    int count() const { return static_cast<int>(m_sizes.GetSize()); }
    /// 0 for a line that is not there.
    int size(int line) const { return line >= 0 && line < count() ? static_cast<int>(m_sizes.GetData()[line]) : 0; }

    int total() const;
    /// The sum of the lines before one; the total for the number of lines.
    int before(int line) const;
    /// The line that the pixel lies in; the number of lines behind the last.
    int lineAt(long long pixel) const;

    /// The first line before which the sum is at least this; one behind the number of lines if there is none.
    int lineReaching(long long sum) const;

    /// What the array's owner tells: one line has another size, has come, has gone, or anything.
    void resized(int line, unsigned before, unsigned after);
    void inserted(int line, unsigned size);
    void removed(int line, unsigned size);
    void reset() { m_total = -1, m_sums.clear(); }

private:
    static int cut(long long sum) { return sum > maximum ? maximum : static_cast<int>(sum); }
    long long sumBefore(int line) const;
    void dropBehind(int line);

    const CUIntArray_X& m_sizes;
    mutable long long m_total = -1;        // below 0: not known
    mutable std::vector<long long> m_sums; // of the lines up to and with each
};

} // namespace xe
