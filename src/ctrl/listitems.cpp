// List controls: their items.

#include "ctrl/dragimage.h"
#include "ctrl/itemicons.h"
#include "ctrl/labelediting.h"
#include "ctrl/listformat.h"
#include "geometry/rectangle.h"
#include "text/widetext.h"
#include "xelistctrl.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>
#include <climits>

namespace {

constexpr int appended = INT_MAX; // as a row: behind the last

// The text of a record. A list that asked for its texts had a pointer of -1.
QString textOf(const wchar_t* text)
{
    return text == reinterpret_cast<const wchar_t*>(static_cast<qintptr>(-1)) ? QString() : XeQString(text);
}

bool hasCell(const QTableWidget& table, int row, int column)
{
    return row >= 0 && row < table.rowCount() && column >= 0 && column < table.columnCount();
}

// A table deletes no item that it does not take.
void place(QTableWidget& table, int row, int column, std::unique_ptr<QTableWidgetItem> item)
{
    if (hasCell(table, row, column))
        table.setItem(row, column, item.release());
}

BOOL tellRect(const QTableWidget* table, int row, int column, tagRECT* rect)
{
    const QTableWidgetItem* const item = table && rect ? table->item(row, column) : nullptr;
    if (!item)
        return FALSE;
    *rect = xe::toRect(table->visualItemRect(item));
    return TRUE;
}

} // namespace

// --------------------------------------------------------------------------------------------------- making and ending

int CListCtrl_X::InsertItem(int row, const wchar_t* text)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return -1;
    auto item = std::make_unique<QTableWidgetItem>(XeQString(text));
    if (hasCheckBoxes)
        item->setData(Qt::CheckStateRole, xe::checkState(FALSE));
    table->insertRow(row);
    place(*table, row, 0, std::move(item));
    return row;
}

int CListCtrl_X::InsertItem(tagQLVITEMW* record)
{
    auto* const table = Imp<QTableWidget>();
    if (!table || !record || record->iItem < 0 || record->iSubItem < 0 || record->iSubItem == INT_MAX)
        return -1;
    const int row = record->iItem == appended ? table->rowCount() : record->iItem;
    if (row >= table->rowCount())
        table->setRowCount(row + 1);
    else
        table->insertRow(row);
    if (record->iSubItem >= table->columnCount())
        table->setColumnCount(record->iSubItem + 1);
    auto item = newItem(record->mask, record->pszText, record->iImage);
    if (hasCheckBoxes && record->iSubItem == 0)
        item->setData(Qt::CheckStateRole, xe::checkState(FALSE));
    place(*table, row, record->iSubItem, std::move(item));
    return row;
}

std::unique_ptr<QTableWidgetItem> CListCtrl_X::newItem(UINT mask, const wchar_t* text, int image)
{
    auto item =
        mask & LVIF_TEXT ? std::make_unique<QTableWidgetItem>(textOf(text)) : std::make_unique<QTableWidgetItem>();
    if (mask & LVIF_IMAGE && xe::ItemIcons::hasImage(imageList, image)) {
        item->setIcon(m_icons->icon(imageList, itemImages, image));
        item->setData(xe::imageRole, image);
    }
    return item;
}

BOOL CListCtrl_X::SetItem(int row, int column, UINT mask, const wchar_t* text, int image, UINT state, UINT stateMask,
                          LPARAM param)
{
    const QPointer<QTableWidget> table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    auto item = newItem(mask, text, image);
    if (mask & LVIF_PARAM)
        item->setTextAlignment(xe::toAlignment(param));
    if (mask & LVIF_STATE && state & stateMask & LVIS_SELECTED)
        select(row, column);
    if (table) // a slot of the selection may have ended it
        place(*table, row, column, std::move(item));
    return TRUE;
}

BOOL CListCtrl_X::SetItem(const tagQLVITEMW* item)
{
    return item ? SetItem(item->iItem, item->iSubItem, item->mask, item->pszText, item->iImage, item->state,
                          item->stateMask, item->lParam)
                : FALSE;
}

BOOL CListCtrl_X::DeleteItem(int row)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    const QSignalBlocker blocker(table);
    table->removeRow(row);
    return TRUE;
}

BOOL CListCtrl_X::DeleteAllItems()
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    const QSignalBlocker blocker(table);
    table->setRowCount(0);
    return TRUE;
}

int CListCtrl_X::GetItemCount() const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? table->rowCount() : -1;
}

// --------------------------------------------------------------------------------------------------- what an item has

QTableWidgetItem* CListCtrl_X::item(int row, int column) const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? table->item(row, column) : nullptr;
}

BOOL CListCtrl_X::GetItem(tagQLVITEMW* record) const
{
    const QTableWidgetItem* const found = record ? item(record->iItem, record->iSubItem) : nullptr;
    if (!found)
        return FALSE;
    if (record->mask & LVIF_TEXT) {
        m_itemText = found->text();
        record->pszText = const_cast<wchar_t*>(m_itemText.GetString());
    }
    if (record->mask & LVIF_IMAGE)
        record->iImage = found->data(xe::imageRole).toInt();
    if (record->mask & LVIF_STATE && record->stateMask & LVIS_SELECTED)
        record->state = found->isSelected() ? LVIS_SELECTED : 0;
    if (record->mask & LVIF_PARAM)
        record->lParam = xe::toFormat(found->textAlignment());
    return TRUE;
}

BOOL CListCtrl_X::GetItem(tagLVITEMW* record) const
{
    const QTableWidgetItem* const found = record ? item(record->iItem, record->iSubItem) : nullptr;
    if (!found)
        return FALSE;
    if (record->mask == LVIF_TEXT) {
        const long long capacity = record->cchTextMax > 0 ? record->cchTextMax : INT_MAX;
        record->cchTextMax = xe::writeWide(found->text(), record->pszText, capacity);
    }
    return TRUE;
}

CString_X CListCtrl_X::GetItemText(int row, int column) const
{
    const QTableWidgetItem* const found = item(row, column);
    return found ? CString_X(found->text()) : CString_X();
}

BOOL CListCtrl_X::SetItemText(int row, int column, const wchar_t* text)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    if (QTableWidgetItem* const found = table->item(row, column))
        found->setText(textOf(text));
    else
        place(*table, row, column, std::make_unique<QTableWidgetItem>(textOf(text)));
    return TRUE;
}

ULONGLONG CListCtrl_X::GetItemData(int row) const
{
    const QTableWidgetItem* const found = item(row, 0);
    return found ? found->data(xe::itemDataRole).toULongLong() : 0;
}

BOOL CListCtrl_X::SetItemData(int row, ULONGLONG data)
{
    QTableWidgetItem* const found = item(row, 0);
    if (!found)
        return FALSE;
    found->setData(xe::itemDataRole, data);
    return TRUE;
}

BOOL CListCtrl_X::GetCheck(int row) const
{
    const QTableWidgetItem* const found = item(row, 0);
    return found && found->data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

BOOL CListCtrl_X::SetCheck(int row, BOOL check)
{
    if (QTableWidgetItem* const found = item(row, 0))
        found->setData(Qt::CheckStateRole, xe::checkState(check));
    return Imp<QTableWidget>() != nullptr;
}

// --------------------------------------------------------------------------------------------------- sorting, finding

BOOL CListCtrl_X::SortItems(PFNLVCOMPARE compare, DWORD_PTR)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    const bool isDescending = compare && compare(1, 0, 0) < 1;
    table->sortItems(0, isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
    return TRUE;
}

int CListCtrl_X::FindItem(tagLVFINDINFOW* info, int start) const
{
    const auto* const table = Imp<QTableWidget>();
    if (!table || !info || !(info->flags & LVFI_STRING) || !info->psz)
        return -1;
    const QTableWidgetItem* const below = table->itemAt(xe::toQPoint(info->pt));
    const int row = below ? below->row() - 1 : -1;
    const QTableWidgetItem* const found = table->item(row, 0);
    return found && found->text() == XeQString(info->psz) && row >= std::max(start, 0) ? row : -1;
}

int CListCtrl_X::HitTest(CPoint point, UINT*) const
{
    const auto* const table = Imp<QTableWidget>();
    const QTableWidgetItem* const found = table ? table->itemAt(xe::toQPoint(point)) : nullptr;
    return found ? found->row() : -1;
}

int CListCtrl_X::SubItemHitTest(tagLVHITTESTINFO* info) const
{
    const auto* const table = Imp<QTableWidget>();
    const QTableWidgetItem* const found = table && info ? table->itemAt(xe::toQPoint(info->pt)) : nullptr;
    if (!found)
        return -1;
    info->flags = LVHT_ONITEM;
    info->iItem = found->row();
    info->iSubItem = found->column();
    return info->iItem;
}

// ---------------------------------------------------------------------------------------------------------- the screen

BOOL CListCtrl_X::EditLabel(int row)
{
    QTableWidgetItem* const found = item(row, 0);
    if (!found)
        return FALSE;
    QTableWidget* const table = found->tableWidget();
    if (xe::canEdit(*table, table->model()->index(row, 0)))
        table->editItem(found);
    return TRUE;
}

BOOL CListCtrl_X::RedrawItems(int first, int last)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    QWidget* const viewport = table->viewport();
    QRect rows;
    for (int row = std::max(first, 0); row < std::min(last, table->rowCount()); ++row)
        rows |= QRect(0, table->rowViewportPosition(row), viewport->width(), table->rowHeight(row));
    if (!rows.isEmpty())
        viewport->repaint(rows);
    return TRUE;
}

BOOL CListCtrl_X::EnsureVisible(int row, BOOL)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    table->scrollTo(table->model()->index(row, 0));
    return TRUE;
}

BOOL CListCtrl_X::GetItemRect(int row, CRect* rect, UINT) const { return tellRect(Imp<QTableWidget>(), row, 0, rect); }

BOOL CListCtrl_X::GetSubItemRect(int row, int column, int, CRect& rect) const
{
    return tellRect(Imp<QTableWidget>(), row, column, &rect);
}

QPixmap CListCtrl_X::CreateDragImage(int row, tagPOINT*) const
{
    const auto* const table = Imp<QTableWidget>();
    const QTableWidgetItem* const found = item(row, 0);
    return found ? xe::pictureOnScreen(*table, table->visualItemRect(found)) : QPixmap();
}

int CListCtrl_X::GetTopIndex() const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? table->verticalScrollBar()->value() : 0;
}

int CListCtrl_X::GetCountPerPage() const
{
    const auto* const table = Imp<QTableWidget>();
    const int height = table ? table->rowHeight(0) : 0;
    return height < 1 ? 0 : table->visibleRegion().boundingRect().height() / height;
}
