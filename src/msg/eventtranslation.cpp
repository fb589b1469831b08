#include "msg/eventtranslation.h"

#include <QContextMenuEvent>
#include <QDateTime>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QStyle>
#include <QTimerEvent>
#include <QWheelEvent>
#include <QWidget>

namespace xe {

namespace {

// Two 16-bit halves; the sign of a half is not extended beyond bit 31.
LPARAM packed(int x, int y) { return static_cast<quint32>(y) << 16 | (static_cast<quint32>(x) & 0xFFFF); }

LPARAM packed(QPointF position) { return packed(qRound(position.x()), qRound(position.y())); }

LPARAM address(const QObject& object) { return static_cast<LPARAM>(reinterpret_cast<quintptr>(&object)); }

UINT byButton(Qt::MouseButton button, UINT left, UINT right, UINT middle)
{
    switch (button) {
    case Qt::LeftButton:
        return left;
    case Qt::RightButton:
        return right;
    case Qt::MiddleButton:
        return middle;
    default:
        return XE_WM_NONE;
    }
}

UINT buttonMessage(const QMouseEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        return byButton(event.button(), WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN);
    case QEvent::MouseButtonRelease:
        return byButton(event.button(), WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP);
    default:
        return byButton(event.button(), WM_LBUTTONDBLCLK, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK);
    }
}

MessageParameters mouseParameters(UINT message, const QMouseEvent& event)
{
    const int flags = qt_kb_flag_2_flag(event.modifiers()) | qt_mouse_flag_2_flag(event.buttons());
    return {message, static_cast<WPARAM>(flags), packed(event.localPos())};
}

} // namespace

MessageParameters translateTimer(const QObject&, const QEvent& event, PointerPosition&)
{
    return {WM_TIMER, static_cast<WPARAM>(static_cast<const QTimerEvent&>(event).timerId())};
}

MessageParameters translateMouseMove(const QObject&, const QEvent& event, PointerPosition&)
{
    return mouseParameters(WM_MOUSEMOVE, static_cast<const QMouseEvent&>(event));
}

MessageParameters translateMouseButton(const QObject&, const QEvent& event, PointerPosition&)
{
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    return mouseParameters(buttonMessage(mouse), mouse);
}

MessageParameters translateKey(const QObject&, const QEvent& event, PointerPosition&)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    const bool release = key.type() == QEvent::KeyRelease;
    const bool alt = key.modifiers() & Qt::AltModifier;
    return {alt ? (release ? WM_SYSKEYUP : WM_SYSKEYDOWN) : (release ? WM_KEYUP : WM_KEYDOWN),
            static_cast<WPARAM>(static_cast<long>(qt_key_to_ansi_vk(key.key()))), // all ones for a key without a VK
            keyFlags(key.modifiers()) | (release ? 0x80000001 : 1)};
}

MessageParameters translateResize(const QObject&, const QEvent& event, PointerPosition&)
{
    const QSize size = static_cast<const QResizeEvent&>(event).size();
    return {WM_SIZE, 0, packed(size.width(), size.height())};
}

MessageParameters translateActivation(const QObject& target, const QEvent& event, PointerPosition&)
{
    return {WM_ACTIVATE, event.type() == QEvent::WindowActivate ? WA_ACTIVE : WA_INACTIVE, address(target)};
}

MessageParameters translateWheel(const QObject&, const QEvent& event, PointerPosition&)
{
    const auto& wheel = static_cast<const QWheelEvent&>(event);
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED // angleDelta() is not what an event of the older constructors has as its delta
        return {WM_MOUSEWHEEL, static_cast<quint32>(wheel.delta()) << 16, packed(wheel.position())};
    QT_WARNING_POP
}

MessageParameters translateContextMenu(const QObject& target, const QEvent& event, PointerPosition&)
{
    const auto& menu = static_cast<const QContextMenuEvent&>(event);
    return {WM_CONTEXTMENU, static_cast<WPARAM>(address(target)), packed(menu.x(), menu.y())};
}

MessageParameters translateHover(const QObject&, const QEvent& event, PointerPosition&)
{
    const auto& hover = static_cast<const QHoverEvent&>(event);
    return {hover.type() == QEvent::HoverEnter ? WM_MOUSEHOVER : WM_MOUSELEAVE,
            static_cast<WPARAM>(qt_kb_flag_2_flag(hover.modifiers())), packed(hover.posF())};
}

MessageParameters translateFrameRelease(const QObject& target, const QEvent& event, PointerPosition& pointer)
{
    if (static_cast<const QMouseEvent&>(event).button() != Qt::LeftButton || !target.isWidgetType())
        return {XE_WM_NONE};
    const QPoint cursor = pointer.get();
    return {WM_NCLBUTTONUP, static_cast<WPARAM>(frameHitCode(static_cast<const QWidget&>(target), cursor)),
            packed(cursor.x(), cursor.y())};
}

MessageParameters translateCarrier(const QObject&, const QEvent& event, PointerPosition&)
{
    const auto& carrier = static_cast<const XeWinMsgEvent&>(event);
    return {carrier.message, carrier.wParam, carrier.lParam};
}

LPARAM keyFlags(Qt::KeyboardModifiers modifiers) { return static_cast<LPARAM>(qt_kb_flag_2_flag(modifiers)) << 16; }

int frameHitCode(const QWidget& widget, QPoint cursor)
{
    const QPoint origin = widget.pos();
    const QMargins margins = widget.contentsMargins();
    const int titleBottom = widget.style()->pixelMetric(QStyle::PM_TitleBarHeight) + origin.y();
    const int bottom = widget.height() + origin.y() - margins.bottom();

    int code = HTCAPTION;
    if (margins.left() + origin.x() >= cursor.x() && cursor.y() > titleBottom && bottom > cursor.y())
        code = HTLEFT;
    if (bottom < cursor.y())
        code = HTBOTTOM;
    const bool rightOfContents = cursor.x() > widget.width() + origin.x() - margins.right();
    if (rightOfContents && cursor.y() < bottom && cursor.y() > titleBottom)
        code = HTRIGHT;
    return code;
}

void stampMessage(tagMSG& message, PointerPosition& pointer)
{
    const QPoint position = pointer.get();
    message.time = static_cast<DWORD>(QDateTime::currentSecsSinceEpoch());
    message.pt = {position.x(), position.y()};
}

} // namespace xe

int qt_kb_flag_2_flag(unsigned modifiers)
{
    return (modifiers & Qt::ShiftModifier ? MK_SHIFT : 0) | (modifiers & Qt::ControlModifier ? MK_CONTROL : 0)
           | (modifiers & Qt::AltModifier ? MK_ALT : 0);
}

int mfc_flag_2_qt_kb_flag(unsigned) { return 0; }

int qt_mouse_flag_2_flag(unsigned buttons)
{
    return (buttons & Qt::LeftButton ? MK_LBUTTON : 0) | (buttons & Qt::RightButton ? MK_RBUTTON : 0)
           | (buttons & Qt::MiddleButton ? MK_MBUTTON : 0);
}

int mfc_flag_2_qt_mouse_flag(unsigned) { return 0; }

int xeQEventToMsg(QObject* target, QEvent* event, tagMSG* out)
{
    const xe::EventRow* const row = target && event && out ? xe::eventRow(event->type()) : nullptr;
    if (!row)
        return 0;
    xe::PointerPosition pointer;
    *out = xe::translateEvent(*row, *target, *event, pointer);
    xe::stampMessage(*out, pointer);
    return 1;
}
