#include "grid/gridlines.h"

#include <algorithm>
#include <numeric>

namespace xe {

int GridLines::total() const
{
    if (m_total < 0)
        m_total = std::accumulate(m_sizes.GetData(), m_sizes.GetData() + count(), 0LL);
    return cut(m_total);
}

int GridLines::before(int line) const { return cut(sumBefore(line)); }

long long GridLines::sumBefore(int line) const
{
    const auto wanted = static_cast<std::size_t>(std::clamp(line, 0, count()));
    if (m_sums.capacity() < wanted)
        m_sums.reserve(static_cast<std::size_t>(count()));
    const unsigned* const sizes = m_sizes.GetData();
    long long sum = m_sums.empty() ? 0 : m_sums.back();
    while (m_sums.size() < wanted)
        m_sums.push_back(sum += sizes[m_sums.size()]);
    return wanted > 0 ? m_sums[wanted - 1] : 0;
}

int GridLines::lineAt(long long pixel) const
{
    if (pixel < 0)
        return 0;
    if (m_sums.empty() || m_sums.back() <= pixel)
        sumBefore(count());
    return static_cast<int>(std::upper_bound(m_sums.begin(), m_sums.end(), pixel) - m_sums.begin());
}

int GridLines::lineReaching(long long sum) const
{
    if (sum <= 0)
        return 0;
    if (m_sums.empty() || m_sums.back() < sum)
        sumBefore(count());
    return static_cast<int>(std::lower_bound(m_sums.begin(), m_sums.end(), sum) - m_sums.begin()) + 1;
}

void GridLines::resized(int line, unsigned before, unsigned after)
{
    if (m_total >= 0)
        m_total += static_cast<long long>(after) - before;
    dropBehind(line);
}

void GridLines::inserted(int line, unsigned size) { resized(line, 0, size); }
void GridLines::removed(int line, unsigned size) { resized(line, size, 0); }

void GridLines::dropBehind(int line)
{
    if (m_sums.size() > static_cast<std::size_t>(line))
        m_sums.resize(static_cast<std::size_t>(line));
}

} // namespace xe
