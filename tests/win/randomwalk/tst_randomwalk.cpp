// Windows, wrappers and applications that come and go at random, also inside each other's handlers. What counts is that
// the sanitizers have nothing to say.
//
// WALK_SECONDS and WALK_SEED in the environment make another walk of it: 5 seconds and 1 if they are not there.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QElapsedTimer>
#include <QtTest>
#include <QtWidgets>

#include <random>

Q_WIDGETS_EXPORT QWidgetData* qt_qwidget_data(QWidget* widget); // a friend of QWidget

namespace {

/// Where a step is made: between events, in a handler, or in one in which Qt goes on with the widget afterwards, and
/// nobody may delete it, give it another parent or run an event loop (paint, resize, move, show, activation, focus).
enum class Place { Outside, Handler, TightHandler };

class Window;

// ------------------------------------------------------------------------------------------------------------ the walk

class Walk
{
public:
    explicit Walk(unsigned seed) : m_random(seed) {}

    void live(int steps);
    void disturb(Place place);

    static Walk* current;

private:
    using Step = void (Walk::*)();
    void step(Place place);
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    void tidy();

    Window* window();
    QWidget* widget();
    HWND widgetOfAny();
    QWidget* parentOrNone();
    bool mayShow() const;
    auto tighten();
    CRect rect() { return {below(50), below(50), 60 + below(200), 60 + below(200)}; }

    void createWindow();
    void createWidget();
    void subclass();
    void attach();
    void detach();
    void destroyWindow();
    void deleteWrapper();
    void changeState();
    void setParent();
    void focus();
    void scroll();
    void send();
    void post();
    void sendEvent();
    void postEvent();
    void timer();
    void hook();
    void messageFunction();
    void temporary();
    void clearTemporary();
    void processEvents();
    void deleteWidget();
    void deleteWidgetLater();

    std::unique_ptr<QEvent> event();

    std::mt19937 m_random;
    QVector<QPointer<Window>> m_windows;
    QVector<QPointer<QWidget>> m_widgets;
    Place m_place = Place::Outside; // the tightest on the stack
    int m_depth = 0;
};

Walk* Walk::current = nullptr;

// --------------------------------------------------------------------------------------------------------- the windows

// Each handler makes a step of the walk, and calls its base if it is still there.
#define WALKING(place, name, parameters, ...) \
    void name parameters                      \
    {                                         \
        const QPointer<Window> living(this);  \
        Walk::current->disturb(Place::place); \
        if (living)                           \
            CWnd_X::name(__VA_ARGS__);        \
    }

class Window : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(Window)

public:
    WALKING(TightHandler, OnActivate, (UINT state, QWidget* other, BOOL minimized), state, other, minimized)
    WALKING(TightHandler, OnActivate_X, (UINT state, CWnd_X* other, BOOL minimized), state, other, minimized)
    WALKING(TightHandler, OnSetFocus, (QWidget * other), other)
    WALKING(TightHandler, OnSetFocus_X, (CWnd_X * other), other)
    WALKING(TightHandler, OnKillFocus, (QWidget * other), other)
    WALKING(TightHandler, OnKillFocus_X, (CWnd_X * other), other)
    WALKING(TightHandler, OnShowWindow, (BOOL shown, UINT status), shown, status)
    WALKING(TightHandler, OnSize, (UINT type, int width, int height), type, width, height)
    WALKING(TightHandler, OnMove, (int x, int y), x, y)
    WALKING(TightHandler, OnPaint, ())
    WALKING(TightHandler, OnEnable, (BOOL enabled), enabled)
    WALKING(Handler, OnLButtonDown, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnLButtonUp, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnRButtonDown, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnMouseMove, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnMouseLeave, ())
    WALKING(Handler, OnKeyDown, (UINT vk, UINT count, UINT modifiers), vk, count, modifiers)
    WALKING(Handler, OnKeyUp, (UINT vk, UINT count, UINT modifiers), vk, count, modifiers)
    WALKING(Handler, OnChar, (UINT character, UINT count, UINT modifiers), character, count, modifiers)
    WALKING(Handler, OnContextMenu, (QWidget * widget, CPoint point), widget, point)
    WALKING(Handler, OnContextMenu_X, (CWnd_X * window, CPoint point), window, point)
    WALKING(Handler, OnTimer, (UINT_PTR id), id)
    WALKING(TightHandler, OnClose, ())
    WALKING(TightHandler, OnDestroy, ())
    WALKING(TightHandler, OnNcDestroy, ())

    LRESULT OnUser(WPARAM, LPARAM)
    {
        Walk::current->disturb(Place::Handler);
        return 5;
    }

    BOOL OnSetCursor(QWidget*, UINT, UINT)
    {
        Walk::current->disturb(Place::Handler);
        return FALSE;
    }

    DECLARE_MESSAGE_MAP_X()
};

IMPLEMENT_DYNCREATE_X(Window, CWnd_X)

BEGIN_MESSAGE_MAP_X(Window, CWnd_X)
    ON_WM_ACTIVATE_X()
    ON_WM_SETFOCUS_X()
    ON_WM_KILLFOCUS_X()
    ON_WM_SHOWWINDOW_X()
    ON_WM_SIZE_X()
    ON_WM_MOVE_X()
    ON_WM_PAINT_X()
    ON_WM_ENABLE_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X()
    ON_WM_RBUTTONDOWN_X()
    ON_WM_MOUSEMOVE_X()
    ON_WM_MOUSELEAVE_X()
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
    ON_WM_CHAR_X()
    ON_WM_CONTEXTMENU_X()
    ON_WM_TIMER_X()
    ON_WM_CLOSE_X()
    ON_WM_DESTROY_X()
    ON_WM_NCDESTROY_X()
    ON_WM_SETCURSOR_X()
    ON_MESSAGE_X(WM_USER + 1, OnUser)
END_MESSAGE_MAP_X()

// Of the class whose input hooks and message functions see.
class CTavoView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};

void onTimer(HWND, UINT, UINT_PTR, DWORD) { Walk::current->disturb(Place::Handler); }

long long onKey(int, unsigned long, long long)
{
    Walk::current->disturb(Place::Handler);
    return 0;
}

bool onMessage(tagMSG*)
{
    Walk::current->disturb(Place::TightHandler);
    return false;
}

// ----------------------------------------------------------------------------------------------------------- the steps

Window* Walk::window()
{
    m_windows.removeAll(nullptr);
    return m_windows.isEmpty() ? nullptr : m_windows.at(below(m_windows.size()));
}

QWidget* Walk::widget()
{
    m_widgets.removeAll(nullptr);
    return m_widgets.isEmpty() ? nullptr : m_widgets.at(below(m_widgets.size()));
}

// Whether Qt destroys the widget, or one that it is in.
bool isGoing(QWidget* widget)
{
    while (widget && !qt_qwidget_data(widget)->in_destructor)
        widget = widget->parentWidget();
    return widget;
}

// What may get a child or a wrapper.
QWidget* Walk::parentOrNone()
{
    QWidget* const parent = below(2) ? widgetOfAny() : nullptr;
    return isGoing(parent) ? nullptr : parent;
}

HWND Walk::widgetOfAny()
{
    Window* const any = below(2) ? window() : nullptr;
    return any && any->GetSafeHwnd() ? any->GetSafeHwnd() : widget();
}

// To show a window runs an event loop, which deletes what waits for it.
bool Walk::mayShow() const { return m_place != Place::TightHandler; }

// Until the end of the scope. While Qt shows, hides or deletes widgets, it tells of the pointer as well in between.
auto Walk::tighten()
{
    const Place outer = std::exchange(m_place, Place::TightHandler);
    return qScopeGuard([this, outer] { m_place = outer; });
}

void Walk::createWindow()
{
    if (m_windows.size() > 12)
        return;
    auto* const made = new Window;
    m_windows += made;
    const DWORD style =
        (mayShow() && below(2) ? WS_VISIBLE : 0) | (below(4) ? 0 : WS_VSCROLL) | (below(4) ? 0 : WS_HSCROLL);
    QWidget* const parent = parentOrNone();
    const auto tight = tighten();
    if (below(2))
        made->Create(style, rect(), parent);
    else
        made->Create(style, parent);
}

void Walk::createWidget()
{
    if (m_widgets.size() > 12)
        return;
    QWidget* const parent = parentOrNone();
    switch (below(4)) {
    case 0:
        m_widgets += new CTavoView(parent);
        break;
    case 1:
        m_widgets += new QLineEdit(parent);
        break;
    case 2:
        m_widgets += new QPushButton(parent);
        break;
    default:
        m_widgets += new QWidget(parent);
    }
}

// A widget has one wrapper.
void Walk::subclass()
{
    QWidget* const target = widget();
    if (CWnd_X::FromHandlePermanent(target) || isGoing(target))
        return;
    auto* const made = new Window;
    m_windows += made;
    made->SubclassWindow(target);
}

void Walk::attach()
{
    QWidget* const target = widget();
    Window* const any = window();
    if (any && !CWnd_X::FromHandlePermanent(target) && !isGoing(target))
        any->Attach(target, target ? target->parent() : nullptr, true);
}

void Walk::detach()
{
    if (Window* const any = window())
        any->Detach();
}

void Walk::destroyWindow()
{
    const auto tight = tighten();
    if (Window* const any = window())
        any->DestroyWindow();
    else
        DestroyWindow_X(widget());
}

void Walk::deleteWrapper() { delete window(); }

void Walk::changeState()
{
    const QPointer<QWidget> any = widgetOfAny();
    const int command = mayShow() && below(2) ? SW_SHOW : SW_HIDE;
    const auto tight = tighten();
    switch (below(5)) {
    case 0:
        ShowWindow_X(any, command);
        break;
    case 1:
        MoveWindow_X(any, below(50), below(50), 50 + below(100), 50 + below(100), TRUE);
        break;
    case 2:
        EnableWindow_X(any, below(3) != 0);
        break;
    case 3:
        UpdateWindow_X(any);
        break;
    default:
        SetWindowText_X(any, L"text");
    }
}

void Walk::setParent()
{
    const auto tight = tighten();
    SetParent_X(widgetOfAny(), parentOrNone());
}

void Walk::focus()
{
    const auto tight = tighten();
    Window* const any = window();
    if (any && below(2))
        any->SetFocus();
    else if (any)
        any->SetActiveWindow();
}

void Walk::scroll()
{
    if (Window* const any = window())
        any->ShowScrollBar(SB_BOTH, below(2));
}

void Walk::send()
{
    constexpr UINT messages[] = {WM_USER + 1, WM_SIZE,    WM_LBUTTONDOWN, WM_KEYDOWN, WM_TIMER,
                                 WM_CLOSE,    WM_DESTROY, WM_NCDESTROY,   WM_PAINT,   WM_SETFOCUS};
    const UINT message = messages[below(std::size(messages))];
    const auto other = reinterpret_cast<WPARAM>(widgetOfAny());
    const WPARAM wParam = message == WM_SETFOCUS ? other : static_cast<WPARAM>(below(100));
    SendMessage_X(widgetOfAny(), message, wParam, below(100));
}

void Walk::post()
{
    constexpr UINT messages[] = {WM_USER + 1, WM_SIZE, WM_LBUTTONDOWN, WM_KEYDOWN, WM_CLOSE, WM_DESTROY};
    PostMessage_X(widgetOfAny(), messages[below(std::size(messages))], static_cast<WPARAM>(below(100)), below(100));
}

std::unique_ptr<QEvent> Walk::event()
{
    const QPointF place(below(50), below(50));
    switch (below(6)) {
    case 0:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton,
                                             Qt::NoModifier);
    case 1:
        return std::make_unique<QMouseEvent>(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton,
                                             Qt::NoModifier);
    case 2:
        return std::make_unique<QMouseEvent>(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    case 3:
        return std::make_unique<QKeyEvent>(QEvent::KeyPress, Qt::Key_A + below(20), Qt::NoModifier, "a");
    case 4:
        return std::make_unique<QContextMenuEvent>(QContextMenuEvent::Mouse, place.toPoint());
    default:
        return std::make_unique<QEvent>(QEvent::Leave);
    }
}

void Walk::sendEvent()
{
    if (QWidget* const any = widgetOfAny()) {
        const auto made = event();
        QCoreApplication::sendEvent(any, made.get());
    }
}

void Walk::postEvent()
{
    if (QWidget* const any = widgetOfAny())
        QCoreApplication::postEvent(any, event().release());
}

void Walk::timer()
{
    const UINT_PTR id = static_cast<UINT_PTR>(1 + below(8));
    if (below(3))
        SetTimer_X(widgetOfAny(), id, static_cast<UINT>(below(3)), below(2) ? onTimer : nullptr);
    else
        KillTimer_X(widgetOfAny(), id);
}

void Walk::hook()
{
    if (below(2))
        SetWindowsHookEx_X(WH_KEYBOARD, onKey);
    else
        UnhookWindowsHookEx_X(reinterpret_cast<HHOOK>(onKey));
}

void Walk::messageFunction()
{
    if (below(2))
        AppendWinMsgFn(onMessage);
    else
        RemoveWinMsgFn(onMessage);
}

void Walk::temporary() { CWnd_X::FromHandle(widgetOfAny()); }

void Walk::clearTemporary() { ClearTempObjectPool(); }

void Walk::processEvents() { QCoreApplication::processEvents(QEventLoop::AllEvents, 5); }

void Walk::deleteWidget()
{
    const auto tight = tighten();
    delete widgetOfAny();
}

void Walk::deleteWidgetLater()
{
    if (QWidget* const any = widgetOfAny())
        any->deleteLater();
}

// --------------------------------------------------------------------------------------------------- how they are made

void Walk::step(Place place)
{
    constexpr Step steps[] = {&Walk::detach, &Walk::destroyWindow, &Walk::deleteWrapper, &Walk::send, &Walk::send,
                              &Walk::post, &Walk::sendEvent, &Walk::sendEvent, &Walk::postEvent, &Walk::timer,
                              &Walk::hook, &Walk::messageFunction, &Walk::deleteWidgetLater, &Walk::createWidget,
                              &Walk::createWindow, &Walk::createWindow, &Walk::subclass, &Walk::attach,
                              &Walk::temporary, &Walk::clearTemporary, &Walk::focus, &Walk::scroll, &Walk::changeState,
                              &Walk::changeState,
                              // Not where Qt goes on with the widget, which may be on its way out.
                              &Walk::setParent, &Walk::deleteWidget, &Walk::processEvents};
    constexpr int loose = 3; // at the end
    const int count = static_cast<int>(std::size(steps)) - (place == Place::TightHandler ? loose : 0);
    (this->*steps[below(count)])();
}

void Walk::disturb(Place place)
{
    if (m_depth > 2 || below(4))
        return;
    const Place outer = std::exchange(m_place, m_place == Place::TightHandler ? m_place : place);
    ++m_depth;
    step(m_place);
    --m_depth;
    m_place = outer;
}

// Ends with nothing but what a host may leave to the next application: hooks, message functions, temporary objects.
void Walk::tidy()
{
    m_depth = 1000; // no more steps
    for (UINT_PTR id = 1; id <= 8; ++id)
        KillTimer_X(nullptr, id);
    for (const QPointer<Window>& left : qAsConst(m_windows))
        delete left;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const QList<QPointer<QWidget>> living(widgets.begin(), widgets.end());
    for (const QPointer<QWidget>& left : living)
        delete left;
    m_windows.clear();
    m_widgets.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_depth = 0;
}

void Walk::live(int steps)
{
    current = this;
    for (int made = 0; made < steps; ++made) {
        step(Place::Outside);
        if (made % 8 == 0)
            processEvents();
    }
    tidy();
}

} // namespace

class tst_RandomWalk : public QObject
{
    Q_OBJECT

private slots:
    void walk();
};

void tst_RandomWalk::walk()
{
    const int seconds = qEnvironmentVariableIsSet("WALK_SECONDS") ? qEnvironmentVariableIntValue("WALK_SECONDS") : 5;
    const int seed = qEnvironmentVariableIsSet("WALK_SEED") ? qEnvironmentVariableIntValue("WALK_SEED") : 1;
    const auto previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const auto restore = qScopeGuard([previous] { qInstallMessageHandler(previous); });
    QElapsedTimer time;
    time.start();
    Walk walk(static_cast<unsigned>(seed));
    while (time.elapsed() < seconds * 1000) {
        int argc = 1;
        char name[] = "walk";
        char* argv[] = {name, nullptr};
        QApplication application(argc, argv); // each time another one
        QApplication::setQuitOnLastWindowClosed(false);
        walk.live(400);
    }
}

XE_APPLESS_TEST(tst_RandomWalk)
#include "tst_randomwalk.moc"
