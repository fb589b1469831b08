#include "frame/docking.h"

#include "xeafxbar.h"

#include <QLayout>
#include <QMainWindow>

namespace {

// The side that the style names last counts.
QPoint placeInParent(const QWidget& bar, const QWidget& parent, DWORD style)
{
    if (style & CBRS_BOTTOM)
        return {0, parent.height() - bar.height()};
    if (style & CBRS_RIGHT)
        return {parent.width() - bar.width(), 0};
    return {0, 0};
}

} // namespace

xe::DockWidget::~DockWidget()
{
    if (const auto* const window = qobject_cast<QMainWindow*>(parentWidget()))
        window->layout()->removeWidget(this);
}

void xe::placeByStyle(QDockWidget* dockWidget, DWORD style, bool floating)
{
    const QPointer<QDockWidget> bar(dockWidget);
    if (bar)
        bar->setFloating(floating);
    const QWidget* const parent = bar ? bar->parentWidget() : nullptr;
    if (parent && style & (CBRS_LEFT | CBRS_TOP | CBRS_RIGHT | CBRS_BOTTOM))
        bar->move(placeInParent(*bar, *parent, style));
    if (bar && style & CBRS_FLOATING)
        bar->setFloating(true);
    if (bar && style & CBRS_SIZE_FIXED)
        bar->setFixedSize(bar->size());
    if (bar)
        bar->setAllowedAreas(Qt::AllDockWidgetAreas);
}
