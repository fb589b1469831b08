// The main window: what the list of parts tells it.

#include "control.h"
#include "mainframe.h"
#include "partmenu.h"

#include <QAction>

// Any grid in the window tells the window; what the list of hits has to say is for the search bar.
LRESULT CMainFrame::OnGridNotified(WPARAM grid, LPARAM record)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(record);
    if (header.hwndFrom != m_parts.GetSafeHwnd())
        return m_findBar.SendMessage(WM_NOTIFY, grid, record);
    if (header.code == LVN_ITEMCHANGED)
        OnPartSelected();
    else if (header.code == NM_DBLCLK)
        OnPartEdit();
    return 0;
}

// While a row is being removed, the list may still name one that the book has no more.
void CMainFrame::OnPartSelected()
{
    const int row = SelectedRow();
    m_chart.SelectKind(row >= 0 && row < m_book.count() ? m_book.part(row).kind : CString_X());
}

// The menu of the list; elsewhere the main window shows its own.
void CMainFrame::OnContextMenu(QWidget*, CPoint point)
{
    ClientToScreen(&point);
    const QWidget& list = *m_parts.GetSafeHwnd();
    if (!list.rect().contains(list.mapFromGlobal({point.x, point.y}))) {
        SetCurrentEventAccepted(false);
        return;
    }
    OnUpdateCommands(); // the click may have selected another part
    const int command = openPartMenu(*this, point);
    if (command > 0)
        control<QAction>(*this, static_cast<unsigned>(command)).trigger();
}
