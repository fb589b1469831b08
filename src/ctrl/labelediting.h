#pragma once

#include <QAbstractItemView>

namespace xe {

/// What QAbstractItemView tells nobody else.
class ViewAccess : private QAbstractItemView
{
public:
    static bool isEditing(const QAbstractItemView& view) { return (view.*&ViewAccess::state)() == EditingState; }
};

/// Whether Qt would begin to edit the item. Where it would not, it warns of the attempt.
inline bool canEdit(const QAbstractItemView& view, const QModelIndex& index)
{
    return index.flags() & Qt::ItemIsEnabled && index.flags() & Qt::ItemIsEditable && !ViewAccess::isEditing(view);
}

} // namespace xe
