#include "leavenothing.h"
#include "realwindow.h"
#include "testclass.h"

#include <xehook.h>

#include <dlfcn.h>

namespace {

int questions = 0; // of the library, since the last reset

bool isInLibrary(const void* address)
{
    Dl_info info{};
    return dladdr(address, &info) && info.dli_fname && std::strstr(info.dli_fname, "libXeMFCEmu.so");
}

} // namespace

// Stands in for Qt's function in the whole process, to count who asks the X server where the pointer is.
QPoint QCursor::pos()
{
    if (isInLibrary(__builtin_return_address(0)))
        ++questions;
    return pos(QGuiApplication::primaryScreen());
}

/// Looks at each message.
class LookingWnd : public CWnd_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        messages += QStringLiteral("0x%1 at %2,%3").arg(message->message, 0, 16).arg(message->pt.x).arg(message->pt.y);
        return 0;
    }

    QStringList messages;
};

/// Handles mouse and keys but looks at no message.
class HandlingWnd : public CWnd_X
{
    Q_OBJECT

public:
    int moves = 0;
    int presses = 0;
    int keys = 0;

    void OnMouseMove(UINT, CPoint) { ++moves; }
    void OnLButtonDown(UINT, CPoint) { ++presses; }
    void OnKeyDown(UINT, UINT, UINT) { ++keys; }

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(HandlingWnd, CWnd_X)
    ON_WM_MOUSEMOVE_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_KEYDOWN_X()
END_MESSAGE_MAP_X()

namespace {

class CTavoMainFrame : public QWidget
{
    Q_OBJECT
};

int functionCalls = 0;

bool countCall(tagMSG*)
{
    ++functionCalls;
    return false;
}

long long letThrough(int, unsigned long, long long) { return 0; }

} // namespace

/// How often the library asks where the pointer is: each question is a round trip to the X server.
class tst_PointerQuestions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void cleanup();

    void theCountSeesTheLibrary();
    void aWindowThatLooksAtMessagesAsksOnceAMessage();
    void aWindowThatHandlesMessagesDoesNotAsk();
    void aFrameReleaseAsksOnce_data();
    void aFrameReleaseAsksOnce();
    void theHandlerAsksOnlyForMessageFunctions_data();
    void theHandlerAsksOnlyForMessageFunctions();

private:
    VirtualInput m_input;
};

void tst_PointerQuestions::cleanup()
{
    m_input.releaseAll();
    UnhookWindowsHookEx_X(reinterpret_cast<HHOOK>(letThrough));
    RemoveWinMsgFn(countCall);
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PointerQuestions::theCountSeesTheLibrary()
{
    QTimerEvent event(1);
    tagMSG message{};
    questions = 0;
    QCOMPARE(xeQEventToMsg(this, &event, &message), 1);
    QCOMPARE(questions, 1);
    QCursor::pos();
    QCOMPARE(questions, 1);
}

void tst_PointerQuestions::aWindowThatLooksAtMessagesAsksOnceAMessage()
{
    RealWindow<LookingWnd> window(m_input);
    QVERIFY(window.comeUp());
    window.settle();
    window.wrapper.messages.clear();
    questions = 0;
    window.movePointer({30, 40});
    m_input.typeKey('a');

    const QPoint place = window.origin() + QPoint(30, 40);
    QStringList expected;
    for (const char* message : {"20", "100", "101", "102", "200"})
        expected += QStringLiteral("0x%1 at %2,%3").arg(message).arg(place.x()).arg(place.y());
    const auto sorted = [](QStringList messages) {
        messages.sort(); // what is posted comes at one time or another
        return messages.join(", ");
    };
    QTRY_COMPARE(sorted(window.wrapper.messages), sorted(expected));
    QCOMPARE(questions, window.wrapper.messages.size());
}

void tst_PointerQuestions::aWindowThatHandlesMessagesDoesNotAsk()
{
    questions = 0;
    RealWindow<HandlingWnd> window(m_input);
    QVERIFY(window.comeUp());
    window.movePointer({50, 60}); // it may have been in the place below before
    window.movePointer({30, 40});
    QTRY_VERIFY(window.wrapper.moves > 0);
    m_input.clickButton(1);
    m_input.clickButton(4);
    m_input.typeKey('a');
    QTRY_COMPARE(window.wrapper.keys, 1);
    QTRY_COMPARE(window.wrapper.presses, 1);
    QCOMPARE(questions, 0);
}

void tst_PointerQuestions::aFrameReleaseAsksOnce_data()
{
    QTest::addColumn<bool>("looks");
    QTest::newRow("for the hit code alone") << false;
    QTest::newRow("for the hit code and the message record") << true;
}

void tst_PointerQuestions::aFrameReleaseAsksOnce()
{
    QFETCH(bool, looks);
    QWidget widget;
    HandlingWnd handling;
    LookingWnd looking;
    (looks ? static_cast<CWnd_X&>(looking) : handling).SubclassWindow(&widget);
    QMouseEvent event(QEvent::NonClientAreaMouseButtonRelease, QPointF(1, 1), Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
    questions = 0;
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(questions, 1);
}

void tst_PointerQuestions::theHandlerAsksOnlyForMessageFunctions_data()
{
    QTest::addColumn<bool>("withHook");
    QTest::addColumn<bool>("withFunction");
    QTest::addColumn<int>("asked");
    QTest::newRow("nothing is set") << false << false << 0;
    QTest::newRow("a hook is set") << true << false << 0;
    QTest::newRow("a message function is set") << false << true << 2;
    QTest::newRow("both are set") << true << true << 2;
}

void tst_PointerQuestions::theHandlerAsksOnlyForMessageFunctions()
{
    QFETCH(bool, withHook);
    QFETCH(bool, withFunction);
    if (withHook)
        SetWindowsHookEx_X(WH_KEYBOARD, letThrough);
    if (withFunction)
        AppendWinMsgFn(countCall);
    CTavoMainFrame frame;
    QWidget other;
    functionCalls = 0;
    questions = 0;
    QTest::keyClick(&frame, Qt::Key_A);
    QTest::keyClick(&other, Qt::Key_A);
    QTEST(questions, "asked");
    QCOMPARE(functionCalls, withFunction ? 2 : 0);
}

XE_TEST(tst_PointerQuestions)
#include "tst_pointerquestions.moc"
