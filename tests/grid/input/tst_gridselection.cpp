#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxmenu.h>

namespace {

// Counts what SetState() is told.
class WatchedCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(WatchedCell)

    using CGridCellBase_X::operator=;
    void SetState(unsigned int state) override
    {
        states += QString::number(state);
        CGridCell_X::SetState(state);
    }

    QStringList states;
};

QString textOf(const CCellRange_X& range)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(range.m_nMinRow)
        .arg(range.m_nMinCol)
        .arg(range.m_nMaxRow)
        .arg(range.m_nMaxCol);
}

// Whether the map has exactly the cells in the state "selected", under the right keys.
bool isInStep(const CGridCtrl_X& grid)
{
    long long count = 0;
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col) {
            if (!(grid.GetItemState(row, col) & CGridCellBase_X::Selected))
                continue;
            ++count;
            CCellID_X cell;
            const unsigned key = static_cast<unsigned>(row) | static_cast<unsigned>(col) << 16;
            if (!grid.m_SelectedCellMap.Lookup(key, cell) || cell != CCellID_X(row, col))
                return false;
        }
    }
    return count == grid.m_SelectedCellMap.GetCount();
}

} // namespace

class tst_GridSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void ranges_data();
    void ranges();
    void aNewRangeReplacesTheOld();
    void growingAndShrinking();
    void clearing();
    void switchedOff();
    void stayingCells();
    void stayingCellsWithSingleRows();
    void cellsThatHaveGone();
    void watchedCellsHearOfEachStep();
    void handMadeStates();
    void selectedRange();
    void selectAll();
    void columns();
    void rows();
    void singleRow();
    void cells();
    void withoutAnAnchor();
    void byMouseMode_data();
    void byMouseMode();
    void rowsBeyondTheKeys();
    void repaintsOnlyWhatIsSeen();
    void tableGrows();
    void commandUpdate();
};

IMPLEMENT_DYNCREATE_X(WatchedCell, CGridCell_X)

void tst_GridSelection::ranges_data()
{
    QTest::addColumn<QVector<int>>("range");
    QTest::addColumn<QString>("selected");

    using Range = QVector<int>;
    QTest::newRow("one cell") << Range{1, 2, 1, 2} << "1,2";
    QTest::newRow("a block") << Range{1, 1, 2, 2} << "1,1 1,2 2,1 2,2";
    QTest::newRow("headings are raised") << Range{0, 0, 0, 0} << "1,1";
    QTest::newRow("partly headings") << Range{0, 2, 1, 3} << "1,2 1,3";
    QTest::newRow("past the last cell") << Range{2, 2, 99, 99} << "2,2 2,3 3,2 3,3";
    QTest::newRow("from past the last row") << Range{4, 1, 5, 2} << "";
    QTest::newRow("from past the last column") << Range{1, 4, 1, 5} << "";
    QTest::newRow("reversed rows") << Range{2, 1, 1, 2} << "";
    QTest::newRow("reversed columns") << Range{1, 2, 2, 1} << "";
    QTest::newRow("none") << Range{-1, -1, -1, -1} << "";
    QTest::newRow("no row") << Range{-1, 1, 2, 2} << "";
    QTest::newRow("no column") << Range{1, -1, 2, 2} << "";
}

void tst_GridSelection::ranges()
{
    QFETCH(QVector<int>, range);
    QFETCH(QString, selected);
    GridWindow<> host(4, 4);
    host.grid->SetSelectedRange(range[0], range[1], range[2], range[3]);
    QCOMPARE(host.selected(), selected);
    QVERIFY(isInStep(*host.grid));
}

void tst_GridSelection::aNewRangeReplacesTheOld()
{
    GridWindow<> host(4, 4);
    host.grid->SetSelectedRange(CCellRange_X(1, 1, 2, 2));
    host.grid->SetSelectedRange(CCellRange_X(2, 2, 3, 3), TRUE);
    QCOMPARE(host.selected(), QStringLiteral("2,2 2,3 3,2 3,3"));
    QVERIFY(isInStep(*host.grid));
    host.grid->SetItemState(1, 1, CGridCellBase_X::Selected);
    host.grid->SetSelectedRange(2, 2, 2, 2);
    QCOMPARE(host.selected(), QStringLiteral("2,2"));
    QVERIFY(isInStep(*host.grid));
    host.grid->SetItemState(0, 0, CGridCellBase_X::Selected | CGridCellBase_X::Fixed);
    host.grid->SetSelectedRange(3, 3, 3, 3);
    QCOMPARE(host.selected(), QStringLiteral("3,3"));
    QCOMPARE(host.grid->GetItemState(0, 0), 16u);
}

void tst_GridSelection::growingAndShrinking()
{
    CGridCtrl_X grid(60, 40, 1, 1);
    for (int last = 1; last < 60; ++last) {
        grid.SetSelectedRange(1, 1, last, qMin(last, 39));
        QCOMPARE(grid.m_SelectedCellMap.GetCount(), static_cast<long long>(last * qMin(last, 39)));
    }
    QVERIFY(isInStep(grid));
    for (int last = 58; last > 0; --last) {
        grid.SetSelectedRange(1, 1, last, 39);
        QCOMPARE(grid.m_SelectedCellMap.GetCount(), static_cast<long long>(last * 39));
    }
    QVERIFY(isInStep(grid));
}

void tst_GridSelection::clearing()
{
    GridWindow<> host(4, 4);
    host.grid->SetSelectedRange(1, 1, 3, 3);
    host.grid->SetSelectedRange(-1, -1, -1, -1, 0);
    QCOMPARE(host.selected(), QString());
    QVERIFY(host.grid->m_SelectedCellMap.IsEmpty());

    host.grid->SetSelectedRange(1, 1, 3, 3);
    host.grid->m_PrevSelectedCellMap[1 | 1 << 16] = CCellID_X(1, 1);
    host.grid->SetFocusCell(2, 2);
    host.grid->ResetSelectedRange();
    QCOMPARE(host.selected(), QString());
    QVERIFY(host.grid->m_PrevSelectedCellMap.IsEmpty());
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
}

void tst_GridSelection::switchedOff()
{
    GridWindow<> host(4, 4);
    host.grid->SetSelectedRange(1, 1, 1, 1);
    host.grid->m_bEnableSelection = FALSE;
    host.grid->SetSelectedRange(2, 2, 3, 3);
    host.grid->SelectAllCells();
    host.grid->SelectColumns({2, 2});
    host.grid->SelectRows({2, 2});
    host.grid->SelectCells({2, 2});
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_CELLS;
    host.grid->OnSelecting({2, 2});
    QCOMPARE(host.selected(), QStringLiteral("1,1"));
    host.grid->SetSelectedRange(-1, -1, -1, -1);
    QCOMPARE(host.selected(), QStringLiteral("1,1")); // not even cleared
}

void tst_GridSelection::stayingCells()
{
    GridWindow<> host(4, 4);
    host.grid->m_PrevSelectedCellMap[3 | 3 << 16] = CCellID_X(3, 3);
    host.grid->m_PrevSelectedCellMap[9 | 9 << 16] = CCellID_X(9, 9); // no such cell
    host.grid->SetSelectedRange(1, 1, 1, 2);
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 3,3"));
    host.grid->SetSelectedRange(2, 2, 2, 2);
    QCOMPARE(host.selected(), QStringLiteral("2,2 3,3"));
    host.grid->SetSelectedRange(2, 2, -1, 2); // one of the four is missing
    QCOMPARE(host.selected(), QString());
    QVERIFY(isInStep(*host.grid));
}

void tst_GridSelection::stayingCellsWithSingleRows()
{
    GridWindow<> host(4, 4);
    host.grid->m_bSingleRowSelection = TRUE;
    host.grid->m_PrevSelectedCellMap[3 | 3 << 16] = CCellID_X(3, 3);
    host.grid->SetSelectedRange(1, 1, 1, 2);
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2"));
}

void tst_GridSelection::cellsThatHaveGone()
{
    GridWindow<> host(4, 4);
    host.grid->m_SelectedCellMap[7 | 7 << 16] = CCellID_X(7, 7);
    host.grid->SetSelectedRange(1, 1, 1, 1);
    QVERIFY(isInStep(*host.grid));
}

void tst_GridSelection::watchedCellsHearOfEachStep()
{
    GridWindow<> host(4, 4);
    host.grid->SetCellType(1, 1, RUNTIME_CLASS_X(WatchedCell));
    auto* const cell = static_cast<WatchedCell*>(host.grid->cellAt(1, 1));
    cell->states.clear();
    host.grid->SetSelectedRange(1, 1, 1, 1);
    host.grid->SetSelectedRange(1, 1, 1, 2);
    host.grid->SetSelectedRange(1, 1, 2, 2);
    QCOMPARE(cell->states.join(QLatin1Char(' ')), QStringLiteral("2 0 2 0 2"));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
    QVERIFY(isInStep(*host.grid));
}

// A host that writes states itself leaves the map behind; the next range puts both right again.
void tst_GridSelection::handMadeStates()
{
    GridWindow<> host(4, 4);
    host.grid->SetSelectedRange(1, 1, 2, 2);
    host.grid->cellAt(1, 1)->SetState(0);
    host.grid->SetSelectedRange(1, 1, 1, 2);
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2"));
    QVERIFY(isInStep(*host.grid));
}

void tst_GridSelection::selectedRange()
{
    GridWindow<> host(4, 5);
    QCOMPARE(textOf(host.grid->GetSelectedCellRange()), QStringLiteral("4 5 -1 -1"));
    QVERIFY(!host.grid->IsValid(host.grid->GetSelectedCellRange()));
    host.grid->SetItemState(3, 1, 2);
    QCOMPARE(textOf(host.grid->GetSelectedCellRange()), QStringLiteral("3 1 3 1"));
    host.grid->SetItemState(1, 4, 2);
    QCOMPARE(textOf(host.grid->GetSelectedCellRange()), QStringLiteral("1 1 3 4"));
}

void tst_GridSelection::selectAll()
{
    GridWindow<> host(3, 3);
    host.grid->SelectAllCells();
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
    host.grid->SetFixedRowCount(3);
    host.grid->SelectAllCells();
    QCOMPARE(host.selected(), QString());
    host.grid->SetFixedRowCount(1);
    host.grid->OnEditSelectAll();
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
}

void tst_GridSelection::columns()
{
    GridWindow<> host(3, 5);
    host.grid->m_SelectionStartCell = CCellID_X(1, 3);
    host.grid->SelectColumns({2, 2});
    QCOMPARE(host.selected(), QStringLiteral("1,2 1,3 2,2 2,3"));
    host.grid->SelectColumns({0, 4}); // a heading of the column will do
    QCOMPARE(host.selected(), QStringLiteral("1,3 1,4 2,3 2,4"));
    host.grid->SelectColumns({1, 0});
    host.grid->SelectColumns({1, 5});
    host.grid->SelectColumns({-1, 2});
    QCOMPARE(host.selected(), QStringLiteral("1,3 1,4 2,3 2,4"));
}

void tst_GridSelection::rows()
{
    GridWindow<> host(5, 3);
    host.grid->m_SelectionStartCell = CCellID_X(3, 1);
    host.grid->SelectRows({2, 2});
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2 3,1 3,2"));
    host.grid->SelectRows({4, 0});
    QCOMPARE(host.selected(), QStringLiteral("3,1 3,2 4,1 4,2"));
    host.grid->SelectRows({0, 1});
    host.grid->SelectRows({5, 1});
    QCOMPARE(host.selected(), QStringLiteral("3,1 3,2 4,1 4,2"));
}

void tst_GridSelection::singleRow()
{
    GridWindow<> host(5, 3);
    host.grid->m_SelectionStartCell = CCellID_X(3, 1);
    host.grid->m_bSingleRowSelection = TRUE;
    host.grid->SelectRows({2, 2});
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2 3,1 3,2")); // in list mode alone
    host.grid->m_bListMode = TRUE;
    host.grid->SelectRows({2, 2});
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2"));
}

void tst_GridSelection::cells()
{
    GridWindow<> host(5, 5);
    host.grid->m_SelectionStartCell = CCellID_X(3, 2);
    host.grid->SelectCells({2, 3});
    QCOMPARE(host.selected(), QStringLiteral("2,2 2,3 3,2 3,3"));
    host.grid->SelectCells({0, 3});
    host.grid->SelectCells({3, 0});
    host.grid->SelectCells({-1, -1});
    QCOMPARE(host.selected(), QStringLiteral("2,2 2,3 3,2 3,3"));
}

void tst_GridSelection::withoutAnAnchor()
{
    GridWindow<> host(4, 4);
    host.grid->SelectCells({2, 3});
    QCOMPARE(host.selected(), QStringLiteral("2,3"));
    host.grid->SelectRows({1, 1});
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 1,3"));
    host.grid->SelectColumns({1, 2});
    QCOMPARE(host.selected(), QStringLiteral("1,2 2,2 3,2"));
}

void tst_GridSelection::byMouseMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("selected");

    QTest::newRow("nothing") << 0 << "";
    QTest::newRow("all") << 1 << "1,1 1,2 2,1 2,2";
    QTest::newRow("columns") << 2 << "1,2 2,2";
    QTest::newRow("rows") << 3 << "1,1 1,2";
    QTest::newRow("cells") << 4 << "1,2";
    QTest::newRow("free") << 5 << "";
    QTest::newRow("over a divider") << 8 << "";
    QTest::newRow("edit") << 10 << "";
}

void tst_GridSelection::byMouseMode()
{
    QFETCH(int, mode);
    QFETCH(QString, selected);
    GridWindow<> host(3, 3);
    host.grid->m_MouseMode = mode;
    host.grid->OnSelecting({1, 2});
    QCOMPARE(host.selected(), selected);
}

void tst_GridSelection::rowsBeyondTheKeys()
{
    CGridCtrl_X grid(70001, 2, 1, 1);
    grid.SetSelectedRange(65536, 1, 65537, 1);
    QVERIFY(grid.m_SelectedCellMap.IsEmpty());
    QCOMPARE(textOf(grid.GetSelectedCellRange()), QStringLiteral("65536 1 65537 1"));
    QCOMPARE(grid.GetItemState(0, 1), 16u); // whose key would be the same
    grid.SetSelectedRange(65535, 1, 65536, 1);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 1LL);
    QCOMPARE(textOf(grid.GetSelectedCellRange()), QStringLiteral("65535 1 65536 1"));
    QCOMPARE(grid.GetItemState(65537, 1), 0u);
    grid.SetSelectedRange(-1, -1, -1, -1);
    QCOMPARE(grid.GetItemState(65536, 1), 0u);
    QCOMPARE(textOf(grid.GetSelectedCellRange()), QStringLiteral("70001 2 -1 -1"));
}

void tst_GridSelection::repaintsOnlyWhatIsSeen()
{
    GridWindow<> host(100, 3);
    QVERIFY(host.comeUp());
    QCoreApplication::processEvents();
    class Paints : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::UpdateRequest || event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    } paints;
    host.widget->installEventFilter(&paints);
    host.grid->SetSelectedRange(90, 1, 91, 1);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    host.grid->SetSelectedRange(1, 1, 1, 1);
    QCoreApplication::processEvents();
    QVERIFY(paints.count > 0);
}

void tst_GridSelection::tableGrows()
{
    CGridCtrl_X grid(300, 300, 0, 0);
    grid.SelectAllCells();
    QVERIFY(grid.m_SelectedCellMap.GetHashTableSize() >= 45000u);
    QVERIFY(isInStep(grid));
    grid.SetSelectedRange(-1, -1, -1, -1);
    QCOMPARE(grid.m_SelectedCellMap.GetHashTableSize(), 17u);
    for (int row = 0; row < 300; ++row) {
        for (int col = 0; col < 300; ++col)
            grid.SetItemState(row, col, CGridCellBase_X::Selected);
    }
    QVERIFY(grid.m_SelectedCellMap.GetHashTableSize() >= 45000u);
    QVERIFY(isInStep(grid));
}

void tst_GridSelection::commandUpdate()
{
    GridWindow<> host(2, 2);
    QAction action;
    CCmdUI_X command;
    command.m_pOther = &action;
    host.grid->OnUpdateEditSelectAll(&command);
    QVERIFY(action.isEnabled());
    host.grid->m_bEnableSelection = FALSE;
    host.grid->OnUpdateEditSelectAll(&command);
    QVERIFY(!action.isEnabled());
    host.grid->m_bEnableSelection = 5; // any value but 0
    host.grid->OnUpdateEditSelectAll(&command);
    QVERIFY(action.isEnabled());
    host.grid->OnUpdateEditSelectAll(nullptr);
}

XE_TEST(tst_GridSelection)

#include "tst_gridselection.moc"
