#include "ctrl/itemicons.h"

#include "gfx/gdivalue.h"

#include <QPixmap>

namespace xe {

namespace {

constexpr int maxIcons = 1000; // those of pictures that have changed stay until then

QImage pictureIn(const QList<CBitmap_X*>& bitmaps, int index)
{
    const QImage* const picture =
        index >= 0 && index < bitmaps.size() ? gdiValue<const QImage>(bitmaps[index]) : nullptr;
    return picture ? *picture : QImage();
}

QImage pictureAt(const CImageList_X& list, const ItemIcons::Pictures& pictures, int index)
{
    if (!ItemIcons::hasImage(list, index))
        return {};
    const QImage picture = pictureIn(pictures, index);
    return picture.isNull() ? pictureIn(list.m_listImages, index) : picture;
}

} // namespace

void ItemIcons::append(Pictures& pictures, const QPixmap& picture)
{
    auto bitmap = std::make_unique<CBitmap_X>();
    bitmap->Attach(new QImage(picture.toImage().convertToFormat(QImage::Format_ARGB32)));
    pictures.append(bitmap.get());
    m_ownBitmaps.push_back(std::move(bitmap));
}

void ItemIcons::clear(Pictures& pictures)
{
    pictures.clear();
    m_ownBitmaps.clear();
}

QIcon& ItemIcons::entry(Key key)
{
    if (m_icons.size() >= maxIcons && !m_icons.contains(key))
        m_icons.clear();
    return m_icons[key];
}

const QIcon& ItemIcons::icon(const CImageList_X& list, const Pictures& pictures, int normal, int selected)
{
    const QImage image = pictureAt(list, pictures, normal);
    const QImage selectedImage = pictureAt(list, pictures, selected);
    QIcon& icon = entry({image.cacheKey(), selectedImage.cacheKey()});
    if (icon.isNull()) {
        icon.addPixmap(QPixmap::fromImage(image), QIcon::Normal, QIcon::Off);
        icon.addPixmap(QPixmap::fromImage(selectedImage), QIcon::Selected, QIcon::Off);
    }
    return icon;
}

const QIcon& ItemIcons::icon(const CImageList_X& list, const Pictures& pictures, int index)
{
    const QImage image = pictureAt(list, pictures, index);
    QIcon& icon = entry({image.cacheKey(), 0});
    if (icon.isNull())
        icon.addPixmap(QPixmap::fromImage(image));
    return icon;
}

} // namespace xe
