#include "frame/menuindex.h"

#include <QActionEvent>
#include <QDynamicPropertyChangeEvent>
#include <QVariant>

#include <algorithm>

namespace xe {

namespace {

constexpr char identifierProperty[] = "MenuItemIdx";

// Calls `look` with each action that an identifier may stand for, in the order in which they count, until it gives
// true; gives that action. A menu is entered once, be it in itself or in several menus.
template <class Look>
QAction* walk(QMenu& menu, QVector<QMenu*>& entered, const Look& look)
{
    if (entered.contains(&menu))
        return nullptr;
    entered.append(&menu);
    if (look(*menu.menuAction()))
        return menu.menuAction();
    const QList<QAction*> actions = menu.actions();
    for (QAction* action : actions) {
        if (action->isSeparator())
            continue;
        if (QMenu* const submenu = action->menu()) {
            if (QAction* const found = walk(*submenu, entered, look))
                return found;
        } else if (look(*action)) {
            return action;
        }
    }
    return nullptr;
}

} // namespace

void setIdentifier(QAction& action, unsigned long long id) { action.setProperty(identifierProperty, id); }

std::optional<unsigned long long> identifierOf(const QAction& action)
{
    const QVariant id = action.property(identifierProperty);
    return id.isValid() ? std::optional(id.toULongLong()) : std::nullopt;
}

QAction* findAction(unsigned long long id, QMenu* menu)
{
    QVector<QMenu*> entered;
    return menu ? walk(*menu, entered, [id](const QAction& action) { return identifierOf(action) == id; }) : nullptr;
}

QVector<QMenu*> menusFrom(QMenu& root)
{
    QVector<QMenu*> entered;
    walk(root, entered, [](const QAction&) { return false; });
    return entered;
}

MenuIndex::MenuIndex(QMenu& root)
{
    QVector<QMenu*> entered;
    walk(root, entered, [this](QAction& action) {
        addItem(action);
        return false;
    });
    for (QMenu* menu : qAsConst(entered))
        addMenu(*menu);
}

void MenuIndex::addItem(QAction& action)
{
    action.installEventFilter(this);
    const auto id = identifierOf(action);
    if (id && !m_items.contains(*id))
        m_items.insert(*id, &action);
}

void MenuIndex::addMenu(QMenu& menu)
{
    menu.installEventFilter(this);
    m_menus.append({&menu, menu.menuAction(), menu.actions()});
    for (QAction* action : qAsConst(m_menus.last().actions))
        m_kinds.insert(action, kindOf(*action));
}

bool MenuIndex::isCurrent(const QMenu* root) const
{
    return m_isCurrent && m_menus.first().menu == root && std::all_of(m_menus.begin(), m_menus.end(), isUnchanged);
}

bool MenuIndex::isUnchanged(const Menu& menu)
{
    return menu.menu && menu.menuAction && menu.menu->menuAction() == menu.menuAction
           && menu.menu->actions().isSharedWith(menu.actions);
}

bool MenuIndex::hasOtherKind(QAction* action) const
{
    const auto known = m_kinds.constFind(action);
    if (known == m_kinds.constEnd())
        return true;
    const Kind now = kindOf(*action);
    return now.menu != known->menu || now.isSeparator != known->isSeparator;
}

bool MenuIndex::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::ActionChanged)
        m_isCurrent = m_isCurrent && !hasOtherKind(static_cast<QActionEvent*>(event)->action());
    else if (event->type() == QEvent::DynamicPropertyChange)
        m_isCurrent =
            m_isCurrent && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() != identifierProperty;
    return false;
}

} // namespace xe
