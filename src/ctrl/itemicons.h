// The pictures of items in lists and trees.
#pragma once

#include "xeafximg.h"

#include <QHash>
#include <QIcon>
#include <QPair>

#include <memory>
#include <vector>

namespace xe {

/// Makes icons of the pictures of a control, one for all items that show the same, and owns the bitmaps that the
/// control has made itself.
///
/// A picture is named by its index in the control's image list. It is the one that stands at this index in `pictures`,
/// the control's field, or else the list's own.
class ItemIcons
{
public:
    using Pictures = QList<CBitmap_X*>;

    /// Appends a copy in 32 bits a pixel.
    void append(Pictures& pictures, const QPixmap& picture);
    /// Empties the list; bitmaps of the host's live on.
    void clear(Pictures& pictures);

    /// Whether the image list has the index.
    static bool hasImage(const CImageList_X& list, int index) { return index >= 0 && index < list.GetImageCount(); }

    /// The icon of a picture, with another one for selected items; null without them.
    const QIcon& icon(const CImageList_X& list, const Pictures& pictures, int normal, int selected);
    /// The icon of a picture alone.
    const QIcon& icon(const CImageList_X& list, const Pictures& pictures, int index);

private:
    using Key = QPair<qint64, qint64>; // of the images, which have other keys when they have changed

    QIcon& entry(Key key);

    std::vector<std::unique_ptr<CBitmap_X>> m_ownBitmaps;
    QHash<Key, QIcon> m_icons;
};

} // namespace xe
