// Want of memory at every single place of what makes a grid larger: it is as large as before, or as it was to be.

#include "failingallocation.h"
#include "testclass.h"

#include <XeGridCtrl.h>
#include <xeafxdc.h>

#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

const wchar_t* const longText = L"a text that is too long to stand in the object itself, and so wants memory";

// A cell that lays out no text, which Qt does not survive without memory.
class MeasuredCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(MeasuredCell)

    using CGridCellBase_X::operator=;
    CSize GetTextExtent(const wchar_t*) override { return {50, 20}; }
};

/// What makes a grid of 4 x 3 cells larger. Whether it says that it has.
using Growth = std::function<bool(CGridCtrl_X&)>;

std::unique_ptr<CGridCtrl_X> newGrid()
{
    auto grid = std::make_unique<CGridCtrl_X>(4, 3, 1, 1);
    grid->SetRowHeight(3, 33);
    grid->SetItemText(3, 2, longText);
    grid->SetSelectedRange(1, 1, 2, 2);
    return grid;
}

QSize sizeOf(const CGridCtrl_X& grid) { return {grid.GetColumnCount(), grid.GetRowCount()}; }

/// Whether all that belongs to the rows and columns is there, and nothing more.
bool isWhole(const CGridCtrl_X& grid)
{
    const auto rows = static_cast<std::size_t>(grid.GetRowCount());
    const auto columns = static_cast<std::size_t>(grid.GetColumnCount());
    long long height = 0;
    if (grid.m_RowData.size() != rows || grid.m_arRowHeights.GetSize() != grid.GetRowCount()
        || grid.m_arColWidths.GetSize() != grid.GetColumnCount())
        return false;
    for (std::size_t row = 0; row < rows; ++row) {
        const CGridCtrl_X::GridRow* const cells = grid.m_RowData[row];
        if (!cells || cells->size() != columns || std::count(cells->begin(), cells->end(), nullptr) > 0)
            return false;
        height += grid.GetRowHeight(static_cast<int>(row));
    }
    return grid.GetVirtualHeight() == height && grid.m_SelectedCellMap.GetCount() <= 4;
}

} // namespace

Q_DECLARE_METATYPE(Growth)

IMPLEMENT_DYNCREATE_X(MeasuredCell, CGridCell_X)

class tst_GridFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growing_data();
    void growing();
};

void tst_GridFaults::growing_data()
{
    QTest::addColumn<Growth>("grow");
    QTest::addColumn<QSize>("grown");
    QTest::addColumn<bool>("isMeasured");

    const auto add = [](const char* name, const Growth& grow, QSize grown, bool isMeasured = false) {
        QTest::newRow(name) << grow << grown << isMeasured;
    };
    add("more rows", [](CGridCtrl_X& grid) { return grid.SetRowCount(40) == 1; }, {3, 40});
    add("more columns", [](CGridCtrl_X& grid) { return grid.SetColumnCount(40) == 1; }, {40, 4});
    add("more fixed rows than rows", [](CGridCtrl_X& grid) { return grid.SetFixedRowCount(6) == 1; }, {3, 6});
    add("more fixed columns than columns", [](CGridCtrl_X& grid) { return grid.SetFixedColumnCount(6) == 1; }, {6, 4});
    add("a row", [](CGridCtrl_X& grid) { return grid.InsertRow(longText, 2) == 2; }, {3, 5});
    add("a fixed row", [](CGridCtrl_X& grid) { return grid.InsertRow(longText, 0) == 0; }, {3, 5});
    add("the last row", [](CGridCtrl_X& grid) { return grid.InsertRow(longText, -1) == 4; }, {3, 5});
    add(
        "a column", [](CGridCtrl_X& grid) { return grid.InsertColumn(longText, DT_LEFT, 1) == 1; }, {4, 4}, true);
    add(
        "a fixed column", [](CGridCtrl_X& grid) { return grid.InsertColumn(longText, DT_LEFT, 0) == 0; }, {4, 4}, true);
}

void tst_GridFaults::growing()
{
    QFETCH(Growth, grow);
    QFETCH(QSize, grown);
    QFETCH(bool, isMeasured);
    QVERIFY(grow(*newGrid())); // what is made once and kept is there then
    bool hasFailed = true;
    for (int number = 1; hasFailed; ++number) {
        const std::unique_ptr<CGridCtrl_X> grid = newGrid();
        if (isMeasured)
            grid->SetDefaultCellType(RUNTIME_CLASS_X(MeasuredCell));
        FailingAllocation allocation(number);
        bool isDone = false;
        bool hasRaised = false;
        try {
            isDone = grow(*grid);
        } catch (const std::bad_alloc&) {
            hasRaised = true;
        }
        hasFailed = allocation.end();
        QVERIFY2(!hasRaised, qPrintable(QStringLiteral("at allocation %1").arg(number)));
        QVERIFY(isDone || hasFailed);
        QCOMPARE(sizeOf(*grid), isDone ? grown : QSize(3, 4));
        QVERIFY(isDone || (grid->GetFixedRowCount() == 1 && grid->GetFixedColumnCount() == 1));
        QVERIFY(isWhole(*grid));
        QVERIFY(isDone || grow(*grid));
    }
}

XE_TEST(tst_GridFaults)

#include "tst_gridfaults.moc"
