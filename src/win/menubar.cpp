#include "win/menubar.h"

#include "win/columns.h"

#include <QMainWindow>
#include <QMenuBar>

namespace xe {

namespace {

bool isPlacedByQt(const QMenuBar& bar) { return qobject_cast<QMainWindow*>(bar.parentWidget()); }

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
    if (makesColumns(window) || qobject_cast<QMainWindow*>(&window))
        return nullptr;
    auto* const bar = new QMenuBar(&window);
    bar->hide();
    removeFilters(*bar);
    return bar;
}

QMenuBar* menuBarOf(QWidget* window, QMenuBar* made)
{
    auto* const mainWindow = qobject_cast<QMainWindow*>(window);
    if (!mainWindow)
        return made;
    const QWidget* const inPlace = mainWindow->menuWidget();
    return !inPlace || qobject_cast<const QMenuBar*>(inPlace) ? mainWindow->menuBar() : nullptr;
}

void placeMenuBar(QMenuBar& bar, int width) { bar.setGeometry(0, 0, width, bar.heightForWidth(width)); }

void showMenuBar(QMenuBar& bar)
{
    if (bar.isHidden() && !isPlacedByQt(bar))
        setFilters(bar);
    bar.show();
}

void hideMenuBar(QMenuBar& bar)
{
    bar.clear();
    bar.hide();
    if (!isPlacedByQt(bar))
        removeFilters(bar);
}

} // namespace xe
