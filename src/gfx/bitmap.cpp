#include "gfx/gdivalue.h"
#include "xeafxgdi.h"
#include "xeafxstr.h"

#include <algorithm>
#include <cstring>
#include <iterator>

IMPLEMENT_DYNCREATE_X(CBitmap_X, CGdiObject_X)

namespace {

constexpr QImage::Format ownFormat = QImage::Format_RGBX8888;

struct DepthFormat
{
    int depth;
    QImage::Format format;
};

constexpr DepthFormat depthFormats[] = {
    {1, QImage::Format_Mono}, {4, QImage::Format_Indexed8}, {8, QImage::Format_Grayscale8}, {16, QImage::Format_RGB16},
    {32, ownFormat},
};

QVector<QRgb> greys()
{
    QVector<QRgb> table(256);
    for (int i = 0; i < table.size(); ++i)
        table[i] = qRgb(i, i, i);
    return table;
}

QImage* newImage(int width, int height, QImage::Format format)
{
    auto* const image = new QImage(std::max(width, 0), std::max(height, 0), format);
    image->fill(0);
    if (format == QImage::Format_Indexed8)
        image->setColorTable(greys()); // Qt reads it unasked when the image is painted somewhere
    return image;
}

CSize sizeOf(const QImage& image) { return {image.width(), image.height()}; }

unsigned long long product(int a, int b, int c)
{
    return static_cast<unsigned long long>(a) * static_cast<unsigned long long>(b) * static_cast<unsigned long long>(c);
}

} // namespace

CBitmap_X::~CBitmap_X() { DeleteObject(); }

BOOL CBitmap_X::LoadBitmap(const wchar_t* path)
{
    const bool hasPath = path && *path; // without one Qt warns
    return Attach(hasPath ? new QImage(XeQString(path)) : new QImage);
}

BOOL CBitmap_X::CreateCompatibleBitmap(CDC_X*, int width, int height)
{
    return Attach(newImage(width, height, ownFormat));
}

BOOL CBitmap_X::CreateDiscardableBitmap(CDC_X* dc, int width, int height)
{
    return CreateCompatibleBitmap(dc, width, height);
}

BOOL CBitmap_X::CreateBitmap(int width, int height, UINT, UINT bitsPerPixel, const void*)
{
    QImage::Format format;
    return bitDepthIsCorrrect(static_cast<int>(bitsPerPixel), format) ? Attach(newImage(width, height, format)) : FALSE;
}

BOOL CBitmap_X::CreateBitmapIndirect(const tagBITMAP* bitmap)
{
    return bitmap ? CreateBitmap(bitmap->bmWidth, bitmap->bmHeight, bitmap->bmPlanes, bitmap->bmBitsPixel, nullptr)
                  : FALSE;
}

BOOL CBitmap_X::GetBitmap(tagBITMAP* bitmap) const
{
    auto* const image = xe::gdiValue<QImage>(this);
    if (!image || !bitmap)
        return FALSE;
    *bitmap = {
        0, image->width(), image->height(), image->bytesPerLine(), 1, static_cast<WORD>(image->depth()), image->bits()};
    return TRUE;
}

DWORD CBitmap_X::GetBitmapBits(DWORD count, void* bits) const
{
    const auto* const image = xe::gdiValue<const QImage>(this);
    if (!image || !bits)
        return 0;
    const auto told =
        std::min<unsigned long long>(count, product(image->width(), image->height(), image->bytesPerLine()));
    if (const auto copied = std::min<unsigned long long>(told, static_cast<unsigned long long>(image->sizeInBytes())))
        std::memcpy(bits, image->constBits(), copied);
    return static_cast<DWORD>(told);
}

DWORD CBitmap_X::SetBitmapBits(DWORD count, const void* bits)
{
    auto* const image = xe::gdiValue<QImage>(this);
    if (!image || !bits)
        return 0;
    // The constructor for constant bytes: whoever changes the image makes its own copy first.
    if (!image->isNull() && count >= product(image->width(), image->height(), 4))
        *image = QImage(static_cast<const uchar*>(bits), image->width(), image->height(), ownFormat);
    return count;
}

CSize CBitmap_X::GetBitmapDimension() const
{
    const auto* const image = xe::gdiValue<const QImage>(this);
    return image ? sizeOf(*image) : CSize();
}

CSize CBitmap_X::SetBitmapDimension(int, int) { return GetBitmapDimension(); }

bool CBitmap_X::bitDepthIsCorrrect(int depth, QImage::Format& format)
{
    const auto* const found = std::find_if(std::begin(depthFormats), std::end(depthFormats),
                                           [depth](const DepthFormat& entry) { return entry.depth == depth; });
    if (found == std::end(depthFormats))
        return false;
    format = found->format;
    return true;
}
