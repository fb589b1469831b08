// How a cell paints itself. Rectangles have the last pixel as right and bottom.

#include "XeGridCtrl.h"
#include "geometry/colorref.h"
#include "grid/cellpicture.h"
#include "grid/gridstate.h"
#include "xeafxdc.h"

#include <QImage>

#include <algorithm>
#include <optional>

namespace {

constexpr int darkestEdge = 21; // the published COLOR_3DDKSHADOW, which is not in the colour table: black

/// Gives a painter back what a cell has changed of it. QPainter::save() would allocate for each cell.
class PainterKeeper
{
public:
    explicit PainterKeeper(CDC_X& dc)
        : m_dc(dc),
          m_pen(dc.pen()),
          m_brush(dc.brush()),
          m_font(dc.font()),
          m_backgroundMode(dc.backgroundMode()),
          m_textColour(dc.m_crText)
    {}
    ~PainterKeeper()
    {
        restorePen();
        if (m_dc.brush() != m_brush)
            m_dc.setBrush(m_brush);
        if (!m_dc.font().isCopyOf(m_font))
            m_dc.setFont(m_font);
        m_dc.setBackgroundMode(m_backgroundMode);
        m_dc.m_crText = m_textColour;
    }
    Q_DISABLE_COPY_MOVE(PainterKeeper)

    void restorePen()
    {
        if (m_dc.pen() != m_pen)
            m_dc.setPen(m_pen);
    }

private:
    CDC_X& m_dc;
    const QPen m_pen;
    const QBrush m_brush;
    const QFont m_font;
    const Qt::BGMode m_backgroundMode;
    const COLORREF m_textColour;
};

QPen edgePen(int systemColour)
{
    return {xe::toQColor(GetSysColor_X(systemColour)), 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

const QPen& lightEdge()
{
    static const QPen pen = edgePen(COLOR_3DHILIGHT);
    return pen;
}

const QPen& darkEdge()
{
    static const QPen pen = edgePen(darkestEdge);
    return pen;
}

QPen arrowPen(int systemColour) { return {xe::toQColor(GetSysColor_X(systemColour)), 0}; }

/// One painting of one cell.
class CellPainting
{
public:
    CellPainting(CGridCellBase_X& cell, CGridCtrl_X& grid, CDC_X& dc, int row, int col, const CRect& rect)
        : m_cell(cell),
          m_grid(grid),
          m_dc(dc),
          m_painter(dc),
          m_row(row),
          m_col(col),
          m_given(rect),
          m_rect(rect),
          m_state(cell.GetState()),
          m_isBold(is(CGridCellBase_X::Fixed) && isInFocusedLine())
    {}

    /// Without a background the cell stands on what the grid has painted.
    void run(std::optional<COLORREF> background);

private:
    bool is(UINT flag) const { return (m_state & flag) != 0; }
    bool isInFocusedLine() const;
    void fill(std::optional<COLORREF> background);
    void drawFrame();
    void drawHeading();
    QFont font() const;
    xe::CellTexts& texts() const { return xe::GridState::of(m_grid).texts; }
    void shrink(int by) { m_rect = CRect(m_rect.left + by, m_rect.top + by, m_rect.right - by, m_rect.bottom - by); }
    void drawOutline(int right, int bottom);
    void drawPicture();
    void drawSortArrow();
    void drawArrowLines(int left, int base, int right, int tip);
    void drawText();

    CGridCellBase_X& m_cell;
    CGridCtrl_X& m_grid;
    CDC_X& m_dc;
    PainterKeeper m_painter;
    const int m_row;
    const int m_col;
    const CRect m_given;
    CRect m_rect; // what is left of the given one
    const UINT m_state;
    const bool m_isBold;
};

void CellPainting::run(std::optional<COLORREF> background)
{
    m_dc.SetBkMode(TRANSPARENT);
    fill(background);
    if (is(CGridCellBase_X::Focused | CGridCellBase_X::DropHilited))
        drawFrame();
    if (is(CGridCellBase_X::Fixed))
        drawHeading();
    const auto margin = static_cast<int>(m_cell.GetMargin());
    m_rect.left += margin;
    m_rect.right -= margin;
    drawPicture();
    if (m_row == 0 && m_col == m_grid.m_nSortColumn)
        drawSortArrow();
    drawText();
}

void CellPainting::fill(std::optional<COLORREF> background)
{
    const COLORREF own = m_cell.GetTextClr();
    const bool isSelected = is(CGridCellBase_X::Selected);
    if (isSelected)
        m_dc.SetTextColor(GetSysColor_X(COLOR_HIGHLIGHTTEXT));
    else if (own != CLR_DEFAULT)
        m_dc.SetTextColor(own);
    else
        m_dc.SetTextColor(is(CGridCellBase_X::Fixed) ? m_grid.m_crFixedTextColour : m_grid.m_crTextColour);
    if (isSelected)
        background = GetSysColor_X(COLOR_HIGHLIGHT);
    const CRect area(m_rect.left, m_rect.top, m_rect.right + 1, m_rect.bottom + 1);
    if (background)
        m_dc.FillSolidRect(&area, *background);
}

void CellPainting::drawOutline(int right, int bottom)
{
    m_dc.setBrush(Qt::NoBrush);
    m_dc.drawRect(m_rect.left, m_rect.top, right - m_rect.left, bottom - m_rect.top);
}

// The frame of the focus, inside the grid lines where there are any.
void CellPainting::drawFrame()
{
    const int outside = m_grid.m_nGridLines == 0 ? 0 : 1;
    m_dc.setPen(m_dc.GetTextColor());
    drawOutline(m_given.right - outside, m_given.bottom - outside);
    m_painter.restorePen();
    shrink(1);
}

bool CellPainting::isInFocusedLine() const
{
    const CCellID_X& focus = m_grid.m_idCurrentCell;
    const bool isCovered = m_cell.m_bMergeSlave != 0;
    return m_grid.IsValid(focus)
           && (focus.row == (isCovered ? m_cell.m_nMasterRow : m_row)
               || focus.col == (isCovered ? m_cell.m_nMasterCol : m_col));
}

void CellPainting::drawHeading()
{
    if (m_isBold) {
        drawOutline(m_given.right, m_given.bottom);
    } else {
        const QPoint topLeft(m_rect.left, m_rect.top);
        const QPoint topRight(m_rect.right, m_rect.top);
        const QPoint bottomLeft(m_rect.left, m_rect.bottom);
        const QPoint bottomRight(m_rect.right, m_rect.bottom);
        m_dc.setPen(lightEdge());
        m_dc.drawLine(topRight, topLeft);
        m_dc.drawLine(topLeft, bottomLeft);
        m_dc.setPen(darkEdge());
        m_dc.drawLine(topRight, bottomRight);
        m_dc.drawLine(bottomRight, bottomLeft);
        m_painter.restorePen();
    }
    shrink(1);
}

QFont CellPainting::font() const
{
    const QFont* const own = m_cell.GetFont();
    const QFont font = own ? *own : QFont();
    return m_isBold ? texts().boldOf(font) : font;
}

void CellPainting::drawPicture()
{
    const QImage* const picture = xe::pictureOf(m_cell, m_cell.GetImage());
    if (!picture)
        return;
    const auto margin = static_cast<int>(m_cell.GetMargin());
    int width = picture->width();
    if (m_grid.GetItemTile(m_row, m_col)) {
        m_dc.drawImage(QRect(m_rect.left, m_rect.top, m_rect.right - m_rect.left, m_rect.bottom - m_rect.top), *picture,
                       QRect(0, 0, picture->width(), picture->height()));
    } else {
        width += 1;
        if (m_rect.left + width <= m_rect.right + 2 * margin
            && m_rect.top + picture->height() + 1 <= m_rect.bottom + 2 * margin)
            m_dc.drawImage(QPoint(m_rect.left, m_rect.top), *picture);
    }
    m_rect.left += margin + width;
}

void CellPainting::drawSortArrow()
{
    m_dc.setFont(font());
    const int size = std::min<int>(m_dc.GetOutputTextExtent(L"M", 1).cy, m_rect.bottom - m_rect.top) - 4;
    if (size < 1)
        return;
    const int right = m_rect.right;
    const int upper = m_rect.top + 2;
    const int lower = upper + size;
    const int base = m_grid.m_bAscending ? lower : upper;
    const int tip = m_grid.m_bAscending ? upper : lower;
    m_dc.setPen(arrowPen(COLOR_3DHILIGHT));
    drawArrowLines(right - size + 1, base + 1, right + 1, tip + 1);
    m_dc.setPen(arrowPen(COLOR_3DSHADOW));
    drawArrowLines(right - size, base, right, tip);
    m_painter.restorePen();
    m_rect.right -= size;
}

void CellPainting::drawArrowLines(int left, int base, int right, int tip)
{
    const int middle = right - (right - left) / 2;
    m_dc.drawLine(left, base, middle, tip);
    m_dc.drawLine(middle, tip, right, base);
    m_dc.drawLine(right, base, left, base);
}

void CellPainting::drawText()
{
    const QRect place(QPoint(m_rect.left, m_rect.top), QPoint(m_rect.right - 1, m_rect.bottom - 1));
    const wchar_t* const text = m_cell.GetText();
    if (!text || !*text || place.isEmpty())
        return;
    const QColor colour = m_dc.GetTextColor();
    const QPen& pen = m_dc.pen();
    if (pen.style() != Qt::SolidLine || pen.color() != colour)
        m_dc.setPen(texts().penOf(colour));
    const int flags = ToQtTextFlag(m_cell.GetFormat()) | Qt::TextHideMnemonic;
    texts().draw(m_dc, place, flags, XeQString(text), font());
}

bool canPaint(const CGridCellBase_X& cell, const CDC_X* dc, const CRect& rect)
{
    return cell.GetGrid() && dc && dc->isActive() && rect.right - rect.left >= 1 && rect.bottom - rect.top >= 1;
}

} // namespace

int CGridCellBase_X::Draw(CDC_X* dc, int row, int col, CRect rect, QWidget*, int erase)
{
    if (!canPaint(*this, dc, rect))
        return 0;
    CGridCtrl_X& grid = *GetGrid();
    const COLORREF own = GetBackClr();
    std::optional<COLORREF> background;
    if (own != CLR_DEFAULT)
        background = own;
    else if (erase)
        background = GetState() & Fixed ? grid.m_crFixedBkColour : grid.m_crTextBkColour;
    CellPainting(*this, grid, *dc, row, col, rect).run(background);
    return 1;
}

int CGridCellBase_X::PrintCell(CDC_X* dc, int row, int col, CRect rect)
{
    if (!canPaint(*this, dc, rect))
        return 0;
    CGridCtrl_X& grid = *GetGrid();
    const COLORREF own = GetBackClr();
    std::optional<COLORREF> background;
    if (grid.m_bShadedPrintOut && GetState() & Fixed)
        background = own != CLR_DEFAULT ? own : grid.m_crFixedBkColour;
    else if (grid.m_bShadedPrintOut && own != CLR_DEFAULT && own != grid.m_crTextBkColour)
        background = own;
    CellPainting(*this, grid, *dc, row, col, rect).run(background);
    return 1;
}
