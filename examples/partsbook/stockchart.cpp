#include "stockchart.h"

#include "chartpainter.h"

#include <algorithm>

IMPLEMENT_DYNAMIC_X(CStockChart, CWnd_X)

BEGIN_MESSAGE_MAP_X(CStockChart, CWnd_X)
    ON_WM_PAINT_X()
    ON_WM_LBUTTONDOWN_X()
END_MESSAGE_MAP_X()

void CStockChart::Show(std::vector<KindStock> stock)
{
    m_stock = std::move(stock);
    m_selected = -1;
    Invalidate();
}

void CStockChart::SelectKind(const CString_X& kind)
{
    const auto isIt = [&](const KindStock& one) { return one.kind == kind; };
    const auto at = std::find_if(m_stock.begin(), m_stock.end(), isIt);
    const int selected = at == m_stock.end() ? -1 : static_cast<int>(at - m_stock.begin());
    if (selected == m_selected)
        return;
    m_selected = selected;
    Invalidate();
}

ChartLayout CStockChart::Layout() const
{
    CRect client;
    GetClientRect(client);
    return layOutChart(m_stock, client.Size());
}

// The picture is made beside the screen and copied as a whole.
void CStockChart::OnPaint()
{
    const QWidget& pane = *GetSafeHwnd();
    QImage picture(pane.size() * pane.devicePixelRatioF(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(pane.devicePixelRatioF());
    CDC_X buffer(&picture);
    buffer.SelectObject(pane.font());
    paintChart(buffer, Layout(), m_stock, m_selected);
    buffer.end();

    CClientDC_X dc(this);
    dc.drawImage(0, 0, picture);
}

void CStockChart::OnLButtonDown(UINT, CPoint point)
{
    const ChartLayout chart = Layout();
    for (std::size_t i = 0; i < chart.bars.size(); ++i) {
        const CRect bar = chart.bars[i].whole();
        CRgn_X region;
        region.CreateRectRgn(bar.left, bar.top, bar.right - 1, bar.bottom - 1);
        if (region.PtInRegion(point)) {
            SendMessage_X(GetSafeHwnd()->window(), WM_SELECT_ROW, static_cast<WPARAM>(m_stock[i].firstRow), 0);
            return;
        }
    }
}
