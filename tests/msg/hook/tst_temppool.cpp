#include "hook/idle.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>
#include <xehook.h>
#include <xeprocess.h>

#include <QTimer>

namespace {

// What the host's function says, and how often it was asked.
bool commandActive = false;
int questions = 0;

bool isCommandActive()
{
    ++questions;
    return commandActive;
}

/// The host's main window with the property that says whether a command runs.
class HostFrame : public QWidget
{
public:
    explicit HostFrame(bool active)
    {
        commandActive = active;
        questions = 0;
        setObjectName("CTavoMainFrame");
        setProperty("IsTavoCmdActive", qlonglong(reinterpret_cast<quintptr>(&isCommandActive)));
    }
};

/// Writes its name when it is deleted, and does what the test asks.
class Mortal : public QObject
{
public:
    Mortal(QStringList& log, const QString& name, std::function<void()> lastWish = {})
        : m_log(log),
          m_lastWish(std::move(lastWish))
    {
        setObjectName(name);
    }
    ~Mortal() override
    {
        m_log += objectName();
        if (m_lastWish)
            m_lastWish();
    }

private:
    QStringList& m_log;
    std::function<void()> m_lastWish;
};

} // namespace

/// A pool that counts the idle moments it is told of.
class CountingPool : public QGlobalEventHandler
{
    Q_OBJECT

public:
    int idles = 0;

public Q_SLOTS:
    void OnEnterIdle()
    {
        ++idles;
        QGlobalEventHandler::OnEnterIdle();
    }
};

/// The pool of temporary objects, and the idle moments it hears of.
class tst_TempPool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void temporaryWrapperGoesAtIdle();
    void permanentWrapperStays();
    void temporaryWrapperOutlivesItsWidget();
    void wrappersSurviveIdleWhileACommandRuns();
    void hostsWithoutARunningCommand_data();
    void hostsWithoutARunningCommand();
    void onlyATopLevelFrameIsAsked();
    void clearDeletesWhateverTheHostDoes();
    void objectsGoInTheOrderTheyCame();
    void anObjectMayBeDeletedByHandBefore();
    void anObjectMayBeHandedInTwice();
    void nullIsSkipped();
    void aDestructorMayHandInMore();
    void aDestructorMayClearThePool();
    void aDestructorMayDeleteItsNeighbour();
    void theHostIsAskedOnlyWhileThePoolHoldsSomething();
    void aPoolHearsOfIdleOnlyWhileItHoldsSomething();
    void aPoolKeepsHearingAfterANewStart();
    void aDyingHandlerDeletesWhatItHolds();
};

void tst_TempPool::init()
{
    commandActive = false;
    questions = 0;
}

void tst_TempPool::cleanup()
{
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY2(!DisconnectIdleSlot(GetGlobalEventHandler()), "the empty pool is still connected");
}

void tst_TempPool::temporaryWrapperGoesAtIdle()
{
    HostFrame frame(false);
    QWidget widget;
    const QPointer<CWnd_X> wrapper(CWnd_X::FromHandle(&widget));
    QVERIFY(wrapper);
    QVERIFY(wrapper->IsTemporary());
    QCOMPARE(CWnd_X::FromHandle(&widget), wrapper.data());
    idle();
    QVERIFY(!wrapper);
    QCOMPARE(CWnd_X::FromHandlePermanent(&widget), static_cast<CWnd_X*>(nullptr));
    QCOMPARE(questions, 1);
}

void tst_TempPool::permanentWrapperStays()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(CWnd_X::FromHandle(&widget), &window);
    QVERIFY(!window.IsTemporary());
    idle();
    QCOMPARE(CWnd_X::FromHandlePermanent(&widget), &window);
}

void tst_TempPool::temporaryWrapperOutlivesItsWidget()
{
    auto* widget = new QWidget;
    const QPointer<CWnd_X> wrapper(CWnd_X::FromHandle(widget));
    delete widget;
    QVERIFY(wrapper);
    QCOMPARE(wrapper->GetSafeHwnd(), static_cast<QWidget*>(nullptr));
    idle();
    QVERIFY(!wrapper);
}

void tst_TempPool::wrappersSurviveIdleWhileACommandRuns()
{
    HostFrame frame(true);
    QWidget widget;
    const QPointer<CWnd_X> wrapper(CWnd_X::FromHandle(&widget));
    idle(25);
    QVERIFY(wrapper);
    QCOMPARE(CWnd_X::FromHandle(&widget), wrapper.data());
    QCOMPARE(questions, 25);

    commandActive = false;
    idle();
    QVERIFY(!wrapper);
    QCOMPARE(questions, 26);
}

void tst_TempPool::hostsWithoutARunningCommand_data()
{
    QTest::addColumn<QString>("windowName");
    QTest::addColumn<QVariant>("property");

    const auto active = qlonglong(reinterpret_cast<quintptr>(&isCommandActive));
    QTest::newRow("there is no main frame") << "SomeWindow" << QVariant(active);
    QTest::newRow("the name differs by its case") << "ctavomainframe" << QVariant(active);
    QTest::newRow("the main frame has no such property") << "CTavoMainFrame" << QVariant();
    QTest::newRow("the address is null") << "CTavoMainFrame" << QVariant(0ll);
    QTest::newRow("the property is no number") << "CTavoMainFrame" << QVariant("soon");
}

void tst_TempPool::hostsWithoutARunningCommand()
{
    QFETCH(QString, windowName);
    QFETCH(QVariant, property);
    commandActive = true;
    QWidget window;
    window.setObjectName(windowName);
    window.setProperty("IsTavoCmdActive", property);
    const QPointer<QObject> object(new QObject);
    AppendTempObjectPool(object);
    idle();
    QVERIFY(!object);
    QCOMPARE(questions, 0);
}

void tst_TempPool::onlyATopLevelFrameIsAsked()
{
    HostFrame frame(true);
    QWidget window;
    frame.setParent(&window);
    const QPointer<QObject> object(new QObject);
    AppendTempObjectPool(object);
    idle();
    QVERIFY(!object);
    QCOMPARE(questions, 0);
    frame.setParent(nullptr);
}

void tst_TempPool::clearDeletesWhateverTheHostDoes()
{
    for (const bool active : {true, false}) {
        HostFrame frame(active);
        QStringList log;
        AppendTempObjectPool(new Mortal(log, "a"));
        AppendTempObjectPool(new Mortal(log, "b"));
        ClearTempObjectPool();
        QCOMPARE(log.join(' '), QString("a b"));
        QCOMPARE(questions, 0);
        ClearTempObjectPool();
        QCOMPARE(log.join(' '), QString("a b"));
    }
}

void tst_TempPool::objectsGoInTheOrderTheyCame()
{
    QStringList log;
    for (const char* name : {"c", "a", "d", "b"})
        AppendTempObjectPool(new Mortal(log, name));
    QCOMPARE(log.join(' '), QString());
    idle();
    QCOMPARE(log.join(' '), QString("c a d b"));
}

void tst_TempPool::anObjectMayBeDeletedByHandBefore()
{
    QStringList log;
    auto* early = new Mortal(log, "early");
    AppendTempObjectPool(new Mortal(log, "a"));
    AppendTempObjectPool(early);
    AppendTempObjectPool(new Mortal(log, "b"));
    delete early;
    idle();
    QCOMPARE(log.join(' '), QString("early a b"));
}

void tst_TempPool::anObjectMayBeHandedInTwice()
{
    QStringList log;
    auto* object = new Mortal(log, "a");
    AppendTempObjectPool(object);
    AppendTempObjectPool(object);
    ClearTempObjectPool();
    QCOMPARE(log.join(' '), QString("a"));
}

void tst_TempPool::nullIsSkipped()
{
    QStringList log;
    AppendTempObjectPool(nullptr);
    AppendTempObjectPool(new Mortal(log, "a"));
    AppendTempObjectPool(nullptr);
    AppendTempObjectPool(new Mortal(log, "b"));
    idle();
    QCOMPARE(log.join(' '), QString("a b"));
    AppendTempObjectPool(nullptr);
    ClearTempObjectPool();
}

void tst_TempPool::aDestructorMayHandInMore()
{
    QStringList log;
    const auto handInMore = [&log] { AppendTempObjectPool(new Mortal(log, "late")); };
    AppendTempObjectPool(new Mortal(log, "a", handInMore));
    AppendTempObjectPool(new Mortal(log, "b"));
    ClearTempObjectPool();
    QCOMPARE(log.join(' '), QString("a b late"));
    // Also when the list was empty at that moment.
    AppendTempObjectPool(new Mortal(log, "c", handInMore));
    ClearTempObjectPool();
    QCOMPARE(log.join(' '), QString("a b late c late"));
}

void tst_TempPool::aDestructorMayClearThePool()
{
    QStringList log;
    AppendTempObjectPool(new Mortal(log, "a", [] { ClearTempObjectPool(); }));
    AppendTempObjectPool(new Mortal(log, "b", [] { ClearTempObjectPool(); }));
    AppendTempObjectPool(new Mortal(log, "c"));
    idle();
    QCOMPARE(log.join(' '), QString("a b c"));
}

void tst_TempPool::aDestructorMayDeleteItsNeighbour()
{
    QStringList log;
    auto* neighbour = new Mortal(log, "b");
    AppendTempObjectPool(new Mortal(log, "a", [neighbour] { delete neighbour; }));
    AppendTempObjectPool(neighbour);
    AppendTempObjectPool(new Mortal(log, "c"));
    ClearTempObjectPool();
    QCOMPARE(log.join(' '), QString("a b c"));
}

void tst_TempPool::theHostIsAskedOnlyWhileThePoolHoldsSomething()
{
    HostFrame frame(true);
    idle(3);
    QCOMPARE(questions, 0);
    AppendTempObjectPool(new QObject);
    AppendTempObjectPool(new QObject);
    idle(3);
    QCOMPARE(questions, 3);
    ClearTempObjectPool();
    idle(3);
    QCOMPARE(questions, 3);
}

void tst_TempPool::aPoolHearsOfIdleOnlyWhileItHoldsSomething()
{
    CountingPool pool;
    QStringList log;
    idle(2);
    QCOMPARE(pool.idles, 0);
    pool.AppendTempObject(new Mortal(log, "a"));
    pool.AppendTempObject(new Mortal(log, "b"));
    idle(3);
    QCOMPARE(log.join(' '), QString("a b"));
    QCOMPARE(pool.idles, 1);
    pool.AppendTempObject(new Mortal(log, "c"));
    pool.RemoveTempObject();
    idle(2);
    QCOMPARE(log.join(' '), QString("a b c"));
    QCOMPARE(pool.idles, 1);
}

void tst_TempPool::aPoolKeepsHearingAfterANewStart()
{
    CountingPool pool;
    QStringList log;
    const auto handInMore = [&] {
        pool.RemoveTempObject();
        pool.AppendTempObject(new Mortal(log, "late"));
    };
    pool.AppendTempObject(new Mortal(log, "a", handInMore));
    idle(2);
    QCOMPARE(log.join(' '), QString("a late"));
    pool.AppendTempObject(new Mortal(log, "b"));
    idle();
    QCOMPARE(log.join(' '), QString("a late b"));
}

void tst_TempPool::aDyingHandlerDeletesWhatItHolds()
{
    QStringList log;
    const QPointer<QTimer> timer(new QTimer);
    {
        QGlobalEventHandler handler;
        handler.AppendTempObject(new Mortal(log, "a"));
        handler.AppendTempObject(new Mortal(log, "b"));
        handler.timers[7] = timer;
        handler.timers[9] = nullptr;
    }
    QCOMPARE(log.join(' '), QString("a b"));
    QVERIFY(!timer);
}

XE_TEST(tst_TempPool)
#include "tst_temppool.moc"
