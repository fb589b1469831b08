#include "messagepainter.h"

#include "messagelog.h"
#include "text.h"

#include <QFontDatabase>
#include <QPainter>

namespace {

const QColor paper(0xff, 0xff, 0xff);
const QColor shade(0xf3, 0xf6, 0xfa);
const QColor rule(0xd5, 0xdd, 0xe8);
const QColor ink(0x24, 0x2c, 0x38);
const QColor faint(0x8a, 0x95, 0xa5);

constexpr int headingHeight = 34;
constexpr int padding = 12;

// Columns of the message list, in characters of its font.
constexpr int timeWidth = 14;
constexpr int nameWidth = 18;
constexpr int pointWidth = 12;
constexpr int countWidth = 6;

constexpr int toTheLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int toTheRight = Qt::AlignRight | Qt::AlignVCenter;

QColor colourOf(MessageKind kind)
{
    switch (kind) {
    case MessageKind::Mouse:
        return {0x1f, 0x6f, 0xd0};
    case MessageKind::Move:
        return {0x7a, 0x93, 0xb5};
    case MessageKind::Wheel:
        return {0x7c, 0x4d, 0xd6};
    case MessageKind::Key:
        return {0x1d, 0x84, 0x4a};
    case MessageKind::Character:
        return {0x0e, 0x7f, 0x8c};
    case MessageKind::Timer:
        return {0xa0, 0x9a, 0x8c};
    case MessageKind::Size:
        return {0xb4, 0x5a, 0x12};
    }
    return ink;
}

// Paints the heading at the top of an area and gives what is left of it.
QRect paintHeading(QPainter& painter, const QRect& area, const QString& title, const QString& note)
{
    const QRect heading(area.left(), area.top(), area.width(), headingHeight);
    const QRect text = heading.adjusted(padding, 0, -padding, 0);
    painter.fillRect(heading, shade);
    painter.fillRect(heading.left(), heading.bottom(), heading.width(), 1, rule);
    painter.setPen(faint);
    painter.drawText(text, toTheRight, note);

    const QFont font = painter.font();
    QFont bold = font;
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(ink);
    painter.drawText(text, toTheLeft, title);
    painter.setFont(font);
    return area.adjusted(0, headingHeight, 0, 0);
}

void paintMessage(QPainter& painter, const QRect& row, const MessageLine& line)
{
    const QFontMetrics metrics = painter.fontMetrics();
    const int unit = metrics.horizontalAdvance('0');
    QRect cell = row.adjusted(padding, 0, -padding, 0);

    painter.setPen(faint);
    painter.drawText(cell, toTheLeft, line.time.toString("HH:mm:ss.zzz"));
    cell.setLeft(cell.left() + timeWidth * unit);
    if (line.count > 1)
        painter.drawText(cell, toTheRight, QString("x%1").arg(line.count));
    cell.setRight(cell.right() - countWidth * unit);

    painter.setPen(colourOf(line.kind));
    painter.drawText(cell, toTheLeft, line.name);
    cell.setLeft(cell.left() + nameWidth * unit);

    painter.setPen(ink);
    painter.drawText(cell, toTheRight, line.point);
    if (!line.point.isEmpty())
        cell.setRight(cell.right() - pointWidth * unit);
    painter.drawText(cell, toTheLeft, metrics.elidedText(line.parameters, Qt::ElideRight, cell.width()));
}

} // namespace

void paintMessages(QPainter& painter, const QRect& area, const MessageLog& log, const QString& note)
{
    static const XeQString title(loadText(IDS_MESSAGES));
    painter.save();
    painter.fillRect(area, paper);
    const QRect list = paintHeading(painter, area, title, note);
    painter.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    const int rowHeight = painter.fontMetrics().height() + 6;
    const int rows = list.height() / rowHeight;
    const QList<MessageLine> newest = log.lines().mid(qMax(0, log.lines().size() - rows));
    for (int i = 0; i <= rows; ++i) {
        const QRect row(list.left(), list.top() + i * rowHeight, list.width(), rowHeight);
        if (i % 2)
            painter.fillRect(row, shade);
        if (i < newest.size())
            paintMessage(painter, row, newest.at(i));
    }
    painter.fillRect(area.left(), area.top(), 1, area.height(), rule);
    painter.restore();
}
