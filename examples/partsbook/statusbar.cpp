#include "statusbar.h"

#include "text.h"

#include <QMainWindow>

namespace {

constexpr int widths[] = {190, 150, 115, 105, 105}; // of the panes, in pixels

} // namespace

IMPLEMENT_DYNCREATE_X(CPartsStatusBar, CStatusBar_X)

void CPartsStatusBar::Open(CWnd_X& frame)
{
    if (!Create(&frame))
        return;
    for (int pane = 0; pane < paneCount; ++pane)
        SetPaneInfo(pane, 0, SBPS_NORMAL, widths[pane]);
    GetSafeHwnd()->setContentsMargins(6, 0, 0, 0);
    frame.Imp<QMainWindow>()->setStatusBar(Imp<QStatusBar>());
}

CRect CPartsStatusBar::MessageRect() const
{
    constexpr int margin = 4;
    return {margin, margin, margin + widths[Message], GetSafeHwnd()->height() - margin};
}

void CPartsStatusBar::ShowCounts(int parts, int shortParts)
{
    ShowText(Count, formatText(loadText(IDS_COUNT), parts));
    ShowText(Short, formatText(loadText(IDS_SHORT), shortParts));
}

void CPartsStatusBar::ShowModified(bool modified)
{
    ShowText(Modified, modified ? loadText(IDS_MODIFIED) : CString_X());
}

// A text makes its pane a pixel wider, so it is set when it is another one.
void CPartsStatusBar::ShowText(Pane pane, const CString_X& text)
{
    if (m_texts[pane] == text)
        return;
    m_texts[pane] = text;
    SetPaneText(pane, text);
}
