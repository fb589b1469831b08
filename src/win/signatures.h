#pragma once

#include "xeafxmsg.h"

namespace xe {

class DispatchFrame;

/// Calls the handlers of `entry` on `window` with the arguments that its signature code unpacks from wParam and lParam,
/// and sets `result`. Zero if the handler has passed the message up, with `result` untouched. The entry may go during
/// the call.
using MessageCaller = int (*)(CWnd_X& window, const DispatchFrame& frame, const AFX_MSGMAP_ENTRY_X& entry,
                              WPARAM wParam, LPARAM lParam, LRESULT& result);

/// What calls the handlers of a signature code, never null: a code that unpacks nothing calls nothing, and the message
/// is swallowed with result 0.
MessageCaller callerOf(unsigned long signature);

} // namespace xe
