#pragma once

#include "part.h"

#include <xeafximg.h>

#include <QPixmap>

/// The pictures of parts and of what a book sorts them by. An image list does not own its bitmaps: this object outlives
/// the controls that show them.
class CPartPictures
{
public:
    /// Places in the image list. Behind the last one come those of the kinds that have a picture.
    enum Place { Book, Kinds, Suppliers, Supplier, AnyKind, firstKind };
    static constexpr int count = firstKind + 10;

    CPartPictures();
    CPartPictures(const CPartPictures&) = delete;
    CPartPictures& operator=(const CPartPictures&) = delete;

    const CImageList_X& Images() const { return m_images; }
    /// The place of the picture of a kind: a kind goes by the beginning of its name.
    static int PlaceOfKind(const CString_X& kind);
    /// The part's own picture, whose name may be relative to a folder, or the one of its kind if there is none.
    QPixmap PictureOf(const Part& part, const QString& folder) const;

private:
    CBitmap_X m_bitmaps[count];
    CImageList_X m_images;
};

/// The same pictures for the rows of a grid, as high as these have room for.
class CRowPictures
{
public:
    CRowPictures(const CPartPictures& pictures, int rowHeight);

    CImageList_X& Images() { return m_images; }

private:
    CBitmap_X m_bitmaps[CPartPictures::count];
    CImageList_X m_images;
};
