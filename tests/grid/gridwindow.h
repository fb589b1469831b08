#pragma once

#include <XeGridCtrl.h>

#include <QApplication>
#include <QImage>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

/// The top-level window of a grid: writes down the grid's notifications, as "CLICK(1, 2)".
class GridParent : public CWnd_X
{
public:
    LRESULT OnNotify(WPARAM, LPARAM record)
    {
        const auto& told = *reinterpret_cast<const XeGridNotification*>(record);
        notices += QStringLiteral("%1(%2, %3)").arg(nameOf(told.hdr.code)).arg(told.iRow).arg(told.iColumn);
        if (const auto handler = onNotice) // it may replace itself
            handler(told);
        return answer;
    }

    LRESULT OnCommand(WPARAM id, LPARAM source)
    {
        notices += QStringLiteral("COMMAND");
        command = {id, source};
        return 0;
    }

    /// All notices since the last call, separated by a space.
    QString take() { return std::exchange(notices, {}).join(QLatin1Char(' ')); }

    static QString nameOf(UINT code)
    {
        switch (code) {
        case NM_CLICK:
            return QStringLiteral("CLICK");
        case NM_DBLCLK:
            return QStringLiteral("DBLCLK");
        case NM_RCLICK:
            return QStringLiteral("RCLICK");
        case LVN_ITEMCHANGING:
            return QStringLiteral("CHANGING");
        case LVN_ITEMCHANGED:
            return QStringLiteral("CHANGED");
        case LVN_BEGINLABELEDITW:
            return QStringLiteral("BEGIN");
        case LVN_ENDLABELEDITW:
            return QStringLiteral("END");
        default:
            return QString::number(static_cast<int>(code));
        }
    }

    QStringList notices;
    std::function<void(const XeGridNotification&)> onNotice;
    LRESULT answer = 0;
    std::pair<WPARAM, LPARAM> command;

    void OnMessageMap() override
    {
        using ThisClass = GridParent;
        CWnd_X::OnMessageMap();
        ON_MESSAGE_X(WM_NOTIFY, OnNotify)
        ON_MESSAGE_X(WM_COMMAND, OnCommand)
    }
};

/// A grid in the left upper corner of a window. Columns are 50 wide and rows 20 high.
template <class Grid = CGridCtrl_X>
struct GridWindow
{
    GridWindow(int rows, int cols, int fixedRows = 1, int fixedCols = 1, QSize size = {300, 200})
    {
        window.Create(0, static_cast<QWidget*>(nullptr));
        window.GetSafeHwnd()->setGeometry(50, 50, size.width() + 100, size.height() + 100);
        widget = new QWidget(window.GetSafeHwnd());
        widget->resize(size);
        grid = std::make_unique<Grid>();
        grid->m_nDefCellWidth = 50;
        grid->SetRowCount(rows);
        grid->SetColumnCount(cols);
        grid->SetFixedRowCount(fixedRows);
        grid->SetFixedColumnCount(fixedCols);
        grid->SubclassWindow(widget);
        grid->ResetScrollBars();
        window.take();
    }
    ~GridWindow()
    {
        grid.reset();
        window.DestroyWindow();
    }
    Q_DISABLE_COPY_MOVE(GridWindow)

    /// To be asked inside QVERIFY: shows the window, gives the grid the keyboard.
    bool comeUp()
    {
        window.GetSafeHwnd()->show();
        window.GetSafeHwnd()->activateWindow();
        widget->setFocus();
        return QTest::qWaitForWindowActive(window.GetSafeHwnd()) && QApplication::focusWidget() == widget;
    }

    QImage grab() const { return widget->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// The middle of a cell, in the grid.
    QPoint middleOf(int row, int col) const
    {
        CRect rect;
        grid->GetCellRect(row, col, &rect);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }

    /// Fills each cell with "row,column".
    void fill()
    {
        for (int row = 0; row < grid->GetRowCount(); ++row) {
            for (int col = 0; col < grid->GetColumnCount(); ++col)
                grid->SetItemText(row, col, CString_X(textOf(row, col)));
        }
    }
    static QString textOf(int row, int col) { return QStringLiteral("%1,%2").arg(row).arg(col); }

    /// The selected cells, row by row, such as "1,1 1,2".
    QString selected() const { return inState(CGridCellBase_X::Selected); }
    QString inState(unsigned state) const
    {
        QStringList cells;
        for (int row = 0; row < grid->GetRowCount(); ++row) {
            for (int col = 0; col < grid->GetColumnCount(); ++col) {
                if (grid->GetItemState(row, col) & state)
                    cells += textOf(row, col);
            }
        }
        return cells.join(QLatin1Char(' '));
    }
    /// The focus as "row,column".
    QString focus() const { return textOf(grid->m_idCurrentCell.row, grid->m_idCurrentCell.col); }

    GridParent window;
    QWidget* widget;
    std::unique_ptr<Grid> grid;
};
