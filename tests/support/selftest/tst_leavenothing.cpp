#include "leavenothing.h"
#include "testclass.h"

#include <QLabel>
#include <QTimer>

namespace {

long long ignoreKey(int, unsigned long, long long) { return 0; }

bool ignoreMessage(tagMSG*) { return false; }

} // namespace

class tst_LeaveNothing : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aTopLevelWidgetIsFound()
    {
        QLabel label;
        label.setObjectName(QStringLiteral("title"));
        QLabel child(&label);
        QCOMPARE(LeaveNothing::leftovers(), QStringLiteral("window QLabel 'title'"));
    }

    void allThingsAreListed()
    {
        QWidget second;
        second.setObjectName(QStringLiteral("b"));
        QWidget first;
        first.setObjectName(QStringLiteral("a"));
        AppendWinMsgFn(ignoreMessage);
        const QString found = LeaveNothing::leftovers();
        RemoveWinMsgFn(ignoreMessage);
        QCOMPARE(found, QStringLiteral("hook, window QWidget 'a', window QWidget 'b'"));
    }

    void aHookIsFound()
    {
        const HHOOK hook = SetWindowsHookEx_X(WH_KEYBOARD, ignoreKey);
        const QString found = LeaveNothing::leftovers();
        UnhookWindowsHookEx_X(hook);
        QCOMPARE(found, QStringLiteral("hook"));
    }

    void timersAreCounted()
    {
        auto& timers = GetGlobalEventHandler()->timers;
        QTimer one;
        QTimer other;
        timers = {{1, &one}, {2, &other}};
        const QString found = LeaveNothing::leftovers();
        timers.clear();
        QCOMPARE(found, QStringLiteral("2 timers"));
    }

    void grabsAreFound()
    {
        QWidget window;
        window.setObjectName(QStringLiteral("w"));
        window.grabMouse();
        window.grabKeyboard();
        const QString found = LeaveNothing::leftovers();
        window.releaseKeyboard();
        window.releaseMouse();
        QCOMPARE(found, QStringLiteral("keyboard grab of QWidget 'w', mouse grab of QWidget 'w', window QWidget 'w'"));
    }

    void whatIdleTakesAwayDoesNotCount()
    {
        const QPointer<QWidget> deletedLater = new QWidget;
        const QPointer<QWidget> temporary = new QWidget;
        deletedLater->deleteLater();
        AppendTempObjectPool(temporary);
        QCOMPARE(LeaveNothing::leftovers(), QString());
        QVERIFY(!deletedLater);
        QVERIFY(!temporary);
    }
};

XE_TEST(tst_LeaveNothing)
#include "tst_leavenothing.moc"
