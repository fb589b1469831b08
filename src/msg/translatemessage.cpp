// What follows from an event: characters, and the question for the cursor.

#include "msg/eventtranslation.h"
#include "xeafxmsg.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

int askForCursor(QObject& target, UINT message)
{
    if (!QWidget::mouseGrabber()) {
        auto* const question = new XeWinMsgEvent(WM_SETCURSOR, reinterpret_cast<WPARAM>(&target), message << 16);
        QCoreApplication::postEvent(&target, question);
    }
    return 1;
}

int postCharacters(QObject& target, const QKeyEvent& press)
{
    const QVector<uint> characters = press.text().toUcs4();
    const UINT message = press.modifiers() & Qt::AltModifier ? WM_SYSCHAR : WM_CHAR;
    const LPARAM lParam = xe::keyFlags(press.modifiers()) | 1;
    for (const uint character : characters)
        QCoreApplication::postEvent(&target, new XeWinMsgEvent(message, character, lParam));
    return characters.isEmpty() ? 0 : 1;
}

} // namespace

int xe::postFollowUp(FollowUp followUp, QObject& target, const QEvent& event, UINT message)
{
    switch (followUp) {
    case FollowUp::Cursor:
        return askForCursor(target, message);
    case FollowUp::Characters:
        return postCharacters(target, static_cast<const QKeyEvent&>(event));
    case FollowUp::Nothing:
        break;
    }
    return 0;
}

int TranslateMessage(QObject* target, const QEvent* event, const tagMSG* msg)
{
    const xe::EventRow* const row = target && event && msg ? xe::eventRow(event->type()) : nullptr;
    return row ? xe::postFollowUp(row->followUp, *target, *event, msg->message) : 0;
}
