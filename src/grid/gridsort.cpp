// Sorting.

#include "XeGridCtrl.h"
#include "grid/gridsorting.h"
#include "grid/gridstate.h"

#include <QPointer>

int CGridCtrl_X::SortTextItems(int column, int ascending)
{
    if (column < 0)
        return 0;
    const QPointer<CGridCtrl_X> living(this);
    endOpenEditor();
    if (!living)
        return 0;
    m_nSortColumn = column;
    m_bAscending = ascending;
    ResetSelectedRange();
    if (living)
        SetFocusCell(-1, -1);
    if (!living)
        return 0;
    const int result = SortTextItems(column, ascending, m_nFixedRows, -1);
    Refresh();
    return result;
}

int CGridCtrl_X::SortTextItems(int column, int ascending, int low, int high)
{
    const QPointer<CGridCtrl_X> living(this);
    endOpenEditor();
    if (!living || column < 0 || column >= m_nCols)
        return 0;
    const int last = m_nRows - 1;
    xe::RowSorting sorting(*this, column, qMax(low, 0), high == -1 ? last : qMin(high, last));
    if (!sorting.isNeeded())
        return 0;
    sorting.sort(ascending);
    sorting.moveRows();
    return 1;
}
