#pragma once

#include <xeafxmenu.h>

/// Opens the context menu of the list of parts at a place on the screen. Its items look as the commands of the frame's
/// menus do. The number of the command that is chosen, -1 for none.
int openPartMenu(const CWnd_X& frame, CPoint screen);
