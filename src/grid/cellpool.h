// Memory for the ordinary cells.
#pragma once

#include <cstddef>

namespace xe {

/// Memory for one object of the size of a CGridCell_X, from blocks of hundreds: a million cells would be a million
/// blocks of the heap otherwise, each with its own header and rounding. What holds no more cells is freed. Cells that
/// are made one after the other lie so. GUI thread only.
void* takeCellMemory();
void giveCellMemoryBack(void* cell) noexcept;

} // namespace xe
