// Identifiers of menu items, and how an item is found by one.
#pragma once

#include <QAction>
#include <QHash>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QVector>

#include <optional>

namespace xe {

void setIdentifier(QAction& action, unsigned long long id);
/// Nothing, not even 0, for an action without one.
std::optional<unsigned long long> identifierOf(const QAction& action);

/// See CMenu_X::findAction().
QAction* findAction(unsigned long long id, QMenu* menu);

/// The menu itself, and the submenus below it depth first, each once.
QVector<QMenu*> menusFrom(QMenu& root);

/// The items of a menu and its submenus by identifier, as they were when the index was made.
///
/// It knows when that has changed. Lists of actions are compared with copies of them, which share their data until
/// Qt changes one; identifiers, and what makes an item a separator or a popup, are told by events.
class MenuIndex : public QObject
{
public:
    explicit MenuIndex(QMenu& root);

    /// Whether find() gives what findAction() would, for the same menu.
    bool isCurrent(const QMenu* root) const;
    QAction* find(unsigned long long id) const { return m_items.value(id); }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct Menu
    {
        QPointer<QMenu> menu;
        QPointer<QAction> menuAction;
        QList<QAction*> actions;
    };
    // What decides how an action is looked at.
    struct Kind
    {
        QMenu* menu;
        bool isSeparator;
    };

    static Kind kindOf(const QAction& action) { return {action.menu(), action.isSeparator()}; }
    static bool isUnchanged(const Menu& menu);
    void addMenu(QMenu& menu);
    void addItem(QAction& action);
    bool hasOtherKind(QAction* action) const;

    QVector<Menu> m_menus;
    QHash<unsigned long long, QAction*> m_items;
    QHash<QAction*, Kind> m_kinds;
    bool m_isCurrent = true;
};

} // namespace xe
