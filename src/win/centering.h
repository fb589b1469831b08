// Where a window stands when it is centred.
#pragma once

class QWidget;

namespace xe {

/// Moves a widget to the middle of `target`'s frame or, without one, of the screen that it is on.
void centerWidget(QWidget& widget, const QWidget* target);

} // namespace xe
