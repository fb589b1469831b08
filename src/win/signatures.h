#pragma once

#include "xeafxmsg.h"

namespace xe {

class DispatchFrame;

/// Calls the handlers of `entry` on `window` with the arguments that its signature code unpacks from wParam and lParam,
/// and sets `result`. False if the handler has passed the message up, with `result` untouched.
///
/// A code that unpacks nothing calls nothing: the message is swallowed with result 0.
bool callHandlers(CWnd_X& window, const DispatchFrame& frame, const AFX_MSGMAP_ENTRY_X& entry, WPARAM wParam,
                  LPARAM lParam, LRESULT& result);

} // namespace xe
