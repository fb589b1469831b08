#include "hookstage.h"
#include "testclass.h"

#include <xeafxwin.h>
#include <xehook.h>

#include <QTimer>

/// Applications that follow one another in a process, as in plug-in hosts: what is left from one serves the next.
class tst_HookSecondApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hooks();
    void messageFunctions();
    void temporaryObjects();
};

namespace {

int hookCalls = 0;
int functionCalls = 0;

long long countingHook(int, unsigned long, long long) { return ++hookCalls, 0; }

bool countingFunction(tagMSG*) { return ++functionCalls, false; }

struct Application : QApplication
{
    static inline char name[] = "test";
    static inline char* arguments[] = {name, nullptr};
    static inline int count = 1;

    Application() : QApplication(count, arguments) {}
};

} // namespace

static void pressKey(int key)
{
    CTavoView view;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &press);
}

void tst_HookSecondApp::hooks()
{
    HHOOK first = nullptr;
    {
        const Application application;
        first = SetWindowsHookEx_X(WH_KEYBOARD, countingHook);
        pressKey(Qt::Key_A);
        QCOMPARE(hookCalls, 1);
    }
    const Application application;
    pressKey(Qt::Key_B);
    QCOMPARE(hookCalls, 2);
    SetWindowsHookEx_X(WH_KEYBOARD, countingHook);
    pressKey(Qt::Key_C);
    QCOMPARE(hookCalls, 4);
    UnhookWindowsHookEx_X(first);
    UnhookWindowsHookEx_X(first);
    pressKey(Qt::Key_D);
    QCOMPARE(hookCalls, 4);
}

void tst_HookSecondApp::messageFunctions()
{
    {
        const Application application;
        AppendWinMsgFn(countingFunction);
    }
    const Application application;
    pressKey(Qt::Key_A);
    QCOMPARE(functionCalls, 1);
    RemoveWinMsgFn(countingFunction);
    pressKey(Qt::Key_B);
    QCOMPARE(functionCalls, 1);
}

void tst_HookSecondApp::temporaryObjects()
{
    const QPointer<QObject> left(new QObject);
    {
        const Application application;
        AppendTempObjectPool(left);
    }
    const Application application;
    const QPointer<QObject> added(new QObject);
    AppendTempObjectPool(added);
    QTimer::singleShot(0, [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QTimer::singleShot(1, [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // an idle moment at the latest
    QVERIFY(!added);
    QVERIFY(!left);
}

XE_APPLESS_TEST(tst_HookSecondApp)
#include "tst_hooksecondapp.moc"
