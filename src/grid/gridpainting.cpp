#include "grid/gridpainting.h"

#include "XeGridBtnCell.h"
#include "core/overrides.h"
#include "geometry/colorref.h"
#include "geometry/rectangle.h"
#include "grid/gridstate.h"
#include "xeafxdc.h"

#include <QPaintEngine>
#include <QVarLengthArray>

#include <algorithm>

namespace xe {

namespace {

const void* drawOf(const CGridCellBase_X& cell) { return virtualTarget(&cell, &CGridCellBase_X::Draw); }

// That of this library, not an override.
bool hasOurDraw(const CGridCellBase_X& cell)
{
    static const void* const plain = drawOf(CGridCell_X());
    static const void* const button = drawOf(CGridBtnCell_X());
    const void* const own = drawOf(cell);
    return own && (own == plain || own == button);
}

bool hasOurOnDraw(const CGridCtrl_X& grid)
{
    static const void* const ours = [] {
        const CGridCtrl_X plain;
        return virtualTarget(&plain, &CGridCtrl_X::OnDraw);
    }();
    return ours && virtualTarget(&grid, &CGridCtrl_X::OnDraw) == ours;
}

// Whether a line is as wide as a pixel of the device and stands on whole ones, as a rectangle would.
bool paintsWholePixels(const QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    return engine && engine->type() == QPaintEngine::Raster && painter.deviceTransform().isIdentity()
           && !painter.testRenderHint(QPainter::Antialiasing);
}

QRect areaOf(const QLine& line)
{
    const auto [left, right] = std::minmax({line.x1(), line.x2()});
    const auto [top, bottom] = std::minmax({line.y1(), line.y2()});
    return {QPoint(left, top), QPoint(right, bottom)};
}

// Lines along an axis, which are painted in a fifth of the time as rectangles.
template <class Lines>
void drawStraight(CDC_X& dc, const Lines& lines, const QColor& colour)
{
    if (paintsWholePixels(dc)) {
        for (const QLine& line : lines)
            dc.fillRect(areaOf(line), colour);
        return;
    }
    const QPen pen = dc.pen();
    dc.setPen(QPen(colour, 0));
    dc.drawLines(lines.constData(), lines.size());
    dc.setPen(pen);
}

/// The painting of many cells, for the texts of a grid, which may go meanwhile.
class TextPainting
{
public:
    TextPainting(CGridCtrl_X& grid, QPainter& painter) : m_grid(&grid) { GridState::of(grid).texts.begin(painter); }
    ~TextPainting()
    {
        if (m_grid)
            GridState::of(*m_grid).texts.end();
    }
    Q_DISABLE_COPY_MOVE(TextPainting)

private:
    const QPointer<CGridCtrl_X> m_grid;
};

template <class Test>
bool allOf(int first, int last, Test test)
{
    while (first <= last && test(first))
        ++first;
    return first > last;
}

} // namespace

bool GridPainter::isUnseen() const
{
    if (!hasOurOnDraw(*m_grid))
        return false;
    const CCellRange_X seen = m_grid->GetVisibleNonFixedCellRange();
    const auto isRowOurs = [&](int row) {
        const auto isOurs = [&](int col) {
            const CGridCellBase_X* const cell = m_grid->cellAt(row, col);
            return !cell || hasOurDraw(*cell);
        };
        return allOf(0, m_grid->m_nFixedCols - 1, isOurs) && allOf(seen.m_nMinCol, seen.m_nMaxCol, isOurs);
    };
    return allOf(0, m_grid->m_nFixedRows - 1, isRowOurs) && allOf(seen.m_nMinRow, seen.m_nMaxRow, isRowOurs);
}

void GridPainter::drawCells(CDC_X& dc)
{
    const TextPainting texts(*m_grid, dc);
    m_grid->GetClientRect(&m_client);
    const CCellRange_X seen = m_grid->GetVisibleNonFixedCellRange();
    const int lastFixedRow = m_grid->m_nFixedRows - 1;
    const int lastFixedCol = m_grid->m_nFixedCols - 1;
    const CPoint inside(m_grid->GetFixedColumnWidth(), m_grid->GetFixedRowHeight());
    const Pass passes[] = {
        {{0, 0, lastFixedRow, lastFixedCol}, {0, 0}, true},
        {{seen.m_nMinRow, 0, seen.m_nMaxRow, lastFixedCol}, {0, inside.y}, true},
        {{0, seen.m_nMinCol, lastFixedRow, seen.m_nMaxCol}, {inside.x, 0}, true},
        {seen, inside, false},
    };
    for (const Pass& pass : passes) {
        draw(dc, pass);
        if (m_grid)
            GridState::of(*m_grid).texts.drawCut();
    }
}

void GridPainter::draw(CDC_X& dc, const Pass& pass)
{
    CRect rect(pass.start.x, 0, pass.start.x, pass.start.y - 1);
    for (int row = pass.cells.m_nMinRow; m_grid && row <= pass.cells.m_nMaxRow; ++row) {
        const int height = m_grid->GetRowHeight(row);
        if (height <= 0)
            continue;
        rect.top = rect.bottom + 1;
        rect.bottom = rect.top + height - 1;
        if (rect.top > m_client.bottom)
            return;
        if (rect.bottom >= m_client.top && !drawRow(dc, pass, row, rect))
            return;
    }
}

// Whether there is still a grid to be painted.
bool GridPainter::drawRow(CDC_X& dc, const Pass& pass, int row, CRect rect)
{
    rect.right = pass.start.x - 1;
    for (int col = pass.cells.m_nMinCol; col <= pass.cells.m_nMaxCol; ++col) {
        const int width = m_grid->GetColumnWidth(col);
        CGridCellBase_X* const cell = m_grid->cellAt(row, col);
        if (width <= 0)
            continue;
        rect.left = rect.right + 1;
        rect.right = rect.left + width - 1;
        if (rect.left > m_client.right)
            break;
        if (!cell || rect.right < m_client.left)
            continue;
        const CRect place = pass.showsBlocks ? placeOf(*cell, {row, col}, rect) : rect;
        GridState::of(*m_grid).texts.beforeCell(hasOurDraw(*cell) && place == rect);
        cell->Draw(&dc, row, col, place, m_grid->GetSafeHwnd(), FALSE);
        if (!m_grid)
            return false;
    }
    return true;
}

// ------------------------------------------------------------------------------------------------------- merged blocks

// Each cell of a block is painted over the whole of it; only the first has a text, as a rule.
CRect GridPainter::placeOf(const CGridCellBase_X& cell, const CCellID_X& place, const CRect& own) const
{
    const bool isCovered = cell.m_bMergeSlave;
    if (!isCovered && cell.m_nMergeRows == 0 && cell.m_nMergeCols == 0)
        return own;
    const CCellID_X master = isCovered ? CCellID_X(cell.m_nMasterRow, cell.m_nMasterCol) : place;
    const CGridCellBase_X* const first = isCovered ? m_grid->cellAt(master.row, master.col) : &cell;
    if (!first || (first->m_nMergeRows == 0 && first->m_nMergeCols == 0))
        return own;
    return blockFrom(master, {sum(master.row, first->m_nMergeRows), sum(master.col, first->m_nMergeCols)}, own);
}

CRect GridPainter::blockFrom(const CCellID_X& master, const CCellID_X& last, const CRect& own) const
{
    CRect place = own;
    CRect rect;
    if (!m_grid->GetCellRect(last, &rect))
        return place;
    place.right = rect.right;
    place.bottom = rect.bottom;
    const CCellID_X scrolled = m_grid->GetTopleftNonFixedCell();
    CCellID_X start = master;
    if (last.col >= m_grid->m_nFixedCols)
        start.col = std::max(start.col, scrolled.col);
    else if (last.row >= m_grid->m_nFixedRows)
        start.row = std::max(start.row, scrolled.row);
    if (m_grid->GetCellRect(start, &rect)) {
        place.left = rect.left;
        place.top = rect.top;
    }
    return place;
}

// --------------------------------------------------------------------------------------------------------------- lines

void GridPainter::drawLines(CDC_X& dc) const
{
    constexpr int horizontal = 1;
    constexpr int vertical = 2;
    CRect covered;
    const CCellRange_X seen = m_grid->GetVisibleNonFixedCellRange(&covered);
    const int left = m_grid->GetFixedColumnWidth();
    const int top = m_grid->GetFixedRowHeight();
    QVarLengthArray<QLine, 256> lines;
    if (m_grid->m_nGridLines & vertical) {
        for (int col = seen.m_nMinCol, x = left; col <= seen.m_nMaxCol; ++col) {
            const int width = m_grid->GetColumnWidth(col);
            x += width;
            if (width > 0)
                lines.append({x - 1, top, x - 1, covered.bottom});
        }
    }
    if (m_grid->m_nGridLines & horizontal) {
        for (int row = seen.m_nMinRow, y = top; row <= seen.m_nMaxRow; ++row) {
            const int height = m_grid->GetRowHeight(row);
            y += height;
            if (height > 0)
                lines.append({left, y - 1, covered.right, y - 1});
        }
    }
    drawStraight(dc, lines, toQColor(m_grid->m_crGridColour));
}

void GridPainter::drawResizeLine(CDC_X& dc)
{
    const bool isResizing =
        m_grid->m_MouseMode == CGridCtrl_X::MOUSE_SIZING_ROW || m_grid->m_MouseMode == CGridCtrl_X::MOUSE_SIZING_COL;
    if (!isResizing)
        m_grid->m_rcResizing.SetRectEmpty();
    else if (!m_grid->m_rcResizing.IsRectEmpty())
        dc.fillRect(toQRect(m_grid->m_rcResizing), Qt::black);
}

void GridPainter::fillCorner(CDC_X& dc) const
{
    const QWidget* const widget = m_grid->GetSafeHwnd();
    CRect client;
    m_grid->GetClientRect(&client);
    const QRect corner(QPoint(client.right, client.bottom), QPoint(widget->width() - 1, widget->height() - 1));
    if (corner.isValid())
        dc.fillRect(corner, widget->palette().window());
}

} // namespace xe
