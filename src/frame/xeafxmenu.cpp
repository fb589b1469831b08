#include "xeafxmenu.h"

#include "state/handlemapmaker.h"
#include "xeafxstat.h"

#include <QMenu>

IMPLEMENT_DYNAMIC_X(CMenu_X, CObject_X)

CMenu_X::CMenu_X(QWidget* parent)
{
    if (parent)
        CMenu_X::AttachDefault(parent);
}

bool CMenu_X::AttachDefault(QWidget* parent)
{
    auto* const menu = new QMenu(parent);
    menu->setStyleSheet(QStringLiteral(" \t\tQMenu::separator { \t\theight: 2px; \t\t} "));
    return Attach(menu, parent, false);
}

CHandleMap_X* afxMapHMENU_X(int create) { return xe::handleMapOf<CMenu_X>(gdiThreadState.m_pmapHMENU, create); }

void CMenu_X::DeleteTempMap() { xe::deleteTemp(gdiThreadState.m_pmapHMENU); }
