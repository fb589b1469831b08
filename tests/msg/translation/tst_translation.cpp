// Qt events to messages.

#include "leavenothing.h"
#include "testclass.h"
#include "translation/madeevents.h"
#include "translation/ownpointer.h"

#include <xeafxwin.h>

/// Compares, for each event that it filters, the message that it hands on with what xeQEventToMsg() says.
class ComparingWindow : public CWnd_X
{
    Q_OBJECT

public:
    bool eventFilter(QObject* target, QEvent* event) override
    {
        tagMSG byFunction{};
        const bool hasMessage = xeQEventToMsg(target, event, &byFunction);
        m_fromFilter.clear();
        const bool stopped = CWnd_X::eventFilter(target, event);
        const QString expected = hasMessage ? describeAll(byFunction) : QString();
        if (m_fromFilter != expected)
            differences += QStringLiteral("%1 instead of %2").arg(m_fromFilter, expected);
        return stopped;
    }

    int PreTranslateMessage(tagMSG* message) override
    {
        m_fromFilter = describeAll(*message);
        seen.insert(message->message);
        return 0;
    }

    QStringList differences;
    QSet<UINT> seen;

private:
    static QString describeAll(const tagMSG& message)
    {
        // The second may have changed between the two.
        const bool isNow = qAbs(qint64(message.time) - QDateTime::currentSecsSinceEpoch()) <= 1;
        return QStringLiteral("%1 hwnd %2 pt %3,%4%5")
            .arg(describe(message, nullptr))
            .arg(quintptr(message.hwnd), 0, 16)
            .arg(message.pt.x)
            .arg(message.pt.y)
            .arg(isNow ? QString() : QStringLiteral(" at another time"));
    }

    QString m_fromFilter;
};

class tst_Translation : public QObject
{
    Q_OBJECT

private slots:
    void init() { resetPointer(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void messageNumbers_data();
    void messageNumbers();
    void eventTypesOfTheLibrary();

    void mouseButtons_data();
    void mouseButtons();
    void eventToMessage_data();
    void eventToMessage();
    void everyOtherTypeHasNoMessage();
    void nullArguments();

    void aWindowSeesTheSameMessages();
    void keysThroughAWidget_data();
    void keysThroughAWidget();
};

void tst_Translation::messageNumbers_data()
{
    QTest::addColumn<UINT>("constant");
    QTest::addColumn<UINT>("number");

    QTest::newRow("WM_CREATE") << WM_CREATE << 0x0001u;
    QTest::newRow("WM_DESTROY") << WM_DESTROY << 0x0002u;
    QTest::newRow("WM_SIZE") << WM_SIZE << 0x0005u;
    QTest::newRow("WM_ACTIVATE") << WM_ACTIVATE << 0x0006u;
    QTest::newRow("WM_KILLFOCUS") << WM_KILLFOCUS << 0x0008u;
    QTest::newRow("WM_PAINT") << WM_PAINT << 0x000Fu;
    QTest::newRow("WM_CLOSE") << WM_CLOSE << 0x0010u;
    QTest::newRow("WM_ERASEBKGND") << WM_ERASEBKGND << 0x0014u;
    QTest::newRow("WM_SYSCOLORCHANGE") << WM_SYSCOLORCHANGE << 0x0015u;
    QTest::newRow("WM_SHOWWINDOW") << WM_SHOWWINDOW << 0x0018u;
    QTest::newRow("WM_SETCURSOR") << WM_SETCURSOR << 0x0020u;
    QTest::newRow("WM_SETFONT") << WM_SETFONT << 0x0030u;
    QTest::newRow("WM_GETFONT") << WM_GETFONT << 0x0031u;
    QTest::newRow("WM_NOTIFY") << WM_NOTIFY << 0x004Eu;
    QTest::newRow("WM_CONTEXTMENU") << WM_CONTEXTMENU << 0x007Bu;
    QTest::newRow("WM_NCDESTROY") << WM_NCDESTROY << 0x0082u;
    QTest::newRow("WM_NCLBUTTONUP") << WM_NCLBUTTONUP << 0x00A2u;
    QTest::newRow("WM_KEYDOWN") << WM_KEYDOWN << 0x0100u;
    QTest::newRow("WM_KEYUP") << WM_KEYUP << 0x0101u;
    QTest::newRow("WM_CHAR") << WM_CHAR << 0x0102u;
    QTest::newRow("WM_SYSKEYDOWN") << WM_SYSKEYDOWN << 0x0104u;
    QTest::newRow("WM_SYSKEYUP") << WM_SYSKEYUP << 0x0105u;
    QTest::newRow("WM_SYSCHAR") << WM_SYSCHAR << 0x0106u;
    QTest::newRow("WM_COMMAND") << WM_COMMAND << 0x0111u;
    QTest::newRow("WM_TIMER") << WM_TIMER << 0x0113u;
    QTest::newRow("WM_HSCROLL") << WM_HSCROLL << 0x0114u;
    QTest::newRow("WM_VSCROLL") << WM_VSCROLL << 0x0115u;
    QTest::newRow("WM_MOUSEMOVE") << WM_MOUSEMOVE << 0x0200u;
    QTest::newRow("WM_LBUTTONDOWN") << WM_LBUTTONDOWN << 0x0201u;
    QTest::newRow("WM_LBUTTONUP") << WM_LBUTTONUP << 0x0202u;
    QTest::newRow("WM_LBUTTONDBLCLK") << WM_LBUTTONDBLCLK << 0x0203u;
    QTest::newRow("WM_RBUTTONDOWN") << WM_RBUTTONDOWN << 0x0204u;
    QTest::newRow("WM_RBUTTONUP") << WM_RBUTTONUP << 0x0205u;
    QTest::newRow("WM_RBUTTONDBLCLK") << WM_RBUTTONDBLCLK << 0x0206u;
    QTest::newRow("WM_MBUTTONDOWN") << WM_MBUTTONDOWN << 0x0207u;
    QTest::newRow("WM_MBUTTONUP") << WM_MBUTTONUP << 0x0208u;
    QTest::newRow("WM_MBUTTONDBLCLK") << WM_MBUTTONDBLCLK << 0x0209u;
    QTest::newRow("WM_MOUSEWHEEL") << WM_MOUSEWHEEL << 0x020Au;
    QTest::newRow("WM_MOUSEHOVER") << WM_MOUSEHOVER << 0x02A1u;
    QTest::newRow("WM_MOUSELEAVE") << WM_MOUSELEAVE << 0x02A3u;
    QTest::newRow("end of in-place edit") << WM_USER + 100 << 0x0464u;
    QTest::newRow("no message") << XE_WM_NONE << 0xFFFFFFFFu;
}

void tst_Translation::messageNumbers()
{
    QFETCH(UINT, constant);
    QFETCH(UINT, number);
    QCOMPARE(constant, number);
}

void tst_Translation::eventTypesOfTheLibrary()
{
    const XeWinMsgEvent event(0x0464, 8, 9);
    QCOMPARE(event.type(), XeWinMsgEvent::EventType);
    QCOMPARE(event.message, 0x0464u);
    QCOMPARE(event.wParam, WPARAM(8));
    QCOMPARE(event.lParam, LPARAM(9));
    QCOMPARE(event.result, LRESULT(0));
}

// ------------------------------------------------------------------------------------------------ events to messages

void tst_Translation::mouseButtons_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("message");

    struct Row
    {
        const char* name;
        Qt::MouseButton button;
        const char* press;
        const char* release;
        const char* doubleClick;
    };
    const Row rows[] = {
        {"left", Qt::LeftButton, "0201", "0202", "0203"},
        {"right", Qt::RightButton, "0204", "0205", "0206"},
        {"middle", Qt::MiddleButton, "0207", "0208", "0209"},
        {"first extra button", Qt::XButton1, "ffffffff", "ffffffff", "ffffffff"},
        {"second extra button", Qt::XButton2, "ffffffff", "ffffffff", "ffffffff"},
        {"last extra button", Qt::ExtraButton24, "ffffffff", "ffffffff", "ffffffff"},
        {"no button", Qt::NoButton, "ffffffff", "ffffffff", "ffffffff"},
    };
    for (const Row& row : rows) {
        QTest::addRow("press of %s", row.name) << 2 << int(row.button) << row.press;
        QTest::addRow("release of %s", row.name) << 3 << int(row.button) << row.release;
        QTest::addRow("double click of %s", row.name) << 4 << int(row.button) << row.doubleClick;
        QTest::addRow("move with %s", row.name) << 5 << int(row.button) << "0200";
    }
}

void tst_Translation::mouseButtons()
{
    QFETCH(int, type);
    QFETCH(int, button);
    QFETCH(QString, message);

    QWidget target;
    // The flags are those of the buttons that are down (the right one), not of the button that the event is about.
    const auto event = mouse(type, {10, 20}, static_cast<Qt::MouseButton>(button), Qt::RightButton, Qt::AltModifier);
    QCOMPARE(translated(&target, event.data()), message + QStringLiteral(" wParam 22 lParam 14000a"));
}

void tst_Translation::eventToMessage_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::addColumn<QString>("message");

    const auto row = [](const char* name, const EventPointer& event, const char* message) {
        QTest::newRow(name) << event << QString::fromLatin1(message);
    };
    row("timer", EventPointer(new QTimerEvent(4711)), "0113 wParam 1267 lParam 0");

    row("press without modifiers", mouse(2, {10, 20}, Qt::LeftButton, Qt::LeftButton, none),
        "0201 wParam 1 lParam 14000a");
    row("press with all buttons and modifiers",
        mouse(2, {10, 20}, Qt::LeftButton, Qt::LeftButton | Qt::RightButton | Qt::MiddleButton, controlAltShift),
        "0201 wParam 3f lParam 14000a");
    row("press with what has no flag", mouse(2, {10, 20}, Qt::LeftButton, Qt::XButton1, Qt::MetaModifier),
        "0201 wParam 0 lParam 14000a");
    row("release without buttons", mouse(3, {10, 20}, Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier),
        "0202 wParam 4 lParam 14000a");
    row("double click", mouse(4, {10, 20}, Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier),
        "0203 wParam 9 lParam 14000a");
    row("move", mouse(5, {10, 20}, Qt::NoButton, Qt::NoButton, none), "0200 wParam 0 lParam 14000a");
    row("move with two buttons down", mouse(5, {10, 20}, Qt::NoButton, Qt::LeftButton | Qt::MiddleButton, none),
        "0200 wParam 11 lParam 14000a");

    row("key press", key(QEvent::KeyPress, Qt::Key_A, none, "a"), "0100 wParam 41 lParam 1");
    row("key release", key(QEvent::KeyRelease, Qt::Key_A, none, "a"), "0101 wParam 41 lParam 80000001");
    row("key press with Shift", key(QEvent::KeyPress, Qt::Key_Left, Qt::ShiftModifier), "0100 wParam 25 lParam 40001");
    row("key press with Control", key(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier), "0100 wParam 43 lParam 80001");
    row("key press with Alt", key(QEvent::KeyPress, Qt::Key_F4, Qt::AltModifier), "0104 wParam 73 lParam 200001");
    row("key release with Alt", key(QEvent::KeyRelease, Qt::Key_F4, Qt::AltModifier), "0105 wParam 73 lParam 80200001");
    row("key press with Control, Alt and Shift", key(QEvent::KeyPress, Qt::Key_F1, controlAltShift),
        "0104 wParam 70 lParam 2c0001");
    row("key release with Control, Alt and Shift", key(QEvent::KeyRelease, Qt::Key_F1, controlAltShift),
        "0105 wParam 70 lParam 802c0001");
    // Qt counts a modifier key as held from its own press on, and no longer at its release.
    row("press of the Shift key", key(QEvent::KeyPress, Qt::Key_Shift, none), "0100 wParam 10 lParam 40001");
    row("release of the Shift key", key(QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier),
        "0101 wParam 10 lParam 80000001");
    row("press of the Alt key", key(QEvent::KeyPress, Qt::Key_Alt, none), "0104 wParam 12 lParam 200001");
    row("release of the Alt key", key(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier),
        "0101 wParam 12 lParam 80000001");
    row("Meta and the keypad have no flag", key(QEvent::KeyPress, Qt::Key_Enter, Qt::MetaModifier | Qt::KeypadModifier),
        "0100 wParam d lParam 1");
    row("Shift and 1 is the key of the digit", key(QEvent::KeyPress, Qt::Key_Exclam, Qt::ShiftModifier, "!"),
        "0100 wParam 31 lParam 40001");
    row("press of a key without a VK code", key(QEvent::KeyPress, Qt::Key_Menu, none),
        "0100 wParam ffffffffffffffff lParam 1");
    row("release of a key without a VK code", key(QEvent::KeyRelease, Qt::Key_Menu, Qt::AltModifier),
        "0105 wParam ffffffffffffffff lParam 80200001");
    row("press of no key", key(QEvent::KeyPress, 0, none, "x"), "0100 wParam ffffffffffffffff lParam 1");

    row("leave", plain(11), "02a3 wParam 0 lParam 0");
    row("paint", EventPointer(new QPaintEvent(QRect(1, 2, 3, 4))), "000f wParam 0 lParam 0");
    row("resize", EventPointer(new QResizeEvent({640, 480}, {10, 20})), "0005 wParam 0 lParam 1e00280");
    row("resize to nothing", EventPointer(new QResizeEvent({0, 0}, {10, 20})), "0005 wParam 0 lParam 0");
    row("resize beyond 16 bits", EventPointer(new QResizeEvent({0x12345, 0x16789}, {})),
        "0005 wParam 0 lParam 67892345");
    row("resize of a negative width", EventPointer(new QResizeEvent({-1, 0xFFFF}, {})),
        "0005 wParam 0 lParam ffffffff");
    row("close", EventPointer(new QCloseEvent), "0010 wParam 0 lParam 0");
    row("activation", plain(24), "0006 wParam 1 lParam self");
    row("deactivation", plain(25), "0006 wParam 0 lParam self");
    row("shown to the parent", plain(26), "0018 wParam 0 lParam 0");

    row("wheel forward", wheel({10, 20}, 120), "020a wParam 780000 lParam 14000a");
    row("wheel backward", wheel({10, 20}, -120), "020a wParam ff880000 lParam 14000a");
    row("wheel with keys and buttons has no flags", oldWheel(120, {0, 120}), "020a wParam 780000 lParam 14000a");
    row("the wheel's delta counts, not its angle", oldWheel(-240, {7, 9}), "020a wParam ff100000 lParam 14000a");
    row("wheel delta beyond 16 bits", oldWheel(0x12345, {}), "020a wParam 23450000 lParam 14000a");
    row("wheel without a delta", oldWheel(0, {}), "020a wParam 0 lParam 14000a");

    row("context menu by mouse", EventPointer(new QContextMenuEvent(QContextMenuEvent::Mouse, {10, 20}, {500, 600})),
        "007b wParam self lParam 14000a");
    row("context menu by key",
        EventPointer(new QContextMenuEvent(QContextMenuEvent::Keyboard, {-1, -2}, {500, 600}, controlAltShift)),
        "007b wParam self lParam fffeffff");

    row("hover begins", hover(QEvent::HoverEnter, {10, 20}, none), "02a1 wParam 0 lParam 14000a");
    row("hover begins with modifiers", hover(QEvent::HoverEnter, {10.5, 20.4}, controlAltShift),
        "02a1 wParam 2c lParam 14000b");
    row("hover ends", hover(QEvent::HoverLeave, {-1, 20}, Qt::ShiftModifier), "02a3 wParam 4 lParam 14ffff");

    row("release of the right button on the frame",
        mouse(175, {10, 20}, Qt::RightButton, Qt::LeftButton, controlAltShift), "ffffffff wParam 0 lParam 0");
    row("release of the middle button on the frame", mouse(175, {10, 20}, Qt::MiddleButton, Qt::NoButton, none),
        "ffffffff wParam 0 lParam 0");

    row("message event", EventPointer(new XeWinMsgEvent(0x0464, 8, 9)), "0464 wParam 8 lParam 9");
    row("message event with the greatest values", EventPointer(new XeWinMsgEvent(~0u, ~0ul, -1)),
        "ffffffff wParam ffffffffffffffff lParam ffffffffffffffff");
    row("message event of message 0", EventPointer(new XeWinMsgEvent(0, 0, 0)), "0000 wParam 0 lParam 0");
}

void tst_Translation::eventToMessage()
{
    QFETCH(EventPointer, event);
    QFETCH(QString, message);

    QWidget target;
    tagMSG out{nullptr, 1, 2, 3, 4, {5, 6}};
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    QCOMPARE(xeQEventToMsg(&target, event.data(), &out), 1);
    const qint64 after = QDateTime::currentSecsSinceEpoch();

    QCOMPARE(describe(out, &target), message);
    QCOMPARE(out.hwnd, &target);
    QVERIFY(out.time >= before && out.time <= after);
    QCOMPARE(QPoint(out.pt.x, out.pt.y), QPoint(31, 17));
}

void tst_Translation::everyOtherTypeHasNoMessage()
{
    const QSet<int> withMessage{QEvent::Timer,
                                QEvent::MouseButtonPress,
                                QEvent::MouseButtonRelease,
                                QEvent::MouseButtonDblClick,
                                QEvent::MouseMove,
                                QEvent::KeyPress,
                                QEvent::KeyRelease,
                                QEvent::Leave,
                                QEvent::Paint,
                                QEvent::Resize,
                                QEvent::Close,
                                QEvent::WindowActivate,
                                QEvent::WindowDeactivate,
                                QEvent::ShowToParent,
                                QEvent::Wheel,
                                QEvent::ContextMenu,
                                QEvent::HoverEnter,
                                QEvent::HoverLeave,
                                QEvent::NonClientAreaMouseButtonRelease,
                                XeWinMsgEvent::EventType};
    QWidget target;
    for (int type = 0; type <= QEvent::MaxUser; ++type) {
        if (withMessage.contains(type))
            continue;
        QEvent event(static_cast<QEvent::Type>(type));
        tagMSG message{nullptr, 1, 2, 3, 4, {5, 6}};
        const int result = xeQEventToMsg(&target, &event, &message);
        const bool isUntouched = !message.hwnd && message.time == 4 && message.pt.x == 5 && message.pt.y == 6
                                 && describe(message, nullptr) == QLatin1String("0001 wParam 2 lParam 3");
        if (result || !isUntouched)
            QFAIL(qPrintable(QStringLiteral("type %1 was translated").arg(type)));
    }
    QCOMPARE(pointerQuestions, 0);
}

void tst_Translation::nullArguments()
{
    QObject target;
    QEvent event(QEvent::Close);
    tagMSG message{nullptr, 1, 2, 3, 4, {5, 6}};
    QCOMPARE(xeQEventToMsg(nullptr, &event, &message), 0);
    QCOMPARE(xeQEventToMsg(&target, nullptr, &message), 0);
    QCOMPARE(xeQEventToMsg(&target, &event, nullptr), 0);
    QCOMPARE(xeQEventToMsg(nullptr, nullptr, nullptr), 0);
    QCOMPARE(describe(message, nullptr), QStringLiteral("0001 wParam 2 lParam 3"));
    QCOMPARE(pointerQuestions, 0);
}

// ----------------------------------------------------------------------------------------------- through a window

void tst_Translation::aWindowSeesTheSameMessages()
{
    QWidget widget;
    ComparingWindow window;
    widget.setAttribute(Qt::WA_Hover);
    widget.setMouseTracking(true);
    widget.resize(200, 100);
    QVERIFY(window.SubclassWindow(&widget));

    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTest::mouseMove(&widget, {20, 30});
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::XButton1}) {
        QTest::mouseClick(&widget, button, none, {20, 30});
        QTest::mouseDClick(&widget, button, Qt::ControlModifier, {20, 30});
    }
    QTest::keyClick(&widget, Qt::Key_A, Qt::AltModifier);
    QTest::keyClick(&widget, Qt::Key_B, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&widget, wheel({1, 2}, -120).data());
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {3, 4}, {5, 6});
    QCoreApplication::sendEvent(&widget, &menu);
    QCoreApplication::sendEvent(&widget, mouse(175, {1, 2}, Qt::LeftButton, Qt::NoButton, none).data());
    QCoreApplication::sendEvent(&widget, hover(QEvent::HoverEnter, {1, 2}, Qt::ShiftModifier).data());
    QCoreApplication::sendEvent(&widget, hover(QEvent::HoverLeave, {-1, 2}, none).data());
    QCoreApplication::sendEvent(&widget, plain(QEvent::WindowDeactivate).data());
    QCoreApplication::sendEvent(&widget, plain(QEvent::WindowActivate).data());
    QTimerEvent timer(1);
    QCoreApplication::sendEvent(&widget, &timer);
    widget.resize(300, 150);
    widget.repaint();
    QCoreApplication::sendPostedEvents();
    widget.close();

    QCOMPARE(window.differences.join(QLatin1Char('\n')), QString());
    const std::vector<UINT> expected{0x0005, 0x0006, 0x000F, 0x0010, 0x0018, 0x0020, 0x007B, 0x00A2, 0x0100,    0x0101,
                                     0x0104, 0x0105, 0x0102, 0x0106, 0x0113, 0x0200, 0x0201, 0x0202, 0x0203,    0x0204,
                                     0x0205, 0x0206, 0x0207, 0x0208, 0x0209, 0x020A, 0x02A1, 0x02A3, 0xFFFFFFFF};
    QStringList missing;
    for (const UINT message : expected) {
        if (!window.seen.contains(message))
            missing += QString::number(message, 16);
    }
    QCOMPARE(missing.join(QLatin1Char(' ')), QString());
}

void tst_Translation::keysThroughAWidget_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<UINT>>("messages");

    QTest::newRow("letter") << int(Qt::Key_A) << int(none) << QList<UINT>{0x0100, 0x0101, 0x0102};
    QTest::newRow("function key has no character") << int(Qt::Key_F1) << int(none) << QList<UINT>{0x0100, 0x0101};
    QTest::newRow("letter with Alt, which is pressed before and released after it")
        << int(Qt::Key_A) << int(Qt::AltModifier) << QList<UINT>{0x0104, 0x0104, 0x0105, 0x0101, 0x0106};
}

// The character is posted, so it comes after the release of the key.
void tst_Translation::keysThroughAWidget()
{
    QFETCH(int, code);
    QFETCH(int, modifiers);
    QFETCH(QList<UINT>, messages);

    class Window : public CWnd_X
    {
    public:
        int PreTranslateMessage(tagMSG* message) override
        {
            seen += message->message;
            return 0;
        }
        QList<UINT> seen;
    };
    QWidget widget;
    Window window;
    QVERIFY(window.SubclassWindow(&widget));
    for (const QTest::KeyAction action : {QTest::Press, QTest::Release}) {
        QTest::sendKeyEvent(action, &widget, static_cast<Qt::Key>(code), QTest::keyToAscii(static_cast<Qt::Key>(code)),
                            static_cast<Qt::KeyboardModifiers>(modifiers));
    }
    QCoreApplication::sendPostedEvents(&widget);
    QCOMPARE(window.seen, messages);
}

XE_TEST(tst_Translation)
#include "tst_translation.moc"
