#include "msg/hostcursor.h"

#include "xehost.h"

#include <QVariant>
#include <QWidget>

xe::SetHostCursor xe::hostCursorFunction()
{
    const QWidget* const frame = TavoGetMainFrame();
    return frame ? reinterpret_cast<SetHostCursor>(frame->property("TavoSetCursor").toLongLong()) : nullptr;
}

void TavoSetCurosr(QWidget* window, int cursor)
{
    if (const xe::SetHostCursor setCursor = xe::hostCursorFunction())
        setCursor(window, cursor);
}
