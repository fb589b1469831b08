#pragma once

#include <xeafxwin.h>

#include <QCloseEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <functional>

// Events that a test gives to the filter of a window.

using MakeEvent = std::function<QEvent*()>;

Q_DECLARE_METATYPE(MakeEvent)

inline QEvent* pressEvent()
{
    return new QMouseEvent(QEvent::MouseButtonPress, {3, 4}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
}

inline QEvent* wheelEvent()
{
    return new QWheelEvent({5, 6}, {5, 6}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
}

inline QEvent* closeEvent() { return new QCloseEvent; }

inline QEvent* messageEvent() { return new XeWinMsgEvent(WM_USER + 1, 2, 3); }

/// What the filter says to an event, and whether its accept flag is set afterwards.
inline QString filterText(CWnd_X& window, QEvent& event)
{
    const bool stopped = window.eventFilter(window.GetSafeHwnd(), &event);
    return (stopped ? QStringLiteral("stopped, ") : QStringLiteral("goes on, "))
           + (event.isAccepted() ? QStringLiteral("accepted") : QStringLiteral("ignored"));
}

inline void clearFlag(CWnd_X& window) { window.SetCurrentEventAccepted(false); }
