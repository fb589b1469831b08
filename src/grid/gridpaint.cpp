// How a grid comes to the screen.

#include "XeGridCtrl.h"
#include "geometry/colorref.h"
#include "geometry/rectangle.h"
#include "grid/fastview.h"
#include "grid/gridpainting.h"
#include "grid/gridstate.h"
#include "xeafxdc.h"
#include "xerect.h"

#include <QImage>
#include <QPointer>

namespace {

const QColor freshImage(158, 158, 158);

QImage newImage(const QSize& size, qreal ratio)
{
    QImage image(size, QImage::Format_RGBX8888);
    image.setDevicePixelRatio(ratio);
    return image;
}

} // namespace

// -------------------------------------------------------------------------------------------------------- paint events

void CGridCtrl_X::OnPaint()
{
    CRect client;
    GetClientRect(&client);
    if (client.IsRectEmpty())
        return;
    CreateImage();
    if (!m_pImage || m_pImage->isNull() || m_state->isPainting)
        return;
    const QPointer<CGridCtrl_X> living(this);
    QImage* const image = m_pImage;
    const bool isFast = xe::GridPainter(*this).isUnseen();
    QImage view = isFast ? xe::fastViewOf(*image) : QImage();
    {
        CDC_X dc(isFast ? &view : image);
        m_state->isPainting = true; // so that the image outlives the painter, whatever a cell does
        OnDraw(&dc);
        if (living)
            xe::GridPainter(*this).drawResizeLine(dc);
    }
    if (!living) {
        delete image;
        return;
    }
    m_state->isPainting = false;
    if (QWidget* const widget = GetSafeHwnd()) {
        CDC_X dc(widget);
        dc.drawImage(0, 0, isFast ? view : *image);
        xe::GridPainter(*this).fillCorner(dc);
    }
    if (isFast)
        xe::endFastView(*image);
}

void CGridCtrl_X::CreateImage()
{
    const QWidget* const widget = GetSafeHwnd();
    if (!widget || m_state->isPainting)
        return;
    CRect client;
    GetClientRect(&client);
    const qreal ratio = widget->devicePixelRatioF();
    const QSize size = QSize(client.Width(), client.Height()) * ratio;
    if (!m_pImage || m_pImage->size() != size || m_pImage->devicePixelRatioF() != ratio) {
        delete m_pImage;
        m_pImage = new QImage(newImage(size, ratio));
    }
    m_pImage->fill(freshImage);
}

void CGridCtrl_X::OnDraw(CDC_X* dc)
{
    if (!dc || !m_bAllowDraw)
        return;
    EraseBkgnd(dc);
    const QPointer<CGridCtrl_X> living(this);
    xe::GridPainter(*this).drawCells(*dc);
    if (living)
        xe::GridPainter(*this).drawLines(*dc);
}

void CGridCtrl_X::EraseBkgnd(CDC_X* dc)
{
    if (!dc)
        return;
    CRect client;
    GetClientRect(&client);
    CRect covered;
    GetVisibleNonFixedCellRange(&covered);
    const int fixedWidth = GetFixedColumnWidth();
    const int fixedHeight = GetFixedRowHeight();
    const auto fill = [dc](int left, int top, int width, int height, COLORREF colour) {
        if (width > 0 && height > 0)
            dc->fillRect(left, top, width, height, xe::toQColor(colour));
    };
    if (fixedWidth > client.left)
        fill(client.left, client.top, fixedWidth, covered.bottom, m_crFixedBkColour);
    if (fixedHeight > client.top)
        fill(fixedWidth - 1, client.top, covered.right, fixedHeight, m_crFixedBkColour);
    CRect cells;
    if (IntersectRect_X(&cells, &client, &covered))
        fill(fixedWidth, fixedHeight, cells.right - fixedWidth, cells.bottom - fixedHeight, m_crTextBkColour);
    if (covered.right < client.right)
        fill(covered.right, client.top, client.right - covered.right, client.Height(), m_crBkColour);
    if (covered.bottom < client.bottom)
        fill(client.left, covered.bottom, client.Width(), client.bottom - covered.bottom, m_crBkColour);
}

// -------------------------------------------------------------------------------------------------------- invalidation

int CGridCtrl_X::RedrawCell(int row, int col)
{
    if (!m_bAllowDraw || !IsCellVisible(row, col))
        return FALSE;
    Invalidate(TRUE);
    return TRUE;
}

int CGridCtrl_X::RedrawRow(int row)
{
    int all = TRUE;
    for (int col = 0; col < m_nCols; ++col)
        all &= RedrawCell(row, col);
    return all;
}

int CGridCtrl_X::RedrawColumn(int column)
{
    int all = TRUE;
    for (int row = 0; row < m_nRows; ++row)
        all &= RedrawCell(row, column);
    return all;
}

int CGridCtrl_X::InvalidateCellRect(const CCellID_X& cell)
{
    CRect rect;
    if (!GetSafeHwnd() || !m_bAllowDraw || !IsCellVisible(cell) || !GetCellRect(cell, &rect))
        return FALSE;
    rect.right += 1;
    rect.bottom += 1;
    InvalidateRect(&rect);
    return TRUE;
}

int CGridCtrl_X::InvalidateCellRect(const CCellRange_X& range)
{
    if (!GetSafeHwnd() || !m_bAllowDraw)
        return FALSE;
    const CCellRange_X visible = GetVisibleNonFixedCellRange();
    const CCellRange_X seen(qMax(range.m_nMinRow, visible.m_nMinRow), qMax(range.m_nMinCol, visible.m_nMinCol),
                            qMin(range.m_nMaxRow, visible.m_nMaxRow), qMin(range.m_nMaxCol, visible.m_nMaxCol));
    CRect rect;
    if (!IsValid(seen) || !GetCellRangeRect(seen, &rect))
        return FALSE;
    rect.right += 1;
    rect.bottom += 1;
    InvalidateRect(&rect);
    return TRUE;
}
