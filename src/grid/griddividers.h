// The dividers between the headings, by which rows and columns are resized.
#pragma once

#include "XeGridCtrl.h"

namespace xe {

/// What the two directions have of their own.
struct Divider
{
    static Divider ofColumns(CGridCtrl_X& grid);
    static Divider ofRows(CGridCtrl_X& grid);

    /// The line that a press at a point of a heading resizes: that of the cell, or the one before it if the point is
    /// near the cell's beginning. Unless a hidden one may be meant, hidden ones are passed. -1 for none.
    int lineAt(const CCellID_X& cell, const CPoint& point, bool mayBeHidden) const;
    int sizeOf(int line) const;

    CGridCtrl_X& grid;
    int CCellID_X::*line;
    LONG tagPOINT::*way;
    int sizing; ///< the mouse mode of a resize
    int over;   ///< the mouse mode of a pointer over a divider
    Qt::CursorShape cursor;
    int mayHide; ///< whether a hidden line can be pulled open
};

/// Whether the mouse is over a divider of columns, of rows, or drags one; the cursor for it.
const Divider* dividerOf(const Divider& columns, const Divider& rows, int mode);

/// Has the press resize a line. Without one the mouse is let go.
void startSizing(const Divider& divider, const CPoint& point);
/// Shows the line of a resize at the pointer.
void dragDivider(const Divider& divider, const CPoint& point);
/// Resizes the line to the pointer. False if it has no place any more.
bool finishSizing(const Divider& divider, const CPoint& point);
/// Fits the line to its cells.
void autoSizeLine(const Divider& divider, const CCellID_X& cell, const CPoint& point);

} // namespace xe
