#include "grid/celltexts.h"

#include <QGlyphRun>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QRawFont>
#include <QtMath>

#include <algorithm>
#include <tuple>
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

// Fonts that are equal differ by what of them a painter may replace.
bool isSame(const QFont& one, const QFont& other) { return one == other && one.resolve() == other.resolve(); }

QPointF startOf(const QRectF& room, QSizeF size, int alignment)
{
    QPointF at = room.topLeft();
    if (alignment & Qt::AlignBottom)
        at.ry() += room.height() - size.height();
    else if (alignment & Qt::AlignVCenter)
        at.ry() += (room.height() - size.height()) / 2;
    if (alignment & Qt::AlignRight)
        at.rx() += room.width() - size.width();
    else if (alignment & Qt::AlignHCenter)
        at.rx() += (room.width() - size.width()) / 2;
    return at;
}

// What cuts off a text that is larger than its room: the sides of a column as a rule, whatever the row.
QRectF clipOf(const QRectF& room, bool fitsAcross, bool fitsDown)
{
    constexpr qreal far = 1 << 20;
    QRectF clip(-far, -far, 2 * far, 2 * far);
    if (!fitsAcross) {
        clip.setLeft(room.left());
        clip.setRight(room.right());
    }
    if (!fitsDown) {
        clip.setTop(room.top());
        clip.setBottom(room.bottom());
    }
    return clip;
}

// Where a line is seen.
QRectF inkOf(const QTextLayout& layout)
{
    const QFont whole = layout.font();
    QRectF ink;
    if (whole.underline() || whole.overline() || whole.strikeOut())
        ink = layout.boundingRect();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    for (const QGlyphRun& run : runs) {
        const QRawFont font = run.rawFont();
        const QVector<quint32> glyphs = run.glyphIndexes();
        const QVector<QPointF> places = run.positions();
        for (int i = 0; i < glyphs.size(); ++i)
            ink |= font.boundingRect(glyphs[i]).translated(places[i]);
    }
    return ink;
}

bool comesBefore(const QRectF& one, const QRectF& other)
{
    const auto sides = [](const QRectF& clip) {
        return std::make_tuple(clip.x(), clip.y(), clip.right(), clip.bottom());
    };
    return sides(one) < sides(other);
}

} // namespace

CellTexts::~CellTexts() { QObject::disconnect(m_connection); }

void CellTexts::draw(QPainter& painter, const QRect& place, int alignment, const QString& text, const QFont& font)
{
    if (!isSimple(painter, alignment, text)) {
        if (!(painter.font() == font))
            painter.setFont(font);
        painter.drawText(place, alignment, text);
        return;
    }
    const QRectF room = place;
    const Key key{text, usedFont(painter, font)};
    Line& line = lineOf(key, painter);
    const QPointF at = startOf(room, line.size, alignment);
    const bool fitsAcross = line.size.width() <= room.width();
    if (fitsAcross && line.size.height() <= room.height()) {
        line.draw(painter, at);
    } else if (m_isPatient && &painter == m_painter) {
        m_cut.push_back({clipOf(room, fitsAcross, line.isInkWithin(room, at, painter)), at, key, painter.pen()});
    } else {
        painter.save();
        painter.setClipRect(room, Qt::IntersectClip);
        line.draw(painter, at);
        painter.restore();
    }
}

// ------------------------------------------------------------------------------------------------------- one painting

void CellTexts::begin(QPainter& painter)
{
    drawCut();
    m_painter = &painter;
}

void CellTexts::beforeCell(bool isPatient)
{
    if (!isPatient)
        drawCut();
    m_isPatient = isPatient;
}

void CellTexts::end()
{
    m_painter = nullptr;
    m_cut.clear();
    m_fonts.clear();
}

void CellTexts::drawCut()
{
    std::sort(m_cut.begin(), m_cut.end(),
              [](const Cut& one, const Cut& other) { return comesBefore(one.clip, other.clip); });
    for (auto cut = m_cut.cbegin(); cut != m_cut.cend();) {
        const QRectF clip = cut->clip;
        m_painter->save();
        m_painter->setBackgroundMode(Qt::TransparentMode);
        m_painter->setClipRect(clip, Qt::IntersectClip);
        for (; cut != m_cut.cend() && cut->clip == clip; ++cut) {
            m_painter->setPen(cut->pen);
            lineOf(cut->key, *m_painter).draw(*m_painter, cut->at);
        }
        m_painter->restore();
    }
    m_cut.clear();
}

// ------------------------------------------------------------------------------------------------------- what is kept

const QPen& CellTexts::penOf(const QColor& colour)
{
    QPen* pen = m_pens.object(colour.rgba());
    if (!pen) {
        pen = new QPen(colour);
        m_pens.insert(colour.rgba(), pen);
    }
    return *pen;
}

const QFont& CellTexts::boldOf(const QFont& font)
{
    if (!m_bold || !isSame(font, m_bold->given)) {
        m_bold = {font, font};
        m_bold->used.setWeight(QFont::DemiBold);
    }
    return m_bold->used;
}

// The font as the painter has it, which makes a new one of each font that it is given.
QFont CellTexts::usedFont(QPainter& painter, const QFont& font)
{
    constexpr std::size_t most = 20;
    if (painter.font() == font)
        return painter.font();
    const bool isKept = &painter == m_painter;
    const auto isMeant = [&](const SetFont& known) { return isSame(known.given, font); };
    const auto known = std::find_if(m_fonts.cbegin(), m_fonts.cend(), isMeant);
    if (isKept && known != m_fonts.cend())
        return known->used;
    painter.setFont(font);
    if (isKept && m_fonts.size() < most)
        m_fonts.push_back({font, painter.font()});
    return painter.font();
}

CellTexts::Line& CellTexts::lineOf(const Key& key, const QPainter& painter)
{
    const int dotsPerInch = painter.device()->logicalDpiY(); // equal fonts differ by it
    if (std::exchange(m_dotsPerInch, dotsPerInch) != dotsPerInch)
        m_lines.clear();
    Line* line = m_lines.object(key);
    if (!line) {
        forgetWithTheFonts();
        line = new Line(key);
        m_lines.insert(key, line);
    }
    return *line;
}

// The numbers of glyphs are those of the fonts that there were.
void CellTexts::forgetWithTheFonts()
{
    if (!m_connection)
        m_connection = QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, [this] { m_lines.clear(); });
}

CellTexts::Line::Line(const Key& key) : layout(key.text, key.font)
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
    size = {line.naturalTextWidth(), line.height()};
}

// A line is higher than what is seen of it, above all in scripts with large signs, and may stand in a low row unharmed.
// Signs are put on whole pixels; on a finer device they may be a fraction larger.
bool CellTexts::Line::isInkWithin(const QRectF& room, QPointF at, const QPainter& painter)
{
    if (!ink)
        ink = inkOf(layout);
    const int more = painter.deviceTransform().type() > QTransform::TxTranslate;
    return qFloor(at.y() + ink->top()) - more >= room.top() && qCeil(at.y() + ink->bottom()) + more <= room.bottom();
}

void CellTexts::Line::draw(QPainter& painter, QPointF at) const { layout.lineAt(0).draw(&painter, at); }

} // namespace xe
