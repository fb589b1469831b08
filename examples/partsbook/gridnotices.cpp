// The main window: what the list of parts tells it.

#include "control.h"
#include "mainframe.h"
#include "partmenu.h"
#include "resource.h"

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
    CPoint inList = point;
    m_parts.ScreenToClient(&inList);
    const int column = m_parts.HeadingAt(inList);
    if (column >= 0)
        SortByMenu(column, point);
    else
        RunPartMenu(point);
}

void CMainFrame::RunPartMenu(CPoint screen)
{
    OnUpdateCommands(); // the click may have selected another part
    const int command = openPartMenu(*this, screen);
    if (command > 0)
        control<QAction>(*this, static_cast<unsigned>(command)).trigger();
}

// The book keeps its order. A column that is sorted already is turned round.
void CMainFrame::SortByMenu(int column, CPoint screen)
{
    const bool isSorted = m_parts.m_nSortColumn == column;
    const int command = openHeadingMenu(*this, screen, isSorted);
    if (command == ID_SORT_COLUMN)
        m_parts.SortBy(column, !isSorted || !m_parts.m_bAscending);
    else if (command == ID_SORT_BOOK)
        m_parts.SortBy(0, true);
}
