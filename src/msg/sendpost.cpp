#include "msg/eventtranslation.h"
#include "msg/messageevent.h"
#include "xeafxwin.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

XeWinMsgEvent::XeWinMsgEvent(UINT number, WPARAM firstParameter, LPARAM secondParameter)
    : QEvent(EventType),
      message(number),
      wParam(firstParameter),
      lParam(secondParameter)
{}

XeWinMsgEvent::~XeWinMsgEvent() = default;

LRESULT SendMessage_X(QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!target)
        return 0;
    if (const std::unique_ptr<QEvent> event = qtEventForMessage(target, message, wParam, lParam)) {
        QCoreApplication::sendEvent(target, event.get());
        return 0;
    }
    XeWinMsgEvent event(message, wParam, lParam);
    return QCoreApplication::sendEvent(target, &event) ? event.result : 0;
}

LRESULT PostMessage_X(QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (target)
        QCoreApplication::postEvent(target, xeMsgToQEvent(target, message, wParam, lParam));
    return 1;
}

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

int TranslateMessage(QObject* target, const QEvent* event, const tagMSG* msg)
{
    if (!target || !event || !msg)
        return 0;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        if (!CWnd_X::GetCapture()) {
            QCoreApplication::postEvent(
                target, new XeWinMsgEvent(WM_SETCURSOR, reinterpret_cast<WPARAM>(target), msg->message << 16));
        }
        return 1;
    case QEvent::KeyPress: {
        const auto* press = static_cast<const QKeyEvent*>(event);
        const QVector<uint> characters = press->text().toUcs4();
        const UINT message = press->modifiers() & Qt::AltModifier ? WM_SYSCHAR : WM_CHAR;
        const LPARAM lParam = keyFlags(press->modifiers()) | 1;
        for (const uint character : characters)
            QCoreApplication::postEvent(target, new XeWinMsgEvent(message, character, lParam));
        return characters.isEmpty() ? 0 : 1;
    }
    default:
        return 0;
    }
}
