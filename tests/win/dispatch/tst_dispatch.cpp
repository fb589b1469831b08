#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QCursor>
#include <QLineEdit>
#include <QSlider>

// The event filter of a window: what becomes of an event, and what its handlers see.

namespace {

const QPoint pointerPosition(321, 123);
int pointerQuestions = 0;

} // namespace

// In place of Qt's own, for the library too.
QPoint QCursor::pos()
{
    ++pointerQuestions;
    return pointerPosition;
}

namespace {

using Setup = std::function<void(ScreeningWindow&)>;
using MakeEvent = std::function<QEvent*()>;

QEvent* pressEvent()
{
    return new QMouseEvent(QEvent::MouseButtonPress, {3, 4}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
}

QEvent* wheelEvent()
{
    return new QWheelEvent({5, 6}, {5, 6}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
}

QEvent* closeEvent() { return new QCloseEvent; }

QEvent* messageEvent() { return new XeWinMsgEvent(WM_USER + 1, 2, 3); }

// What the filter says to an event, and whether its accept flag is set afterwards.
QString filterText(CWnd_X& window, QEvent& event)
{
    const bool stopped = window.eventFilter(window.GetSafeHwnd(), &event);
    return (stopped ? QStringLiteral("stopped, ") : QStringLiteral("goes on, "))
           + (event.isAccepted() ? QStringLiteral("accepted") : QStringLiteral("ignored"));
}

void addWheelEntry(CWnd_X& window)
{
    window.AddMsgMapEntry(WM_MOUSEWHEEL, AfxSig_MOUSEWHEEL,
                          XeHandler<BOOL(UINT, short, CPoint)>::of(&CWnd_X::OnMouseWheel), nullptr);
}

void clearFlag(CWnd_X& window) { window.SetCurrentEventAccepted(false); }

class LayoutWindow : public CWnd_X
{
public:
    void RecalcLayout() override { ++layouts; }
    void OnMessageMap() override
    {
        ++maps;
        CWnd_X::OnMessageMap();
        AddMsgMapEntry(WM_USER + 1, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::first),
                       nullptr);
    }
    LRESULT first(WPARAM, LPARAM) { return 1; }
    LRESULT second(WPARAM, LPARAM) { return 2; }
    UINT third(CPoint point) { return static_cast<UINT>(point.x); }

    int layouts = 0;
    int maps = 0;
};

struct HandlerFailure
{
};

} // namespace

Q_DECLARE_METATYPE(Setup)
Q_DECLARE_METATYPE(MakeEvent)

class tst_Dispatch : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void decision_data();
    void decision();
    void resultIsStoredForConsumedMessagesAlone();
    void paintEntryStopsPainting();
    void paintsWithoutEntry();
    void close_data();
    void close();
    void lineEditGetsKeysThatArePassedOn();
    void lineEditGetsNoConsumedKeys();
    void wheelOfTheBaseMovesASlider();
    void characterOfTheBaseIsConsumed();
    void messageWithoutEntry();
    void sizeIsLaidOutAndPassedOn();
    void sizeWithoutTheBaseStopsQt();

    void screenedMessage_data();
    void screenedMessage();
    void screeningStopsEverything();
    void screeningMayChangeTheMessage();
    void screeningSeesSentMessages();
    void timeIsInSeconds();
    void pointerQuestions_data();
    void pointerQuestions();

    void keyRoad();
    void characterComesAfterTheHandlerOfTheKey();
    void clickRoad();

    void laterEntryReplacesSignatureToo();
    void mapIsFilledAtEachAttachment();
    void nullAndForeignEvents();

    void nestedMessage_data();
    void nestedMessage();
    void directDispatchInsideAHandler();
    void acceptFlagOutsideAnEvent();
    void exceptionRestoresTheCurrentEvent();
    void exceptionOfANestedMessage();
    void handlerReplacesItsOwnEntry();
};

void tst_Dispatch::decision_data()
{
    QTest::addColumn<MakeEvent>("makeEvent");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QString>("ifAccepted");
    QTest::addColumn<QString>("ifIgnored");

    const auto row = [](const char* name, MakeEvent makeEvent, Setup setup, const char* ifAccepted,
                        const char* ifIgnored) {
        QTest::newRow(name) << makeEvent << setup << QString::fromLatin1(ifAccepted) << QString::fromLatin1(ifIgnored);
    };
    const Setup nothing = [](ScreeningWindow&) {};
    row("no entry leaves the flag as it was", pressEvent, nothing, "goes on, accepted", "goes on, ignored");
    row("a message without entry likewise", messageEvent, nothing, "goes on, accepted", "goes on, ignored");
    row(
        "a type without message is not touched", [] { return new QFocusEvent(QEvent::FocusIn); }, nothing,
        "goes on, accepted", "goes on, ignored");
    row(
        "a handler that does nothing consumes", pressEvent, [](ScreeningWindow& w) { w.on<WM_LBUTTONDOWN>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handler that clears the flag passes on", pressEvent,
        [](ScreeningWindow& w) { w.on<WM_LBUTTONDOWN>([&w] { clearFlag(w); }); }, "goes on, ignored",
        "goes on, ignored");
    row(
        "a handler may set the flag again", pressEvent,
        [](ScreeningWindow& w) {
            w.on<WM_LBUTTONDOWN>([&w] {
                clearFlag(w);
                w.SetCurrentEventAccepted(true);
            });
        },
        "stopped, accepted", "stopped, accepted");
    row("a wheel passed up leaves the flag as it was", wheelEvent, addWheelEntry, "goes on, accepted",
        "goes on, ignored");
    row(
        "an entry that swallows consumes", pressEvent,
        [](ScreeningWindow& w) { w.AddMsgMapEntry(WM_LBUTTONDOWN, AfxSig_b_D_v, nullptr, nullptr); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a null handler consumes", pressEvent,
        [](ScreeningWindow& w) { w.AddMsgMapEntry(WM_LBUTTONDOWN, AfxSig_v_u_p, nullptr, nullptr); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handled message is consumed", messageEvent, [](ScreeningWindow& w) { w.on<WM_USER + 1>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a screened event is consumed", pressEvent, [](ScreeningWindow& w) { w.screen = [](tagMSG*) { return -1; }; },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handled close is consumed", closeEvent, [](ScreeningWindow& w) { w.on<WM_CLOSE>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a close with the flag cleared is refused", closeEvent,
        [](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { clearFlag(w); }); }, "stopped, ignored", "stopped, ignored");
    row("a close without entry goes on", closeEvent, nothing, "goes on, accepted", "goes on, ignored");
}

void tst_Dispatch::decision()
{
    QFETCH(MakeEvent, makeEvent);
    QFETCH(Setup, setup);
    QFETCH(QString, ifAccepted);
    QFETCH(QString, ifIgnored);
    QWidget widget;
    ScreeningWindow window(&widget);
    setup(window);
    const std::unique_ptr<QEvent> event(makeEvent());

    event->setAccepted(true);
    QCOMPARE(filterText(window, *event), ifAccepted);
    event->setAccepted(false);
    QCOMPARE(filterText(window, *event), ifIgnored);
    QCoreApplication::removePostedEvents(&widget);
}

void tst_Dispatch::resultIsStoredForConsumedMessagesAlone()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 0x123456789ABC; });
    window.on<WM_USER + 2>([&](WPARAM, LPARAM) {
        clearFlag(window);
        return 5;
    });
    XeWinMsgEvent consumed(WM_USER + 1, 0, 0), passedOn(WM_USER + 2, 0, 0), unknown(WM_USER + 3, 0, 0);
    unknown.result = 7;
    for (XeWinMsgEvent* event : {&consumed, &passedOn, &unknown})
        window.eventFilter(&widget, event);
    QCOMPARE(consumed.result, 0x123456789ABC);
    QCOMPARE(passedOn.result, 0);
    QCOMPARE(unknown.result, 7);
}

void tst_Dispatch::paintEntryStopsPainting()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_PAINT>([] {});
    widget.grab();
    QCOMPARE(widget.count(QEvent::Paint), 0);
}

void tst_Dispatch::paintsWithoutEntry()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    widget.grab();
    QCOMPARE(widget.count(QEvent::Paint), 1);
    QVERIFY(window.trace.text().contains(QLatin1String("WM_PAINT(0x0, 0x0)")));

    QPaintEvent event{QRect(0, 0, 1, 1)};
    QVERIFY(!window.eventFilter(&widget, &event));
}

void tst_Dispatch::close_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<int>("seenByWidget");
    QTest::newRow("no entry") << Setup([](ScreeningWindow&) {}) << true << 1;
    QTest::newRow("a handler that does nothing")
        << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([] {}); }) << true << 0;
    QTest::newRow("the base handler") << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { w.OnClose(); }); })
                                      << true << 0;
    QTest::newRow("a handler that refuses")
        << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { clearFlag(w); }); }) << false << 0;
    QTest::newRow("screened") << Setup([](ScreeningWindow& w) {
        w.screen = [](tagMSG* message) { return int(message->message == WM_CLOSE); };
    }) << true << 0;
}

void tst_Dispatch::close()
{
    QFETCH(Setup, setup);
    QFETCH(bool, closed);
    QFETCH(int, seenByWidget);
    ListeningWidget widget;
    widget.show();
    ScreeningWindow window(&widget);
    setup(window);
    QCOMPARE(widget.close(), closed);
    QCOMPARE(widget.isVisible(), !closed);
    QCOMPARE(widget.count(QEvent::Close), seenByWidget);
}

void tst_Dispatch::lineEditGetsKeysThatArePassedOn()
{
    QLineEdit edit;
    ScriptWindow window(&edit);
    window.on<WM_KEYDOWN>([&] { window.OnKeyDown(0, 1, 0); });
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QCOMPARE(edit.text(), QStringLiteral("ab"));
    QCoreApplication::processEvents();
    QCOMPARE(edit.text(), QStringLiteral("ab"));
}

void tst_Dispatch::lineEditGetsNoConsumedKeys()
{
    QLineEdit edit;
    ScriptWindow window(&edit);
    window.on<WM_KEYDOWN>([] {});
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QCOMPARE(edit.text(), QString());
}

void tst_Dispatch::wheelOfTheBaseMovesASlider()
{
    QSlider slider;
    slider.setValue(50);
    ScriptWindow window(&slider);
    addWheelEntry(window);
    const std::unique_ptr<QEvent> event(wheelEvent());
    QVERIFY(QCoreApplication::sendEvent(&slider, event.get()));
    QVERIFY(slider.value() > 50);
}

void tst_Dispatch::characterOfTheBaseIsConsumed()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_CHAR>([&] { window.OnChar('a', 1, 0); });
    XeWinMsgEvent event(WM_CHAR, 'a', 1);
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 0);
}

void tst_Dispatch::messageWithoutEntry()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    XeWinMsgEvent event(WM_USER + 9, 1, 2);
    QVERIFY(!window.eventFilter(&widget, &event));
    QCOMPARE(SendMessage_X(&widget, WM_USER + 9, 1, 2), 0);
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 1);
}

void tst_Dispatch::sizeIsLaidOutAndPassedOn()
{
    ListeningWidget widget;
    LayoutWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    QResizeEvent event({30, 40}, {20, 20});
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(window.layouts, 1);
    QCOMPARE(widget.count(QEvent::Resize), 1);
}

void tst_Dispatch::sizeWithoutTheBaseStopsQt()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_SIZE>([] {});
    QResizeEvent event({30, 40}, {20, 20});
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(widget.count(QEvent::Resize), 0);
}

// ---------------------------------------------------------------------------------------------------- screening

void tst_Dispatch::screenedMessage_data()
{
    QTest::addColumn<MakeEvent>("makeEvent");
    QTest::addColumn<QString>("message");
    QTest::newRow("press") << MakeEvent(pressEvent) << QStringLiteral("WM_LBUTTONDOWN(0x1, 0x40003)");
    QTest::newRow("wheel") << MakeEvent(wheelEvent) << QStringLiteral("WM_MOUSEWHEEL(0x780000, 0x60005)");
    QTest::newRow("close") << MakeEvent(closeEvent) << QStringLiteral("WM_CLOSE(0x0, 0x0)");
    QTest::newRow("message") << MakeEvent(messageEvent) << QStringLiteral("WM_USER+1(0x2, 0x3)");
    QTest::newRow("context menu") << MakeEvent([] {
        return new QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(1, 2));
    }) << QStringLiteral("WM_CONTEXTMENU(self, 0x20001)");
}

void tst_Dispatch::screenedMessage()
{
    QFETCH(MakeEvent, makeEvent);
    QFETCH(QString, message);
    QWidget widget;
    ScreeningWindow window(&widget);
    MessageTrace seen;
    const QObject* target = nullptr;
    QPoint position;
    window.screen = [&](tagMSG* msg) {
        target = msg->hwnd;
        position = {msg->pt.x, msg->pt.y};
        seen.add(&widget, msg->message, msg->wParam, msg->lParam);
        return 1;
    };
    const std::unique_ptr<QEvent> event(makeEvent());
    window.eventFilter(&widget, event.get());
    QCOMPARE(seen.text(), message);
    QCOMPARE(target, &widget);
    QCOMPARE(position, pointerPosition);
}

void tst_Dispatch::screeningStopsEverything()
{
    ListeningWidget widget;
    ScreeningWindow window(&widget);
    window.screen = [](tagMSG* message) { return int(message->message == WM_KEYDOWN); };
    QTest::keyPress(&widget, 'a');
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.text(), QString());
    QCOMPARE(widget.count(QEvent::KeyPress), 0);
}

void tst_Dispatch::screeningMayChangeTheMessage()
{
    QWidget widget;
    ScreeningWindow window(&widget);
    window.screen = [](tagMSG* message) {
        message->message = WM_USER + 3;
        message->wParam = 4;
        message->lParam = 5;
        return 0;
    };
    const std::unique_ptr<QEvent> event(closeEvent());
    window.eventFilter(&widget, event.get());
    QCOMPARE(window.trace.text(), QStringLiteral("WM_USER+3(0x4, 0x5)"));
}

void tst_Dispatch::screeningSeesSentMessages()
{
    QWidget widget;
    ScreeningWindow window(&widget);
    window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 9; });
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 9);
    window.screen = [](tagMSG*) { return 1; };
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 0);
}

void tst_Dispatch::timeIsInSeconds()
{
    QWidget widget;
    ScreeningWindow window(&widget);
    DWORD time = 0;
    window.screen = [&](tagMSG* message) {
        time = message->time;
        return 0;
    };
    const auto before = static_cast<DWORD>(QDateTime::currentSecsSinceEpoch());
    window.SendMessage(WM_USER + 1, 0, 0);
    const auto after = static_cast<DWORD>(QDateTime::currentSecsSinceEpoch());
    QVERIFY(before <= time && time <= after);
}

// On an X server each question to the pointer is a round trip.
void tst_Dispatch::pointerQuestions_data()
{
    QTest::addColumn<bool>("screens");
    QTest::addColumn<MakeEvent>("makeEvent");
    QTest::addColumn<int>("questions");
    const MakeEvent frameRelease = [] {
        return new QMouseEvent(QEvent::NonClientAreaMouseButtonRelease, {1, 1}, Qt::LeftButton, {}, {});
    };
    const MakeEvent focus = [] { return new QFocusEvent(QEvent::FocusIn); };
    QTest::newRow("a plain window asks for no press") << false << MakeEvent(pressEvent) << 0;
    QTest::newRow("a plain window asks for no message") << false << MakeEvent(messageEvent) << 0;
    QTest::newRow("a plain window asks for the frame") << false << frameRelease << 1;
    QTest::newRow("a plain window asks for no other type") << false << focus << 0;
    QTest::newRow("a screening window asks once for a press") << true << MakeEvent(pressEvent) << 1;
    QTest::newRow("a screening window asks once for a message") << true << MakeEvent(messageEvent) << 1;
    QTest::newRow("a screening window asks once for the frame") << true << frameRelease << 1;
    QTest::newRow("a screening window asks for no other type") << true << focus << 0;
}

void tst_Dispatch::pointerQuestions()
{
    QFETCH(bool, screens);
    QFETCH(MakeEvent, makeEvent);
    QFETCH(int, questions);
    QWidget widget;
    const std::unique_ptr<CWnd_X> window(screens ? new ScreeningWindow : new ScriptWindow);
    QVERIFY(window->SubclassWindow(&widget));
    const std::unique_ptr<QEvent> event(makeEvent());
    ::pointerQuestions = 0;
    window->eventFilter(&widget, event.get());
    QCOMPARE(::pointerQuestions, questions);
    QCoreApplication::removePostedEvents(&widget);
}

// -------------------------------------------------------------------------------------------------------- roads

void tst_Dispatch::keyRoad()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier, QStringLiteral("A\U0001F600"));
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(window.trace.take(), QStringLiteral("WM_KEYDOWN(0x41, 0x40001)"));
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_CHAR(0x41, 0x40001) WM_CHAR(0x1f600, 0x40001)"));

    QTest::keyClick(&widget, 'x', Qt::AltModifier);
    QCOMPARE(window.trace.take(), QStringLiteral("WM_SYSKEYDOWN(0x12, 0x200001) WM_SYSKEYDOWN(0x58, 0x200001) "
                                                 "WM_SYSKEYUP(0x58, 0x80200001) WM_KEYUP(0x12, 0x80000001)"));
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_SYSCHAR(0x78, 0x200001)"));
}

void tst_Dispatch::characterComesAfterTheHandlerOfTheKey()
{
    QWidget widget;
    ScriptWindow window(&widget);
    MessageTrace order;
    window.on<WM_KEYDOWN>([&] {
        window.SendMessage(WM_USER, 0, 0); // a nested dispatch does not let it overtake
        order.note(QStringLiteral("key handled"));
    });
    window.on<WM_CHAR>([&] { order.note(QStringLiteral("character handled")); });
    QTest::keyPress(&widget, 'a');
    QCOMPARE(order.text(), QStringLiteral("key handled"));
    QCoreApplication::processEvents();
    QCOMPARE(order.text(), QStringLiteral("key handled character handled"));
}

void tst_Dispatch::clickRoad()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ControlModifier, {10, 20});
    QCOMPARE(window.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x9, 0x14000a) WM_LBUTTONUP(0x8, 0x14000a)"));
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_SETCURSOR(self, 0x2010000) WM_SETCURSOR(self, 0x2020000)"));
}

// ---------------------------------------------------------------------------------------------------------- map

void tst_Dispatch::laterEntryReplacesSignatureToo()
{
    LayoutWindow window;
    LRESULT result = 0;
    window.AddMsgMapEntry(WM_USER + 2, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::second),
                          nullptr);
    QVERIFY(window.OnWndMsg(WM_USER + 2, 0, 0x14000A, &result));
    QCOMPARE(result, 2);
    window.AddMsgMapEntry(WM_USER + 2, 49, XeHandler<UINT(CPoint)>::of(&LayoutWindow::third), nullptr);
    QVERIFY(window.OnWndMsg(WM_USER + 2, 0, 0x14000A, &result));
    QCOMPARE(result, 10);
}

void tst_Dispatch::mapIsFilledAtEachAttachment()
{
    QWidget widget;
    LayoutWindow window;
    QCOMPARE(window.maps, 0);
    QCOMPARE(window.OnWndMsg(WM_USER + 1, 0, 0, nullptr), 0);
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.maps, 1);

    for (const UINT message : {WM_USER + 1, WM_USER + 2})
        window.AddMsgMapEntry(message, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::second),
                              nullptr);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 2);
    window.Detach();
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.maps, 2);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 1); // entered anew
    QCOMPARE(window.SendMessage(WM_USER + 2, 0, 0), 2); // kept
}

void tst_Dispatch::nullAndForeignEvents()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_CLOSE>([] {});
    const std::unique_ptr<QEvent> event(closeEvent());
    event->setAccepted(false);
    QVERIFY(!window.eventFilter(nullptr, nullptr));
    QVERIFY(!window.eventFilter(&widget, nullptr));
    QVERIFY(!window.eventFilter(nullptr, event.get()));
    QVERIFY(!event->isAccepted());
    QCOMPARE(window.trace.text(), QString());
}

// ------------------------------------------------------------------------------------------------------ nesting

void tst_Dispatch::nestedMessage_data()
{
    QTest::addColumn<bool>("innerClears");
    QTest::addColumn<bool>("outerClears");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("the outer event is cleared after the inner one")
        << false << true << QStringLiteral("goes on, ignored");
    QTest::newRow("both are") << true << true << QStringLiteral("goes on, ignored");
    QTest::newRow("the inner one alone does not count for the outer")
        << true << false << QStringLiteral("stopped, accepted");
}

void tst_Dispatch::nestedMessage()
{
    QFETCH(bool, innerClears);
    QFETCH(bool, outerClears);
    QFETCH(QString, outcome);
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        if (innerClears)
            clearFlag(window);
        return 5;
    });
    LRESULT nested = -1;
    window.on<WM_LBUTTONDOWN>([&] {
        nested = window.SendMessage(WM_USER + 1, 0, 0);
        if (outerClears)
            clearFlag(window);
    });
    const std::unique_ptr<QEvent> event(pressEvent());
    QCOMPARE(filterText(window, *event), outcome);
    QCOMPARE(nested, innerClears ? 0 : 5);
    QCoreApplication::removePostedEvents(&widget);
}

// A message given to OnWndMsg() by hand has no event of its own.
void tst_Dispatch::directDispatchInsideAHandler()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&] { clearFlag(window); });
    window.on<WM_CLOSE>([&] { window.OnWndMsg(WM_USER + 1, 0, 0, nullptr); });
    const std::unique_ptr<QEvent> event(closeEvent());
    QCOMPARE(filterText(window, *event), QStringLiteral("stopped, ignored"));
}

void tst_Dispatch::acceptFlagOutsideAnEvent()
{
    QWidget widget;
    ScriptWindow window(&widget), empty;
    window.on<WM_CLOSE>([] {});
    const std::unique_ptr<QEvent> event(closeEvent());
    QVERIFY(window.eventFilter(&widget, event.get()));
    clearFlag(window);
    clearFlag(empty);
    QVERIFY(event->isAccepted());
}

void tst_Dispatch::exceptionRestoresTheCurrentEvent()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([] { throw HandlerFailure(); });
    XeWinMsgEvent event(WM_USER + 1, 0, 0);
    QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendEvent(&widget, &event), HandlerFailure);
    QVERIFY(event.isAccepted());
    clearFlag(window);
    QVERIFY(event.isAccepted());
    window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 6; });
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 6);
}

void tst_Dispatch::exceptionOfANestedMessage()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([] { throw HandlerFailure(); });
    window.on<WM_CLOSE>([&] {
        try {
            window.SendMessage(WM_USER + 1, 0, 0);
        } catch (const HandlerFailure&) {
            clearFlag(window);
        }
    });
    const std::unique_ptr<QEvent> event(closeEvent());
    QCOMPARE(filterText(window, *event), QStringLiteral("stopped, ignored"));
}

void tst_Dispatch::handlerReplacesItsOwnEntry()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 2; });
        window.AddMsgMapEntry(WM_USER + 1, AfxSig_b_D_v, nullptr, nullptr);
        return 1;
    });
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 1);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 0);
}

XE_TEST(tst_Dispatch)
#include "tst_dispatch.moc"
