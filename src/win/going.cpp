#include "win/going.h"

#include <QWidget>

Q_WIDGETS_EXPORT QWidgetData* qt_qwidget_data(QWidget* widget); // a friend of QWidget

namespace xe {

bool isGoing(const QWidget& widget)
{
    const QWidget* self = &widget;
    while (self && !qt_qwidget_data(const_cast<QWidget*>(self))->in_destructor)
        self = self->parentWidget();
    return self;
}

} // namespace xe
