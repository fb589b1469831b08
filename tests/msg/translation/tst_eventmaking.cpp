// Messages to Qt events, and back.

#include "leavenothing.h"
#include "testclass.h"

#include <xeafxmsg.h>

namespace {

// Such as "u+0041 u+20ac", as text may hold characters that do not print; a number stays as it is.
QString readable(const QString& text)
{
    if (!text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= '0' && c <= '9'; }))
        return text;
    QStringList words;
    for (const QChar c : text)
        words += QStringLiteral("u+%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    return words.join(QLatin1Char(' '));
}

QString describeMouse(const QMouseEvent& event)
{
    return QStringLiteral("mouse %1 button %2 buttons %3 modifiers %4 at %5,%6")
        .arg(int(event.type()))
        .arg(int(event.button()))
        .arg(int(event.buttons()))
        .arg(int(event.modifiers()), 0, 16)
        .arg(event.localPos().x())
        .arg(event.localPos().y());
}

QString describeKey(const QKeyEvent& event)
{
    return QStringLiteral("key %1 code %2 text [%3] modifiers %4 repeat %5 count %6")
        .arg(int(event.type()))
        .arg(event.key(), 0, 16)
        .arg(readable(event.text()))
        .arg(int(event.modifiers()), 0, 16)
        .arg(event.isAutoRepeat())
        .arg(event.count());
}

QString describeSize(const QResizeEvent& event)
{
    return QStringLiteral("size %1x%2 from %3x%4")
        .arg(event.size().width())
        .arg(event.size().height())
        .arg(event.oldSize().width())
        .arg(event.oldSize().height());
}

QString describeMessage(const XeWinMsgEvent& event)
{
    return QStringLiteral("message %1 wParam %2 lParam %3 result %4")
        .arg(event.message, 4, 16, QLatin1Char('0'))
        .arg(event.wParam, 0, 16)
        .arg(quint64(event.lParam), 0, 16)
        .arg(event.result);
}

QString describe(const QEvent& event)
{
    switch (int(event.type())) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return describeMouse(static_cast<const QMouseEvent&>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return describeKey(static_cast<const QKeyEvent&>(event));
    case QEvent::Resize:
        return describeSize(static_cast<const QResizeEvent&>(event));
    case XeWinMsgEvent::EventType:
        return describeMessage(static_cast<const XeWinMsgEvent&>(event));
    default:
        return QStringLiteral("event %1").arg(int(event.type()));
    }
}

QString made(const QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::unique_ptr<QEvent> event(xeMsgToQEvent(target, message, wParam, lParam));
    return event ? describe(*event) : QStringLiteral("nothing");
}

// What a message is after it has been an event.
tagMSG roundTrip(QObject* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::unique_ptr<QEvent> event(xeMsgToQEvent(nullptr, message, wParam, lParam));
    tagMSG back{};
    if (!xeQEventToMsg(target, event.get(), &back))
        back.message = 0xDEAD;
    return back;
}

} // namespace

class tst_EventMaking : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void messageToEvent_data();
    void messageToEvent();
    void aNullTarget();
    void everyOtherMessageTravelsAsItIs();

    void roundTrips_data();
    void roundTrips();
    void keyDownComesBackForEveryKey();
    void unknownMessagesComeBack();
};

void tst_EventMaking::messageToEvent_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<WPARAM>("wParam");
    QTest::addColumn<LPARAM>("lParam");
    QTest::addColumn<QString>("event");

    const auto row = [](const char* name, UINT message, WPARAM wParam, LPARAM lParam, const char* event) {
        QTest::newRow(name) << message << wParam << lParam << QString::fromLatin1(event);
    };
    const LPARAM at = 0x14000A;
    row("mouse move", 0x0200, 0, at, "mouse 5 button 0 buttons 0 modifiers 0 at 10,20");
    row("mouse move drops its flags", 0x0200, 0x3F, at, "mouse 5 button 0 buttons 0 modifiers 0 at 10,20");
    row("left down", 0x0201, 0, at, "mouse 2 button 1 buttons 1 modifiers 0 at 10,20");
    row("left down drops its flags", 0x0201, 0x3F, at, "mouse 2 button 1 buttons 1 modifiers 0 at 10,20");
    row("left up", 0x0202, 0, at, "mouse 3 button 1 buttons 1 modifiers 0 at 10,20");
    row("left double click", 0x0203, 0, at, "mouse 4 button 1 buttons 1 modifiers 0 at 10,20");
    row("right down", 0x0204, 0, at, "mouse 2 button 2 buttons 2 modifiers 0 at 10,20");
    row("right up", 0x0205, 0, at, "mouse 3 button 2 buttons 2 modifiers 0 at 10,20");
    row("right double click", 0x0206, 0, at, "mouse 4 button 2 buttons 2 modifiers 0 at 10,20");
    row("middle down", 0x0207, 0, at, "mouse 2 button 4 buttons 4 modifiers 0 at 10,20");
    row("middle up", 0x0208, 0, at, "mouse 3 button 4 buttons 4 modifiers 0 at 10,20");
    row("middle double click", 0x0209, 0, at, "mouse 4 button 4 buttons 4 modifiers 0 at 10,20");
    row("negative coordinates do not survive", 0x0201, 1, -1, "mouse 2 button 1 buttons 1 modifiers 0 at 65535,65535");
    row("only the low 32 bits are coordinates", 0x0200, 0, 0x7FFF000080008001,
        "mouse 5 button 0 buttons 0 modifiers 0 at 32769,32768");

    row("key down of a letter", 0x0100, 0x41, 1, "key 6 code 41 text [65] modifiers 0 repeat 0 count 1");
    row("key down of a digit is the character above it", 0x0100, 0x30, 1,
        "key 6 code 29 text [41] modifiers 0 repeat 0 count 1");
    row("key down of Return", 0x0100, 0x0D, 1, "key 6 code 1000004 text [16777220] modifiers 0 repeat 0 count 1");
    row("key down drops flags and count", 0x0100, 0x25, 0x2C0005,
        "key 6 code 1000012 text [16777234] modifiers 0 repeat 0 count 1");
    row("key down of an unknown key", 0x0100, 0x07, 1, "message 0100 wParam 7 lParam 1 result 0");
    row("key down of code 0", 0x0100, 0, 1, "message 0100 wParam 0 lParam 1 result 0");
    row("key down of no key", 0x0100, ~0ul, 1, "message 0100 wParam ffffffffffffffff lParam 1 result 0");

    row("key up does not go through the key map", 0x0101, 0x0D, 1,
        "key 7 code d text [13] modifiers 0 repeat 0 count 1");
    row("key up of a letter", 0x0101, 0x41, 0xC0000001, "key 7 code 41 text [65] modifiers 0 repeat 0 count 1");
    row("key up of an unknown key", 0x0101, 0x07, 1, "key 7 code 7 text [7] modifiers 0 repeat 0 count 1");
    row("key up of code 0", 0x0101, 0, 0, "key 7 code 0 text [0] modifiers 0 repeat 0 count 1");

    row("character", 0x0102, 0x61, 1, "key 6 code 61 text [u+0061] modifiers 0 repeat 0 count 1");
    row("character beyond ASCII", 0x0102, 0x4E2D, 1, "key 6 code 4e2d text [u+4e2d] modifiers 0 repeat 0 count 1");
    row("character beyond 16 bits is cut in the text", 0x0102, 0x1F600, 1,
        "key 6 code 1f600 text [u+f600] modifiers 0 repeat 0 count 1");
    row("character 0", 0x0102, 0, 1, "key 6 code 0 text [u+0000] modifiers 0 repeat 0 count 1");
    row("system key down is a plain key press", 0x0104, 0x73, 0x20000001,
        "key 6 code 73 text [u+0073] modifiers 0 repeat 0 count 1");

    row("size", 0x0005, 0, 0x1E00280, "size 640x480 from 300x200");
    row("size drops its type", 0x0005, 2, 0, "size 0x0 from 300x200");
    row("size is unsigned", 0x0005, 0, -1, "size 65535x65535 from 300x200");

    row("system key up", 0x0105, 0x73, 5, "message 0105 wParam 73 lParam 5 result 0");
    row("system character", 0x0106, 0x61, 5, "message 0106 wParam 61 lParam 5 result 0");
    row("wheel", 0x020A, 0x780000, at, "message 020a wParam 780000 lParam 14000a result 0");
    row("timer", 0x0113, 7, 0, "message 0113 wParam 7 lParam 0 result 0");
    row("close", 0x0010, 0, 0, "message 0010 wParam 0 lParam 0 result 0");
    row("paint", 0x000F, 0, 0, "message 000f wParam 0 lParam 0 result 0");
    row("release on the frame", 0x00A2, 2, at, "message 00a2 wParam 2 lParam 14000a result 0");
    row("end of in-place edit", 0x0464, 8, 9, "message 0464 wParam 8 lParam 9 result 0");
    row("message 0", 0, 0, 0, "message 0000 wParam 0 lParam 0 result 0");
    row("the greatest values", ~0u, ~0ul, -1,
        "message ffffffff wParam ffffffffffffffff lParam ffffffffffffffff result 0");
}

void tst_EventMaking::messageToEvent()
{
    QFETCH(UINT, message);
    QFETCH(WPARAM, wParam);
    QFETCH(LPARAM, lParam);
    QFETCH(QString, event);

    QWidget target;
    target.resize(300, 200);
    QCOMPARE(made(&target, message, wParam, lParam), event);
}

void tst_EventMaking::aNullTarget()
{
    QCOMPARE(made(nullptr, 0x0201, 0, 0x14000A), QStringLiteral("mouse 2 button 1 buttons 1 modifiers 0 at 10,20"));
    QCOMPARE(made(nullptr, 0x0464, 8, 9), QStringLiteral("message 0464 wParam 8 lParam 9 result 0"));
    QVERIFY(made(nullptr, 0x0005, 0, 0x1E00280).startsWith(QLatin1String("size 640x480 from ")));
}

void tst_EventMaking::everyOtherMessageTravelsAsItIs()
{
    const QSet<UINT> withEvent{0x0005, 0x0100, 0x0101, 0x0102, 0x0104, 0x0200, 0x0201, 0x0202,
                               0x0203, 0x0204, 0x0205, 0x0206, 0x0207, 0x0208, 0x0209};
    for (UINT message = 0; message <= 0x10000; ++message) {
        const std::unique_ptr<QEvent> event(xeMsgToQEvent(nullptr, message, 0x41, 0x14000A));
        const bool isMessage = event->type() == XeWinMsgEvent::EventType;
        if (isMessage == withEvent.contains(message))
            QFAIL(qPrintable(QStringLiteral("message %1 became %2").arg(message, 0, 16).arg(describe(*event))));
        if (isMessage)
            QCOMPARE(static_cast<const XeWinMsgEvent&>(*event).message, message);
    }
}

void tst_EventMaking::roundTrips_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<WPARAM>("wParam");
    QTest::addColumn<LPARAM>("lParam");
    QTest::addColumn<UINT>("messageBack");
    QTest::addColumn<WPARAM>("wParamBack");
    QTest::addColumn<LPARAM>("lParamBack");

    const auto same = [](const char* name, UINT message, WPARAM wParam, LPARAM lParam) {
        QTest::newRow(name) << message << wParam << lParam << message << wParam << lParam;
    };
    const LPARAM at = 0x14000A;
    same("mouse move", 0x0200, 0, at);
    same("left down", 0x0201, 1, at);
    same("left up", 0x0202, 1, at);
    same("left double click", 0x0203, 1, at);
    same("right down", 0x0204, 2, at);
    same("right up", 0x0205, 2, at);
    same("right double click", 0x0206, 2, at);
    same("middle down", 0x0207, 16, at);
    same("middle up", 0x0208, 16, at);
    same("middle double click", 0x0209, 16, at);
    same("negative coordinates by their words", 0x0201, 1, 0xFFFEFFFF);
    same("size", 0x0005, 0, 0x1E00280);
    same("key down", 0x0100, 0x25, 1);
    same("key down of an unknown key", 0x0100, 0x07, 5);
    same("key up of a letter", 0x0101, 0x41, 0x80000001);
    same("system key up", 0x0105, 0x73, 0x20000001);
    same("system character", 0x0106, 0x61, 1);
    same("wheel", 0x020A, 0x780000, at);

    const auto other = [](const char* name, UINT message, WPARAM wParam, LPARAM lParam, UINT messageBack,
                          WPARAM wParamBack, LPARAM lParamBack) {
        QTest::newRow(name) << message << wParam << lParam << messageBack << wParamBack << lParamBack;
    };
    other("mouse flags are lost", 0x0200, 0x3F, at, 0x0200, 0, at);
    other("key flags are lost", 0x0100, 0x41, 0x2C0005, 0x0100, 0x41, 1);
    other("key down of Shift has the flag of Shift", 0x0100, 0x10, 1, 0x0100, 0x10, 0x40001);
    other("key down of Control has the flag of Control", 0x0100, 0x11, 1, 0x0100, 0x11, 0x80001);
    other("key down of Alt becomes a system key", 0x0100, 0x12, 1, 0x0104, 0x12, 0x200001);
    other("key up of an arrow is another key", 0x0101, 0x25, 1, 0x0101, 0x35, 0x80000001); // Left is the character %
    other("key up of Return is no key", 0x0101, 0x0D, 1, 0x0101, ~0ul, 0x80000001);
    other("a character becomes a key", 0x0102, 'A', 1, 0x0100, 0x41, 1);
    other("a small letter is no key", 0x0102, 'a', 1, 0x0100, ~0ul, 1);
    other("a system key becomes a plain one", 0x0104, 0x41, 0x20000001, 0x0100, 0x41, 1);
}

void tst_EventMaking::roundTrips()
{
    QFETCH(UINT, message);
    QFETCH(WPARAM, wParam);
    QFETCH(LPARAM, lParam);
    QFETCH(UINT, messageBack);
    QFETCH(WPARAM, wParamBack);
    QFETCH(LPARAM, lParamBack);

    QObject target;
    const tagMSG back = roundTrip(&target, message, wParam, lParam);
    QCOMPARE(back.message, messageBack);
    QCOMPARE(back.wParam, wParamBack);
    QCOMPARE(back.lParam, lParamBack);
    QCOMPARE(back.hwnd, &target);
}

void tst_EventMaking::keyDownComesBackForEveryKey()
{
    QObject target;
    for (WPARAM vk = 0; vk <= 0xFF; ++vk) {
        if (vk >= 0x10 && vk <= 0x12)
            continue; // a modifier key comes back with its own flag
        const tagMSG back = roundTrip(&target, 0x0100, vk, 1);
        QCOMPARE(back.message, 0x0100u);
        QCOMPARE(back.wParam, vk);
        QCOMPARE(back.lParam, LPARAM(1));
    }
}

void tst_EventMaking::unknownMessagesComeBack()
{
    QObject target;
    for (const UINT message : {0x0000u, 0x0003u, 0x0464u, 0x8000u, 0xC123u, 0x12345678u, 0xFFFFFFFFu}) {
        const tagMSG back = roundTrip(&target, message, ~0ul - message, -2 - LPARAM(message));
        QCOMPARE(back.message, message);
        QCOMPARE(back.wParam, ~0ul - message);
        QCOMPARE(back.lParam, -2 - LPARAM(message));
    }
}

XE_TEST(tst_EventMaking)
#include "tst_eventmaking.moc"
