#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QPointer>
#include <QSignalSpy>

namespace {

// Counts the scroll messages, and what is ended.
class CScrolledGrid : public CGridCtrl_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        messages += message->message == WM_VSCROLL || message->message == WM_HSCROLL;
        return CGridCtrl_X::PreTranslateMessage(message);
    }
    void EndEditing() override
    {
        ++endings;
        if (whenEnding)
            whenEnding();
        else
            CGridCtrl_X::EndEditing();
    }
    int messages = 0;
    int endings = 0;
    std::function<void()> whenEnding;
};

QString barsOf(const CGridCtrl_X& grid)
{
    return QStringLiteral("%1 %2 %3")
        .arg(grid.m_nBarState)
        .arg(grid.IsScrollBarEnabled(SB_HORZ) ? grid.GetScrollBarCtrl(SB_HORZ)->maximum() : -1)
        .arg(grid.IsScrollBarEnabled(SB_VERT) ? grid.GetScrollBarCtrl(SB_VERT)->maximum() : -1);
}

} // namespace

class tst_GridScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void bars_data();
    void bars();
    void pages();
    void barsAfterSizing();
    void noBarsWhileDrawingIsOff();
    void tinyWindows();
    void codes_data();
    void codes();
    void hiddenRowsAreSkipped();
    void columns();
    void actionsByHand();
    void arrowClickMovesOneRow();
    void dragOfTheSlider();
    void editingEndsOnce();
    void wheel();
    void wheelOnADisabledGrid();
    void messagesAreSeen();
    void ensureVisible_data();
    void ensureVisible();
    void ensureVisibleFar();
    void ensureVisibleSkipsHiddenLines();
    void wideCellStays();
    void resizeInsideAResize();
    void gridDeletedWhileItScrolls();
};

void tst_GridScrolling::bars_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("expected");

    QTest::newRow("neither") << 15 << 13 << "0 -1 -1";
    QTest::newRow("rows fit exactly") << 15 << 5 << "0 -1 -1";
    QTest::newRow("vertical") << 16 << 5 << "2 -1 19";
    QTest::newRow("horizontal") << 5 << 14 << "1 19 -1";
    QTest::newRow("both") << 100 << 40 << "3 816 1716";
    QTest::newRow("vertical one takes the columns' room") << 16 << 13 << "3 6 36";
    QTest::newRow("horizontal one takes the rows' room") << 15 << 14 << "3 36 16";
}

void tst_GridScrolling::bars()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    ShownGrid<> shown(rows, columns, 1, 1);
    QTEST(barsOf(shown.grid), "expected");
    shown.grid.ResetScrollBars();
    QTEST(barsOf(shown.grid), "expected"); // once is enough
    shown.grid.SetRowCount(2);
    shown.grid.SetColumnCount(2);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("0 -1 -1"));
    QCOMPARE(shown.grid.m_nVScrollMax + shown.grid.m_nHScrollMax, 0);
}

void tst_GridScrolling::pages()
{
    ShownGrid<> shown(100, 40, 1, 1);
    QCOMPARE(shown.grid.GetScrollBarCtrl(SB_VERT)->pageStep(), 263);
    QCOMPARE(shown.grid.GetScrollBarCtrl(SB_HORZ)->pageStep(), 353);
    QCOMPARE(shown.grid.m_nVScrollMax, 1716);
    QCOMPARE(shown.grid.m_nHScrollMax, 816);
    shown.grid.SetFixedRowCount(3);
    QCOMPARE(shown.grid.GetScrollBarCtrl(SB_VERT)->pageStep(), 223);
    QCOMPARE(shown.grid.m_nVScrollMax, 1716);
}

void tst_GridScrolling::barsAfterSizing()
{
    ShownGrid<> shown(16, 5, 1, 1);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("2 -1 19"));
    shown.widget.resize(400, 320);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("0 -1 -1"));
    shown.widget.resize(100, 320);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("3 66 16"));
}

void tst_GridScrolling::noBarsWhileDrawingIsOff()
{
    ShownGrid<> shown(5, 5, 1, 1);
    shown.grid.SetRedraw(FALSE);
    shown.grid.SetRowCount(100);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("0 -1 -1"));
    shown.grid.SetRedraw(TRUE, TRUE);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("2 -1 1699"));
}

void tst_GridScrolling::tinyWindows()
{
    ShownGrid<> shown(100, 40, 1, 1);
    shown.widget.resize(17, 100); // no client area is left: nothing changes
    QCOMPARE(barsOf(shown.grid), QStringLiteral("3 816 1716"));
    shown.widget.resize(10, 100);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("0 -1 -1"));
    QCOMPARE(shown.grid.m_nVScrollMax + shown.grid.m_nHScrollMax, 0);
    shown.widget.resize(400, 300);
    QCOMPARE(barsOf(shown.grid), QStringLiteral("3 816 1716"));
    shown.widget.resize(400, 30); // the headings take all
    shown.grid.EnsureVisible(50, 20);
    shown.grid.OnVScroll(SB_PAGEDOWN, 0, nullptr);
}

void tst_GridScrolling::codes_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");

    QTest::newRow("line up") << SB_LINEUP << 40 << 20;
    QTest::newRow("line up from between two") << SB_LINEUP << 30 << 10;
    QTest::newRow("line up at the top") << SB_LINEUP << 0 << 0;
    QTest::newRow("line up near the top") << SB_LINEUP << 5 << 0;
    QTest::newRow("line down") << SB_LINEDOWN << 40 << 60;
    QTest::newRow("line down near the end") << SB_LINEDOWN << 1710 << 1716;
    QTest::newRow("line down at the end") << SB_LINEDOWN << 1716 << 1716;
    QTest::newRow("page up") << SB_PAGEUP << 300 << 37;
    QTest::newRow("page up near the top") << SB_PAGEUP << 100 << 0;
    QTest::newRow("page down") << SB_PAGEDOWN << 20 << 283;
    QTest::newRow("page down near the end") << SB_PAGEDOWN << 1600 << 1716;
    QTest::newRow("thumb") << SB_THUMBTRACK << 333 << 333;
    QTest::newRow("top") << SB_TOP << 333 << 0;
    QTest::newRow("bottom") << SB_BOTTOM << 333 << 1716;
    QTest::newRow("another code") << 8U << 333 << 333;
}

void tst_GridScrolling::codes()
{
    QFETCH(UINT, code);
    QFETCH(int, before);
    ShownGrid<> shown(100, 40, 1, 1);
    shown.grid.SetScrollPos32(SB_VERT, before);
    shown.grid.SendMessage(WM_VSCROLL, code, 0);
    QTEST(shown.grid.GetScrollPos32(SB_VERT), "after");
    QTEST(shown.grid.GetScrollPos32(SB_VERT, TRUE), "after");
    QCOMPARE(shown.grid.GetScrollPos32(SB_HORZ), 0);
}

void tst_GridScrolling::hiddenRowsAreSkipped()
{
    ShownGrid<> shown(100, 5, 1, 1);
    for (const int row : {1, 3, 4})
        shown.grid.SetRowHeight(row, 0);
    shown.grid.SendMessage(WM_VSCROLL, SB_LINEDOWN, 0);
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 20); // row 2, behind the hidden one
    QCOMPARE(shown.grid.GetTopleftNonFixedCell().row, 3);
    shown.grid.SendMessage(WM_VSCROLL, SB_LINEDOWN, 0);
    QCOMPARE(shown.grid.GetTopleftNonFixedCell().row, 6);
    shown.grid.SendMessage(WM_VSCROLL, SB_LINEUP, 0);
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 20);
    shown.grid.SendMessage(WM_VSCROLL, SB_LINEUP, 0);
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 0);
}

void tst_GridScrolling::columns()
{
    ShownGrid<> shown(100, 40, 1, 1);
    shown.grid.SetColumnWidth(2, 100);
    const auto send = [&shown](UINT code) {
        shown.grid.SendMessage(WM_HSCROLL, code, 0);
        return shown.grid.GetScrollPos32(SB_HORZ);
    };
    QCOMPARE(send(SB_LINERIGHT), 30);
    QCOMPARE(send(SB_LINERIGHT), 130);
    QCOMPARE(send(SB_LINELEFT), 30);
    QCOMPARE(send(SB_PAGERIGHT), 383);
    QCOMPARE(send(SB_PAGELEFT), 30);
    QCOMPARE(send(SB_RIGHT), shown.grid.m_nHScrollMax);
    QCOMPARE(send(SB_LEFT), 0);
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 0);
}

void tst_GridScrolling::actionsByHand()
{
    ShownGrid<> shown(100, 40, 1, 1);
    QScrollBar* const bar = shown.grid.GetScrollBarCtrl(SB_VERT);
    const auto emitted = [&](QAbstractSlider::SliderAction action) {
        Q_EMIT bar->actionTriggered(action);
        return bar->value();
    };
    QCOMPARE(emitted(QAbstractSlider::SliderSingleStepAdd), 20);
    QCOMPARE(emitted(QAbstractSlider::SliderPageStepAdd), 283);
    QCOMPARE(emitted(QAbstractSlider::SliderPageStepSub), 20);
    QCOMPARE(emitted(QAbstractSlider::SliderSingleStepSub), 0);
    QCOMPARE(emitted(QAbstractSlider::SliderToMaximum), 1716);
    QCOMPARE(emitted(QAbstractSlider::SliderToMinimum), 0);
}

void tst_GridScrolling::arrowClickMovesOneRow()
{
    ShownGrid<> shown(100, 40, 1, 1);
    QScrollBar* const bar = shown.grid.GetScrollBarCtrl(SB_VERT);
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(bar->value(), 20);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    QCOMPARE(bar->value(), 283);
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    QCOMPARE(bar->value(), 263); // the row above is 20 high
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    QCOMPARE(bar->value(), 1716);
    QTest::keyClick(bar, Qt::Key_Up);
    QCOMPARE(bar->value(), 1696);
    QScrollBar* const columns = shown.grid.GetScrollBarCtrl(SB_HORZ);
    columns->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(columns->value(), 30);
}

void tst_GridScrolling::dragOfTheSlider()
{
    ShownGrid<CScrolledGrid> shown(100, 40, 1, 1);
    QScrollBar* const bar = shown.grid.GetScrollBarCtrl(SB_VERT);
    shown.grid.endings = 0;
    bar->setSliderDown(true);
    bar->setSliderPosition(333);
    bar->setSliderDown(false);
    QCOMPARE(bar->value(), 333);
    QCOMPARE(shown.grid.endings, 1);
    QCOMPARE(shown.grid.GetTopleftNonFixedCell().row, 18);
}

void tst_GridScrolling::editingEndsOnce()
{
    ShownGrid<CScrolledGrid> shown(100, 40, 1, 1);
    shown.grid.endings = 0;
    shown.grid.GetScrollBarCtrl(SB_VERT)->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(shown.grid.endings, 1);
    shown.grid.SendMessage(WM_VSCROLL, SB_LINEDOWN, 0);
    QCOMPARE(shown.grid.endings, 2);
    shown.grid.SetScrollPos32(SB_VERT, 0);
    QCOMPARE(shown.grid.endings, 2);
    shown.widget.resize(200, 200);
    QCOMPARE(shown.grid.endings, 3);
}

void tst_GridScrolling::wheel()
{
    ShownGrid<> shown(100, 40, 1, 1);
    const auto turned = [&shown](int delta) {
        QWheelEvent event(QPointF(50, 50), shown.widget.mapToGlobal(QPoint(50, 50)), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&shown.widget, &event);
        return shown.grid.GetScrollPos32(SB_VERT);
    };
    QCOMPARE(turned(-120), 20);
    QCOMPARE(turned(-1200), 40); // any notch is one row
    QCOMPARE(turned(-1), 60);
    QCOMPARE(turned(15), 40);
    QCOMPARE(shown.grid.OnMouseWheel(0, -120, CPoint()), 0);
}

void tst_GridScrolling::wheelOnADisabledGrid()
{
    ShownGrid<> shown(100, 40, 1, 1);
    shown.widget.setEnabled(false);
    QCOMPARE(shown.grid.OnMouseWheel(0, -120, CPoint()), 0);
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 0);
}

void tst_GridScrolling::messagesAreSeen()
{
    ShownGrid<CScrolledGrid> shown(100, 40, 1, 1);
    shown.grid.EnsureVisible(17, 1);
    QCOMPARE(shown.grid.messages, 4); // rows 15, 16 and 17, and one more for the part that is cut off
    QCOMPARE(shown.grid.GetScrollPos32(SB_VERT), 80);
}

void tst_GridScrolling::ensureVisible_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("topLeft");

    QTest::newRow("a cell that is there") << 25 << 15 << "21 11";
    QTest::newRow("above") << 10 << 15 << "10 11";
    QTest::newRow("to the left") << 25 << 5 << "21 5";
    QTest::newRow("below") << 40 << 15 << "28 11";
    QTest::newRow("to the right") << 25 << 30 << "21 20";
    QTest::newRow("a fixed row") << 0 << 30 << "21 20";
    QTest::newRow("a fixed column") << 40 << 0 << "28 11";
    QTest::newRow("the last") << 99 << 39 << "87 29";
    QTest::newRow("none") << 100 << 39 << "21 11";
    QTest::newRow("negative") << -1 << 5 << "21 11";
}

void tst_GridScrolling::ensureVisible()
{
    QFETCH(int, row);
    QFETCH(int, column);
    ShownGrid<> shown(100, 40, 1, 1);
    shown.grid.SetScrollPos32(SB_VERT, 400);
    shown.grid.SetScrollPos32(SB_HORZ, 300);
    shown.grid.EnsureVisible(row, column);
    QTEST(textOf(shown.grid.GetTopleftNonFixedCell()), "topLeft");
    if (shown.grid.IsValid(row, column))
        QVERIFY(shown.grid.IsCellVisible(row, column));
}

void tst_GridScrolling::ensureVisibleFar()
{
    ShownGrid<CScrolledGrid> shown(50000, 3, 1, 1);
    for (const int row : {40000, 100, 49999, 1, 30000}) {
        shown.grid.messages = 0;
        shown.grid.EnsureVisible(row, 1);
        QVERIFY2(shown.grid.messages <= 65, QByteArray::number(shown.grid.messages));
        CRect rect;
        QVERIFY(shown.grid.GetCellRect(row, 1, &rect));
        QVERIFY(rect.top >= 20 && rect.bottom < 300);
    }
    shown.grid.EnsureVisible(20000, 1);
    const int top = shown.grid.GetTopleftNonFixedCell().row;
    QCOMPARE(top, 20000); // from below it comes to the top, as by single steps
}

void tst_GridScrolling::ensureVisibleSkipsHiddenLines()
{
    ShownGrid<CScrolledGrid> shown(1000, 3, 1, 1);
    for (int row = 20; row < 900; ++row)
        shown.grid.SetRowHeight(row, 0);
    shown.grid.messages = 0;
    shown.grid.EnsureVisible(905, 1);
    QVERIFY(shown.grid.IsCellVisible(905, 1));
    QVERIFY2(shown.grid.messages < 20, QByteArray::number(shown.grid.messages));
}

void tst_GridScrolling::wideCellStays()
{
    ShownGrid<> shown(10, 5, 1, 1);
    shown.grid.SetColumnWidth(2, 1000);
    shown.grid.EnsureVisible(1, 2);
    const int column = shown.grid.GetTopleftNonFixedCell().col;
    shown.grid.EnsureVisible(1, 2);
    QCOMPARE(shown.grid.GetTopleftNonFixedCell().col, column);
    QVERIFY(shown.grid.IsCellVisible(1, 2));
}

void tst_GridScrolling::resizeInsideAResize()
{
    ShownGrid<CScrolledGrid> outer(100, 5, 1, 1);
    ShownGrid<CScrolledGrid> inner(16, 5, 1, 1);
    outer.grid.whenEnding = [&] {
        outer.grid.whenEnding = nullptr;
        inner.grid.endings = 0;
        inner.widget.resize(400, 320);
        QCOMPARE(inner.grid.endings, 0); // nothing is done yet
    };
    outer.widget.resize(300, 200);
    QCOMPARE(CGridCtrl_X::bAlreadyInsideThisProcedure, 0);
    QCOMPARE(barsOf(inner.grid), QStringLiteral("0 -1 -1"));
    QCOMPARE(outer.grid.m_nVScrollMax, 2000 - 200 - 1);
}

void tst_GridScrolling::gridDeletedWhileItScrolls()
{
    for (int way = 0; way < 4; ++way) {
        QWidget window;
        QWidget widget(&window);
        widget.resize(200, 100);
        auto* const grid = new CScrolledGrid;
        const QPointer<CGridCtrl_X> living(grid);
        grid->SubclassWindow(&widget);
        window.show();
        grid->SetRowCount(1000);
        grid->SetColumnCount(40);
        grid->whenEnding = [grid] { delete grid; };
        if (way == 0)
            grid->OnVScroll(SB_LINEDOWN, 0, nullptr);
        else if (way == 1)
            grid->EnsureVisible(999, 39);
        else if (way == 2)
            grid->OnMouseWheel(0, -120, CPoint());
        else
            widget.resize(100, 50);
        QVERIFY(!living);
        QCOMPARE(CGridCtrl_X::bAlreadyInsideThisProcedure, 0);
    }
}

XE_TEST(tst_GridScrolling)
#include "tst_gridscrolling.moc"
