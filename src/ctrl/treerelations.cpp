// Tree controls: which items there are, and where.

#include "ctrl/dragimage.h"
#include "ctrl/treeaccess.h"
#include "ctrl/treeroles.h"
#include "geometry/rectangle.h"

#include <QHeaderView>

namespace {

// Counts the items that have a rectangle in the view, along the rows that it has laid out. Asking it for the rectangle
// of each item would take time by all of them.
class VisibleItems
{
public:
    explicit VisibleItems(const QTreeWidget& tree)
        : m_tree(tree),
          m_column(columnAt(tree, 0)),
          m_hasOneColumn(m_column == columnAt(tree, tree.header()->length() - 1)),
          m_width(tree.isColumnHidden(m_column) ? 0 : tree.columnWidth(m_column)),
          m_isIndented(isTreeColumn(tree, m_column))
    {}

    UINT count() const
    {
        UINT count = 0;
        for (QModelIndex index = first(); index.isValid(); index = m_tree.indexBelow(index))
            count += !m_hasOneColumn || hasWidth(index);
        return count;
    }

private:
    // An item's rectangle goes from the first column that is shown to the last.
    static int columnAt(const QTreeWidget& tree, int x)
    {
        const QHeaderView& header = *tree.header();
        return header.logicalIndex(header.logicalIndexAt(x - header.offset()));
    }

    static bool isTreeColumn(const QTreeWidget& tree, int column)
    {
        const int position = tree.treePosition();
        return position >= 0 ? position == column : tree.header()->visualIndex(column) == 0;
    }

    QModelIndex first() const
    {
        const QModelIndex root = m_tree.rootIndex();
        int row = 0;
        while (row < m_tree.model()->rowCount(root) && m_tree.isRowHidden(row, root))
            ++row;
        return m_tree.model()->index(row, 0, root);
    }

    bool hasWidth(const QModelIndex& index) const
    {
        const bool isSpanned = m_column == 0 && m_tree.isFirstColumnSpanned(index.row(), index.parent());
        const int width = isSpanned ? m_tree.header()->length() : m_width;
        const int step = m_isIndented ? m_tree.indentation() : 0;
        if (step == 0 || width % step != 0)
            return width != 0;
        return width != step * (levelOf(index) + (m_tree.rootIsDecorated() ? 1 : 0)); // a negative one is a width to Qt
    }

    int levelOf(const QModelIndex& index) const
    {
        int level = 0;
        for (QModelIndex parent = index.parent(); parent != m_tree.rootIndex() && parent.isValid();
             parent = parent.parent())
            ++level;
        return level;
    }

    const QTreeWidget& m_tree;
    const int m_column;
    const bool m_hasOneColumn;
    const int m_width;
    const bool m_isIndented;
};

} // namespace

// ----------------------------------------------------------------------------------------------------------- relations

BOOL CTreeCtrl_X::ItemHasChildren(HTREEITEM item) const { return treeWith(item) && item->childCount() > 0; }

HTREEITEM CTreeCtrl_X::GetRootItem() const
{
    const auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return nullptr;
    QTreeWidgetItem* const first = tree->topLevelItem(0);
    return first ? first : tree->invisibleRootItem();
}

HTREEITEM CTreeCtrl_X::GetSelectedItem() const
{
    const auto* const tree = Imp<QTreeWidget>();
    return tree ? tree->currentItem() : nullptr;
}

HTREEITEM CTreeCtrl_X::GetParentItem(HTREEITEM item) const { return treeWith(item) ? item->parent() : nullptr; }

HTREEITEM CTreeCtrl_X::GetChildItem(HTREEITEM item) const
{
    const auto* const tree = Imp<QTreeWidget>();
    if (tree && !xe::isItem(item))
        return tree->topLevelItem(0);
    return treeWith(item) ? item->child(0) : nullptr;
}

// Qt looks through all siblings, from the first on or by where it has found the item before. Mostly it stands beside
// the one that was asked about before.
int CTreeCtrl_X::rowOf(const QTreeWidgetItem& level, HTREEITEM item) const
{
    for (const int row : {m_row, m_row + 1, m_row - 1}) {
        if (level.child(row) == item)
            return m_row = row;
    }
    const int row = level.indexOfChild(item);
    if (row >= 0)
        m_row = row;
    return row;
}

HTREEITEM CTreeCtrl_X::sibling(HTREEITEM item, int distance) const
{
    const QTreeWidget* const tree = treeWith(item);
    if (!tree || item == tree->invisibleRootItem())
        return nullptr;
    const QTreeWidgetItem* const level = item->parent() ? item->parent() : tree->invisibleRootItem();
    return level->child(rowOf(*level, item) + distance);
}

HTREEITEM CTreeCtrl_X::GetNextSiblingItem(HTREEITEM item) const { return sibling(item, 1); }

HTREEITEM CTreeCtrl_X::GetPrevSiblingItem(HTREEITEM item) const { return sibling(item, -1); }

HTREEITEM CTreeCtrl_X::GetNextItem(HTREEITEM item, UINT code) const
{
    return code & TVGN_NEXT ? GetNextSiblingItem(item) : nullptr;
}

HTREEITEM CTreeCtrl_X::GetFirstVisibleItem() const
{
    const auto* const tree = Imp<QTreeWidget>();
    return tree ? tree->itemAt(0, 0) : nullptr;
}

HTREEITEM CTreeCtrl_X::GetNextVisibleItem(HTREEITEM item) const
{
    const QTreeWidget* const tree = treeWith(item);
    return tree ? tree->itemBelow(item) : nullptr;
}

UINT CTreeCtrl_X::GetVisibleCount() const
{
    const auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return 0;
    tree->visualItemRect(tree->topLevelItem(0)); // lays out what has not been yet
    return VisibleItems(*tree).count();
}

UINT CTreeCtrl_X::GetCount() const
{
    const auto* const tree = Imp<QTreeWidget>();
    UINT count = 0;
    if (tree)
        xe::visitItems(*tree->invisibleRootItem(), [&count](const QTreeWidgetItem&) { return ++count != 0; });
    return count;
}

int CTreeCtrl_X::GetSelectIndex() const
{
    const auto* const tree = Imp<QTreeWidget>();
    const QTreeWidgetItem* const current = tree ? tree->currentItem() : nullptr;
    int index = -1;
    const auto isBeforeCurrent = [current, &index](const QTreeWidgetItem& item) {
        ++index;
        return &item != current;
    };
    if (current)
        xe::visitItems(*tree->invisibleRootItem(), isBeforeCurrent);
    return index;
}

// ---------------------------------------------------------------------------------------------------------- the screen

HTREEITEM CTreeCtrl_X::HitTest(CPoint point, UINT* flags) const
{
    const auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return nullptr;
    if (flags)
        *flags = TVHT_ONITEM;
    return tree->itemAt(xe::toQPoint(point));
}

BOOL CTreeCtrl_X::GetItemRect(HTREEITEM item, CRect* rect, BOOL) const
{
    const QTreeWidget* const tree = treeWith(item);
    if (!tree || !rect)
        return FALSE;
    *rect = xe::toRect(tree->visualItemRect(item));
    return TRUE;
}

QPixmap CTreeCtrl_X::CreateDragImage(HTREEITEM item) const
{
    const QTreeWidget* const tree = treeWith(item);
    return tree ? xe::pictureOnScreen(*tree, tree->visualItemRect(item)) : QPixmap();
}
