#include "hookstage.h"
#include "testclass.h"

#include <QAction>

#include <climits>

using namespace HookStage;

/// The two chains: what enters and leaves them, in which order they are called, and who stops an event.
class tst_Hook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup();

    void theHandlerIsTheStaticInstance();
    void aHookHandleIsTheAddressOfTheHook();
    void refusedHooks_data();
    void refusedHooks();
    void aRefusedHookLeavesASetOneAlone();
    void nullMessageFunctionIsNotAdded();
    void applicationFilter_data();
    void applicationFilter();
    void theFilterKeepsItsPlaceAmongOthers();
    void order_data();
    void order();
    void unhookIsAlwaysOne_data();
    void unhookIsAlwaysOne();
    void stopping_data();
    void stopping();
    void aStoppedMouseEventDoesNotReachTheView();
    void hooksAreNotCalledForTheMouse();
    void callNextHookIsZero_data();
    void callNextHookIsZero();
    void hookArguments_data();
    void hookArguments();
    void realKeysReachTheHook();
    void membersActOnTheirOwnHandler();
    void aDestroyedHandlerFiltersNoMore();
    void vkKeyScan_data();
    void vkKeyScan();
    void actionRange();
};

void tst_Hook::cleanup()
{
    removeAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY(!FilterProbe::filterStands());
}

void tst_Hook::theHandlerIsTheStaticInstance()
{
    QCOMPARE(GetGlobalEventHandler(), &g_appEventHandler);
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

void tst_Hook::aHookHandleIsTheAddressOfTheHook()
{
    QCOMPARE(SetWindowsHookEx_X(WH_KEYBOARD, hooks[0]), reinterpret_cast<HHOOK>(hooks[0]));
    QCOMPARE(SetWindowsHookEx_X(2, hooks[1]), reinterpret_cast<HHOOK>(hooks[1]));
}

void tst_Hook::refusedHooks_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("withProc");

    QTest::newRow("a mouse hook is refused") << WH_MOUSE << true;
    QTest::newRow("a message filter hook is refused") << -1 << true;
    QTest::newRow("a journal hook is refused") << 0 << true;
    QTest::newRow("the number below the keyboard hook is refused") << 1 << true;
    QTest::newRow("the number above the keyboard hook is refused") << 3 << true;
    QTest::newRow("a low level keyboard hook is refused") << 13 << true;
    QTest::newRow("the smallest number is refused") << INT_MIN << true;
    QTest::newRow("a keyboard hook without a function is refused") << WH_KEYBOARD << false;
    QTest::newRow("a mouse hook without a function is refused") << WH_MOUSE << false;
}

void tst_Hook::refusedHooks()
{
    QFETCH(int, id);
    QFETCH(bool, withProc);
    errno = 0;
    QCOMPARE(SetWindowsHookEx_X(id, withProc ? hooks[0] : nullptr), HHOOK(nullptr));
    QCOMPARE(errno, 0);
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
    QVERIFY(!FilterProbe::filterStands());
}

void tst_Hook::aRefusedHookLeavesASetOneAlone()
{
    run("+h0");
    QCOMPARE(SetWindowsHookEx_X(WH_MOUSE, hooks[1]), HHOOK(nullptr));
    QVERIFY(FilterProbe::filterStands());
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0"));
}

void tst_Hook::nullMessageFunctionIsNotAdded()
{
    AppendWinMsgFn(nullptr);
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
    QVERIFY(!FilterProbe::filterStands());
    RemoveWinMsgFn(nullptr);
}

void tst_Hook::applicationFilter_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("standsAfterEachStep");

    QTest::newRow("it stands while a hook is set") << "+h0 -h0"
                                                   << "10";
    QTest::newRow("it stands while a message function is set") << "+f0 -f0"
                                                               << "10";
    QTest::newRow("the last of two hooks takes it away") << "+h0 +h1 -h0 -h1"
                                                         << "1110";
    QTest::newRow("the last of two message functions takes it away") << "+f0 +f1 -f0 -f1"
                                                                     << "1110";
    QTest::newRow("a function set twice has to go twice") << "+f0 +f0 -f0 -f0"
                                                          << "1110";
    QTest::newRow("a hook set twice has to go twice") << "+h0 +h0 -h0 -h0"
                                                      << "1110";
    QTest::newRow("a message function keeps it when the last hook goes") << "+h0 +f0 -h0 -f0"
                                                                         << "1110";
    QTest::newRow("a hook keeps it when the last message function goes") << "+h0 +f0 -f0 -h0"
                                                                         << "1110";
    QTest::newRow("an unknown handle takes nothing away") << "+h0 -h1 -f0 -h0"
                                                          << "1110";
    QTest::newRow("it comes and goes again") << "+h0 -h0 +f0 -f0 +h0 -h0"
                                             << "101010";
    QTest::newRow("a removal too many does no harm") << "+h0 -h0 -h0 -f0 +h0 -h0"
                                                     << "100010";
}

void tst_Hook::applicationFilter()
{
    QFETCH(QString, script);
    QString stands;
    const QStringList steps = script.split(' ');
    for (const QString& step : steps) {
        run(step);
        QCOMPARE(GetGlobalEventHandler()->IsEmptyHookChain(), !FilterProbe::filterStands());
        stands += FilterProbe::filterStands() ? '1' : '0';
    }
    QTEST(stands, "standsAfterEachStep");
}

namespace {

/// A filter of the host's own that lets nothing through.
class Wall : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return true; }
};

} // namespace

// Of an application's filters the one installed last is asked first.
void tst_Hook::theFilterKeepsItsPlaceAmongOthers()
{
    CTavoView view;
    run("+h0");
    Wall wall;
    qApp->installEventFilter(&wall);
    run("+h1 +f0");
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString());
    run("-h0 -h1 -f0 +h0");
    sendKey(view, QEvent::KeyPress, Qt::Key_B);
    QCOMPARE(takeTrace(), QString("h0"));
}

void tst_Hook::order_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("called");

    QTest::newRow("hooks are called newest first") << "+h0 +h1 +h2"
                                                   << "h2 h1 h0";
    QTest::newRow("message functions are called oldest first") << "+f0 +f1 +f2"
                                                               << "f0 f1 f2";
    QTest::newRow("hooks come before message functions") << "+f0 +h0 +f1 +h1"
                                                         << "h1 h0 f0 f1";
    QTest::newRow("the oldest hook goes") << "+h0 +h1 +h2 -h0"
                                          << "h2 h1";
    QTest::newRow("a hook in the middle goes") << "+h0 +h1 +h2 -h1"
                                               << "h2 h0";
    QTest::newRow("the newest hook goes") << "+h0 +h1 +h2 -h2"
                                          << "h1 h0";
    QTest::newRow("a message function in the middle goes") << "+f0 +f1 +f2 -f1"
                                                           << "f0 f2";
    QTest::newRow("a hook set again is the newest") << "+h0 +h1 -h0 +h0"
                                                    << "h0 h1";
    QTest::newRow("a message function set again is the last") << "+f0 +f1 -f0 +f0"
                                                              << "f1 f0";
    QTest::newRow("a hook set twice is called twice") << "+h0 +h0"
                                                      << "h0 h0";
    QTest::newRow("a message function set twice is called twice") << "+f0 +f0"
                                                                  << "f0 f0";
    QTest::newRow("of equal hooks the oldest goes") << "+h0 +h1 +h0 -h0"
                                                    << "h0 h1";
    QTest::newRow("of equal message functions the oldest goes") << "+f0 +f1 +f0 -f0"
                                                                << "f1 f0";
    QTest::newRow("an unknown hook takes none away") << "+h0 +h1 -h2"
                                                     << "h1 h0";
    QTest::newRow("an unknown message function takes none away") << "+f0 +f1 -f2"
                                                                 << "f0 f1";
    QTest::newRow("nothing is set") << ""
                                    << "";
}

void tst_Hook::order()
{
    QFETCH(QString, script);
    run(script);
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QTEST(takeTrace(), "called");
}

void tst_Hook::unhookIsAlwaysOne_data()
{
    QTest::addColumn<HHOOK>("handle");
    QTest::newRow("no handle") << HHOOK(nullptr);
    QTest::newRow("a hook that is not set") << reinterpret_cast<HHOOK>(hooks[1]);
    QTest::newRow("a message function is no hook") << reinterpret_cast<HHOOK>(functions[0]);
    QTest::newRow("no function at all") << HHOOK(&g_appEventHandler);
}

void tst_Hook::unhookIsAlwaysOne()
{
    QFETCH(HHOOK, handle);
    QCOMPARE(UnhookWindowsHookEx_X(handle), 1);
    run("+h0 +f0");
    QCOMPARE(UnhookWindowsHookEx_X(handle), 1);
    RemoveWinMsgFn(WinMsgFn(nullptr));
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 f0"));
}

void tst_Hook::stopping_data()
{
    QTest::addColumn<QString>("actor");
    QTest::addColumn<qlonglong>("result");
    QTest::addColumn<QString>("called");
    QTest::addColumn<bool>("stopped");

    const QString all = "h1 h0 f0 f1";
    QTest::newRow("nobody stops") << "" << 0ll << all << false;
    QTest::newRow("the newest hook stops with 1") << "h1" << 1ll << "h1" << true;
    QTest::newRow("the oldest hook stops with 1") << "h0" << 1ll << "h1 h0" << true;
    QTest::newRow("a hook stops with any value above 0") << "h1" << 4096ll << "h1" << true;
    QTest::newRow("a hook stops with a value above 32 bits") << "h1" << 0x100000000ll << "h1" << true;
    QTest::newRow("a hook stops with the largest value") << "h1" << LLONG_MAX << "h1" << true;
    QTest::newRow("a hook does not stop with -1") << "h1" << -1ll << all << false;
    QTest::newRow("a hook does not stop with the smallest value") << "h1" << LLONG_MIN << all << false;
    QTest::newRow("the first message function stops") << "f0" << 1ll << "h1 h0 f0" << true;
    QTest::newRow("the last message function stops") << "f1" << 1ll << all << true;
}

void tst_Hook::stopping()
{
    QFETCH(QString, actor);
    QFETCH(qlonglong, result);
    QFETCH(bool, stopped);
    bodies[actor] = [result] { return result; };
    run("+h0 +h1 +f0 +f1");
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QTEST(takeTrace(), "called");
    QCOMPARE(view.received.join(' '), QString(stopped ? "" : "press"));
}

void tst_Hook::aStoppedMouseEventDoesNotReachTheView()
{
    CTavoView view;
    run("+f0");
    QTest::mousePress(&view, Qt::LeftButton);
    QCOMPARE(view.received.join(' '), QString("mouse"));
    bodies["f0"] = [] { return 1; };
    QTest::mouseRelease(&view, Qt::LeftButton);
    QTest::mousePress(&view, Qt::LeftButton);
    QCOMPARE(view.received.join(' '), QString("mouse"));
}

void tst_Hook::hooksAreNotCalledForTheMouse()
{
    bodies["h0"] = [] { return 1; };
    run("+h0 +f0");
    CTavoView view;
    QTest::mousePress(&view, Qt::LeftButton);
    QCOMPARE(takeTrace(), QString("f0"));
    QCOMPARE(view.received.join(' '), QString("mouse"));
}

void tst_Hook::callNextHookIsZero_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("nothing is set") << "";
    QTest::newRow("a hook is set") << "+h0";
    QTest::newRow("hooks and a message function are set") << "+h0 +h1 +f0";
}

void tst_Hook::callNextHookIsZero()
{
    QFETCH(QString, script);
    run(script);
    bodies["h0"] = bodies["h1"] = bodies["f0"] = [] { return 7; };
    QCOMPARE(CallNextHookEx_X(nullptr, 0, 0x41, 1), 0ll);
    QCOMPARE(CallNextHookEx_X(reinterpret_cast<HHOOK>(hooks[1]), 0, 0x41, 1), 0ll);
    QCOMPARE(CallNextHookEx_X(reinterpret_cast<HHOOK>(hooks[0]), -1, ULONG_MAX, LLONG_MIN), 0ll);
    QCOMPARE(takeTrace(), QString());
}

void tst_Hook::hookArguments_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("arguments");

    const int press = QEvent::KeyPress;
    const int release = QEvent::KeyRelease;
    const auto row = [](const char* name, int type, int key, int modifiers, const char* arguments) {
        QTest::newRow(name) << type << key << modifiers << arguments;
    };
    row("a press has count 1", press, Qt::Key_A, Qt::NoModifier, "0 0x41 0x1");
    row("a release has bit 31", release, Qt::Key_A, Qt::NoModifier, "0 0x41 0x80000001");
    row("Shift is bit 18", press, Qt::Key_A, Qt::ShiftModifier, "0 0x41 0x40001");
    row("Control is bit 19", press, Qt::Key_A, Qt::ControlModifier, "0 0x41 0x80001");
    row("Alt is bit 21", press, Qt::Key_A, Qt::AltModifier, "0 0x41 0x200001");
    row("three modifiers", press, Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier,
        "0 0x41 0x2c0001");
    row("three modifiers at release", release, Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier,
        "0 0x41 0x802c0001");
    row("Meta and keypad have no bit", press, Qt::Key_A, Qt::MetaModifier | Qt::KeypadModifier, "0 0x41 0x1");
    row("Shift+1 has the code of the digit", press, Qt::Key_Exclam, Qt::ShiftModifier, "0 0x31 0x40001");
    row("the press of Shift has its own bit", press, Qt::Key_Shift, Qt::NoModifier, "0 0x10 0x40001");
    row("the release of Shift has none", release, Qt::Key_Shift, Qt::ShiftModifier, "0 0x10 0x80000001");
    row("the keypad's Enter is Return", press, Qt::Key_Enter, Qt::KeypadModifier, "0 0xd 0x1");
    row("a function key", press, Qt::Key_F24, Qt::NoModifier, "0 0x87 0x1");
    row("a key without a code is all ones", press, Qt::Key_Meta, Qt::NoModifier, "0 0xffffffffffffffff 0x1");
}

void tst_Hook::hookArguments()
{
    QFETCH(int, type);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    run("+h0");
    CTavoView view;
    sendKey(view, QEvent::Type(type), key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(takeTrace(), QString("h0"));
    QTEST(hookCall, "arguments");
}

void tst_Hook::realKeysReachTheHook()
{
    QStringList calls;
    bodies["h0"] = [&calls] {
        calls += hookCall;
        return 0;
    };
    run("+h0");
    CTavoView view;
    QTest::keyClick(&view, Qt::Key_A, Qt::ShiftModifier);
    QCOMPARE(calls.join(", "), QString("0 0x10 0x40001, 0 0x41 0x40001, 0 0x41 0x80040001, 0 0x10 0x80000001"));
}

void tst_Hook::membersActOnTheirOwnHandler()
{
    QGlobalEventHandler other;
    QCOMPARE(other.AppendWinMsgFn(WH_MOUSE, hooks[0]), HHOOK(nullptr));
    QCOMPARE(other.AppendWinMsgFn(WH_KEYBOARD, nullptr), HHOOK(nullptr));
    QVERIFY(other.IsEmptyHookChain());
    QVERIFY(!FilterProbe::filterStands());

    const HHOOK handle = other.AppendWinMsgFn(WH_KEYBOARD, hooks[0]);
    QCOMPARE(handle, reinterpret_cast<HHOOK>(hooks[0]));
    other.AppendWinMsgFn(functions[0]);
    QVERIFY(!other.IsEmptyHookChain());
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 f0"));

    QCOMPARE(other.RemoveWinMsgFn(handle), 1);
    QCOMPARE(other.RemoveWinMsgFn(handle), 1);
    QVERIFY(FilterProbe::filterStands());
    other.RemoveWinMsgFn(functions[0]);
    QVERIFY(other.IsEmptyHookChain());
}

void tst_Hook::aDestroyedHandlerFiltersNoMore()
{
    {
        QGlobalEventHandler other;
        other.AppendWinMsgFn(WH_KEYBOARD, hooks[0]);
        other.AppendWinMsgFn(functions[0]);
    }
    CTavoView view;
    sendKey(view, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString());
}

void tst_Hook::vkKeyScan_data()
{
    QTest::addColumn<uint>("character");
    QTest::addColumn<uint>("code");
    QTest::newRow("a small letter") << uint('a') << 0x41u;
    QTest::newRow("the last small letter") << uint('z') << 0x5Au;
    QTest::newRow("a capital letter has no shift state") << uint('A') << 0x41u;
    QTest::newRow("a digit") << uint('1') << 0x31u;
    QTest::newRow("a mark stays as it is") << uint(':') << 0x3Au;
    QTest::newRow("a small letter with dots") << 0xE4u << 0xC4u;
    QTest::newRow("a capital outside Latin-1") << 0xFFu << 0x178u;
    QTest::newRow("a Greek letter") << 0x3B1u << 0x391u;
    QTest::newRow("a Cyrillic letter") << 0x44Fu << 0x42Fu;
    QTest::newRow("a letter with a two-letter capital stays") << 0xDFu << 0xDFu;
    QTest::newRow("an ideograph stays") << 0x4E2Du << 0x4E2Du;
    QTest::newRow("only the low 16 bits count") << 0x10061u << 0x41u;
    QTest::newRow("half of a pair stays") << 0xD801u << 0xD801u;
    QTest::newRow("zero") << 0u << 0u;
    QTest::newRow("all ones") << 0xFFFFFFFFu << 0xFFFFu;
}

void tst_Hook::vkKeyScan()
{
    QFETCH(uint, character);
    QTEST(uint(VkKeyScan_X(static_cast<wchar_t>(character))), "code");
}

void tst_Hook::actionRange()
{
    QAction a(nullptr);
    QAction b(nullptr);
    QAction c(nullptr);
    QAction* const none = nullptr;
    using Actions = QList<QAction*>;
    QCOMPARE(ActionRange(none), Actions());
    QCOMPARE(ActionRange(none, &a, none), Actions());
    QCOMPARE(ActionRange(&a, none), Actions({&a}));
    QCOMPARE(ActionRange(&a, &b, &c, none), Actions({&a, &b, &c}));
    QCOMPARE(ActionRange(&b, &b, &a, none), Actions({&b, &b, &a}));
    QCOMPARE(ActionRange(&a, none, &b, none), Actions({&a}));
    QCOMPARE(ActionRange(&a, &b, &c, &a, &b, &c, &a, &b, &c, none), Actions({&a, &b, &c, &a, &b, &c, &a, &b, &c}));
}

XE_TEST(tst_Hook)
#include "tst_hook.moc"
