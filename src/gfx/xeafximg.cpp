#include "xeafximg.h"

#include "core/nullobject.h"
#include "geometry/colorref.h"
#include "geometry/rectangle.h"
#include "gfx/gdivalue.h"
#include "state/handlemapmaker.h"
#include "xeafxstat.h"

#include <QPainter>

#include <algorithm>
#include <utility>

IMPLEMENT_DYNCREATE_X(CImageList_X, CObject_X)

namespace {

using Images = QList<CBitmap_X*>;

constexpr UINT maxReserved = 1'000'000; // SetImageCount() is only a hint

bool hasIndex(const Images& images, int index) { return index >= 0 && index < images.size(); }

QImage* pictureOf(const CBitmap_X* bitmap) { return xe::gdiValue<QImage>(bitmap); }

QImage* pictureAt(const Images& images, int index)
{
    return hasIndex(images, index) ? pictureOf(images[index]) : nullptr;
}

bool hasPixels(const QImage* picture) { return picture && !picture->isNull(); }

void scale(CBitmap_X* bitmap, int width, int height)
{
    QImage* const picture = pictureOf(bitmap);
    if (hasPixels(picture))
        *picture = picture->scaled(width, height);
}

// Qt reads past the end of a short colour table where it paints, and not where it converts.
QImage paintable(const QImage& picture)
{
    return picture.format() == QImage::Format_Indexed8 ? picture.convertToFormat(QImage::Format_ARGB32) : picture;
}

// A transparent picture like another one in size and depth, as far as bitmaps have the depth.
void createLike(const QImage& model, CBitmap_X& bitmap)
{
    if (!bitmap.CreateBitmap(model.width(), model.height(), 1, static_cast<UINT>(model.depth()), nullptr))
        bitmap.CreateCompatibleBitmap(nullptr, model.width(), model.height());
    pictureOf(&bitmap)->fill(Qt::transparent);
}

BOOL copyImage(CBitmap_X*& destination, CBitmap_X*& source, UINT flags)
{
    if (flags == ILCF_MOVE)
        destination = source;
    else if (flags == ILCF_SWAP)
        std::swap(destination, source);
    return TRUE;
}

} // namespace

CImageList_X::CImageList_X(const CImageList_X& other)
    : CObject_X(),
      m_hImageList(other.m_hImageList),
      m_listImages(other.m_listImages)
{}

CImageList_X& CImageList_X::operator=(const CImageList_X& other)
{
    if (m_hImageList != other.m_hImageList)
        Detach();
    m_hImageList = other.m_hImageList;
    m_listImages = other.m_listImages;
    return *this;
}

CImageList_X::~CImageList_X() { xe::removePermanent(afxMapHIMAGELIST_X(FALSE), m_hImageList, this); }

// ------------------------------------------------------------------------------------------------------------- making

BOOL CImageList_X::Create(int, int, UINT, int, int) { return FALSE; }

BOOL CImageList_X::Create(UINT, int, int, COLORREF) { return FALSE; }

BOOL CImageList_X::Create(const wchar_t*, int, int, COLORREF) { return FALSE; }

BOOL CImageList_X::Create(CImageList_X* list)
{
    if (!list || list->m_listImages.isEmpty())
        return FALSE;
    m_listImages.append(Images(list->m_listImages));
    return TRUE;
}

BOOL CImageList_X::Create(CImageList_X& a, int countA, CImageList_X& b, int countB, int cx, int cy)
{
    if (countA < 1 || countB < 1 || cx < 1 || cy < 1 || countA > a.GetImageCount() || countB > b.GetImageCount())
        return FALSE;
    const Images images = a.m_listImages.mid(0, countA) + b.m_listImages.mid(0, countB);
    for (CBitmap_X* image : images)
        scale(image, cx, cy);
    m_listImages.append(images);
    return TRUE;
}

BOOL CImageList_X::DeleteImageList()
{
    if (!m_hImageList)
        return FALSE;
    m_listImages.clear();
    return TRUE;
}

// ------------------------------------------------------------------------------------------------------------- handle

HIMAGELIST CImageList_X::GetSafeHandle() const
{
    const CImageList_X* const list = xe::maybeNull(this);
    return list ? list->m_hImageList : nullptr;
}

BOOL CImageList_X::Attach(HIMAGELIST handle)
{
    if (!handle)
        return FALSE;
    Detach();
    m_hImageList = handle;
    afxMapHIMAGELIST_X(TRUE)->SetPermanent(handle, this);
    return TRUE;
}

HIMAGELIST CImageList_X::Detach()
{
    xe::removePermanent(afxMapHIMAGELIST_X(FALSE), m_hImageList, this);
    return std::exchange(m_hImageList, nullptr);
}

CImageList_X* CImageList_X::FromHandle(HIMAGELIST handle)
{
    return static_cast<CImageList_X*>(afxMapHIMAGELIST_X(TRUE)->FromHandle(handle));
}

CImageList_X* CImageList_X::FromHandlePermanent(HIMAGELIST handle)
{
    CHandleMap_X* const map = afxMapHIMAGELIST_X(FALSE);
    return map ? static_cast<CImageList_X*>(map->LookupPermanent(handle)) : nullptr;
}

void CImageList_X::DeleteTempMap() { xe::deleteTemp(afxMapHIMAGELIST_X(FALSE)); }

// ------------------------------------------------------------------------------------------------------------- images

BOOL CImageList_X::SetImageCount(UINT count)
{
    if (count == 0)
        return FALSE;
    m_listImages.reserve(static_cast<int>(std::min<UINT>(count, maxReserved)));
    return TRUE;
}

int CImageList_X::Add(CBitmap_X* image, CBitmap_X*)
{
    if (!image)
        return -1;
    m_listImages.append(image);
    return m_listImages.size() - 1;
}

int CImageList_X::Add(HICON) { return -1; }

BOOL CImageList_X::Replace(int, CBitmap_X* image, CBitmap_X*) { return pictureOf(image) != nullptr; }

int CImageList_X::Replace(int, HICON) { return -1; }

BOOL CImageList_X::Remove(int index)
{
    if (index < 0 || index > m_listImages.size())
        return FALSE;
    if (index < m_listImages.size())
        m_listImages.removeAt(index);
    return TRUE;
}

BOOL CImageList_X::Copy(int destination, int source, UINT flags) { return Copy(destination, this, source, flags); }

BOOL CImageList_X::Copy(int destination, CImageList_X* list, int source, UINT flags)
{
    if (!list || destination == source || !hasIndex(m_listImages, destination) || !hasIndex(list->m_listImages, source))
        return FALSE;
    return copyImage(m_listImages[destination], list->m_listImages[source], flags);
}

BOOL CImageList_X::GetImageInfo(int index, _IMAGEINFO* info) const
{
    QImage* const picture = pictureAt(m_listImages, index);
    if (!picture || !info)
        return FALSE;
    info->hbmImage = picture;
    info->rcImage = xe::toRect(picture->rect());
    return TRUE;
}

HICON CImageList_X::ExtractIcon(int index) const { return pictureAt(m_listImages, index); }

COLORREF CImageList_X::GetBkColor() const
{
    const QImage* const first = pictureAt(m_listImages, 0);
    return hasPixels(first) ? xe::toColorRef(paintable(first->copy(0, 0, 1, 1)).pixelColor(0, 0)) : CLR_NONE;
}

COLORREF CImageList_X::SetBkColor(COLORREF color)
{
    const COLORREF old = GetBkColor();
    if (old == CLR_NONE)
        return old;
    for (const CBitmap_X* image : qAsConst(m_listImages))
        if (QImage* const picture = pictureOf(image))
            picture->fill(xe::toQColor(color));
    return old;
}

BOOL CImageList_X::SetOverlayImage(int image, int overlay)
{
    QImage* const below = pictureAt(m_listImages, image);
    const QImage* const above = pictureAt(m_listImages, overlay);
    if (!below || !above)
        return FALSE;
    CBitmap_X composed;
    createLike(*below, composed);
    if (hasPixels(below)) {
        QPainter painter(pictureOf(&composed));
        painter.drawImage(0, 0, paintable(*above));
        painter.setOpacity(0.5);
        painter.drawImage(0, 0, paintable(*below));
    }
    *below = pictureOf(&composed)->convertToFormat(QImage::Format_RGBX8888);
    return TRUE;
}

// ----------------------------------------------------------------------------------------------------- without effect

BOOL CImageList_X::Draw(CDC_X*, int, POINT, UINT) { return FALSE; }

BOOL CImageList_X::DrawEx(CDC_X*, int, POINT, SIZE, COLORREF, COLORREF, UINT) { return FALSE; }

BOOL CImageList_X::DrawIndirect(_IMAGELISTDRAWPARAMS*) { return FALSE; }

BOOL CImageList_X::DrawIndirect(CDC_X*, int, POINT, SIZE, POINT, UINT, DWORD, COLORREF, COLORREF, DWORD, DWORD,
                                COLORREF)
{
    return FALSE;
}

BOOL CImageList_X::Read(CArchive_X*) { return FALSE; }

BOOL CImageList_X::Write(CArchive_X*) { return FALSE; }

BOOL CImageList_X::BeginDrag(int, CPoint) { return FALSE; }

BOOL CImageList_X::SetDragCursorImage(int, CPoint) { return FALSE; }

BOOL CImageList_X::DragMove(CPoint) { return FALSE; }

BOOL CImageList_X::DragEnter(CWnd_X*, CPoint) { return FALSE; }

BOOL CImageList_X::DragLeave(CWnd_X*) { return FALSE; }

BOOL CImageList_X::DragShowNolock(BOOL) { return FALSE; }

CImageList_X* CImageList_X::GetDragImage(tagPOINT*, tagPOINT*) { return nullptr; }

void CImageList_X::EndDrag() {}
