#pragma once

#include "gridwindow.h"
#include "messagetrace.h"

/// Writes down what would be edited, and edits nothing.
class KeyedGrid : public Traced<CGridCtrl_X>
{
public:
    void OnEditCell(int row, int col, CPoint point, unsigned int ch) override
    {
        edits += QStringLiteral("%1,%2 %3 %4 %5").arg(row).arg(col).arg(point.x).arg(point.y).arg(ch);
    }
    void OnEditCopy() override { commands += QStringLiteral("copy"); }
    void OnEditCut() override { commands += QStringLiteral("cut"); }
    void OnEditPaste() override { commands += QStringLiteral("paste"); }
    void OnEditSelectAll() override { commands += QStringLiteral("all"); }

    static QString take(QStringList& list) { return std::exchange(list, {}).join(QLatin1String("; ")); }

    QStringList edits;
    QStringList commands;
};

using KeyedWindow = GridWindow<KeyedGrid>;
