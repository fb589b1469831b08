#include "xeafxmsg.h"
#include "xehook.h"
#include "xehost.h"
#include "xewinuser.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>
#include <QTimer>
#include <QTimerEvent>
#include <QWidget>

#include <climits>

namespace {

void fire(QWidget* window, int id, TIMERPROC proc)
{
    if (proc) {
        proc(window, WM_TIMER, static_cast<UINT_PTR>(id), static_cast<DWORD>(QDateTime::currentSecsSinceEpoch()));
    } else if (window) {
        QTimerEvent event(id);
        QCoreApplication::sendEvent(window, &event);
    }
}

// The window's child. It goes as soon as the window says that it is gone, so that the id is free from then on, and its
// entry goes in the same moment.
QTimer* newTimer(QWidget* window, int id, TIMERPROC proc)
{
    auto* const timer = new QTimer(window);
    QObject::connect(timer, &QTimer::timeout, timer,
                     [window = QPointer<QWidget>(window), id, proc] { fire(window, id, proc); });
    if (window)
        QObject::connect(window, &QObject::destroyed, timer, [timer] { delete timer; });
    QObject::connect(timer, &QObject::destroyed, &g_appEventHandler, [timer, id] {
        const auto entry = g_appEventHandler.timers.find(id);
        if (entry != g_appEventHandler.timers.end() && entry->second == timer)
            g_appEventHandler.timers.erase(entry);
    });
    return timer;
}

// No child any more, but there until later: Qt shows, activates and paints the children of a window one by one from a
// copy of their list, and a handler in the midst of that may be what ends the timer.
void drop(QTimer& timer)
{
    timer.stop();
    timer.setParent(nullptr);
    timer.deleteLater();
}

} // namespace

UINT_PTR SetTimer_X(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC proc)
{
    const int interval = milliseconds == 0 ? 10 : static_cast<int>(qMin<UINT>(milliseconds, INT_MAX));
    const int key = static_cast<int>(id);
    const auto known = g_appEventHandler.timers.find(key);
    if (known != g_appEventHandler.timers.end() && known->second->isActive()) {
        if (known->second->interval() != interval)
            known->second->setInterval(interval);
        return id;
    }
    KillTimer_X(nullptr, id); // one that has stopped
    QTimer* const timer = newTimer(window ? window : TavoGetMainFrame(), key, proc);
    g_appEventHandler.timers[key] = timer;
    timer->start(interval);
    return id;
}

BOOL KillTimer_X(HWND, UINT_PTR id)
{
    const auto entry = g_appEventHandler.timers.find(static_cast<int>(id));
    if (entry == g_appEventHandler.timers.end())
        return FALSE;
    QTimer& timer = *entry->second;
    g_appEventHandler.timers.erase(entry);
    drop(timer);
    return TRUE;
}
