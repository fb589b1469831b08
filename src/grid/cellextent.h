// The room that texts of cells need.
#pragma once

class CGridCellBase_X;

namespace xe {

/// The height of GetTextExtent(). It is the same for all texts of a cell, so that none is laid out for it, unless the
/// cell's class has a GetTextExtent() of its own, which is asked then.
int textHeightOf(CGridCellBase_X& cell, const wchar_t* text);

} // namespace xe
