// The palette that a device context starts with.
#pragma once

#include "xeafxgdi.h"

#include <QVector>

namespace xe {

constexpr int paletteSize = 256;

const QVector<tagPALETTEENTRY>& defaultPalette();

} // namespace xe
