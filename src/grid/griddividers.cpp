#include "grid/griddividers.h"

#include <cstdlib>

namespace xe {

Divider Divider::ofColumns(CGridCtrl_X& grid)
{
    return {grid,
            &CCellID_X::col,
            &tagPOINT::x,
            CGridCtrl_X::MOUSE_SIZING_COL,
            CGridCtrl_X::MOUSE_OVER_COL_DIVIDE,
            Qt::SizeHorCursor,
            grid.m_bAllowColHide};
}

Divider Divider::ofRows(CGridCtrl_X& grid)
{
    return {grid,
            &CCellID_X::row,
            &tagPOINT::y,
            CGridCtrl_X::MOUSE_SIZING_ROW,
            CGridCtrl_X::MOUSE_OVER_ROW_DIVIDE,
            Qt::SizeVerCursor,
            grid.m_bAllowRowHide};
}

int Divider::sizeOf(int which) const
{
    return line == &CCellID_X::col ? grid.GetColumnWidth(which) : grid.GetRowHeight(which);
}

int Divider::lineAt(const CCellID_X& cell, const CPoint& point, bool mayBeHidden) const
{
    const auto isNear = [&](const CPoint& origin) {
        return cell.*line > 0 && std::abs(point.*way - origin.*way) <= grid.m_nResizeCaptureRange;
    };
    CPoint origin;
    const bool isBefore = !grid.GetCellOrigin(cell, &origin) || isNear(origin);
    int found = isBefore ? cell.*line - 1 : cell.*line;
    while (!mayBeHidden && found >= 0 && sizeOf(found) <= 0)
        --found;
    return found;
}

const Divider* dividerOf(const Divider& columns, const Divider& rows, int mode)
{
    if (mode == columns.sizing || mode == columns.over)
        return &columns;
    return mode == rows.sizing || mode == rows.over ? &rows : nullptr;
}

void startSizing(const Divider& divider, const CPoint& point)
{
    CGridCtrl_X& grid = divider.grid;
    const int line = divider.lineAt(grid.m_LeftClickDownCell, point, divider.mayHide);
    if (line < 0) {
        if (CWnd_X::GetCapture() == grid.GetSafeHwnd())
            CWnd_X::ReleaseCapture();
        grid.m_MouseMode = CGridCtrl_X::MOUSE_NOTHING;
        return;
    }
    grid.m_MouseMode = divider.sizing;
    grid.m_LeftClickDownCell.*divider.line = line;
    grid.m_LastMousePoint = point;
}

void dragDivider(const Divider& divider, const CPoint& point)
{
    constexpr int thickness = 2;
    CGridCtrl_X& grid = divider.grid;
    CRect place;
    grid.GetClientRect(&place);
    if (divider.line == &CCellID_X::col) {
        place.left = point.x;
        place.right = point.x + thickness;
    } else {
        place.top = point.y;
        place.bottom = point.y + thickness;
    }
    grid.SetCursor(divider.cursor);
    grid.m_rcResizing = place;
    grid.Invalidate();
}

bool finishSizing(const Divider& divider, const CPoint& point)
{
    CGridCtrl_X& grid = divider.grid;
    grid.m_rcResizing.SetRectEmpty();
    grid.Invalidate();
    if (point == grid.m_LeftClickDownPoint)
        return true;
    CPoint origin;
    if (!grid.GetCellOrigin(grid.m_LeftClickDownCell, &origin))
        return false;
    const int size = point.*divider.way - origin.*divider.way;
    if (divider.line == &CCellID_X::col)
        grid.SetColumnWidth(grid.m_LeftClickDownCell.col, size);
    else
        grid.SetRowHeight(grid.m_LeftClickDownCell.row, size);
    return true;
}

void autoSizeLine(const Divider& divider, const CCellID_X& cell, const CPoint& point)
{
    CGridCtrl_X& grid = divider.grid;
    const int line = divider.lineAt(cell, point, false);
    if (divider.line == &CCellID_X::col)
        grid.AutoSizeColumn(line, FALSE);
    else
        grid.AutoSizeRow(line);
    grid.Invalidate();
}

} // namespace xe

// Only a heading has dividers.

int CGridCtrl_X::MouseOverColumnResizeArea(CPoint& point) const
{
    CPoint origin;
    const CCellID_X cell = GetCellFromPt(point, TRUE);
    if (point.y < 0 || point.y >= GetFixedRowHeight() || !GetCellOrigin(cell, &origin))
        return FALSE;
    const bool isAtEnd = origin.x + GetColumnWidth(cell.col) - point.x <= m_nResizeCaptureRange;
    return isAtEnd || (cell.col != 0 && point.x - origin.x <= m_nResizeCaptureRange);
}

int CGridCtrl_X::MouseOverRowResizeArea(CPoint& point) const
{
    CPoint origin;
    const CCellID_X cell = GetCellFromPt(point, TRUE);
    if (point.x < 0 || point.x >= GetFixedColumnWidth() || !GetCellOrigin(cell, &origin))
        return FALSE;
    const bool isAtEnd = origin.y + GetRowHeight(cell.row) - point.y <= m_nResizeCaptureRange;
    return isAtEnd || (cell.row != 0 && point.y - origin.y <= m_nResizeCaptureRange);
}
