// A device context's CDC_X::InvertRect().

#include "geometry/rectangle.h"
#include "xeafxdc.h"

namespace {

QRgb inverted(QRgb color) { return ~color | 0xFF000000; }

bool hasTwoColors(const QImage& image)
{
    return image.format() == QImage::Format_Mono || image.format() == QImage::Format_MonoLSB;
}

// What QImage::pixel() gives is what lies there, also where it has been multiplied by an alpha.
bool hasPlainRows(const QImage& image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32
           || image.format() == QImage::Format_ARGB32_Premultiplied;
}

void invertRows(QImage& image, const CRect& area)
{
    for (int y = area.top; y < area.bottom; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = area.left; x < area.right; ++x)
            row[x] = inverted(row[x]);
    }
}

void invertPixels(QImage& image, const CRect& area)
{
    const bool isMono = hasTwoColors(image);
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x)
            image.setPixel(x, y, isMono ? !image.pixelIndex(x, y) : inverted(image.pixel(x, y)));
    }
}

void invertImage(QImage& image, const tagRECT& rect)
{
    const CRect area = CRect(0, 0, image.width(), image.height()) & rect;
    if (hasPlainRows(image))
        invertRows(image, area);
    else
        invertPixels(image, area);
}

// A picture of the widget would be painted by the handler that is running now.
void invertPainted(QPainter& painter, const QRect& rect)
{
    const QPainter::CompositionMode old = painter.compositionMode();
    painter.setCompositionMode(QPainter::RasterOp_NotDestination);
    painter.fillRect(rect, Qt::black);
    painter.setCompositionMode(old);
}

} // namespace

void CDC_X::InvertRect(tagRECT* rect)
{
    if (!rect)
        return;
    const QRect corners = xe::cornersToQRect(*rect);
    LPtoDP(rect);
    QPaintDevice* const target = device();
    if (target && target->devType() == QInternal::Image)
        invertImage(*static_cast<QImage*>(target), *rect);
    else if (target && target->devType() == QInternal::Widget)
        invertPainted(*this, corners);
}
