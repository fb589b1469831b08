// The list of parts of the main window, as a user sees it: parts and columns count from 0, headings do not count.
#pragma once

#include <XeGridBtnCell.h>
#include <partsgrid.h>
#include <resource.h>

class PartsView
{
public:
    explicit PartsView(const QWidget& window)
        : m_widget(window.findChild<QWidget*>("IDC_PARTS")),
          m_grid(static_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(m_widget)))
    {}

    QWidget* widget() const { return m_widget; }
    int rowCount() const { return m_grid->m_nRows - headings; }
    int columnCount() const { return m_grid->m_nCols - 1; }
    int currentRow() const { return std::max(m_grid->m_idCurrentCell.row - headings, -1); }
    int currentColumn() const { return m_grid->m_idCurrentCell.col - 1; }
    void setCurrentCell(int row, int column) const { m_grid->SetFocusCell(row + headings, column + 1); }
    QString text(int row, int column) const { return XeQString(m_grid->GetItemText(row + headings, column + 1)); }
    /// A check box as "x" or "-" and the text beside it.
    QString boxText(int row, int column) const
    {
        const auto* const cell = static_cast<CGridBtnCell_X*>(m_grid->cellAt(row + headings, column + 1));
        const bool isChecked = cell->GetDrawCtlState(0) & DFCS_CHECKED;
        return (isChecked ? "x " : "- ") + XeQString(cell->GetDrawCtlBtnText(0));
    }
    COLORREF color(int row, int column) const { return m_grid->GetItemFgColour(row + headings, column + 1); }
    bool isRowHidden(int row) const { return m_grid->GetRowHeight(row + headings) == 0; }
    bool isColumnHidden(int column) const { return m_grid->GetColumnWidth(column + 1) == 0; }
    void showAllColumns() const { static_cast<CPartsGrid*>(m_grid)->ShowColumns(0); }
    void scrollTo(int row, int column) const { m_grid->EnsureVisible(row + headings, column + 1); }
    QPoint center(int row, int column) const
    {
        CRect rect;
        m_grid->GetCellRect(row + headings, column + 1, &rect);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }

private:
    static constexpr int headings = 2;

    QWidget* const m_widget;
    CGridCtrl_X* const m_grid;
};
