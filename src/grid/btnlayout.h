// The rectangles of a cell's controls.
#pragma once

#include "xeatltypes.h"

#include <array>

namespace xe {

constexpr int mostControls = 16;

/// One for each control, and one more for the text.
using ControlRects = std::array<CRect, mostControls + 1>;

} // namespace xe
