// What lists, trees and tool tips cost beside plain QTableWidget, QTreeWidget and QWidget::setToolTip().

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QTableWidget>
#include <QTreeWidget>

#include <memory>
#include <vector>

namespace {

constexpr int rows = 10'000;
constexpr int columns = 8;
const wchar_t* const wideText = L"twelve signs";

// ------------------------------------------------------------------------------------------------------------- filling

void fillList(benchmark::State& state)
{
    for (auto _ : state) {
        QTableWidget table(0, columns);
        CListCtrl_X list;
        list.SubclassWindow(&table);
        for (int row = 0; row < rows; ++row) {
            list.InsertItem(row, wideText);
            for (int column = 1; column < columns; ++column)
                list.SetItemText(row, column, wideText);
        }
        if (list.GetItemCount() != rows)
            state.SkipWithError("rows are missing");
    }
}

void fillTable(benchmark::State& state)
{
    for (auto _ : state) {
        QTableWidget table(0, columns);
        for (int row = 0; row < rows; ++row) {
            table.insertRow(row);
            for (int column = 0; column < columns; ++column)
                table.setItem(row, column, new QTableWidgetItem(QString::fromWCharArray(wideText)));
        }
        if (table.rowCount() != rows)
            state.SkipWithError("rows are missing");
    }
}

// ------------------------------------------------------------------------------------------------------------ selected

std::unique_ptr<QTableWidget> selectedTable()
{
    auto table = std::make_unique<QTableWidget>(rows, columns);
    table->selectAll();
    return table;
}

constexpr long long sumOfRows = static_cast<long long>(rows) * (rows - 1) / 2;

void walkList(benchmark::State& state)
{
    const auto table = selectedTable();
    CListCtrl_X list;
    list.SubclassWindow(table.get());
    for (auto _ : state) {
        table->clearSelection(); // what is kept from the walk before is no good
        table->selectAll();
        long long sum = 0;
        for (POSITION position = list.GetFirstSelectedItemPosition(); position;)
            sum += list.GetNextSelectedItem(position);
        if (sum != sumOfRows)
            state.SkipWithError("rows are missing");
    }
}

void walkTable(benchmark::State& state)
{
    const auto table = selectedTable();
    for (auto _ : state) {
        table->clearSelection();
        table->selectAll();
        long long sum = 0;
        const auto selected = table->selectionModel()->selectedRows();
        for (const QModelIndex& index : selected)
            sum += index.row();
        if (sum != sumOfRows)
            state.SkipWithError("rows are missing");
    }
}

// ------------------------------------------------------------------------------------------------------------ emptying

constexpr int manyRows = 100'000;

template <class Empty>
void emptyTable(benchmark::State& state, Empty empty)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto table = std::make_unique<QTableWidget>(manyRows, 2);
        for (int row = 0; row < manyRows; ++row)
            table->setItem(row, 0, new QTableWidgetItem);
        CListCtrl_X list;
        list.SubclassWindow(table.get());
        state.ResumeTiming();
        empty(list, *table);
        state.PauseTiming();
        if (table->rowCount() != 0)
            state.SkipWithError("rows are left");
        list.Detach();
        table.reset();
        state.ResumeTiming();
    }
}

void emptyList(benchmark::State& state)
{
    emptyTable(state, [](CListCtrl_X& list, QTableWidget&) { list.DeleteAllItems(); });
}

void emptyTableWidget(benchmark::State& state)
{
    emptyTable(state, [](CListCtrl_X&, QTableWidget& table) { table.setRowCount(0); });
}

// ---------------------------------------------------------------------------------------------------------------- tree

constexpr int groups = 50; // of as many parts of 20 pieces each: 52,550 items

void fillTree(CTreeCtrl_X& control)
{
    for (int i = 0; i < groups; ++i) {
        const HTREEITEM group = control.InsertItem(wideText);
        for (int j = 0; j < groups; ++j) {
            const HTREEITEM part = control.InsertItem(wideText, group);
            for (int k = 0; k < 20; ++k)
                control.InsertItem(wideText, part);
        }
    }
}

void fillTreeControl(benchmark::State& state)
{
    for (auto _ : state) {
        QTreeWidget tree;
        CTreeCtrl_X control;
        control.SubclassWindow(&tree);
        fillTree(control);
        if (tree.topLevelItemCount() != groups)
            state.SkipWithError("items are missing");
    }
}

QStringList itemTexts() { return {QString::fromWCharArray(wideText)}; }

void fillTreeWidget(benchmark::State& state)
{
    for (auto _ : state) {
        QTreeWidget tree;
        for (int i = 0; i < groups; ++i) {
            auto* const group = new QTreeWidgetItem(&tree, itemTexts());
            for (int j = 0; j < groups; ++j) {
                auto* const part = new QTreeWidgetItem(group, itemTexts());
                for (int k = 0; k < 20; ++k)
                    new QTreeWidgetItem(part, itemTexts());
            }
        }
        if (tree.topLevelItemCount() != groups)
            state.SkipWithError("items are missing");
    }
}

constexpr int visibleItems = groups + groups * groups + groups * groups * 20;

struct OpenTree
{
    OpenTree()
    {
        control.SubclassWindow(&tree);
        fillTree(control);
        control.ExpandAll();
    }

    QTreeWidget tree;
    CTreeCtrl_X control;
};

void countVisible(benchmark::State& state)
{
    const OpenTree open;
    for (auto _ : state) {
        if (open.control.GetVisibleCount() != visibleItems)
            state.SkipWithError("items are missing");
    }
}

void walkVisible(benchmark::State& state)
{
    const OpenTree open;
    for (auto _ : state) {
        int count = 0;
        for (const QTreeWidgetItem* item = open.tree.topLevelItem(0); item; item = open.tree.itemBelow(item))
            ++count;
        if (count != visibleItems)
            state.SkipWithError("items are missing");
    }
}

// ---------------------------------------------------------------------------------------------------------------- tips

constexpr int fields = 100;

struct Form
{
    Form()
    {
        owner.SubclassWindow(&window);
        tips.Create(&owner);
        for (int i = 0; i < fields; ++i) {
            texts.push_back(L"what goes into field " + std::to_wstring(i));
            widgets.push_back(new QWidget(&window));
        }
        for (std::size_t i = 0; i < fields; ++i)
            tips.AddTool(widgets[i], texts[i].c_str());
        tips.Activate(TRUE);
    }

    std::vector<std::wstring> texts;
    QWidget window;
    std::vector<QWidget*> widgets;
    CWnd_X owner;
    CToolTipCtrl_X tips;
};

void relayMoves(benchmark::State& state)
{
    Form form;
    tagMSG message{};
    message.hwnd = form.widgets[fields / 2];
    message.message = WM_MOUSEMOVE;
    message.time = 1'700'000'000;
    for (auto _ : state)
        form.tips.RelayEvent(&message);
    if (form.widgets[fields / 2]->toolTip().isEmpty())
        state.SkipWithError("no tip");
}

void compareTips(benchmark::State& state)
{
    const Form form;
    QWidget* const widget = form.widgets[fields / 2];
    const QString tip = QString::fromStdWString(form.texts[fields / 2]);
    for (auto _ : state) {
        benchmark::DoNotOptimize(widget);
        if (widget->toolTip() != tip)
            widget->setToolTip(tip);
        widget->setToolTipDuration(1'700'000'000);
    }
}

} // namespace

BENCHMARK(fillList)->Name("list_fill/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(fillTable)->Name("list_fill/peer:setItem")->Unit(benchmark::kMillisecond);
BENCHMARK(walkList)->Name("list_selected/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(walkTable)->Name("list_selected/peer:selectedRows")->Unit(benchmark::kMillisecond);
BENCHMARK(emptyList)->Name("list_empty/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(emptyTableWidget)->Name("list_empty/peer:setRowCount")->Unit(benchmark::kMillisecond);
BENCHMARK(fillTreeControl)->Name("tree_fill/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(fillTreeWidget)->Name("tree_fill/peer:QTreeWidgetItem")->Unit(benchmark::kMillisecond);
BENCHMARK(countVisible)->Name("tree_visible/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(walkVisible)->Name("tree_visible/peer:itemBelow")->Unit(benchmark::kMillisecond);
BENCHMARK(relayMoves)->Name("tip_relay/ours");
BENCHMARK(compareTips)->Name("tip_relay/peer:setToolTip");
