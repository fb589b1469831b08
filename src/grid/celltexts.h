// The texts of cells, laid out.
#pragma once

#include <QCache>
#include <QFont>
#include <QMetaObject>
#include <QPen>
#include <QTextLayout>

#include <optional>
#include <vector>

class QPainter;

namespace xe {

/// Draws texts as QPainter::drawText() does, and remembers the layout of those drawn last.
///
/// A grid is painted whole for each change, with the same texts but for a few, and to lay a text out takes longer than
/// to paint it. Nor is anything allocated for a text that is drawn again: what QPainter would make anew for it, a pen
/// of its colour, the font as the painter has it, a clip, is kept too.
class CellTexts
{
public:
    CellTexts() = default;
    ~CellTexts();
    Q_DISABLE_COPY_MOVE(CellTexts)

    /// With the painter's pen. `alignment` has flags of Qt::AlignmentFlag and Qt::TextFlag. May leave the font set.
    void draw(QPainter& painter, const QRect& place, int alignment, const QString& text, const QFont& font);

    /// Many cells are painted, one after another. Texts that are cut off wait, so that those with the same clip are
    /// drawn together: a column has one clip, and QPainter makes five blocks of memory for each.
    void begin(QPainter& painter);
    /// A cell is painted now. Unless it is patient, so that its text may wait, it comes over all that have waited.
    void beforeCell(bool isPatient);
    /// Draws the texts that have waited.
    void drawCut();
    void end();

    /// A solid pen.
    const QPen& penOf(const QColor& colour);
    /// The font of a heading in the row or column of the focus.
    const QFont& boldOf(const QFont& font);

private:
    struct Key
    {
        bool operator==(const Key& other) const { return text == other.text && font == other.font; }
        friend uint qHash(const Key& key, uint seed) { return qHash(key.text, seed); }

        QString text;
        QFont font;
    };

    /// A text in one line.
    struct Line
    {
        explicit Line(const Key& key);
        void draw(QPainter& painter, QPointF at) const;
        /// Whether all that is seen of it is between the top and the bottom of a room.
        bool isInkWithin(const QRectF& room, QPointF at, const QPainter& painter);

        QTextLayout layout;
        QSizeF size;
        std::optional<QRectF> ink; // when it has been asked for
    };

    /// A text that waits for its clip.
    struct Cut
    {
        QRectF clip;
        QPointF at;
        Key key;
        QPen pen;
    };

    /// A font that was given, and what the painter makes of it.
    struct SetFont
    {
        QFont given;
        QFont used;
    };

    QFont usedFont(QPainter& painter, const QFont& font);
    Line& lineOf(const Key& key, const QPainter& painter);
    void forgetWithTheFonts();

    QCache<Key, Line> m_lines{2500}; // about the cells of a large screen
    QCache<QRgb, QPen> m_pens{2500};
    int m_dotsPerInch = 0;
    QMetaObject::Connection m_connection;
    std::optional<SetFont> m_bold;

    QPainter* m_painter = nullptr; // from begin() to end()
    bool m_isPatient = false;
    std::vector<SetFont> m_fonts;
    std::vector<Cut> m_cut;
};

} // namespace xe
