// Tree controls: what can be done with items.

#include "ctrl/labelediting.h"
#include "ctrl/treeaccess.h"
#include "ctrl/treeroles.h"

#include <QPersistentModelIndex>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

bool collapses(UINT code) { return code & TVE_COLLAPSE && !(code & TVE_EXPAND); }

// ------------------------------------------------------------------------------------------------------------- sorting

QList<QTreeWidgetItem*> sortedByText(const QList<QTreeWidgetItem*>& items)
{
    std::vector<std::pair<QString, QTreeWidgetItem*>> texts;
    texts.reserve(static_cast<std::size_t>(items.size()));
    for (QTreeWidgetItem* item : items)
        texts.emplace_back(item->text(0), item);
    std::stable_sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QList<QTreeWidgetItem*> sorted;
    sorted.reserve(items.size());
    for (const auto& text : texts)
        sorted.append(text.second);
    return sorted;
}

// What a tree forgets about items that are taken out: put back at the end of its life, when they are in again.
class KeptState
{
public:
    KeptState(QTreeWidget& tree, const QTreeWidgetItem& level)
        : m_tree(tree),
          m_level(level),
          m_current(tree.currentItem()),
          m_currentColumn(tree.currentColumn()),
          m_selected(tree.selectedItems()),
          m_scroll(tree.verticalScrollBar()->value())
    {
        visitParents(xe::TreeAccess::indexOf(tree, level), [this](const QModelIndex& index) {
            if (m_tree.isExpanded(index))
                m_expanded.insert(index.internalPointer());
        });
    }

    ~KeptState()
    {
        visitParents(xe::TreeAccess::indexOf(m_tree, m_level), [this](const QModelIndex& index) {
            if (m_expanded.contains(index.internalPointer()))
                m_tree.setExpanded(index, true);
        });
        if (m_current)
            m_tree.setCurrentItem(m_current, m_currentColumn, QItemSelectionModel::NoUpdate);
        QItemSelection selection;
        for (const QTreeWidgetItem* item : qAsConst(m_selected)) {
            const QModelIndex first = xe::TreeAccess::indexOf(m_tree, *item);
            selection.append(QItemSelectionRange(first, first.siblingAtColumn(m_tree.columnCount() - 1)));
        }
        m_tree.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        m_tree.verticalScrollBar()->setValue(m_scroll);
    }

    Q_DISABLE_COPY_MOVE(KeptState)

private:
    // Calls `visit` with the items below that have children. Their indexes come from above: to find that of an item, Qt
    // looks through its siblings.
    template <class Visit>
    void visitParents(const QModelIndex& level, Visit visit) const
    {
        const QAbstractItemModel& model = *m_tree.model();
        for (int row = 0; row < model.rowCount(level); ++row) {
            const QModelIndex index = model.index(row, 0, level);
            if (model.rowCount(index) == 0)
                continue;
            visit(index);
            visitParents(index, visit);
        }
    }

    QTreeWidget& m_tree;
    const QTreeWidgetItem& m_level;
    QTreeWidgetItem* const m_current;
    const int m_currentColumn;
    const QList<QTreeWidgetItem*> m_selected;
    const int m_scroll;
    QSet<void*> m_expanded; // items
};

} // namespace

BOOL CTreeCtrl_X::SortChildren(HTREEITEM item)
{
    auto* const tree = Imp<QTreeWidget>();
    QTreeWidgetItem* const level = tree && item == TVI_ROOT ? tree->invisibleRootItem() : item;
    if (!treeWith(level))
        return FALSE;
    const QSignalBlocker blocker(tree);
    const KeptState kept(*tree, *level);
    level->addChildren(sortedByText(level->takeChildren()));
    return TRUE;
}

// ----------------------------------------------------------------------------------------------------------- selecting

BOOL CTreeCtrl_X::EnsureVisible(HTREEITEM item)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    tree->scrollToItem(item);
    return TRUE;
}

// Slots that are told may end the item, here and in what follows.

BOOL CTreeCtrl_X::SelectItem(HTREEITEM item)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    const QPersistentModelIndex place = xe::TreeAccess::indexOf(*tree, *item);
    tree->setCurrentItem(item);
    if (place.isValid())
        SetItemState(item, TVIS_SELECTED, TVIS_SELECTED);
    return TRUE;
}

BOOL CTreeCtrl_X::Select(HTREEITEM item, UINT code) { return code == TVGN_CARET ? SelectItem(item) : FALSE; }

BOOL CTreeCtrl_X::SelectDropTarget(HTREEITEM item)
{
    if (!treeWith(item))
        return FALSE;
    item->setFlags(item->flags() | Qt::ItemIsDropEnabled);
    return TRUE;
}

BOOL CTreeCtrl_X::EditLabel(HTREEITEM item)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    const QPersistentModelIndex place = xe::TreeAccess::indexOf(*tree, *item);
    if (!(item->flags() & Qt::ItemIsEditable))
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (xe::canEdit(*tree, place))
        tree->editItem(item, 0);
    return TRUE;
}

// ----------------------------------------------------------------------------------------------------------- expanding

BOOL CTreeCtrl_X::Expand(HTREEITEM item, UINT code)
{
    const QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    const QPersistentModelIndex place = xe::TreeAccess::indexOf(*tree, *item);
    item->setExpanded(!collapses(code));
    if (place.isValid())
        SetItemState(item, TVIS_EXPANDED, TVIS_EXPANDED);
    return TRUE;
}

BOOL CTreeCtrl_X::ExpandAllChild(HTREEITEM item, UINT code)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    xe::TreeAccess::putOffLayout(*tree);
    expandBelow(item, code);
    return TRUE;
}

void CTreeCtrl_X::expandBelow(HTREEITEM item, UINT code)
{
    if (item->childCount() == 0)
        return;
    const QPersistentModelIndex place = xe::TreeAccess::indexOf(*item->treeWidget(), *item);
    Expand(item, code);
    for (int i = 0; place.isValid() && i < item->childCount(); ++i)
        expandBelow(item->child(i), code);
}

void CTreeCtrl_X::ExpandAll()
{
    auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return;
    tree->expandAll();
    setBitsOfAll(TVIS_EXPANDED, xe::collapsedBit);
}

void CTreeCtrl_X::CollapseAll()
{
    auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return;
    tree->collapseAll();
    setBitsOfAll(xe::collapsedBit, TVIS_EXPANDED);
}
