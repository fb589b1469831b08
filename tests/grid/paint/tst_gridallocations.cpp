// What a grid allocates: for a painting the text of each cell, as Qt's painter takes it, and nothing more that grows
// with them; for a paste a place for each line.

#include "failingallocation.h"
#include "gridsupport.h"
#include "testclass.h"

#include <XeGridCtrl.h>
#include <xeafxdc.h>

#include <QMimeData>

#include <functional>
#include <memory>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long textsOfACell = 0; // those of malloc() are not counted
#else
constexpr long textsOfACell = 1;
#endif

constexpr int columns = 10;
constexpr int rowsThere = 100;
constexpr int rowsShown = 10;
constexpr int rowHeight = 30;
constexpr int columnWidth = 60;

using Look = std::function<void(CGridCtrl_X& grid, int row, int column)>;

const wchar_t* const longText = L"a text that is much longer than its cell is wide";

template <class Action>
long allocationsOf(Action action)
{
    const long before = FailingAllocation::made();
    action();
    return FailingAllocation::made() - before;
}

/// A grid that shows so many rows and all columns.
struct CountedGrid
{
    explicit CountedGrid(const Look& look, int fixedRows = 0) : shown(rowsThere, columns, fixedRows, 0)
    {
        shown.grid.m_nDefCellHeight = rowHeight;
        shown.grid.SetRowCount(0);
        shown.grid.SetRowCount(rowsThere);
        shown.grid.SetFixedRowCount(fixedRows);
        for (int column = 0; column < columns; ++column)
            shown.grid.SetColumnWidth(column, columnWidth);
        fillWithPlaces(shown.grid);
        for (int row = 0; row < rowsThere; ++row) {
            for (int column = 0; column < columns; ++column)
                look(shown.grid, row, column);
        }
    }

    /// The allocations of one painting of so many rows, after others.
    long ofPainting(int rows)
    {
        showRows(rows);
        return allocationsOf([this] { shown.widget.repaint(); });
    }

    /// The same for a row that comes into view, and has been there before.
    long ofScrolling(int rows)
    {
        showRows(rows);
        const auto scroll = [this](UINT code) {
            shown.grid.SendMessage(WM_VSCROLL, code, 0);
            shown.widget.repaint();
        };
        scroll(SB_LINEDOWN);
        scroll(SB_LINEUP);
        return allocationsOf([&] { scroll(SB_LINEDOWN); });
    }

    ShownGrid<> shown;

private:
    void showRows(int rows)
    {
        const QSize size(columns * columnWidth + 40, rows * rowHeight);
        shown.window.resize(size + QSize(20, 20));
        shown.widget.resize(size);
        shown.grid.ResetScrollBars();
        const bool isExposed = QTest::qWaitForWindowExposed(&shown.window);
        QVERIFY(isExposed);
        QCoreApplication::processEvents();
        shown.widget.repaint();
    }
};

void setFont(CGridCtrl_X& grid, int row, int column, const QFont& font)
{
    grid.SetItemFont(row, column, reinterpret_cast<const CFont_X*>(&font));
}

void makeBold(CGridCtrl_X& grid, int row, int column)
{
    QFont font;
    font.setBold(true);
    if (row % 2)
        setFont(grid, row, column, font);
}

} // namespace

Q_DECLARE_METATYPE(Look)

class tst_GridAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsAllocations();
    void painting_data();
    void painting();
    void headings_data();
    void headings();
    void scrolling_data();
    void scrolling();
    void pasting();
};

void tst_GridAllocations::countsAllocations()
{
    const long before = FailingAllocation::made();
    delete new int;
    const QString text = XeQString(L"text");
    QCOMPARE(FailingAllocation::made() - before, 1 + textsOfACell);
}

// A look at cells of a hundred and of two hundred: what the others cost is the same.
static void addLooks()
{
    QTest::addColumn<Look>("look");

    const auto add = [](const char* name, const Look& look) { QTest::newRow(name) << look; };
    add("texts of their own", [](CGridCtrl_X&, int, int) {});
    add("one text for all", [](CGridCtrl_X& grid, int row, int column) { grid.SetItemText(row, column, L"text"); });
    add("texts that are cut off",
        [](CGridCtrl_X& grid, int row, int column) { grid.SetItemText(row, column, longText); });
    add("large signs, cut off", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemText(row, column, L"\u4E16\u754C\u4E16\u754C\u4E16\u754C");
    });
    add("to the right", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemText(row, column, longText);
        grid.SetItemFormat(row, column, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
    });
    add("selected", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemState(row, column, grid.GetItemState(row, column) | CGridCellBase_X::Selected);
    });
    add("colours of their own", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemFgColour(row, column, RGB(row, column, 100));
        grid.SetItemBkColour(row, column, RGB(200, column, row));
    });
    add("two fonts, one text", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemText(row, column, L"text");
        makeBold(grid, row, column);
    });
    add("two fonts, cut off", [](CGridCtrl_X& grid, int row, int column) {
        grid.SetItemText(row, column, longText);
        makeBold(grid, row, column);
    });
}

void tst_GridAllocations::painting_data() { addLooks(); }

void tst_GridAllocations::painting()
{
    QFETCH(Look, look);
    CountedGrid grid(look);
    const long one = grid.ofPainting(rowsShown);
    const long two = grid.ofPainting(2 * rowsShown);
    QCOMPARE(two - one, textsOfACell * rowsShown * columns);
}

void tst_GridAllocations::headings_data() { addLooks(); }

void tst_GridAllocations::headings()
{
    QFETCH(Look, look);
    CountedGrid grid(look, 3 * rowsShown);
    const long one = grid.ofPainting(rowsShown);
    const long two = grid.ofPainting(2 * rowsShown);
    QCOMPARE(two - one, textsOfACell * rowsShown * columns);
}

void tst_GridAllocations::scrolling_data() { addLooks(); }

void tst_GridAllocations::scrolling()
{
    QFETCH(Look, look);
    CountedGrid grid(look);
    const long one = grid.ofScrolling(rowsShown);
    const long two = grid.ofScrolling(2 * rowsShown);
    QCOMPARE(two - one, textsOfACell * rowsShown * columns);
}

// Over texts that are as long.
void tst_GridAllocations::pasting()
{
    CGridCtrl_X grid(rowsThere, columns, 0, 0);
    for (int row = 0; row < rowsThere; ++row) {
        for (int column = 0; column < columns; ++column)
            grid.SetItemText(row, column, longText);
    }
    const auto ofRows = [&](int rows) {
        grid.SetSelectedRange(0, 0, rows - 1, columns - 1);
        const std::unique_ptr<QMimeData> data(grid.CopyTextFromGrid());
        grid.ResetSelectedRange();
        return allocationsOf([&] { grid.PasteTextToGrid({0, 0}, data.get()); });
    };
    ofRows(rowsThere);
    QVERIFY(ofRows(2 * rowsShown) - ofRows(rowsShown) <= rowsShown);
}

XE_TEST(tst_GridAllocations)

#include "tst_gridallocations.moc"
