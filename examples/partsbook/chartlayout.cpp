#include "chartlayout.h"

#include <algorithm>

namespace {

constexpr int margin = 8;
constexpr int padding = 12;
constexpr int headingHeight = 34;
constexpr int legendHeight = 48;
constexpr int labelHeight = 20;
constexpr int mostRowHeight = 48;
constexpr int mostBarHeight = 14;
constexpr double leastScale = 1.25; // the reorder line is never at the end of the plot

double share(long long pieces, const KindStock& stock)
{
    return static_cast<double>(pieces) / static_cast<double>(std::max(1LL, stock.minimum));
}

// The share that the whole width of the plot stands for. A kind that needs nothing has no share of it.
double scaleOf(const std::vector<KindStock>& stock)
{
    double scale = leastScale;
    for (const KindStock& one : stock) {
        if (one.minimum > 0)
            scale = std::max(scale, share(one.inUse + one.unused, one));
    }
    return scale;
}

ChartBar layOutBar(const KindStock& stock, const CRect& row, double scale)
{
    const auto end = [&](long long pieces) {
        return row.left + static_cast<int>(row.Width() * std::min(1.0, share(pieces, stock) / scale));
    };
    const int top = row.top + labelHeight;
    const int bottom = std::min<int>(row.bottom, top + mostBarHeight);
    const int inUse = end(stock.inUse);
    return {{row.left, row.top, row.right, top},
            {row.left, top, inUse, bottom},
            {inUse, top, end(stock.inUse + stock.unused), bottom}};
}

} // namespace

ChartLayout layOutChart(const std::vector<KindStock>& stock, CSize size)
{
    ChartLayout chart;
    chart.pane = CRect(0, 0, size.cx, size.cy);
    chart.card = chart.pane;
    chart.card.DeflateRect(margin, margin);
    chart.heading = CRect(chart.card.TopLeft(), CSize(chart.card.Width(), headingHeight));
    chart.legend = CRect(chart.card.left, chart.card.bottom - legendHeight, chart.card.right, chart.card.bottom);

    const double scale = scaleOf(stock);
    const CRect plot(chart.card.left + padding, chart.heading.bottom + padding / 2, chart.card.right - padding,
                     chart.legend.top);
    const int rowHeight = std::min(mostRowHeight, plot.Height() / std::max(1, static_cast<int>(stock.size())));
    chart.reorder = plot.left + static_cast<int>(plot.Width() / scale);
    CRect row(plot.TopLeft(), CSize(plot.Width(), rowHeight));
    for (const KindStock& one : stock) {
        chart.bars.push_back(layOutBar(one, row, scale));
        row.OffsetRect(0, rowHeight);
    }
    return chart;
}
