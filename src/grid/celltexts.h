// The texts of cells, laid out.
#pragma once

#include <QCache>
#include <QFont>
#include <QMetaObject>
#include <QTextLayout>

class QPainter;

namespace xe {

/// Draws texts as QPainter::drawText() does, and remembers the layout of those drawn last.
///
/// A grid is painted whole for each change, with the same texts but for a few, and to lay a text out takes longer than
/// to paint it.
class CellTexts
{
public:
    CellTexts() = default;
    ~CellTexts();
    Q_DISABLE_COPY_MOVE(CellTexts)

    /// With the painter's font and pen. `alignment` has flags of Qt::AlignmentFlag and Qt::TextFlag.
    void draw(QPainter& painter, const QRect& place, int alignment, const QString& text);

private:
    /// A text in one line.
    struct Line
    {
        Line(const QString& text, const QFont& lineFont);

        QFont font;
        QTextLayout layout;
        qreal width = 0;
        qreal height = 0;
    };

    const Line& lineOf(const QString& text, const QPainter& painter);
    void forgetWithTheFonts();

    QCache<QString, Line> m_lines{2500}; // about the cells of a large screen
    int m_dotsPerInch = 0;
    QMetaObject::Connection m_connection;
};

} // namespace xe
