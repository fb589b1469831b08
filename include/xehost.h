/// @file xehost.h
/// The ways to the host's main window, which the host names and gives properties for this library to read.
///
/// | on the main window               | what it is                                                       |
/// | -------------------------------- | ---------------------------------------------------------------- |
/// | the object name "CTavoMainFrame" | what the main window is found by                                 |
/// | the property "TavoSetCursor"     | the address of a function `int(QWidget*, int)`, as a `qlonglong` |
/// | the property "IsTavoCmdActive"   | the address of a function `bool()`, likewise; see xehook.h       |
///
/// GUI thread only.
#pragma once

#include "xedef.h"

/// The first top-level widget with the object name "CTavoMainFrame". Null when there is no such widget, and without a
/// QApplication.
XE_EXPORT QWidget* TavoGetMainFrame();

/// The active sub-window of the first QMdiArea in the main window, at any depth; null without one.
XE_EXPORT QWidget* TavoGetViewWindow();

/// Has the host set a mouse cursor: calls the function in the main window's property "TavoSetCursor" with both
/// arguments. `cursor` is one of the codes that the handles of LoadCursor_X() point at, or one of the host's own.
/// Nothing happens when the host has not set the property. The spelling is that of the name that hosts call.
XE_EXPORT void TavoSetCurosr(QWidget* window, int cursor);
