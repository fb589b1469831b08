#include "walk.h"

#include "walkcontrols.h"

#include <XeMFCEmu.h>

#include <QtWidgets>

Q_WIDGETS_EXPORT QWidgetData* qt_qwidget_data(QWidget* widget); // a friend of QWidget

Walk* Walk::current = nullptr;

namespace {

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

// Whether Qt destroys the widget, or one that it is in.
bool isGoing(QWidget* widget)
{
    while (widget && !qt_qwidget_data(widget)->in_destructor)
        widget = widget->parentWidget();
    return widget;
}

} // namespace

// ----------------------------------------------------------------------------------------------------------- the steps

CWnd_X* Walk::window()
{
    m_windows.removeAll(nullptr);
    return m_windows.isEmpty() ? nullptr : m_windows.at(below(m_windows.size()));
}

QWidget* Walk::widget()
{
    m_widgets.removeAll(nullptr);
    return m_widgets.isEmpty() ? nullptr : m_widgets.at(below(m_widgets.size()));
}

// What may get a child or a wrapper.
QWidget* Walk::parentOrNone()
{
    QWidget* const parent = below(2) ? widgetOfAny() : nullptr;
    return isGoing(parent) ? nullptr : parent;
}

HWND Walk::widgetOfAny()
{
    CWnd_X* const any = below(2) ? window() : nullptr;
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
    CWnd_X* const made = newWalkingWindow();
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
        m_widgets += newTavoView(parent);
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

void Walk::createControl()
{
    if (m_windows.size() > 20)
        return;
    CWnd_X* const made = newControl(below(controlKinds));
    m_windows += made;
    QWidget* const parent = parentOrNone();
    const auto tight = tighten();
    auto* const splitter = dynamic_cast<CSplitterWnd_X*>(made);
    CWnd_X* const permanent = CWnd_X::FromHandlePermanent(parent);
    if (splitter && permanent)
        splitter->CreateStatic(permanent, 1, 3);
    else
        made->Create(parent);
}

void Walk::changeItemsOfAny()
{
    const auto tight = tighten();
    if (CWnd_X* const any = window())
        changeItems(*any, below(4) == 0);
}

// A widget has one wrapper.
void Walk::subclass()
{
    QWidget* const target = widget();
    if (CWnd_X::FromHandlePermanent(target) || isGoing(target))
        return;
    CWnd_X* const made = newWalkingWindow();
    m_windows += made;
    made->SubclassWindow(target);
}

void Walk::attach()
{
    QWidget* const target = widget();
    CWnd_X* const any = window();
    if (any && !CWnd_X::FromHandlePermanent(target) && !isGoing(target))
        any->Attach(target, target ? target->parent() : nullptr, true);
}

void Walk::detach()
{
    if (CWnd_X* const any = window())
        any->Detach();
}

void Walk::destroyWindow()
{
    const auto tight = tighten();
    if (CWnd_X* const any = window())
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
    CWnd_X* const any = window();
    if (any && below(2))
        any->SetFocus();
    else if (any)
        any->SetActiveWindow();
}

void Walk::scroll()
{
    if (CWnd_X* const any = window())
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

// The menu may be that of several windows, and go before them.
void Walk::setMenu()
{
    if (!m_menu || below(6) == 0) {
        m_menu = std::make_unique<CMenu_X>();
        m_menu->CreateMenu();
    }
    CWnd_X* const any = window();
    if (any && !isGoing(any->GetSafeHwnd()))
        any->SetMenu(m_menu.get());
}

void Walk::changeMenu()
{
    if (!m_menu)
        return;
    if (below(3))
        m_menu->AppendMenu(below(3) ? MF_STRING : MF_SEPARATOR, static_cast<UINT_PTR>(below(10)), L"entry");
    else
        m_menu->DeleteMenu(static_cast<UINT_PTR>(below(10)), below(2) ? MF_BYPOSITION : MF_BYCOMMAND);
}

void Walk::putIntoSplitter()
{
    for (const QPointer<CWnd_X>& any : qAsConst(m_windows)) {
        auto* const splitter = qobject_cast<CSplitterWnd_X*>(any.data());
        if (!splitter || isGoing(splitter->GetSafeHwnd()))
            continue;
        const auto tight = tighten();
        CWnd_X* const view = window();
        if (!isGoing(view->GetSafeHwnd()))
            splitter->CreateView(0, below(3), view);
        return;
    }
}

// The host ends it, or what it stands on goes.
void Walk::runDialog()
{
    CWnd_X* const parent = window();
    if (m_inDialog || (parent && isGoing(parent->GetSafeHwnd())))
        return;
    CDialog_X dialog(0u, parent);
    QTimer end;
    QObject::connect(&end, &QTimer::timeout, &end, [&dialog] { dialog.EndDialog(IDOK); });
    end.start(3);
    m_inDialog = true;
    dialog.DoModal();
    m_inDialog = false;
}

// --------------------------------------------------------------------------------------------------- how they are made

void Walk::step(Place place)
{
    constexpr Step steps[] = {
        &Walk::detach, &Walk::destroyWindow, &Walk::deleteWrapper, &Walk::send, &Walk::send, &Walk::post,
        &Walk::sendEvent, &Walk::sendEvent, &Walk::postEvent, &Walk::timer, &Walk::hook, &Walk::messageFunction,
        &Walk::deleteWidgetLater, &Walk::createWidget, &Walk::createWindow, &Walk::createWindow, &Walk::subclass,
        &Walk::attach, &Walk::temporary, &Walk::clearTemporary, &Walk::focus, &Walk::scroll, &Walk::changeState,
        &Walk::changeState, &Walk::createControl, &Walk::createControl, &Walk::changeItemsOfAny,
        &Walk::changeItemsOfAny, &Walk::setMenu, &Walk::changeMenu,
        // Not where Qt goes on with the widget, which may be on its way out.
        &Walk::setParent, &Walk::deleteWidget, &Walk::processEvents, &Walk::putIntoSplitter, &Walk::runDialog};
    constexpr int loose = 5; // at the end
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
    for (const QPointer<CWnd_X>& left : qAsConst(m_windows))
        delete left;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const QList<QPointer<QWidget>> living(widgets.begin(), widgets.end());
    for (const QPointer<QWidget>& left : living)
        delete left;
    m_windows.clear();
    m_widgets.clear();
    m_menu.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_depth = 0;
}

void Walk::live(int steps)
{
    current = this;
    QTimer user; // closes the menus that come up
    QObject::connect(&user, &QTimer::timeout, &user, [] {
        if (QWidget* const popup = QApplication::activePopupWidget())
            popup->close();
    });
    user.start(1);
    for (int made = 0; made < steps; ++made) {
        step(Place::Outside);
        if (made % 8 == 0)
            processEvents();
    }
    tidy();
}
