#include "messagepainter.h"

#include "messagelog.h"
#include "text.h"

#include <QFontDatabase>

namespace {

constexpr COLORREF paper = RGB(0xff, 0xff, 0xff);
constexpr COLORREF shade = RGB(0xf3, 0xf6, 0xfa);
constexpr COLORREF rule = RGB(0xd5, 0xdd, 0xe8);
constexpr COLORREF ink = RGB(0x24, 0x2c, 0x38);
constexpr COLORREF faint = RGB(0x8a, 0x95, 0xa5);

constexpr int headingHeight = 34;
constexpr int padding = 12;

// Columns of the message list, in characters of its font.
constexpr int timeWidth = 14;
constexpr int nameWidth = 18;
constexpr int pointWidth = 12;
constexpr int countWidth = 6;

constexpr UINT toTheLeft = DT_LEFT | DT_VCENTER;
constexpr UINT toTheRight = DT_RIGHT | DT_VCENTER;

COLORREF colourOf(MessageKind kind)
{
    switch (kind) {
    case MessageKind::Mouse:
        return RGB(0x1f, 0x6f, 0xd0);
    case MessageKind::Move:
        return RGB(0x7a, 0x93, 0xb5);
    case MessageKind::Wheel:
        return RGB(0x7c, 0x4d, 0xd6);
    case MessageKind::Key:
        return RGB(0x1d, 0x84, 0x4a);
    case MessageKind::Character:
        return RGB(0x0e, 0x7f, 0x8c);
    case MessageKind::Timer:
        return RGB(0xa0, 0x9a, 0x8c);
    case MessageKind::Size:
        return RGB(0xb4, 0x5a, 0x12);
    case MessageKind::Notification:
        return RGB(0xb0, 0x2a, 0x6b);
    }
    return ink;
}

void drawText(CDC_X& dc, const CString_X& text, const CRect& rect, UINT format, COLORREF color)
{
    dc.SetTextColor(color);
    dc.DrawText(text, rect, ToQtTextFlag(format));
}

// Paints the heading at the top of an area and gives what is left of it.
CRect paintHeading(CDC_X& dc, const CRect& area, const CString_X& title, const CString_X& note)
{
    const CRect heading(area.TopLeft(), CSize(area.Width(), headingHeight));
    CRect text(heading);
    text.DeflateRect(padding, 0);
    dc.FillSolidRect(heading, shade);
    dc.FillSolidRect(heading.left, heading.bottom - 1, heading.Width(), 1, rule);
    drawText(dc, note, text, toTheRight, faint);

    QFont bold = dc.font();
    bold.setBold(true);
    const QFont old = dc.SelectObject(bold);
    drawText(dc, title, text, toTheLeft, ink);
    dc.SelectObject(old);
    return {area.left, heading.bottom, area.right, area.bottom};
}

void paintMessage(CDC_X& dc, const CRect& row, const MessageLine& line)
{
    const QFontMetrics metrics = dc.fontMetrics();
    const int unit = metrics.horizontalAdvance('0');
    CRect cell(row);
    cell.DeflateRect(padding, 0);

    drawText(dc, line.time.toString("HH:mm:ss.zzz"), cell, toTheLeft, faint);
    cell.left += timeWidth * unit;
    if (line.count > 1)
        drawText(dc, QString("x%1").arg(line.count), cell, toTheRight, faint);
    cell.right -= countWidth * unit;

    drawText(dc, line.name, cell, toTheLeft, colourOf(line.kind));
    cell.left += nameWidth * unit;

    drawText(dc, line.point, cell, toTheRight, ink);
    if (!line.point.isEmpty())
        cell.right -= pointWidth * unit;
    drawText(dc, metrics.elidedText(line.parameters, Qt::ElideRight, cell.Width()), cell, toTheLeft, ink);
}

} // namespace

void paintMessages(CDC_X& dc, const CRect& area, const MessageLog& log, const CString_X& note)
{
    static const CString_X title = loadText(IDS_MESSAGES);
    dc.SaveDC();
    dc.FillSolidRect(area, paper);
    CRect row = paintHeading(dc, area, title, note);
    dc.SelectObject(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    const int rowHeight = dc.GetOutputTextExtent(title).cy + 6;
    const int rows = row.Height() / rowHeight;
    const QList<MessageLine> newest = log.lines().mid(qMax(0, log.lines().size() - rows));
    row.bottom = row.top + rowHeight;
    for (int i = 0; i <= rows; ++i, row.OffsetRect(0, rowHeight)) {
        if (i % 2)
            dc.FillSolidRect(row, shade);
        if (i < newest.size())
            paintMessage(dc, row, newest.at(i));
    }
    dc.FillSolidRect(area.left, area.top, 1, area.Height(), rule);
    dc.RestoreDC(-1);
}
