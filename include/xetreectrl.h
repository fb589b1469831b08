/// @file xetreectrl.h
/// The tree control.
#pragma once

#include "xeafximg.h"
#include "xeafxwin.h"

#include <QPixmap>
#include <QTreeWidget>

#include <memory>

namespace xe {
class ItemIcons;
}

// --------------------------------------------------------------------------------------------------- handles, numbers

using HTREEITEM = QTreeWidgetItem*; ///< the item itself

// Places that are no item: the top level as a parent, and ends of a level, all of which mean the front, as `after`.
inline const HTREEITEM TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<qintptr>(-0x10000));
inline const HTREEITEM TVI_FIRST = reinterpret_cast<HTREEITEM>(static_cast<qintptr>(-0x0FFFF));
inline const HTREEITEM TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<qintptr>(-0x0FFFE));
inline const HTREEITEM TVI_SORT = reinterpret_cast<HTREEITEM>(static_cast<qintptr>(-0x0FFFD));

// Styles: the form or the host sets what they stand for.
inline constexpr DWORD TVS_HASBUTTONS = 0x1;
inline constexpr DWORD TVS_HASLINES = 0x2;
inline constexpr DWORD TVS_LINESATROOT = 0x4;
inline constexpr DWORD TVS_EDITLABELS = 0x8;
inline constexpr DWORD TVS_DISABLEDRAGDROP = 0x10;
inline constexpr DWORD TVS_SHOWSELALWAYS = 0x20;
inline constexpr DWORD TVS_CHECKBOXES = 0x100;

inline constexpr UINT TVIF_TEXT = 0x1;
inline constexpr UINT TVIF_IMAGE = 0x2;
inline constexpr UINT TVIF_PARAM = 0x4;
inline constexpr UINT TVIF_STATE = 0x8;
inline constexpr UINT TVIF_HANDLE = 0x10;
inline constexpr UINT TVIF_SELECTEDIMAGE = 0x20;
inline constexpr UINT TVIF_CHILDREN = 0x40;

inline constexpr UINT TVIS_SELECTED = 0x2;
inline constexpr UINT TVIS_EXPANDED = 0x20;
inline constexpr UINT TVIS_STATEIMAGEMASK = 0xF000;

inline constexpr UINT TVE_COLLAPSE = 0x1;
inline constexpr UINT TVE_EXPAND = 0x2;
inline constexpr UINT TVE_TOGGLE = 0x3; ///< expands

inline constexpr UINT TVGN_ROOT = 0x0;
inline constexpr UINT TVGN_NEXT = 0x1;
inline constexpr UINT TVGN_PREVIOUS = 0x2;
inline constexpr UINT TVGN_PARENT = 0x3;
inline constexpr UINT TVGN_CHILD = 0x4;
inline constexpr UINT TVGN_FIRSTVISIBLE = 0x5;
inline constexpr UINT TVGN_NEXTVISIBLE = 0x6;
inline constexpr UINT TVGN_DROPHILITE = 0x8;
inline constexpr UINT TVGN_CARET = 0x9;

inline constexpr UINT TVHT_ONITEMICON = 0x2;
inline constexpr UINT TVHT_ONITEMLABEL = 0x4;
inline constexpr UINT TVHT_ONITEMSTATEICON = 0x40;
inline constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON;

inline constexpr int TVSIL_NORMAL = 0;
inline constexpr int TVSIL_STATE = 2;

// ------------------------------------------------------------------------------------------------------------- records

/// An item. Unlike in the published record the text is a string object, so begin with `tagTVITEM_X item{};`.
struct tagTVITEM_X
{
    UINT mask;
    HTREEITEM hItem;
    UINT state;
    UINT stateMask;
    CString_X pszText;
    int cchTextMax;
    int iImage;
    int iSelectedImage;
    int cChildren;
    LPARAM lParam;
};

struct tagTVINSERTSTRUCT_X
{
    HTREEITEM hParent;
    HTREEITEM hInsertAfter;
    tagTVITEM_X item;
};

using TVITEM = tagTVITEM_X;
using LPTVITEM = tagTVITEM_X*;
using TVINSERTSTRUCT = tagTVINSERTSTRUCT_X;
using LPTVINSERTSTRUCT = tagTVINSERTSTRUCT_X*;

// ------------------------------------------------------------------------------------------------------------ the tree

/// A tree: the wrapper of a QTreeWidget of one column. A handle of an item is the QTreeWidgetItem.
///
///     CTreeCtrl_X tree;
///     tree.Create(WS_VISIBLE | TVS_HASBUTTONS, CRect(0, 0, 200, 300), parent);
///     const HTREEITEM tools = tree.InsertItem(L"Tools");
///     const HTREEITEM drill = tree.InsertItem(L"Drill", tools);
///     tree.SetItemData(drill, 17);
///     tree.Expand(tools, TVE_EXPAND);
///
/// It sends no notification: connect to the signals of the QTreeWidget, or handle the messages of mouse and keys.
///
/// What an item shows is in the roles of its column 0: the number of SetItemData() in Qt::UserRole + 1, the two image
/// indices in Qt::UserRole + 2 and + 3, the state bits in Qt::UserRole + 4. The bits are what the functions here have
/// put there: an item that the user expands or selects keeps its old ones. Points and rectangles are pixels of the
/// client area, which is the viewport.
///
/// A picture is named by its index in the image list. It is the one that AppendItemImage() has put there, else the
/// list's own bitmap. A null item, TVI_ROOT and its like where the contract does not name them, and a missing widget
/// give 0, null or an empty value.
///
/// Qt's own timers of a tree come as WM_TIMER too: an OnTimer() ends in its base handler.
class XE_EXPORT CTreeCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CTreeCtrl_X)
    DECLARE_IMP_CLASS_X(QTreeWidget)

    CTreeCtrl_X();
    /// Deletes the pictures of AppendItemImage(). Items go on showing theirs.
    ~CTreeCtrl_X() override;

    /// As CWnd_X::Create(), and hides the header. WS_VSCROLL and WS_HSCROLL are left out: the tree has scroll bars of
    /// its own. `id` is ignored.
    int Create(DWORD style, xe::detail::ParentWindow parent);
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent);
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    // ----------------------------------------------------------------------------------------------- making and ending

    /// Makes an item below `parent`, behind the item `after`. Null or TVI_ROOT is the top level, where the item goes to
    /// the end whatever `after` is; null as `after` is the end too. An `after` that is no child of the parent is the
    /// front, and so are TVI_FIRST, TVI_LAST and TVI_SORT, unlike in the published function. The two image indices are
    /// kept in any case, and shown if both are in the image list.
    HTREEITEM InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent = nullptr,
                         HTREEITEM after = nullptr);
    /// The same with the images 0 and 0, at the end.
    HTREEITEM InsertItem(const wchar_t* text, HTREEITEM parent = nullptr);
    /// The same by a record, whose mask has a meaning for TVIF_PARAM alone: SetItemData() of `lParam`.
    HTREEITEM InsertItem(tagTVINSERTSTRUCT_X* record);
    /// Deletes an item with all below it; TVI_ROOT, and GetRootItem() of an empty tree, empty the tree. 1, also for
    /// null.
    BOOL DeleteItem(HTREEITEM item);
    /// Deletes all items. 1.
    BOOL DeleteAllItems();
    /// Sorts the children of an item, or the top level for TVI_ROOT, by their texts, in the order of their code units.
    /// What is expanded, selected and current stays so. 0 for null, otherwise 1.
    BOOL SortChildren(HTREEITEM item);

    // ------------------------------------------------------------------------------------------------------ attributes

    /// Sets text and images, always: unlike the published function it does not look at the mask, and has no use for the
    /// state and the number. A null text leaves the text. 1.
    BOOL SetItem(HTREEITEM item, UINT mask, const wchar_t* text, int image, int selectedImage, UINT state,
                 UINT stateMask, LPARAM param);
    BOOL SetItem(tagTVITEM_X* record);
    BOOL SetItemText(HTREEITEM item, const wchar_t* text);
    CString_X GetItemText(HTREEITEM item) const;
    /// Sets both images. 0, with nothing changed, unless both are in the image list.
    BOOL SetItemImage(HTREEITEM item, int image, int selectedImage);
    /// Writes the indices, -1 for none and without an item.
    BOOL GetItemImage(HTREEITEM item, int& image, int& selectedImage) const;
    /// The number that goes with an item.
    BOOL SetItemData(HTREEITEM item, ULONGLONG data);
    ULONGLONG GetItemData(HTREEITEM item) const;
    /// With the mask 0xF000 checks the box by the state's image: 3 is checked, 2 partly, any other not. With any other
    /// mask sets its bits to those of `state`. TVIS_EXPANDED and 1, collapsed, exclude each other. The tree does not
    /// show the bits, and no signal tells of them.
    BOOL SetItemState(HTREEITEM item, UINT state, UINT mask);
    /// With the mask 0xF000 the image of the box: 0x3000 checked, 0x2000 partly, 0x1000 not. Otherwise all the bits,
    /// whatever the mask, unlike by the published function.
    UINT GetItemState(HTREEITEM item, UINT mask) const;
    /// Whether the box is checked, 1 or 0; partly does not count.
    BOOL GetCheck(HTREEITEM item) const;
    /// Checks the box or, for 0, clears it.
    BOOL SetCheck(HTREEITEM item, BOOL check = TRUE);
    /// Whether items to come have a box. Those that are there stay as they are.
    int GetCheckBoxes() const { return hasCheckBoxes; }
    void SetCheckBoxes(int check) { hasCheckBoxes = check; }

    // ------------------------------------------------------------------------------------------------------- relations

    BOOL ItemHasChildren(HTREEITEM item) const;
    /// The first item; of an empty tree the QTreeWidget's invisible root, and not null as published.
    HTREEITEM GetRootItem() const;
    /// The current item, which is selected or not.
    HTREEITEM GetSelectedItem() const;
    HTREEITEM GetParentItem(HTREEITEM item) const;
    /// The first child; of null and TVI_ROOT the first item.
    HTREEITEM GetChildItem(HTREEITEM item) const;
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
    HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;
    /// GetNextSiblingItem() for a code with bit 0 (TVGN_NEXT, but TVGN_PARENT and TVGN_CARET as well, unlike in the
    /// published function); null for any other.
    HTREEITEM GetNextItem(HTREEITEM item, UINT code) const;
    /// The item at the top of the client area.
    HTREEITEM GetFirstVisibleItem() const;
    /// The item below, of those that are not below a collapsed one.
    HTREEITEM GetNextVisibleItem(HTREEITEM item) const;
    /// How many items have a place in the view, scrolled out of sight or not: unlike by the published function.
    UINT GetVisibleCount() const;
    UINT GetCount() const;
    /// The number of the current item, from 0, when all are counted from the top, children behind their parent; -1 for
    /// none, and without a widget.
    int GetSelectIndex() const;

    // -------------------------------------------------------------------------------------------------------- commands

    /// Scrolls the item into view. 1.
    BOOL EnsureVisible(HTREEITEM item);
    /// Makes the item the current one and sets its bit TVIS_SELECTED; the old one keeps its own. 1.
    BOOL SelectItem(HTREEITEM item);
    /// SelectItem() for TVGN_CARET; 0 for any other code.
    BOOL Select(HTREEITEM item, UINT code);
    /// Lets the item take drops; nothing is shown. 1.
    BOOL SelectDropTarget(HTREEITEM item);
    /// The item at a point, or null. `*flags` is TVHT_ONITEM in either case, unlike by the published function.
    HTREEITEM HitTest(CPoint point, UINT* flags = nullptr) const;
    /// Makes the item editable and starts editing, unless the tree is edited already. 1. The published function gives
    /// the edit control.
    BOOL EditLabel(HTREEITEM item);
    /// Collapses for TVE_COLLAPSE and expands for any other code, TVE_TOGGLE too, and sets the bit TVIS_EXPANDED either
    /// way. 1.
    BOOL Expand(HTREEITEM item, UINT code);
    /// The same for the item and all below it that have children.
    BOOL ExpandAllChild(HTREEITEM item, UINT code);
    /// Expands or collapses everything; the bits of all that have children follow.
    void ExpandAll();
    void CollapseAll();
    /// What the screen shows in the item's rectangle. The published function gives an image list.
    QPixmap CreateDragImage(HTREEITEM item) const;
    /// The item's rectangle, empty for an item that is not laid out; `textOnly` is ignored. 0 for null, otherwise 1.
    BOOL GetItemRect(HTREEITEM item, CRect* rect, BOOL textOnly) const;

    // -------------------------------------------------------------------------------------------------------- pictures

    /// Takes a copy of the list, and gives the old one; `type` is ignored. The pictures of items stay.
    CImageList_X SetImageList(const CImageList_X& list, int type);
    CImageList_X GetImageList(UINT type) const;
    /// Appends a picture, in a bitmap of the control's, to those that take the place of the image list's.
    void AppendItemImage(const QPixmap& picture);
    /// Empties the list of these pictures, and deletes those of AppendItemImage().
    void ClearItemImageList();

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    /// Makes a QTreeWidget with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    QT_WARNING_POP

    CImageList_X imageList;       ///< what SetImageList() has set
    QList<CBitmap_X*> itemImages; ///< pictures that are shown in place of the image list's; a host may put its own here
    int hasCheckBoxes = 0;        ///< what SetCheckBoxes() has set

private:
    QTreeWidget* treeWith(HTREEITEM item) const;
    int rowOf(const QTreeWidgetItem& level, HTREEITEM item) const;
    HTREEITEM sibling(HTREEITEM item, int distance) const;
    bool hasIcon(int image, int selectedImage) const;
    QTreeWidgetItem* newItem(const wchar_t* text, int image, int selectedImage);
    void setBitsOfAll(UINT set, UINT clear);
    void expandBelow(HTREEITEM item, UINT code);

    std::unique_ptr<xe::ItemIcons> m_icons;
    mutable int m_row = 0; // where the last item stood among its siblings: a walk goes on beside it
};
