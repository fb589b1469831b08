#include "hook/idle.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>
#include <xehook.h>

#include <QSignalSpy>

/// Counts the idle moments it is told of.
class IdleCounter : public QObject
{
    Q_OBJECT

public:
    int count = 0;

public Q_SLOTS:
    void OnEnterIdle() { ++count; }
};

/// Has a slot of that name with other arguments.
class OtherIdleSlot : public QObject
{
    Q_OBJECT

public:
    int count = 0;

public Q_SLOTS:
    void OnEnterIdle(int) { ++count; }
};

/// The way idle moments come to objects and windows.
class tst_IdleSlots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void connectingTwiceIsOneConnection();
    void disconnectTellsWhetherItWasConnected();
    void objectsWithoutTheSlot();
    void nullHasNoIdleSlot();
    void aDestroyedObjectIsForgotten();
    void everyWindowUpdatesItsCommandsAtIdle();
    void attachingAgainIsStillOneConnection();
};

void tst_IdleSlots::cleanup()
{
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY2(!DisconnectIdleSlot(GetGlobalEventHandler()), "the empty pool is still connected");
}

void tst_IdleSlots::connectingTwiceIsOneConnection()
{
    IdleCounter counter;
    ConnectIdleSlot(&counter);
    ConnectIdleSlot(&counter);
    idle(3);
    QCOMPARE(counter.count, 3);
    QVERIFY(DisconnectIdleSlot(&counter));
    idle(2);
    QCOMPARE(counter.count, 3);
    ConnectIdleSlot(&counter);
    idle();
    QCOMPARE(counter.count, 4);
}

void tst_IdleSlots::disconnectTellsWhetherItWasConnected()
{
    IdleCounter counter;
    QVERIFY(!DisconnectIdleSlot(&counter));
    ConnectIdleSlot(&counter);
    QVERIFY(DisconnectIdleSlot(&counter));
    QVERIFY(!DisconnectIdleSlot(&counter));
}

void tst_IdleSlots::objectsWithoutTheSlot()
{
    QObject plain;
    OtherIdleSlot other;
    ConnectIdleSlot(&plain);
    ConnectIdleSlot(&other);
    idle();
    QCOMPARE(other.count, 0);
    QVERIFY(!DisconnectIdleSlot(&plain));
    QVERIFY(!DisconnectIdleSlot(&other));
}

void tst_IdleSlots::nullHasNoIdleSlot()
{
    ConnectIdleSlot(nullptr);
    QVERIFY(!DisconnectIdleSlot(nullptr));
}

void tst_IdleSlots::aDestroyedObjectIsForgotten()
{
    IdleCounter stays;
    auto* goes = new IdleCounter;
    ConnectIdleSlot(goes);
    ConnectIdleSlot(&stays);
    delete goes;
    idle();
    QCOMPARE(stays.count, 1);
}

void tst_IdleSlots::everyWindowUpdatesItsCommandsAtIdle()
{
    QWidget firstWidget;
    QWidget secondWidget;
    CWnd_X first;
    CWnd_X second;
    CWnd_X withoutWidget;
    QSignalSpy firstSpy(&first, &CWnd_X::updateCmdUi);
    QSignalSpy secondSpy(&second, &CWnd_X::updateCmdUi);
    QSignalSpy thirdSpy(&withoutWidget, &CWnd_X::updateCmdUi);
    idle();
    QCOMPARE(firstSpy.count(), 0);
    first.SubclassWindow(&firstWidget);
    idle();
    second.SubclassWindow(&secondWidget);
    idle(2);
    QCOMPARE(firstSpy.count(), 3);
    QCOMPARE(secondSpy.count(), 2);
    QCOMPARE(thirdSpy.count(), 0);
    withoutWidget.OnEnterIdle();
    QCOMPARE(thirdSpy.count(), 1);
}

void tst_IdleSlots::attachingAgainIsStillOneConnection()
{
    QWidget firstWidget;
    QWidget secondWidget;
    CWnd_X window;
    window.SubclassWindow(&firstWidget);
    window.SubclassWindow(&secondWidget);
    window.Detach();
    window.SubclassWindow(&firstWidget);
    QSignalSpy spy(&window, &CWnd_X::updateCmdUi);
    idle();
    QCOMPARE(spy.count(), 1);
}

XE_TEST(tst_IdleSlots)
#include "tst_idleslots.moc"
