// The room that texts and pictures of cells need.
#pragma once

class CGridCellBase_X;
class QImage;

namespace xe {

/// The height of GetTextExtent(). It is the same for all texts of a cell, so that none is laid out for it, unless the
/// cell's class has a GetTextExtent() of its own, which is asked then.
int textHeightOf(CGridCellBase_X& cell, const wchar_t* text);

/// The picture that an index names in the image list of the cell's grid; null if there is none. It stays the list's.
const QImage* pictureOf(const CGridCellBase_X& cell, int index);

} // namespace xe
