#include "win/centering.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace xe {

namespace {

QPoint centredIn(const QRect& area, const QSize& size)
{
    return {(area.left() + area.right()) / 2 - (size.width() - 1) / 2,
            (area.top() + area.bottom()) / 2 - (size.height() - 1) / 2};
}

QRect screenAt(const QPoint& position)
{
    const QScreen* const screen = QGuiApplication::screenAt(position);
    return (screen ? screen : QGuiApplication::primaryScreen())->geometry();
}

} // namespace

void centerWidget(QWidget& widget, const QWidget* target)
{
    if (target)
        widget.move(centredIn(target->frameGeometry(), widget.size()));
    else
        widget.move(centredIn(screenAt(widget.pos()), widget.frameGeometry().size()));
}

} // namespace xe
