// The columns of a splitter: what they hold, and how wide they are.

#include "leavenothing.h"
#include "modaldriver.h"
#include "splitter/splitterstage.h"
#include "testclass.h"

#include <xeafxdlg.h>
#include <xeafxframe.h>
#include <xeafxmenu.h>

#include <QLabel>
#include <QMessageBox>

class tst_SplitterColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void paneOfAColumn();
    void aForeignSplitter();

    void columnInfo();
    void aColumnGetsItsWidth_data();
    void aColumnGetsItsWidth();
    void negativeWidthsAreZero();
    void noOtherColumnCollapses();
    void aHiddenPaneKeepsItsWidth();
    void aCollapsedPaneStaysSo();

    void nothingElseIsAColumn();
    void aBoxAndAMenuAreNoColumns();
};

void tst_SplitterColumns::paneOfAColumn()
{
    Stage<> stage(2);
    auto* const foreign = new QLabel;
    stage.imp()->addWidget(foreign);
    QCOMPARE(stage.splitter.GetPane(0, 0), static_cast<CWnd_X*>(&stage.views[0]));
    QCOMPARE(stage.splitter.GetPane(0, 1), static_cast<CWnd_X*>(&stage.views[1]));
    QCOMPARE(stage.splitter.GetPane(0, 2)->GetSafeHwnd(), static_cast<QWidget*>(foreign));
    QVERIFY(stage.splitter.GetPane(0, 2)->IsTemporary());
    QCOMPARE(stage.splitter.GetPane(0, 3), nullptr);
    QCOMPARE(stage.splitter.GetPane(0, 5), nullptr);
    QCOMPARE(stage.splitter.GetPane(0, -1), nullptr);
    QCOMPARE(stage.splitter.GetPane(1, 0), nullptr);
    QCOMPARE(stage.splitter.GetPane(-1, 0), nullptr);
    QCOMPARE(CSplitterWnd_X().GetPane(0, 0), nullptr);
}

void tst_SplitterColumns::aForeignSplitter()
{
    QSplitter splitter;
    auto* const left = new QWidget(&splitter);
    auto* const right = new QWidget(&splitter);
    auto* const wrapper = qobject_cast<CSplitterWnd_X*>(CWnd_X::FromHandle(&splitter));
    QVERIFY(wrapper);
    QCOMPARE(wrapper->GetRuntimeClass(), RUNTIME_CLASS_X(CSplitterWnd_X));
    QCOMPARE(splitter.count(), 2);
    QCOMPARE(wrapper->m_nCols, 1);
    QCOMPARE(wrapper->GetPane(0, 0)->GetSafeHwnd(), left);
    QCOMPARE(wrapper->GetPane(0, 1)->GetSafeHwnd(), right);
}

// --------------------------------------------------------------------------------------------------------- widths

void tst_SplitterColumns::columnInfo()
{
    Stage<> stage(2);
    stage.views[0].GetSafeHwnd()->setMinimumWidth(30);
    stage.imp()->setSizes({150, 450 - stage.imp()->handleWidth()});
    int current = -7;
    int minimum = -8;
    stage.splitter.GetColumnInfo(0, current, minimum);
    QCOMPARE(current, 150);
    QCOMPARE(minimum, 30);
    stage.splitter.GetColumnInfo(1, current, minimum);
    QCOMPARE(current, 450 - stage.imp()->handleWidth());
    QCOMPARE(minimum, 0);

    current = -7;
    minimum = -8;
    for (const int column : {2, 5, -1})
        stage.splitter.GetColumnInfo(column, current, minimum);
    CSplitterWnd_X none;
    none.GetColumnInfo(0, current, minimum);
    QCOMPARE(current, -7);
    QCOMPARE(minimum, -8);
    for (const int column : {2, -1})
        stage.splitter.SetColumnInfo(column, 100, 10);
    none.SetColumnInfo(0, 100, 10);
    QCOMPARE(stage.widths().first(), 150);
}

void tst_SplitterColumns::aColumnGetsItsWidth_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("ideal");
    QTest::newRow("the only one") << 1 << 0 << 100;
    QTest::newRow("the first, narrower") << 2 << 0 << 100;
    QTest::newRow("the first, wider") << 2 << 0 << 450;
    QTest::newRow("the last, narrower") << 2 << 1 << 100;
    QTest::newRow("the last, wider") << 2 << 1 << 450;
    QTest::newRow("one between, narrower") << 3 << 1 << 50;
    QTest::newRow("one between, wider") << 4 << 2 << 400;
    QTest::newRow("no width") << 3 << 1 << 0;
}

void tst_SplitterColumns::aColumnGetsItsWidth()
{
    QFETCH(int, count);
    QFETCH(int, column);
    QFETCH(int, ideal);
    for (const bool shown : {true, false}) {
        Stage<> stage(count, shown);
        stage.splitter.SetColumnInfo(column, ideal, 10);
        int current = 0;
        int minimum = 0;
        stage.splitter.GetColumnInfo(column, current, minimum);
        QCOMPARE(current, qMax(ideal, 10));
        QCOMPARE(minimum, 10);
        if (!shown)
            stage.show();
        QCOMPARE(stage.widths().at(column), qMax(ideal, 10));
        for (const int width : stage.widths())
            QVERIFY(width > 0); // nothing has collapsed
    }
    // Before it has a size.
    Stage<> stage(0, false);
    stage.splitter.CreateStatic(&stage.frame, 1, count);
    for (int i = 0; i < count; ++i)
        stage.splitter.CreateView(0, i, &stage.views[i]);
    stage.splitter.SetColumnInfo(column, ideal, 10);
    stage.splitter.MoveWindow(0, 0, 600, 200);
    stage.show();
    QCOMPARE(stage.widths().at(column), qMax(ideal, 10));
    for (const int width : stage.widths())
        QVERIFY(width > 0);
}

void tst_SplitterColumns::negativeWidthsAreZero()
{
    Stage<> stage(2);
    stage.splitter.SetColumnInfo(0, 100, -5);
    QCOMPARE(stage.views[0].GetSafeHwnd()->minimumWidth(), 0);
    QCOMPARE(stage.views[0].GetSafeHwnd()->maximumWidth(), 100);
    stage.splitter.SetColumnInfo(1, -100, 0);
    QCOMPARE(stage.views[1].GetSafeHwnd()->maximumWidth(), 0);
}

// There is no room for them, and there will be.
void tst_SplitterColumns::noOtherColumnCollapses()
{
    Stage<> stage(0, false);
    stage.splitter.CreateStatic(&stage.frame, 1, 3);
    for (int i = 0; i < 3; ++i) {
        stage.splitter.CreateView(0, i, &stage.views[i]);
        stage.views[i].GetSafeHwnd()->setMinimumWidth(20);
    }
    stage.splitter.MoveWindow(0, 0, 1, 200);
    stage.splitter.SetColumnInfo(0, 120, 20);
    stage.splitter.MoveWindow(0, 0, 600, 200);
    stage.show();
    QCOMPARE(stage.widths().first(), 120);
    QCOMPARE(stage.imp()->sizes(), stage.widths());
}

void tst_SplitterColumns::aHiddenPaneKeepsItsWidth()
{
    Stage<> stage(3);
    const int room = 600 - 2 * stage.imp()->handleWidth();
    stage.imp()->setSizes({100, 200, room - 300});
    stage.views[1].ShowWindow(SW_HIDE);
    stage.splitter.SetColumnInfo(0, 150, 0);
    QCOMPARE(stage.widths().first(), 150);
    stage.views[1].ShowWindow(SW_SHOW);
    QVERIFY(stage.widths().at(1) > 100);
}

void tst_SplitterColumns::aCollapsedPaneStaysSo()
{
    Stage<> stage(3);
    stage.views[2].GetSafeHwnd()->setMinimumWidth(20);
    stage.imp()->setSizes({300, 300, 0});
    QCOMPARE(stage.imp()->sizes().at(2), 0);
    stage.splitter.SetColumnInfo(0, 150, 0);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(stage.imp()->sizes().at(0), 150);
    QCOMPARE(stage.imp()->sizes().at(2), 0);
}

// --------------------------------------------------------------------------------------------------- nothing else

void tst_SplitterColumns::nothingElseIsAColumn()
{
    QWidget top;
    CWnd_X frame;
    frame.SubclassWindow(&top);
    CSplitterWnd_X splitter;
    splitter.ModifyStyle(0, WS_VSCROLL | WS_HSCROLL);
    QCOMPARE(splitter.CreateStatic(&frame, 1, 2), 1);
    auto* const imp = splitter.Imp<QSplitter>();
    QCOMPARE(imp->count(), 0);
    splitter.ShowScrollBar(SB_BOTH, TRUE);
    splitter.EnableScrollBar(SB_VERT, ESB_ENABLE_BOTH);
    splitter.EnableScrollBarCtrl(SB_HORZ, TRUE);
    EnableScrollBar_X(imp, SB_VERT, ESB_ENABLE_BOTH);
    QCOMPARE(splitter.SetMenu(nullptr), 0);
    CMenu_X menu(imp);
    QCOMPARE(splitter.SetMenu(&menu), 0);
    QCOMPARE(splitter.SetMenu({&menu}), 0);
    QCOMPARE(imp->count(), 0);
    QVERIFY(!splitter.GetScrollBarCtrl(SB_VERT) && !splitter.GetScrollBarCtrl(SB_HORZ));
    splitter.DestroyWindow();

    CSplitterWnd_X styled;
    QCOMPARE(styled.Create(WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, CRect(0, 0, 200, 100), &frame), 1);
    QCOMPARE(styled.Imp<QSplitter>()->count(), 0);
    styled.DestroyWindow();

    // Nor in a wrapper of another class.
    QSplitter plain(&top);
    CWnd_X window;
    window.ModifyStyle(0, WS_VSCROLL);
    window.SubclassWindow(&plain);
    window.ShowScrollBar(SB_BOTH);
    QCOMPARE(plain.count(), 0);
}

void tst_SplitterColumns::aBoxAndAMenuAreNoColumns()
{
    Stage<> stage(2);
    const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
        QCOMPARE(stage.imp()->count(), 2);
        box->accept();
    });
    stage.splitter.MessageBox(L"text");
    QVERIFY(driver.hasActed());
    stage.splitter.SetTimer(77, 100000);
    stage.splitter.KillTimer(77);
    const CMenu_X menu(stage.imp());
    QCOMPARE(stage.imp()->count(), 2);
}

XE_TEST(tst_SplitterColumns)
#include "tst_splittercolumns.moc"
