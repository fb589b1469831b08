// The main window: what the list of parts tells it.

#include "control.h"
#include "mainframe.h"
#include "partmenu.h"
#include "resource.h"
#include "settings.h"
#include "text.h"

#include <QAction>
#include <QGuiApplication>
#include <xewinuser.h>

#include <utility>

// Any grid in the window tells the window; what the list of hits has to say is for the search bar.
LRESULT CMainFrame::OnGridNotified(WPARAM grid, LPARAM record)
{
    const auto& told = *reinterpret_cast<const XeGridNotification*>(record);
    if (told.hdr.hwndFrom != m_parts.GetSafeHwnd())
        return m_findBar.SendMessage(WM_NOTIFY, grid, record);
    m_messages.Show(notificationLine(told.hdr.code, told.iRow, told.iColumn));
    switch (told.hdr.code) {
    case LVN_ITEMCHANGED:
        OnPartSelected();
        break;
    case LVN_BEGINLABELEDITW:
        m_parts.OfferChoices(told.iRow, told.iColumn, m_book);
        break;
    case LVN_ENDLABELEDITW:
        TakeField(told.iRow, told.iColumn);
        break;
    case NM_CLICK:
        if (told.iColumn == CPartsGrid::InUse)
            TakeField(told.iRow, told.iColumn);
        break;
    case NM_DBLCLK:
        if (told.iColumn <= CPartsGrid::Number && m_parts.PartOf(told.iRow) >= 0)
            OnPartEdit();
        break;
    case NM_RCLICK:
        OpenMenu();
        break;
    }
    return 0;
}

// While a row is being removed, the list may still name one that the book has no more.
void CMainFrame::OnPartSelected()
{
    const int row = SelectedRow();
    const bool isThere = row >= 0 && row < m_book.count();
    m_chart.SelectKind(isThere ? m_book.part(row).kind : CString_X());
    m_statusBar.ShowPlace(isThere ? m_book.part(row).number + L", " + m_parts.FocusedHeading() : CString_X());
}

// What a cell shows goes into the book. What is refused does not, and the cell shows again what the book has.
void CMainFrame::TakeField(int row, int column)
{
    const int place = m_parts.PartOf(row);
    if (place < 0)
        return;
    Part part = m_book.part(place);
    const CString_X problem = m_parts.ReadField(row, column, part);
    const bool isChange = problem.IsEmpty() && !(part == m_book.part(place));
    if (isChange)
        m_book.change(place, part);
    m_parts.ShowRow(row, m_book.part(place), settings::shortColor());
    if (isChange)
        m_changes.add(part.number);
    if (!problem.IsEmpty())
        m_refusals.add(problem);
    if (!m_parts.IsChangingMany())
        OnFieldsChanged(0, 0);
}

// Once for all that has been pasted or cut.
LRESULT CMainFrame::OnFieldsChanged(WPARAM, LPARAM)
{
    const Tally changes = std::exchange(m_changes, {});
    const Tally refusals = std::exchange(m_refusals, {});
    if (changes.count > 0)
        ShowChart();
    if (changes.count == 1)
        ShowStatus(IDS_CHANGED, changes.first);
    else if (changes.count > 1)
        ShowStatus(formatText(loadText(IDS_FIELDS_CHANGED), changes.count));
    if (refusals.count == 1)
        MessageBox(refusals.first);
    else if (refusals.count > 1)
        MessageBox(formatText(loadText(IDS_FIELDS_REFUSED), refusals.count, refusals.first));
    OnUpdateCommands(); // the next key may be there already, and save
    return 0;
}

// ------------------------------------------------------------------------------------------------------------ the menu

// The mouse has the list notify; the key that asks for a menu does not. Elsewhere the main window shows its own.
void CMainFrame::OnContextMenu(QWidget*, CPoint point)
{
    ClientToScreen(&point);
    const QWidget& list = *m_parts.GetSafeHwnd();
    if (!list.rect().contains(list.mapFromGlobal({point.x, point.y})))
        SetCurrentEventAccepted(false);
    else if (QGuiApplication::mouseButtons() == Qt::NoButton)
        RunPartMenu(point);
}

// Under the pointer.
void CMainFrame::OpenMenu()
{
    CPoint pointer;
    GetCursorPos_X(&pointer);
    CPoint inList = pointer;
    m_parts.ScreenToClient(&inList);
    const int column = m_parts.HeadingAt(inList);
    if (column >= 0)
        SortByMenu(column, pointer);
    else
        RunPartMenu(pointer);
}

void CMainFrame::RunPartMenu(CPoint screen)
{
    OnUpdateCommands(); // the click may have selected another part
    const int command = openPartMenu(*this, screen);
    if (command > 0 && GetSafeHwnd()) // the window may go while the menu is open
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
