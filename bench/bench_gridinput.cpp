// What selecting, sorting and copying in a grid cost: beside a hash map of as many cells, beside a QTableWidget, and
// twice the cells beside half of them.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QMimeData>
#include <QTableWidget>

#include <malloc.h>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

// ----------------------------------------------------------------------------------------------------------- selecting

constexpr int side = 1000; // of a million cells

// The process keeps its memory. Else the kernel may or may not have taken back the pages of the selection before, and
// either costs as much as the rest.
const bool keepsMemory = mallopt(M_TRIM_THRESHOLD, 1 << 30) && mallopt(M_MMAP_THRESHOLD, 32 << 20);

// Cells in one grid, or in several by turns, so that what is compared goes through as much memory.
void selectAndClear(benchmark::State& state, int cells, int parts)
{
    const int rows = cells / parts / side;
    std::vector<std::unique_ptr<CGridCtrl_X>> grids;
    for (int part = 0; part < parts; ++part)
        grids.push_back(std::make_unique<CGridCtrl_X>(rows, side, 0, 0));
    std::size_t next = 0;
    for (auto _ : state) {
        CGridCtrl_X& grid = *grids[next++ % grids.size()];
        grid.SelectAllCells();
        if (grid.m_SelectedCellMap.GetCount() != static_cast<long long>(rows) * side)
            state.SkipWithError("cells are missing");
        grid.SetSelectedRange(-1, -1, -1, -1);
        if (!grid.m_SelectedCellMap.IsEmpty())
            state.SkipWithError("cells are left");
    }
}

void selectMillion(benchmark::State& state) { selectAndClear(state, side * side, 1); }
void selectTwice(benchmark::State& state) { selectAndClear(state, side * side / 2, 1); }
void selectHalf(benchmark::State& state) { selectAndClear(state, side * side / 2, 2); }

void fillHashMap(benchmark::State& state)
{
    for (auto _ : state) {
        std::unordered_map<unsigned, CCellID_X> map;
        for (int row = 0; row < side; ++row) {
            for (int col = 0; col < side; ++col)
                map[static_cast<unsigned>(row) | static_cast<unsigned>(col) << 16] = CCellID_X(row, col);
        }
        if (map.size() != static_cast<std::size_t>(side) * side)
            state.SkipWithError("cells are missing");
        map.clear();
    }
}

constexpr int draggedRows = 1000;
constexpr int draggedColumns = 100;

// A drag of a large selection goes one row further, and one row back.
void dragOneRow(benchmark::State& state)
{
    CGridCtrl_X grid(draggedRows + 10, draggedColumns, 0, 0);
    grid.SetSelectedRange(0, 0, draggedRows - 1, draggedColumns - 1);
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        grid.SetSelectedRange(0, 0, draggedRows - 1 + isLonger, draggedColumns - 1);
    }
    if (grid.m_SelectedCellMap.GetCount() != (draggedRows + isLonger) * draggedColumns)
        state.SkipWithError("cells are missing");
}

// ------------------------------------------------------------------------------------------------------------- sorting

constexpr int sortedRows = 10'000;
constexpr int sortedColumns = 10;

std::vector<std::wstring> someTexts()
{
    std::mt19937 random(1);
    std::vector<std::wstring> texts;
    for (int i = 0; i < sortedRows; ++i)
        texts.push_back(std::to_wstring(random()));
    return texts;
}

void sortGrid(benchmark::State& state)
{
    const std::vector<std::wstring> texts = someTexts();
    QWidget widget;
    widget.resize(1600, 900);
    CGridCtrl_X grid(sortedRows, sortedColumns, 0, 0);
    grid.SubclassWindow(&widget);
    widget.show();
    for (auto _ : state) {
        state.PauseTiming();
        for (int row = 0; row < sortedRows; ++row)
            grid.SetItemText(row, 0, texts[static_cast<std::size_t>(row)].c_str());
        state.ResumeTiming();
        grid.SortTextItems(0, TRUE);
    }
    for (int row = 1; row < sortedRows; ++row) {
        if (grid.GetItemText(row - 1, 0).Compare(grid.GetItemText(row, 0)) > 0)
            state.SkipWithError("not in order");
    }
}

void sortTable(benchmark::State& state)
{
    const std::vector<std::wstring> texts = someTexts();
    QTableWidget table(sortedRows, sortedColumns);
    for (int row = 0; row < sortedRows; ++row) {
        for (int col = 0; col < sortedColumns; ++col)
            table.setItem(row, col, new QTableWidgetItem);
    }
    table.resize(1600, 900);
    table.show();
    for (auto _ : state) {
        state.PauseTiming();
        for (int row = 0; row < sortedRows; ++row)
            table.item(row, 0)->setText(QString::fromStdWString(texts[static_cast<std::size_t>(row)]));
        state.ResumeTiming();
        table.sortItems(0);
    }
    for (int row = 1; row < sortedRows; ++row) {
        if (table.item(row, 0)->text() < table.item(row - 1, 0)->text())
            state.SkipWithError("not in order");
    }
}

// ------------------------------------------------------------------------------------------------------------- copying

// In one grid, or half of the cells in each of two by turns.

constexpr int copiedRows = 1000;
constexpr int copiedColumns = 100;

std::unique_ptr<CGridCtrl_X> filledGrid(int rows)
{
    auto grid = std::make_unique<CGridCtrl_X>(rows, copiedColumns, 0, 0);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < copiedColumns; ++col)
            grid->SetItemText(row, col, L"twelve signs");
    }
    grid->SelectAllCells();
    return grid;
}

std::vector<std::unique_ptr<CGridCtrl_X>> filledGrids(int parts)
{
    std::vector<std::unique_ptr<CGridCtrl_X>> grids;
    for (int part = 0; part < parts; ++part)
        grids.push_back(filledGrid(copiedRows / parts));
    return grids;
}

void copyCells(benchmark::State& state, int parts)
{
    const auto grids = filledGrids(parts);
    std::size_t next = 0;
    for (auto _ : state) {
        const std::unique_ptr<QMimeData> data(grids[next++ % grids.size()]->CopyTextFromGrid());
        if (!data)
            state.SkipWithError("nothing is copied");
    }
}

// A paste takes its cells out of the selection; so that each does the same, there is none.
void pasteCells(benchmark::State& state, int parts)
{
    const auto grids = filledGrids(parts);
    const std::unique_ptr<QMimeData> data(grids.front()->CopyTextFromGrid());
    for (const auto& grid : grids)
        grid->ResetSelectedRange();
    std::size_t next = 0;
    for (auto _ : state) {
        if (!grids[next++ % grids.size()]->PasteTextToGrid({0, 0}, data.get()))
            state.SkipWithError("nothing is pasted");
    }
}

void copyTwice(benchmark::State& state) { copyCells(state, 1); }
void copyHalf(benchmark::State& state) { copyCells(state, 2); }
void pasteTwice(benchmark::State& state) { pasteCells(state, 1); }
void pasteHalf(benchmark::State& state) { pasteCells(state, 2); }

} // namespace

BENCHMARK(selectMillion)->Name("grid_select/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(fillHashMap)->Name("grid_select/peer:unordered_map")->Unit(benchmark::kMillisecond);
BENCHMARK(selectTwice)->Name("grid_select_growth/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(selectHalf)->Name("grid_select_growth/peer:half")->Unit(benchmark::kMillisecond);
BENCHMARK(dragOneRow)->Name("grid_drag_selection/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(sortGrid)->Name("grid_sort/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(sortTable)->Name("grid_sort/peer:sortItems")->Unit(benchmark::kMillisecond);
BENCHMARK(copyTwice)->Name("grid_copy/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyHalf)->Name("grid_copy/peer:half")->Unit(benchmark::kMillisecond);
BENCHMARK(pasteTwice)->Name("grid_paste/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(pasteHalf)->Name("grid_paste/peer:half")->Unit(benchmark::kMillisecond);
