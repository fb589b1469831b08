#include "win/combolists.h"

#include <QAbstractItemView>
#include <QChildEvent>
#include <QComboBox>

#include <algorithm>

namespace xe {

namespace {

bool isPopup(const QObject& child)
{
    return child.isWidgetType() && static_cast<const QWidget&>(child).windowType() == Qt::Popup;
}

bool isView(const QObject& child) { return qobject_cast<const QAbstractItemView*>(&child); }

// Waits for the lists. A box makes a popup, puts a view into it, gives the view its mode, and then a delegate, the
// view's child: the popup is waited for at the box, the view at the popup, the delegate at the view.
class ListMaking : public QObject
{
public:
    bool eventFilter(QObject* parent, QEvent* event) override
    {
        if (event->type() != QEvent::ChildAdded)
            return false;
        QObject* const child = static_cast<QChildEvent*>(event)->child();
        if (auto* const view = qobject_cast<QAbstractItemView*>(parent))
            finish(*view);
        else if (qobject_cast<QComboBox*>(parent) ? isPopup(*child) : isView(*child))
            child->installEventFilter(this);
        return false;
    }

private:
    void finish(QAbstractItemView& view)
    {
        if (view.textElideMode() != Qt::ElideMiddle)
            return;
        view.setTextElideMode(Qt::ElideNone);
        QObject* const popup = view.parent();
        for (QObject* const step : {static_cast<QObject*>(&view), popup, popup->parent()})
            step->removeEventFilter(this);
    }
};

bool hasList(const QComboBox& box)
{
    const QObjectList& children = box.children();
    return std::any_of(children.begin(), children.end(), [](const QObject* child) { return isPopup(*child); });
}

} // namespace

void showWholeTextsBelow(const QWidget& window)
{
    static ListMaking listMaking;
    const auto boxes = window.findChildren<QComboBox*>();
    for (QComboBox* box : boxes) {
        if (hasList(*box))
            box->view()->setTextElideMode(Qt::ElideNone);
        else
            box->installEventFilter(&listMaking);
    }
}

} // namespace xe
