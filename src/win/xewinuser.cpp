#include "xewinuser.h"

#include "core/objectlinks.h"
#include "geometry/rectangle.h"
#include "text/widetext.h"
#include "xeafxwin.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QListWidget>
#include <QPointer>
#include <QScreen>
#include <QVariant>

namespace {

constexpr char lastPosition[] = "lastPos"; // of a top-level window, from its hiding to its showing

} // namespace

// --------------------------------------------------------------------------------------------------------------- state

BOOL IsWindow_X(HWND window) { return window != nullptr; }

BOOL IsWindowVisible_X(HWND window) { return window && !window->isHidden(); }

BOOL IsWindowEnabled_X(HWND window) { return window && window->isEnabled(); }

BOOL EnableWindow_X(HWND window, BOOL enable)
{
    if (!window)
        return FALSE;
    const bool before = window->isEnabled();
    window->setEnabled(enable);
    return before;
}

BOOL IsIconic_X(HWND window) { return window && window->isMinimized(); }

BOOL IsZoomed_X(HWND window) { return window && window->isMaximized(); }

BOOL IsChild_X(HWND parent, HWND child) { return parent && child && parent->isAncestorOf(child); }

BOOL CloseWindow_X(HWND window)
{
    if (!window)
        return FALSE;
    if (window->isMinimized())
        window->showNormal();
    else
        window->showMinimized();
    return TRUE;
}

BOOL OpenIcon_X(HWND window)
{
    if (!window)
        return FALSE;
    window->showNormal();
    window->setFocus(Qt::OtherFocusReason);
    return TRUE;
}

QIcon CopyIcon_X(const QIcon& icon) { return icon; }

namespace {

void hideWindow(QWidget& window)
{
    const QPoint position = window.pos();
    const QPointer<QWidget> living(&window);
    window.setVisible(false);
    if (living && window.isWindow())
        window.setProperty(lastPosition, position);
}

void showWindow(QWidget& window)
{
    const QPointer<QWidget> living(&window);
    window.setVisible(true);
    if (!living || !window.isWindow())
        return;
    const QVariant position = window.property(lastPosition);
    if (position.isValid()) {
        window.move(position.toPoint());
        window.setProperty(lastPosition, QVariant());
    }
    if (living && !window.isActiveWindow())
        QCoreApplication::processEvents();
}

} // namespace

BOOL ShowWindow_X(HWND window, int command)
{
    if (!window)
        return FALSE;
    if (command == SW_HIDE)
        hideWindow(*window);
    else if (command == SW_SHOW || command == SW_SHOWNORMAL)
        showWindow(*window);
    return TRUE;
}

BOOL UpdateWindow_X(HWND window)
{
    if (!window)
        return FALSE;
    window->update();
    return TRUE;
}

int DestroyWindow_X(HWND window)
{
    if (!window)
        return 0;
    const QPointer<QWidget> living(window);
    window->hide();
    // Handlers may delete what is still to come, so everything is looked up anew.
    const auto send = [&living](UINT message) {
        if (CWnd_X* wrapper = CWnd_X::FromHandlePermanent(living))
            wrapper->SendMessage(message);
    };
    send(WM_DESTROY);
    QVector<QPointer<QWidget>> children;
    if (living) {
        for (QObject* child : living->children())
            if (auto* childWidget = qobject_cast<QWidget*>(child))
                children.append(childWidget);
    }
    for (const QPointer<QWidget>& child : qAsConst(children))
        DestroyWindow_X(child);
    send(WM_NCDESTROY);
    return 1;
}

// ------------------------------------------------------------------------------------------------------------ geometry

BOOL GetWindowRect_X(HWND window, tagRECT* rect)
{
    if (!window || !rect)
        return FALSE;
    QRect frame = window->frameGeometry();
    if (!window->isWindow() && window->parentWidget())
        frame.moveTopLeft(window->parentWidget()->mapToGlobal(window->pos()));
    *rect = xe::toRect(frame);
    return TRUE;
}

BOOL GetClientRect_X(HWND window, tagRECT* rect)
{
    if (!window || !rect)
        return FALSE;
    *rect = {0, 0, window->width(), window->height()};
    return TRUE;
}

BOOL ClientToScreen_X(HWND window, tagPOINT* point)
{
    if (!window || !point)
        return FALSE;
    *point = xe::toWinPoint(window->mapToGlobal(xe::toQPoint(*point)));
    return TRUE;
}

BOOL ScreenToClient_X(HWND window, tagPOINT* point)
{
    if (!window || !point)
        return FALSE;
    *point = xe::toWinPoint(window->mapFromGlobal(xe::toQPoint(*point)));
    return TRUE;
}

int MapWindowPoints_X(HWND from, HWND to, tagPOINT* points, UINT count)
{
    if (!from || !to || (!points && count > 0))
        return 0;
    for (UINT i = 0; i < count; ++i) {
        ClientToScreen_X(from, &points[i]);
        ScreenToClient_X(to, &points[i]);
    }
    return 1;
}

BOOL MapDialogRect_X(HWND window, tagRECT* rect)
{
    if (!window || !rect)
        return FALSE;
    *rect = xe::toRect(window->geometry());
    return TRUE;
}

BOOL MoveWindow_X(HWND window, int x, int y, int width, int height, BOOL)
{
    if (!window)
        return FALSE;
    window->move(x, y);
    window->resize(width, height);
    return TRUE;
}

BOOL SetWindowPos_X(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    if (!window)
        return FALSE;
    if (!(flags & SWP_NOSIZE))
        window->resize(width, height);
    if (!(flags & SWP_NOMOVE))
        window->move(x, y);
    if (flags & SWP_NOACTIVATE && window->hasFocus())
        window->clearFocus();
    if (flags & SWP_SHOWWINDOW)
        window->setVisible(true);
    if (flags & SWP_HIDEWINDOW)
        window->setVisible(false);
    if (after && !(flags & (SWP_NOOWNERZORDER | SWP_NOZORDER)))
        window->stackUnder(after);
    return TRUE;
}

// -------------------------------------------------------------------------------------------------------- relationship

namespace {

// Null if there is none, and when it is no longer a living widget: nothing keeps a parent alive that is not the Qt
// parent.
QWidget* logicalParent(const QWidget& window)
{
    auto* const parent = static_cast<QWidget*>(xe::linkedParent(window));
    return !parent || parent == window.parentWidget() || QApplication::allWidgets().contains(parent) ? parent : nullptr;
}

} // namespace

HWND GetParent_X(HWND window)
{
    if (!window)
        return nullptr;
    QWidget* const logical = logicalParent(*window);
    return logical ? logical : window->parentWidget();
}

namespace {

// Whether a widget is the other itself or below it at any depth, in windows of its own too.
bool isSameOrBelow(const QWidget* widget, const QWidget& other)
{
    while (widget && widget != &other)
        widget = widget->parentWidget();
    return widget;
}

} // namespace

HWND SetParent_X(HWND window, HWND parent)
{
    if (!window || isSameOrBelow(parent, *window))
        return nullptr;
    QWidget* const before = GetParent_X(window);
    xe::setLinkedParent(*window, parent);
    window->setParent(parent);
    return before;
}

HWND GetTopWindow_X(HWND window)
{
    QWidget* top = window ? window->parentWidget() : nullptr;
    while (top && top->parentWidget())
        top = top->parentWidget();
    return top;
}

HWND GetDesktopWindow_X() { return QApplication::desktop(); }

HWND GetActiveWindow_X() { return QApplication::activeWindow(); }

HWND SetActiveWindow_X(HWND window)
{
    QWidget* const before = QApplication::activeWindow();
    if (window)
        window->activateWindow();
    return before;
}

HWND GetFocus_X() { return QApplication::focusWidget(); }

HWND SetFocus_X(HWND window)
{
    QWidget* const before = QApplication::focusWidget();
    if (window) {
        window->activateWindow();
        window->setFocus(Qt::OtherFocusReason);
    }
    return before;
}

HWND GetCapture_X() { return QWidget::mouseGrabber(); }

HWND SetCapture_X(HWND window)
{
    QWidget* const before = QWidget::mouseGrabber();
    ReleaseCapture_X();
    if (window)
        window->grabMouse();
    return before;
}

BOOL ReleaseCapture_X()
{
    QWidget* const grabber = QWidget::mouseGrabber();
    if (!grabber)
        return FALSE;
    grabber->releaseMouse();
    return TRUE;
}

HWND WindowFromPoint_X(tagPOINT point) { return QApplication::widgetAt(xe::toQPoint(point)); }

int GetClassName_X(HWND window, wchar_t* buffer, int size)
{
    return window ? xe::writeWide(QString::fromUtf8(window->metaObject()->className()), buffer, size) : 0;
}

DWORD GetListBoxInfo_X(HWND window)
{
    const auto* const list = qobject_cast<QListWidget*>(window);
    return list ? static_cast<DWORD>(list->count()) : 0;
}

UINT GetDpiForSystem_X()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<UINT>(screen->logicalDotsPerInch()) : 0;
}

UINT GetDpiForWindow_X(HWND window) { return window ? static_cast<UINT>(window->devicePixelRatio() / 96) : 0; }
