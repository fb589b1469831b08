#include "xeprocess.h"

#include <QApplication>
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
