// What follows from an event: characters, and the question for the cursor.

#include "msg/eventtranslation.h"
#include "xeafxmsg.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

int TranslateMessage(QObject* target, const QEvent* event, const tagMSG* msg)
{
    if (!target || !event || !msg)
        return 0;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        if (!QWidget::mouseGrabber()) {
            QCoreApplication::postEvent(
                target, new XeWinMsgEvent(WM_SETCURSOR, reinterpret_cast<WPARAM>(target), msg->message << 16));
        }
        return 1;
    case QEvent::KeyPress: {
        const auto* press = static_cast<const QKeyEvent*>(event);
        const QVector<uint> characters = press->text().toUcs4();
        const UINT message = press->modifiers() & Qt::AltModifier ? WM_SYSCHAR : WM_CHAR;
        const LPARAM lParam = xe::keyFlags(press->modifiers()) | 1;
        for (const uint character : characters)
            QCoreApplication::postEvent(target, new XeWinMsgEvent(message, character, lParam));
        return characters.isEmpty() ? 0 : 1;
    }
    default:
        return 0;
    }
}
