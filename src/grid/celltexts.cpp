#include "grid/celltexts.h"

#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace xe {

namespace {

constexpr int simpleFlags =
    Qt::AlignHorizontal_Mask | Qt::AlignVertical_Mask | Qt::TextSingleLine | Qt::TextHideMnemonic;

// Whether a sign is none of those that QPainter::drawText() replaces, and begins no new line.
bool isPlain(QChar sign)
{
    const ushort code = sign.unicode();
    return code >= ' ' && code != '&' && code != 0x9C && code != QChar::LineSeparator
           && code != QChar::ParagraphSeparator;
}

bool isSimple(const QPainter& painter, int alignment, const QString& text)
{
    const QPaintEngine* const engine = painter.paintEngine();
    return engine && engine->type() == QPaintEngine::Raster && painter.layoutDirection() != Qt::RightToLeft
           && (alignment & ~simpleFlags) == 0 && (alignment & Qt::AlignJustify) == 0 && !text.isEmpty()
           && !text.isRightToLeft() && std::all_of(text.begin(), text.end(), isPlain);
}

} // namespace

CellTexts::~CellTexts() { QObject::disconnect(m_connection); }

void CellTexts::draw(QPainter& painter, const QRect& place, int alignment, const QString& text)
{
    if (!isSimple(painter, alignment, text)) {
        painter.drawText(place, alignment, text);
        return;
    }
    const QRectF room = place;
    const Line& line = lineOf(text, painter);
    QPointF at = room.topLeft();
    if (alignment & Qt::AlignBottom)
        at.ry() += room.height() - line.height;
    else if (alignment & Qt::AlignVCenter)
        at.ry() += (room.height() - line.height) / 2;
    if (alignment & Qt::AlignRight)
        at.rx() += room.width() - line.width;
    else if (alignment & Qt::AlignHCenter)
        at.rx() += (room.width() - line.width) / 2;
    const bool fits = line.width <= room.width() && line.height <= room.height();
    if (!fits) {
        painter.save();
        painter.setClipRect(room, Qt::IntersectClip);
    }
    line.layout.lineAt(0).draw(&painter, at);
    if (!fits)
        painter.restore();
}

const CellTexts::Line& CellTexts::lineOf(const QString& text, const QPainter& painter)
{
    const int dotsPerInch = painter.device()->logicalDpiY(); // equal fonts differ by it
    if (std::exchange(m_dotsPerInch, dotsPerInch) != dotsPerInch)
        m_lines.clear();
    Line* line = m_lines.object(text);
    if (!line || !(line->font == painter.font())) {
        forgetWithTheFonts();
        line = new Line(text, painter.font());
        m_lines.insert(text, line);
    }
    return *line;
}

// The numbers of glyphs are those of the fonts that there were.
void CellTexts::forgetWithTheFonts()
{
    if (!m_connection)
        m_connection = QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, [this] { m_lines.clear(); });
}

CellTexts::Line::Line(const QString& text, const QFont& lineFont) : font(lineFont), layout(text, lineFont)
{
    constexpr qreal endless = 0x01000000;
    QTextOption option(Qt::AlignLeft);
    option.setTextDirection(Qt::LeftToRight);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(endless);
    line.setPosition(QPointF(0, 0));
    layout.endLayout();
    width = line.naturalTextWidth();
    height = line.height();
}

} // namespace xe
