// The cell with the focus.
#pragma once

#include "XeGridCtrl.h"

namespace xe {

/// Whether the focus, in list mode, selects the rows up to it as well.
enum class RowSelection { Follows, Stays };

/// CGridCtrl_X::SetFocusCell(). False if the grid has gone meanwhile.
bool moveFocus(CGridCtrl_X& grid, CCellID_X cell, RowSelection rows);

} // namespace xe
