#include "chartpainter.h"

#include "text.h"

namespace {

constexpr COLORREF desk = RGB(0xe6, 0xeb, 0xf2);
constexpr COLORREF paper = RGB(0xff, 0xff, 0xff);
constexpr COLORREF shade = RGB(0xf3, 0xf6, 0xfa);
constexpr COLORREF rule = RGB(0xd5, 0xdd, 0xe8);
constexpr COLORREF ink = RGB(0x24, 0x2c, 0x38);
constexpr COLORREF faint = RGB(0x6a, 0x75, 0x85);
constexpr COLORREF warning = RGB(0xc0, 0x39, 0x2b);

constexpr int cornerRadius = 10;
constexpr int padding = 12;
constexpr int sample = 28; // width of what the legend explains

constexpr UINT toTheLeft = DT_LEFT | DT_VCENTER | DT_SINGLELINE;
constexpr UINT toTheRight = DT_RIGHT | DT_VCENTER | DT_SINGLELINE;

// In the default palette a hue has ten shades, from entry 10 on; neighbouring bars are five hues apart.
constexpr int hues = 24;
constexpr int lightShade = 3;
int paletteIndex(int bar) { return 10 + bar * 5 % hues * 10 + lightShade; }

void drawText(CDC_X& dc, const CString_X& text, const CRect& rect, UINT format, COLORREF color)
{
    dc.SetTextColor(color);
    dc.DrawText(text, rect, ToQtTextFlag(format));
}

// A region has its right and bottom edge.
void createRegion(CRgn_X& region, const CRect& rect)
{
    region.CreateRectRgn(rect.left, rect.top, rect.right - 1, rect.bottom - 1);
}

void drawHatched(CDC_X& dc, const CRect& rect)
{
    if (rect.IsRectEmpty())
        return;
    CRgn_X region;
    createRegion(region, rect);
    CBrush_X hatch(HS_BDIAGONAL, faint);
    dc.FillRgn(&region, &hatch);
}

void drawHeading(CDC_X& dc, const CRect& heading)
{
    dc.FillSolidRect(heading, shade);
    dc.FillSolidRect(heading.left, heading.bottom - 1, heading.Width(), 1, rule);
    QFont bold = dc.font();
    bold.setBold(true);
    const QFont old = dc.SelectObject(bold);
    CRect text(heading);
    text.DeflateRect(padding, 0);
    drawText(dc, loadText(IDS_CHART), text, toTheLeft, ink);
    dc.SelectObject(old);
}

void drawBar(CDC_X& dc, const ChartBar& bar, const KindStock& stock, int index)
{
    drawText(dc, stock.kind, bar.label, toTheLeft, ink);
    drawText(dc, formatText(loadText(IDS_CHART_STOCK), stock.inUse + stock.unused), bar.label, toTheRight, faint);
    dc.SetBkColor(index);
    dc.FillSolidRect(bar.inUse, dc.GetBkColor());
    drawHatched(dc, bar.unused);
}

void drawReorderLine(CDC_X& dc, CPoint from, CPoint to)
{
    CPen_X pen(PS_DASH, 1, warning);
    CGdiObject_X* const old = dc.SelectObject(&pen);
    dc.MoveTo(from);
    dc.LineTo(to);
    dc.SelectObject(old);
}

// Across each bar, and not through the labels.
void drawReorderLines(CDC_X& dc, const ChartLayout& chart)
{
    for (const ChartBar& bar : chart.bars)
        drawReorderLine(dc, {chart.reorder, bar.inUse.top - 2}, {chart.reorder, bar.inUse.bottom + 5});
}

void drawLegend(CDC_X& dc, const CRect& legend)
{
    dc.FillSolidRect(legend.left, legend.top, legend.Width(), 1, rule);
    CRect row(legend.left + padding, legend.top + 4, legend.right - padding, legend.CenterPoint().y + 1);
    CRect text(row);
    text.left += sample + padding;
    drawText(dc, loadText(IDS_CHART_REORDER), text, toTheLeft, faint);
    drawReorderLine(dc, {row.left, row.CenterPoint().y}, {row.left + sample, row.CenterPoint().y});

    row.OffsetRect(0, row.Height());
    text.OffsetRect(0, row.Height());
    drawText(dc, loadText(IDS_CHART_UNUSED), text, toTheLeft, faint);
    drawHatched(dc, {row.left, row.top + 4, row.left + sample, row.bottom - 4});
}

} // namespace

void paintChart(CDC_X& dc, const ChartLayout& chart, const std::vector<KindStock>& stock, int selected)
{
    dc.FillSolidRect(chart.pane, desk);
    CRgn_X card;
    card.CreateRoundRectRgn(chart.card.left, chart.card.top, chart.card.right - 1, chart.card.bottom - 1, cornerRadius,
                            cornerRadius);
    dc.SelectClipRgn(&card);
    dc.FillSolidRect(chart.card, paper);
    for (int i = 0; i < static_cast<int>(chart.bars.size()); ++i)
        drawBar(dc, chart.bars[static_cast<std::size_t>(i)], stock[static_cast<std::size_t>(i)], paletteIndex(i));
    if (selected >= 0) {
        CRect bar = chart.bars[static_cast<std::size_t>(selected)].whole();
        dc.InvertRect(bar);
    }
    drawReorderLines(dc, chart);
    drawHeading(dc, chart.heading);
    drawLegend(dc, chart.legend);
}
