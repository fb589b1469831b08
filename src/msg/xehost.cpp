#include "xeprocess.h"

#include "sys/hostcursor.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVariant>
#include <QWidget>

QWidget* TavoGetMainFrame()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->objectName() == QLatin1String("CTavoMainFrame"))
            return window;
    }
    return nullptr;
}

QWidget* TavoGetViewWindow()
{
    const QWidget* const frame = TavoGetMainFrame();
    const auto* const area = frame ? frame->findChild<QMdiArea*>() : nullptr;
    return area ? area->activeSubWindow() : nullptr;
}

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
