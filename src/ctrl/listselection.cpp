// List controls: what is selected.

#include "ctrl/selectedrows.h"
#include "xelistctrl.h"

#include <QHeaderView>
#include <QTableWidget>

namespace {

bool hasRow(const QTableWidget& table, int row) { return row >= 0 && row < table.rowCount(); }

bool canBeSelected(const QTableWidget& table, int row)
{
    const QAbstractItemModel& model = *table.model();
    for (int column = 0; column < model.columnCount(); ++column) {
        if (model.flags(model.index(row, column)) & Qt::ItemIsSelectable)
            return true;
    }
    return false;
}

// The first row of the range that was selected last, if that is one of whole rows and ends above this one; else the row
// itself.
int startOfRange(const QTableWidget& table, int row)
{
    const QItemSelectionModel& model = *table.selectionModel();
    const QItemSelection selection = model.selection();
    if (selection.isEmpty() || selection.last().bottom() != row - 1)
        return row;
    const QItemSelectionRange& last = selection.last();
    const bool isOneWithRow = last.width() == table.columnCount() && canBeSelected(table, row);
    return isOneWithRow && model.isRowSelected(row - 1, {}) ? last.top() : row;
}

// What QTableView::selectRow() does where clicks add up. That looks through the rows of all ranges, and makes a range
// of each row: a loop over 1,000 rows took half a minute. The rows of a loop are one range here.
void addRow(QTableWidget& table, int row)
{
    const QAbstractItemModel& model = *table.model();
    const int firstColumn =
        table.horizontalHeader()->logicalIndexAt(table.isRightToLeft() ? table.viewport()->width() : 0);
    QItemSelectionModel& selection = *table.selectionModel();
    selection.setCurrentIndex(model.index(row, firstColumn), QItemSelectionModel::NoUpdate);
    const QItemSelection rows(model.index(startOfRange(table, row), 0), model.index(row, model.columnCount() - 1));
    selection.select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

bool addsRows(const QTableWidget& table)
{
    return table.selectionMode() == QAbstractItemView::MultiSelection
           && table.selectionBehavior() == QAbstractItemView::SelectRows && table.columnCount() > 0;
}

// In a table where clicks add up, selecting a row that is selected would deselect it.
void selectRow(QTableWidget& table, int row)
{
    if (!hasRow(table, row) || table.selectionModel()->isRowSelected(row, {}))
        return;
    if (addsRows(table))
        addRow(table, row);
    else
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
