#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdc.h>
#include <xecolor.h>

#include <QPointer>

namespace {

// Notes the places that it is told.
class CPlacedCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPlacedCell)
    void SetCoords(int row, int col) override { place = CCellID_X(row, col); }
    CCellID_X place;
};

// Higher than its text.
class CHighCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CHighCell)
    CSize GetTextExtent(const wchar_t*) override { return {10, 77}; }
};

// Counts what is made and destroyed through the overridables.
class CCountingGrid : public CGridCtrl_X
{
    Q_OBJECT

public:
    CGridCellBase_X* CreateCell(int row, int col) override
    {
        ++made;
        return CGridCtrl_X::CreateCell(row, col);
    }
    void DestroyCell(int row, int col) override
    {
        ++destroyed;
        CGridCtrl_X::DestroyCell(row, col);
    }
    int made = 0;
    int destroyed = 0;
};

IMPLEMENT_DYNCREATE_X(CPlacedCell, CGridCell_X)
IMPLEMENT_DYNCREATE_X(CHighCell, CGridCell_X)

void fill(CGridCtrl_X& grid, int rows, int cols, int fixedRows = 0, int fixedCols = 0)
{
    grid.SetRowCount(rows);
    grid.SetColumnCount(cols);
    grid.SetFixedRowCount(fixedRows);
    grid.SetFixedColumnCount(fixedCols);
    fillWithPlaces(grid);
    grid.SetModified(FALSE);
}

} // namespace

class tst_GridCounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void startValues();
    void constructorsCounts();
    void counts_data();
    void counts();
    void equalCountChangesNothing();
    void negativeCounts();
    void cellsAreMadeAndDestroyedByTheOverridables();
    void fixedFlagAndColours();
    void newRowsTakeTheFormatAbove();
    void focus_data();
    void focus();
    void insertRow();
    void insertPositions();
    void firstRowMakesAColumn();
    void insertColumn();
    void insertIntoTheFixedPart();
    void deletion();
    void deletedFixedLines();
    void deleteNonFixedRows();
    void deleteAll();
    void coordsAreTold();
    void selectionDoesNotSurvive();
    void gridDeletedByTheNotice();
};

void tst_GridCounts::startValues()
{
    const CGridCtrl_X grid;
    QCOMPARE(grid.m_crTextColour, GetSysColor_X(8));
    QCOMPARE(grid.m_crTextBkColour, GetSysColor_X(5));
    QCOMPARE(grid.m_crBkColour, GetSysColor_X(16));
    QCOMPARE(grid.m_crFixedTextColour, GetSysColor_X(8));
    QCOMPARE(grid.m_crFixedBkColour, GetSysColor_X(15));
    QCOMPARE(grid.m_crGridColour, 0xC0C0C0U);
    QCOMPARE(grid.m_crTTipBackClr, 0xFF000000U);
    QCOMPARE(grid.m_crTTipTextClr, 0xFF000000U);
    QCOMPARE(grid.m_nGridLines, 3);
    QCOMPARE(grid.m_bEditable, 1);
    QCOMPARE(grid.m_bModified, 0);
    QCOMPARE(grid.m_bListMode, 0);
    QCOMPARE(grid.m_bAllowDraw, 1);
    QCOMPARE(grid.m_bEnableSelection, 1);
    QCOMPARE(grid.m_bSortOnClick, 1);
    QCOMPARE(grid.m_bHandleTabKey, 1);
    QCOMPARE(grid.m_bTitleTips, 1);
    QCOMPARE(grid.m_nBarState, 0);
    QCOMPARE(grid.m_nDefCellWidth, 30);
    QCOMPARE(grid.m_nDefCellHeight, 20);
    QCOMPARE(grid.m_nTimerInterval, 25);
    QCOMPARE(grid.m_nResizeCaptureRange, 3);
    QCOMPARE(grid.m_nSortColumn, -1);
    QCOMPARE(grid.m_bAscending, 1);
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("-1 -1"));
    QCOMPARE(textOf(grid.GetCellRange()), QStringLiteral("0 0 -1 -1"));
    QVERIFY(grid.m_pRtcDefault == RUNTIME_CLASS_X(CGridCell_X));
    QVERIFY(!grid.IsValid(grid.GetCellRange()));
    QCOMPARE(grid.GetVirtualHeight(), 0);
    QCOMPARE(grid.GetFixedRowHeight(), 0);
}

void tst_GridCounts::constructorsCounts()
{
    CGridCtrl_X grid(4, 3, 2, 1);
    QCOMPARE(grid.m_nRows, 4);
    QCOMPARE(grid.m_nCols, 3);
    QCOMPARE(grid.m_nFixedRows, 2);
    QCOMPARE(grid.m_nFixedCols, 1);
    QCOMPARE(grid.m_bModified, 0);
    QCOMPARE(grid.GetVirtualHeight(), 80);
    QCOMPARE(grid.GetVirtualWidth(), 90);
    QCOMPARE(grid.GetFixedRowHeight(), 40);
    QCOMPARE(grid.GetFixedColumnWidth(), 30);
    QCOMPARE(GridSanity::problems(grid), QString());
    const std::unique_ptr<CObject_X> made(RUNTIME_CLASS_X(CGridCtrl_X)->CreateObject());
    QVERIFY(made->IsKindOf("CGridCtrl_X"));
}

void tst_GridCounts::counts_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("text");

    QTest::newRow("more rows") << 3 << 2 << "0.0,0.1|1.0,1.1|,";
    QTest::newRow("fewer rows") << 1 << 2 << "0.0,0.1";
    QTest::newRow("more columns") << 2 << 3 << "0.0,0.1,|1.0,1.1,";
    QTest::newRow("fewer columns") << 2 << 1 << "0.0|1.0";
    QTest::newRow("both") << 1 << 1 << "0.0";
    QTest::newRow("no rows") << 0 << 2 << "";
    QTest::newRow("no columns") << 2 << 0 << "|";
}

void tst_GridCounts::counts()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    CGridCtrl_X grid;
    fill(grid, 2, 2);
    QCOMPARE(grid.SetRowCount(rows), 1);
    QCOMPARE(grid.SetColumnCount(columns), 1);
    QTEST(textOf(grid), "text");
    QCOMPARE(grid.m_bModified, 1);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::equalCountChangesNothing()
{
    CGridCtrl_X grid;
    fill(grid, 2, 2, 1, 1);
    grid.m_nSortColumn = 1;
    QCOMPARE(grid.SetRowCount(2), 1);
    QCOMPARE(grid.SetColumnCount(2), 1);
    QCOMPARE(grid.SetFixedRowCount(1), 1);
    QCOMPARE(grid.SetFixedColumnCount(1), 1);
    QCOMPARE(grid.m_bModified, 0);
    QCOMPARE(grid.m_nSortColumn, 1);
}

void tst_GridCounts::negativeCounts()
{
    CGridCtrl_X grid;
    fill(grid, 2, 2, 1, 1);
    QCOMPARE(grid.SetRowCount(-1), 0);
    QCOMPARE(grid.SetColumnCount(-1), 0);
    QCOMPARE(grid.SetFixedRowCount(-1), 0);
    QCOMPARE(grid.SetFixedColumnCount(-1), 0);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.1|1.0,1.1"));
    QCOMPARE(grid.m_bModified, 0);
}

void tst_GridCounts::cellsAreMadeAndDestroyedByTheOverridables()
{
    CCountingGrid grid;
    grid.SetRowCount(3);
    grid.SetColumnCount(4);
    QCOMPARE(grid.made, 12);
    grid.InsertRow(L"", -1);
    grid.InsertColumn(L"", 0, 0);
    QCOMPARE(grid.made, 12 + 4 + 4);
    grid.DeleteRow(0);
    QCOMPARE(grid.destroyed, 5);
    grid.SetRowCount(1);
    QCOMPARE(grid.destroyed, 15);
    grid.DeleteAllItems();
    QCOMPARE(grid.destroyed, 20);
}

void tst_GridCounts::fixedFlagAndColours()
{
    CGridCtrl_X grid;
    fill(grid, 4, 4);
    grid.SetItemBkColour(1, 1, RGB(1, 2, 3));
    grid.SetItemFgColour(1, 1, RGB(1, 2, 3));
    grid.SetItemBkColour(2, 2, RGB(1, 2, 3));
    grid.SetModified(FALSE);
    grid.SetFixedRowCount(2);
    QCOMPARE(grid.GetItemState(1, 1), 16U);
    QCOMPARE(grid.GetItemBkColour(1, 1), 0xFF000000U);
    QCOMPARE(grid.GetItemFgColour(1, 1), 0xFF000000U);
    QCOMPARE(grid.GetItemBkColour(2, 2), COLORREF(RGB(1, 2, 3)));
    QCOMPARE(grid.m_bModified, 0);
    grid.SetFixedColumnCount(3);
    QCOMPARE(grid.GetItemBkColour(2, 2), 0xFF000000U);
    QCOMPARE(GridSanity::problems(grid), QString());
    grid.SetItemBkColour(1, 3, RGB(1, 2, 3));
    grid.SetFixedRowCount(0);
    QCOMPARE(grid.GetItemBkColour(1, 3), 0xFF000000U);
    QCOMPARE(GridSanity::problems(grid), QString());
    QCOMPARE(grid.SetFixedRowCount(6), 1);
    QCOMPARE(grid.m_nRows, 6);
    QCOMPARE(GridSanity::problems(grid), QString());
    QCOMPARE(grid.SetRowCount(3), 1);
    QCOMPARE(grid.m_nFixedRows, 3);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::newRowsTakeTheFormatAbove()
{
    CGridCtrl_X grid;
    fill(grid, 2, 3);
    grid.SetItemFormat(1, 1, DT_RIGHT);
    grid.SetItemFormat(1, 2, 0);
    (*grid.m_RowData[1])[0] = (delete grid.cellAt(1, 0), nullptr);
    grid.SetRowCount(3);
    QCOMPARE(grid.GetItemFormat(2, 0), 0x8824U); // no cell above it
    QCOMPARE(grid.GetItemFormat(2, 1), DT_RIGHT);
    QCOMPARE(grid.GetItemFormat(2, 2), 0U);
    QCOMPARE(grid.InsertRow(L"", 1), 1);
    QCOMPARE(grid.GetItemFormat(1, 1), 0x8824U);
}

void tst_GridCounts::focus_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("stays");

    QTest::newRow("rows down to it") << "rows" << 2 << false;
    QTest::newRow("rows down to just behind it") << "rows" << 3 << true;
    QTest::newRow("columns down to it") << "columns" << 2 << false;
    QTest::newRow("columns down to just behind it") << "columns" << 3 << true;
    QTest::newRow("fixed rows up to it") << "fixed rows" << 2 << true;
    QTest::newRow("fixed rows over it") << "fixed rows" << 3 << false;
    QTest::newRow("fixed columns up to it") << "fixed columns" << 2 << true;
    QTest::newRow("fixed columns over it") << "fixed columns" << 3 << false;
}

void tst_GridCounts::focus()
{
    QFETCH(QString, change);
    QFETCH(int, count);
    QFETCH(bool, stays);
    ShownGrid<> shown(5, 5, 0, 0);
    shown.grid.SetFocusCell(2, 2);
    shown.parent.takeNotes();
    if (change == QLatin1String("rows"))
        shown.grid.SetRowCount(count);
    else if (change == QLatin1String("columns"))
        shown.grid.SetColumnCount(count);
    else if (change == QLatin1String("fixed rows"))
        shown.grid.SetFixedRowCount(count);
    else
        shown.grid.SetFixedColumnCount(count);
    QCOMPARE(textOf(shown.grid.m_idCurrentCell), stays ? QStringLiteral("2 2") : QStringLiteral("-1 -1"));
    QCOMPARE(shown.parent.takeNotes(), stays ? QString() : QStringLiteral("-100(2, 2)"));
    QCOMPARE(GridSanity::problems(shown.grid), QString());
}

void tst_GridCounts::insertRow()
{
    CGridCtrl_X grid;
    fill(grid, 3, 2, 1);
    grid.SetFocusCell(2, 1);
    QCOMPARE(grid.InsertRow(L"new", 1), 1);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.1|new,|1.0,1.1|2.0,2.1"));
    QCOMPARE(grid.GetRowHeight(1), int(grid.GetTextExtent(1, 0, L"new").cy));
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("3 1"));
    QCOMPARE(grid.m_bModified, 1);
    QCOMPARE(GridSanity::problems(grid), QString());
    QCOMPARE(grid.InsertRow(L"end", -1), 4);
    QCOMPARE(grid.InsertRow(nullptr, 1), 1);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.1|,|new,|1.0,1.1|2.0,2.1|end,"));
    QVERIFY(grid.GetRowHeight(1) > 0);
    grid.SetDefaultCellType(RUNTIME_CLASS_X(CHighCell));
    QCOMPARE(grid.GetRowHeight(grid.InsertRow(L"high")), 77);
}

void tst_GridCounts::insertPositions()
{
    CGridCtrl_X grid;
    fill(grid, 2, 2);
    QCOMPARE(grid.InsertRow(L"x", 2), -1);
    QCOMPARE(grid.InsertRow(L"x", 3), -1);
    QCOMPARE(grid.InsertColumn(L"x", 0, 2), -1);
    QCOMPARE(grid.m_bModified, 0);
    QCOMPARE(grid.InsertRow(L"x", -7), 2);
    QCOMPARE(grid.InsertColumn(L"x", 0, -7), 2);
}

void tst_GridCounts::firstRowMakesAColumn()
{
    CGridCtrl_X rows;
    QCOMPARE(rows.InsertRow(L"x", 0), -1);
    QCOMPARE(rows.InsertRow(L"x"), 0);
    QCOMPARE(rows.m_nCols, 1);
    QCOMPARE(textOf(rows), QStringLiteral("x"));
    CGridCtrl_X columns;
    QCOMPARE(columns.InsertColumn(L"x"), 0);
    QCOMPARE(columns.m_nRows, 1);
    QCOMPARE(columns.GetItemFormat(0, 0), 37U);
    QCOMPARE(GridSanity::problems(columns), QString());
}

void tst_GridCounts::insertColumn()
{
    CGridCtrl_X grid;
    fill(grid, 2, 3, 0, 1);
    grid.SetFocusCell(1, 2);
    QCOMPARE(grid.InsertColumn(L"new", DT_RIGHT, 2), 2);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.1,new,0.2|1.0,1.1,,1.2"));
    QCOMPARE(grid.GetItemFormat(0, 2), DT_RIGHT);
    QCOMPARE(grid.GetItemFormat(1, 2), DT_RIGHT);
    QCOMPARE(grid.GetItemFormat(1, 1), 0x8824U);
    QCOMPARE(grid.GetColumnWidth(2), int(grid.GetTextExtent(0, 2, L"new").cx));
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("1 3"));
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::insertIntoTheFixedPart()
{
    CGridCtrl_X grid;
    fill(grid, 4, 4, 2, 2);
    grid.SetItemBkColour(1, 3, RGB(1, 2, 3));
    grid.InsertRow(L"", 1);
    QCOMPARE(grid.m_nFixedRows, 2);
    QCOMPARE(grid.GetItemState(2, 3), 0U); // pushed out
    QCOMPARE(grid.GetItemBkColour(2, 3), 0xFF000000U);
    QCOMPARE(GridSanity::problems(grid), QString());
    grid.InsertColumn(L"", 0, 0);
    QCOMPARE(grid.m_nFixedCols, 2);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::deletion()
{
    ShownGrid<> shown(4, 4, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    fillWithPlaces(grid);
    grid.SetFocusCell(2, 2);
    shown.parent.takeNotes();
    QCOMPARE(grid.DeleteRow(-1), 0);
    QCOMPARE(grid.DeleteRow(4), 0);
    QCOMPARE(grid.DeleteColumn(-1), 0);
    QCOMPARE(grid.DeleteColumn(4), 0);
    QCOMPARE(grid.DeleteRow(1), 1);
    QCOMPARE(grid.DeleteColumn(1), 1);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.2,0.3|2.0,2.2,2.3|3.0,3.2,3.3"));
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("1 1"));
    QCOMPARE(shown.parent.takeNotes(), QString()); // it has not moved, it is counted differently
    QCOMPARE(grid.DeleteRow(2), 1);
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("1 1"));
    QCOMPARE(grid.DeleteRow(1), 1);
    QCOMPARE(textOf(grid.m_idCurrentCell), QStringLiteral("-1 -1"));
    QCOMPARE(shown.parent.takeNotes(), QStringLiteral("-100(1, 1)"));
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::deletedFixedLines()
{
    CGridCtrl_X grid;
    fill(grid, 4, 4, 2, 2);
    grid.DeleteRow(0);
    grid.DeleteColumn(1);
    QCOMPARE(grid.m_nFixedRows, 1);
    QCOMPARE(grid.m_nFixedCols, 1);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::deleteNonFixedRows()
{
    CGridCtrl_X grid;
    fill(grid, 5, 2, 2);
    QCOMPARE(grid.DeleteNonFixedRows(), 1);
    QCOMPARE(textOf(grid), QStringLiteral("0.0,0.1|1.0,1.1"));
    QCOMPARE(grid.m_nFixedRows, 2);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::deleteAll()
{
    ShownGrid<> shown(4, 4, 1, 1);
    shown.grid.SetFocusCell(2, 2);
    shown.parent.takeNotes();
    QCOMPARE(shown.grid.DeleteAllItems(), 1);
    QCOMPARE(shown.parent.takeNotes(), QStringLiteral("-100(2, 2)"));
    QCOMPARE(textOf(shown.grid.GetCellRange()), QStringLiteral("0 0 -1 -1"));
    QCOMPARE(shown.grid.m_nFixedRows, 0);
    QCOMPARE(shown.grid.m_bModified, 1);
    QCOMPARE(GridSanity::problems(shown.grid), QString());
}

void tst_GridCounts::coordsAreTold()
{
    CGridCtrl_X grid;
    grid.SetDefaultCellType(RUNTIME_CLASS_X(CPlacedCell));
    fill(grid, 4, 4);
    const auto check = [&grid] {
        for (int row = 0; row < grid.m_nRows; ++row) {
            for (int col = 0; col < grid.m_nCols; ++col)
                QCOMPARE(textOf(static_cast<CPlacedCell*>(grid.cellAt(row, col))->place), textOf(CCellID_X(row, col)));
        }
    };
    check();
    grid.InsertRow(L"", 1);
    check();
    grid.InsertColumn(L"", 0, 1);
    check();
    grid.DeleteRow(0);
    check();
    grid.DeleteColumn(2);
    check();
}

void tst_GridCounts::selectionDoesNotSurvive()
{
    CGridCtrl_X grid;
    fill(grid, 4, 4);
    grid.SetItemState(2, 2, CGridCellBase_X::Selected);
    grid.SetItemState(3, 3, CGridCellBase_X::Selected);
    grid.SetColumnCount(3);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 1LL);
    QCOMPARE(GridSanity::problems(grid), QString());
    grid.m_bEnableSelection = FALSE;
    grid.InsertRow(L"", 0);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 0LL);
    QCOMPARE(grid.GetItemState(3, 2), 0U);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridCounts::gridDeletedByTheNotice()
{
    QWidget window;
    QWidget widget(&window);
    NotedWindow parent;
    parent.SubclassWindow(&window);
    for (int change = 0; change < 5; ++change) {
        auto* const grid = new CGridCtrl_X(5, 5, 1, 1);
        grid->SubclassWindow(&widget);
        grid->SetFocusCell(2, 2);
        const QPointer<CGridCtrl_X> living(grid);
        parent.answer = [&living](const XeGridNotification&) { delete living; };
        if (change == 0)
            QCOMPARE(grid->SetRowCount(1), 0);
        else if (change == 1)
            QCOMPARE(grid->SetFixedColumnCount(4), 0);
        else if (change == 2)
            QCOMPARE(grid->DeleteRow(2), 0);
        else if (change == 3)
            QCOMPARE(grid->DeleteColumn(2), 0);
        else
            QCOMPARE(grid->DeleteAllItems(), 1);
        parent.answer = nullptr;
        QVERIFY(!living);
    }
}

XE_TEST(tst_GridCounts)
#include "tst_gridcounts.moc"
