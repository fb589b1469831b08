#pragma once

#include <xehook.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

/// Moves the mouse over a widget, with these buttons held. The pointer itself stays where it is.
inline void moveMouse(QWidget* widget, QPoint point, Qt::MouseButtons held = Qt::NoButton,
                      Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent move(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton, held, modifiers);
    QCoreApplication::sendEvent(widget, &move);
}

/// Whether the timer runs that scrolls a grid while cells are selected.
inline bool hasTimer() { return g_appEventHandler.timers.count(513) != 0; }
