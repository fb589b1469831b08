// Items that are added to a menu, changed and taken away.

#include "frame/menuindex.h"
#include "xeafxmenu.h"

#include <QApplication>

#include <algorithm>

namespace {

// A number is a menu only if it is the address of a living one.
QMenu* livingMenu(UINT_PTR id)
{
    auto* const widget = reinterpret_cast<QWidget*>(id);
    return id && QApplication::allWidgets().contains(widget) ? qobject_cast<QMenu*>(widget) : nullptr;
}

// Has an action deleted when control returns to the event loop, unless it is on a widget again by then.
class DeletionUnlessUsed : public QObject
{
public:
    static void of(QAction& action)
    {
        const auto isOne = [](const QObject* child) { return dynamic_cast<const DeletionUnlessUsed*>(child); };
        if (std::none_of(action.children().begin(), action.children().end(), isOne))
            new DeletionUnlessUsed(action);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::DeferredDelete || m_action.associatedWidgets().isEmpty())
            return false;
        deleteLater();
        return true;
    }

private:
    explicit DeletionUnlessUsed(QAction& action) : QObject(&action), m_action(action)
    {
        action.installEventFilter(this);
        action.deleteLater();
    }

    QAction& m_action;
};

// What follows the first tab, one at the very front apart.
QString shortcutIn(const QString& text)
{
    const int tab = text.indexOf(QLatin1Char('\t'), 1);
    return tab < 0 ? QString() : text.mid(tab + 1);
}

void setTextAndShortcut(QAction& action, const QString& text)
{
    const QString shortcut = shortcutIn(text);
    if (!shortcut.isEmpty()) {
        action.setShortcutContext(Qt::WidgetShortcut);
        action.setShortcut(QKeySequence(shortcut));
    } else if (action.shortcutContext() == Qt::WidgetShortcut) {
        action.setShortcut(QKeySequence());
    }
    action.setText(text);
}

void setState(QAction& action, UINT flags)
{
    if (flags & (MF_GRAYED | MF_DISABLED))
        action.setEnabled(false);
    if (flags & (MF_DISABLED | MF_CHECKED))
        action.setCheckable(true);
    if (flags & MF_CHECKED)
        action.setChecked(true);
}

} // namespace

// -------------------------------------------------------------------------------------------------------------- adding

int CMenu_X::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text)
{
    QMenu* const menu = GetSafeHmenu();
    if (!menu)
        return 0;
    if (flags & MF_POPUP) {
        QMenu* const popup = livingMenu(id);
        if (!popup || popup == menu)
            return 0;
        QAction* const action = menu->addMenu(popup);
        action->setText(XeQString(text));
        xe::setIdentifier(*action, id);
    } else if (flags & MF_SEPARATOR) {
        addSeparator();
    } else {
        xe::setIdentifier(*menu->addAction(XeQString(text)), id);
    }
    return 1;
}

int CMenu_X::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text, const QIcon& icon)
{
    if (!GetSafeHmenu())
        return 0;
    if (flags & MF_POPUP)
        addMenu(icon, XeQString(text), id);
    else if (flags & MF_SEPARATOR)
        addSeparator();
    else
        addAction(icon, XeQString(text), id);
    return 1;
}

QAction* CMenu_X::addAction(const QIcon& icon, const QString& text, UINT_PTR id)
{
    QMenu* const menu = GetSafeHmenu();
    if (!menu)
        return nullptr;
    QAction* const action = menu->addAction(icon, text);
    xe::setIdentifier(*action, id);
    return action;
}

QMenu* CMenu_X::addMenu(const QIcon& icon, const QString& text, UINT_PTR id)
{
    QMenu* const menu = GetSafeHmenu();
    if (!menu)
        return nullptr;
    QMenu* const submenu = menu->addMenu(icon, text);
    xe::setIdentifier(*submenu->menuAction(), id);
    return submenu;
}

QAction* CMenu_X::addSeparator()
{
    QMenu* const menu = GetSafeHmenu();
    return menu ? menu->addSeparator() : nullptr;
}

// ------------------------------------------------------------------------------------------- wrapped menus as submenus

bool CMenu_X::mayTake(const CMenu_X* sub, const CString_X& text) const
{
    const QMenu* const menu = GetSafeHmenu();
    const QMenu* const submenu = sub ? sub->GetSafeHmenu() : nullptr;
    return menu && submenu && submenu != menu && !text.IsEmpty() && !checkExist(menu, submenu);
}

int CMenu_X::AppendMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id)
{
    return mayTake(sub, text) ? AppendMenu(sub, text, id, sub->GetSafeHmenu()->icon()) : 0;
}

int CMenu_X::AppendMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, const QIcon& icon)
{
    if (!mayTake(sub, text))
        return 0;
    sub->setTitle(text);
    sub->setIcon(icon);
    xe::setIdentifier(*GetSafeHmenu()->addMenu(sub->GetSafeHmenu()), id);
    return 1;
}

int CMenu_X::InsertMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, UINT_PTR before)
{
    return mayTake(sub, text) ? InsertMenu(sub, text, id, before, sub->GetSafeHmenu()->icon()) : 0;
}

int CMenu_X::InsertMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, UINT_PTR before, const QIcon& icon)
{
    if (!mayTake(sub, text))
        return 0;
    const Place place = placeOf(before, MF_BYCOMMAND);
    if (place.menu == sub->GetSafeHmenu()) // below another submenu already
        return 0;
    sub->setTitle(text);
    sub->setIcon(icon);
    xe::setIdentifier(*place.menu->insertMenu(place.item, sub->GetSafeHmenu()), id);
    return 1;
}

// ------------------------------------------------------------------------------------------------- inserting, removing

int CMenu_X::InsertMenu(UINT_PTR position, UINT flags, UINT_PTR id, const wchar_t* text)
{
    if (!GetSafeHmenu())
        return 0;
    const Place place = flags & MF_BYPOSITION ? placeBehind(position) : placeOf(position, flags);
    if (flags & MF_SEPARATOR) {
        place.menu->insertSeparator(place.item);
    } else if (flags & MF_POPUP) {
        QMenu* const popup = livingMenu(id);
        if (!popup || popup == place.menu)
            return 1;
        QAction* const action = place.menu->insertMenu(place.item, popup);
        action->setText(XeQString(text));
        xe::setIdentifier(*action, id);
    } else {
        auto* const action = new QAction(XeQString(text), place.menu);
        place.menu->insertAction(place.item, action);
        xe::setIdentifier(*action, id);
    }
    return 1;
}

int CMenu_X::DeleteMenu(UINT_PTR position, UINT flags)
{
    const QMenu* const menu = GetSafeHmenu();
    if (!menu || menu->actions().isEmpty())
        return 0;
    const Place place = placeOf(position, flags);
    if (!place.item)
        return 1;
    place.menu->removeAction(place.item);
    if (place.item->parent() == place.menu && !place.item->menu())
        DeletionUnlessUsed::of(*place.item);
    return 1;
}

// ------------------------------------------------------------------------------------------------------------ changing

int CMenu_X::ModifyMenu(UINT_PTR position, UINT flags, UINT_PTR id, const wchar_t* text)
{
    QAction* const action = item(position, flags & MF_BYPOSITION);
    if (!action)
        return 0;
    setState(*action, flags);
    const XeQString newText(text);
    if (!newText.isEmpty())
        setTextAndShortcut(*action, newText);
    xe::setIdentifier(*action, id);
    return 1;
}

int CMenu_X::EnableMenuItem(UINT_PTR id, UINT flags)
{
    constexpr int enabled = 0;
    constexpr int disabled = MF_GRAYED | MF_DISABLED;
    QAction* const action = itemById(id);
    if (!action)
        return -1;
    const int before = action->isEnabled() ? enabled : disabled;
    action->setEnabled(flags != MF_GRAYED && flags != MF_DISABLED);
    return before;
}

int CMenu_X::CheckMenuItem(UINT_PTR position, UINT flags)
{
    QAction* const action = item(position, flags & MF_BYPOSITION);
    if (!action)
        return 0;
    if (flags & MF_CHECKED)
        action->setCheckable(true);
    action->setChecked(flags & MF_CHECKED);
    return 1;
}
