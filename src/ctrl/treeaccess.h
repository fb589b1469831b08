// Protected functions of QTreeWidget: items and their indexes, and a layout put off.
#pragma once

#include <QTreeWidget>

namespace xe {

class TreeAccess : private QTreeWidget
{
public:
    /// Of column 0.
    static QModelIndex indexOf(const QTreeWidget& tree, const QTreeWidgetItem& item)
    {
        using Function = QModelIndex (QTreeWidget::*)(const QTreeWidgetItem*, int) const;
        return (tree.*static_cast<Function>(&TreeAccess::indexFromItem))(&item, 0);
    }

    static QTreeWidgetItem* itemAt(const QTreeWidget& tree, const QModelIndex& index)
    {
        return (tree.*&TreeAccess::itemFromIndex)(index);
    }

    /// Has the tree lay its items out once, when control returns to the event loop or somebody asks for a place.
    static void putOffLayout(QTreeWidget& tree) { (tree.*&TreeAccess::scheduleDelayedItemsLayout)(); }
};

} // namespace xe
