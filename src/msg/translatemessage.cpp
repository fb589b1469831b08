// What follows from an event: characters, and the question for the cursor.

#include "msg/eventtranslation.h"
#include "xeafxmsg.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

int postCursorQuestion(QObject& target, UINT message)
{
    auto* const question = new XeWinMsgEvent(WM_SETCURSOR, reinterpret_cast<WPARAM>(&target), message << 16);
    QCoreApplication::postEvent(&target, question);
    return 1;
}

} // namespace

int xe::askForCursor(QObject& target, const QEvent&, UINT message)
{
    return QWidget::mouseGrabber() ? 1 : postCursorQuestion(target, message);
}

int xe::postCharacters(QObject& target, const QEvent& event, UINT)
{
    const auto& press = static_cast<const QKeyEvent&>(event);
    const QVector<uint> characters = press.text().toUcs4();
    const UINT message = press.modifiers() & Qt::AltModifier ? WM_SYSCHAR : WM_CHAR;
    const LPARAM lParam = xe::keyFlags(press.modifiers()) | 1;
    for (const uint character : characters)
        QCoreApplication::postEvent(&target, new XeWinMsgEvent(message, character, lParam));
    return characters.isEmpty() ? 0 : 1;
}

int TranslateMessage(QObject* target, const QEvent* event, const tagMSG* msg)
{
    const xe::EventRow* const row = target && event && msg ? xe::eventRow(event->type()) : nullptr;
    return row && row->followUp ? row->followUp(*target, *event, msg->message) : 0;
}
