#include "bookprinter.h"

#include "partsbook.h"
#include "text.h"

#include <QPainter>
#include <QPrinter>

#include <cstddef>

namespace {

const QColor ink(0x24, 0x2c, 0x38);
const QColor rule(0xd5, 0xdd, 0xe8);
const QColor shade(0xf3, 0xf6, 0xfa);

struct Column
{
    double share; // of the page's width
    Qt::Alignment alignment;
};

// In the order of the fields.
constexpr Column columns[]{
    {0.10, Qt::AlignLeft},    {0.23, Qt::AlignLeft},  {0.11, Qt::AlignLeft},  {0.14, Qt::AlignLeft},
    {0.07, Qt::AlignLeft},    {0.06, Qt::AlignRight}, {0.07, Qt::AlignRight}, {0.06, Qt::AlignRight},
    {0.05, Qt::AlignHCenter}, {0.11, Qt::AlignLeft},
};

/// Writes lines from the top of a page to its bottom, then goes on on the next one.
class TablePrinter
{
public:
    TablePrinter(QPainter& painter, const CString_X& title)
        : m_painter(painter),
          m_printer(*static_cast<QPrinter*>(painter.device())),
          m_title(title)
    {
        QFont font;
        font.setPointSizeF(7);
        painter.setFont(font);
        m_page = {0, 0, m_printer.width(), m_printer.height()};
        m_line = QFontMetrics(font, &m_printer).lineSpacing() * 3 / 2;
    }

    void beginPage()
    {
        ++m_number;
        m_top = 0;
        m_painter.setPen(ink);
        const CString_X number = formatText(loadText(IDS_PAGE), m_number);
        m_painter.drawText(nextLine(), Qt::AlignLeft | Qt::AlignVCenter, XeQString(m_title));
        m_painter.drawText(QRect(0, m_page.bottom() - m_line, m_page.width(), m_line),
                           Qt::AlignRight | Qt::AlignVCenter, XeQString(number));
        const QRect heading = nextLine();
        m_painter.fillRect(heading, shade);
        printFields(heading, partColumns());
    }

    void print(const std::vector<CString_X>& fields)
    {
        if (m_top + 2 * m_line > m_page.bottom() - m_line) { // the last line has the page's number
            m_printer.newPage();
            beginPage();
        }
        const QRect line = nextLine();
        printFields(line, fields);
        m_painter.fillRect(line.left(), line.bottom(), line.width(), 1, rule);
    }

private:
    QRect nextLine()
    {
        const QRect line(0, m_top, m_page.width(), m_line);
        m_top += m_line;
        return line;
    }

    void printFields(const QRect& line, const std::vector<CString_X>& fields)
    {
        const int padding = m_line / 4;
        double left = 0;
        for (std::size_t i = 0; i < fields.size() && i < std::size(columns); ++i) {
            const double width = columns[i].share * line.width();
            const QRect cell(static_cast<int>(left) + padding, line.top(), static_cast<int>(width) - 2 * padding,
                             line.height());
            const QString text = m_painter.fontMetrics().elidedText(XeQString(fields[i]), Qt::ElideRight, cell.width());
            m_painter.drawText(cell, columns[i].alignment | Qt::AlignVCenter | Qt::TextSingleLine, text);
            left += width;
        }
    }

    QPainter& m_painter;
    QPrinter& m_printer;
    CString_X m_title;
    QRect m_page;
    int m_line = 0;
    int m_top = 0;
    int m_number = 0;
};

} // namespace

void printBook(QPainter& painter, const PartsBook& book, const CString_X& title)
{
    TablePrinter printer(painter, title);
    printer.beginPage();
    for (int row = 0; row < book.count(); ++row)
        printer.print(fieldsOf(book.part(row)));
}
