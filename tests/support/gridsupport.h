// Grids for tests: one in a window that notes what it is told, a view of one as text, and a check of its insides.
#pragma once

#include <XeGridCtrl.h>

#include <QStringList>
#include <QTest>

#include <functional>
#include <utility>

/// A grid as text: the rows' texts, cells separated by "," and rows by "|".
inline QString textOf(const CGridCtrl_X& grid)
{
    QStringList rows;
    for (int row = 0; row < grid.m_nRows; ++row) {
        QStringList cells;
        for (int col = 0; col < grid.m_nCols; ++col)
            cells += XeQString(grid.GetItemText(row, col));
        rows += cells.join(QLatin1Char(','));
    }
    return rows.join(QLatin1Char('|'));
}

/// Gives each cell a text of its place, such as "1.2".
inline void fillWithPlaces(CGridCtrl_X& grid)
{
    for (int row = 0; row < grid.m_nRows; ++row) {
        for (int col = 0; col < grid.m_nCols; ++col)
            grid.SetItemText(row, col, CString_X(QStringLiteral("%1.%2").arg(row).arg(col)));
    }
}

inline QString textOf(const CCellID_X& cell) { return QStringLiteral("%1 %2").arg(cell.row).arg(cell.col); }

inline QString textOf(const CCellRange_X& range)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(range.m_nMinRow)
        .arg(range.m_nMinCol)
        .arg(range.m_nMaxRow)
        .arg(range.m_nMaxCol);
}

inline QString textOf(const tagRECT& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
}

/// What contradicts itself in a grid; empty if nothing does.
class GridSanity
{
public:
    static QString problems(const CGridCtrl_X& grid)
    {
        GridSanity check(grid);
        check.sizes();
        for (int row = 0; check.m_problems.isEmpty() && row < grid.m_nRows; ++row) {
            for (int col = 0; col < grid.m_nCols; ++col)
                check.cell(row, col);
        }
        check.selection();
        check.sums();
        return check.m_problems.join(QLatin1String(", "));
    }

private:
    explicit GridSanity(const CGridCtrl_X& grid) : m_grid(grid) {}

    void expect(bool isTrue, const QString& what)
    {
        if (!isTrue)
            m_problems += what;
    }

    void sizes()
    {
        expect(static_cast<int>(m_grid.m_RowData.size()) == m_grid.m_nRows, QStringLiteral("number of rows"));
        expect(m_grid.m_arRowHeights.GetSize() == m_grid.m_nRows, QStringLiteral("number of heights"));
        expect(m_grid.m_arColWidths.GetSize() == m_grid.m_nCols, QStringLiteral("number of widths"));
        expect(m_grid.m_nFixedRows <= m_grid.m_nRows && m_grid.m_nFixedCols <= m_grid.m_nCols,
               QStringLiteral("fixed counts"));
        for (const auto* cells : m_grid.m_RowData)
            expect(cells && static_cast<int>(cells->size()) == m_grid.m_nCols, QStringLiteral("length of a row"));
        const CCellID_X& focus = m_grid.m_idCurrentCell;
        expect(focus == CCellID_X() || (m_grid.IsValid(focus) && !m_grid.IsCellFixed(focus.row, focus.col)),
               QStringLiteral("focus at ") + textOf(focus));
    }

    void cell(int row, int col)
    {
        const CGridCellBase_X* const cell = m_grid.cellAt(row, col);
        const QString at = QStringLiteral(" of %1 %2").arg(row).arg(col);
        expect(cell, QStringLiteral("no cell") + at);
        if (!cell)
            return;
        const UINT state = cell->GetState();
        expect(cell->GetGrid() == &m_grid, QStringLiteral("grid") + at);
        expect(((state & CGridCellBase_X::Fixed) != 0) == (m_grid.IsCellFixed(row, col) != 0),
               QStringLiteral("fixed flag") + at);
        expect(((state & CGridCellBase_X::Focused) != 0) == (m_grid.m_idCurrentCell == CCellID_X(row, col)),
               QStringLiteral("focus flag") + at);
        const bool isSelected = (state & CGridCellBase_X::Selected) != 0;
        m_selected += isSelected;
        const auto key = static_cast<unsigned>(row) | static_cast<unsigned>(col) << 16;
        const auto* const pair = m_grid.m_SelectedCellMap.PLookup(key);
        expect(isSelected == (pair != nullptr), QStringLiteral("selection") + at);
        expect(!pair || pair->value == CCellID_X(row, col), QStringLiteral("selection's place") + at);
        merging(*cell, at);
    }

    void merging(const CGridCellBase_X& cell, const QString& at)
    {
        if (!cell.m_bMergeSlave)
            return;
        const CGridCellBase_X* const master = m_grid.cellAt(cell.m_nMasterRow, cell.m_nMasterCol);
        expect(master && !master->m_bMergeSlave && (master->m_nMergeRows > 0 || master->m_nMergeCols > 0),
               QStringLiteral("block") + at);
    }

    void selection() { expect(m_grid.m_SelectedCellMap.GetCount() == m_selected, QStringLiteral("size of the map")); }

    void sums()
    {
        const auto sum = [](const CUIntArray_X& sizes, int count) {
            unsigned total = 0;
            for (int i = 0; i < count; ++i)
                total += sizes[i];
            return static_cast<int>(total);
        };
        expect(m_grid.GetVirtualHeight() == sum(m_grid.m_arRowHeights, m_grid.m_nRows), QStringLiteral("height"));
        expect(m_grid.GetVirtualWidth() == sum(m_grid.m_arColWidths, m_grid.m_nCols), QStringLiteral("width"));
        expect(m_grid.GetFixedRowHeight() == sum(m_grid.m_arRowHeights, m_grid.m_nFixedRows),
               QStringLiteral("fixed height"));
        expect(m_grid.GetFixedColumnWidth() == sum(m_grid.m_arColWidths, m_grid.m_nFixedCols),
               QStringLiteral("fixed width"));
        tagRECT rect{};
        int y = 0;
        for (int row = 0; row < m_grid.m_nFixedRows && m_grid.m_nCols > 0; ++row) {
            expect(m_grid.GetCellRect(row, 0, &rect) && rect.top == y, QStringLiteral("place of row %1").arg(row));
            y += m_grid.GetRowHeight(row);
        }
    }

    const CGridCtrl_X& m_grid;
    long long m_selected = 0;
    QStringList m_problems;
};

/// A window with a grid in it, which notes what it is told: "-101(1, 2)".
class NotedWindow : public CWnd_X
{
public:
    QStringList notes;

    QString takeNotes() { return std::exchange(notes, {}).join(QLatin1Char(' ')); }

    LRESULT OnNotify(WPARAM, LPARAM record)
    {
        const auto* const note = reinterpret_cast<const XeGridNotification*>(record);
        notes += QStringLiteral("%1(%2, %3)").arg(static_cast<int>(note->hdr.code)).arg(note->iRow).arg(note->iColumn);
        if (answer)
            answer(*note);
        return result;
    }

    std::function<void(const XeGridNotification&)> answer;
    LRESULT result = 0;

    void OnMessageMap() override
    {
        using ThisClass = NotedWindow;
        CWnd_X::OnMessageMap();
        ON_MESSAGE_X(WM_NOTIFY, OnNotify)
    }
};

/// A grid of any class in the lower right of a window of 420 x 320, from (20, 20) on, shown.
template <class Grid = CGridCtrl_X>
struct ShownGrid
{
    explicit ShownGrid(int rows = 10, int columns = 5, int fixedRows = 1, int fixedColumns = 1, QSize size = {400, 300})
    {
        window.resize(size + QSize(20, 20));
        parent.SubclassWindow(&window);
        widget.setParent(&window);
        widget.setGeometry(QRect(QPoint(20, 20), size));
        grid.SubclassWindow(&widget);
        grid.SetRowCount(rows);
        grid.SetColumnCount(columns);
        grid.SetFixedRowCount(fixedRows);
        grid.SetFixedColumnCount(fixedColumns);
        window.show();
    }

    QWidget window;
    QWidget widget;
    NotedWindow parent;
    Grid grid;
};
