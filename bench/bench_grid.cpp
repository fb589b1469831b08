// What a grid costs beside a QTableWidget of the same cells, and at the end of many rows beside the end of few.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QImage>
#include <QTableWidget>

#include <malloc.h>

#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr int side = 1000; // of a million cells
constexpr int manyRows = 1'000'000;
constexpr int columns = 10;
constexpr int cellWidth = 100;
constexpr int cellHeight = 30;
const wchar_t* const cellText = L"twelve signs";

QString plainText() { return QString::fromWCharArray(cellText); }

void setSizes(QTableWidget& table)
{
    table.horizontalHeader()->setDefaultSectionSize(cellWidth);
    table.verticalHeader()->setDefaultSectionSize(cellHeight);
}

void setSizes(CGridCtrl_X& grid)
{
    grid.m_nDefCellWidth = cellWidth;
    grid.m_nDefCellHeight = cellHeight;
}

/// A grid with a window of 1600 x 900, as a plain widget's painter.
struct Shown
{
    Shown(int rows, int cols, bool hasText)
    {
        widget.resize(1600, 900);
        setSizes(grid);
        grid.SubclassWindow(&widget);
        grid.SetRowCount(rows);
        grid.SetColumnCount(cols);
        for (int row = 0; hasText && row < rows; ++row) {
            for (int col = 0; col < cols; ++col)
                grid.SetItemText(row, col, cellText);
        }
        widget.show();
    }

    QWidget widget;
    CGridCtrl_X grid;
};

std::unique_ptr<QTableWidget> makeTable(int rows, int cols, bool hasItems)
{
    auto table = std::make_unique<QTableWidget>(rows, cols);
    setSizes(*table);
    for (int row = 0; hasItems && row < rows; ++row) {
        for (int col = 0; col < cols; ++col)
            table->setItem(row, col, new QTableWidgetItem(QString()));
    }
    return table;
}

std::unique_ptr<QTableWidget> makeFilledTable(int rows, int cols)
{
    std::unique_ptr<QTableWidget> table = makeTable(rows, cols, true);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < cols; ++col)
            table->item(row, col)->setText(plainText());
    }
    table->resize(1600, 900);
    table->show();
    return table;
}

// ------------------------------------------------------------------------------------------------- building and ending

void buildGrid(benchmark::State& state)
{
    for (auto _ : state) {
        auto grid = std::make_unique<CGridCtrl_X>(side, side, 1, 1);
        benchmark::DoNotOptimize(grid.get());
        state.PauseTiming();
        grid.reset();
        state.ResumeTiming();
    }
}

void buildTable(benchmark::State& state)
{
    for (auto _ : state) {
        std::unique_ptr<QTableWidget> table = makeTable(side, side, true);
        benchmark::DoNotOptimize(table.get());
        state.PauseTiming();
        table.reset();
        state.ResumeTiming();
    }
}

void destroyGrid(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto grid = std::make_unique<CGridCtrl_X>(side, side, 1, 1);
        state.ResumeTiming();
        grid->DeleteAllItems();
        if (grid->GetRowCount() != 0)
            state.SkipWithError("rows are left");
    }
}

void destroyTable(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        const std::unique_ptr<QTableWidget> table = makeTable(side, side, true);
        state.ResumeTiming();
        table->clear();
        if (table->item(1, 1))
            state.SkipWithError("items are left");
    }
}

// The bytes of the process's data, but for those that malloc has free.
double bytesInUse()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmData:", 0) == 0)
            return std::stod(line.substr(7)) * 1024 - static_cast<double>(mallinfo2().fordblks);
    }
    return 0;
}

// Bytes, told as nanoseconds.
template <class Make>
void measureMemory(benchmark::State& state, Make make)
{
    for (auto _ : state) {
        const double before = bytesInUse();
        const auto table = make();
        state.SetIterationTime((bytesInUse() - before) / side / side * 1e-9);
    }
}

// With a short text, as most cells have.
void gridMemory(benchmark::State& state)
{
    measureMemory(state, [] {
        auto grid = std::make_unique<CGridCtrl_X>(side, side, 0, 0);
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col)
                grid->SetItemText(row, col, L"17");
        }
        return grid;
    });
}

void tableMemory(benchmark::State& state)
{
    measureMemory(state, [] {
        auto table = makeTable(side, side, true);
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col)
                table->item(row, col)->setText(QString::number(17));
        }
        return table;
    });
}

// --------------------------------------------------------------------------------------------------------------- texts

void gridTexts(benchmark::State& state)
{
    CGridCtrl_X grid(side, side, 0, 0);
    long long length = 0;
    for (auto _ : state) {
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col) {
                grid.SetItemText(row, col, cellText);
                length += grid.GetItemText(row, col).GetLength();
            }
        }
    }
    if (length % (side * side) != 0)
        state.SkipWithError("another text");
}

void tableTexts(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeTable(side, side, true);
    long long length = 0;
    for (auto _ : state) {
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col) {
                table->item(row, col)->setText(plainText());
                length += table->item(row, col)->text().size();
            }
        }
    }
    if (length % (side * side) != 0)
        state.SkipWithError("another text");
}

// ------------------------------------------------------------------------------------------------------ scrolling far

// At the end of a number of rows, one up and one down.
void scrollAtTheEnd(benchmark::State& state, int rows)
{
    Shown shown(rows, 1, false);
    shown.grid.SendMessage(WM_VSCROLL, SB_BOTTOM, 0);
    for (auto _ : state) {
        shown.grid.SendMessage(WM_VSCROLL, SB_LINEUP, 0);
        shown.grid.SendMessage(WM_VSCROLL, SB_LINEDOWN, 0);
    }
    if (shown.grid.GetTopleftNonFixedCell().row < rows / 2)
        state.SkipWithError("not at the end");
}

void scrollManyRows(benchmark::State& state) { scrollAtTheEnd(state, manyRows); }
void scrollFewRows(benchmark::State& state) { scrollAtTheEnd(state, 1000); }

void gridEnsureVisible(benchmark::State& state)
{
    Shown shown(manyRows, 1, false);
    for (auto _ : state) {
        shown.grid.EnsureVisible(manyRows - 2, 0);
        shown.grid.EnsureVisible(1, 0);
    }
    if (!shown.grid.IsCellVisible(1, 0))
        state.SkipWithError("not visible");
}

void tableScrollTo(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeTable(manyRows, 1, false);
    table->resize(1600, 900);
    table->show();
    const QModelIndex last = table->model()->index(manyRows - 2, 0);
    const QModelIndex first = table->model()->index(1, 0);
    for (auto _ : state) {
        table->scrollTo(last);
        table->scrollTo(first);
    }
    if (table->visualRect(first).isEmpty())
        state.SkipWithError("not visible");
}

// --------------------------------------------------------------------------------------------------- rows, their sizes

void gridInsert(benchmark::State& state)
{
    constexpr int rows = 10'000;
    for (auto _ : state) {
        state.PauseTiming();
        auto shown = std::make_unique<Shown>(0, columns, false);
        state.ResumeTiming();
        for (int row = 0; row < rows; ++row)
            shown->grid.InsertRow(cellText);
        if (shown->grid.GetRowCount() != rows)
            state.SkipWithError("rows are missing");
        state.PauseTiming();
        shown.reset();
        state.ResumeTiming();
    }
}

void tableInsert(benchmark::State& state)
{
    constexpr int rows = 10'000;
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<QTableWidget> table = makeTable(0, columns, false);
        table->resize(1600, 900);
        table->show();
        state.ResumeTiming();
        for (int row = 0; row < rows; ++row) {
            table->insertRow(row);
            table->setItem(row, 0, new QTableWidgetItem(plainText()));
            for (int col = 1; col < columns; ++col)
                table->setItem(row, col, new QTableWidgetItem(QString()));
        }
        if (table->rowCount() != rows)
            state.SkipWithError("rows are missing");
        state.PauseTiming();
        table.reset();
        state.ResumeTiming();
    }
}

void gridHeights(benchmark::State& state)
{
    constexpr int rows = 100'000;
    Shown shown(rows, 1, false);
    int height = 40;
    for (auto _ : state) {
        height ^= 1;
        for (int row = 0; row < rows; ++row)
            shown.grid.SetRowHeight(row, height);
    }
    if (shown.grid.GetVirtualHeight() != rows * height)
        state.SkipWithError("another height");
}

void tableHeights(benchmark::State& state)
{
    constexpr int rows = 100'000;
    const std::unique_ptr<QTableWidget> table = makeTable(rows, 1, false);
    table->resize(1600, 900);
    table->show();
    int height = 40;
    for (auto _ : state) {
        height ^= 1;
        for (int row = 0; row < rows; ++row)
            table->setRowHeight(row, height);
    }
    if (table->verticalHeader()->length() != rows * height)
        state.SkipWithError("another height");
}

void gridAutoSize(benchmark::State& state)
{
    Shown shown(10'000, 2, true);
    for (auto _ : state)
        shown.grid.AutoSizeColumn(1);
    if (shown.grid.GetColumnWidth(1) < 20)
        state.SkipWithError("too narrow");
}

void tableAutoSize(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeFilledTable(10'000, 2);
    table->horizontalHeader()->setResizeContentsPrecision(-1);
    for (auto _ : state)
        table->resizeColumnToContents(1);
    if (table->columnWidth(1) < 20)
        state.SkipWithError("too narrow");
}

// Each text is another one, so that each has to be laid out.
QString differentText(int number) { return QStringLiteral("twelve") + QString::number(100'000 + number); }

void gridAutoSizeDifferent(benchmark::State& state)
{
    Shown shown(10'000, 2, true);
    for (int row = 0; row < 10'000; ++row)
        shown.grid.SetItemText(row, 1, CString_X(differentText(row)));
    for (auto _ : state)
        shown.grid.AutoSizeColumn(1);
}

void tableAutoSizeDifferent(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeFilledTable(10'000, 2);
    for (int row = 0; row < 10'000; ++row)
        table->item(row, 1)->setText(differentText(row));
    table->horizontalHeader()->setResizeContentsPrecision(-1);
    for (auto _ : state)
        table->resizeColumnToContents(1);
}

// ------------------------------------------------------------------------------------------------------------ painting

void paintGrid(benchmark::State& state)
{
    Shown shown(100, 30, true);
    QImage image(1600, 900, QImage::Format_RGB32);
    for (auto _ : state)
        shown.widget.render(&image);
    if (image.pixel(50, 15) == image.pixel(1599, 899) && image.pixel(5, 5) == 0)
        state.SkipWithError("nothing is painted");
}

void paintTable(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeFilledTable(100, 30);
    QImage image(1600, 900, QImage::Format_RGB32);
    for (auto _ : state)
        table->render(&image);
}

// No text comes twice.
void paintGridOfDifferent(benchmark::State& state)
{
    Shown shown(100, 30, false);
    for (int row = 0; row < 100; ++row) {
        for (int col = 0; col < 30; ++col)
            shown.grid.SetItemText(row, col, CString_X(differentText(row * 30 + col)));
    }
    QImage image(1600, 900, QImage::Format_RGB32);
    for (auto _ : state)
        shown.widget.render(&image);
}

void paintTableOfDifferent(benchmark::State& state)
{
    const std::unique_ptr<QTableWidget> table = makeFilledTable(100, 30);
    for (int row = 0; row < 100; ++row) {
        for (int col = 0; col < 30; ++col)
            table->item(row, col)->setText(differentText(row * 30 + col));
    }
    QImage image(1600, 900, QImage::Format_RGB32);
    for (auto _ : state)
        table->render(&image);
}

void scrollGridLine(benchmark::State& state)
{
    Shown shown(10'000, 30, true);
    QImage image(1600, 900, QImage::Format_RGB32);
    UINT code = SB_LINEUP;
    for (auto _ : state) {
        code = code == SB_LINEUP ? SB_LINEDOWN : SB_LINEUP;
        shown.grid.SendMessage(WM_VSCROLL, code, 0);
        shown.widget.render(&image);
    }
}

} // namespace

BENCHMARK(buildGrid)->Name("grid_build/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(buildTable)->Name("grid_build/peer:setItem")->Unit(benchmark::kMillisecond);
BENCHMARK(gridMemory)->Name("grid_memory/ours")->UseManualTime()->Iterations(1);
BENCHMARK(tableMemory)->Name("grid_memory/peer:QTableWidgetItem")->UseManualTime()->Iterations(1);
BENCHMARK(destroyGrid)->Name("grid_destroy/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(destroyTable)->Name("grid_destroy/peer:clear")->Unit(benchmark::kMillisecond);
BENCHMARK(gridTexts)->Name("grid_text/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(tableTexts)->Name("grid_text/peer:QTableWidgetItem")->Unit(benchmark::kMillisecond);
BENCHMARK(scrollManyRows)->Name("grid_scroll_far/ours");
BENCHMARK(scrollFewRows)->Name("grid_scroll_far/peer:1000 rows");
BENCHMARK(gridEnsureVisible)->Name("grid_ensure_visible/ours");
BENCHMARK(tableScrollTo)->Name("grid_ensure_visible/peer:scrollTo");
BENCHMARK(gridInsert)->Name("grid_insert_row/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(tableInsert)->Name("grid_insert_row/peer:insertRow")->Unit(benchmark::kMillisecond);
BENCHMARK(gridHeights)->Name("grid_row_heights/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(tableHeights)->Name("grid_row_heights/peer:setRowHeight")->Unit(benchmark::kMillisecond);
BENCHMARK(gridAutoSize)->Name("grid_auto_size/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(tableAutoSize)->Name("grid_auto_size/peer:resizeColumnToContents")->Unit(benchmark::kMillisecond);
BENCHMARK(gridAutoSizeDifferent)->Name("grid_auto_size_different/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(tableAutoSizeDifferent)
    ->Name("grid_auto_size_different/peer:resizeColumnToContents")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(paintGrid)->Name("grid_paint/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(paintTable)->Name("grid_paint/peer:QTableWidget")->Unit(benchmark::kMillisecond);
BENCHMARK(paintGridOfDifferent)->Name("grid_paint_different/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(paintTableOfDifferent)->Name("grid_paint_different/peer:QTableWidget")->Unit(benchmark::kMillisecond);
BENCHMARK(scrollGridLine)->Name("grid_scroll_line/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(paintTable)->Name("grid_scroll_line/peer:QTableWidget")->Unit(benchmark::kMillisecond);
