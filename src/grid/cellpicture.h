// The pictures of cells.
#pragma once

class CGridCellBase_X;
class QImage;

namespace xe {

/// The picture that an index names in the image list of the cell's grid; null if there is none. It stays the list's.
const QImage* pictureOf(const CGridCellBase_X& cell, int index);

} // namespace xe
