#include "partpictures.h"

#include "text.h"

#include <QDir>
#include <QImageReader>

namespace {

constexpr const wchar_t* files[CPartPictures::count] = {
    L"book",  L"kinds",  L"suppliers", L"supplier",   L"part",     L"fastener",   L"bearing",  L"seal",
    L"drive", L"spring", L"pneumatic", L"electrical", L"machined", L"sheetmetal", L"supplies",
};

// In the order of their pictures.
constexpr const wchar_t* kinds[] = {
    L"Fastener",  L"Bearing",    L"Seal",     L"Drive",       L"Spring",
    L"Pneumatic", L"Electrical", L"Machined", L"Sheet metal", L"Supplies",
};
static_assert(CPartPictures::firstKind + std::size(kinds) == CPartPictures::count);

constexpr int smallSize = 18;

// In the middle of a row: a cell puts its picture to its top.
QImage* rowPicture(const CImageList_X& images, int place, int rowHeight)
{
    const auto* const picture = static_cast<const QImage*>(images.ExtractIcon(place));
    const QImage small = picture->scaled(smallSize, smallSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const int top = (rowHeight - smallSize) / 2;
    return new QImage(small.copy(0, -top, small.width(), small.height() + top));
}

} // namespace

// --------------------------------------------------------------------------------------------------- in their own size

CPartPictures::CPartPictures()
{
    for (int place = 0; place < count; ++place) {
        m_bitmaps[place].LoadBitmap(formatText(L":/partsbook/pictures/%s.png", files[place]));
        m_images.Add(&m_bitmaps[place], nullptr);
    }
}

int CPartPictures::PlaceOfKind(const CString_X& kind)
{
    const XeQString name(kind);
    int place = firstKind;
    for (const wchar_t* const one : kinds) {
        if (name.startsWith(QString::fromWCharArray(one), Qt::CaseInsensitive))
            return place;
        ++place;
    }
    return AnyKind;
}

QPixmap CPartPictures::PictureOf(const Part& part, const QString& folder) const
{
    const QString file = QDir(folder).filePath(XeQString(part.picture));
    const QImage own = part.picture.IsEmpty() ? QImage() : QImageReader(file).read();
    if (!own.isNull())
        return QPixmap::fromImage(own);
    return QPixmap::fromImage(*static_cast<const QImage*>(m_images.ExtractIcon(PlaceOfKind(part.kind))));
}

// ------------------------------------------------------------------------------------------------------------- in rows

CRowPictures::CRowPictures(const CPartPictures& pictures, int rowHeight)
{
    for (int place = 0; place < CPartPictures::count; ++place) {
        m_bitmaps[place].Attach(rowPicture(pictures.Images(), place, rowHeight));
        m_images.Add(&m_bitmaps[place], nullptr);
    }
}
