// Clicks on the cells of a grid: what the cells are told and what the window, and who may delete what meanwhile.

#include "gridwindow.h"
#include "input/mousemove.h"
#include "leavenothing.h"
#include "quietgrab.h"
#include "testclass.h"

#include <QApplication>

namespace {

// A cell that writes down what the mouse does to it.
class ClickedCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(ClickedCell)

    using CGridCellBase_X::operator=;
    void SetCoords(int row, int col) override { place = QStringLiteral("%1,%2").arg(row).arg(col); }
    void OnClickDown(CPoint point) override { note("down", point); }
    void OnClick(CPoint point) override { note("click", point); }
    void OnDblClick(CPoint point) override { note("double", point); }
    void OnRClick(CPoint point) override { note("right", point); }
    void OnMouseOver() override { ++moves; }
    int Edit(int, int, CRect, CPoint point, unsigned int, unsigned int ch) override
    {
        note(ch == 1 ? "edit" : "edit?", point);
        return 1;
    }

    void note(const char* what, CPoint point)
    {
        calls += QStringLiteral("%1 %2 at %3 %4").arg(place, QLatin1String(what)).arg(point.x).arg(point.y);
        if (onCall)
            onCall();
    }
    static QString take() { return std::exchange(calls, {}).join(QLatin1String("; ")); }

    QString place;
    static int moves;
    static QStringList calls;
    static std::function<void()> onCall;
};

int ClickedCell::moves = 0;
QStringList ClickedCell::calls;
std::function<void()> ClickedCell::onCall;

void setClicked(CGridCtrl_X& grid)
{
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            grid.SetCellType(row, col, RUNTIME_CLASS_X(ClickedCell));
    }
}

} // namespace

class tst_GridClicks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { allowOffscreenGrab(); }
    void cleanup();

    void releaseClicks();
    void pressOnTheFocusCell();
    void pressOnAReadOnlyFocusCell();
    void aShakingHandStillEdits();
    void dragOffTheFocusCell();
    void pressOutsideTheCells();
    void disabled();
    void doubleClick();
    void doubleClickInListMode();
    void rightButton();
    void overACell();
    void handlersMayDeleteTheGrid_data();
    void handlersMayDeleteTheGrid();
};

IMPLEMENT_DYNCREATE_X(ClickedCell, CGridCell_X)

void tst_GridClicks::cleanup()
{
    ClickedCell::take();
    ClickedCell::onCall = nullptr;
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_GridClicks::releaseClicks()
{
    GridWindow<> host(6, 6);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,3 down at 5 3; 2,3 click at 5 3"));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host.window.take(), QStringLiteral("CHANGED(2, 3) CLICK(2, 3) COMMAND"));
    const auto address = reinterpret_cast<quintptr>(host.widget);
    QCOMPARE(host.window.command.first, static_cast<WPARAM>(address & 0xFFFF));
    QCOMPARE(host.window.command.second, static_cast<LPARAM>(address));
}

void tst_GridClicks::pressOnTheFocusCell()
{
    GridWindow<> host(6, 6);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    host.window.take();
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    QCOMPARE(host.grid->m_MouseMode, 10);
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    QVERIFY(!hasTimer());
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(156, 44));
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,3 down at 5 3; 2,3 edit at 6 4"));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QVERIFY(!host.window.take().contains(QStringLiteral("CLICK")));
}

void tst_GridClicks::pressOnAReadOnlyFocusCell()
{
    GridWindow<> host(6, 6);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    host.grid->SetItemState(2, 3, host.grid->GetItemState(2, 3) | CGridCellBase_X::ReadOnly);
    host.window.take();
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,3 down at 5 3; 2,3 click at 5 3"));
    QVERIFY(host.window.take().startsWith(QStringLiteral("CLICK(2, 3)")));
}

void tst_GridClicks::aShakingHandStillEdits()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    moveMouse(host.widget, QPoint(155 + QApplication::startDragDistance() - 1, 43), Qt::LeftButton);
    QCOMPARE(host.grid->m_MouseMode, 10);
    moveMouse(host.widget, QPoint(155 + QApplication::startDragDistance(), 43), Qt::LeftButton);
    QCOMPARE(host.grid->m_MouseMode, 11);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(170, 43));
}

void tst_GridClicks::dragOffTheFocusCell()
{
    GridWindow<> host(6, 6);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    host.grid->SetSelectedRange(2, 3, 3, 4);
    host.window.take();
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    moveMouse(host.widget, QPoint(195, 43), Qt::LeftButton);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(195, 43));
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,3 down at 5 3; 2,3 click at 45 3"));
    QCOMPARE(host.selected(), QString());
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    QVERIFY(host.window.take().startsWith(QStringLiteral("CLICK(2, 3) CHANGING(2, 3)")));
}

void tst_GridClicks::pressOutsideTheCells()
{
    GridWindow<> host(3, 3);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(1, 1);
    host.window.take();
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(250, 150));
    QCOMPARE(host.grid->m_bLMouseButtonDown, 1);
    QCOMPARE(host.grid->m_LeftClickDownPoint, CPoint(250, 150));
    QCOMPARE(host.focus(), QStringLiteral("1,1"));
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(250, 150));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(host.window.take(), QStringLiteral("CLICK(-1, -1)")); // and no command
}

void tst_GridClicks::disabled()
{
    GridWindow<> host(4, 3);
    QVERIFY(host.comeUp());
    host.widget->setEnabled(false);
    host.grid->OnLButtonDown(MK_LBUTTON, CPoint(60, 30));
    host.grid->OnMouseMove(0, CPoint(60, 30));
    host.grid->OnLButtonUp(0, CPoint(60, 30));
    host.grid->OnLButtonDblClk(0, CPoint(60, 30));
    QCOMPARE(host.window.take(), QString());
    QCOMPARE(host.grid->m_bLMouseButtonDown, 0);
    QCOMPARE(host.grid->m_LastMousePoint, CPoint(0, 0));
}

void tst_GridClicks::doubleClick()
{
    GridWindow<> host(6, 6);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, QPoint(155, 43));
    host.window.take();
    ClickedCell::take();
    QTest::mouseDClick(host.widget, Qt::LeftButton, {}, QPoint(156, 44));
    QVERIFY(ClickedCell::take().contains(QStringLiteral("2,3 edit at 6 4; 2,3 double at 6 4")));
    QVERIFY(host.window.take().contains(QStringLiteral("BEGIN(2, 3) DBLCLK(2, 3)")));
    host.grid->OnLButtonDblClk(0, CPoint(25, 45)); // a heading opens no editor
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,0 double at 25 5"));
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_CELLS;
    host.grid->OnLButtonDblClk(0, CPoint(155, 45));
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_NOTHING;
    host.grid->OnLButtonDblClk(0, CPoint(1000, 45));
    QCOMPARE(ClickedCell::take(), QString());
}

void tst_GridClicks::doubleClickInListMode()
{
    GridWindow<> host(6, 3);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    host.grid->m_bListMode = TRUE;
    host.grid->SetFocusCell(2, 1); // leaves the mode of a selection behind
    QCOMPARE(host.grid->m_MouseMode, 3);
    host.grid->OnLButtonDblClk(0, CPoint(55, 45));
    QCOMPARE(ClickedCell::take(), QStringLiteral("2,1 edit at 5 5; 2,1 double at 5 5"));
}

void tst_GridClicks::rightButton()
{
    GridWindow<> host(3, 3);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::RightButton, {}, QPoint(55, 25));
    QCOMPARE(host.window.take(), QStringLiteral("RCLICK(1, 1)"));
    QCOMPARE(ClickedCell::take(), QStringLiteral("1,1 right at 5 5"));
    QTest::mouseClick(host.widget, Qt::RightButton, {}, QPoint(250, 25));
    QCOMPARE(host.window.take(), QStringLiteral("RCLICK(-1, -1)"));
    QTest::mouseRelease(host.widget, Qt::RightButton, {}, QPoint(55, 25)); // without a press
    QCOMPARE(host.window.take(), QString());
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
}

void tst_GridClicks::overACell()
{
    GridWindow<> host(3, 3);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    ClickedCell::moves = 0;
    moveMouse(host.widget, host.middleOf(1, 1));
    QCOMPARE(ClickedCell::moves, 1);
    QCOMPARE(host.grid->m_LastMousePoint, CPoint(74, 29));
    moveMouse(host.widget, QPoint(250, 150));
    QCOMPARE(ClickedCell::moves, 1);
    host.grid->OnMouseMove(0, CPoint(1000, 10)); // outside the window
    QCOMPARE(host.grid->m_LastMousePoint, CPoint(250, 150));
}

void tst_GridClicks::handlersMayDeleteTheGrid_data()
{
    QTest::addColumn<int>("steps");

    for (int steps = 1; steps <= 5; ++steps)
        QTest::addRow("at call %d", steps) << steps;
}

void tst_GridClicks::handlersMayDeleteTheGrid()
{
    QFETCH(int, steps);
    GridWindow<> host(4, 4);
    setClicked(*host.grid);
    QVERIFY(host.comeUp());
    const auto count = [&] {
        if (--steps == 0)
            host.grid.reset();
    };
    ClickedCell::onCall = count;
    host.window.onNotice = [&](const XeGridNotification&) { count(); };
    QTest::mousePress(host.widget, Qt::LeftButton, {}, QPoint(75, 30));
    if (host.grid)
        QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(75, 30));
    if (host.grid)
        QTest::mouseDClick(host.widget, Qt::LeftButton, {}, QPoint(75, 30));
    QVERIFY(!host.grid);
    CWnd_X::ReleaseCapture();
    KillTimer_X(nullptr, 513);
}

XE_TEST(tst_GridClicks)

#include "tst_gridclicks.moc"
