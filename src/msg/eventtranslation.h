#pragma once

#include "xeafxmsg.h"

#include <QCursor>
#include <QPoint>

#include <optional>

class QWidget;

namespace xe {

/// Where the pointer is, asked for once at most: on an X server each question is a round trip.
class PointerPosition
{
public:
    QPoint get()
    {
        if (!m_position)
            m_position = QCursor::pos();
        return *m_position;
    }

private:
    std::optional<QPoint> m_position;
};

/// True for the event types that have a message. Every event of every wrapped widget passes here.
constexpr bool hasMessage(QEvent::Type type)
{
    switch (static_cast<int>(type)) {
    case QEvent::Timer:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Leave:
    case QEvent::Paint:
    case QEvent::Resize:
    case QEvent::Close:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::ShowToParent:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::NonClientAreaMouseButtonRelease:
    case XeWinMsgEvent::EventType:
        return true;
    default:
        return false;
    }
}

/// The message of an event whose type has one, without time and pointer position.
tagMSG translateEvent(QObject* target, const QEvent* event, PointerPosition& pointer);

/// The modifiers as key messages carry them: MK_ flags in bits 16 to 21, where Windows has the scan code.
LPARAM keyFlags(Qt::KeyboardModifiers modifiers);

/// Fills in what only those who see the whole record can look at: time and pointer position.
void stampMessage(tagMSG& message, PointerPosition& pointer);

/// The hit code of a press on a window's frame, with the pointer at `cursor` on the screen.
int frameHitCode(const QWidget& widget, QPoint cursor);

} // namespace xe
