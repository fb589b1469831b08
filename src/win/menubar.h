// The menu bar that each wrapped window has, hidden until a menu is set.
#pragma once

class QMenuBar;
class QWidget;

namespace xe {

/// A new hidden bar, a child of the window. While it is hidden it filters no events, as Qt's own does of its parent and
/// its window: a window with many wrapped children would pay for each.
///
/// Null for a splitter, where it would become a column.
QMenuBar* makeMenuBar(QWidget& window);

void showMenuBar(QMenuBar& bar);

/// Empties the bar as well.
void hideMenuBar(QMenuBar& bar);

} // namespace xe
