#pragma once

class QWidget;

namespace xe {

/// Whether Qt is in the destructor of the widget or of one that it is in. It gets no child any more: Qt has taken it
/// out of the order of focus, which a new child would look for.
bool isGoing(const QWidget& widget);

} // namespace xe
