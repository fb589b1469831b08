// Tree controls: their life, making and ending of items, pictures.

#include "xetreectrl.h"

#include "ctrl/creation.h"
#include "ctrl/itemicons.h"
#include "ctrl/treeroles.h"

#include <QTreeWidget>

IMPLEMENT_DYNCREATE_X(CTreeCtrl_X, CWnd_X)

namespace {

constexpr DWORD ownBars = WS_VSCROLL | WS_HSCROLL;

void hideHeader(QTreeWidget& tree) { tree.setHeaderHidden(true); }

} // namespace

CTreeCtrl_X::CTreeCtrl_X() : CWnd_X(Control()), m_icons(std::make_unique<xe::ItemIcons>()) {}

CTreeCtrl_X::~CTreeCtrl_X() = default;

bool CTreeCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QTreeWidget(parent), parent, false); }

// A handler that comes up meanwhile may delete the wrapper.

int CTreeCtrl_X::Create(DWORD style, xe::detail::ParentWindow parent)
{
    const auto create = [&] { return CWnd_X::Create(style & ~ownBars, parent); };
    return xe::createAndFinish<QTreeWidget>(*this, create, hideHeader);
}

int CTreeCtrl_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent)
{
    const auto create = [&] { return CWnd_X::Create(style & ~ownBars, rect, parent); };
    return xe::createAndFinish<QTreeWidget>(*this, create, hideHeader);
}

int CTreeCtrl_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    return Create(style, rect, parent);
}

// The tree of an item that belongs to it.
QTreeWidget* CTreeCtrl_X::treeWith(HTREEITEM item) const
{
    auto* const tree = Imp<QTreeWidget>();
    return tree && xe::isItem(item) && item->treeWidget() == tree ? tree : nullptr;
}

// -------------------------------------------------------------------------------------------------------------- making

HTREEITEM CTreeCtrl_X::InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent, HTREEITEM after)
{
    auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return nullptr;
    auto* const item = newItem(text, image, selectedImage);
    if (!xe::isItem(parent))
        tree->addTopLevelItem(item);
    else if (!after || after == TVI_ROOT)
        parent->addChild(item);
    else
        parent->insertChild(xe::isItem(after) ? rowOf(*parent, after) + 1 : 0, item);
    return item;
}

QTreeWidgetItem* CTreeCtrl_X::newItem(const wchar_t* text, int image, int selectedImage)
{
    auto* const item = new QTreeWidgetItem;
    item->setData(0, Qt::DisplayRole, QString(XeQString(text)));
    if (hasCheckBoxes) {
        item->setFlags(item->flags() | Qt::ItemIsAutoTristate);
        item->setData(0, Qt::CheckStateRole, static_cast<int>(Qt::Unchecked));
    }
    if (hasIcon(image, selectedImage))
        item->setIcon(0, m_icons->icon(imageList, itemImages, image, selectedImage));
    item->setData(0, xe::treeImageRole, image);
    item->setData(0, xe::treeSelectedImageRole, selectedImage);
    return item;
}

HTREEITEM CTreeCtrl_X::InsertItem(const wchar_t* text, HTREEITEM parent) { return InsertItem(text, 0, 0, parent); }

HTREEITEM CTreeCtrl_X::InsertItem(tagTVINSERTSTRUCT_X* record)
{
    if (!record)
        return nullptr;
    const tagTVITEM_X& item = record->item;
    const HTREEITEM made =
        InsertItem(item.pszText.GetString(), item.iImage, item.iSelectedImage, record->hParent, record->hInsertAfter);
    if (item.mask & TVIF_PARAM)
        SetItemData(made, static_cast<ULONGLONG>(item.lParam));
    return made;
}

// -------------------------------------------------------------------------------------------------------------- ending

BOOL CTreeCtrl_X::DeleteItem(HTREEITEM item)
{
    auto* const tree = Imp<QTreeWidget>();
    if (tree && (item == TVI_ROOT || item == tree->invisibleRootItem()))
        return DeleteAllItems();
    if (!xe::isItem(item))
        return TRUE;
    if (!treeWith(item))
        return FALSE;
    if (!tree->viewport()->children().isEmpty()) // else no item has a widget, and Qt need not look for this one
        tree->setItemWidget(item, 0, nullptr);
    QTreeWidgetItem* const level = item->parent() ? item->parent() : tree->invisibleRootItem();
    delete level->takeChild(rowOf(*level, item));
    return TRUE;
}

BOOL CTreeCtrl_X::DeleteAllItems()
{
    auto* const tree = Imp<QTreeWidget>();
    if (!tree)
        return FALSE;
    tree->clear();
    return TRUE;
}

// ------------------------------------------------------------------------------------------------------------ pictures

bool CTreeCtrl_X::hasIcon(int image, int selectedImage) const
{
    return xe::ItemIcons::hasImage(imageList, image) && xe::ItemIcons::hasImage(imageList, selectedImage);
}

CImageList_X CTreeCtrl_X::SetImageList(const CImageList_X& list, int)
{
    const CImageList_X old = imageList;
    imageList = list;
    return old;
}

CImageList_X CTreeCtrl_X::GetImageList(UINT) const { return imageList; }

void CTreeCtrl_X::AppendItemImage(const QPixmap& picture) { m_icons->append(itemImages, picture); }

void CTreeCtrl_X::ClearItemImageList() { m_icons->clear(itemImages); }
