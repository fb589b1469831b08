// How dialog bars and dock bars place themselves.
#pragma once

#include "xedef.h"

class QDockWidget;

namespace xe {

/// Makes the bar a window of its own, or not, and moves it to a side of its parent by the CBRS_ bits of the style.
/// Handlers of the host's may be called, and may delete the bar.
void placeByStyle(QDockWidget* bar, DWORD style, bool floating);

} // namespace xe
