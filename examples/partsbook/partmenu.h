#pragma once

#include <xeafxmenu.h>

/// Opens the context menu of the list of parts at a place on the screen. Its items look as the commands of the frame's
/// menus do. The number of the command that is chosen, -1 for none.
int openPartMenu(const CWnd_X& frame, CPoint screen);

/// Opens the context menu of a heading there, of the column that the list is sorted by or of another. The number of the
/// command that is chosen, -1 for none.
int openHeadingMenu(const CWnd_X& frame, CPoint screen, bool isSorted);
