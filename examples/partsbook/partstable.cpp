#include "partstable.h"

#include "partsbook.h"

#include <QHeaderView>
#include <QTableWidget>

namespace {

struct Column
{
    int width;
    Qt::Alignment alignment;
};

// In the order of the fields.
const Column columns[]{
    {97, Qt::AlignLeft},    {230, Qt::AlignLeft}, {115, Qt::AlignLeft}, {134, Qt::AlignLeft},
    {80, Qt::AlignLeft},    {76, Qt::AlignRight}, {72, Qt::AlignRight}, {76, Qt::AlignRight},
    {80, Qt::AlignHCenter}, {50, Qt::AlignLeft},  {96, Qt::AlignLeft},
};
constexpr int rowHeight = 26;

const QColor unusedColor(0x9a, 0xa3, 0xaf);

QColor toQColor(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

QColor colorOf(const Part& part, const QPalette& palette, COLORREF shortColor)
{
    if (!part.inUse)
        return unusedColor;
    return part.isShort() ? toQColor(shortColor) : palette.color(QPalette::Text);
}

} // namespace

void setUpPartsTable(QTableWidget& table)
{
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(rowHeight);
    int column = 0;
    for (const auto& [width, alignment] : columns) {
        table.setColumnWidth(column, width);
        table.horizontalHeaderItem(column++)->setTextAlignment(alignment | Qt::AlignVCenter);
    }
}

std::vector<CString_X> headingsOf(const QTableWidget& table)
{
    std::vector<CString_X> headings;
    for (int column = 0; column < table.columnCount(); ++column)
        headings.push_back(table.horizontalHeaderItem(column)->text());
    return headings;
}

void showColumns(QTableWidget& table, unsigned hidden)
{
    for (int column = 0; column < table.columnCount(); ++column)
        table.setColumnHidden(column, hidden >> column & 1);
}

void showParts(QTableWidget& table, const PartsBook& book, COLORREF shortColor)
{
    table.setRowCount(book.count());
    for (int row = 0; row < book.count(); ++row)
        showPart(table, row, book.part(row), shortColor);
}

void showPart(QTableWidget& table, int row, const Part& part, COLORREF shortColor)
{
    const CsvFields fields = fieldsOf(part);
    const int count = static_cast<int>(fields.size()); // the last ones may be left out
    for (int column = 0; column < table.columnCount(); ++column) {
        auto* const item =
            new QTableWidgetItem(XeQString(column < count ? fields[static_cast<std::size_t>(column)] : CString_X()));
        item->setTextAlignment(columns[column].alignment | Qt::AlignVCenter);
        item->setForeground(colorOf(part, table.palette(), shortColor));
        table.setItem(row, column, item);
    }
}
