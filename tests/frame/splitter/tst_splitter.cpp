// The columns of a splitter: how they are made, and what comes into them.

#include "leavenothing.h"
#include "splitter/splitterstage.h"
#include "testclass.h"

#include <xeafxdlg.h>
#include <xeafxframe.h>

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

XE_TEST(tst_Splitter)
#include "tst_splitter.moc"
