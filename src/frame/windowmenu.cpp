// The menu bar of a window, once it has a menu.

#include "win/menubar.h"
#include "xeafxmenu.h"
#include "xeafxwin.h"

#include <QMenuBar>

int CWnd_X::SetMenu(CMenu_X* menu)
{
    if (menu)
        return CWnd_X::SetMenu(QList<CMenu_X*>{menu}); // an override of the other form may call this one
    QMenuBar* const bar = menuBar();
    if (!bar)
        return 0;
    xe::hideMenuBar(*bar);
    return 1;
}

int CWnd_X::SetMenu(QList<CMenu_X*> menus)
{
    QMenuBar* const bar = menuBar();
    if (!bar)
        return 0;
    for (const CMenu_X* menu : qAsConst(menus)) {
        if (QMenu* const imp = menu ? menu->GetSafeHmenu() : nullptr)
            bar->addMenu(imp);
    }
    xe::showMenuBar(*bar);
    RecalcLayout();
    return 1;
}
