#include "ctrl/creation.h"
#include "geometry/rectangle.h"
#include "xeafxctrl.h"

#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

IMPLEMENT_DYNCREATE_X(CListBox_X, CWnd_X)

namespace {

QListWidgetItem* itemAt(const CListBox_X& box, int index)
{
    const auto* const list = box.Imp<QListWidget>();
    return list ? list->item(index) : nullptr;
}

bool selectsMany(const QListWidget* list)
{
    return list && list->selectionMode() != QAbstractItemView::SingleSelection;
}

// The first row from `start` on whose text fits.
int firstRow(const QListWidget* list, int start, const QString& text, Qt::MatchFlags flags)
{
    if (!list)
        return LB_ERR;
    const QList<QListWidgetItem*> hits = list->findItems(text, flags);
    for (const QListWidgetItem* hit : hits) {
        const int row = list->row(hit);
        if (row >= start)
            return row;
    }
    return LB_ERR;
}

} // namespace

int CListBox_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    const auto create = [&] { return CWnd_X::Create(style & ~(WS_HSCROLL | WS_VSCROLL), rect, parent); };
    return xe::createAndFinish<QListWidget>(*this, create, [style](QListWidget& list) {
        if (style & LBS_MULTIPLESEL)
            list.setSelectionMode(QAbstractItemView::MultiSelection);
    });
}

bool CListBox_X::AttachDefault(QWidget* parent) { return Attach(new QListWidget(parent), parent, false); }

// --------------------------------------------------------------------------------------------------------------- items

int CListBox_X::GetCount() const { return Imp<QListWidget>() ? Imp<QListWidget>()->count() : 0; }

int CListBox_X::AddString(const wchar_t* text) { return InsertString(-1, text); }

int CListBox_X::InsertString(int index, const wchar_t* text)
{
    auto* const list = Imp<QListWidget>();
    if (!list)
        return LB_ERR;
    const QSignalBlocker blocker(list);
    const int count = list->count();
    const int place = index < 0 || index > count ? count : index;
    list->insertItem(place, XeQString(text));
    return place;
}

int CListBox_X::DeleteString(UINT index)
{
    auto* const list = Imp<QListWidget>();
    QListWidgetItem* const item = itemAt(*this, static_cast<int>(index));
    if (!item)
        return LB_ERR;
    const QSignalBlocker blocker(list);
    list->setItemWidget(item, nullptr);
    delete item;
    return list->count();
}

void CListBox_X::ResetContent()
{
    if (auto* const list = Imp<QListWidget>()) {
        const QSignalBlocker blocker(list);
        list->clear();
    }
}

int CListBox_X::GetText(int index, CString_X& text) const
{
    const QListWidgetItem* const item = itemAt(*this, index);
    if (!item)
        return LB_ERR;
    text = item->text();
    return text.GetLength();
}

DWORD_PTR CListBox_X::GetItemData(int index) const
{
    const QListWidgetItem* const item = itemAt(*this, index);
    return static_cast<DWORD_PTR>(item ? item->data(Qt::UserRole).toLongLong() : LB_ERR);
}

int CListBox_X::GetItemRect(int index, tagRECT* rect) const
{
    const QListWidgetItem* const item = itemAt(*this, index);
    if (!item || !rect)
        return LB_ERR;
    *rect = xe::toRect(Imp<QListWidget>()->visualItemRect(item));
    return LB_OKAY;
}

int CListBox_X::ItemFromPoint(CPoint point, int&) const
{
    const auto* const list = Imp<QListWidget>();
    const QListWidgetItem* const item = list ? list->itemAt(point.x, point.y) : nullptr;
    return item ? list->row(item) : LB_ERR;
}

// ----------------------------------------------------------------------------------------------------------- selection

int CListBox_X::GetCurSel() const { return Imp<QListWidget>() ? Imp<QListWidget>()->currentRow() : LB_ERR; }

int CListBox_X::SetCurSel(int index)
{
    auto* const list = Imp<QListWidget>();
    if (!list)
        return LB_ERR;
    const QSignalBlocker blocker(list);
    list->setCurrentRow(index);
    return list->currentRow() == index ? index : LB_ERR;
}

int CListBox_X::GetSelCount() const
{
    const auto* const list = Imp<QListWidget>();
    return selectsMany(list) ? list->selectedItems().size() : LB_ERR;
}

int CListBox_X::GetSelItems(int max, int* rows) const
{
    const auto* const list = Imp<QListWidget>();
    if (!selectsMany(list))
        return LB_ERR;
    const QList<QListWidgetItem*> items = list->selectedItems();
    const int count = rows ? qBound(0, max, items.size()) : 0;
    std::transform(items.cbegin(), items.cbegin() + count, rows,
                   [list](const QListWidgetItem* item) { return list->row(item); });
    return count;
}

int CListBox_X::SelectString(int start, const wchar_t* text)
{
    const int found = firstRow(Imp<QListWidget>(), start, XeQString(text), Qt::MatchExactly);
    return found == LB_ERR ? LB_ERR : SetCurSel(found);
}

int CListBox_X::FindString(int start, const wchar_t* text) const
{
    return start == std::numeric_limits<int>::max()
               ? LB_ERR
               : firstRow(Imp<QListWidget>(), start + 1, XeQString(text), Qt::MatchStartsWith);
}
