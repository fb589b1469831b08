#include "msg/messageevent.h"

#include "xeafxmsg.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QWidget>

namespace {

std::unique_ptr<QEvent> mouseEvent(QEvent::Type type, QPoint position, Qt::MouseButton button)
{
    return std::make_unique<QMouseEvent>(type, position, button, button, Qt::NoModifier);
}

std::unique_ptr<QEvent> keyEvent(QEvent::Type type, int key, const QString& text)
{
    return std::make_unique<QKeyEvent>(type, key, Qt::NoModifier, text);
}

} // namespace

std::unique_ptr<QEvent> xe::qtEventForMessage(const QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    // Unsigned on purpose: negative coordinates do not survive.
    const QPoint position(static_cast<int>(lParam & 0xFFFF), static_cast<int>((lParam >> 16) & 0xFFFF));
    const int key = static_cast<int>(wParam);
    switch (message) {
    case WM_MOUSEMOVE:
        return mouseEvent(QEvent::MouseMove, position, Qt::NoButton);
    case WM_LBUTTONDOWN:
        return mouseEvent(QEvent::MouseButtonPress, position, Qt::LeftButton);
    case WM_LBUTTONUP:
        return mouseEvent(QEvent::MouseButtonRelease, position, Qt::LeftButton);
    case WM_LBUTTONDBLCLK:
        return mouseEvent(QEvent::MouseButtonDblClick, position, Qt::LeftButton);
    case WM_RBUTTONDOWN:
        return mouseEvent(QEvent::MouseButtonPress, position, Qt::RightButton);
    case WM_RBUTTONUP:
        return mouseEvent(QEvent::MouseButtonRelease, position, Qt::RightButton);
    case WM_RBUTTONDBLCLK:
        return mouseEvent(QEvent::MouseButtonDblClick, position, Qt::RightButton);
    case WM_MBUTTONDOWN:
        return mouseEvent(QEvent::MouseButtonPress, position, Qt::MiddleButton);
    case WM_MBUTTONUP:
        return mouseEvent(QEvent::MouseButtonRelease, position, Qt::MiddleButton);
    case WM_MBUTTONDBLCLK:
        return mouseEvent(QEvent::MouseButtonDblClick, position, Qt::MiddleButton);
    case WM_KEYDOWN: {
        const int qtKey = ansi_vk_to_qt_key(key);
        return qtKey == -1 ? nullptr : keyEvent(QEvent::KeyPress, qtKey, QString::number(qtKey));
    }
    case WM_KEYUP:
        return keyEvent(QEvent::KeyRelease, key, QString::number(wParam));
    case WM_CHAR:
    case WM_SYSKEYDOWN:
        return keyEvent(QEvent::KeyPress, key, QString(QChar(static_cast<ushort>(wParam))));
    case WM_SIZE:
        return std::make_unique<QResizeEvent>(QSize(position.x(), position.y()), target ? target->size() : QSize());
    default:
        return nullptr;
    }
}

QEvent* xeMsgToQEvent(const QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    std::unique_ptr<QEvent> event = xe::qtEventForMessage(target, message, wParam, lParam);
    return event ? event.release() : new XeWinMsgEvent(message, wParam, lParam);
}
