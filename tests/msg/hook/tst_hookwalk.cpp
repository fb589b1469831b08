#include "hookstage.h"
#include "testclass.h"

using namespace HookStage;

/// Chains that change while they are walked, events inside hooks, and targets that do not survive.
class tst_HookWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup();

    void changes_data();
    void changes();
    void theFilterGoesWithTheLastEntryOfARunningWalk();
    void theFilterComesBackWithinARunningWalk();
    void anEventInsideAHookIsWalkedOnItsOwn();
    void anEventInsideAMessageFunctionIsWalkedOnItsOwn();
    void removalsInsideANestedEventHoldForTheOuterWalk();
    void theInnerKeyIsTheOneRemembered();
    void aHookMayDeleteTheTarget();
    void aMessageFunctionMayDeleteTheTarget_data();
    void aMessageFunctionMayDeleteTheTarget();
    void nobodyIsShownADeletedTarget();
    void aRealKeyMayDeleteTheTarget();
    void aThrowingHookLeavesTheChainInOrder();
};

void tst_HookWalk::cleanup()
{
    removeAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY(!FilterProbe::filterStands());
}

void tst_HookWalk::changes_data()
{
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("actor");
    QTest::addColumn<QString>("action"); // what it does when it is called for the first time
    QTest::addColumn<QString>("called");
    QTest::addColumn<QString>("calledNext");

    const auto row = [](const char* name, const char* set, const char* actor, const char* action, const char* called,
                        const char* calledNext) {
        QTest::newRow(name) << set << actor << action << called << calledNext;
    };
    const char* const hooks = "+h0 +h1 +h2";
    row("a hook removes itself", hooks, "h2", "-h2", "h2 h1 h0", "h1 h0");
    row("a hook in the middle removes itself", hooks, "h1", "-h1", "h2 h1 h0", "h2 h0");
    row("the last hook called removes itself", hooks, "h0", "-h0", "h2 h1 h0", "h2 h1");
    row("a hook removes the one after it", hooks, "h2", "-h1", "h2 h0", "h2 h0");
    row("a hook removes the last to be called", hooks, "h2", "-h0", "h2 h1", "h2 h1");
    row("a hook removes one that was called", hooks, "h1", "-h2", "h2 h1 h0", "h1 h0");
    row("a hook removes all", hooks, "h2", "-h2 -h1 -h0", "h2", "");
    row("a hook adds a hook, which waits for the next event", hooks, "h1", "+h3", "h2 h1 h0", "h3 h2 h1 h0");
    row("a hook sets itself anew", "+h0 +h1", "h0", "-h0 +h0", "h1 h0", "h0 h1");
    row("a hook adds itself again", "+h0 +h1", "h0", "+h0", "h1 h0", "h0 h1 h0");
    row("of two equal hooks the one not yet called goes", "+h0 +h0", "h0", "-h0", "h0", "h0");
    row("a hook adds a message function, which sees the event", "+h0 +h1", "h1", "+f0", "h1 h0 f0", "h1 h0 f0");
    row("a hook removes a message function", "+h0 +f0 +f1", "h0", "-f0", "h0 f1", "h0 f1");
    row("a hook removes all message functions", "+h0 +f0 +f1", "h0", "-f0 -f1", "h0", "h0");
    row("a hook gives way to a message function", "+h0", "h0", "-h0 +f0", "h0 f0", "f0");

    const char* const functions = "+f0 +f1 +f2";
    row("a message function removes itself", functions, "f0", "-f0", "f0 f1 f2", "f1 f2");
    row("a message function in the middle removes itself", functions, "f1", "-f1", "f0 f1 f2", "f0 f2");
    row("the last message function removes itself", functions, "f2", "-f2", "f0 f1 f2", "f0 f1");
    row("a message function removes the one after it", functions, "f0", "-f1", "f0 f2", "f0 f2");
    row("a message function removes one that was called", functions, "f1", "-f0", "f0 f1 f2", "f1 f2");
    row("a message function removes all", functions, "f0", "-f0 -f1 -f2", "f0", "");
    row("a message function adds one, which sees the event", functions, "f1", "+f3", "f0 f1 f2 f3", "f0 f1 f2 f3");
    row("a message function sets itself anew at the end", "+f0 +f1", "f0", "-f0 +f0", "f0 f1 f0", "f1 f0");
    row("of two equal message functions the calling one goes", "+f0 +f0", "f0", "-f0", "f0 f0", "f0");
    row("a message function adds a hook, which waits", "+f0 +f1", "f0", "+h0", "f0 f1", "h0 f0 f1");
    row("a message function removes a hook", "+h0 +h1 +f0", "f0", "-h0", "h1 h0 f0", "h1 f0");
    row("an unknown handle is removed", "+h0 +h1 +f0", "h1", "-h3 -f3", "h1 h0 f0", "h1 h0 f0");
}

void tst_HookWalk::changes()
{
    QFETCH(QString, set);
    QFETCH(QString, actor);
    QFETCH(QString, action);
    bodies[actor] = [&action] {
        run(action);
        action.clear();
        return 0;
    };
    run(set);
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QTEST(takeTrace(), "called");
    QCOMPARE(view.received.join(' '), QString("press"));
    sendKey(view, QEvent::KeyPress, Qt::Key_B);
    QTEST(takeTrace(), "calledNext");
}

void tst_HookWalk::theFilterGoesWithTheLastEntryOfARunningWalk()
{
    bool standsInside = true;
    bodies["h0"] = [&standsInside] {
        run("-h0");
        standsInside = FilterProbe::filterStands() || !GetGlobalEventHandler()->IsEmptyHookChain();
        return 0;
    };
    run("+h0");
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QVERIFY(!standsInside);
    QVERIFY(!FilterProbe::filterStands());
}

void tst_HookWalk::theFilterComesBackWithinARunningWalk()
{
    bodies["h0"] = [] {
        run("-h0 +h1");
        return 0;
    };
    run("+h0");
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QVERIFY(FilterProbe::filterStands());
    sendKey(view, QEvent::KeyPress, Qt::Key_B);
    QCOMPARE(takeTrace(), QString("h0 h1"));
}

void tst_HookWalk::anEventInsideAHookIsWalkedOnItsOwn()
{
    CTavoView view;
    int depth = 0;
    bodies["h1"] = [&] {
        if (depth++ == 0) {
            trace += "(";
            sendKey(view, QEvent::KeyPress, Qt::Key_B);
            trace += ")";
        }
        return 0;
    };
    run("+h0 +h1 +f0 +f1");
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h1 ( h1 h0 f0 f1 ) h0 f0 f1"));
}

void tst_HookWalk::anEventInsideAMessageFunctionIsWalkedOnItsOwn()
{
    CTavoView view;
    int depth = 0;
    bodies["f0"] = [&] {
        if (depth++ == 0) {
            trace += "(";
            QTest::mousePress(&view, Qt::LeftButton);
            trace += ")";
        }
        return 0;
    };
    run("+h0 +f0 +f1");
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 f0 ( f0 f1 ) f1"));
}

void tst_HookWalk::removalsInsideANestedEventHoldForTheOuterWalk()
{
    CTavoView view;
    int depth = 0;
    bodies["h2"] = [&] {
        if (depth++ == 0) {
            trace += "(";
            sendKey(view, QEvent::KeyPress, Qt::Key_B);
            trace += ")";
        } else {
            run("-h2 -h1 -f0 +f2");
        }
        return 0;
    };
    run("+h0 +h1 +h2 +f0 +f1");
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h2 ( h2 h0 f1 f2 ) h0 f1 f2"));
    sendKey(view, QEvent::KeyPress, Qt::Key_C);
    QCOMPARE(takeTrace(), QString("h0 f1 f2"));
}

void tst_HookWalk::theInnerKeyIsTheOneRemembered()
{
    CTavoView view;
    bodies["h0"] = [&view] {
        bodies.clear();
        sendKey(view, QEvent::KeyPress, Qt::Key_B);
        return 0;
    };
    run("+h0");
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 h0"));
    sendKey(view, QEvent::KeyPress, Qt::Key_B);
    QCOMPARE(takeTrace(), QString());
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0"));
}

void tst_HookWalk::aHookMayDeleteTheTarget()
{
    for (const long long result : {0ll, 1ll}) {
        forgetKey();
        QPointer<CTavoView> view(new CTavoView);
        bodies["h1"] = [&view, result] {
            delete view;
            return result;
        };
        run("+h0 +h1");
        QVERIFY(sendKey(*view, QEvent::KeyPress, Qt::Key_A)); // stopped: nobody touches the view any more
        QVERIFY(!view);
        removeAll();
    }
}

using MakeEvent = QEvent* (*)();
Q_DECLARE_METATYPE(MakeEvent)

void tst_HookWalk::aMessageFunctionMayDeleteTheTarget_data()
{
    QTest::addColumn<MakeEvent>("makeEvent");

    const auto row = [](const char* name, MakeEvent makeEvent) { QTest::newRow(name) << makeEvent; };
    row("at a key", []() -> QEvent* { return new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier); });
    row("at a mouse press", []() -> QEvent* {
        return new QMouseEvent(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    });
    row("at a mouse move", []() -> QEvent* {
        return new QMouseEvent(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    });
    row("at the wheel", []() -> QEvent* {
        return new QWheelEvent(QPointF(1, 1), QPointF(1, 1), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                               Qt::NoScrollPhase, false);
    });
    row("at a context menu",
        []() -> QEvent* { return new QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(1, 1), QPoint(1, 1)); });
    row("at a close", []() -> QEvent* { return new QCloseEvent; });
    row("at a timer", []() -> QEvent* { return new QTimerEvent(1); });
}

void tst_HookWalk::aMessageFunctionMayDeleteTheTarget()
{
    QFETCH(MakeEvent, makeEvent);
    for (const long long result : {0ll, 1ll}) {
        CTavoMainFrame frame;
        QPointer<CTavoView> view(new CTavoView(&frame));
        bodies["f0"] = [&view, result] {
            delete view;
            return result;
        };
        run("+f0");
        const QScopedPointer<QEvent> event(makeEvent());
        QCoreApplication::sendEvent(view, event.data());
        QVERIFY(!view);
        QCOMPARE(takeTrace(), QString("f0"));
        removeAll();
    }
}

void tst_HookWalk::nobodyIsShownADeletedTarget()
{
    QPointer<CTavoView> view(new CTavoView);
    bodies["h0"] = [&view] {
        delete view;
        return 0;
    };
    run("+h0 +f0 +f1");
    sendKey(*view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0"));

    view = new CTavoView;
    bodies["f0"] = bodies["h0"];
    bodies.erase("h0");
    sendKey(*view, QEvent::KeyPress, Qt::Key_B);
    QCOMPARE(takeTrace(), QString("h0 f0"));
}

void tst_HookWalk::aRealKeyMayDeleteTheTarget()
{
    auto* frame = new CTavoMainFrame;
    QPointer<CTavoView> view(new CTavoView(frame));
    bodies["h0"] = [frame] {
        delete frame;
        return 0;
    };
    run("+h0");
    QTest::keyPress(view.data(), Qt::Key_A);
    QVERIFY(!view);
}

void tst_HookWalk::aThrowingHookLeavesTheChainInOrder()
{
    CTavoView view;
    bodies["h1"] = []() -> long long {
        run("-h1");
        throw 1;
    };
    run("+h0 +h1");
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QVERIFY_EXCEPTION_THROWN(GetGlobalEventHandler()->eventFilter(&view, &event), int);
    QCOMPARE(takeTrace(), QString("h1"));
    sendKey(view, QEvent::KeyPress, Qt::Key_B);
    QCOMPARE(takeTrace(), QString("h0"));
    run("-h0");
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

XE_TEST(tst_HookWalk)
#include "tst_hookwalk.moc"
