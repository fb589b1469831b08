// Sizes by content, and by the window.

#include "XeGridCtrl.h"

#include "grid/cellextent.h"
#include "grid/gridstate.h"
#include "xesysinfo.h"

#include <algorithm>

namespace {

// A block's text stands in several lines, so it says nothing about one of them.
bool countsForWidth(const CGridCellBase_X* cell) { return cell && cell->m_nMergeCols <= 0 && !cell->m_bMergeSlave; }
bool countsForHeight(const CGridCellBase_X* cell) { return cell && cell->m_nMergeRows <= 0 && !cell->m_bMergeSlave; }

} // namespace

int CGridCtrl_X::widestExtent(int column, int firstRow) const
{
    int width = 1; // a visible line stays one
    xe::ExtentWalk walk;
    for (int row = firstRow; row < m_nRows; ++row) {
        CGridCellBase_X* const cell = cellAt(row, column);
        if (countsForWidth(cell))
            width = std::max<int>(width, walk.extentOf(*cell).cx);
    }
    return width;
}

int CGridCtrl_X::highestExtent(int row) const
{
    int height = 1;
    xe::ExtentWalk walk;
    for (int col = 0; col < m_nCols; ++col) {
        CGridCellBase_X* const cell = cellAt(row, col);
        if (countsForHeight(cell))
            height = std::max<int>(height, walk.extentOf(*cell).cy);
    }
    return height;
}

int CGridCtrl_X::AutoSizeColumn(int column, int ignoreHeader)
{
    if (GetColumnWidth(column) < 1)
        return 0;
    setSize(SB_HORZ, column, widestExtent(column, ignoreHeader ? m_nFixedRows : 0));
    resetBars();
    return 1;
}

int CGridCtrl_X::AutoSizeRow(int row)
{
    if (GetRowHeight(row) < 1)
        return 0;
    setSize(SB_VERT, row, highestExtent(row));
    resetBars();
    return 1;
}

void CGridCtrl_X::AutoSizeColumns()
{
    for (int col = 0; col < m_nCols; ++col) {
        if (GetColumnWidth(col) > 0)
            setSize(SB_HORZ, col, widestExtent(col, 0));
    }
    resetBars();
}

void CGridCtrl_X::AutoSizeRows()
{
    for (int row = 0; row < m_nRows; ++row) {
        if (GetRowHeight(row) > 0)
            setSize(SB_VERT, row, highestExtent(row));
    }
    resetBars();
}

void CGridCtrl_X::AutoSize(int ignoreHeader)
{
    const int firstRow = ignoreHeader ? m_nFixedRows : 0;
    std::vector<int> widths(static_cast<std::size_t>(m_nCols), 1);
    xe::ExtentWalk walk;
    for (int row = firstRow; row < m_nRows; ++row) {
        int height = 1;
        for (int col = 0; col < m_nCols; ++col) {
            CGridCellBase_X* const cell = cellAt(row, col);
            if (!cell || (GetRowHeight(row) < 1 && GetColumnWidth(col) < 1))
                continue;
            const CSize extent = walk.extentOf(*cell);
            int& width = widths[static_cast<std::size_t>(col)];
            width = countsForWidth(cell) ? std::max<int>(width, extent.cx) : width;
            height = countsForHeight(cell) ? std::max<int>(height, extent.cy) : height;
        }
        if (GetRowHeight(row) > 0)
            setSize(SB_VERT, row, height);
    }
    for (int col = 0; col < m_nCols && firstRow < m_nRows; ++col) {
        if (GetColumnWidth(col) > 0)
            setSize(SB_HORZ, col, widths[static_cast<std::size_t>(col)]);
    }
    resetBars();
    if (m_bAllowDraw)
        Invalidate();
}

// ------------------------------------------------------------------------------------------------------ by the window

void CGridCtrl_X::ExpandColumnsToFit() { expandToFit(SB_HORZ); }
void CGridCtrl_X::ExpandRowsToFit() { expandToFit(SB_VERT); }

// The other direction may need its bar all the same, and then its room is not shared out.
void CGridCtrl_X::expandToFit(int bar)
{
    const QWidget* const widget = GetSafeHwnd();
    const xe::GridLines& lines = linesOf(bar);
    const xe::GridLines& others = linesOf(bar == SB_HORZ ? SB_VERT : SB_HORZ);
    int visible = 0;
    for (int line = 0; line < lines.count(); ++line)
        visible += lines.size(line) > 0;
    if (!widget || visible == 0)
        return;
    const bool needsOther = others.total() > (bar == SB_HORZ ? widget->height() : widget->width());
    EnableScrollBars(bar, FALSE);
    EnableScrollBars(bar == SB_HORZ ? SB_VERT : SB_HORZ, needsOther);
    const int room =
        (bar == SB_HORZ ? widget->width() : widget->height()) - (needsOther ? GetSystemMetrics_X(SM_CXVSCROLL) : 0);
    const int difference = room - lines.total();
    int rest = std::abs(difference) % visible;
    for (int line = 0; line < lines.count(); ++line) {
        if (lines.size(line) == 0)
            continue;
        const int one = rest > 0 ? (difference > 0 ? 1 : -1) : 0;
        rest -= rest > 0;
        setSize(bar, line, std::max(lines.size(line) + difference / visible + one, 1));
    }
    resetBars();
    if (m_bAllowDraw)
        Invalidate();
}

void CGridCtrl_X::ExpandToFit()
{
    ExpandColumnsToFit();
    ExpandRowsToFit();
    ExpandColumnsToFit();
    ResetScrollBars();
    Refresh();
}
