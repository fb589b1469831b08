// The tool tip control that all windows share, which the module thread state holds.
#pragma once

class CToolTipCtrl_X;

namespace xe {

/// CToolTipCtrl_X::DestroyToolTipCtrl() of the control, defined beside the class.
void destroyToolTip(CToolTipCtrl_X& control);

} // namespace xe
