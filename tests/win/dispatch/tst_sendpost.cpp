#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QThread>

#include <thread>

// Sending and posting messages: what one becomes, and what comes back.

namespace {

QString sizeText(QSize size) { return QStringLiteral("%1x%2").arg(size.width()).arg(size.height()); }

QString mouseText(const char* name, const QMouseEvent& event)
{
    return QStringLiteral("%1 %2:%3 buttons %4/%5 modifiers %6")
        .arg(QLatin1String(name))
        .arg(event.localPos().x())
        .arg(event.localPos().y())
        .arg(int(event.button()))
        .arg(int(event.buttons()))
        .arg(int(event.modifiers()));
}

QString keyText(const char* name, const QKeyEvent& event)
{
    return QStringLiteral("%1 %2 '%3' modifiers %4 count %5%6")
        .arg(QLatin1String(name))
        .arg(event.key())
        .arg(event.text())
        .arg(int(event.modifiers()))
        .arg(event.count())
        .arg(event.isAutoRepeat() ? QLatin1String(" repeated") : QLatin1String());
}

// An event of a kind that messages become; empty for any other.
QString eventText(const QEvent* event)
{
    switch (int(event->type())) {
    case QEvent::MouseButtonPress:
        return mouseText("press", *static_cast<const QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return mouseText("release", *static_cast<const QMouseEvent*>(event));
    case QEvent::MouseButtonDblClick:
        return mouseText("double", *static_cast<const QMouseEvent*>(event));
    case QEvent::MouseMove:
        return mouseText("move", *static_cast<const QMouseEvent*>(event));
    case QEvent::KeyPress:
        return keyText("down", *static_cast<const QKeyEvent*>(event));
    case QEvent::KeyRelease:
        return keyText("up", *static_cast<const QKeyEvent*>(event));
    case QEvent::Resize: {
        const auto* resize = static_cast<const QResizeEvent*>(event);
        return QStringLiteral("resize %1 from %2").arg(sizeText(resize->size()), sizeText(resize->oldSize()));
    }
    case XeWinMsgEvent::EventType: {
        const auto* message = static_cast<const XeWinMsgEvent*>(event);
        return QStringLiteral("message %1 %2 %3").arg(message->message).arg(message->wParam).arg(message->lParam);
    }
    default:
        return {};
    }
}

// Looks at a widget's events from the outside, before any filter that was there earlier.
class EventLog : public QObject
{
public:
    explicit EventLog(QObject* watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        const QString text = eventText(event);
        if (!text.isEmpty())
            events += text;
        return false;
    }

    QStringList events;
};

} // namespace

class tst_SendPost : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void plainWidget_data();
    void plainWidget();
    void wrappedWindow_data();
    void wrappedWindow();
    void keysWithoutKeyCode();

    void buttonIsClickedBySentMessages();
    void buttonIsClickedByPostedMessages();
    void lineEditTakesCharacters();
    void returnKeyBecomesItsDigits();

    void results_data();
    void results();
    void realEventsGiveZero();
    void plainTargetGivesZero();
    void postedMessageWithoutEntry();
    void noTarget();

    void messagesFromAnotherThread();

private:
    static void addMessageRows();
};

void tst_SendPost::addMessageRows()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<WPARAM>("wParam");
    QTest::addColumn<LPARAM>("lParam");
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("trace"); // how a wrapped window sees it

    const auto row = [](const char* name, UINT message, WPARAM wParam, LPARAM lParam, const char* event,
                        const char* trace) {
        QTest::newRow(name) << message << wParam << lParam << QString::fromUtf8(event) << QString::fromLatin1(trace);
    };
    const LPARAM at = 0x14000A, negative = 0xFFF6FFFB;
    row("WM_MOUSEMOVE", 0x0200, 0x1F, at, "move 10:20 buttons 0/0 modifiers 0", "WM_MOUSEMOVE(0x0, 0x14000a)");
    row("WM_LBUTTONDOWN", 0x0201, 0x1F, at, "press 10:20 buttons 1/1 modifiers 0", "WM_LBUTTONDOWN(0x1, 0x14000a)");
    row("WM_LBUTTONUP", 0x0202, 0x1F, at, "release 10:20 buttons 1/1 modifiers 0", "WM_LBUTTONUP(0x1, 0x14000a)");
    row("WM_LBUTTONDBLCLK", 0x0203, 0x1F, at, "double 10:20 buttons 1/1 modifiers 0",
        "WM_LBUTTONDBLCLK(0x1, 0x14000a)");
    row("WM_RBUTTONDOWN", 0x0204, 0x1F, at, "press 10:20 buttons 2/2 modifiers 0", "WM_RBUTTONDOWN(0x2, 0x14000a)");
    row("WM_RBUTTONUP", 0x0205, 0x1F, at, "release 10:20 buttons 2/2 modifiers 0", "WM_RBUTTONUP(0x2, 0x14000a)");
    row("WM_RBUTTONDBLCLK", 0x0206, 0x1F, at, "double 10:20 buttons 2/2 modifiers 0",
        "WM_RBUTTONDBLCLK(0x2, 0x14000a)");
    row("WM_MBUTTONDOWN", 0x0207, 0x1F, at, "press 10:20 buttons 4/4 modifiers 0", "WM_MBUTTONDOWN(0x10, 0x14000a)");
    row("WM_MBUTTONUP", 0x0208, 0x1F, at, "release 10:20 buttons 4/4 modifiers 0", "WM_MBUTTONUP(0x10, 0x14000a)");
    row("WM_MBUTTONDBLCLK", 0x0209, 0x1F, at, "double 10:20 buttons 4/4 modifiers 0",
        "WM_MBUTTONDBLCLK(0x10, 0x14000a)");
    row("coordinates are unsigned", 0x0201, 0, negative, "press 65531:65526 buttons 1/1 modifiers 0",
        "WM_LBUTTONDOWN(0x1, 0xfff6fffb)");
    row("bits above the coordinates are dropped", 0x0201, 0, -1, "press 65535:65535 buttons 1/1 modifiers 0",
        "WM_LBUTTONDOWN(0x1, 0xffffffff)");

    row("WM_KEYDOWN of a letter", 0x0100, 0x41, 0x1E0001, "down 65 '65' modifiers 0 count 1", "WM_KEYDOWN(0x41, 0x1)");
    row("WM_KEYDOWN of a digit", 0x0100, 0x30, 1, "down 41 '41' modifiers 0 count 1", "WM_KEYDOWN(0x30, 0x1)");
    row("WM_KEYDOWN of F1", 0x0100, 0x70, 1, "down 16777264 '16777264' modifiers 0 count 1", "WM_KEYDOWN(0x70, 0x1)");
    row("WM_KEYDOWN of no key", 0x0100, 0x07, 5, "message 256 7 5", "WM_KEYDOWN(0x7, 0x5)");
    row("WM_KEYUP takes a Qt key", 0x0101, 0x25, 1, "up 37 '37' modifiers 0 count 1", "WM_KEYUP(0x35, 0x80000001)");
    row("WM_CHAR", 0x0102, 'q', 1, "down 113 'q' modifiers 0 count 1", "WM_KEYDOWN(0xffffffffffffffff, 0x1)");
    row("WM_CHAR of one 16-bit unit", 0x0102, 0x10000 + 'q', 1, "down 65649 'q' modifiers 0 count 1",
        "WM_KEYDOWN(0xffffffffffffffff, 0x1)");
    row("WM_CHAR beyond ASCII", 0x0102, 0x4E2D, 1, "down 20013 '中' modifiers 0 count 1",
        "WM_KEYDOWN(0xffffffffffffffff, 0x1)");
    row("WM_SYSKEYDOWN is a plain key press", 0x0104, 'Q', 1, "down 81 'Q' modifiers 0 count 1",
        "WM_KEYDOWN(0x51, 0x1)");
    row("WM_SIZE", 0x0005, 2, 0x1E0028, "resize 40x30 from 100x50", "WM_SIZE(0x0, 0x1e0028)");

    row("WM_SYSKEYUP", 0x0105, 0x41, 1, "message 261 65 1", "WM_SYSKEYUP(0x41, 0x1)");
    row("WM_SYSCHAR", 0x0106, 0x41, 1, "message 262 65 1", "WM_SYSCHAR(0x41, 0x1)");
    row("WM_MOUSEWHEEL", 0x020A, 0x780000, at, "message 522 7864320 1310730", "WM_MOUSEWHEEL(0x780000, 0x14000a)");
    row("WM_NULL", 0, 1, 2, "message 0 1 2", "0x0000(0x1, 0x2)");
    row("WM_COMMAND", 0x0111, 1, 2, "message 273 1 2", "WM_COMMAND(0x1, 0x2)");
    row("WM_NOTIFY", 0x004E, 1, -2, "message 78 1 -2", "WM_NOTIFY(0x1, 0xfffffffffffffffe)");
    row("WM_CLOSE", 0x0010, 0, 0, "message 16 0 0", "WM_CLOSE(0x0, 0x0)");
    row("WM_DESTROY", 0x0002, 0, 0, "message 2 0 0", "WM_DESTROY(0x0, 0x0)");
    row("WM_NCDESTROY", 0x0082, 0, 0, "message 130 0 0", "WM_NCDESTROY(0x0, 0x0)");
    row("WM_PAINT", 0x000F, 0, 0, "message 15 0 0", "WM_PAINT(0x0, 0x0)");
    row("WM_TIMER", 0x0113, 7, 0, "message 275 7 0", "WM_TIMER(0x7, 0x0)");
    row("WM_SETCURSOR", 0x0020, 0, 3, "message 32 0 3", "WM_SETCURSOR(0x0, 0x3)");
    row("WM_HSCROLL", 0x0114, 5, 6, "message 276 5 6", "WM_HSCROLL(0x5, 0x6)");
    row("WM_VSCROLL", 0x0115, 5, 6, "message 277 5 6", "WM_VSCROLL(0x5, 0x6)");
    row("a private message with all bits", 0x0464, ~WPARAM(0), std::numeric_limits<LPARAM>::min(),
        "message 1124 18446744073709551615 -9223372036854775808",
        "WM_USER+100(0xffffffffffffffff, 0x8000000000000000)");
    row("the highest number", 0xFFFFFFFF, 1, 2, "message 4294967295 1 2", "XE_WM_NONE(0x1, 0x2)");
}

void tst_SendPost::plainWidget_data() { addMessageRows(); }

void tst_SendPost::plainWidget()
{
    QFETCH(UINT, message);
    QFETCH(WPARAM, wParam);
    QFETCH(LPARAM, lParam);
    QFETCH(QString, event);
    QWidget widget;
    widget.resize(100, 50);
    widget.setMouseTracking(true);
    EventLog log(&widget);

    QCOMPARE(SendMessage_X(&widget, message, wParam, lParam), 0);
    QCOMPARE(log.events, QStringList(event));
    log.events.clear();
    QCOMPARE(PostMessage_X(&widget, message, wParam, lParam), 1);
    QCOMPARE(log.events, QStringList());
    deliverPosted();
    QCOMPARE(log.events, QStringList(event));
    QCOMPARE(widget.size(), QSize(100, 50));
}

void tst_SendPost::wrappedWindow_data() { addMessageRows(); }

void tst_SendPost::wrappedWindow()
{
    QFETCH(UINT, message);
    QFETCH(WPARAM, wParam);
    QFETCH(LPARAM, lParam);
    QFETCH(QString, event);
    QFETCH(QString, trace);
    QWidget widget;
    widget.resize(100, 50);
    widget.setMouseTracking(true);
    ScriptWindow window(&widget);
    window.AddMsgMapEntry(WM_NCDESTROY, AfxSig_v_v_v, nullptr, nullptr); // it would detach
    EventLog log(&widget);

    QCOMPARE(window.SendMessage(message, wParam, lParam), 0);
    QCOMPARE(log.events, QStringList(event));
    QCOMPARE(window.trace.take(), trace);
    deliverPosted(); // what TranslateMessage() has posted
    window.trace.clear();
    log.events.clear();

    QCOMPARE(window.PostMessage(message, wParam, lParam), 1);
    QVERIFY(window.trace.isEmpty());
    deliverPosted();
    QCOMPARE(log.events.value(0), event);
    const QString posted = window.trace.take();
    QVERIFY2(posted == trace || posted.startsWith(trace + QLatin1Char(' ')), qPrintable(posted));
}

// Key codes that fit no int.
void tst_SendPost::keysWithoutKeyCode()
{
    QWidget widget;
    EventLog log(&widget);
    SendMessage_X(&widget, WM_KEYDOWN, ~WPARAM(0), 0);
    SendMessage_X(&widget, WM_KEYUP, 0xFFFFFFFF0, 0);
    QCOMPARE(log.events, QStringList({QStringLiteral("message 256 18446744073709551615 0"),
                                      QStringLiteral("up -16 '68719476720' modifiers 0 count 1")}));
}

// ----------------------------------------------------------------------------------------------- real widgets

void tst_SendPost::buttonIsClickedBySentMessages()
{
    QPushButton button;
    button.resize(80, 30);
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    QCOMPARE(SendMessage_X(&button, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5)), 0);
    QVERIFY(button.isDown());
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(SendMessage_X(&button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5)), 0);
    QVERIFY(!button.isDown());
    QCOMPARE(clicked.count(), 1);
}

void tst_SendPost::buttonIsClickedByPostedMessages()
{
    QPushButton button;
    button.resize(80, 30);
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    QCOMPARE(PostMessage_X(&button, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5)), 1);
    QCOMPARE(PostMessage_X(&button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5)), 1);
    QVERIFY(!button.isDown());
    QTRY_COMPARE(clicked.count(), 1);
}

void tst_SendPost::lineEditTakesCharacters()
{
    QLineEdit edit;
    for (const char16_t character : {u'h', u'i', u'中'})
        QCOMPARE(SendMessage_X(&edit, WM_CHAR, character, 1), 0);
    QCOMPARE(edit.text(), QStringLiteral("hi中"));
}

void tst_SendPost::returnKeyBecomesItsDigits()
{
    QWidget widget;
    ScriptWindow window(&widget);
    EventLog log(&widget);
    QString characters;
    window.on<WM_CHAR>([&](WPARAM wParam, LPARAM) {
        characters += QChar(static_cast<ushort>(wParam));
        return 0;
    });
    QCOMPARE(SendMessage_X(&widget, WM_KEYDOWN, VK_RETURN, 0), 0);
    QCOMPARE(log.events, QStringList(QStringLiteral("down 16777220 '16777220' modifiers 0 count 1")));
    QCOMPARE(characters, QString());
    deliverPosted();
    QCOMPARE(characters, QStringLiteral("16777220"));
}

// ----------------------------------------------------------------------------------------------------- results

void tst_SendPost::results_data()
{
    QTest::addColumn<LRESULT>("answer");
    QTest::newRow("0") << LRESULT(0);
    QTest::newRow("1") << LRESULT(1);
    QTest::newRow("-1") << LRESULT(-1);
    QTest::newRow("all 64 bits") << LRESULT(0x123456789ABCDEF0);
    QTest::newRow("the lowest") << std::numeric_limits<LRESULT>::min();
}

void tst_SendPost::results()
{
    QFETCH(LRESULT, answer);
    QWidget widget;
    ScriptWindow window(&widget);
    bool passesOn = false;
    window.on<WM_USER + 5>([&](WPARAM wParam, LPARAM lParam) {
        window.SetCurrentEventAccepted(!passesOn);
        return wParam == 3 && lParam == 4 ? answer : 99;
    });
    QCOMPARE(SendMessage_X(&widget, WM_USER + 5, 3, 4), answer);
    QCOMPARE(window.SendMessage(WM_USER + 5, 3, 4), answer);
    QCOMPARE(window.PostMessage(WM_USER + 5, 3, 4), 1);
    passesOn = true;
    QCOMPARE(window.SendMessage(WM_USER + 5, 3, 4), 0);
    deliverPosted();
}

void tst_SendPost::realEventsGiveZero()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_LBUTTONDOWN>([](WPARAM, LPARAM) { return 5; });
    window.on<WM_KEYDOWN>([](WPARAM, LPARAM) { return 6; });
    window.on<WM_SIZE>([](WPARAM, LPARAM) { return 7; });
    QCOMPARE(window.SendMessage(WM_LBUTTONDOWN, 0, 0), 0);
    QCOMPARE(window.SendMessage(WM_KEYDOWN, 0x41, 0), 0);
    QCOMPARE(window.SendMessage(WM_KEYDOWN, 0x07, 0), 6); // travels as a message
    QCOMPARE(window.SendMessage(WM_SIZE, 0, 0), 0);
    QCoreApplication::removePostedEvents(&widget);
}

void tst_SendPost::plainTargetGivesZero()
{
    QWidget widget;
    QCOMPARE(SendMessage_X(&widget, WM_USER, 1, 2), 0);
    QCOMPARE(SendMessage_X(&widget, WM_CLOSE, 0, 0), 0);
}

void tst_SendPost::postedMessageWithoutEntry()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    QCOMPARE(PostMessage_X(&widget, WM_USER + 6, 0, 0), 1);
    deliverPosted();
    QCOMPARE(window.trace.take(), QStringLiteral("WM_USER+6(0x0, 0x0)"));
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 1); // Qt had it too, and ignored it
}

void tst_SendPost::noTarget()
{
    for (const UINT message : {WM_USER, WM_SIZE, WM_LBUTTONDOWN, WM_KEYDOWN, WM_CLOSE}) {
        QCOMPARE(SendMessage_X(nullptr, message, 0, 0), 0);
        QCOMPARE(PostMessage_X(nullptr, message, 0, 0), 1);
    }
}

// ----------------------------------------------------------------------------------------------------- threads

void tst_SendPost::messagesFromAnotherThread()
{
    QWidget widget;
    ScriptWindow window(&widget);
    QVector<int> received;
    window.on<WM_USER + 1>([&](WPARAM wParam, LPARAM lParam) {
        if (QThread::currentThread() == qApp->thread() && lParam == -1)
            received += int(wParam);
        return 0;
    });
    std::thread([&widget] {
        for (int i = 0; i < 100; ++i)
            PostMessage_X(&widget, WM_USER + 1, WPARAM(i), -1);
    }).join();
    QTRY_COMPARE(received.size(), 100);
    QVERIFY(std::is_sorted(received.begin(), received.end()));
}

XE_TEST(tst_SendPost)
#include "tst_sendpost.moc"
