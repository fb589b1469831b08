// Tree controls: what an item has.

#include "ctrl/itemicons.h"
#include "ctrl/treeaccess.h"
#include "ctrl/treeroles.h"

#include <QSignalBlocker>

namespace {

constexpr UINT imageOfBox = 12; // the place of its bits in a state

UINT bitsOf(const QTreeWidgetItem& item) { return item.data(0, xe::treeBitsRole).toUInt(); }

// No signal tells of the bits, and nothing that the tree shows depends on them.
void setBits(const QTreeWidget& tree, QTreeWidgetItem& item, UINT bits)
{
    const QSignalBlocker blocker(tree.model());
    item.setData(0, xe::treeBitsRole, bits);
}

UINT changedBits(UINT old, UINT state, UINT mask)
{
    if (old & TVIS_EXPANDED)
        old &= ~xe::collapsedBit;
    const UINT bits = (old & ~mask) | (state & mask);
    const bool hasBoth = bits & TVIS_EXPANDED && bits & xe::collapsedBit;
    if (!hasBoth)
        return bits;
    return old & TVIS_EXPANDED ? bits & ~TVIS_EXPANDED : bits & ~xe::collapsedBit; // the one just set stays
}

int boxOfImage(UINT image) { return image == 3 ? Qt::Checked : image == 2 ? Qt::PartiallyChecked : Qt::Unchecked; }

UINT imageOfState(int check)
{
    switch (check) {
    case Qt::Unchecked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    case Qt::Checked:
        return 3;
    default:
        return static_cast<UINT>(check);
    }
}

} // namespace

// --------------------------------------------------------------------------------------------------- text and pictures

BOOL CTreeCtrl_X::SetItem(HTREEITEM item, UINT, const wchar_t* text, int image, int selectedImage, UINT, UINT, LPARAM)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    const QPersistentModelIndex place = xe::TreeAccess::indexOf(*tree, *item);
    if (text)
        SetItemText(item, text);
    if (place.isValid()) // a slot that was told of the text may have ended it
        SetItemImage(item, image, selectedImage);
    return TRUE;
}

BOOL CTreeCtrl_X::SetItem(tagTVITEM_X* record)
{
    return record ? SetItem(record->hItem, record->mask, record->pszText.GetString(), record->iImage,
                            record->iSelectedImage, record->state, record->stateMask, record->lParam)
                  : FALSE;
}

BOOL CTreeCtrl_X::SetItemText(HTREEITEM item, const wchar_t* text)
{
    if (!treeWith(item))
        return FALSE;
    item->setText(0, XeQString(text));
    return TRUE;
}

CString_X CTreeCtrl_X::GetItemText(HTREEITEM item) const
{
    return treeWith(item) ? CString_X(item->text(0)) : CString_X();
}

BOOL CTreeCtrl_X::SetItemImage(HTREEITEM item, int image, int selectedImage)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree || !hasIcon(image, selectedImage))
        return FALSE;
    {
        const QSignalBlocker blocker(tree->model()); // the icon tells of all three
        item->setData(0, xe::treeImageRole, image);
        item->setData(0, xe::treeSelectedImageRole, selectedImage);
    }
    item->setIcon(0, m_icons->icon(imageList, itemImages, image, selectedImage));
    return TRUE;
}

BOOL CTreeCtrl_X::GetItemImage(HTREEITEM item, int& image, int& selectedImage) const
{
    const auto indexIn = [item](int role) {
        const QVariant index = item->data(0, role);
        return index.isValid() ? index.toInt() : -1;
    };
    const bool isThere = treeWith(item);
    image = isThere ? indexIn(xe::treeImageRole) : -1;
    selectedImage = isThere ? indexIn(xe::treeSelectedImageRole) : -1;
    return isThere;
}

// ---------------------------------------------------------------------------------------------------- number and state

BOOL CTreeCtrl_X::SetItemData(HTREEITEM item, ULONGLONG data)
{
    if (!treeWith(item))
        return FALSE;
    item->setData(0, xe::treeDataRole, data);
    return TRUE;
}

ULONGLONG CTreeCtrl_X::GetItemData(HTREEITEM item) const
{
    return treeWith(item) ? item->data(0, xe::treeDataRole).toULongLong() : 0;
}

BOOL CTreeCtrl_X::SetItemState(HTREEITEM item, UINT state, UINT mask)
{
    QTreeWidget* const tree = treeWith(item);
    if (!tree)
        return FALSE;
    if (mask == TVIS_STATEIMAGEMASK)
        item->setData(0, Qt::CheckStateRole, boxOfImage(state >> imageOfBox));
    else
        setBits(*tree, *item, changedBits(bitsOf(*item), state, mask));
    return TRUE;
}

UINT CTreeCtrl_X::GetItemState(HTREEITEM item, UINT mask) const
{
    if (!treeWith(item))
        return 0;
    return mask == TVIS_STATEIMAGEMASK ? imageOfState(item->data(0, Qt::CheckStateRole).toInt()) << imageOfBox
                                       : bitsOf(*item);
}

BOOL CTreeCtrl_X::GetCheck(HTREEITEM item) const
{
    return treeWith(item) && item->data(0, Qt::CheckStateRole).toInt() == Qt::Checked;
}

BOOL CTreeCtrl_X::SetCheck(HTREEITEM item, BOOL check)
{
    if (!treeWith(item))
        return FALSE;
    item->setData(0, Qt::CheckStateRole, static_cast<int>(check ? Qt::Checked : Qt::Unchecked));
    return TRUE;
}

void CTreeCtrl_X::setBitsOfAll(UINT set, UINT clear)
{
    const auto* const tree = Imp<QTreeWidget>();
    xe::visitItems(*tree->invisibleRootItem(), [tree, set, clear](QTreeWidgetItem& item) {
        if (item.childCount() > 0)
            setBits(*tree, item, (bitsOf(item) | set) & ~clear);
        return true;
    });
}
