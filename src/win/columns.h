#pragma once

#include <QSplitter>

namespace xe {

/// Whether each child widget becomes a column of this one: then a window on it can have no bars.
inline bool makesColumns(const QWidget& window) { return qobject_cast<const QSplitter*>(&window); }

} // namespace xe
