/// @file xelistctrl.h
/// The list control: rows with columns.
#pragma once

#include "xeafximg.h"
#include "xeafxplex.h"
#include "xeafxwin.h"

#include <QPixmap>
#include <QTableWidget>

#include <memory>

class CHeaderCtrl_X;

namespace xe {
class ItemIcons;
class SelectedRows;
} // namespace xe

// ------------------------------------------------------------------------------------------------------------- numbers

// Styles: only report view exists, and the form or the host sets what can be selected.
inline constexpr DWORD LVS_ICON = 0x0;
inline constexpr DWORD LVS_REPORT = 0x1;
inline constexpr DWORD LVS_SMALLICON = 0x2;
inline constexpr DWORD LVS_LIST = 0x3;
inline constexpr DWORD LVS_SINGLESEL = 0x4;
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x8;
inline constexpr DWORD LVS_SORTASCENDING = 0x10;
inline constexpr DWORD LVS_SORTDESCENDING = 0x20;
inline constexpr DWORD LVS_EDITLABELS = 0x200;
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;

inline constexpr DWORD LVS_EX_GRIDLINES = 0x1;
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x4;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;

// What a mask names in records of items and columns.
inline constexpr UINT LVIF_TEXT = 0x1;
inline constexpr UINT LVIF_IMAGE = 0x2;
inline constexpr UINT LVIF_PARAM = 0x4; ///< the alignment
inline constexpr UINT LVIF_STATE = 0x8;
inline constexpr UINT LVCF_FMT = 0x1;
inline constexpr UINT LVCF_WIDTH = 0x2;
inline constexpr UINT LVCF_TEXT = 0x4;
inline constexpr UINT LVCF_SUBITEM = 0x8;

// Alignments of columns and items.
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;
inline constexpr int LVCFMT_CENTER = 2;

inline constexpr UINT LVIS_FOCUSED = 0x1;
inline constexpr UINT LVIS_SELECTED = 0x2;
inline constexpr UINT LVNI_ALL = 0x0;
inline constexpr UINT LVNI_FOCUSED = 0x1;
inline constexpr UINT LVNI_SELECTED = 0x2;
inline constexpr UINT LVFI_STRING = 0x2;

inline constexpr UINT LVHT_NOWHERE = 0x1;
inline constexpr UINT LVHT_ONITEMICON = 0x2;
inline constexpr UINT LVHT_ONITEMLABEL = 0x4;
inline constexpr UINT LVHT_ONITEMSTATEICON = 0x8;
inline constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;

// Parts of an item and kinds of image lists: the control makes no difference between them.
inline constexpr UINT LVIR_BOUNDS = 0;
inline constexpr UINT LVIR_ICON = 1;
inline constexpr UINT LVIR_LABEL = 2;
inline constexpr int LVSIL_NORMAL = 0;
inline constexpr int LVSIL_SMALL = 1;
inline constexpr int LVSIL_STATE = 2;

// ------------------------------------------------------------------------------------------------------------- records

/// An item, as most functions take it.
struct tagQLVITEMW
{
    UINT mask;    ///< LVIF_ flags: which fields count
    int iItem;    ///< the row
    int iSubItem; ///< the column
    UINT state;
    UINT stateMask;
    wchar_t* pszText;
    int iImage;
    LPARAM lParam; ///< an LVCFMT_ number, and not the item data as published
};

/// A column, for InsertColumn().
struct tagQLVCOLUMNW
{
    UINT mask; ///< LVCF_ flags
    int fmt;   ///< an LVCFMT_ number
    int cx;    ///< in pixels
    wchar_t* pszText;
    int cchTextMax;
    int iSubItem;
};

/// The published item, for CListCtrl_X::GetItem() alone.
struct tagLVITEMW
{
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
    int iGroupId;
    UINT cColumns;
    UINT* puColumns;
    int* piColFmt;
    int iGroup;
};

/// The published column, for CListCtrl_X::GetColumn() and SetColumn().
struct tagLVCOLUMNW
{
    UINT mask;
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
    int cxMin;
    int cxDefault;
    int cxIdeal;
};

struct tagLVHITTESTINFO
{
    POINT pt; ///< in the client area, the viewport
    UINT flags;
    int iItem;
    int iSubItem;
    int iGroup;
};

struct tagLVFINDINFOW
{
    UINT flags; ///< LVFI_STRING
    LPCWSTR psz;
    LPARAM lParam;
    POINT pt;
    UINT vkDirection;
};

using LVITEM = tagLVITEMW;
using LVITEMW = tagLVITEMW;
using LPLVITEM = tagLVITEMW*;
using QLVITEM = tagQLVITEMW;
using LVCOLUMN = tagLVCOLUMNW;
using LVCOLUMNW = tagLVCOLUMNW;
using LPLVCOLUMN = tagLVCOLUMNW*;
using QLVCOLUMN = tagQLVCOLUMNW;
using LVHITTESTINFO = tagLVHITTESTINFO;
using LPLVHITTESTINFO = tagLVHITTESTINFO*;
using LVFINDINFO = tagLVFINDINFOW;
using LPLVFINDINFO = tagLVFINDINFOW*;
using PFNLVCOMPARE = int(CALLBACK*)(LPARAM first, LPARAM second, LPARAM data);

// ------------------------------------------------------------------------------------------------------------ the list

/// A list in report view: the wrapper of a QTableWidget. A row of the table is a list item, a column a sub-item.
///
///     CListCtrl_X list;
///     list.Create(WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 200), parent);
///     list.InsertColumn(0, L"Name", LVCFMT_LEFT, 120);
///     list.InsertColumn(1, L"Stock", LVCFMT_RIGHT, 60);
///     const int row = list.InsertItem(0, L"Bolt");
///     list.SetItemText(row, 1, L"250");
///     list.SetItemData(row, 17);
///
/// It sends no notification: connect to the signals of the QTableWidget, or handle the messages of mouse and keys. What
/// can be selected and when a label is edited, the form or the host sets on the table.
///
/// Rows and columns count from 0. What an item shows is in the roles of its QTableWidgetItem: the data of SetItemData()
/// in Qt::UserRole + 1 of column 0, the image index in Qt::UserRole + 2. Points and rectangles are pixels of the client
/// area, which is the viewport: it begins below the header.
///
/// A picture is named by its index in the image list. It is the one that AppendItemImage() has put there, else the
/// list's own bitmap; an index beyond the image list is no picture. Null texts count as empty, null records give the
/// value for failure. A function without a widget gives 0 unless its contract says otherwise.
///
/// Qt's own timers of a table come as WM_TIMER too: an OnTimer() ends in its base handler.
class XE_EXPORT CListCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CListCtrl_X)
    DECLARE_IMP_CLASS_X(QTableWidget)

    CListCtrl_X();
    /// Deletes the pictures of AppendItemImage(). Items go on showing theirs.
    ~CListCtrl_X() override;

    /// As CWnd_X::Create(), without WS_VSCROLL and WS_HSCROLL: the table has scroll bars of its own. `id` is ignored.
    int Create(DWORD style, xe::detail::ParentWindow parent);
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent);
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    // --------------------------------------------------------------------------------------------------------- columns

    /// Makes the header of a column. A column beyond the count adds all up to it; one inside *replaces that header* and
    /// moves nothing, unlike by the published function. `width` is in pixels, -1 leaves it; `subItem` is ignored. Gives
    /// `column`; -1 if it is negative, and without a widget.
    int InsertColumn(int column, const wchar_t* heading, int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    /// The same with the fields that the mask names; the others are as the defaults above, and the heading empty. -1
    /// for null.
    int InsertColumn(int column, const tagQLVCOLUMNW* record);
    /// Takes a column out, without a signal. 0 for one that is not there, otherwise 1.
    BOOL DeleteColumn(int column);
    /// Sets the width, for a mask that is exactly LVCF_WIDTH, or the heading, for exactly LVCF_TEXT, and gives 1. Any
    /// other mask, and a column that is not there, give 0.
    BOOL SetColumn(int column, const tagLVCOLUMNW* record);
    /// Writes one of the two, by the same masks. Of the heading min(its length, `cchTextMax`) - 1 elements are written,
    /// without a terminator: one fewer than fit, unlike by the published function. 0 also without a heading item.
    BOOL GetColumn(int column, tagLVCOLUMNW* record) const;
    /// In pixels; -1 without a widget.
    int GetColumnWidth(int column) const;
    /// In pixels: the published special widths mean nothing here. 1.
    BOOL SetColumnWidth(int column, int width);
    /// The wrapper of the horizontal header, made by FromHandle(); null if the host has wrapped it in another class,
    /// and without a widget.
    CHeaderCtrl_X* GetHeaderCtrl() const;

    // ----------------------------------------------------------------------------------------------------------- items

    /// Inserts a row with a text in column 0, with an unchecked box if boxes were ever switched on. Gives `row`, also
    /// for one that the table does not take; -1 without a widget.
    int InsertItem(int row, const wchar_t* text);
    /// Inserts a row at `iItem` and makes its item in column `iSubItem`, which is added if need be, of the text and the
    /// picture that the mask names. A row beyond the end adds all up to it, and 0x7FFFFFFF one at the end. Gives the
    /// row; -1 for a negative row or column, for null, and without a widget.
    int InsertItem(tagQLVITEMW* item);
    /// Puts a *new* item in the place of the old one, whose text, data, picture and check box are gone unless the mask
    /// names them: unlike the published function it does not change the item that is there. `param` is the alignment.
    /// A state that selects (LVIS_SELECTED in `state` and `stateMask`) is as by SetItemState(). 1.
    BOOL SetItem(int row, int column, UINT mask, const wchar_t* text, int image, UINT state, UINT stateMask,
                 LPARAM param);
    BOOL SetItem(const tagQLVITEMW* item);
    /// Fills the fields that the mask names; the state only where `stateMask` has LVIS_SELECTED. The text is the
    /// control's and lives until the next call: unlike by the published function it is not copied. 0 without the item,
    /// otherwise 1.
    BOOL GetItem(tagQLVITEMW* item) const;
    /// For a mask that is exactly LVIF_TEXT writes the text, without a terminator, and its length into `cchTextMax`; at
    /// most as many elements as that said, if it was above 0. Any other mask writes nothing, unlike by the published
    /// function. 0 without the item, otherwise 1.
    BOOL GetItem(tagLVITEMW* item) const;
    /// The text; empty without the item.
    CString_X GetItemText(int row, int column) const;
    /// Sets the text, of an item that is made if need be. 1, also for a cell that is not there.
    BOOL SetItemText(int row, int column, const wchar_t* text);
    /// The number that goes with a row, kept by the item in column 0. 0 without the item.
    ULONGLONG GetItemData(int row) const;
    BOOL SetItemData(int row, ULONGLONG data);
    /// Takes a row out, without a signal. 1, also for a row that is not there.
    BOOL DeleteItem(int row);
    /// Takes all rows out, without a signal; the columns stay. 1.
    BOOL DeleteAllItems();
    /// The number of rows; -1 without a widget.
    int GetItemCount() const;
    /// Starts editing in column 0, unless the list is edited already or the item cannot be. 0 without the item,
    /// otherwise 1. The published function gives the edit control.
    BOOL EditLabel(int row);
    /// Repaints the rows from `first` up to, *not* including, `last`, unlike the published function, at once. 1.
    BOOL RedrawItems(int first, int last);
    /// Scrolls the row into view; `partial` is ignored. 1.
    BOOL EnsureVisible(int row, BOOL partial);
    /// The rectangle of the item in column 0, whatever `code` says. 0 without the item and for null, otherwise 1.
    BOOL GetItemRect(int row, CRect* rect, UINT code) const;
    /// The same for any column.
    BOOL GetSubItemRect(int row, int column, int code, CRect& rect) const;
    /// What the screen shows in the rectangle of the item in column 0. `at` is ignored. A null picture without the
    /// item. The published function gives an image list.
    QPixmap CreateDragImage(int row, tagPOINT* at) const;
    /// Sorts by the texts of column 0: unlike the published function it asks `compare` only once, with (1, 0, 0), for
    /// the direction: descending for a result below 1, otherwise ascending, as for null. A function that takes the
    /// numbers for pointers has to look for null. `data` is ignored. 1.
    BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR data);
    BOOL SortItemsEx(PFNLVCOMPARE compare, DWORD_PTR data) { return SortItems(compare, data); }
    /// Compares one row, the one *above* the item at the record's point, with its text, case-sensitively: unlike the
    /// published function it does not search. The row if it is equal and not below `start`; -1 otherwise, and for flags
    /// without LVFI_STRING.
    int FindItem(tagLVFINDINFOW* info, int start = -1) const;

    // ------------------------------------------------------------------------------------- state, selection, check box

    /// LVIS_SELECTED if anything in the row is selected and the mask is exactly that; otherwise 0.
    UINT GetItemState(int row, UINT mask) const;
    /// Selects the row, in a table that selects rows, or else the item in column 0, if `state` and `mask` have
    /// LVIS_SELECTED both. Nothing else: unlike the published function it cannot deselect, and leaves a row alone that
    /// is selected. 1.
    BOOL SetItemState(int row, UINT state, UINT mask);
    /// The number of rows that are selected in all columns.
    UINT GetSelectedCount() const;
    /// Where GetNextSelectedItem() begins: the number 1, since a position counts the selected rows from 1; null without
    /// one.
    POSITION GetFirstSelectedItemPosition() const;
    /// The selected row at the position, which moves on, to null behind the last. The order is that of selecting. 0,
    /// with null in `position`, for a position that is not there.
    int GetNextSelectedItem(POSITION& position) const;
    /// For flags of exactly LVNI_SELECTED the selected row number `start` + 1, number 0 for a negative `start`: unlike
    /// by the published function `start` counts selected rows and not rows. -1 if there are not so many, for other
    /// flags, and without a widget.
    int GetNextItem(int start, UINT flags) const;
    /// The current row; -1 for none, and without a widget.
    int GetSelectionMark() const;
    /// Selects a row unless it is selected. Gives the row that was the current one before; -1 without a widget.
    int SetSelectionMark(int row);
    /// The value of the vertical scroll bar, which is the first row seen if the table scrolls by items.
    int GetTopIndex() const;
    /// How many rows of the height of the first fit into what is seen of the table, its header included. 0 without a
    /// row.
    int GetCountPerPage() const;
    /// Whether the box of a row is checked, 1 or 0.
    BOOL GetCheck(int row) const;
    /// Checks the box or, for 0, clears it. 1, also without the item.
    BOOL SetCheck(int row, BOOL check = TRUE);
    /// The row at a point; -1 where there is no item, and without a widget. `flags` is not written, unlike by the
    /// published function.
    int HitTest(CPoint point, UINT* flags = nullptr) const;
    /// The item at the record's point, into the record, with LVHT_ONITEM in `flags`. The row is the result; -1 where
    /// there is no item, for null, and without a widget.
    int SubItemHitTest(tagLVHITTESTINFO* info) const;

    // ---------------------------------------------------------------------------------------- extended style, pictures

    /// LVS_EX_CHECKBOXES gives each row a box, unchecked, and rows to come too; any other style takes the boxes away,
    /// but not from rows to come. No other flag has a meaning. 1, unlike the published function, which gives the old
    /// style; 0xFFFFFFFF without a widget.
    DWORD SetExtendedStyle(DWORD style);
    /// LVS_EX_GRIDLINES and LVS_EX_FULLROWSELECT, as the table is set; never LVS_EX_CHECKBOXES.
    DWORD GetExtendedStyle() const;
    /// The colour of the table's ground.
    COLORREF GetBkColor() const;
    /// Takes a copy of the list, and gives the old one; `type` is ignored. The pictures of rows stay.
    CImageList_X SetImageList(const CImageList_X& list, int type);
    /// A copy of the list, or the list itself; `type` is ignored.
    CImageList_X GetImageList(UINT type) const;
    CImageList_X* GetImageList(UINT type);
    /// Appends a picture, in a bitmap of the control's, to those that take the place of the image list's.
    void AppendItemImage(const QPixmap& picture);
    /// Empties the list of these pictures, and deletes those of AppendItemImage().
    void ClearItemImageList();

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    /// Makes a QTableWidget with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    QT_WARNING_POP

    CImageList_X imageList;       ///< what SetImageList() has set
    QList<CBitmap_X*> itemImages; ///< pictures that are shown in place of the image list's; a host may put its own here
    int hasCheckBoxes = 0;        ///< set by SetExtendedStyle(), never cleared

private:
    QTableWidgetItem* item(int row, int column) const;
    std::unique_ptr<QTableWidgetItem> newItem(UINT mask, const wchar_t* text, int image);
    void select(int row, int column);

    std::unique_ptr<xe::ItemIcons> m_icons;
    std::unique_ptr<xe::SelectedRows> m_selection;
    mutable CString_X m_itemText; // what GetItem() has given
};
