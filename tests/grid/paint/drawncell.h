#pragma once

#include <XeGridCtrl.h>
#include <xeafxdc.h>

#include <QStringList>

#include <functional>

/// A cell that writes down where it was drawn, and draws nothing.
class DrawnCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(DrawnCell)

    using CGridCellBase_X::operator=;

    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget*, int erase) override;

    /// All calls since the last one of this, such as "0,1:50 0 99 19; 1,1:50 20 99 39".
    static QString take();
    /// Forgets calls and what is done at one.
    static void reset();
    static bool hasDrawn(const QString& call) { return calls.contains(call); }

    static QStringList calls;
    static std::function<void()> onDraw;
    static std::function<void(const QPaintDevice*)> onDrawOn;
};

void setDrawn(CGridCtrl_X& grid);
