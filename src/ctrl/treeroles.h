// What the tree control adds to an item of its tree.
#pragma once

#include "xetreectrl.h"

#include <QTreeWidgetItem>

namespace xe {

inline constexpr int treeDataRole = Qt::UserRole + 1;
inline constexpr int treeImageRole = Qt::UserRole + 2;
inline constexpr int treeSelectedImageRole = Qt::UserRole + 3;
inline constexpr int treeBitsRole = Qt::UserRole + 4;

inline constexpr UINT collapsedBit = 0x1;

/// Whether a handle is an item: neither null nor one of the places that are none.
inline bool isItem(HTREEITEM item)
{
    return item && item != TVI_ROOT && item != TVI_FIRST && item != TVI_LAST && item != TVI_SORT;
}

/// Whether a handle is the top level.
inline bool isTopLevel(HTREEITEM item) { return !item || item == TVI_ROOT; }

/// Calls `visit` with each item below `level`, children behind their parent. While it gives true the walk goes on.
template <class Visit>
bool visitItems(const QTreeWidgetItem& level, Visit visit)
{
    for (int i = 0; i < level.childCount(); ++i) {
        QTreeWidgetItem* const item = level.child(i);
        if (!visit(*item) || !visitItems(*item, visit))
            return false;
    }
    return true;
}

} // namespace xe
