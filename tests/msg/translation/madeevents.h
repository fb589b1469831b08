#pragma once

#include <xeafxwin.h>

#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSharedPointer>
#include <QWheelEvent>

// Events that a test makes, and the messages that they become.

using EventPointer = QSharedPointer<QEvent>;
Q_DECLARE_METATYPE(EventPointer)

inline constexpr auto none = Qt::NoModifier;
inline constexpr auto controlAltShift = Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier;

inline EventPointer plain(int type) { return EventPointer::create(static_cast<QEvent::Type>(type)); }

inline EventPointer mouse(int type, QPointF position, Qt::MouseButton button, Qt::MouseButtons buttons,
                          Qt::KeyboardModifiers modifiers)
{
    return EventPointer(new QMouseEvent(static_cast<QEvent::Type>(type), position, button, buttons, modifiers));
}

inline EventPointer key(QEvent::Type type, int code, Qt::KeyboardModifiers modifiers, const QString& text = QString())
{
    return EventPointer(new QKeyEvent(type, code, modifiers, text));
}

inline EventPointer hover(QEvent::Type type, QPointF position, Qt::KeyboardModifiers modifiers)
{
    return EventPointer(new QHoverEvent(type, position, QPointF(-1, -1), modifiers));
}

/// An event as old code makes it, whose delta and angle are independent of each other.
inline EventPointer oldWheel(int delta, QPoint angle)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return EventPointer(new QWheelEvent(QPointF(10, 20), QPointF(500, 600), QPoint(), angle, delta, Qt::Vertical,
                                        Qt::LeftButton, controlAltShift, Qt::NoScrollPhase));
    QT_WARNING_POP
}

inline EventPointer wheel(QPointF position, int delta)
{
    return EventPointer(new QWheelEvent(position, QPointF(500, 600), QPoint(), QPoint(0, delta), Qt::NoButton, none,
                                        Qt::NoScrollPhase, false));
}

/// A number as "self" where it is the address of the target.
inline QString parameter(quint64 value, const QObject* target)
{
    return target && value == quint64(quintptr(target)) ? QStringLiteral("self") : QString::number(value, 16);
}

/// Such as "0201 wParam 5 lParam 14000a".
inline QString describe(const tagMSG& message, const QObject* target)
{
    return QStringLiteral("%1 wParam %2 lParam %3")
        .arg(message.message, 4, 16, QLatin1Char('0'))
        .arg(parameter(message.wParam, target), parameter(quint64(message.lParam), target));
}

inline QString translated(QObject* target, QEvent* event)
{
    tagMSG message{};
    return xeQEventToMsg(target, event, &message) ? describe(message, target) : QStringLiteral("nothing");
}
