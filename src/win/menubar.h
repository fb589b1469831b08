// The menu bar that each wrapped window has, hidden until a menu is set.
#pragma once

class QMenuBar;
class QWidget;

namespace xe {

/// A new hidden bar, a child of the window. While it is hidden it filters no events, as Qt's own does of its parent and
/// its window: a window with many wrapped children would pay for each.
///
/// Null for a splitter, where it would become a column, and for a QMainWindow, which has a bar of its own.
QMenuBar* makeMenuBar(QWidget& window);

/// The bar that a window's menus go into: that of a QMainWindow, made if need be, or else `made`, which may be null.
/// Null for a QMainWindow that has another widget in its place.
QMenuBar* menuBarOf(QWidget* window, QMenuBar* made);

/// Along the top of a window of this width.
void placeMenuBar(QMenuBar& bar, int width);

void showMenuBar(QMenuBar& bar);

/// Empties the bar as well.
void hideMenuBar(QMenuBar& bar);

} // namespace xe
