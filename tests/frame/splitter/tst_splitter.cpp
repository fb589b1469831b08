// The columns of a splitter: how they are made, and how wide they are.

#include "leavenothing.h"
#include "modaldriver.h"
#include "testclass.h"

#include <xeafxdlg.h>
#include <xeafxframe.h>
#include <xeafxmenu.h>

#include <QMessageBox>

namespace {

/// A view that is made by the splitter, or refuses to be.
class View : public CWnd_X
{
public:
    using CWnd_X::Create;
    int Create(QWidget* parent) override
    {
        madeIn = parent;
        return refuses ? 0 : CWnd_X::Create(parent);
    }

    QWidget* madeIn = nullptr;
    bool refuses = false;
};

using Widths = QList<int>;

/// A splitter with wrapped panes in a window 600 wide.
template <class Splitter = CSplitterWnd_X>
struct Stage
{
    explicit Stage(int count, bool shown = true)
    {
        top.resize(600, 200);
        frame.SubclassWindow(&top);
        splitter.CreateStatic(&frame, 1, count);
        for (int i = 0; i < count; ++i)
            splitter.CreateView(0, i, &views[i]);
        splitter.MoveWindow(0, 0, 600, 200);
        if (shown)
            show();
    }

    void show()
    {
        splitter.ShowWindow(SW_SHOW);
        top.show();
        QVERIFY(QTest::qWaitForWindowExposed(&top));
    }

    QSplitter* imp() const { return splitter.template Imp<QSplitter>(); }

    /// As they are once all has been laid out.
    Widths widths() const
    {
        QCoreApplication::sendPostedEvents();
        Widths result;
        for (int i = 0; i < imp()->count(); ++i)
            result += imp()->widget(i)->width();
        return result;
    }

    QWidget top;
    CWnd_X frame;
    Splitter splitter;
    View views[4];
};

} // namespace

class tst_Splitter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aSplitterIsMadeHidden();
    void createStaticRefuses_data();
    void createStaticRefuses();
    void aRefusalLeavesTheColumns();
    void createStaticAgainMakesANewSplitter();

    void viewsAreMadeInTheSplitter();
    void aViewWithAWidgetMovesIn();
    void aDialogBecomesAPart();
    void createViewRefuses();
    void aViewThatCannotBeMade();
    void aSplitterIsNotItsOwnPane();
    void viewsAreInsertedWhereTheyAreTold();
    void splittersNest();

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

void tst_Splitter::aSplitterIsMadeHidden()
{
    QWidget top;
    top.resize(200, 200);
    top.show();
    CWnd_X frame;
    frame.SubclassWindow(&top);
    CSplitterWnd_X splitter;
    QCOMPARE(splitter.m_nRows, 1);
    QCOMPARE(splitter.m_nCols, 1);
    QCOMPARE(splitter.CreateStatic(&frame, 2, 3), 1);
    QCOMPARE(splitter.m_nRows, 1);
    QCOMPARE(splitter.m_nCols, 3);
    QCOMPARE(splitter.GetSafeHwnd()->parentWidget(), &top);
    QVERIFY(!splitter.IsWindowVisible());
    QCOMPARE(splitter.Imp<QSplitter>()->orientation(), Qt::Horizontal);
    QCOMPARE(splitter.Imp<QSplitter>()->count(), 0);
    splitter.DestroyWindow();
    frame.Detach();
}

void tst_Splitter::createStaticRefuses_data()
{
    QTest::addColumn<bool>("hasParent");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::newRow("no parent") << false << 1 << 2;
    QTest::newRow("no row") << true << 0 << 2;
    QTest::newRow("no column") << true << 1 << 0;
    QTest::newRow("negative rows") << true << -1 << 2;
    QTest::newRow("negative columns") << true << 1 << -1;
}

void tst_Splitter::createStaticRefuses()
{
    QFETCH(bool, hasParent);
    QFETCH(int, rows);
    QFETCH(int, columns);
    QWidget top;
    CWnd_X frame;
    frame.SubclassWindow(&top);
    CSplitterWnd_X splitter;
    QCOMPARE(splitter.CreateStatic(hasParent ? &frame : nullptr, rows, columns), 0);
    QCOMPARE(splitter.GetSafeHwnd(), nullptr);
    QCOMPARE(splitter.m_nCols, 1);
}

void tst_Splitter::aRefusalLeavesTheColumns()
{
    class Refusing : public CSplitterWnd_X
    {
    public:
        int OnCreate(tagCREATESTRUCTW*) override { return -1; }
    };
    QWidget top;
    CWnd_X frame;
    frame.SubclassWindow(&top);
    Refusing splitter;
    QCOMPARE(splitter.CreateStatic(&frame, 1, 2), 0);
    QCOMPARE(splitter.GetSafeHwnd(), nullptr);
    QCOMPARE(splitter.m_nCols, 1);
    QCOMPARE(splitter.CreateView(0, 0, &frame), 0);
}

void tst_Splitter::createStaticAgainMakesANewSplitter()
{
    Stage<> stage(2);
    const QPointer<QWidget> first = stage.splitter.GetSafeHwnd();
    QCOMPARE(stage.splitter.CreateStatic(&stage.frame, 1, 4), 1);
    QVERIFY(stage.splitter.GetSafeHwnd() != first);
    QCOMPARE(stage.splitter.m_nCols, 4);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    QCOMPARE(stage.views[0].GetSafeHwnd(), nullptr);
}

void tst_Splitter::viewsAreMadeInTheSplitter()
{
    Stage<> stage(2);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(stage.views[i].madeIn, stage.imp());
        QCOMPARE(stage.views[i].GetParent(), static_cast<CWnd_X*>(&stage.splitter));
        QCOMPARE(stage.imp()->indexOf(stage.views[i].GetSafeHwnd()), i);
        QVERIFY(stage.views[i].GetSafeHwnd()->isVisible());
    }
    QCOMPARE(stage.imp()->count(), 2);
}

void tst_Splitter::aViewWithAWidgetMovesIn()
{
    Stage<> stage(1);
    CWnd_X view;
    view.Create(0, &stage.frame);
    QWidget* const widget = view.GetSafeHwnd();
    QCOMPARE(stage.splitter.CreateView(0, 0, &view), 1);
    QCOMPARE(view.GetSafeHwnd(), widget);
    QCOMPARE(widget->parentWidget(), stage.imp());
    QCOMPARE(view.GetParent(), static_cast<CWnd_X*>(&stage.splitter));
    QCOMPARE(stage.imp()->indexOf(widget), 0);
    QVERIFY(widget->isVisible());
}

void tst_Splitter::aDialogBecomesAPart()
{
    Stage<> stage(1);
    CDialog_X made(static_cast<QWidget*>(nullptr));
    QCOMPARE(stage.splitter.CreateView(0, 0, &made), 1);
    QVERIFY(!made.GetSafeHwnd()->isWindow());
    QVERIFY(made.GetSafeHwnd()->isVisible());
    QCOMPARE(stage.imp()->indexOf(made.GetSafeHwnd()), 0);

    QDialog form;
    CDialog_X wrapped(static_cast<QWidget*>(nullptr));
    wrapped.SubclassWindow(&form);
    QCOMPARE(stage.splitter.CreateView(0, 0, &wrapped), 1);
    QVERIFY(!form.isWindow());
    QCOMPARE(stage.imp()->indexOf(&form), 0);
    QCOMPARE(stage.imp()->count(), 3);
    form.setParent(nullptr);
}

void tst_Splitter::createViewRefuses()
{
    Stage<> stage(2);
    View view;
    QCOMPARE(stage.splitter.CreateView(1, 0, &view), 0);
    QCOMPARE(stage.splitter.CreateView(-1, 0, &view), 0);
    QCOMPARE(stage.splitter.CreateView(0, 2, &view), 0);
    QCOMPARE(stage.splitter.CreateView(0, -1, &view), 0);
    QCOMPARE(stage.splitter.CreateView(0, 0, nullptr), 0);
    QCOMPARE(view.madeIn, nullptr);
    CSplitterWnd_X none;
    QCOMPARE(none.CreateView(0, 0, &view), 0);
    QCOMPARE(view.madeIn, nullptr);
    QCOMPARE(stage.imp()->count(), 2);
}

void tst_Splitter::aViewThatCannotBeMade()
{
    Stage<> stage(1);
    View refusing;
    refusing.refuses = true;
    QCOMPARE(stage.splitter.CreateView(0, 0, &refusing), 0);
    QCOMPARE(stage.imp()->count(), 1);

    class Empty : public CWnd_X
    {
    public:
        using CWnd_X::Create;
        int Create(QWidget*) override { return 1; }
    } empty;
    QCOMPARE(stage.splitter.CreateView(0, 0, &empty), 0);

    class Ending : public CWnd_X
    {
    public:
        using CWnd_X::Create;
        int Create(QWidget* parent) override
        {
            const int result = CWnd_X::Create(static_cast<QWidget*>(nullptr));
            delete parent;
            return result;
        }
    } ending;
    QCOMPARE(stage.splitter.CreateView(0, 0, &ending), 0);
    QCOMPARE(stage.splitter.GetSafeHwnd(), nullptr);
    ending.DestroyWindow();
}

void tst_Splitter::aSplitterIsNotItsOwnPane()
{
    Stage<> stage(2);
    QCOMPARE(stage.splitter.CreateView(0, 0, &stage.splitter), 0);
    QCOMPARE(stage.splitter.CreateView(0, 0, &stage.frame), 0);
    QCOMPARE(stage.splitter.GetSafeHwnd()->parentWidget(), &stage.top);
    QCOMPARE(stage.imp()->count(), 2);
}

void tst_Splitter::viewsAreInsertedWhereTheyAreTold()
{
    Stage<> stage(3);
    CWnd_X extra;
    QCOMPARE(stage.splitter.CreateView(0, 1, &extra), 1); // moves what is there to the right
    const QWidget* const expected[] = {stage.views[0].GetSafeHwnd(), extra.GetSafeHwnd(), stage.views[1].GetSafeHwnd(),
                                       stage.views[2].GetSafeHwnd()};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(static_cast<const QWidget*>(stage.imp()->widget(i)), expected[i]);
    QCOMPARE(stage.splitter.m_nCols, 3);

    // The same view again is moved.
    QCOMPARE(stage.splitter.CreateView(0, 0, &extra), 1);
    QCOMPARE(stage.imp()->indexOf(extra.GetSafeHwnd()), 0);
    QCOMPARE(stage.imp()->count(), 4);

    Stage<> empty(0);
    empty.splitter.CreateStatic(&empty.frame, 1, 3);
    CWnd_X last;
    QCOMPARE(empty.splitter.CreateView(0, 2, &last), 1);
    QCOMPARE(empty.imp()->indexOf(last.GetSafeHwnd()), 0);
}

void tst_Splitter::splittersNest()
{
    class Inner : public CSplitterWnd_X
    {
    public:
        using CSplitterWnd_X::Create;
        int Create(QWidget* parent) override { return CreateStatic(FromHandle(parent), 1, 2); }
    } inner;
    View left;
    View right;
    Stage<> stage(1);
    QCOMPARE(stage.splitter.CreateView(0, 0, &inner), 1);
    QCOMPARE(inner.CreateView(0, 0, &left), 1);
    QCOMPARE(inner.CreateView(0, 1, &right), 1);
    QCOMPARE(stage.imp()->count(), 2);
    QCOMPARE(inner.Imp<QSplitter>()->count(), 2);
    QVERIFY(right.GetSafeHwnd()->isVisible());
}

void tst_Splitter::paneOfAColumn()
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

void tst_Splitter::aForeignSplitter()
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

void tst_Splitter::columnInfo()
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

void tst_Splitter::aColumnGetsItsWidth_data()
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

void tst_Splitter::aColumnGetsItsWidth()
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

void tst_Splitter::negativeWidthsAreZero()
{
    Stage<> stage(2);
    stage.splitter.SetColumnInfo(0, 100, -5);
    QCOMPARE(stage.views[0].GetSafeHwnd()->minimumWidth(), 0);
    QCOMPARE(stage.views[0].GetSafeHwnd()->maximumWidth(), 100);
    stage.splitter.SetColumnInfo(1, -100, 0);
    QCOMPARE(stage.views[1].GetSafeHwnd()->maximumWidth(), 0);
}

// There is no room for them, and there will be.
void tst_Splitter::noOtherColumnCollapses()
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

void tst_Splitter::aHiddenPaneKeepsItsWidth()
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

void tst_Splitter::aCollapsedPaneStaysSo()
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

void tst_Splitter::nothingElseIsAColumn()
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

void tst_Splitter::aBoxAndAMenuAreNoColumns()
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

XE_TEST(tst_Splitter)
#include "tst_splitter.moc"
