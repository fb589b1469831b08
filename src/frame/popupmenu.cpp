// A menu that opens on the screen by itself.

#include "frame/menuindex.h"
#include "win/animationkeeper.h"
#include "xeafxmenu.h"

#include <QVariant>

namespace {

constexpr int nothingChosen = -1;

// Notes the identifier of the item that is chosen in a menu and its submenus.
//
// The item's own handlers may delete it, and the menu, before QMenu tells which one it was. Each menu tells of its own
// items first, ahead of the handlers that were connected later; of those in a submenu the menu at the top tells last.
class MenuChoice : public QObject
{
public:
    explicit MenuChoice(QMenu& menu) : m_menu(&menu)
    {
        connect(&menu, &QMenu::hovered, this, &MenuChoice::noteCurrent);
        connect(&menu, &QMenu::triggered, this, &MenuChoice::noteChosen, Qt::UniqueConnection);
    }

    int id() const { return m_chosenId; }

private:
    void noteCurrent(QAction* action)
    {
        m_current = action;
        m_currentId = idOf(*action);
        const QList<QWidget*> widgets = action->associatedWidgets();
        for (QWidget* widget : widgets) {
            if (auto* const menu = qobject_cast<QMenu*>(widget))
                connect(menu, &QMenu::triggered, this, &MenuChoice::noteChosen, Qt::UniqueConnection);
        }
    }

    // The argument may be gone: only the current item can be chosen, and its menus are closed by then.
    void noteChosen()
    {
        if (m_isChosen || (m_menu && m_menu->isVisible()))
            return;
        m_isChosen = true;
        m_chosenId = m_current ? idOf(*m_current) : m_currentId;
    }

    static int idOf(const QAction& action)
    {
        const auto id = xe::identifierOf(action);
        return id ? static_cast<int>(*id) : nothingChosen;
    }

    const QPointer<QMenu> m_menu;
    QPointer<QAction> m_current;
    int m_currentId = nothingChosen;
    int m_chosenId = nothingChosen;
    bool m_isChosen = false;
};

} // namespace

// The wrapper may be gone when the menu has closed.
int CMenu_X::TrackPopupMenu(UINT, int x, int y, QWidget*, const tagRECT*)
{
    QMenu* const menu = GetSafeHmenu();
    if (!menu)
        return 0;
    if (menu->isVisible()) // a second loop would leave the first one without an end
        return nothingChosen;
    const MenuChoice choice(*menu);
    const xe::AnimationKeeper keeper;
    menu->exec(QPoint(x + 1, y + 1));
    return choice.id();
}
