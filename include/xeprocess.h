/// @file xeprocess.h
/// Process and environment; the ways to the host's main window.
#pragma once

#include "xedef.h"

/// The first top-level widget with the object name "CTavoMainFrame": the host's main window. Null when there is no such
/// widget or no QApplication.
XE_EXPORT QWidget* TavoGetMainFrame();
