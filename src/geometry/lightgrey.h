// The transparent colour of bitmaps that have none of their own.
#pragma once

#include <QBitmap>
#include <QPixmap>

namespace xe {

/// The pixmap with its light grey (192, 192, 192) made transparent.
inline QPixmap withoutLightGrey(QPixmap pixmap)
{
    if (!pixmap.isNull())
        pixmap.setMask(pixmap.createMaskFromColor(QColor(192, 192, 192), Qt::MaskInColor));
    return pixmap;
}

} // namespace xe
