// The host's function that sets the mouse cursor.
#pragma once

class QWidget;

namespace xe {

/// Takes a window and the code of a cursor, and gives the code that is in force then.
using SetHostCursor = int (*)(QWidget* window, int code);

/// The address in the main window's property "TavoSetCursor"; null when the host has not set it.
SetHostCursor hostCursorFunction();

} // namespace xe
