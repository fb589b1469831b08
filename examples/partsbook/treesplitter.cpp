#include "treesplitter.h"

#include <QLayout>

#include <algorithm>

namespace {

constexpr int narrowest = 80;
constexpr int widest = 400;

} // namespace

IMPLEMENT_DYNAMIC_X(CTreeSplitter, CSplitterWndEx_X)

BEGIN_MESSAGE_MAP_X(CTreeSplitter, CSplitterWndEx_X)
    ON_WM_MOUSEMOVE_X()
END_MESSAGE_MAP_X()

CTreeSplitter::CTreeSplitter()
{
    SetXMIn(narrowest);
    SetXMax(widest);
}

bool CTreeSplitter::Surround(QWidget* parts)
{
    QWidget* const place = parts->parentWidget();
    if (!CreateStatic(FromHandle(place), 1, 2))
        return false;
    delete place->layout()->replaceWidget(parts, GetSafeHwnd());
    auto* const splitter = Imp<QSplitter>();
    splitter->setHandleWidth(4);
    splitter->setChildrenCollapsible(false);
    const bool done = CreateView(0, 0, &m_tree) && CreateView(0, 1, FromHandle(parts));
    splitter->setStretchFactor(1, 1); // the tree keeps its width when the window gets another
    return done;
}

int CTreeSplitter::Width() const
{
    int width = 0;
    int minimum = 0;
    GetColumnInfo(0, width, minimum);
    return width;
}

void CTreeSplitter::SetWidth(int width)
{
    width = std::clamp(width, m_nXMin, m_nXMax);
    auto* const splitter = Imp<QSplitter>();
    splitter->setSizes({width, std::max(splitter->width() - width - splitter->handleWidth(), 1)});
}

// The divider is being dragged. Past a limit it stays there.
void CTreeSplitter::OnMouseMove(UINT flags, CPoint point)
{
    if (point.x >= m_nXMin && point.x <= m_nXMax)
        CSplitterWndEx_X::OnMouseMove(flags, point);
    else if (flags & MK_LBUTTON)
        SetWidth(point.x);
}
