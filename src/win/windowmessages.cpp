// Sending and posting to a window.

#include "xeafxwin.h"

#include <QCoreApplication>

#include <algorithm>

LRESULT CWnd_X::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessage_X(GetSafeHwnd(), message, wParam, lParam);
}

LRESULT CWnd_X::PostMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    QWidget* widget = GetSafeHwnd();
    return widget ? PostMessage_X(widget, message, wParam, lParam) : 0;
}

bool CWnd_X::SendEvent(QEvent* event)
{
    QObject* imp = GetImpQObject();
    if (!imp || !event)
        return false;
    QCoreApplication::sendEvent(imp, event);
    return true;
}

bool CWnd_X::PostEvent(QEvent* event, int priority, bool unique)
{
    QObject* imp = GetImpQObject();
    if (!imp || !event)
        return false;
    if (unique) {
        const auto isOfType = [type = event->type()](const PendingEvent& pending) { return pending.type == type; };
        if (std::any_of(m_pendingEvents.cbegin(), m_pendingEvents.cend(), isOfType)) {
            delete event;
            return false;
        }
        m_pendingEvents.append({event, event->type()});
    }
    QCoreApplication::postEvent(imp, event, priority);
    return true;
}

void CWnd_X::forgetPending(QEvent* event)
{
    const auto isEvent = [event](const PendingEvent& pending) { return pending.event == event; };
    const auto found = std::find_if(m_pendingEvents.begin(), m_pendingEvents.end(), isEvent);
    if (found != m_pendingEvents.end())
        m_pendingEvents.erase(found);
}
