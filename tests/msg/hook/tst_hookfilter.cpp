#include "hookstage.h"
#include "testclass.h"

#include <QDialog>
#include <QLineEdit>

#include <ctime>

using namespace HookStage;

class CTavoViewSpecial : public CTavoView
{
    Q_OBJECT
};

class CTavoVie : public QWidget
{
    Q_OBJECT
};

class ctavoview : public QWidget
{
    Q_OBJECT
};

class PlainHeir : public CTavoView // without a meta-object of its own it bears its base's name
{
};

namespace host {
class CTavoView : public QWidget
{
    Q_OBJECT
};
} // namespace host

/// Which events come as far as the chains: by the class of the target, by the event's type, and by the repeat filter.
class tst_HookFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { reset(); }
    void cleanup();

    void classes_data();
    void classes();
    void onlyTheClassNameCounts();
    void aKeyToADialogIsNotSeen();
    void droppedTypes_data();
    void droppedTypes();
    void typesWithoutAMessage_data();
    void typesWithoutAMessage();
    void messages_data();
    void messages();
    void messageCarriesTimeAndPointer();
    void theEventIsNotChanged();
    void nullArgumentsAreLetThrough();
    void repeats_data();
    void repeats();
    void keysSeenByMessageFunctionsAloneCountAsSeen();
    void keysSeenElsewhereDoNotCount();
    void aPropagatedKeyIsShownToHooksOnce();
    void repeatFunction_data();
    void repeatFunction();
    void onlyTypeKeyAndModifiersMatter();
    void aNullKeyEventIsARepeat();
};

void tst_HookFilter::cleanup()
{
    removeAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// The memory of the repeat filter as a process starts with it: an unknown key of no type.
void tst_HookFilter::initTestCase()
{
    QKeyEvent untouched(QEvent::None, Qt::Key_unknown, Qt::NoModifier);
    QVERIFY(IsRepeatFilterKeyEvent(&untouched));
}

using MakeObject = QObject* (*)();
Q_DECLARE_METATYPE(MakeObject)

template <class Class>
static QObject* make()
{
    return new Class;
}

void tst_HookFilter::classes_data()
{
    QTest::addColumn<MakeObject>("makeTarget");
    QTest::addColumn<bool>("seen");

    const auto row = [](const char* name, MakeObject makeTarget, bool seen) {
        QTest::newRow(name) << makeTarget << seen;
    };
    row("the view", make<CTavoView>, true);
    row("the main frame", make<CTavoMainFrame>, true);
    row("the command bar", make<XeQtCommandBar>, true);
    row("an heir of the view under the same name", make<PlainHeir>, true);
    row("an heir of the view with a name of its own", make<CTavoViewSpecial>, false);
    row("a name that is cut short", make<CTavoVie>, false);
    row("a name in small letters", make<ctavoview>, false);
    row("the name in a namespace", make<host::CTavoView>, false);
    row("any widget", make<QWidget>, false);
    row("a line edit", make<QLineEdit>, false);
    row("a dialog", make<QDialog>, false);
    row("an object that is no widget", make<QObject>, false);
}

void tst_HookFilter::classes()
{
    QFETCH(MakeObject, makeTarget);
    QFETCH(bool, seen);
    const QScopedPointer<QObject> target(makeTarget());
    run("+h0 +f0");
    sendKey(*target, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString(seen ? "h0 f0" : ""));
}

void tst_HookFilter::onlyTheClassNameCounts()
{
    QWidget widget;
    widget.setObjectName("CTavoMainFrame");
    run("+h0 +f0");
    sendKey(widget, QEvent::KeyPress, Qt::Key_A);
    QCOMPARE(takeTrace(), QString());
}

void tst_HookFilter::aKeyToADialogIsNotSeen()
{
    CTavoMainFrame frame;
    QDialog dialog(&frame);
    auto* edit = new QLineEdit(&dialog);
    run("+h0");
    QTest::keyClick(edit, Qt::Key_A);
    QCOMPARE(edit->text(), QString("a"));
    QCOMPARE(takeTrace(), QString());
    QTest::keyClick(&frame, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 h0"));
}

// ------------------------------------------------------------------------------------------------------- types

using EventPointer = QSharedPointer<QEvent>;
Q_DECLARE_METATYPE(EventPointer)

void tst_HookFilter::droppedTypes_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::addColumn<int>("type");

    const auto row = [](const char* name, int type, QEvent* event) {
        QTest::newRow(name) << EventPointer(event) << type;
    };
    const auto plain = [&row](const char* name, int type) { row(name, type, new QEvent(QEvent::Type(type))); };
    plain("Leave", 11);
    row("Paint", 12, new QPaintEvent(QRect(0, 0, 1, 1)));
    row("Resize", 14, new QResizeEvent(QSize(5, 5), QSize(4, 4)));
    plain("WindowActivate", 24);
    plain("WindowDeactivate", 25);
    plain("ShowToParent", 26);
    plain("WindowBlocked", 103);
    plain("WindowUnblocked", 104);
    row("HoverEnter", 127, new QHoverEvent(QEvent::HoverEnter, QPointF(1, 1), QPointF(-1, -1)));
    row("HoverLeave", 128, new QHoverEvent(QEvent::HoverLeave, QPointF(-1, -1), QPointF(1, 1)));
    row("a window message", XeWinMsgEvent::EventType, new XeWinMsgEvent(WM_USER + 1, 2, 3));
}

void tst_HookFilter::droppedTypes()
{
    QFETCH(EventPointer, event);
    QTEST(int(event->type()), "type");
    run("+h0 +f0");
    CTavoView view;
    QVERIFY(!GetGlobalEventHandler()->eventFilter(&view, event.data()));
    QCoreApplication::sendEvent(&view, event.data());
    QCOMPARE(takeTrace(), QString());
    QVERIFY2(!FilterProbe().sees(*event), "the type is looked at before the class");
}

void tst_HookFilter::typesWithoutAMessage_data()
{
    QTest::addColumn<EventPointer>("event");

    const auto row = [](const char* name, QEvent* event) { QTest::newRow(name) << EventPointer(event); };
    row("no type", new QEvent(QEvent::None));
    row("FocusIn", new QFocusEvent(QEvent::FocusIn));
    row("FocusOut", new QFocusEvent(QEvent::FocusOut));
    row("Enter", new QEnterEvent(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1)));
    row("Move", new QMoveEvent(QPoint(2, 2), QPoint(1, 1)));
    row("Show", new QShowEvent);
    row("Hide", new QHideEvent);
    row("HideToParent", new QEvent(QEvent::HideToParent));
    row("HoverMove", new QHoverEvent(QEvent::HoverMove, QPointF(1, 1), QPointF(2, 2)));
    row("ShortcutOverride", new QKeyEvent(QEvent::ShortcutOverride, Qt::Key_A, Qt::NoModifier));
    row("a move on the frame",
        new QMouseEvent(QEvent::NonClientAreaMouseMove, QPointF(1, 1), Qt::NoButton, Qt::NoButton, Qt::NoModifier));
    row("a press on the frame", new QMouseEvent(QEvent::NonClientAreaMouseButtonPress, QPointF(1, 1), Qt::LeftButton,
                                                Qt::LeftButton, Qt::NoModifier));
    row("a double click on the frame", new QMouseEvent(QEvent::NonClientAreaMouseButtonDblClick, QPointF(1, 1),
                                                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    row("the type below window messages", new QEvent(QEvent::Type(1127)));
    row("the type above window messages", new QEvent(QEvent::Type(1129)));
}

void tst_HookFilter::typesWithoutAMessage()
{
    QFETCH(EventPointer, event);
    run("+h0 +f0");
    CTavoView view;
    QVERIFY(!GetGlobalEventHandler()->eventFilter(&view, event.data()));
    QCoreApplication::sendEvent(&view, event.data());
    QCOMPARE(takeTrace(), QString());
}

// ----------------------------------------------------------------------------------------- the message that comes

static QMouseEvent* mouseEvent(QEvent::Type type, Qt::MouseButton button,
                               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return new QMouseEvent(type, QPointF(3, 4), button, button, modifiers);
}

void tst_HookFilter::messages_data()
{
    QTest::addColumn<EventPointer>("event");
    QTest::addColumn<QString>("message");

    const auto row = [](const char* name, QEvent* event, const char* message) {
        QTest::newRow(name) << EventPointer(event) << message;
    };
    row("a timer", new QTimerEvent(17), "0x113 w=0x11 l=0x0");
    row("a left press", mouseEvent(QEvent::MouseButtonPress, Qt::LeftButton), "0x201 w=0x1 l=0x40003");
    row("a left release", mouseEvent(QEvent::MouseButtonRelease, Qt::LeftButton), "0x202 w=0x1 l=0x40003");
    row("a left double click", mouseEvent(QEvent::MouseButtonDblClick, Qt::LeftButton), "0x203 w=0x1 l=0x40003");
    row("a right press", mouseEvent(QEvent::MouseButtonPress, Qt::RightButton), "0x204 w=0x2 l=0x40003");
    row("a middle press with Shift", mouseEvent(QEvent::MouseButtonPress, Qt::MiddleButton, Qt::ShiftModifier),
        "0x207 w=0x14 l=0x40003");
    row("a press of a further button has no number", mouseEvent(QEvent::MouseButtonPress, Qt::XButton1),
        "0xffffffff w=0x0 l=0x40003");
    row("a move", mouseEvent(QEvent::MouseMove, Qt::NoButton), "0x200 w=0x0 l=0x40003");
    row("a key press", new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier), "0x100 w=0x41 l=0x80001");
    row("a key release", new QKeyEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier), "0x101 w=0x41 l=0x80000001");
    row("a key press with Alt", new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier), "0x104 w=0x41 l=0x200001");
    row("a close", new QCloseEvent, "0x10 w=0x0 l=0x0");
    row("the wheel",
        new QWheelEvent(QPointF(3, 4), QPointF(3, 4), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false),
        "0x20a w=0xff880000 l=0x40003");
    row("a release on the frame", mouseEvent(QEvent::NonClientAreaMouseButtonRelease, Qt::RightButton),
        "0xffffffff w=0x0 l=0x0");
}

void tst_HookFilter::messages()
{
    QFETCH(EventPointer, event);
    CTavoView view;
    QStringList seen;
    onMessage = [&](const tagMSG& message) {
        QCOMPARE(message.hwnd, &view);
        seen += QStringLiteral("0x%1 w=0x%2 l=0x%3")
                    .arg(message.message, 0, 16)
                    .arg(message.wParam, 0, 16)
                    .arg(message.lParam, 0, 16);
    };
    run("+f0");
    QCoreApplication::sendEvent(&view, event.data());
    QTEST(seen.join(", "), "message");
}

void tst_HookFilter::messageCarriesTimeAndPointer()
{
    QCursor::setPos(37, 41);
    CTavoView view;
    tagMSG seen{};
    onMessage = [&seen](const tagMSG& message) { seen = message; };
    run("+f0");
    const auto before = DWORD(std::time(nullptr));
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, QPoint(5, 6));
    const auto after = DWORD(std::time(nullptr));
    QCOMPARE(seen.hwnd, &view);
    QCOMPARE(seen.lParam, 0x60005ll);
    QCOMPARE(QPoint(seen.pt.x, seen.pt.y), QPoint(37, 41));
    QVERIFY(before <= seen.time && seen.time <= after);
}

void tst_HookFilter::theEventIsNotChanged()
{
    run("+h0 +f0");
    CTavoView view;
    for (const bool accepted : {true, false}) {
        forgetKey();
        QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier, "A");
        event.setAccepted(accepted);
        QVERIFY(!GetGlobalEventHandler()->eventFilter(&view, &event));
        QCOMPARE(takeTrace(), QString("h0 f0"));
        QCOMPARE(event.isAccepted(), accepted);
        QCOMPARE(event.text(), QString("A"));
        QCOMPARE(event.key(), int(Qt::Key_A));
    }
}

void tst_HookFilter::nullArgumentsAreLetThrough()
{
    run("+h0 +f0");
    CTavoView view;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QVERIFY(!GetGlobalEventHandler()->eventFilter(nullptr, &event));
    QVERIFY(!GetGlobalEventHandler()->eventFilter(&view, nullptr));
    QVERIFY(!GetGlobalEventHandler()->eventFilter(nullptr, nullptr));
    QCOMPARE(takeTrace(), QString());
}

// ---------------------------------------------------------------------------------------------- the repeat filter

// Keys as one line: "A" is a press, "-A" its release, "^A" and "-^A" those with Control.
static void sendKeys(QObject& target, const QString& keys)
{
    const QStringList tokens = keys.split(' ');
    for (const QString& token : tokens)
        sendKey(target, token.startsWith('-') ? QEvent::KeyRelease : QEvent::KeyPress,
                token.at(token.size() - 1).unicode(), token.contains('^') ? Qt::ControlModifier : Qt::NoModifier);
}

void tst_HookFilter::repeats_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("called");

    QTest::newRow("a second press is shown to message functions alone") << "A A"
                                                                        << "h0 f0 f0";
    QTest::newRow("a key that repeats is shown to hooks once") << "A A A A"
                                                               << "h0 f0 f0 f0 f0";
    QTest::newRow("a release is new, the press after it too") << "A -A A -A"
                                                              << "h0 f0 h0 f0 h0 f0 h0 f0";
    QTest::newRow("a second release is a repeat") << "A -A -A"
                                                  << "h0 f0 h0 f0 f0";
    QTest::newRow("another key is new") << "A B"
                                        << "h0 f0 h0 f0";
    QTest::newRow("only the last key is remembered") << "A B A"
                                                     << "h0 f0 h0 f0 h0 f0";
    QTest::newRow("another modifier is new") << "A ^A"
                                             << "h0 f0 h0 f0";
    QTest::newRow("a modifier less is new") << "^A A"
                                            << "h0 f0 h0 f0";
    QTest::newRow("a press with a modifier repeats as well") << "^A ^A"
                                                             << "h0 f0 f0";
}

void tst_HookFilter::repeats()
{
    QFETCH(QString, keys);
    run("+h0 +f0");
    CTavoView view;
    sendKeys(view, keys);
    QTEST(takeTrace(), "called");
}

void tst_HookFilter::keysSeenByMessageFunctionsAloneCountAsSeen()
{
    CTavoView view;
    run("+f0");
    sendKeys(view, "A");
    run("+h0");
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString("f0 f0"));
    run("-h0 -f0 +h0");
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString());
    CTavoView secondView;
    sendKeys(secondView, "A");
    QCOMPARE(takeTrace(), QString());
}

void tst_HookFilter::keysSeenElsewhereDoNotCount()
{
    CTavoView view;
    QLineEdit edit;
    run("+h0");
    sendKeys(edit, "A");
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString("h0"));
    sendKeys(edit, "B");
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString());
    QTest::mouseClick(&view, Qt::LeftButton);
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString());
    run("-h0");
    sendKeys(view, "C"); // nobody looks
    run("+h0");
    sendKeys(view, "A");
    QCOMPARE(takeTrace(), QString());
}

void tst_HookFilter::aPropagatedKeyIsShownToHooksOnce()
{
    CTavoMainFrame frame;
    auto* view = new CTavoView(&frame);
    QStringList targets;
    onMessage = [&](const tagMSG& message) { targets += message.hwnd->metaObject()->className(); };
    run("+h0 +f0");
    QTest::keyPress(view, Qt::Key_A);
    QCOMPARE(takeTrace(), QString("h0 f0 f0"));
    QCOMPARE(targets.join(' '), QString("CTavoView CTavoMainFrame"));
}

void tst_HookFilter::repeatFunction_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<bool>("repeat");

    const auto row = [](const char* name, int type, int key, int modifiers, bool repeat) {
        QTest::newRow(name) << type << key << modifiers << repeat;
    };
    const int shift = Qt::ShiftModifier;
    row("the same press", QEvent::KeyPress, Qt::Key_A, shift, true);
    row("its release", QEvent::KeyRelease, Qt::Key_A, shift, false);
    row("another key", QEvent::KeyPress, Qt::Key_B, shift, false);
    row("no modifier", QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, false);
    row("another modifier", QEvent::KeyPress, Qt::Key_A, Qt::AltModifier, false);
    row("a modifier more", QEvent::KeyPress, Qt::Key_A, shift | Qt::ControlModifier, false);
    row("a key of the keypad", QEvent::KeyPress, Qt::Key_A, shift | Qt::KeypadModifier, false);
    row("another type of key event", QEvent::ShortcutOverride, Qt::Key_A, shift, false);
}

void tst_HookFilter::repeatFunction()
{
    QFETCH(int, type);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, repeat);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier, "A");
    QVERIFY(!IsRepeatFilterKeyEvent(&first));
    QVERIFY(IsRepeatFilterKeyEvent(&first));
    QKeyEvent second(QEvent::Type(type), key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(IsRepeatFilterKeyEvent(&second), repeat);
    QVERIFY(IsRepeatFilterKeyEvent(&second));
    QCOMPARE(IsRepeatFilterKeyEvent(&first), repeat);
}

void tst_HookFilter::onlyTypeKeyAndModifiersMatter()
{
    QKeyEvent plain(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    QVERIFY(!IsRepeatFilterKeyEvent(&plain));
    QKeyEvent different(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, 38, 97, 16, "other text", true, 9);
    different.setTimestamp(12345);
    different.ignore();
    QVERIFY(IsRepeatFilterKeyEvent(&different));
    QVERIFY(!different.isAccepted());
}

void tst_HookFilter::aNullKeyEventIsARepeat()
{
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QVERIFY(!IsRepeatFilterKeyEvent(&key));
    QVERIFY(IsRepeatFilterKeyEvent(nullptr));
    QVERIFY(IsRepeatFilterKeyEvent(&key));
}

XE_TEST(tst_HookFilter)
#include "tst_hookfilter.moc"
