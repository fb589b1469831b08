#include "xehost.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
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
