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

} // namespace

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
