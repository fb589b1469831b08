/// @file xeheaderctrl.h
/// The header control.
#pragma once

#include "xeafximg.h"
#include "xeafxwin.h"

#include <QHeaderView>

// ------------------------------------------------------------------------------------------------- numbers and records

inline constexpr UINT HDI_WIDTH = 0x1;
inline constexpr UINT HDI_TEXT = 0x2;
inline constexpr UINT HDI_FORMAT = 0x4;

struct _HD_ITEMW
{
    UINT mask;
    int cxy;
    LPWSTR pszText; ///< the only field that the header knows
    HBITMAP hbm;
    int cchTextMax;
    int fmt;
    LPARAM lParam;
    int iImage;
    int iOrder;
    UINT type;
    void* pvFilter;
    UINT state;
};

struct _HD_HITTESTINFO
{
    POINT pt;
    UINT flags;
    int iItem;
};

struct _HD_LAYOUT
{
    RECT* prc;
    WINDOWPOS* pwpos;
};

using HDITEM = _HD_ITEMW;
using LPHDITEM = _HD_ITEMW*;
using HDHITTESTINFO = _HD_HITTESTINFO;
using LPHDHITTESTINFO = _HD_HITTESTINFO*;
using HDLAYOUT = _HD_LAYOUT;
using LPHDLAYOUT = _HD_LAYOUT*;

// ---------------------------------------------------------------------------------------------------------- the header

/// The header of a table or tree: the wrapper of a QHeaderView. Its items are the sections of the view's model.
///
///     CHeaderCtrl_X* const header = list.GetHeaderCtrl();
///     wchar_t heading[] = L"Price in €";
///     _HD_ITEMW item{};
///     item.pszText = heading;
///     header->SetItem(2, &item); // column 2 has another heading
///
/// It sends no notification: connect to the signals of the QHeaderView. A header that is created has no model and no
/// section. Columns come and go with the model, by the functions of list and tree. Null records give the value for
/// failure, and so does a section that is not there; a function without a widget gives 0 unless its contract says
/// otherwise.
class XE_EXPORT CHeaderCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CHeaderCtrl_X)
    DECLARE_IMP_CLASS_X(QHeaderView)

    CHeaderCtrl_X();

    using CWnd_X::Create;
    /// As CWnd_X::Create(), without WS_VSCROLL and WS_HSCROLL. `id` is ignored.
    virtual int Create(DWORD style, const tagRECT& rect, QWidget* parent, UINT id);
    /// The same. The extended style is stored as a part of the style.
    virtual int CreateEx(DWORD exStyle, DWORD style, const tagRECT& rect, QWidget* parent, UINT id);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const tagRECT& rect, const Window* parent, UINT id)
    {
        return Create(style, rect, parent ? parent->GetSafeHwnd() : nullptr, id);
    }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int CreateEx(DWORD exStyle, DWORD style, const tagRECT& rect, const Window* parent, UINT id)
    {
        return CreateEx(exStyle, style, rect, parent ? parent->GetSafeHwnd() : nullptr, id);
    }

    /// The number of sections; -1 without a widget.
    int GetItemCount() const;
    /// Writes the section's text with its terminator to `pszText`, as long as it is: `cchTextMax` is not looked at,
    /// unlike by the published function, and the caller sees to the room. No other field. 1.
    BOOL GetItem(int index, _HD_ITEMW* item) const;
    /// Gives a section the text. 0 without a model, or if the model refuses.
    BOOL SetItem(int index, _HD_ITEMW* item);
    /// The same: it adds no section, unlike the published function. 1 or 0; -1 without a widget or model.
    int InsertItem(int index, _HD_ITEMW* item);
    /// Takes the section's column out of the model. 1.
    BOOL DeleteItem(int index);
    /// Writes where the section begins and ends, in the viewport, to `left` and `top`, and to `right` and `bottom` the
    /// header's y and one more than its lower edge: unlike in the published function the numbers change places. 1.
    BOOL GetItemRect(int index, tagRECT* rect) const;
    /// The section of the sort mark: the argument is ignored, unlike by the published function.
    int OrderToIndex(int order) const;
    /// Writes the sort mark: 1 (descending) or 0 (ascending) to the entry of its section, -1 to all others. Unlike the
    /// published function it tells no order of columns. 1; 0 without a model too.
    BOOL GetOrderArray(int* order, int count) const;
    /// Shows the sort mark, ascending, in the section that the last entry names, and in those of the others before. 1.
    BOOL SetOrderArray(int count, int* order);
    /// The section at the record's `x`, into `iItem`, which is the result. -1 for none, and for the last one, unlike
    /// the published function; also for null and without a widget.
    int HitTest(_HD_HITTESTINFO* info) const;
    /// The column of the current item of table and header; -1 for none, and without a widget.
    int GetFocusedItem() const;
    /// Makes the item in row 0 of a column the current one. 1.
    BOOL SetFocusedItem(int index);
    /// The margin that the style leaves beside a text, in pixels of the screen's density.
    int GetBitmapMargin() const;

    // ----------------------------------------------------------------------------------------------- without effect

    /// 1, with nothing written.
    BOOL GetItemDropDownRect(int index, tagRECT* rect) const;
    BOOL GetOverflowRect(tagRECT* rect) const;
    /// 0 or null.
    CImageList_X* GetImageList() const;
    CImageList_X* SetImageList(CImageList_X* list);
    BOOL Layout(_HD_LAYOUT* layout);
    CImageList_X* CreateDragImage(int index);
    /// -1.
    int SetBitmapMargin(int width);
    int SetHotDivider(CPoint point);
    int SetHotDivider(int index);
    int SetFilterChangeTimeout(DWORD milliseconds);
    int EditFilter(int column, BOOL discardChanges);
    int ClearFilter(int column);
    int ClearAllFilters();

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    /// Makes a horizontal QHeaderView with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    QT_WARNING_POP
    /// Never called by the library. 1.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    CImageList_X imageList; ///< the host's: nothing uses it
};
