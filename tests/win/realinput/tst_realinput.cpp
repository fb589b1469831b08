#include "leavenothing.h"
#include "messagetrace.h"
#include "realwindow.h"
#include "testclass.h"

#include <xehook.h>
#include <xewinuser.h>

/// Writes down what comes of input, without painting, sizing and activation.
class InputWnd : public Traced<>
{
public:
    int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        const bool isInput = (message >= WM_KEYDOWN && message <= WM_SYSCHAR)
                             || (message >= WM_MOUSEMOVE && message <= WM_MOUSEWHEEL) || message == WM_SETCURSOR
                             || message == WM_CONTEXTMENU || message == XE_WM_NONE;
        return isInput ? Traced::OnWndMsg(message, wParam, lParam, result)
                       : CWnd_X::OnWndMsg(message, wParam, lParam, result);
    }
};

namespace {

class CTavoMainFrame : public QWidget
{
    Q_OBJECT
};

class CTavoView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};

QStringList hookCalls;
long long hookResult = 0;

long long noteCall(int code, unsigned long wParam, long long lParam)
{
    hookCalls += QStringLiteral("%1 0x%2 0x%3").arg(code).arg(wParam, 0, 16).arg(lParam, 0, 16);
    return hookResult;
}

/// A deed of the user, and the messages that come of it.
struct Step
{
    QString action;
    QString messages;
};
using Steps = QVector<Step>;

} // namespace
Q_DECLARE_METATYPE(Steps)

/// Input as a user makes it, from the X server to the messages of a wrapped window.
class tst_RealInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init();
    void cleanup();

    void mouse_data();
    void mouse();
    void keys_data();
    void keys();
    void aGrabbedMouseSetsNoCursor();
    void cursorPositionIsThePointersPlace_data();
    void cursorPositionIsThePointersPlace();
    void keysAreSeenByTheirStateToo();
    void aHookSeesARealKeyOnce();
    void aHookStopsARealKey();

private:
    void act(const QString& action);
    void runSteps(const Steps& steps);

    VirtualInput m_input;
    std::unique_ptr<RealWindow<InputWnd>> m_window;
};

void tst_RealInput::init()
{
    hookCalls.clear();
    hookResult = 0;
    m_window = std::make_unique<RealWindow<InputWnd>>(m_input);
    QVERIFY(m_window->comeUp());
    m_window->settle();
    m_window->wrapper.trace.clear();
}

void tst_RealInput::cleanup()
{
    m_input.releaseAll();
    m_window.reset();
    UnhookWindowsHookEx_X(reinterpret_cast<HHOOK>(noteCall));
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// "to 30,40" moves the pointer, "press 1" and "release 1" work a button, "down ffe1" and "up ffe1" a key.
void tst_RealInput::act(const QString& action)
{
    const QString verb = action.section(' ', 0, 0);
    const QString object = action.section(' ', 1);
    if (verb == "to")
        m_window->movePointer({object.section(',', 0, 0).toInt(), object.section(',', 1).toInt()});
    else if (verb == "press")
        m_input.pressButton(object.toUInt());
    else if (verb == "release")
        m_input.releaseButton(object.toUInt());
    else if (verb == "down")
        m_input.pressKey(object.toULong(nullptr, 16));
    else if (verb == "up")
        m_input.releaseKey(object.toULong(nullptr, 16));
    else
        QFAIL(qPrintable(action));
}

// The window manager hands on what it has grabbed, in its own time.
void tst_RealInput::runSteps(const Steps& steps)
{
    MessageTrace& trace = m_window->wrapper.trace;
    for (const Step& step : steps) {
        act(step.action);
        QTRY_COMPARE(trace.text(), step.messages);
        m_window->settle();
        QCOMPARE(trace.take(), step.messages);
    }
}

static void addRow(const char* name, const Steps& steps) { QTest::newRow(name) << steps; }

void tst_RealInput::mouse_data()
{
    QTest::addColumn<Steps>("steps");

    const Step move{"to 30,40", "WM_MOUSEMOVE(0x0, 0x28001e) WM_SETCURSOR(self, 0x2000000)"};
    const Step press{"press 1", "WM_LBUTTONDOWN(0x1, 0x50005) WM_SETCURSOR(self, 0x2010000)"};
    const Step release{"release 1", "WM_LBUTTONUP(0x0, 0x50005) WM_SETCURSOR(self, 0x2020000)"};
    const Step pressAgain{"press 1", "WM_LBUTTONDBLCLK(0x1, 0x50005) WM_SETCURSOR(self, 0x2030000)"};

    addRow("a move", {move});
    addRow("a left click after a move", {move,
                                         {"press 1", "WM_LBUTTONDOWN(0x1, 0x28001e) WM_SETCURSOR(self, 0x2010000)"},
                                         {"release 1", "WM_LBUTTONUP(0x0, 0x28001e) WM_SETCURSOR(self, 0x2020000)"}});
    addRow("a double click", {press, release, pressAgain, release});
    addRow("a right click asks for a menu",
           {{"press 3", "WM_RBUTTONDOWN(0x2, 0x50005) WM_CONTEXTMENU(self, 0x50005) WM_SETCURSOR(self, 0x2040000)"},
            {"release 3", "WM_RBUTTONUP(0x0, 0x50005) WM_SETCURSOR(self, 0x2050000)"}});
    addRow("a middle click", {{"press 2", "WM_MBUTTONDOWN(0x10, 0x50005) WM_SETCURSOR(self, 0x2070000)"},
                              {"release 2", "WM_MBUTTONUP(0x0, 0x50005) WM_SETCURSOR(self, 0x2080000)"}});
    addRow("the wheel forward", {{"press 4", ""}, {"release 4", "WM_MOUSEWHEEL(0x780000, 0x50005)"}});
    addRow("the wheel backward", {{"press 5", ""}, {"release 5", "WM_MOUSEWHEEL(0xff880000, 0x50005)"}});
    addRow("a further button has no message",
           {{"press 8", "XE_WM_NONE(0x0, 0x50005) WM_SETCURSOR(self, 0xffff0000)"},
            {"release 8", "XE_WM_NONE(0x0, 0x50005) WM_SETCURSOR(self, 0xffff0000)"}});
    addRow("a drag that leaves the window",
           {press,
            {"to 60,8", "WM_MOUSEMOVE(0x1, 0x8003c) WM_SETCURSOR(self, 0x2000000)"},
            {"to -70,-90", "WM_MOUSEMOVE(0x1, 0xffa6ffba) WM_SETCURSOR(self, 0x2000000)"},
            {"release 1", "WM_LBUTTONUP(0x0, 0xffa6ffba) WM_SETCURSOR(self, 0x2020000)"}});
    addRow("a click with Shift and Control", {{"down ffe1", "WM_KEYDOWN(0x10, 0x40001)"},
                                              {"down ffe3", "WM_KEYDOWN(0x11, 0xc0001)"},
                                              {"press 1", "WM_LBUTTONDOWN(0xd, 0x50005) WM_SETCURSOR(self, 0x2010000)"},
                                              {"release 1", "WM_LBUTTONUP(0xc, 0x50005) WM_SETCURSOR(self, 0x2020000)"},
                                              {"up ffe3", "WM_KEYUP(0x11, 0x80040001)"},
                                              {"up ffe1", "WM_KEYUP(0x10, 0x80000001)"}});
}

void tst_RealInput::mouse()
{
    QFETCH(Steps, steps);
    runSteps(steps);
}

void tst_RealInput::keys_data()
{
    QTest::addColumn<Steps>("steps");

    addRow("a letter",
           {{"down 61", "WM_KEYDOWN(0x41, 0x1) WM_CHAR(0x61, 0x1)"}, {"up 61", "WM_KEYUP(0x41, 0x80000001)"}});
    addRow("a digit",
           {{"down 31", "WM_KEYDOWN(0x31, 0x1) WM_CHAR(0x31, 0x1)"}, {"up 31", "WM_KEYUP(0x31, 0x80000001)"}});
    addRow("Shift+1 has the code of the digit", {{"down ffe1", "WM_KEYDOWN(0x10, 0x40001)"},
                                                 {"down 31", "WM_KEYDOWN(0x31, 0x40001) WM_CHAR(0x21, 0x40001)"},
                                                 {"up 31", "WM_KEYUP(0x31, 0x80040001)"},
                                                 {"up ffe1", "WM_KEYUP(0x10, 0x80000001)"}});
    addRow("Control+A gives a control character", {{"down ffe3", "WM_KEYDOWN(0x11, 0x80001)"},
                                                   {"down 61", "WM_KEYDOWN(0x41, 0x80001) WM_CHAR(0x1, 0x80001)"},
                                                   {"up 61", "WM_KEYUP(0x41, 0x80080001)"},
                                                   {"up ffe3", "WM_KEYUP(0x11, 0x80000001)"}});
    addRow("Alt+X is a system key", {{"down ffe9", "WM_SYSKEYDOWN(0x12, 0x200001)"},
                                     {"down 78", "WM_SYSKEYDOWN(0x58, 0x200001) WM_SYSCHAR(0x78, 0x200001)"},
                                     {"up 78", "WM_SYSKEYUP(0x58, 0x80200001)"},
                                     {"up ffe9", "WM_KEYUP(0x12, 0x80000001)"}});
    addRow("Return",
           {{"down ff0d", "WM_KEYDOWN(0xd, 0x1) WM_CHAR(0xd, 0x1)"}, {"up ff0d", "WM_KEYUP(0xd, 0x80000001)"}});
    addRow("an arrow has no character",
           {{"down ff51", "WM_KEYDOWN(0x25, 0x1)"}, {"up ff51", "WM_KEYUP(0x25, 0x80000001)"}});
    addRow("a function key has no character",
           {{"down ffc2", "WM_KEYDOWN(0x74, 0x1)"}, {"up ffc2", "WM_KEYUP(0x74, 0x80000001)"}});
    addRow("a key without a code is all ones", {{"down ffeb", "WM_KEYDOWN(0xffffffffffffffff, 0x1)"},
                                                {"up ffeb", "WM_KEYUP(0xffffffffffffffff, 0x80000001)"}});
}

void tst_RealInput::keys()
{
    QFETCH(Steps, steps);
    runSteps(steps);
}

void tst_RealInput::aGrabbedMouseSetsNoCursor()
{
    m_window->widget()->grabMouse();
    QCOMPARE(CWnd_X::GetCapture(), m_window->widget());
    m_window->settle();
    m_window->wrapper.trace.clear();
    runSteps({{"to 30,40", "WM_MOUSEMOVE(0x0, 0x28001e)"},
              {"press 1", "WM_LBUTTONDOWN(0x1, 0x28001e)"},
              {"release 1", "WM_LBUTTONUP(0x0, 0x28001e)"}});
    m_window->widget()->releaseMouse();
    QCOMPARE(CWnd_X::GetCapture(), static_cast<QWidget*>(nullptr));
}

void tst_RealInput::cursorPositionIsThePointersPlace_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("the origin") << QPoint(0, 0);
    QTest::newRow("over no window") << QPoint(1111, 999);
    QTest::newRow("over the window") << QPoint(321, 234);
    QTest::newRow("the last pixel") << QPoint(1279, 1023);
}

void tst_RealInput::cursorPositionIsThePointersPlace()
{
    QFETCH(QPoint, place);
    m_input.movePointer(place);
    tagPOINT position{-1, -1};
    QCOMPARE(GetCursorPos_X(&position), 1);
    QCOMPARE(QPoint(position.x, position.y), place);
}

void tst_RealInput::keysAreSeenByTheirStateToo()
{
    act("down ffe1");
    act("press 1");
    QCOMPARE(GetKeyState_X(VK_SHIFT), 0x8000);
    QCOMPARE(GetKeyState_X(VK_LBUTTON), 0x8000);
    QCOMPARE(GetKeyState_X(VK_CONTROL), 0);
    QTRY_COMPARE(m_window->wrapper.trace.text(),
                 QString("WM_KEYDOWN(0x10, 0x40001) WM_LBUTTONDOWN(0x5, 0x50005) WM_SETCURSOR(self, 0x2010000)"));
}

void tst_RealInput::aHookSeesARealKeyOnce()
{
    auto* frame = new CTavoMainFrame;
    auto* view = new CTavoView(frame);
    view->setFocusPolicy(Qt::StrongFocus);
    view->setFocus();
    m_window = std::make_unique<RealWindow<InputWnd>>(m_input, frame);
    QVERIFY(m_window->comeUp());
    QTRY_VERIFY(view->hasFocus());

    const HHOOK hook = SetWindowsHookEx_X(WH_KEYBOARD, noteCall);
    act("down 61");
    act("up 61");
    // The view leaves the keys to the frame: two events each.
    QTRY_VERIFY(m_window->wrapper.trace.text().contains("WM_KEYUP(0x41, 0x80000001)"));
    QCOMPARE(UnhookWindowsHookEx_X(hook), 1);
    act("down 62");
    QTRY_VERIFY(m_window->wrapper.trace.text().contains("WM_KEYDOWN(0x42, 0x1)"));
    QCOMPARE(hookCalls.join(", "), QString("0 0x41 0x1, 0 0x41 0x80000001"));
}

void tst_RealInput::aHookStopsARealKey()
{
    m_window = std::make_unique<RealWindow<InputWnd>>(m_input, new CTavoMainFrame);
    QVERIFY(m_window->comeUp());
    m_window->settle();
    m_window->wrapper.trace.clear();
    hookResult = 1;
    const HHOOK hook = SetWindowsHookEx_X(WH_KEYBOARD, noteCall);
    act("down 61");
    act("up 61");
    QTRY_COMPARE(hookCalls.size(), 2);
    QCOMPARE(UnhookWindowsHookEx_X(hook), 1);
    runSteps({{"down 62", "WM_KEYDOWN(0x42, 0x1) WM_CHAR(0x62, 0x1)"}, {"up 62", "WM_KEYUP(0x42, 0x80000001)"}});
}

XE_TEST(tst_RealInput)
#include "tst_realinput.moc"
