// What a grid paints, where, and in which order.

#include "gridwindow.h"
#include "leavenothing.h"
#include "paint/drawncell.h"
#include "paint/gridcolours.h"
#include "testclass.h"

#include <QRegularExpression>

class tst_GridPaint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        DrawnCell::reset();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void backgrounds();
    void lines_data();
    void lines();
    void hiddenLinesHaveNoLine();
    void orderOfCells();
    void linesOfSizeZeroAreNotDrawn();
    void scrolledCells();
    void cellsPastTheEdgeAreNotDrawn();
    void nullCellsAndNullContext();
    void headingBlockIsOneCell();
    void scrolledHeadingBlock();
    void ordinaryBlockStaysSingleCells();
    void brokenBlocks();
    void cellMayDeleteTheGrid();
    void cellMayDeleteRows();
    void resizeLine();
    void resizeLineIsForgotten();
    void cornerBetweenTheBars();
};

void tst_GridPaint::backgrounds()
{
    GridWindow<> host(3, 3); // 150 x 60 of 300 x 200
    setColours(*host.grid);
    host.grid->m_nGridLines = 0;
    const QImage image = host.grab();
    QCOMPARE(image.size(), QSize(300, 200));
    QCOMPARE(image.pixel(60, 30), text);
    QCOMPARE(image.pixel(149, 59), text);
    QCOMPARE(image.pixel(150, 30), background);
    QCOMPARE(image.pixel(60, 60), background);
    QCOMPARE(image.pixel(299, 0), background);
    QCOMPARE(image.pixel(299, 199), background);
    QCOMPARE(image.pixel(0, 199), background);
    QCOMPARE(image.pixel(25, 10), fixedBack);
    QCOMPARE(image.pixel(125, 10), fixedBack);
    QCOMPARE(image.pixel(25, 30), fixedBack);
}

void tst_GridPaint::lines_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QRgb>("vertical");
    QTest::addColumn<QRgb>("horizontal");

    QTest::newRow("none") << 0 << text << text;
    QTest::newRow("horizontal") << 1 << text << line;
    QTest::newRow("vertical") << 2 << line << text;
    QTest::newRow("both") << 3 << line << line;
}

void tst_GridPaint::lines()
{
    QFETCH(int, lines);
    QFETCH(QRgb, vertical);
    QFETCH(QRgb, horizontal);
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_nGridLines = lines;
    const QImage image = host.grab();
    QCOMPARE(image.pixel(99, 30), vertical);
    QCOMPARE(image.pixel(149, 30), vertical);
    QCOMPARE(image.pixel(98, 30), text);
    QCOMPARE(image.pixel(60, 39), horizontal);
    QCOMPARE(image.pixel(60, 59), horizontal);
    QCOMPARE(image.pixel(60, 38), text);
    // They begin behind the headings and end one pixel past the last cell.
    QVERIFY(image.pixel(99, 19) != line);
    QVERIFY(image.pixel(49, 39) != line);
    QCOMPARE(image.pixel(99, 60), vertical == line ? line : background);
    QCOMPARE(image.pixel(99, 61), background);
    QCOMPARE(image.pixel(150, 39), horizontal == line ? line : background);
    QCOMPARE(image.pixel(151, 39), background);
}

void tst_GridPaint::hiddenLinesHaveNoLine()
{
    GridWindow<> host(3, 4);
    setColours(*host.grid);
    host.grid->SetColumnWidth(1, 0);
    const QImage image = host.grab();
    QVERIFY(image.pixel(49, 30) != line);
    QCOMPARE(image.pixel(99, 30), line);
    QCOMPARE(image.pixel(149, 30), line);
}

void tst_GridPaint::orderOfCells()
{
    GridWindow<> host(2, 3);
    setDrawn(*host.grid);
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; "
                                               "1,0:0 20 49 39; "
                                               "0,1:50 0 99 19; 0,2:100 0 149 19; "
                                               "1,1:50 20 99 39; 1,2:100 20 149 39"));
}

void tst_GridPaint::linesOfSizeZeroAreNotDrawn()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    host.grid->SetColumnWidth(1, 0);
    host.grid->SetRowHeight(1, 0);
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; 2,0:0 20 49 39; 0,2:50 0 99 19; 2,2:50 20 99 39"));
}

void tst_GridPaint::scrolledCells()
{
    GridWindow<> host(100, 20);
    setDrawn(*host.grid);
    host.grid->SetScrollPos32(SB_VERT, 40);
    host.grid->SetScrollPos32(SB_HORZ, 50);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,0:0 0 49 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,0:0 20 49 39")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 99 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,2:50 20 99 39")));
    QVERIFY(DrawnCell::calls.filter(QRegularExpression(QStringLiteral("^[12],"))).isEmpty());
    QVERIFY(DrawnCell::calls.filter(QRegularExpression(QStringLiteral(",1:"))).isEmpty());
}

void tst_GridPaint::cellsPastTheEdgeAreNotDrawn()
{
    GridWindow<> host(1000, 1000, 1, 1, {137, 77}); // the client is 120 x 60
    setDrawn(*host.grid);
    host.grab();
    QCOMPARE(DrawnCell::calls.size(), 9);
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,2:100 40 149 59")));
}

void tst_GridPaint::nullCellsAndNullContext()
{
    GridWindow<> host(2, 2);
    setDrawn(*host.grid);
    delete (*host.grid->m_RowData[1])[1];
    (*host.grid->m_RowData[1])[1] = nullptr;
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; 1,0:0 20 49 39; 0,1:50 0 99 19"));
    host.grid->OnDraw(nullptr);
    host.grid->EraseBkgnd(nullptr);
    QCOMPARE(DrawnCell::take(), QString());
}

void tst_GridPaint::headingBlockIsOneCell()
{
    GridWindow<> host(3, 5);
    setDrawn(*host.grid);
    QCOMPARE(host.grid->SetFixedCellCombine(0, 1, 0, 2), 1);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,4:200 0 249 19")));
}

void tst_GridPaint::scrolledHeadingBlock()
{
    GridWindow<> host(30, 20);
    setDrawn(*host.grid);
    host.grid->SetFixedCellCombine(0, 1, 0, 2);
    host.grid->SetFixedCellCombine(1, 0, 2, 0);
    host.grid->SetScrollPos32(SB_HORZ, 50);
    host.grid->SetScrollPos32(SB_VERT, 20);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 149 19"))); // from the first column that is seen
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 149 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,0:0 20 49 59")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,0:0 20 49 59")));
    DrawnCell::take();
    host.grid->SetScrollPos32(SB_HORZ, 100);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 99 19")));
}

void tst_GridPaint::ordinaryBlockStaysSingleCells()
{
    GridWindow<> host(4, 4);
    setDrawn(*host.grid);
    QCOMPARE(host.grid->SetCellCombine(1, 1, 1, 1, 0), 1);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("1,1:50 20 99 39")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,2:100 40 149 59")));
}

void tst_GridPaint::brokenBlocks()
{
    GridWindow<> host(2, 3);
    setDrawn(*host.grid);
    CGridCellBase_X* const cell = host.grid->cellAt(0, 1);
    cell->m_bMergeSlave = 1;
    cell->m_nMasterRow = 77; // no such master
    CGridCellBase_X* const other = host.grid->cellAt(0, 2);
    other->m_nMergeCols = 2147483647; // no such last cell
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 99 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:100 0 149 19")));
    cell->m_nMasterRow = 0; // a master without a block
    cell->m_nMasterCol = 0;
    DrawnCell::take();
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 99 19")));
}

void tst_GridPaint::cellMayDeleteTheGrid()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    DrawnCell::onDraw = [&host] { host.grid.reset(); };
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19"));
}

void tst_GridPaint::cellMayDeleteRows()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    DrawnCell::onDraw = [&host] { host.grid->DeleteAllItems(); };
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19"));
}

void tst_GridPaint::resizeLine()
{
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SIZING_COL;
    host.grid->m_rcResizing = CRect(80, 0, 82, 200);
    const QImage image = host.grab();
    for (const int y : {0, 30, 199}) {
        QCOMPARE(image.pixel(80, y), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(81, y), qRgb(0, 0, 0));
        QVERIFY(image.pixel(82, y) != qRgb(0, 0, 0));
    }
    QCOMPARE(image.pixel(79, 30), text);
    QCOMPARE(image.pixel(82, 30), text);
}

void tst_GridPaint::resizeLineIsForgotten()
{
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_rcResizing = CRect(80, 0, 82, 200);
    const QImage image = host.grab();
    QCOMPARE(image.pixel(80, 30), text);
    QVERIFY(host.grid->m_rcResizing.IsRectNull());
}

void tst_GridPaint::cornerBetweenTheBars()
{
    GridWindow<> host(100, 100);
    QCOMPARE(host.grab().pixel(299, 199), host.widget->palette().color(QPalette::Window).rgb());
}

XE_TEST(tst_GridPaint)

#include "tst_gridpaint.moc"
