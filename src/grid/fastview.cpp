#include "grid/fastview.h"

namespace xe {

namespace {

constexpr quint32 swapped(quint32 pixel)
{
    return (pixel & 0xFF00FF00U) | (pixel & 0xFFU) << 16 | (pixel >> 16 & 0xFFU);
}

} // namespace

QImage fastViewOf(QImage& image)
{
    QImage view(image.bits(), image.width(), image.height(), image.bytesPerLine(), QImage::Format_RGB32);
    view.setDevicePixelRatio(image.devicePixelRatioF());
    return view;
}

// A fixed number of pixels at a time becomes vector instructions.
void endFastView(QImage& image)
{
    constexpr int group = 8;
    auto* pixel = reinterpret_cast<quint32*>(image.bits());
    const quint32* const end = pixel + image.sizeInBytes() / static_cast<qsizetype>(sizeof *pixel);
    for (; end - pixel >= group; pixel += group) {
        for (int i = 0; i < group; ++i)
            pixel[i] = swapped(pixel[i]);
    }
    for (; pixel != end; ++pixel)
        *pixel = swapped(*pixel);
}

} // namespace xe
