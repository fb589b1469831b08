// What a round of command updates and a popup's life cost beside the same in plain Qt.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace {

constexpr int submenus = 10;
constexpr int itemsInEach = 20;
constexpr int items = submenus * itemsInEach;
constexpr auto identifier = "MenuItemIdx";

void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

// By hand: depth first through the properties of the items.
QAction* findByHand(const QMenu& menu, unsigned long long id)
{
    const QList<QAction*> actions = menu.actions();
    for (QAction* action : actions) {
        if (const QMenu* const submenu = action->menu()) {
            if (QAction* const found = findByHand(*submenu, id))
                return found;
        } else if (action->property(identifier).toULongLong() == id) {
            return action;
        }
    }
    return nullptr;
}

// ----------------------------------------------------------------------------------------------------- command updates

// Whether the states of the items change from one round to the next.
enum States : long long { Same, Changing };

struct Tree
{
    QMenu root;

    Tree()
    {
        for (int i = 0; i < items; ++i) {
            if (i % itemsInEach == 0)
                m_submenu = root.addMenu(QStringLiteral("Submenu"));
            QAction* const action = m_submenu->addAction(QStringLiteral("Item"));
            action->setProperty(identifier, static_cast<unsigned long long>(i + 1));
            action->setCheckable(true);
        }
    }

    bool allAre(bool enabled) const
    {
        for (int i = 0; i < items; ++i) {
            const QAction* const action = findByHand(root, static_cast<unsigned long long>(i + 1));
            if (action->isEnabled() != enabled || action->isChecked() == enabled)
                return false;
        }
        return true;
    }

private:
    QMenu* m_submenu = nullptr;
};

bool nextState(const benchmark::State& state, bool enabled) { return state.range(0) == Same || !enabled; }

void updateByIdentifier(benchmark::State& state)
{
    Tree tree;
    CMenu_X& menu = *CMenu_X::FromHandle(&tree.root);
    bool enabled = false;
    for (auto _ : state) {
        enabled = nextState(state, enabled);
        for (UINT_PTR id = 1; id <= items; ++id) {
            menu.EnableMenuItem(id, enabled ? MF_ENABLED : MF_GRAYED);
            menu.CheckMenuItem(id, enabled ? MF_UNCHECKED : MF_CHECKED);
        }
    }
    if (!tree.allAre(enabled))
        state.SkipWithError("the update failed");
    CMenu_X::DeleteTempMap();
}

void updateByHand(benchmark::State& state)
{
    Tree tree;
    bool enabled = false;
    for (auto _ : state) {
        enabled = nextState(state, enabled);
        for (unsigned long long id = 1; id <= items; ++id) {
            findByHand(tree.root, id)->setEnabled(enabled);
            findByHand(tree.root, id)->setChecked(!enabled);
        }
    }
    if (!tree.allAre(enabled))
        state.SkipWithError("the update failed");
}

// --------------------------------------------------------------------------------------------------------- popup menus

void buildByWrapper(benchmark::State& state)
{
    for (auto _ : state) {
        CMenu_X menu;
        menu.CreatePopupMenu();
        for (int i = 0; i < itemsInEach; ++i)
            menu.AppendMenu(MF_STRING, static_cast<UINT_PTR>(i + 1), L"Item");
        for (int i = 0; i < itemsInEach; ++i) {
            if (menu.EnableMenuItem(static_cast<UINT_PTR>(i + 1), MF_GRAYED) != 0)
                state.SkipWithError("the item was not found");
        }
        menu.DestroyMenu();
        deleteLaterObjects();
    }
}

void buildByHand(benchmark::State& state)
{
    for (auto _ : state) {
        auto* const menu = new QMenu;
        menu->setStyleSheet(QStringLiteral(" \t\tQMenu::separator { \t\theight: 2px; \t\t} "));
        for (int i = 0; i < itemsInEach; ++i) {
            QAction* const action = menu->addAction(QStringLiteral("Item"));
            action->setProperty(identifier, static_cast<unsigned long long>(i + 1));
        }
        for (int i = 0; i < itemsInEach; ++i) {
            QAction* const action = findByHand(*menu, static_cast<unsigned long long>(i + 1));
            if (!action)
                state.SkipWithError("the item was not found");
            else
                action->setEnabled(false);
        }
        menu->deleteLater();
        deleteLaterObjects();
    }
}

} // namespace

BENCHMARK(updateByIdentifier)->Name("menu_update/ours")->Arg(Same)->Arg(Changing);
BENCHMARK(updateByHand)->Name("menu_update/peer:walk")->Arg(Same)->Arg(Changing);
BENCHMARK(buildByWrapper)->Name("popup_build/ours");
BENCHMARK(buildByHand)->Name("popup_build/peer:QMenu");
