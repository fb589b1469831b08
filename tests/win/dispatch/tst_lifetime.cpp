#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>
#include <xewinuser.h>

#include <QPointer>

// A handler may delete or detach its window, or delete the widget, at every step of a message.

namespace {

// Enters the pair of handlers of a window notification, of which the first runs an action.
class PairWindow : public CWnd_X
{
public:
    void first(QWidget*)
    {
        const std::function<void()> act = action; // it may delete this window
        act();
    }
    void second(CWnd_X* window) { calls += window ? QStringLiteral("second") : QStringLiteral("second(null)"); }

    static AFX_PMSG_X firstHandler() { return XeHandler<void(QWidget*)>::of(&PairWindow::first); }
    static AFX_PMSG_X secondHandler() { return XeHandler<void(CWnd_X*)>::of(&PairWindow::second); }

    std::function<void()> action;
    static inline QStringList calls;
};

// Deletes itself with its last message, as a client's frame windows do.
class SelfDeletingWindow : public CWnd_X
{
public:
    ~SelfDeletingWindow() override { ++deaths; }
    void PostNcDestroy() override { delete this; }

    static inline int deaths = 0;
};

class DoomedInDispatch : public CWnd_X
{
public:
    int OnWndMsg(UINT message, WPARAM, LPARAM, LRESULT* result) override
    {
        if (message != WM_USER + 1)
            return 0;
        *result = 8;
        delete this;
        return 1;
    }
};

std::unique_ptr<QEvent> mouseEvent(QEvent::Type type)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    return std::make_unique<QMouseEvent>(type, QPointF(2, 3), button, buttons, Qt::NoModifier);
}

std::unique_ptr<QEvent> makeEvent(int type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return std::make_unique<QKeyEvent>(QEvent::Type(type), Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    case QEvent::Wheel:
        return std::make_unique<QWheelEvent>(QPointF(5, 6), QPointF(5, 6), QPoint(), QPoint(0, 120), Qt::NoButton,
                                             Qt::NoModifier, Qt::NoScrollPhase, false);
    case QEvent::ContextMenu:
        return std::make_unique<QContextMenuEvent>(QContextMenuEvent::Mouse, QPoint(1, 2), QPoint(1, 2));
    case QEvent::HoverEnter:
        return std::make_unique<QHoverEvent>(QEvent::HoverEnter, QPointF(1, 2), QPointF(0, 0));
    case QEvent::Resize:
        return std::make_unique<QResizeEvent>(QSize(30, 40), QSize(10, 10));
    case QEvent::Close:
        return std::make_unique<QCloseEvent>();
    case QEvent::Timer:
        return std::make_unique<QTimerEvent>(7);
    case XeWinMsgEvent::EventType:
        return std::make_unique<XeWinMsgEvent>(WM_USER + 1, 0, 0);
    case QEvent::WindowActivate:
    case QEvent::Leave:
        return std::make_unique<QEvent>(QEvent::Type(type));
    default:
        return mouseEvent(QEvent::Type(type));
    }
}

template <UINT... messages>
void onEach(ScriptWindow& window, const std::function<void()>& action)
{
    (window.on<messages>(action), ...);
}

// The same handler for whatever makeEvent() makes.
void onAny(ScriptWindow& window, const std::function<void()>& action)
{
    onEach<WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_MOUSEMOVE, WM_MOUSELEAVE>(window, action);
    onEach<WM_KEYDOWN, WM_KEYUP, WM_MOUSEWHEEL, WM_CONTEXTMENU, WM_MOUSEHOVER>(window, action);
    onEach<WM_SIZE, WM_CLOSE, WM_TIMER, WM_ACTIVATE, WM_USER + 1>(window, action);
}

void addEventRows()
{
    QTest::addColumn<int>("type");
    QTest::newRow("press") << int(QEvent::MouseButtonPress);
    QTest::newRow("release") << int(QEvent::MouseButtonRelease);
    QTest::newRow("double click") << int(QEvent::MouseButtonDblClick);
    QTest::newRow("move") << int(QEvent::MouseMove);
    QTest::newRow("leave") << int(QEvent::Leave);
    QTest::newRow("key press") << int(QEvent::KeyPress);
    QTest::newRow("key release") << int(QEvent::KeyRelease);
    QTest::newRow("wheel") << int(QEvent::Wheel);
    QTest::newRow("context menu") << int(QEvent::ContextMenu);
    QTest::newRow("hover") << int(QEvent::HoverEnter);
    QTest::newRow("resize") << int(QEvent::Resize);
    QTest::newRow("close") << int(QEvent::Close);
    QTest::newRow("timer") << int(QEvent::Timer);
    QTest::newRow("activation") << int(QEvent::WindowActivate);
    QTest::newRow("message") << int(XeWinMsgEvent::EventType);
}

} // namespace

class tst_Lifetime : public QObject
{
    Q_OBJECT

private slots:
    void init() { PairWindow::calls.clear(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void screeningDeletesTheWrapper_data();
    void screeningDeletesTheWrapper();
    void screeningDeletesTheWidget_data();
    void screeningDeletesTheWidget();
    void handlerDeletesTheWrapper_data();
    void handlerDeletesTheWrapper();
    void handlerDeletesTheWidget_data();
    void handlerDeletesTheWidget();
    void handlerDeletesTheWidgetAndPassesOn_data();
    void handlerDeletesTheWidgetAndPassesOn();
    void resultOfAHandlerThatDeletesTheWrapper();
    void resultOfAHandlerThatDeletesTheWidget();
    void firstHandlerDeletesTheWrapper();
    void firstHandlerDeletesTheWidget();
    void firstHandlerDeletesTheWidgetItIsToldOf();
    void firstHandlerDetaches();
    void firstHandlerAttachesToAnotherWidget();
    void dispatchDeletesTheWrapper();
    void nestedHandlerDeletesTheWrapper();
    void handlerDetaches();
    void handlerAttachesToAnotherWidget();
    void lastMessageDeletesTheWrapper();
    void destroyWindowDeletesTheWrapper();
    void wrapperOnTheStackIsDestroyed();
    void ownedWidgetOfADeletedWrapper();
};

void tst_Lifetime::screeningDeletesTheWrapper_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("and lets the event pass") << 0;
    QTest::newRow("and stops the event") << 1;
}

void tst_Lifetime::screeningDeletesTheWrapper()
{
    QFETCH(int, answer);
    ListeningWidget widget;
    auto* window = new ScreeningWindow(&widget);
    window->on<WM_LBUTTONDOWN>([] { QFAIL("called"); });
    window->screen = [=](tagMSG*) {
        delete window;
        return answer;
    };
    const auto event = mouseEvent(QEvent::MouseButtonPress);
    QCoreApplication::sendEvent(&widget, event.get());
    QCOMPARE(widget.count(QEvent::MouseButtonPress), 1 - answer);
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
}

void tst_Lifetime::screeningDeletesTheWidget_data() { screeningDeletesTheWrapper_data(); }

void tst_Lifetime::screeningDeletesTheWidget()
{
    QFETCH(int, answer);
    const QPointer<QWidget> widget = new QWidget;
    ScreeningWindow window(widget);
    window.on<WM_LBUTTONDOWN>([] { QFAIL("called"); });
    window.screen = [&](tagMSG*) {
        delete widget;
        window.SetCurrentEventAccepted(false);
        return answer;
    };
    const auto event = mouseEvent(QEvent::MouseButtonPress);
    QVERIFY(window.eventFilter(widget, event.get()));
    QVERIFY(event->isAccepted());
    QVERIFY(!window.GetImpQObject());
}

void tst_Lifetime::handlerDeletesTheWrapper_data() { addEventRows(); }

void tst_Lifetime::handlerDeletesTheWrapper()
{
    QFETCH(int, type);
    QWidget parent;
    ListeningWidget widget(&parent);
    widget.setMouseTracking(true);
    QPointer<ScriptWindow> window = new ScriptWindow(&widget);
    onAny(*window, [&] { delete window; });
    const auto event = makeEvent(type);
    QCoreApplication::sendEvent(&widget, event.get());
    QVERIFY(!window);
    QCOMPARE(widget.count(type), 0); // handled is handled
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
    QCoreApplication::processEvents();
}

void tst_Lifetime::handlerDeletesTheWidget_data() { addEventRows(); }

void tst_Lifetime::handlerDeletesTheWidget()
{
    QFETCH(int, type);
    ListeningWidget parent;
    const QPointer<QWidget> widget = new QWidget(&parent);
    widget->setMouseTracking(true);
    ScriptWindow window(widget);
    onAny(window, [&] { delete widget; });
    const auto event = makeEvent(type);
    QCoreApplication::sendEvent(widget, event.get());
    QVERIFY(!widget);
    QVERIFY(!window.GetImpQObject());
    QCOMPARE(parent.count(type), 0);
    QCoreApplication::processEvents();
}

void tst_Lifetime::handlerDeletesTheWidgetAndPassesOn_data() { addEventRows(); }

// There is nobody left to pass it on to. Qt would walk on to the parents of the widget for an event that is ignored.
void tst_Lifetime::handlerDeletesTheWidgetAndPassesOn()
{
    QFETCH(int, type);
    ListeningWidget parent;
    const QPointer<QWidget> widget = new QWidget(&parent);
    ScriptWindow window(widget);
    onAny(window, [&] {
        delete widget;
        window.SetCurrentEventAccepted(false);
    });
    const auto event = makeEvent(type);
    QVERIFY(window.eventFilter(widget, event.get()));
    QVERIFY(!widget);
    if (type != QEvent::Close)
        QVERIFY(event->isAccepted());
}

void tst_Lifetime::resultOfAHandlerThatDeletesTheWrapper()
{
    QWidget widget;
    auto* window = new ScriptWindow(&widget);
    window->on<WM_USER + 1>([=](WPARAM, LPARAM) {
        delete window;
        return 77;
    });
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 77);
}

void tst_Lifetime::resultOfAHandlerThatDeletesTheWidget()
{
    const QPointer<QWidget> widget = new QWidget;
    ScriptWindow window(widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        delete widget;
        return 78;
    });
    QCOMPARE(SendMessage_X(widget, WM_USER + 1, 0, 0), 78);
}

void tst_Lifetime::firstHandlerDeletesTheWrapper()
{
    QWidget widget;
    auto* window = new PairWindow;
    QVERIFY(window->SubclassWindow(&widget));
    window->AddMsgMapEntry(WM_KILLFOCUS, AfxSig_v_W_v, PairWindow::firstHandler(), PairWindow::secondHandler());
    window->action = [=] { delete window; };
    window->SendMessage(WM_KILLFOCUS, WPARAM(&widget), 0);
    QCOMPARE(PairWindow::calls, QStringList());
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
}

// The message names the widget itself, as WM_CONTEXTMENU and WM_ACTIVATE do.
void tst_Lifetime::firstHandlerDeletesTheWidget()
{
    const QPointer<QWidget> widget = new QWidget;
    PairWindow window;
    QVERIFY(window.SubclassWindow(widget));
    window.AddMsgMapEntry(WM_CONTEXTMENU, AfxSig_v_W_v, PairWindow::firstHandler(), PairWindow::secondHandler());
    window.action = [&] { delete widget; };
    const auto event = makeEvent(QEvent::ContextMenu);
    QVERIFY(window.eventFilter(widget, event.get()));
    QVERIFY(!widget);
    QVERIFY(!PairWindow::calls.contains(QStringLiteral("second"))); // not with a wrapper of what is gone
}

void tst_Lifetime::firstHandlerDeletesTheWidgetItIsToldOf()
{
    QWidget widget;
    const QPointer<QWidget> other = new QWidget;
    PairWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    window.AddMsgMapEntry(WM_KILLFOCUS, AfxSig_v_W_v, PairWindow::firstHandler(), PairWindow::secondHandler());
    window.action = [&] { delete other; };
    window.SendMessage(WM_KILLFOCUS, WPARAM(other.data()), 0);
    QVERIFY(!other);
    QVERIFY(!PairWindow::calls.contains(QStringLiteral("second")));
}

void tst_Lifetime::firstHandlerDetaches()
{
    QWidget widget;
    PairWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    window.AddMsgMapEntry(WM_KILLFOCUS, AfxSig_v_W_v, PairWindow::firstHandler(), PairWindow::secondHandler());
    window.action = [&] { window.Detach(); };
    window.SendMessage(WM_KILLFOCUS, WPARAM(&widget), 0);
    QCOMPARE(PairWindow::calls, QStringList()); // it is no longer this window's
}

void tst_Lifetime::firstHandlerAttachesToAnotherWidget()
{
    QWidget widget, other;
    PairWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    window.AddMsgMapEntry(WM_KILLFOCUS, AfxSig_v_W_v, PairWindow::firstHandler(), PairWindow::secondHandler());
    window.action = [&] { window.SubclassWindow(&other); };
    window.SendMessage(WM_KILLFOCUS, WPARAM(&widget), 0);
    QCOMPARE(PairWindow::calls, QStringList()); // the message was not for the widget that it has now
}

void tst_Lifetime::dispatchDeletesTheWrapper()
{
    QWidget widget;
    auto* window = new DoomedInDispatch;
    QVERIFY(window->SubclassWindow(&widget));
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 8);
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
}

void tst_Lifetime::nestedHandlerDeletesTheWrapper()
{
    QWidget widget;
    auto* window = new ScriptWindow(&widget);
    window->on<WM_USER + 1>([=](WPARAM, LPARAM) {
        delete window;
        return 1;
    });
    LRESULT nested = 0;
    window->on<WM_USER + 2>([&](WPARAM, LPARAM) {
        nested = SendMessage_X(&widget, WM_USER + 1, 0, 0);
        return 2;
    });
    QCOMPARE(SendMessage_X(&widget, WM_USER + 2, 0, 0), 2);
    QCOMPARE(nested, 1);
}

void tst_Lifetime::handlerDetaches()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        window.Detach();
        return 3;
    });
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 3);
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 0);
    QVERIFY(!window.GetImpQObject());
}

void tst_Lifetime::handlerAttachesToAnotherWidget()
{
    QWidget widget, other;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        window.SubclassWindow(&other);
        return 3;
    });
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 3);
    QCOMPARE(SendMessage_X(&widget, WM_USER + 1, 0, 0), 0);
    QCOMPARE(SendMessage_X(&other, WM_USER + 1, 0, 0), 3);
}

void tst_Lifetime::lastMessageDeletesTheWrapper()
{
    QWidget widget;
    auto* window = new SelfDeletingWindow;
    QVERIFY(window->SubclassWindow(&widget));
    SelfDeletingWindow::deaths = 0;
    QCOMPARE(window->SendMessage(WM_NCDESTROY, 0, 0), 0);
    QCOMPARE(SelfDeletingWindow::deaths, 1);
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
}

void tst_Lifetime::destroyWindowDeletesTheWrapper()
{
    auto* window = new SelfDeletingWindow;
    QVERIFY(window->Create(nullptr));
    const QPointer<QWidget> widget = window->GetSafeHwnd();
    auto* child = new SelfDeletingWindow;
    QVERIFY(child->Create(widget));
    SelfDeletingWindow::deaths = 0;
    QCOMPARE(window->DestroyWindow(), 1);
    QCOMPARE(SelfDeletingWindow::deaths, 2);
    QVERIFY(widget); // until control returns to the event loop
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!widget);
}

void tst_Lifetime::wrapperOnTheStackIsDestroyed()
{
    ScriptWindow window;
    QVERIFY(window.Create(nullptr));
    QCOMPARE(window.SendMessage(WM_NCDESTROY, 0, 0), 0);
    QVERIFY(!window.GetImpQObject());
    QCOMPARE(window.trace.text(), QStringLiteral("WM_NCDESTROY(0x0, 0x0)"));
}

void tst_Lifetime::ownedWidgetOfADeletedWrapper()
{
    auto* window = new ScriptWindow;
    QVERIFY(window->Create(nullptr));
    const QPointer<QWidget> widget = window->GetSafeHwnd();
    window->on<WM_USER + 1>([=](WPARAM, LPARAM) {
        delete window;
        return 5;
    });
    QCOMPARE(SendMessage_X(widget, WM_USER + 1, 0, 0), 5);
    QVERIFY(widget);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!widget);
}

XE_TEST(tst_Lifetime)
#include "tst_lifetime.moc"
