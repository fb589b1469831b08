// What TranslateMessage() posts.

#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>

using EventPointer = QSharedPointer<QEvent>;
Q_DECLARE_METATYPE(EventPointer)

namespace {

constexpr auto none = Qt::NoModifier;

EventPointer plain(int type) { return EventPointer::create(static_cast<QEvent::Type>(type)); }

EventPointer mouse(int type, Qt::MouseButton button)
{
    return EventPointer(new QMouseEvent(static_cast<QEvent::Type>(type), {10, 20}, button, button, none));
}

EventPointer key(int type, int code, Qt::KeyboardModifiers modifiers, const QString& text)
{
    return EventPointer(new QKeyEvent(static_cast<QEvent::Type>(type), code, modifiers, text));
}

EventPointer press(const QString& text, Qt::KeyboardModifiers modifiers = none)
{
    return key(QEvent::KeyPress, Qt::Key_A, modifiers, text);
}

} // namespace

/// Writes down the message events that it gets, such as "0102 wParam 61 lParam 1".
class MessageTaker : public QObject
{
    Q_OBJECT

public:
    bool event(QEvent* event) override
    {
        if (event->type() == XeWinMsgEvent::EventType) {
            const auto* const message = static_cast<const XeWinMsgEvent*>(event);
            const bool isSelf = message->wParam == reinterpret_cast<quintptr>(this);
            m_taken += QStringLiteral("%1 wParam %2 lParam %3")
                           .arg(message->message, 4, 16, QLatin1Char('0'))
                           .arg(isSelf ? QStringLiteral("self") : QString::number(message->wParam, 16))
                           .arg(quint64(message->lParam), 0, 16);
        }
        return QObject::event(event);
    }

    /// What has arrived already, without what waits.
    QString arrived() const { return m_taken.join(QStringLiteral(", ")); }
    /// What has arrived once the posted events are delivered.
    QString taken()
    {
        QCoreApplication::sendPostedEvents(this);
        return arrived();
    }

private:
    QStringList m_taken;
};

class tst_TranslateMessage : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void mouseEvents_data();
    void mouseEvents();
    void aGrabSuppressesTheCursorMessage_data();
    void aGrabSuppressesTheCursorMessage();
    void keyPresses_data();
    void keyPresses();
    void aMadeKeyPressGivesItsDigits();
    void otherEvents_data();
    void otherEvents();
    void nullArguments();
    void aTargetMayDieBeforeDelivery();
    void aClickThroughAWindow();
};

void tst_TranslateMessage::mouseEvents_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::addColumn<UINT>("message");
    QTest::addColumn<QString>("posted");

    const auto row = [](const char* name, const EventPointer& event, UINT message, const char* posted) {
        QTest::newRow(name) << event << message << QString::fromLatin1(posted);
    };
    row("press", mouse(2, Qt::LeftButton), 0x0201, "0020 wParam self lParam 2010000");
    row("release", mouse(3, Qt::RightButton), 0x0205, "0020 wParam self lParam 2050000");
    row("double click", mouse(4, Qt::MiddleButton), 0x0209, "0020 wParam self lParam 2090000");
    row("move", mouse(5, Qt::NoButton), 0x0200, "0020 wParam self lParam 2000000");
    row("button without a message", mouse(2, Qt::XButton1), 0xFFFFFFFF, "0020 wParam self lParam ffff0000");
    row("the number comes from the record", mouse(2, Qt::LeftButton), 0x8765, "0020 wParam self lParam 87650000");
}

void tst_TranslateMessage::mouseEvents()
{
    QFETCH(EventPointer, event);
    QFETCH(UINT, message);
    QFETCH(QString, posted);

    MessageTaker target;
    const tagMSG record{&target, message, 1, 0x14000A, 0, {0, 0}};
    QCOMPARE(TranslateMessage(&target, event.data(), &record), 1);
    QCOMPARE(target.arrived(), QString());
    QCOMPARE(target.taken(), posted);
}

void tst_TranslateMessage::aGrabSuppressesTheCursorMessage_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("press") << 2;
    QTest::newRow("release") << 3;
    QTest::newRow("double click") << 4;
    QTest::newRow("move") << 5;
}

void tst_TranslateMessage::aGrabSuppressesTheCursorMessage()
{
    QFETCH(int, type);

    QWidget grabber;
    MessageTaker target;
    const tagMSG record{&target, 0x0201, 1, 0x14000A, 0, {0, 0}};

    grabber.grabMouse();
    const int whileGrabbed = TranslateMessage(&target, mouse(type, Qt::LeftButton).data(), &record);
    const int ofAKey = TranslateMessage(&target, press("a").data(), &record);
    grabber.releaseMouse();
    QCOMPARE(whileGrabbed, 1);
    QCOMPARE(ofAKey, 1);
    QCOMPARE(target.taken(), QStringLiteral("0102 wParam 61 lParam 1"));

    QCOMPARE(TranslateMessage(&target, mouse(type, Qt::LeftButton).data(), &record), 1);
    QCOMPARE(target.taken(), QStringLiteral("0102 wParam 61 lParam 1, 0020 wParam self lParam 2010000"));
}

void tst_TranslateMessage::keyPresses_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("posted");

    const auto row = [](const char* name, const EventPointer& event, const char* posted) {
        QTest::newRow(name) << event << (*posted ? 1 : 0) << QString::fromLatin1(posted);
    };
    row("one character", press("a"), "0102 wParam 61 lParam 1");
    row("characters in order", press("abc"),
        "0102 wParam 61 lParam 1, 0102 wParam 62 lParam 1, 0102 wParam 63 lParam 1");
    row("with Shift", press("A", Qt::ShiftModifier), "0102 wParam 41 lParam 40001");
    row("with Control", press("\x01", Qt::ControlModifier), "0102 wParam 1 lParam 80001");
    row("with Alt", press("a", Qt::AltModifier), "0106 wParam 61 lParam 200001");
    row("with Control, Alt and Shift", press("ab", Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier),
        "0106 wParam 61 lParam 2c0001, 0106 wParam 62 lParam 2c0001");
    row("Meta and the keypad have no flag", press("5", Qt::MetaModifier | Qt::KeypadModifier),
        "0102 wParam 35 lParam 1");
    row("Return", key(6, Qt::Key_Return, none, "\r"), "0102 wParam d lParam 1");
    row("the text counts, not the key", key(6, Qt::Key_F1, none, "x"), "0102 wParam 78 lParam 1");
    row("beyond ASCII", press(QString::fromUtf8("中é")), "0102 wParam 4e2d lParam 1, 0102 wParam e9 lParam 1");
    row("a surrogate pair is one character", press(QString::fromUtf8("a😀b")),
        "0102 wParam 61 lParam 1, 0102 wParam 1f600 lParam 1, 0102 wParam 62 lParam 1");
    row("the highest character", press(QString::fromUtf8("\xF4\x8F\xBF\xBF")), "0102 wParam 10ffff lParam 1");
    row("the character 0", press(QString(QChar(0))), "0102 wParam 0 lParam 1");
    row("empty text", press(""), "");
    row("null text", press(QString()), "");
    row("a dead key", key(6, Qt::Key_Dead_Acute, none, ""), "");
    row("a modifier key", key(6, Qt::Key_Shift, Qt::ShiftModifier, ""), "");
}

void tst_TranslateMessage::keyPresses()
{
    QFETCH(EventPointer, event);
    QFETCH(int, result);
    QFETCH(QString, posted);

    MessageTaker target;
    const tagMSG record{&target, 0x0100, 0x41, 0x7F0001, 0, {0, 0}};
    QCOMPARE(TranslateMessage(&target, event.data(), &record), result);
    QCOMPARE(target.arrived(), QString());
    QCOMPARE(target.taken(), posted);
}

// A key press made from WM_KEYDOWN has its key code in decimal as text: A is 65.
void tst_TranslateMessage::aMadeKeyPressGivesItsDigits()
{
    MessageTaker target;
    const std::unique_ptr<QEvent> event(xeMsgToQEvent(nullptr, WM_KEYDOWN, 0x41, 1));
    tagMSG record{};
    QCOMPARE(xeQEventToMsg(&target, event.get(), &record), 1);
    QCOMPARE(TranslateMessage(&target, event.get(), &record), 1);
    QCOMPARE(target.taken(), QStringLiteral("0102 wParam 36 lParam 1, 0102 wParam 35 lParam 1"));
}

void tst_TranslateMessage::otherEvents_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::newRow("key release with text") << key(QEvent::KeyRelease, Qt::Key_A, none, "a");
    QTest::newRow("shortcut override with text") << key(QEvent::ShortcutOverride, Qt::Key_A, none, "a");
    QTest::newRow("press on the frame") << mouse(QEvent::NonClientAreaMouseButtonPress, Qt::LeftButton);
    QTest::newRow("release on the frame") << mouse(QEvent::NonClientAreaMouseButtonRelease, Qt::LeftButton);
    QTest::newRow("move on the frame") << mouse(QEvent::NonClientAreaMouseMove, Qt::NoButton);
    QTest::newRow("timer") << EventPointer(new QTimerEvent(1));
    QTest::newRow("close") << EventPointer(new QCloseEvent);
    QTest::newRow("paint") << EventPointer(new QPaintEvent(QRect()));
    QTest::newRow("leave") << plain(QEvent::Leave);
    QTest::newRow("activation") << plain(QEvent::WindowActivate);
    QTest::newRow("hover") << EventPointer(new QHoverEvent(QEvent::HoverEnter, QPointF(), QPointF()));
    QTest::newRow("context menu") << EventPointer(new QContextMenuEvent(QContextMenuEvent::Mouse, {1, 2}));
    QTest::newRow("wheel") << EventPointer(
        new QWheelEvent({}, {}, {}, {0, 120}, Qt::NoButton, none, Qt::NoScrollPhase, false));
    QTest::newRow("message event of a character") << EventPointer(new XeWinMsgEvent(WM_CHAR, 'a', 1));
    QTest::newRow("event without a message") << plain(QEvent::FocusIn);
}

void tst_TranslateMessage::otherEvents()
{
    QFETCH(EventPointer, event);

    MessageTaker target;
    const tagMSG record{&target, WM_CHAR, 'a', 1, 0, {0, 0}};
    QCOMPARE(TranslateMessage(&target, event.data(), &record), 0);
    QCOMPARE(target.taken(), QString());
}

void tst_TranslateMessage::nullArguments()
{
    MessageTaker target;
    const tagMSG record{&target, 0x0100, 0x41, 1, 0, {0, 0}};
    for (const EventPointer& event : {press("a"), mouse(2, Qt::LeftButton)}) {
        QCOMPARE(TranslateMessage(nullptr, event.data(), &record), 0);
        QCOMPARE(TranslateMessage(&target, event.data(), nullptr), 0);
    }
    QCOMPARE(TranslateMessage(&target, nullptr, &record), 0);
    QCOMPARE(TranslateMessage(nullptr, nullptr, nullptr), 0);
    QCOMPARE(target.taken(), QString());
}

void tst_TranslateMessage::aTargetMayDieBeforeDelivery()
{
    auto* const target = new MessageTaker;
    const tagMSG record{target, 0x0100, 0x41, 1, 0, {0, 0}};
    QCOMPARE(TranslateMessage(target, press("abc").data(), &record), 1);
    delete target;
    QCoreApplication::sendPostedEvents();
}

// Real clicks and keys: what is posted comes after both the press and the release.
void tst_TranslateMessage::aClickThroughAWindow()
{
    class Window : public CWnd_X
    {
    public:
        int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
        {
            if (message == 0x0020 || (message >= 0x0100 && message <= 0x0209))
                seen += QString::number(message, 16);
            return CWnd_X::OnWndMsg(message, wParam, lParam, result);
        }
        QStringList seen;
    };
    QWidget widget;
    Window window;
    QVERIFY(window.SubclassWindow(&widget));

    QMouseEvent down(QEvent::MouseButtonPress, QPointF(1, 2), Qt::LeftButton, Qt::LeftButton, none);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(1, 2), Qt::LeftButton, Qt::NoButton, none);
    QCoreApplication::sendEvent(&widget, &down);
    QCoreApplication::sendEvent(&widget, &up);
    QCoreApplication::sendEvent(&widget, press("ab").data());
    QCOMPARE(window.seen, (QStringList{"201", "202", "100"}));
    QCoreApplication::sendPostedEvents(&widget);
    QCOMPARE(window.seen, (QStringList{"201", "202", "100", "20", "20", "102", "102"}));
}

XE_TEST(tst_TranslateMessage)
#include "tst_translatemessage.moc"
