// The main window: the commands for parts, and what shows the parts and finds them.

#include "mainframe.h"
#include "partdialog.h"
#include "settings.h"
#include "text.h"

#include <algorithm>

// ------------------------------------------------------------------------------------------------------ the commands

void CMainFrame::OnPartNew()
{
    CPartDialog dialog(loadText(IDS_NEW_PART), m_book, m_pictures, this);
    if (dialog.DoModal() != IDOK)
        return;
    m_book.add(dialog.m_part);
    ShowPart(m_book.count() - 1);
    ShowStatus(IDS_ADDED, dialog.m_part.number);
}

void CMainFrame::OnPartEdit()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    CPartDialog dialog(loadText(IDS_EDIT_PART), m_book, m_pictures, this);
    dialog.m_part = m_book.part(row);
    if (dialog.DoModal() != IDOK || dialog.m_part == m_book.part(row))
        return;
    m_book.change(row, dialog.m_part);
    ShowPart(row);
    ShowStatus(IDS_CHANGED, dialog.m_part.number);
}

void CMainFrame::OnPartDelete()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    const Part part = m_book.part(row);
    const CString_X question = formatText(loadText(IDS_ASK_DELETE), part.number, part.name);
    if (MessageBox(question, nullptr, MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    m_parts.RemovePart(row); // what is typed in the list meanwhile still finds its part
    m_book.remove(row);
    const int next = std::min(row, m_book.count() - 1);
    if (next >= 0 && !m_parts.IsHidden(next))
        SelectRow(next);
    ShowChart();
    ShowStatus(IDS_DELETED, part.number);
}

void CMainFrame::OnPartInUse()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    Part part = m_book.part(row);
    part.inUse = !part.inUse;
    m_book.change(row, part);
    ShowPart(row);
    ShowStatus(IDS_CHANGED, part.number);
}

void CMainFrame::OnNameEdit() { m_splitter.Tree().Rename(); }

LRESULT CMainFrame::OnRenamed(WPARAM, LPARAM lParam)
{
    const Renaming renaming = *reinterpret_cast<const Renaming*>(lParam);
    m_book.rename(renaming.field, renaming.from, renaming.to);
    ShowParts();
    ShowStatus(IDS_CHANGED, renaming.to);
    return 0;
}

void CMainFrame::ShowParts()
{
    m_parts.Show(m_book, settings::shortColor());
    ShowChart();
}

void CMainFrame::ShowPart(int row)
{
    m_parts.ShowPart(row, m_book.part(row), settings::shortColor());
    ShowChart();
    SelectRow(row);
}

void CMainFrame::ShowChart()
{
    const std::vector<KindStock> stock = stockByKind(m_book);
    m_chart.Show(stock);
    m_splitter.Tree().Show(m_book);
    m_findBar.ShowHits();
    m_statusBar.ShowCounts(m_book.count(), m_book.countShort());
    OnNameSelected();
    OnPartSelected();
}

// Parts of other kinds or suppliers are hidden, and the list keeps a selected one that can be seen.
void CMainFrame::OnNameSelected()
{
    int first = -1;
    m_parts.ShowOnly([&](int row) {
        const bool included = m_splitter.Tree().Includes(m_book.part(row));
        first = included && first < 0 ? row : first;
        return included;
    });
    if (SelectedRow() < 0 || m_parts.IsHidden(SelectedRow()))
        SelectRow(first);
}

// ------------------------------------------------------------------------------------------- the part that is selected

LRESULT CMainFrame::OnSelectRow(WPARAM row, LPARAM hasKeyboard)
{
    SelectRow(static_cast<int>(row));
    if (hasKeyboard)
        m_parts.SetFocus();
    return TRUE;
}

int CMainFrame::SelectedRow() const { return m_parts.SelectedPart(); }

// A part of another kind or supplier brings all parts back.
void CMainFrame::SelectRow(int row)
{
    if (row >= 0 && m_parts.IsHidden(row))
        m_splitter.Tree().SelectAll();
    m_parts.SelectPart(row);
    OnPartSelected();
}

// ------------------------------------------------------------------------------------------------------- the search

void CMainFrame::OnEditFind() { m_findBar.Open(*this); }

void CMainFrame::OnEditRepeat()
{
    if (m_findBar.GetSafeHwnd())
        m_findBar.FindNext();
    else
        OnEditFind();
}

LRESULT CMainFrame::OnFindPart(WPARAM matchCase, LPARAM text)
{
    const auto& wanted = *reinterpret_cast<const CString_X*>(text);
    const int row = m_book.find(wanted, matchCase != 0, SelectedRow());
    if (row < 0)
        return 0;
    SelectRow(row);
    ShowStatus(IDS_FOUND, m_book.part(row).number);
    return row + 1;
}
