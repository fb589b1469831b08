// A picture of an item as it is on the screen.
#pragma once

#include <QPixmap>

class QAbstractScrollArea;
class QRect;

namespace xe {

/// What the primary screen shows where `rect`, in the viewport, is; what the viewport shows, where the screen gives
/// nothing. Null for an empty rectangle.
QPixmap pictureOnScreen(const QAbstractScrollArea& area, const QRect& rect);

} // namespace xe
