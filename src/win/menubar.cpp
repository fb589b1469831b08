#include "win/menubar.h"

#include "win/columns.h"

#include <QMenuBar>

namespace xe {

namespace {

// Qt has the bar filter its parent and every widget from there up to the window.
void removeFilters(QMenuBar& bar)
{
    QWidget* filtered = bar.parentWidget();
    while (filtered) {
        filtered->removeEventFilter(&bar);
        filtered = filtered->isWindow() ? nullptr : filtered->parentWidget();
    }
}

// A bar sets its filters when it gets a parent.
void setFilters(QMenuBar& bar)
{
    QWidget* const parent = bar.parentWidget();
    bar.setParent(nullptr);
    bar.setParent(parent);
}

} // namespace

QMenuBar* makeMenuBar(QWidget& window)
{
    if (makesColumns(window))
        return nullptr;
    auto* const bar = new QMenuBar(&window);
    bar->hide();
    removeFilters(*bar);
    return bar;
}

void showMenuBar(QMenuBar& bar)
{
    if (bar.isHidden())
        setFilters(bar);
    bar.show();
}

void hideMenuBar(QMenuBar& bar)
{
    bar.clear();
    bar.hide();
    removeFilters(bar);
}

} // namespace xe
