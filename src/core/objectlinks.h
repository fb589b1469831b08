// The logical parent of a window, kept beside its Qt parent as an address.
#pragma once

class QWidget;

namespace xe {

/// Null if there is none, and when it is no longer a living widget.
QWidget* logicalParent(const QWidget& window);
void setLogicalParent(QWidget& window, QWidget* parent);

} // namespace xe
