// The transparent colour of bitmaps that have none of their own.
#pragma once

#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <utility>

namespace xe {

/// The pixmap with its light grey (192, 192, 192) made transparent. QPixmap's masks would convert the picture several
/// times.
inline QPixmap withoutLightGrey(const QPixmap& pixmap)
{
    constexpr QRgb lightGrey = 0xFFC0C0C0;
    QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace(line, line + image.width(), lightGrey, QRgb(0));
    }
    return QPixmap::fromImage(std::move(image));
}

} // namespace xe
