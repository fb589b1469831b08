#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_GridFocus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void noticesAndStates();
    void theSameCell();
    void headingsAreRaised();
    void cellsThatAreNotThere();
    void listModeSelectsTheRow();
    void aNoticeMoves_data();
    void aNoticeMoves();
    void aNoticeMakesRoom_data();
    void aNoticeMakesRoom();
    void aNoticeDeletes_data();
    void aNoticeDeletes();
    void headingsAreRedrawn();
    void nextItem_data();
    void nextItem();
    void nextItemFromBeyond();
};

void tst_GridFocus::noticesAndStates()
{
    GridWindow<> host(4, 4);
    QCOMPARE(host.grid->SetFocusCell(1, 2), CCellID_X(-1, -1));
    QCOMPARE(host.window.take(), QStringLiteral("CHANGED(1, 2)"));
    QCOMPARE(host.inState(CGridCellBase_X::Focused), QStringLiteral("1,2"));
    QCOMPARE(host.grid->SetFocusCell(CCellID_X(3, 3)), CCellID_X(1, 2));
    QCOMPARE(host.window.take(), QStringLiteral("CHANGING(1, 2) CHANGED(3, 3)"));
    QCOMPARE(host.inState(CGridCellBase_X::Focused), QStringLiteral("3,3"));
    QCOMPARE(host.grid->SetFocusCell(-1, -1), CCellID_X(3, 3));
    QCOMPARE(host.window.take(), QStringLiteral("CHANGING(3, 3)"));
    QCOMPARE(host.inState(CGridCellBase_X::Focused), QString());
    QCOMPARE(host.selected(), QString());
}

void tst_GridFocus::theSameCell()
{
    GridWindow<> host(4, 4);
    host.grid->SetFocusCell(1, 2);
    host.window.take();
    QCOMPARE(host.grid->SetFocusCell(1, 2), CCellID_X(1, 2));
    QCOMPARE(host.window.take(), QString());
}

void tst_GridFocus::headingsAreRaised()
{
    GridWindow<> host(5, 5, 2, 1);
    host.grid->SetFocusCell(0, 0);
    QCOMPARE(host.focus(), QStringLiteral("2,1"));
    host.grid->SetFocusCell(0, 3);
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
}

void tst_GridFocus::cellsThatAreNotThere()
{
    GridWindow<> host(4, 4);
    for (const CCellID_X cell : {CCellID_X(4, 1), CCellID_X(1, 4), CCellID_X(-1, 2), CCellID_X(2, -1)}) {
        host.grid->SetFocusCell(1, 1);
        host.grid->SetFocusCell(cell);
        QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    }
    host.grid->SetFixedRowCount(4);
    host.grid->SetFocusCell(1, 1); // nothing but headings
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
}

void tst_GridFocus::listModeSelectsTheRow()
{
    GridWindow<> host(4, 4);
    host.grid->m_bListMode = TRUE;
    host.grid->m_PrevSelectedCellMap[1 | 1 << 16] = CCellID_X(1, 1);
    host.grid->SetFocusCell(2, 3);
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2 2,3"));
    QCOMPARE(host.grid->m_MouseMode, 3);
    QVERIFY(host.grid->m_PrevSelectedCellMap.IsEmpty());
}

void tst_GridFocus::aNoticeMoves_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<QString>("notices");

    QTest::newRow("when the focus leaves") << LVN_ITEMCHANGING << "CHANGING(1, 1) CHANGING(2, 2) CHANGED(3, 3)";
    QTest::newRow("when the focus has come")
        << LVN_ITEMCHANGED << "CHANGING(1, 1) CHANGED(2, 2) CHANGING(2, 2) CHANGED(3, 3)";
}

void tst_GridFocus::aNoticeMoves()
{
    QFETCH(UINT, code);
    QFETCH(QString, notices);
    GridWindow<> host(4, 4);
    host.grid->SetFocusCell(1, 1);
    host.window.take();
    bool isDone = false;
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code == code && !std::exchange(isDone, true))
            host.grid->SetFocusCell(3, 3);
    };
    host.grid->SetFocusCell(2, 2);
    QCOMPARE(host.focus(), QStringLiteral("3,3"));
    QCOMPARE(host.window.take(), notices);
    QCOMPARE(host.inState(CGridCellBase_X::Focused), QStringLiteral("3,3"));
}

void tst_GridFocus::aNoticeMakesRoom_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("notices");

    QTest::newRow("above both cells when the focus leaves") << LVN_ITEMCHANGING << 0 << "3,2"
                                                            << "CHANGING(1, 1) CHANGED(3, 2)";
    QTest::newRow("between the cells when the focus leaves") << LVN_ITEMCHANGING << 2 << "3,2"
                                                             << "CHANGING(1, 1) CHANGED(3, 2)";
    QTest::newRow("behind the cells when the focus leaves") << LVN_ITEMCHANGING << 3 << "2,2"
                                                            << "CHANGING(1, 1) CHANGED(2, 2)";
    QTest::newRow("above both cells when the focus has come") << LVN_ITEMCHANGED << 0 << "3,2"
                                                              << "CHANGING(1, 1) CHANGED(2, 2)";
}

// The cells have other places then.
void tst_GridFocus::aNoticeMakesRoom()
{
    QFETCH(UINT, code);
    QFETCH(int, row);
    QFETCH(QString, focus);
    QFETCH(QString, notices);
    GridWindow<> host(4, 4);
    host.grid->SetFocusCell(1, 1);
    host.window.take();
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code == code)
            host.grid->InsertRow(L"new", row);
    };
    host.grid->SetFocusCell(2, 2);
    QCOMPARE(host.focus(), focus);
    QCOMPARE(host.window.take(), notices);
    QCOMPARE(host.inState(CGridCellBase_X::Focused), focus);
}

void tst_GridFocus::aNoticeDeletes_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<bool>("deletesGrid");

    QTest::newRow("the grid when the focus leaves") << LVN_ITEMCHANGING << true;
    QTest::newRow("the grid when the focus has come") << LVN_ITEMCHANGED << true;
    QTest::newRow("all rows when the focus leaves") << LVN_ITEMCHANGING << false;
    QTest::newRow("all rows when the focus has come") << LVN_ITEMCHANGED << false;
}

void tst_GridFocus::aNoticeDeletes()
{
    QFETCH(UINT, code);
    QFETCH(bool, deletesGrid);
    GridWindow<> host(4, 4);
    host.grid->SetFocusCell(1, 1);
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code != code)
            return;
        host.window.onNotice = nullptr;
        if (deletesGrid)
            host.grid.reset();
        else
            host.grid->DeleteAllItems();
    };
    QCOMPARE(host.grid->SetFocusCell(2, 2), CCellID_X(1, 1));
    QCOMPARE(!host.grid, deletesGrid);
    if (host.grid)
        QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
}

void tst_GridFocus::headingsAreRedrawn()
{
    GridWindow<> host(100, 10);
    QVERIFY(host.comeUp());
    QCoreApplication::processEvents();
    const QImage before = host.grab();
    host.grid->SetFocusCell(90, 1); // cannot be seen itself
    QCoreApplication::processEvents();
    const QImage after = host.grab();
    const QRect heading(50, 0, 50, 20);
    QVERIFY(before.copy(heading) != after.copy(heading));
    QCOMPARE(before.copy(0, 20, 300, 180), after.copy(0, 20, 300, 180));
}

void tst_GridFocus::nextItem_data()
{
    QTest::addColumn<QPoint>("from"); // column, row
    QTest::addColumn<int>("direction");
    QTest::addColumn<QString>("found");

    // Read-only: 2,1 2,3 4,2 1,4
    QTest::newRow("all, from nowhere") << QPoint(-1, -1) << GVNI_ALL << "1,4";
    QTest::newRow("all, goes on in the row") << QPoint(1, 2) << GVNI_ALL << "2,3";
    QTest::newRow("all, goes on in the next rows") << QPoint(3, 2) << GVNI_ALL << "4,2";
    QTest::newRow("all, from the last column") << QPoint(4, 1) << GVNI_ALL << "2,1";
    QTest::newRow("all, behind the last") << QPoint(2, 4) << GVNI_ALL << "-1,-1";
    QTest::newRow("area, right of the cell alone") << QPoint(1, 2) << GVNI_AREA << "2,3";
    QTest::newRow("area, the next rows too") << QPoint(1, 3) << GVNI_AREA << "4,2";
    QTest::newRow("area, nothing to the left") << QPoint(3, 2) << GVNI_AREA << "-1,-1";
    QTest::newRow("above") << QPoint(3, 4) << GVNI_ABOVE << "2,3";
    QTest::newRow("above, none") << QPoint(3, 2) << GVNI_ABOVE << "-1,-1";
    QTest::newRow("below") << QPoint(2, 1) << GVNI_BELOW << "4,2";
    QTest::newRow("below, none") << QPoint(2, 4) << GVNI_BELOW << "-1,-1";
    QTest::newRow("to the left") << QPoint(3, 2) << GVNI_TOLEFT << "2,1";
    QTest::newRow("to the left, none") << QPoint(1, 2) << GVNI_TOLEFT << "-1,-1";
    QTest::newRow("to the right") << QPoint(1, 2) << GVNI_TORIGHT << "2,3";
    QTest::newRow("to the right, none") << QPoint(3, 2) << GVNI_TORIGHT << "-1,-1";
    QTest::newRow("below and above: above first") << QPoint(3, 4) << (GVNI_ABOVE | GVNI_BELOW) << "2,3";
    QTest::newRow("no direction") << QPoint(1, 1) << 0 << "-1,-1";
}

void tst_GridFocus::nextItem()
{
    QFETCH(QPoint, from);
    QFETCH(int, direction);
    QFETCH(QString, found);
    CGridCtrl_X grid(5, 5, 1, 1);
    for (const CCellID_X cell : {CCellID_X(2, 1), CCellID_X(2, 3), CCellID_X(4, 2), CCellID_X(1, 4)})
        grid.SetItemState(cell.row, cell.col, CGridCellBase_X::ReadOnly);
    CCellID_X start(from.y(), from.x());
    const auto find = [&](int flags) {
        const CCellID_X cell = grid.GetNextItem(start, direction | flags);
        return QStringLiteral("%1,%2").arg(cell.row).arg(cell.col);
    };
    QCOMPARE(find(GVNI_READONLY), found);
    QCOMPARE(find(GVNI_READONLY | GVNI_FOCUSED | GVNI_MODIFIED), found);
    QCOMPARE(find(GVNI_FOCUSED), QStringLiteral("-1,-1"));
    QCOMPARE(find(0), QStringLiteral("-1,-1"));
}

void tst_GridFocus::nextItemFromBeyond()
{
    CGridCtrl_X grid(3, 3, 1, 1);
    grid.SelectAllCells();
    constexpr int large = 2147483647;
    for (const int direction : {GVNI_ALL, GVNI_AREA, GVNI_ABOVE, GVNI_BELOW, GVNI_TOLEFT, GVNI_TORIGHT}) {
        for (CCellID_X cell : {CCellID_X(large, large), CCellID_X(-large - 1, large), CCellID_X(large, -large - 1)})
            QCOMPARE(grid.GetNextItem(cell, direction | GVNI_DROPHILITED), CCellID_X(-1, -1));
    }
    CCellID_X behind(3, 1);
    QCOMPARE(grid.GetNextItem(behind, GVNI_ABOVE | GVNI_SELECTED), CCellID_X(2, 1));
    QCOMPARE(grid.GetNextItem(behind, GVNI_ALL | GVNI_SELECTED), CCellID_X(-1, -1));
}

XE_TEST(tst_GridFocus)

#include "tst_gridfocus.moc"
