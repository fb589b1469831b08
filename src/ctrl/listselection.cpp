// List controls: what is selected.

#include "ctrl/selectedrows.h"
#include "xelistctrl.h"

#include <QTableWidget>

namespace {

bool hasRow(const QTableWidget& table, int row) { return row >= 0 && row < table.rowCount(); }

// In a table where clicks add up, selecting a row that is selected would deselect it.
void selectRow(QTableWidget& table, int row)
{
    if (hasRow(table, row) && !table.selectionModel()->isRowSelected(row, {}))
        table.selectRow(row);
}

void selectCell(QTableWidget& table, int row, int column)
{
    const QModelIndex index = table.model()->index(row, column);
    if (index.isValid() && !table.selectionModel()->isSelected(index))
        table.setCurrentCell(row, column);
}

qintptr toNumber(POSITION position) { return reinterpret_cast<qintptr>(position); }

POSITION toPosition(qintptr number) { return reinterpret_cast<POSITION>(number); }

} // namespace

void CListCtrl_X::select(int row, int column)
{
    auto* const table = Imp<QTableWidget>();
    if (table->selectionBehavior() == QAbstractItemView::SelectRows)
        selectRow(*table, row);
    else
        selectCell(*table, row, column);
}

UINT CListCtrl_X::GetItemState(int row, UINT mask) const
{
    auto* const table = Imp<QTableWidget>();
    return table && mask == LVIS_SELECTED && m_selection->touches(*table, row) ? LVIS_SELECTED : 0;
}

BOOL CListCtrl_X::SetItemState(int row, UINT state, UINT mask)
{
    if (!Imp<QTableWidget>())
        return FALSE;
    if (state & mask & LVIS_SELECTED)
        select(row, 0);
    return TRUE;
}

UINT CListCtrl_X::GetSelectedCount() const
{
    auto* const table = Imp<QTableWidget>();
    return table ? static_cast<UINT>(m_selection->rows(*table).size()) : 0;
}

POSITION CListCtrl_X::GetFirstSelectedItemPosition() const { return toPosition(GetSelectedCount() > 0 ? 1 : 0); }

int CListCtrl_X::GetNextSelectedItem(POSITION& position) const
{
    const qintptr number = toNumber(position);
    position = nullptr;
    auto* const table = Imp<QTableWidget>();
    if (!table || number < 1)
        return 0;
    const QVector<int>& rows = m_selection->rows(*table);
    if (number > rows.size())
        return 0;
    if (number < rows.size())
        position = toPosition(number + 1);
    return rows[static_cast<int>(number - 1)];
}

int CListCtrl_X::GetNextItem(int start, UINT flags) const
{
    auto* const table = Imp<QTableWidget>();
    if (!table || flags != LVNI_SELECTED)
        return -1;
    const QVector<int>& rows = m_selection->rows(*table);
    return start < 0 ? rows.value(0, -1) : start < rows.size() ? rows.value(start + 1, -1) : -1;
}

int CListCtrl_X::GetSelectionMark() const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? table->currentRow() : -1;
}

int CListCtrl_X::SetSelectionMark(int row)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return -1;
    const int old = table->currentRow();
    selectRow(*table, row);
    return old;
}
