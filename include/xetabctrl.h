/// @file xetabctrl.h
/// The tab control. GUI thread only.
#pragma once

#include "xeafxstr.h"
#include "xeafxwin.h"

#include <QTabWidget>

inline constexpr UINT TCIF_TEXT = 1;
inline constexpr UINT TCIF_IMAGE = 2;
inline constexpr UINT TCIF_PARAM = 8;

/// A tab. Only the text is read and written, whatever `mask` says.
struct tagQTCITEM
{
    UINT mask;
    CString_X pszText;
    int iImage;
    LPARAM lParam;
};

using TCITEM = tagQTCITEM;

/// A QTabWidget. Unlike the published control it holds the pages too, one widget a tab, and shows that of the current
/// tab: put the controls of a page on `Imp<QTabWidget>()->widget(index)`.
///
/// No TCN_ notification is sent: connect to QTabWidget::currentChanged(). Without a widget the members do nothing and
/// give 0, or what they say.
class XE_EXPORT CTabCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CTabCtrl_X)
    DECLARE_IMP_CLASS_X(QTabWidget)

    CTabCtrl_X() : CWnd_X(Control()) {}

    /// Adds a tab with an empty page ahead of the tab `index`; at the end for an index that no tab has. 1, unlike the
    /// published function, which gives the index.
    int InsertItem(int index, const wchar_t* text);
    /// Removes a tab, or all. A page that InsertItem() made is deleted with it, others stay their owners'. 1, also for
    /// an index without a tab.
    BOOL DeleteItem(int index);
    BOOL DeleteAllItems();

    /// Fills in the text, an empty one for an index without a tab. 1; 0 for null.
    BOOL GetItem(int index, tagQTCITEM* item) const;
    /// Sets the text. Unlike with the published function its characters beyond ASCII come out as one character for each
    /// byte of their UTF-8; QTabWidget::setTabText() takes any. 1; 0 for null.
    BOOL SetItem(int index, const tagQTCITEM* item);

    /// The current tab, -1 for none and without a widget.
    int GetCurSel() const;
    /// Makes a tab the current one, and gives its index; -1 for an index without a tab. The widget tells of it by its
    /// signal.
    int SetCurSel(int index);
    void SetCurFocus(int index);
    /// -1 without a widget.
    int GetItemCount() const;

    /// The place of the tab's page in the control, and not that of the tab, unlike from the published function. 1; 0
    /// for null and an index without a tab.
    BOOL GetItemRect(int index, tagRECT* rect) const;

    bool AttachDefault(QWidget* parent) override;
};
