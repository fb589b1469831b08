// Timers: one map of ids for the process, and what a timer does when it fires, stops and dies.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QTimer>

#include <climits>
#include <functional>

namespace {

struct TimerCall
{
    QWidget* window;
    UINT message;
    UINT_PTR id;
    DWORD seconds;
};

QVector<TimerCall> timerCalls;
std::function<void(const TimerCall&)> inCall; // what a callback does

void CALLBACK record(HWND window, UINT message, UINT_PTR id, DWORD seconds)
{
    timerCalls += {window, message, id, seconds};
    if (inCall)
        inCall(timerCalls.last());
}

void CALLBACK doNothing(HWND, UINT, UINT_PTR, DWORD) {}

QTimer* timerOf(int id)
{
    const auto entry = g_appEventHandler.timers.find(id);
    return entry == g_appEventHandler.timers.end() ? nullptr : entry->second;
}

// Lets the time of a running timer come.
void elapse(int id)
{
    QTimer* const timer = timerOf(id);
    QVERIFY(timer && timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
}

class TimedWidget : public QWidget
{
public:
    QVector<int> ids;

protected:
    void timerEvent(QTimerEvent* event) override { ids += event->timerId(); }
};

class TimedWindow : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = TimedWindow;
        CWnd_X::OnMessageMap();
        ON_WM_TIMER_X()
    }
    void OnTimer(UINT_PTR id) { ids += id; }

    QVector<UINT_PTR> ids;
};

struct TimerHost : QWidget
{
    TimerHost() { setObjectName(QStringLiteral("CTavoMainFrame")); }
};

} // namespace

class tst_Timers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void timerRuns();
    void timerFiresByItself();
    void interval_data();
    void interval();
    void callbackGetsWindowMessageIdAndSeconds();
    void withoutCallbackTheWrapperGetsTheMessage();
    void withoutCallbackAPlainWidgetGetsTheEvent();

    void idIsSharedByAllWindows();
    void sameIntervalLeavesTheTimerAlone();
    void windowOfTheFirstKeepsTheTimer();
    void killing();
    void killingFromAnotherWindow();
    void killingWhileQtShowsTheChildren();
    void unknownIds();

    void callbackMayKillItsTimer();
    void callbackMayChangeItsTimer();
    void callbackMayStartItsTimerAnew();
    void callbackMayDeleteItsWindow();

    void deletedWindowFreesItsIds();
    void deletedParentFreesTheIdsOfItsChildren();
    void idsAreFreeWhenTheWindowSaysThatItIsGone();
    void otherTimersOutliveTheWindow();
    void handDeletedTimerFreesItsId();
    void stoppedTimerIsReplaced();
    void stoppedTimerIsReplacedInItsOwnCallback();
    void stoppedTimerCanBeKilled();

    void mainFrameStandsForNull();
    void noWindowAtAll();
    void windowObject();
};

void tst_Timers::cleanup()
{
    timerCalls.clear();
    inCall = nullptr;
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY(g_appEventHandler.timers.empty());
}

void tst_Timers::timerRuns()
{
    QWidget window;
    QCOMPARE(SetTimer_X(&window, 7, 250, record), UINT_PTR(7));
    QCOMPARE(g_appEventHandler.timers.size(), std::size_t(1));
    QTimer* const timer = timerOf(7);
    QVERIFY(timer);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QCOMPARE(timer->interval(), 250);
    QCOMPARE(timer->parent(), &window);
}

void tst_Timers::timerFiresByItself()
{
    QWidget window;
    SetTimer_X(&window, 7, 1, record);
    QTRY_VERIFY(timerCalls.size() >= 3);
}

void tst_Timers::interval_data()
{
    QTest::addColumn<unsigned>("milliseconds");
    QTest::addColumn<int>("interval");
    QTest::newRow("zero") << 0u << 10;
    QTest::newRow("one") << 1u << 1;
    QTest::newRow("highest") << 2147483647u << INT_MAX;
    QTest::newRow("too high") << 4294967295u << INT_MAX;
}

void tst_Timers::interval()
{
    QFETCH(unsigned, milliseconds);
    QWidget window;
    SetTimer_X(&window, 1, milliseconds, doNothing);
    QTEST(timerOf(1)->interval(), "interval");
    SetTimer_X(&window, 1, 500, doNothing);
    SetTimer_X(&window, 1, milliseconds, doNothing); // of a running one
    QTEST(timerOf(1)->interval(), "interval");
}

void tst_Timers::callbackGetsWindowMessageIdAndSeconds()
{
    QWidget window;
    SetTimer_X(&window, 42, 1000, record);
    const auto before = static_cast<DWORD>(QDateTime::currentSecsSinceEpoch());
    elapse(42);
    const auto after = static_cast<DWORD>(QDateTime::currentSecsSinceEpoch());
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, &window);
    QCOMPARE(timerCalls[0].message, 0x113u);
    QCOMPARE(timerCalls[0].id, UINT_PTR(42));
    QVERIFY(before <= timerCalls[0].seconds && timerCalls[0].seconds <= after);
}

void tst_Timers::withoutCallbackTheWrapperGetsTheMessage()
{
    TimedWidget widget;
    TimedWindow window;
    window.SubclassWindow(&widget);
    SetTimer_X(&widget, 42, 1000, nullptr);
    elapse(42);
    elapse(42);
    QCOMPARE(window.ids, QVector<UINT_PTR>({42, 42}));
    QCOMPARE(widget.ids, QVector<int>());
}

void tst_Timers::withoutCallbackAPlainWidgetGetsTheEvent()
{
    TimedWidget widget;
    SetTimer_X(&widget, 42, 1000, nullptr);
    elapse(42);
    QCOMPARE(widget.ids, QVector<int>({42}));
}

// ----------------------------------------------------------------------------------------------------------------- ids

void tst_Timers::idIsSharedByAllWindows()
{
    QWidget first;
    TimedWidget second;
    QCOMPARE(SetTimer_X(&first, 1, 500, record), UINT_PTR(1));
    QTimer* const timer = timerOf(1);
    QCOMPARE(SetTimer_X(&second, 1, 300, nullptr), UINT_PTR(1));
    QCOMPARE(g_appEventHandler.timers.size(), std::size_t(1));
    QCOMPARE(timerOf(1), timer);
    QCOMPARE(timer->parent(), &first);
    QCOMPARE(timer->interval(), 300); // nothing else has changed
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, &first);
    QCOMPARE(second.ids, QVector<int>());

    SetTimer_X(&second, 2, 300, nullptr);
    QCOMPARE(timerOf(2)->parent(), &second);
}

void tst_Timers::sameIntervalLeavesTheTimerAlone()
{
    QWidget window;
    QVERIFY(QTest::qWaitFor([&window] {
        SetTimer_X(&window, 1, 100, record); // a timer that starts over each time never fires
        return !timerCalls.isEmpty();
    }));
}

void tst_Timers::windowOfTheFirstKeepsTheTimer()
{
    auto first = std::make_unique<QWidget>();
    QWidget second;
    SetTimer_X(first.get(), 1, 500, record);
    SetTimer_X(&second, 1, 500, record);
    first.reset();
    QCOMPARE(timerOf(1), nullptr); // although the second has asked for it
    SetTimer_X(&second, 1, 500, record);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, &second);
}

void tst_Timers::killing()
{
    QWidget window;
    SetTimer_X(&window, 1, 500, record);
    SetTimer_X(&window, 2, 500, record);
    const QPointer<QTimer> timer = timerOf(1);
    QCOMPARE(KillTimer_X(&window, 1), 1);
    QCOMPARE(timerOf(1), nullptr);
    QTRY_VERIFY(!timer);
    QVERIFY(timerOf(2)->isActive());
    QCOMPARE(KillTimer_X(&window, 1), 0);
}

void tst_Timers::killingFromAnotherWindow()
{
    QWidget first;
    QWidget other;
    SetTimer_X(&first, 1, 500, record);
    QCOMPARE(KillTimer_X(&other, 1), 1);
    SetTimer_X(&first, 1, 500, record);
    QCOMPARE(KillTimer_X(nullptr, 1), 1);
    QVERIFY(first.findChildren<QTimer*>().isEmpty());
}

// Qt shows the children from a copy of their list, in which the timer stands behind the child that kills it.
void tst_Timers::killingWhileQtShowsTheChildren()
{
    class Child : public QWidget
    {
    public:
        using QWidget::QWidget;
        void showEvent(QShowEvent*) override { KillTimer_X(nullptr, 1); }
    };
    QWidget window;
    Child child(&window);
    SetTimer_X(&window, 1, 500, record);
    const QPointer<QTimer> timer = timerOf(1);
    window.show();
    QCOMPARE(timerOf(1), nullptr);
    QVERIFY(timer && !timer->isActive());
    QVERIFY(window.findChildren<QTimer*>().isEmpty());
    QTRY_VERIFY(!timer);
}

void tst_Timers::unknownIds()
{
    QWidget window;
    QCOMPARE(KillTimer_X(&window, 1), 0);
    QCOMPARE(KillTimer_X(nullptr, 0), 0);
    SetTimer_X(&window, 0, 500, record);
    QCOMPARE(KillTimer_X(&window, 1), 0);
    QCOMPARE(KillTimer_X(&window, 0), 1);
}

// ----------------------------------------------------------------------------------------------------------- callbacks

void tst_Timers::callbackMayKillItsTimer()
{
    QWidget window;
    int killed = -1;
    inCall = [&killed](const TimerCall& call) { killed = KillTimer_X(call.window, call.id); };
    SetTimer_X(&window, 1, 500, record);
    elapse(1);
    QCOMPARE(killed, 1);
    QCOMPARE(timerOf(1), nullptr);
    QVERIFY(window.findChildren<QTimer*>().isEmpty());
}

void tst_Timers::callbackMayChangeItsTimer()
{
    QWidget window;
    inCall = [](const TimerCall& call) { SetTimer_X(call.window, call.id, 700, doNothing); };
    SetTimer_X(&window, 1, 500, record);
    elapse(1);
    QCOMPARE(timerOf(1)->interval(), 700);
    elapse(1);
    QCOMPARE(timerCalls.size(), 2); // the callback has stayed
}

void tst_Timers::callbackMayStartItsTimerAnew()
{
    TimedWidget window;
    inCall = [](const TimerCall& call) {
        KillTimer_X(call.window, call.id);
        SetTimer_X(call.window, call.id, 700, nullptr);
    };
    SetTimer_X(&window, 1, 500, record);
    elapse(1);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(window.ids, QVector<int>({1}));
}

void tst_Timers::callbackMayDeleteItsWindow()
{
    auto* const window = new QWidget;
    inCall = [](const TimerCall& call) { delete call.window; };
    SetTimer_X(window, 1, 500, record);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerOf(1), nullptr);
}

// ---------------------------------------------------------------------------------------------------------- their ends

void tst_Timers::deletedWindowFreesItsIds()
{
    auto window = std::make_unique<QWidget>();
    SetTimer_X(window.get(), 1, 500, record);
    SetTimer_X(window.get(), 2, 500, record);
    window.reset();
    QVERIFY(g_appEventHandler.timers.empty());
    QCOMPARE(KillTimer_X(nullptr, 1), 0);

    QWidget next;
    QCOMPARE(SetTimer_X(&next, 1, 500, record), UINT_PTR(1));
    QCOMPARE(timerOf(1)->parent(), &next);
}

void tst_Timers::deletedParentFreesTheIdsOfItsChildren()
{
    auto window = std::make_unique<QWidget>();
    SetTimer_X(new QWidget(new QWidget(window.get())), 1, 500, record);
    SetTimer_X(window.get(), 2, 500, record);
    window.reset();
    QVERIFY(g_appEventHandler.timers.empty());
}

void tst_Timers::idsAreFreeWhenTheWindowSaysThatItIsGone()
{
    auto window = std::make_unique<QWidget>();
    QWidget heir;
    SetTimer_X(window.get(), 1, 500, record);
    connect(window.get(), &QObject::destroyed, [&heir] { SetTimer_X(&heir, 1, 500, record); });
    window.reset();
    QVERIFY(timerOf(1));
    QCOMPARE(timerOf(1)->parent(), &heir);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, &heir);
}

void tst_Timers::otherTimersOutliveTheWindow()
{
    QWidget survivor;
    auto window = std::make_unique<QWidget>();
    auto* const hosts = new QTimer(window.get()); // none of the library's
    hosts->start(500);
    SetTimer_X(&survivor, 1, 500, record);
    SetTimer_X(window.get(), 2, 500, record);
    window.reset();
    QCOMPARE(g_appEventHandler.timers.size(), std::size_t(1));
    QVERIFY(timerOf(1)->isActive());
}

void tst_Timers::handDeletedTimerFreesItsId()
{
    QWidget window;
    SetTimer_X(&window, 1, 500, record);
    delete timerOf(1);
    QCOMPARE(timerOf(1), nullptr);
    SetTimer_X(&window, 1, 500, record);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
}

void tst_Timers::stoppedTimerIsReplaced()
{
    QWidget first;
    TimedWidget second;
    SetTimer_X(&first, 1, 500, record);
    const QPointer<QTimer> stopped = timerOf(1);
    stopped->stop();
    QCOMPARE(SetTimer_X(&second, 1, 500, nullptr), UINT_PTR(1));
    QTRY_VERIFY(!stopped);
    QCOMPARE(g_appEventHandler.timers.size(), std::size_t(1));
    QCOMPARE(timerOf(1)->parent(), &second);
    elapse(1);
    QCOMPARE(second.ids, QVector<int>({1}));
    QCOMPARE(timerCalls.size(), 0);
}

void tst_Timers::stoppedTimerIsReplacedInItsOwnCallback()
{
    TimedWidget window;
    inCall = [](const TimerCall& call) {
        timerOf(1)->stop();
        SetTimer_X(call.window, 1, 500, nullptr);
    };
    SetTimer_X(&window, 1, 500, record);
    elapse(1);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(window.ids, QVector<int>({1}));
    QCOMPARE(window.findChildren<QTimer*>().size(), 1);
}

void tst_Timers::stoppedTimerCanBeKilled()
{
    QWidget window;
    SetTimer_X(&window, 1, 500, record);
    timerOf(1)->stop();
    QCOMPARE(KillTimer_X(&window, 1), 1);
    QCOMPARE(timerOf(1), nullptr);
}

// ------------------------------------------------------------------------------------------------------------- windows

void tst_Timers::mainFrameStandsForNull()
{
    TimerHost frame;
    SetTimer_X(nullptr, 1, 500, record);
    QCOMPARE(timerOf(1)->parent(), &frame);
    elapse(1);
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, &frame);
}

void tst_Timers::noWindowAtAll()
{
    QCOMPARE(SetTimer_X(nullptr, 1, 500, record), UINT_PTR(1));
    QCOMPARE(SetTimer_X(nullptr, 2, 500, nullptr), UINT_PTR(2));
    elapse(1);
    elapse(2); // to nobody
    QCOMPARE(timerCalls.size(), 1);
    QCOMPARE(timerCalls[0].window, nullptr);
    QCOMPARE(KillTimer_X(nullptr, 1), 1);
    QCOMPARE(KillTimer_X(nullptr, 2), 1);
}

void tst_Timers::windowObject()
{
    QWidget widget;
    TimedWindow window;
    QCOMPARE(window.SetTimer(1, 500), UINT_PTR(0));
    QCOMPARE(window.KillTimer(1), 0);
    window.SubclassWindow(&widget);
    QCOMPARE(window.SetTimer(1, 500), UINT_PTR(1));
    elapse(1);
    QCOMPARE(window.ids, QVector<UINT_PTR>({1}));
    QCOMPARE(window.KillTimer(1), 1);
}

XE_TEST(tst_Timers)
#include "tst_timers.moc"
