#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <thread>

// The events that a window is sent or posted: whose they are, in which order they come, and which come once.

namespace {

constexpr auto countedType = static_cast<QEvent::Type>(QEvent::User + 900);

class CountedEvent : public QEvent
{
public:
    explicit CountedEvent(Type type = countedType) : QEvent(type) {}
    ~CountedEvent() override { ++deaths; }

    static inline int deaths = 0;
};

} // namespace

class tst_PostedEvents : public QObject
{
    Q_OBJECT

private slots:
    void init() { CountedEvent::deaths = 0; }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void noWidget();
    void targetGoesBeforeDelivery();
    void sentEventStaysTheCallers();

    void uniqueEventRefusesItsType();
    void uniqueTypesAreIndependent();
    void otherEventsDoNotCount();
    void uniqueMessagesAreOneType();
    void uniqueTypeIsTakenWhileItIsHandled();
    void uniqueTypeIsFreeAfterScreening();
    void uniqueEventsOfTwoWindows();
    void uniqueTypeIsFreeOnAnotherWidget();
    void uniqueTypeIsFreeAfterTheWidgetIsGone();
    void priorities();
    void wrapperGoesBeforeItsEvents();

    void eventsFromAnotherThread();
};

void tst_PostedEvents::noWidget()
{
    ScriptWindow window;
    window.on<WM_USER>([](WPARAM, LPARAM) { return 5; });
    CountedEvent event;
    QCOMPARE(window.SendMessage(WM_USER, 0, 0), 0);
    QCOMPARE(window.PostMessage(WM_USER, 0, 0), 0);
    QVERIFY(!window.SendEvent(&event));
    QVERIFY(!window.PostEvent(&event, 0, false));
    QVERIFY(!window.PostEvent(&event, 0, true));
    QVERIFY(!window.PostEvent(&event, 0, true)); // nor does it wait
    QVERIFY(!window.SendEvent(nullptr));
    QVERIFY(!window.PostEvent(nullptr, 0, true));
    QCOMPARE(CountedEvent::deaths, 0);
    QVERIFY(window.trace.isEmpty());
}

void tst_PostedEvents::targetGoesBeforeDelivery()
{
    auto widget = std::make_unique<QWidget>();
    ScriptWindow window(widget.get());
    QCOMPARE(window.PostMessage(WM_USER, 0, 0), 1);
    QVERIFY(window.PostEvent(new CountedEvent, 0, false));
    widget.reset();
    QCOMPARE(CountedEvent::deaths, 1);
    deliverPosted();
    QVERIFY(window.trace.isEmpty());
}

void tst_PostedEvents::sentEventStaysTheCallers()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_CLOSE>([] {});
    CountedEvent event;
    QCloseEvent consumed;
    QVERIFY(window.SendEvent(&event));
    QVERIFY(window.SendEvent(&consumed));
    QVERIFY(!window.SendEvent(nullptr));
    QVERIFY(!window.PostEvent(nullptr, 0, false));
    QCOMPARE(widget.count(countedType), 1);
    QCOMPARE(CountedEvent::deaths, 0);
}

// ----------------------------------------------------------------------------------------------- unique events

void tst_PostedEvents::uniqueEventRefusesItsType()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    QCOMPARE(CountedEvent::deaths, 1);
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    QCOMPARE(CountedEvent::deaths, 2);
    deliverPosted();
    QCOMPARE(widget.count(countedType), 1);
    QCOMPARE(CountedEvent::deaths, 3);
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(widget.count(countedType), 2);
    QCOMPARE(CountedEvent::deaths, 4);
}

void tst_PostedEvents::uniqueTypesAreIndependent()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    const auto otherType = static_cast<QEvent::Type>(countedType + 1);
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    QVERIFY(window.PostEvent(new CountedEvent(otherType), 0, true));
    QVERIFY(!window.PostEvent(new CountedEvent(otherType), 0, true));
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(widget.count(countedType), 1);
    QCOMPARE(widget.count(otherType), 1);
}

void tst_PostedEvents::otherEventsDoNotCount()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    QVERIFY(window.PostEvent(new CountedEvent, 0, false));
    QVERIFY(window.PostEvent(new CountedEvent, 0, false));
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    QVERIFY(window.PostEvent(new CountedEvent, 0, false));
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    CountedEvent sent;
    QVERIFY(window.SendEvent(&sent)); // does not free the type either
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(widget.count(countedType), 5);
}

void tst_PostedEvents::uniqueMessagesAreOneType()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QVERIFY(window.PostEvent(new XeWinMsgEvent(WM_USER, 0, 0), 0, true));
    QVERIFY(!window.PostEvent(new XeWinMsgEvent(WM_USER + 1, 0, 0), 0, true));
    deliverPosted();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_USER+0(0x0, 0x0)"));
}

void tst_PostedEvents::uniqueTypeIsTakenWhileItIsHandled()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QVector<bool> accepted;
    const auto post = [&] { accepted += window.PostEvent(new XeWinMsgEvent(WM_USER, 0, 0), 0, true); };
    window.on<WM_USER>([&] {
        window.SendMessage(WM_USER + 1, 0, 0);
        post();
    });
    post();
    deliverPosted();
    post();
    deliverPosted();
    QCOMPARE(accepted, QVector<bool>({true, false, true, false}));
}

void tst_PostedEvents::uniqueTypeIsFreeAfterScreening()
{
    QWidget widget;
    ScreeningWindow window(&widget);
    window.screen = [](tagMSG*) { return 1; };
    for (int i = 0; i < 2; ++i) {
        QVERIFY(window.PostEvent(new XeWinMsgEvent(WM_USER, 0, 0), 0, true));
        deliverPosted();
    }
}

void tst_PostedEvents::uniqueEventsOfTwoWindows()
{
    QWidget one, two;
    ScriptWindow firstWindow(&one), secondWindow(&two);
    QVERIFY(firstWindow.PostEvent(new CountedEvent, 0, true));
    QVERIFY(secondWindow.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(CountedEvent::deaths, 2);
}

void tst_PostedEvents::uniqueTypeIsFreeOnAnotherWidget()
{
    ListeningWidget one, two;
    ScriptWindow window(&one);
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    window.Detach();
    QVERIFY(window.SubclassWindow(&two));
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    QVERIFY(!window.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(one.count(countedType), 1);
    QCOMPARE(two.count(countedType), 1);
    QCOMPARE(CountedEvent::deaths, 3);
}

void tst_PostedEvents::uniqueTypeIsFreeAfterTheWidgetIsGone()
{
    auto widget = std::make_unique<QWidget>();
    ScriptWindow window(widget.get());
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    widget.reset();
    QCOMPARE(CountedEvent::deaths, 1);
    ListeningWidget other;
    QVERIFY(window.SubclassWindow(&other));
    QVERIFY(window.PostEvent(new CountedEvent, 0, true));
    deliverPosted();
    QCOMPARE(other.count(countedType), 1);
}

void tst_PostedEvents::priorities()
{
    QWidget widget;
    ScriptWindow window(&widget);
    const auto post = [&](UINT message, int priority) {
        QVERIFY(window.PostEvent(new XeWinMsgEvent(message, 0, 0), priority, false));
    };
    post(WM_USER + 1, Qt::LowEventPriority);
    post(WM_USER + 2, Qt::NormalEventPriority);
    post(WM_USER + 3, Qt::HighEventPriority);
    window.PostMessage(WM_USER + 4, 0, 0);
    deliverPosted();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_USER+3(0x0, 0x0) WM_USER+2(0x0, 0x0) WM_USER+4(0x0, 0x0) "
                                                 "WM_USER+1(0x0, 0x0)"));
}

void tst_PostedEvents::wrapperGoesBeforeItsEvents()
{
    ListeningWidget widget;
    auto window = std::make_unique<ScriptWindow>(&widget);
    window->on<WM_USER>([] { QFAIL("called"); });
    QVERIFY(window->PostEvent(new CountedEvent, 0, true));
    QVERIFY(window->PostEvent(new CountedEvent, 0, false));
    QCOMPARE(window->PostMessage(WM_USER, 0, 0), 1);
    window.reset();
    deliverPosted();
    QCOMPARE(widget.count(countedType), 2);
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 1);
    QCOMPARE(CountedEvent::deaths, 2);
}

// ----------------------------------------------------------------------------------------------------- threads

void tst_PostedEvents::eventsFromAnotherThread()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    bool posted = false;
    std::thread([&] {
        posted = window.PostEvent(new CountedEvent, 0, false) && window.PostMessage(WM_USER, 0, 0) == 1;
    }).join();
    QVERIFY(posted);
    QTRY_COMPARE(widget.count(countedType), 1);
    QTRY_COMPARE(window.trace.text(), QStringLiteral("WM_USER+0(0x0, 0x0)"));
}

XE_TEST(tst_PostedEvents)
#include "tst_postedevents.moc"
