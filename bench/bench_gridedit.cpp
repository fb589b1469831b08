// What it costs to open the editor of a cell, to type a text and to store it, beside a QTableWidget.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>

namespace {

constexpr int rows = 20;
constexpr int columns = 8;
constexpr int cellWidth = 100;
constexpr int cellHeight = 30;

// Either side lets go of its editors when control returns to the event loop.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void editGrid(benchmark::State& state)
{
    QWidget widget;
    widget.resize(columns * cellWidth + 20, rows * cellHeight + 20);
    CGridCtrl_X grid;
    grid.m_nDefCellWidth = cellWidth;
    grid.m_nDefCellHeight = cellHeight;
    grid.SubclassWindow(&widget);
    grid.SetRowCount(rows);
    grid.SetColumnCount(columns);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    grid.SetFocusCell(3, 3);
    QApplication::processEvents();
    int count = 0;
    for (auto _ : state) {
        grid.OnEditCell(3, 3, CPoint(-1, -1), 1);
        if (auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            field->setText(++count % 2 ? QStringLiteral("one") : QStringLiteral("two"));
        grid.EndEditing();
        settle();
    }
    if (grid.GetItemText(3, 3) != (count % 2 ? L"one" : L"two"))
        state.SkipWithError("the text is not stored");
}

void editTable(benchmark::State& state)
{
    QTableWidget table(rows, columns);
    table.horizontalHeader()->setDefaultSectionSize(cellWidth);
    table.verticalHeader()->setDefaultSectionSize(cellHeight);
    table.resize(columns * cellWidth + 20, rows * cellHeight + 20);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < columns; ++col)
            table.setItem(row, col, new QTableWidgetItem);
    }
    QTableWidgetItem* const item = table.item(3, 3);
    table.show();
    table.activateWindow();
    table.setFocus();
    table.setCurrentItem(item);
    QApplication::processEvents();
    int count = 0;
    for (auto _ : state) {
        table.editItem(item);
        if (auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            field->setText(++count % 2 ? QStringLiteral("one") : QStringLiteral("two"));
        table.setFocus(); // which commits
        settle();
    }
    if (item->text() != (count % 2 ? QStringLiteral("one") : QStringLiteral("two")))
        state.SkipWithError("the text is not stored");
}

} // namespace

BENCHMARK(editGrid)->Name("edit_start_end/ours");
BENCHMARK(editTable)->Name("edit_start_end/peer:QTableWidget::editItem");
