// Resizing rows and columns at the dividers between the headings.

#include "gridwindow.h"
#include "input/mousemove.h"
#include "leavenothing.h"
#include "quietgrab.h"
#include "testclass.h"

namespace {

void drag(QWidget* widget, QPoint from, QPoint to)
{
    moveMouse(widget, from);
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    moveMouse(widget, to, Qt::LeftButton);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

// The sizes of all columns or rows, such as "50 50 70".
template <class Size>
QString sizes(int count, Size size)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts += QString::number(size(i));
    return texts.join(QLatin1Char(' '));
}

QString widths(const CGridCtrl_X& grid)
{
    return sizes(grid.GetColumnCount(), [&grid](int i) { return grid.GetColumnWidth(i); });
}

QString heights(const CGridCtrl_X& grid)
{
    return sizes(grid.GetRowCount(), [&grid](int i) { return grid.GetRowHeight(i); });
}

} // namespace

class tst_GridResize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { allowOffscreenGrab(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void dividers_data();
    void dividers();
    void columns_data();
    void columns();
    void rows_data();
    void rows();
    void lineFollowsThePointer();
    void releasedAtThePress();
    void notAllowed();
    void hiddenColumn();
    void nothingToResize();
    void pressWithoutAMove();
    void neitherSelectsNorClicks();
    void columnScrolledAway();
    void doubleClickFits();
    void doubleClickPassesHiddenColumns();
    void doubleClickOnARow();
};

void tst_GridResize::dividers_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("row");

    QTest::newRow("at the end of column 0") << QPoint(49, 10) << 1 << 0;
    QTest::newRow("3 pixels from the end") << QPoint(47, 10) << 1 << 0;
    QTest::newRow("4 pixels from the end") << QPoint(46, 10) << 0 << 0;
    QTest::newRow("3 pixels behind the beginning") << QPoint(53, 10) << 1 << 0;
    QTest::newRow("4 pixels behind the beginning") << QPoint(54, 10) << 0 << 0;
    QTest::newRow("the beginning of column 0") << QPoint(1, 10) << 0 << 0;
    QTest::newRow("below the headings") << QPoint(99, 20) << 0 << 0;
    QTest::newRow("behind the last column") << QPoint(200, 10) << 0 << 0;
    QTest::newRow("at the end of row 1") << QPoint(10, 39) << 0 << 1;
    QTest::newRow("behind the beginning of row 2") << QPoint(10, 43) << 0 << 1;
    QTest::newRow("the beginning of row 0") << QPoint(10, 1) << 0 << 0;
    QTest::newRow("right of the headings") << QPoint(50, 39) << 0 << 0;
    QTest::newRow("the corner of the corner") << QPoint(49, 19) << 1 << 1;
}

void tst_GridResize::dividers()
{
    QFETCH(QPoint, point);
    GridWindow<> host(4, 4);
    CPoint place(point.x(), point.y());
    QTEST(host.grid->MouseOverColumnResizeArea(place), "column");
    QTEST(host.grid->MouseOverRowResizeArea(place), "row");
}

void tst_GridResize::columns_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("widths");

    QTest::newRow("wider, from the end of the column") << 98 << 120 << "50 70 50 50";
    QTest::newRow("wider, from the beginning of the next") << 101 << 120 << "50 70 50 50";
    QTest::newRow("narrower") << 99 << 60 << "50 10 50 50";
    QTest::newRow("shut") << 99 << 50 << "50 0 50 50";
    QTest::newRow("beyond its beginning nothing changes") << 99 << 40 << "50 50 50 50";
    QTest::newRow("the heading column") << 49 << 30 << "30 50 50 50";
}

void tst_GridResize::columns()
{
    QFETCH(int, from);
    QFETCH(int, to);
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    drag(host.widget, {from, 10}, {to, 12});
    QTEST(widths(*host.grid), "widths");
    QVERIFY(host.grid->m_rcResizing.IsRectNull());
}

void tst_GridResize::rows_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("heights");

    QTest::newRow("taller, from the end of the row") << 38 << 55 << "20 35 20 20";
    QTest::newRow("taller, from the beginning of the next") << 42 << 55 << "20 35 20 20";
    QTest::newRow("shut") << 39 << 20 << "20 0 20 20";
    QTest::newRow("beyond its beginning nothing changes") << 39 << 5 << "20 20 20 20";
}

void tst_GridResize::rows()
{
    QFETCH(int, from);
    QFETCH(int, to);
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    drag(host.widget, {10, from}, {12, to});
    QTEST(heights(*host.grid), "heights");
    QVERIFY(host.grid->m_rcResizing.IsRectNull());
}

void tst_GridResize::lineFollowsThePointer()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    moveMouse(host.widget, QPoint(99, 10));
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(99, 10));
    QCOMPARE(host.grid->m_MouseMode, 9);
    QCOMPARE(host.grid->m_LeftClickDownCell, CCellID_X(0, 1));
    QCOMPARE(QWidget::mouseGrabber(), host.widget);
    moveMouse(host.widget, QPoint(120, 15), Qt::LeftButton);
    QCOMPARE(host.grid->m_rcResizing, CRect(120, 0, 122, 200));
    QCOMPARE(host.widget->cursor().shape(), Qt::SizeHorCursor);
    const QImage image = host.grab();
    QCOMPARE(image.pixel(120, 100), qRgb(0, 0, 0));
    QCOMPARE(image.pixel(121, 199), qRgb(0, 0, 0));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(120, 15));
    QCOMPARE(host.widget->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(host.grab().pixel(120, 190) != qRgb(0, 0, 0));
    QCOMPARE(host.grid->m_MouseMode, 9); // until the next move
    moveMouse(host.widget, QPoint(75, 100));
    QCOMPARE(host.grid->m_MouseMode, 0);

    moveMouse(host.widget, QPoint(10, 39));
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(10, 39));
    QCOMPARE(host.grid->m_MouseMode, 7);
    moveMouse(host.widget, QPoint(12, 70), Qt::LeftButton);
    QCOMPARE(host.grid->m_rcResizing, CRect(0, 70, 300, 72));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(12, 70));
}

void tst_GridResize::releasedAtThePress()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    drag(host.widget, {98, 10}, {98, 10});
    QCOMPARE(widths(*host.grid), QStringLiteral("50 50 50 50"));
    drag(host.widget, {10, 38}, {10, 38});
    QCOMPARE(heights(*host.grid), QStringLiteral("20 20 20 20"));
}

void tst_GridResize::notAllowed()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->m_bAllowColumnResize = FALSE;
    host.grid->m_bAllowRowResize = FALSE;
    drag(host.widget, {99, 10}, {120, 10});
    drag(host.widget, {10, 39}, {10, 60});
    QCOMPARE(widths(*host.grid), QStringLiteral("50 50 50 50"));
    QCOMPARE(heights(*host.grid), QStringLiteral("20 20 20 20"));
}

void tst_GridResize::hiddenColumn()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetColumnWidth(1, 0);
    drag(host.widget, {51, 10}, {80, 10}); // at the beginning of column 2
    QCOMPARE(widths(*host.grid), QStringLiteral("50 30 50 50"));
    host.grid->SetColumnWidth(1, 0);
    host.grid->m_bAllowColHide = FALSE;
    drag(host.widget, {51, 10}, {60, 10});
    QCOMPARE(widths(*host.grid), QStringLiteral("60 0 50 50"));
    host.grid->SetRowHeight(1, 0);
    drag(host.widget, {10, 21}, {10, 30});
    QCOMPARE(heights(*host.grid), QStringLiteral("20 10 20 20"));
    host.grid->SetRowHeight(1, 0);
    host.grid->m_bAllowRowHide = FALSE;
    drag(host.widget, {10, 21}, {10, 30});
    QCOMPARE(heights(*host.grid), QStringLiteral("30 0 20 20"));
}

void tst_GridResize::nothingToResize()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetColumnWidth(0, 0);
    host.grid->m_bAllowColHide = FALSE;
    moveMouse(host.widget, QPoint(1, 10));
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(1, 10));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(30, 10));
    QCOMPARE(widths(*host.grid), QStringLiteral("0 50 50 50"));
}

void tst_GridResize::pressWithoutAMove()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(99, 10)); // nothing has moved before
    QCOMPARE(host.grid->m_MouseMode, 9);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(119, 10));
    QCOMPARE(widths(*host.grid), QStringLiteral("50 69 50 50"));
}

void tst_GridResize::neitherSelectsNorClicks()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(2, 2, 2, 2);
    host.window.take();
    drag(host.widget, {99, 10}, {120, 10});
    QCOMPARE(host.window.take(), QString());
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    QCOMPARE(host.selected(), QStringLiteral("2,2"));
}

void tst_GridResize::columnScrolledAway()
{
    GridWindow<> host(40, 20);
    QVERIFY(host.comeUp());
    moveMouse(host.widget, QPoint(99, 10));
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(99, 10));
    host.grid->SetScrollPos32(SB_HORZ, 100);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(120, 10));
    QCOMPARE(host.grid->GetColumnWidth(1), 50);
    QCOMPARE(host.grid->m_MouseMode, 9);
}

void tst_GridResize::doubleClickFits()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetItemText(2, 1, L"a wider text");
    const int width = host.grid->cellAt(2, 1)->GetCellExtent().cx;
    moveMouse(host.widget, QPoint(99, 10));
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, QPoint(99, 10));
    QTest::mouseDClick(host.widget, Qt::LeftButton, {}, QPoint(99, 10));
    QCOMPARE(host.grid->GetColumnWidth(1), width);
    QCOMPARE(host.grid->IsItemEditing(0, 1), 0);
    QVERIFY(!host.window.take().contains(QStringLiteral("BEGIN")));
    moveMouse(host.widget, QPoint(150, 100));
    host.grid->SetColumnWidth(1, 50);
    moveMouse(host.widget, QPoint(101, 10)); // the beginning of the next column
    host.grid->OnLButtonDblClk(0, CPoint(101, 10));
    QCOMPARE(host.grid->GetColumnWidth(1), width);
}

void tst_GridResize::doubleClickPassesHiddenColumns()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetItemText(2, 1, L"a wider text");
    const int width = host.grid->cellAt(2, 1)->GetCellExtent().cx;
    host.grid->SetColumnWidth(2, 0);
    moveMouse(host.widget, QPoint(101, 10));
    host.grid->OnLButtonDblClk(0, CPoint(101, 10));
    QCOMPARE(widths(*host.grid), QStringLiteral("50 %1 0 50").arg(width));
}

void tst_GridResize::doubleClickOnARow()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetRowHeight(1, 60);
    host.grid->SetItemText(1, 2, L"text");
    const int height = host.grid->cellAt(1, 2)->GetCellExtent().cy;
    moveMouse(host.widget, QPoint(10, 79));
    host.grid->OnLButtonDblClk(0, CPoint(10, 79));
    QCOMPARE(host.grid->GetRowHeight(1), height);
}

XE_TEST(tst_GridResize)

#include "tst_gridresize.moc"
