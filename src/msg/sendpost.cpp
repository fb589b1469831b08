#include "msg/messageevent.h"
#include "xeafxmsg.h"

#include <QCoreApplication>
#include <QWidget>

#include <utility>

XeWinMsgEvent::XeWinMsgEvent(UINT number, WPARAM firstParameter, LPARAM secondParameter)
    : QEvent(EventType),
      message(number),
      wParam(firstParameter),
      lParam(secondParameter)
{}

XeWinMsgEvent::~XeWinMsgEvent() = default;

XeMsgBoxEvent::XeMsgBoxEvent(CString_X message, CString_X title)
    : QEvent(EventType),
      text(std::move(message)),
      caption(std::move(title))
{}

XeMsgBoxEvent::~XeMsgBoxEvent() = default;

LRESULT SendMessage_X(QWidget* target, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!target)
        return 0;
    if (const std::unique_ptr<QEvent> event = xe::qtEventForMessage(target, message, wParam, lParam)) {
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
