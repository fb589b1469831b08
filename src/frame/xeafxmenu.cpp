#include "xeafxmenu.h"

#include "core/nullobject.h"
#include "frame/menuindex.h"
#include "state/handlemapmaker.h"
#include "xeafxstat.h"

IMPLEMENT_DYNAMIC_X(CMenu_X, CObject_X)

CMenu_X::CMenu_X(QWidget* parent)
{
    if (parent)
        CMenu_X::AttachDefault(parent);
}

// The handle map takes the handle out of a temporary wrapper before it ends it, and the menu has to be let go all the
// same.
CMenu_X::~CMenu_X()
{
    if (!GetImpQObject() && GetOwner(m_menu) == this)
        SetImpQObject(m_menu);
}

bool CMenu_X::AttachDefault(QWidget* parent)
{
    auto* const menu = new QMenu(parent);
    menu->setStyleSheet(QStringLiteral(" \t\tQMenu::separator { \t\theight: 2px; \t\t} "));
    return Attach(menu, parent, false);
}

bool CMenu_X::OnAttach()
{
    m_menu = Imp<QMenu>();
    return true;
}

void CMenu_X::OnDetach()
{
    m_menu = nullptr;
    m_index.reset();
}

QMenu* CMenu_X::GetSafeHmenu() const
{
    const CMenu_X* const menu = xe::maybeNull(this);
    return menu ? menu->Imp<QMenu>() : nullptr;
}

// ------------------------------------------------------------------------------------------------------ the handle map

CHandleMap_X* afxMapHMENU_X(int create) { return xe::handleMapOf<CMenu_X>(gdiThreadState.m_pmapHMENU, create); }

void CMenu_X::DeleteTempMap() { xe::deleteTemp(gdiThreadState.m_pmapHMENU); }

CMenu_X* CMenu_X::FromHandle(QMenu* menu)
{
    if (!menu)
        return nullptr;
    if (auto* const owner = qobject_cast<CMenu_X*>(GetOwner(menu)))
        return owner;
    CHandleMap_X& map = *afxMapHMENU_X(TRUE);
    void* const handle = static_cast<QObject*>(menu);
    if (CObject_X* const permanent = map.LookupPermanent(handle))
        return static_cast<CMenu_X*>(permanent);
    auto* const wrapper = static_cast<CMenu_X*>(map.FromHandle(handle));
    wrapper->SetImpQObject(wrapper->m_menu); // the map writes the handle alone, which would count as owned
    wrapper->Attach(menu, menu->parent(), true);
    return wrapper;
}

// ----------------------------------------------------------------------------------------------------------- the whole

int CMenu_X::CreateMenu()
{
    AttachDefault(nullptr);
    return 1;
}

int CMenu_X::DestroyMenu()
{
    const QPointer<CMenu_X> living(this); // hiding is told to handlers
    if (!DestroyWindow_X(GetSafeHmenu()))
        return 0;
    if (living)
        Detach();
    return 1;
}

void CMenu_X::setTitle(const CString_X& title)
{
    if (QMenu* const menu = GetSafeHmenu())
        menu->setTitle(XeQString(title));
}

void CMenu_X::setIcon(const QIcon& icon)
{
    if (QMenu* const menu = GetSafeHmenu())
        menu->setIcon(icon);
}
