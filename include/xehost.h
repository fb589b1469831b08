/// @file xehost.h
/// The ways to the host's main window. GUI thread only.
#pragma once

#include "xedef.h"

/// The first top-level widget with the object name "CTavoMainFrame": the host's main window. Null when there is no such
/// widget or no QApplication.
XE_EXPORT QWidget* TavoGetMainFrame();

/// The active sub-window of the first QMdiArea in the main window, or null.
XE_EXPORT QWidget* TavoGetViewWindow();

/// Has the host set a mouse cursor: calls the function `int(QWidget*, int)` whose address is the main window's property
/// "TavoSetCursor", a `long long`. Does nothing when the host has not set it. Hosts call it by this misspelt name.
XE_EXPORT void TavoSetCurosr(QWidget* window, int cursor);
