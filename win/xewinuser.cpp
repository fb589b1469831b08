#include "xewinuser.h"

#include "xeafxwin.h"

#include <QCursor>
#include <QPointer>

int GetCursorPos_X(tagPOINT* point)
{
    if (!point)
        return 0;
    const QPoint position = QCursor::pos();
    *point = {position.x(), position.y()};
    return 1;
}

int DestroyWindow_X(QWidget* widget)
{
    if (!widget)
        return 0;
    const QPointer<QWidget> living(widget);
    widget->hide();
    // Handlers may delete what is still to come, so everything is looked up anew.
    const auto send = [&living](UINT message) {
        if (CWnd_X* window = CWnd_X::FromHandlePermanent(living))
            window->SendMessage(message);
    };
    send(WM_DESTROY);
    QVector<QPointer<QWidget>> children;
    if (living) {
        for (QObject* child : living->children())
            if (auto* childWidget = qobject_cast<QWidget*>(child))
                children.append(childWidget);
    }
    for (const QPointer<QWidget>& child : qAsConst(children))
        DestroyWindow_X(child);
    send(WM_NCDESTROY);
    return 1;
}
