#include "filteredevents.h"
#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QCursor>

// What the screening and the handlers of a window see: the message, its time and place, and messages inside messages.

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

struct HandlerFailure
{
};

} // namespace

class tst_CurrentMessage : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

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

    void nestedMessage_data();
    void nestedMessage();
    void directDispatchInsideAHandler();
    void acceptFlagOutsideAnEvent();
    void exceptionRestoresTheCurrentEvent();
    void exceptionOfANestedMessage();
};

// ---------------------------------------------------------------------------------------------------- screening

void tst_CurrentMessage::screenedMessage_data()
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

void tst_CurrentMessage::screenedMessage()
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

void tst_CurrentMessage::screeningStopsEverything()
{
    ListeningWidget widget;
    ScreeningWindow window(&widget);
    window.screen = [](tagMSG* message) { return int(message->message == WM_KEYDOWN); };
    QTest::keyPress(&widget, 'a');
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.text(), QString());
    QCOMPARE(widget.count(QEvent::KeyPress), 0);
}

void tst_CurrentMessage::screeningMayChangeTheMessage()
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

void tst_CurrentMessage::screeningSeesSentMessages()
{
    QWidget widget;
    ScreeningWindow window(&widget);
    window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 9; });
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 9);
    window.screen = [](tagMSG*) { return 1; };
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 0);
}

void tst_CurrentMessage::timeIsInSeconds()
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
void tst_CurrentMessage::pointerQuestions_data()
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

void tst_CurrentMessage::pointerQuestions()
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

void tst_CurrentMessage::keyRoad()
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

void tst_CurrentMessage::characterComesAfterTheHandlerOfTheKey()
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

void tst_CurrentMessage::clickRoad()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ControlModifier, {10, 20});
    QCOMPARE(window.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x9, 0x14000a) WM_LBUTTONUP(0x8, 0x14000a)"));
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_SETCURSOR(self, 0x2010000) WM_SETCURSOR(self, 0x2020000)"));
}

// ------------------------------------------------------------------------------------------------------ nesting

void tst_CurrentMessage::nestedMessage_data()
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

void tst_CurrentMessage::nestedMessage()
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
void tst_CurrentMessage::directDispatchInsideAHandler()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&] { clearFlag(window); });
    window.on<WM_CLOSE>([&] { window.OnWndMsg(WM_USER + 1, 0, 0, nullptr); });
    const std::unique_ptr<QEvent> event(closeEvent());
    QCOMPARE(filterText(window, *event), QStringLiteral("stopped, ignored"));
}

void tst_CurrentMessage::acceptFlagOutsideAnEvent()
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

void tst_CurrentMessage::exceptionRestoresTheCurrentEvent()
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

void tst_CurrentMessage::exceptionOfANestedMessage()
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

XE_TEST(tst_CurrentMessage)
#include "tst_currentmessage.moc"
