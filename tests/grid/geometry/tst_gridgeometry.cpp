#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_GridGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void sizes();
    void hugeSizes();
    void writtenByTheHost();
    void origins();
    void rectangles();
    void cellAtPoint_data();
    void cellAtPoint();
    void hiddenLinesAreNotHit();
    void pointClicked();
    void visibleRange();
    void visibleRangeAtAnEdge();
    void visibleRangeWithoutOrdinaryCells();
    void visibleCells();
    void withoutWindow();
    void topLeft();
};

void tst_GridGeometry::sizes()
{
    CGridCtrl_X grid(4, 3, 1, 1);
    QCOMPARE(grid.GetRowHeight(-1), -1);
    QCOMPARE(grid.GetRowHeight(4), -1);
    QCOMPARE(grid.GetColumnWidth(-1), -1);
    QCOMPARE(grid.GetColumnWidth(3), -1);
    QCOMPARE(grid.SetRowHeight(-1, 5), 0);
    QCOMPARE(grid.SetRowHeight(4, 5), 0);
    QCOMPARE(grid.SetRowHeight(1, -5), 0);
    QCOMPARE(grid.SetColumnWidth(3, 5), 0);
    QCOMPARE(grid.SetColumnWidth(1, -5), 0);
    QCOMPARE(grid.SetRowHeight(1, 0), 1);
    QCOMPARE(grid.SetColumnWidth(2, 100), 1);
    QCOMPARE(grid.GetRowHeight(1), 0);
    QCOMPARE(grid.GetColumnWidth(2), 100);
    QCOMPARE(grid.GetVirtualHeight(), 60);
    QCOMPARE(grid.GetVirtualWidth(), 160);
    QCOMPARE(grid.GetFixedRowHeight(), 20);
    QCOMPARE(grid.GetFixedColumnWidth(), 30);
    grid.SetRowHeight(0, 33);
    QCOMPARE(grid.GetFixedRowHeight(), 33);
    QCOMPARE(grid.GetVirtualHeight(), 73);
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridGeometry::hugeSizes()
{
    ShownGrid<> shown(4, 3, 1, 1);
    for (int row = 0; row < 4; ++row)
        shown.grid.SetRowHeight(row, 0x7FFFFFFF);
    QCOMPARE(shown.grid.GetVirtualHeight(), 0x3FFFFFFF); // cut
    shown.grid.EnsureVisible(3, 1);
    shown.grid.OnVScroll(SB_PAGEDOWN, 0, nullptr);
    shown.grid.GetCellFromPt(CPoint(0x7FFFFFFF, 0x7FFFFFFF));
    CRect rect;
    shown.grid.GetCellRangeRect(CCellRange_X(0, 0, 3, 2), &rect);
}

void tst_GridGeometry::writtenByTheHost()
{
    CGridCtrl_X grid(4, 3, 1, 1);
    QCOMPARE(grid.GetVirtualHeight(), 80);
    grid.m_arRowHeights[2] = 50;
    grid.m_arColWidths[0] = 7;
    grid.ResetScrollBars();
    QCOMPARE(grid.GetVirtualHeight(), 110);
    QCOMPARE(grid.GetFixedColumnWidth(), 7);
}

void tst_GridGeometry::origins()
{
    ShownGrid<> shown(100, 40, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    CPoint point(7, 7);
    QCOMPARE(grid.GetCellOrigin(-1, 0, &point), 0);
    QCOMPARE(grid.GetCellOrigin(0, 40, &point), 0);
    QCOMPARE(grid.GetCellOrigin(1, 1, nullptr), 0);
    QCOMPARE(int(point.x), 7);
    QCOMPARE(grid.GetCellOrigin(3, 4, &point), 1);
    QCOMPARE(textOf(CCellID_X(point.x, point.y)), QStringLiteral("120 60"));
    grid.SetScrollPos32(SB_VERT, 40);
    grid.SetScrollPos32(SB_HORZ, 60);
    QCOMPARE(textOf(grid.GetTopleftNonFixedCell()), QStringLiteral("3 3"));
    QCOMPARE(grid.GetCellOrigin(3, 4, &point), 1);
    QCOMPARE(textOf(CCellID_X(point.x, point.y)), QStringLiteral("60 20"));
    QCOMPARE(grid.GetCellOrigin(2, 4, &point), 0); // scrolled away above
    QCOMPARE(grid.GetCellOrigin(3, 2, &point), 0); // and at the left
    QCOMPARE(grid.GetCellOrigin(0, 2, &point), 0); // a heading goes with its column
    QCOMPARE(grid.GetCellOrigin(0, 4, &point), 1);
    QCOMPARE(textOf(CCellID_X(point.x, point.y)), QStringLiteral("60 0"));
    QCOMPARE(grid.GetCellOrigin(0, 0, &point), 1);
    QCOMPARE(textOf(CCellID_X(point.x, point.y)), QStringLiteral("0 0"));
}

void tst_GridGeometry::rectangles()
{
    ShownGrid<> shown(100, 40, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    CRect rect(1, 2, 3, 4);
    QCOMPARE(grid.GetCellRect(2, 3, &rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("90 40 119 59")); // the last pixels
    QCOMPARE(grid.GetCellRect(2, 3, nullptr), 0);
    QCOMPARE(grid.GetCellRangeRect(CCellRange_X(1, 1, 2, 3), &rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("30 20 119 59"));
    grid.SetScrollPos32(SB_VERT, 20);
    QCOMPARE(grid.GetCellRangeRect(CCellRange_X(1, 1, 2, 3), &rect), 0);
    QCOMPARE(grid.GetCellRangeRect(CCellRange_X(2, 1, 100, 3), &rect), 0);
    QCOMPARE(textOf(rect), QStringLiteral("30 20 119 59"));
}

void tst_GridGeometry::cellAtPoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("ordinaryCell");

    QTest::newRow("corner") << QPoint(0, 0) << "0 0"
                            << "-1 -1";
    QTest::newRow("last pixel of the corner") << QPoint(29, 19) << "0 0"
                                              << "-1 -1";
    QTest::newRow("first ordinary cell") << QPoint(30, 20) << "3 2"
                                         << "3 2";
    QTest::newRow("heading of a column") << QPoint(30, 19) << "0 2"
                                         << "-1 2";
    QTest::newRow("heading of a row") << QPoint(29, 20) << "3 0"
                                      << "-1 -1";
    QTest::newRow("further right") << QPoint(60, 20) << "3 3"
                                   << "3 3";
    QTest::newRow("further down") << QPoint(30, 40) << "4 2"
                                  << "4 2";
    QTest::newRow("left of the window") << QPoint(-1, 30) << "-1 -1"
                                        << "-1 -1";
    QTest::newRow("above the window") << QPoint(40, -1) << "-1 2"
                                      << "-1 2";
    QTest::newRow("last column") << QPoint(1140, 30) << "3 39"
                                 << "3 39";
    QTest::newRow("past the last column") << QPoint(1170, 30) << "-1 -1"
                                          << "-1 -1";
    QTest::newRow("past the last row") << QPoint(40, 1960) << "-1 2"
                                       << "-1 2";
}

void tst_GridGeometry::cellAtPoint()
{
    QFETCH(QPoint, point);
    ShownGrid<> shown(100, 40, 1, 1);
    shown.grid.SetScrollPos32(SB_VERT, 40);
    shown.grid.SetScrollPos32(SB_HORZ, 30);
    QTEST(textOf(shown.grid.GetCellFromPt(CPoint(point.x(), point.y()))), "cell");
    QTEST(textOf(shown.grid.GetCellFromPt(CPoint(point.x(), point.y()), FALSE)), "ordinaryCell");
}

void tst_GridGeometry::hiddenLinesAreNotHit()
{
    ShownGrid<> shown(10, 5, 1, 1);
    shown.grid.SetColumnWidth(1, 0);
    shown.grid.SetRowHeight(1, 0);
    QCOMPARE(textOf(shown.grid.GetCellFromPt(CPoint(30, 20))), QStringLiteral("2 2"));
    shown.grid.SetColumnWidth(0, 0);
    QCOMPARE(textOf(shown.grid.GetCellFromPt(CPoint(0, 20))), QStringLiteral("2 2"));
    CGridCtrl_X headings(1, 5, 1, 0);
    QCOMPARE(textOf(headings.GetCellFromPt(CPoint(5, 5))), QStringLiteral("-1 -1")); // no ordinary cell at all
}

void tst_GridGeometry::pointClicked()
{
    ShownGrid<> shown(10, 5, 1, 1);
    const CPoint inside = shown.grid.GetPointClicked(2, 3, CPoint(95, 47));
    QCOMPARE(textOf(CCellID_X(inside.x, inside.y)), QStringLiteral("5 7"));
    const CPoint none = shown.grid.GetPointClicked(20, 3, CPoint(95, 47));
    QCOMPARE(textOf(CCellID_X(none.x, none.y)), QStringLiteral("0 0"));
}

void tst_GridGeometry::visibleRange()
{
    ShownGrid<> shown(100, 40, 1, 1);
    CRect rect;
    QCOMPARE(textOf(shown.grid.GetVisibleNonFixedCellRange(&rect)), QStringLiteral("1 1 14 12"));
    QCOMPARE(textOf(rect), QStringLiteral("0 0 383 283")); // less the bars
    QCOMPARE(textOf(shown.grid.GetUnobstructedNonFixedCellRange()), QStringLiteral("1 1 13 11"));
    QCOMPARE(textOf(shown.grid.GetVisibleNonFixedCellRange()), QStringLiteral("1 1 14 12"));
    shown.grid.SetScrollPos32(SB_VERT, shown.grid.m_nVScrollMax);
    shown.grid.SetScrollPos32(SB_HORZ, shown.grid.m_nHScrollMax);
    QCOMPARE(textOf(shown.grid.GetVisibleNonFixedCellRange(&rect)), QStringLiteral("87 29 99 39"));
    ShownGrid<> few(3, 3, 1, 1);
    QCOMPARE(textOf(few.grid.GetVisibleNonFixedCellRange(&rect)), QStringLiteral("1 1 2 2"));
    QCOMPARE(textOf(rect), QStringLiteral("0 0 90 60"));
}

void tst_GridGeometry::visibleRangeAtAnEdge()
{
    ShownGrid<> exact(20, 3, 1, 1, {400, 300});
    exact.grid.SetRowHeight(1, 60); // the client's 300 pixels end with row 11
    QCOMPARE(textOf(exact.grid.GetVisibleNonFixedCellRange()), QStringLiteral("1 1 12 2"));
    exact.grid.SetRowHeight(0, 40);
    QCOMPARE(textOf(exact.grid.GetVisibleNonFixedCellRange()), QStringLiteral("1 1 11 2"));
    QCOMPARE(textOf(exact.grid.GetUnobstructedNonFixedCellRange()), QStringLiteral("1 1 11 2"));
    exact.grid.SetRowHeight(1, 61);
    QCOMPARE(textOf(exact.grid.GetUnobstructedNonFixedCellRange()), QStringLiteral("1 1 10 2"));
    exact.grid.SetRowHeight(1, 1000);
    QCOMPARE(textOf(exact.grid.GetUnobstructedNonFixedCellRange()), QStringLiteral("1 1 1 2")); // the only one stays
}

void tst_GridGeometry::visibleRangeWithoutOrdinaryCells()
{
    ShownGrid<> shown(2, 3, 2, 3);
    CRect rect;
    QCOMPARE(textOf(shown.grid.GetVisibleNonFixedCellRange(&rect)), QStringLiteral("2 3 1 2"));
    QCOMPARE(textOf(rect), QStringLiteral("0 0 90 40"));
    ShownGrid<> none(0, 0, 0, 0);
    QCOMPARE(textOf(none.grid.GetVisibleNonFixedCellRange(&rect)), QStringLiteral("0 0 -1 -1"));
    QCOMPARE(textOf(rect), QStringLiteral("0 0 0 0"));
}

void tst_GridGeometry::visibleCells()
{
    ShownGrid<> shown(100, 40, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    QCOMPARE(grid.IsCellVisible(14, 12), 1);
    QCOMPARE(grid.IsCellVisible(15, 12), 0);
    QCOMPARE(grid.IsCellVisible(14, 13), 0);
    QCOMPARE(grid.IsCellVisible(-1, 3), 0);
    grid.SetScrollPos32(SB_VERT, 40);
    QCOMPARE(grid.IsCellVisible(2, 1), 0);
    QCOMPARE(grid.IsCellVisible(3, 1), 1);
    QCOMPARE(grid.IsCellVisible(2, 0), 0);
    QCOMPARE(grid.IsCellVisible(0, 12), 1);
    QCOMPARE(grid.IsCellVisible(0, 13), 0);
    QCOMPARE(grid.IsCellVisible(0, 0), 1);
    QCOMPARE(grid.IsCellVisible(CCellID_X(3, 1)), 1);
}

void tst_GridGeometry::withoutWindow()
{
    CGridCtrl_X grid(10, 5, 1, 1);
    QCOMPARE(grid.IsCellVisible(1, 1), 0);
    QCOMPARE(textOf(grid.GetVisibleNonFixedCellRange()), QStringLiteral("1 1 1 1"));
    QCOMPARE(textOf(grid.GetTopleftNonFixedCell()), QStringLiteral("1 1"));
    QCOMPARE(textOf(grid.GetCellFromPt(CPoint(35, 25))), QStringLiteral("1 1"));
    CRect rect;
    QCOMPARE(grid.GetCellRect(9, 4, &rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("120 180 149 199"));
    grid.EnsureVisible(9, 4);
    grid.ResetScrollBars();
    grid.SetRedraw(TRUE, TRUE);
    grid.Refresh();
    grid.ExpandToFit();
    QCOMPARE(grid.GetColumnWidth(1), 30);
}

void tst_GridGeometry::topLeft()
{
    ShownGrid<> shown(100, 40, 2, 1);
    CGridCtrl_X& grid = shown.grid;
    const auto rowAt = [&grid](int position) {
        grid.SetScrollPos32(SB_VERT, position);
        return grid.GetTopleftNonFixedCell().row;
    };
    QCOMPARE(rowAt(0), 2);
    QCOMPARE(rowAt(1), 3); // the first whose beginning is not above the position
    QCOMPARE(rowAt(20), 3);
    QCOMPARE(rowAt(21), 4);
    grid.SetRowHeight(3, 0);
    QCOMPARE(rowAt(20), 3);
    QCOMPARE(rowAt(40), 5);
    ShownGrid<> low(3, 1, 1, 0, {400, 50});
    low.grid.SetRowHeight(2, 500);
    low.grid.SetScrollPos32(SB_VERT, 400);
    QCOMPARE(low.grid.GetTopleftNonFixedCell().row, 2); // never behind the last
}

XE_TEST(tst_GridGeometry)
#include "tst_gridgeometry.moc"
