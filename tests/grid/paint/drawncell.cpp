#include "drawncell.h"

#include <utility>

IMPLEMENT_DYNCREATE_X(DrawnCell, CGridCell_X)

QStringList DrawnCell::calls;
std::function<void()> DrawnCell::onDraw;
std::function<void(const QPaintDevice*)> DrawnCell::onDrawOn;

int DrawnCell::Draw(CDC_X* dc, int row, int col, CRect rect, QWidget*, int erase)
{
    calls += QStringLiteral("%1,%2:%3 %4 %5 %6%7")
                 .arg(row)
                 .arg(col)
                 .arg(rect.left)
                 .arg(rect.top)
                 .arg(rect.right)
                 .arg(rect.bottom)
                 .arg(erase ? QStringLiteral(" erased") : QString());
    if (onDrawOn)
        onDrawOn(dc->device());
    if (onDraw)
        onDraw();
    return 1;
}

QString DrawnCell::take() { return std::exchange(calls, {}).join(QLatin1String("; ")); }

void DrawnCell::reset()
{
    calls.clear();
    onDraw = nullptr;
    onDrawOn = nullptr;
}

void setDrawn(CGridCtrl_X& grid)
{
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            grid.SetCellType(row, col, RUNTIME_CLASS_X(DrawnCell));
    }
}

#include "drawncell.moc"
