/// @file xewinuser.h
/// Free functions on windows. A null widget or pointer gives 0.
#pragma once

#include "xedef.h"

/// Where the pointer is on the screen. 1, or 0 for a null `point`.
XE_EXPORT int GetCursorPos_X(tagPOINT* point);

/// Hides a window and takes it and its children apart: WM_DESTROY goes to its wrapper, then the children follow in their
/// order, then WM_NCDESTROY goes to the wrapper, which lets go of the widget (an owned one is deleted later). Widgets
/// without a wrapper are hidden alone. 0 for null, otherwise 1.
XE_EXPORT int DestroyWindow_X(QWidget* widget);
