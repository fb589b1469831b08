// A scroll bar of the window in the place of a widget's own one.
#pragma once

class QScrollBar;

namespace xe {

/// Has `shown`, if there is one, scroll what the hidden bar `own` of a scroll area scrolls: range, page and value go
/// from one to the other, and the wheel that the area gives to its own bar turns the other. It ends with either.
void coupleBars(QScrollBar& own, QScrollBar* shown);

} // namespace xe
