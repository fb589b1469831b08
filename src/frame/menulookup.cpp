// Items of a menu that are asked for.

#include "frame/menuindex.h"
#include "xeafxmenu.h"

#include <algorithm>

namespace {

// An index costs about three walks, and a menu that is being built or shown once is asked little.
constexpr int walksBeforeIndex = 4;

constexpr UINT positionInGetMenuString = 4;

} // namespace

QAction* CMenu_X::itemById(unsigned long long id) const
{
    QMenu* const menu = GetSafeHmenu();
    if (m_index && !m_index->isCurrent(menu)) {
        m_index.reset();
        m_walks = 0;
    }
    if (!m_index && menu && ++m_walks > walksBeforeIndex)
        m_index = std::make_unique<xe::MenuIndex>(*menu);
    return m_index ? m_index->find(id) : xe::findAction(id, menu);
}

QAction* CMenu_X::itemAt(UINT_PTR position) const
{
    const QMenu* const menu = GetSafeHmenu();
    const QList<QAction*> actions = menu ? menu->actions() : QList<QAction*>();
    return position < static_cast<UINT_PTR>(actions.size()) ? actions.at(static_cast<int>(position)) : nullptr;
}

QAction* CMenu_X::item(UINT_PTR item, bool byPosition) const { return byPosition ? itemAt(item) : itemById(item); }

CMenu_X::Place CMenu_X::placeOf(UINT_PTR position, UINT flags) const
{
    QMenu* const menu = GetSafeHmenu();
    QAction* const found = item(position, flags & MF_BYPOSITION);
    if (!found || flags & MF_BYPOSITION)
        return {menu, found};
    const QVector<QMenu*> menus = xe::menusFrom(*menu);
    for (QMenu* holder : menus) {
        if (holder->actions().contains(found) && found != menu->menuAction())
            return {holder, found};
    }
    return {menu, nullptr};
}

CMenu_X::Place CMenu_X::placeBehind(UINT_PTR position) const
{
    return {GetSafeHmenu(), itemAt(position) ? itemAt(position + 1) : nullptr};
}

QAction* CMenu_X::findAction(unsigned long long id, QMenu* menu)
{
    const auto* const wrapper = qobject_cast<CMenu_X*>(GetOwner(menu));
    return wrapper && wrapper->GetSafeHmenu() == menu ? wrapper->itemById(id) : xe::findAction(id, menu);
}

bool CMenu_X::checkExist(const QMenu* menu, const QMenu* sub)
{
    const QList<QAction*> actions = menu && sub ? menu->actions() : QList<QAction*>();
    return std::any_of(actions.begin(), actions.end(), [sub](const QAction* action) { return action->menu() == sub; });
}

UINT CMenu_X::GetMenuState(UINT_PTR position, UINT flags) const
{
    const QAction* const action = item(position, flags & MF_BYPOSITION);
    if (!action)
        return 0;
    return (action->isEnabled() ? 0 : MF_GRAYED) | (action->isChecked() ? MF_CHECKED : 0)
           | (action->isSeparator() ? MF_SEPARATOR : 0);
}

int CMenu_X::GetMenuString(UINT_PTR position, CString_X& text, UINT flags) const
{
    const QAction* const action = item(position, flags & positionInGetMenuString);
    text = action ? action->text() : QString();
    return text.GetLength();
}

int CMenu_X::GetMenuItemCount() const
{
    const QMenu* const menu = GetSafeHmenu();
    return menu ? menu->actions().size() : 0;
}

QAction* CMenu_X::GetMenuItemAction(int index) const
{
    return index < 0 ? nullptr : itemAt(static_cast<UINT_PTR>(index));
}

CMenu_X* CMenu_X::GetSubMenu(int index) const
{
    const QAction* const action = GetMenuItemAction(index);
    return action ? FromHandle(action->menu()) : nullptr;
}
