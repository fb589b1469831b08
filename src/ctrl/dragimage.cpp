#include "ctrl/dragimage.h"

#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QScreen>

QPixmap xe::pictureOnScreen(const QAbstractScrollArea& area, const QRect& rect)
{
    if (rect.isEmpty())
        return {};
    QWidget* const viewport = area.viewport();
    const QPoint place = viewport->mapToGlobal(rect.topLeft());
    QScreen* const screen = QGuiApplication::primaryScreen();
    const QPixmap picture =
        screen ? screen->grabWindow(0, place.x(), place.y(), rect.width(), rect.height()) : QPixmap();
    return picture.isNull() ? viewport->grab(rect) : picture;
}
