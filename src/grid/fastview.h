// The image a grid is painted on, as Qt paints it fastest.
#pragma once

#include <QImage>

namespace xe {

/// The memory of an image of QImage::Format_RGBX8888 as one of Format_RGB32, where Qt blends text four times as fast.
/// On a machine with the low byte first the two differ in nothing but the places of red and blue.
///
/// It is for as long as the image lives and is not painted on itself.
QImage fastViewOf(QImage& image);

/// Brings red and blue to their places, after the painting on a view of the image.
void endFastView(QImage& image);

} // namespace xe
