/// @file xeafximg.h
/// Image lists.
#pragma once

#include "xeafxgdi.h"

#include <QList>

class CArchive_X;
class CDC_X;
class CWnd_X;

// ------------------------------------------------------------------------------------------------------------- numbers

inline constexpr COLORREF CLR_NONE = 0xFFFFFFFF;
inline constexpr COLORREF CLR_DEFAULT = 0xFF000000;

// Kinds of an image list: CImageList_X::Create() takes no notice of them.
inline constexpr UINT ILC_MASK = 0x1;
inline constexpr UINT ILC_COLOR = 0x0;
inline constexpr UINT ILC_COLORDDB = 0xFE;
inline constexpr UINT ILC_COLOR4 = 0x4;
inline constexpr UINT ILC_COLOR8 = 0x8;
inline constexpr UINT ILC_COLOR16 = 0x10;
inline constexpr UINT ILC_COLOR24 = 0x18;
inline constexpr UINT ILC_COLOR32 = 0x20;

// Ways of drawing: nothing draws from an image list.
inline constexpr UINT ILD_NORMAL = 0x0;
inline constexpr UINT ILD_TRANSPARENT = 0x1;
inline constexpr UINT ILD_MASK = 0x10;
inline constexpr UINT ILD_IMAGE = 0x20;
inline constexpr UINT ILD_BLEND25 = 0x2;
inline constexpr UINT ILD_FOCUS = ILD_BLEND25;
inline constexpr UINT ILD_BLEND50 = 0x4;
inline constexpr UINT ILD_SELECTED = ILD_BLEND50;
inline constexpr UINT ILD_BLEND = ILD_BLEND50;
inline constexpr DWORD ILS_NORMAL = 0x0;

// What CImageList_X::Copy() does.
inline constexpr UINT ILCF_MOVE = 0; ///< the source keeps its image, unlike the published name says
inline constexpr UINT ILCF_SWAP = 1;

// ------------------------------------------------------------------------------------------------------------- records

struct _IMAGEINFO
{
    HBITMAP hbmImage; ///< a QImage*
    HBITMAP hbmMask;
    int Unused1;
    int Unused2;
    RECT rcImage;
};

struct _IMAGELISTDRAWPARAMS
{
    DWORD cbSize;
    HIMAGELIST himl;
    int i;
    HDC hdcDst;
    int x;
    int y;
    int cx;
    int cy;
    int xBitmap;
    int yBitmap;
    COLORREF rgbBk;
    COLORREF rgbFg;
    UINT fStyle;
    DWORD dwRop;
    DWORD fState;
    DWORD Frame;
    COLORREF crEffect;
};

using IMAGEINFO = _IMAGEINFO;
using LPIMAGEINFO = _IMAGEINFO*;
using IMAGELISTDRAWPARAMS = _IMAGELISTDRAWPARAMS;
using LPIMAGELISTDRAWPARAMS = _IMAGELISTDRAWPARAMS*;

// --------------------------------------------------------------------------------------------------------- image lists

/// A list of bitmaps, which belong to the caller and must live as long as they are in it. Pictures may differ in size.
///
///     CImageList_X icons; // no Create(): it makes nothing here
///     icons.Add(&drill, nullptr);
///     _IMAGEINFO info;
///     icons.GetImageInfo(0, &info); // info.hbmImage is the QImage of `drill`
///
/// There is no strip of pictures of one size, no mask and no drawing from the list: tree, list and grid fetch the
/// pictures by index. Unlike a published list it works without a handle, and normally has none.
class XE_EXPORT CImageList_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CImageList_X)

    /// Empty, without a handle.
    CImageList_X() = default;
    /// The same bitmaps under the same handle. The handle map goes on naming the other list.
    CImageList_X(const CImageList_X& other);
    CImageList_X& operator=(const CImageList_X& other);
    ~CImageList_X() override;

    // ---------------------------------------------------------------------------------------------------------- making

    /// Make nothing and give 0: fill the list by Add().
    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    BOOL Create(UINT bitmapId, int cx, int grow, COLORREF mask);
    BOOL Create(const wchar_t* bitmapId, int cx, int grow, COLORREF mask);
    /// Appends the bitmaps of another list, which may be this one. 0 for an empty one and for null, otherwise 1.
    BOOL Create(CImageList_X* list);
    /// Scales the pictures of the first `countA` bitmaps of `a` and the first `countB` of `b` to `cx` x `cy` pixels and
    /// appends the bitmaps. The bitmaps themselves change, in every list that has them, unlike those of the published
    /// function. 0, with nothing done, unless all four numbers are at least 1 and both lists have as many bitmaps.
    BOOL Create(CImageList_X& a, int countA, CImageList_X& b, int countB, int cx, int cy);
    /// 0 without a handle, which is the rule, with nothing changed; otherwise empties the list, gives 1, and the handle
    /// stays.
    BOOL DeleteImageList();

    // ---------------------------------------------------------------------------------------------------------- handle

    /// The handle, null for none and for a null object.
    HIMAGELIST GetSafeHandle() const;
    /// Stores a handle, in place of one stored before, and enters the list in the handle map. 0 for null, with nothing
    /// changed, otherwise 1.
    BOOL Attach(HIMAGELIST handle);
    /// Forgets the handle; it is the result, null for none. The bitmaps stay.
    HIMAGELIST Detach();
    /// The list with this handle, or a temporary empty one until DeleteTempMap(); null for null.
    static CImageList_X* FromHandle(HIMAGELIST handle);
    /// The list that Attach() was called on, or null.
    static CImageList_X* FromHandlePermanent(HIMAGELIST handle);
    /// Deletes the temporary lists.
    static void DeleteTempMap();

    // ---------------------------------------------------------------------------------------------------------- images

    int GetImageCount() const { return m_listImages.size(); }
    /// Makes room for as many bitmaps. The count does not change, unlike by the published function. 0 for 0, else 1.
    BOOL SetImageCount(UINT count);

    /// Appends the bitmap, and gives its index; -1 for null. Unlike in the published function the mask has no effect,
    /// and the bitmap is not copied.
    int Add(CBitmap_X* image, CBitmap_X* mask);
    /// Adds nothing and gives -1: there are no icons.
    int Add(HICON icon);
    /// Changes nothing, unlike the published function. 0 for an image without a handle, otherwise 1.
    BOOL Replace(int index, CBitmap_X* image, CBitmap_X* mask);
    /// Changes nothing and gives -1.
    int Replace(int index, HICON icon);
    /// Takes a bitmap out. 0 for an index that is negative or above the count; 1 for the count itself, with nothing
    /// changed; otherwise 1.
    BOOL Remove(int index);

    /// Puts the entry `source` in the place of the entry `destination`, which keeps its own (ILCF_MOVE), or exchanges
    /// the two (ILCF_SWAP); other flags change nothing. 1; 0 for an index beyond the list and for equal ones.
    BOOL Copy(int destination, int source, UINT flags = ILCF_MOVE);
    /// The same with the source in another list; equal indices give 0 here too. 0 for a null list.
    BOOL Copy(int destination, CImageList_X* list, int source, UINT flags = ILCF_MOVE);

    /// Writes the picture, a QImage* that stays the bitmap's, into `hbmImage` and its size, from (0, 0), into
    /// `rcImage`; no other field. 0 for an index beyond the list, for a bitmap without a picture and for null,
    /// otherwise 1.
    BOOL GetImageInfo(int index, _IMAGEINFO* info) const;
    /// The picture, a QImage* that stays the bitmap's; null as GetImageInfo() gives 0.
    HICON ExtractIcon(int index) const;

    /// The colour of the first picture's top left pixel; CLR_NONE if there is no first picture.
    COLORREF GetBkColor() const;
    /// Fills every picture with the colour, so that what it showed is gone, unlike by the published function. The
    /// result is that of GetBkColor() before; nothing if that is CLR_NONE.
    COLORREF SetBkColor(COLORREF color);
    /// Makes the picture `image` what it and the picture `overlay` look like on top of each other: the overlay's, and
    /// over it the image's at half its strength, on transparent ground. Unlike the published function it changes the
    /// picture at once, and `overlay` is an index. 1; 0 for an index beyond the list and without one of the pictures.
    BOOL SetOverlayImage(int image, int overlay);

    // ----------------------------------------------------------------------- without effect: all give 0, false or null

    BOOL Draw(CDC_X* dc, int index, POINT at, UINT style);
    BOOL DrawEx(CDC_X* dc, int index, POINT at, SIZE size, COLORREF background, COLORREF foreground, UINT style);
    BOOL DrawIndirect(_IMAGELISTDRAWPARAMS* parameters);
    BOOL DrawIndirect(CDC_X* dc, int index, POINT at, SIZE size, POINT origin, UINT style = ILD_NORMAL,
                      DWORD rop = 0x00CC0020, COLORREF background = CLR_DEFAULT, COLORREF foreground = CLR_DEFAULT,
                      DWORD state = ILS_NORMAL, DWORD frame = 0, COLORREF effect = CLR_DEFAULT);
    BOOL Read(CArchive_X* archive);
    BOOL Write(CArchive_X* archive);
    BOOL BeginDrag(int index, CPoint hotSpot);
    BOOL SetDragCursorImage(int index, CPoint hotSpot);
    static BOOL DragMove(CPoint at);
    static BOOL DragEnter(CWnd_X* window, CPoint at);
    static BOOL DragLeave(CWnd_X* window);
    static BOOL DragShowNolock(BOOL show);
    static CImageList_X* GetDragImage(tagPOINT* at, tagPOINT* hotSpot);
    static void EndDrag();

    HIMAGELIST m_hImageList = nullptr;
    QList<CBitmap_X*> m_listImages; ///< in index order, not owned
};
