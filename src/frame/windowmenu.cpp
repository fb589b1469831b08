// The menu bar of a window, once it has a menu.

#include "win/menubar.h"
#include "xeafxmenu.h"
#include "xeafxwin.h"

#include <QMenuBar>

int CWnd_X::SetMenu(CMenu_X* menu)
{
    if (!hasMenuBar())
        return 0;
    if (!menu) {
        xe::hideMenuBar(*m_menuBar);
        return 1;
    }
    return CWnd_X::SetMenu(QList<CMenu_X*>{menu}); // an override of the other form may call this one
}

int CWnd_X::SetMenu(QList<CMenu_X*> menus)
{
    if (!hasMenuBar())
        return 0;
    for (const CMenu_X* menu : qAsConst(menus)) {
        if (QMenu* const imp = menu ? menu->Imp<QMenu>() : nullptr)
            m_menuBar->addMenu(imp);
    }
    xe::showMenuBar(*m_menuBar);
    return 1;
}
