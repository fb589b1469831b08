// Which pixels a cell covers, and which cell lies under a pixel.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"

#include <algorithm>

xe::GridLines& CGridCtrl_X::linesOf(int bar) const { return bar == SB_HORZ ? m_state->columns : m_state->rows; }

// ------------------------------------------------------------------------------------------------------------- sizes

int CGridCtrl_X::GetRowHeight(int row) const { return row < 0 || row >= m_nRows ? -1 : m_state->rows.size(row); }

int CGridCtrl_X::GetColumnWidth(int column) const
{
    return column < 0 || column >= m_nCols ? -1 : m_state->columns.size(column);
}

int CGridCtrl_X::SetRowHeight(int row, int height)
{
    if (row < 0 || row >= m_nRows || height < 0)
        return 0;
    setSize(SB_VERT, row, height);
    resetBars();
    return 1;
}

int CGridCtrl_X::SetColumnWidth(int column, int width)
{
    if (column < 0 || column >= m_nCols || width < 0)
        return 0;
    setSize(SB_HORZ, column, width);
    resetBars();
    return 1;
}

void CGridCtrl_X::setSize(int bar, int line, int size)
{
    unsigned& stored = bar == SB_HORZ ? m_arColWidths[line] : m_arRowHeights[line];
    linesOf(bar).resized(line, stored, static_cast<unsigned>(size));
    stored = static_cast<unsigned>(size);
}

int CGridCtrl_X::GetVirtualWidth() const { return m_state->columns.total(); }
int CGridCtrl_X::GetVirtualHeight() const { return m_state->rows.total(); }
int CGridCtrl_X::GetFixedColumnWidth() const { return m_state->columns.before(m_nFixedCols); }
int CGridCtrl_X::GetFixedRowHeight() const { return m_state->rows.before(m_nFixedRows); }

// ------------------------------------------------------------------------------------------------------ cell to pixel

CCellID_X CGridCtrl_X::GetTopleftNonFixedCell() const
{
    const auto first = [](const xe::GridLines& lines, int fixed, int count, int position) {
        const int line = position > 0 ? lines.lineReaching(static_cast<long long>(lines.before(fixed)) + position) : 0;
        return std::max(fixed, std::min(line, count - 1));
    };
    return {first(m_state->rows, m_nFixedRows, m_nRows, GetScrollPos32(SB_VERT)),
            first(m_state->columns, m_nFixedCols, m_nCols, GetScrollPos32(SB_HORZ))};
}

int CGridCtrl_X::GetCellOrigin(int row, int col, tagPOINT* point) const
{
    if (!IsValid(row, col) || !point)
        return 0;
    CCellID_X first(0, 0);
    if (row >= m_nFixedRows || col >= m_nFixedCols)
        first = GetTopleftNonFixedCell();
    if ((row >= m_nFixedRows && row < first.row) || (col >= m_nFixedCols && col < first.col))
        return 0;
    const auto begin = [](const xe::GridLines& lines, int fixed, int line, int firstLine) {
        return line < fixed ? lines.before(line) : lines.before(fixed) + lines.before(line) - lines.before(firstLine);
    };
    point->x = begin(m_state->columns, m_nFixedCols, col, first.col);
    point->y = begin(m_state->rows, m_nFixedRows, row, first.row);
    return 1;
}

int CGridCtrl_X::GetCellRect(int row, int col, tagRECT* rect) const
{
    CPoint origin;
    if (!rect || !GetCellOrigin(row, col, &origin))
        return 0;
    const auto last = [](int begin, int size) { return begin + std::min(size, xe::GridLines::maximum) - 1; };
    *rect = {origin.x, origin.y, last(origin.x, GetColumnWidth(col)), last(origin.y, GetRowHeight(row))};
    return 1;
}

int CGridCtrl_X::GetCellRangeRect(const CCellRange_X& range, tagRECT* rect) const
{
    CPoint first;
    CRect last;
    if (!rect || !GetCellOrigin(range.m_nMinRow, range.m_nMinCol, &first)
        || !GetCellRect(range.m_nMaxRow, range.m_nMaxCol, &last))
        return 0;
    *rect = {first.x, first.y, last.right, last.bottom};
    return 1;
}

// ------------------------------------------------------------------------------------------------------ pixel to cell

CCellID_X CGridCtrl_X::GetCellFromPt(CPoint point, int allowFixed) const
{
    const CCellID_X first = GetTopleftNonFixedCell();
    if (!IsValid(first))
        return {};
    const auto lineAt = [=](const xe::GridLines& lines, int fixed, int firstLine, int pixel) {
        const int fixedSize = lines.before(fixed);
        if (pixel < 0 || (pixel < fixedSize && !allowFixed))
            return -1;
        const int line = lines.lineAt(
            pixel < fixedSize ? pixel : static_cast<long long>(pixel) - fixedSize + lines.before(firstLine));
        return line < lines.count() ? line : -1;
    };
    const int col = lineAt(m_state->columns, m_nFixedCols, first.col, point.x);
    if (col < 0)
        return {};
    return {lineAt(m_state->rows, m_nFixedRows, first.row, point.y), col};
}

CPoint CGridCtrl_X::GetPointClicked(int row, int col, const CPoint& point) const
{
    CPoint origin;
    return GetCellOrigin(row, col, &origin) ? CPoint(point.x - origin.x, point.y - origin.y) : CPoint(0, 0);
}

// --------------------------------------------------------------------------------------------------------- visibility

namespace {

struct Shown
{
    int last; // line
    int end;  // pixel behind what is covered
    bool isCut;
};

// What can be seen of the lines from `first` on, behind the fixed ones, before a pixel.
Shown shownOf(const xe::GridLines& lines, int fixed, int first, int edge)
{
    const long long offset = static_cast<long long>(lines.before(fixed)) - lines.before(first);
    const int last = std::min(std::max(lines.lineReaching(edge - offset) - 1, first), lines.count() - 1);
    const long long end = std::max<long long>(offset + lines.before(last + 1), lines.before(fixed));
    return {last, static_cast<int>(std::min<long long>(end, edge)), end > edge};
}

} // namespace

CCellRange_X CGridCtrl_X::GetVisibleNonFixedCellRange(tagRECT* rect) const
{
    CRect client;
    GetClientRect(&client);
    const CCellID_X first = GetTopleftNonFixedCell();
    const Shown rows = shownOf(m_state->rows, m_nFixedRows, first.row, client.bottom);
    const Shown columns = shownOf(m_state->columns, m_nFixedCols, first.col, client.right);
    if (rect)
        *rect = {0, 0, columns.end, rows.end};
    return {first.row, first.col, rows.last, columns.last};
}

CCellRange_X CGridCtrl_X::GetUnobstructedNonFixedCellRange() const
{
    CRect client;
    GetClientRect(&client);
    const CCellID_X first = GetTopleftNonFixedCell();
    const Shown rows = shownOf(m_state->rows, m_nFixedRows, first.row, client.bottom);
    const Shown columns = shownOf(m_state->columns, m_nFixedCols, first.col, client.right);
    return {first.row, first.col, rows.isCut && rows.last > first.row ? rows.last - 1 : rows.last,
            columns.isCut && columns.last > first.col ? columns.last - 1 : columns.last};
}

int CGridCtrl_X::IsCellVisible(int row, int col) const
{
    CPoint origin;
    if (!GetSafeHwnd() || !GetCellOrigin(row, col, &origin))
        return 0;
    CRect client;
    GetClientRect(&client);
    return origin.x < client.right && origin.y < client.bottom;
}
