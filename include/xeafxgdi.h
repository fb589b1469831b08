/// @file xeafxgdi.h
/// Pens, brushes, bitmaps and palettes.
///
/// The handle of such an object is the address of a Qt value on the heap: a QPen, a QBrush, a QImage. A device context
/// takes the value as it is. The objects are for the GUI thread.
#pragma once

#include "xeafx.h"
#include "xeatltypes.h"

#include <QImage>
#include <QVector>

#include <type_traits>

class CDC_X;
class CFont_X; ///< a host's class over QFont: the library takes its address for that of a QFont

// ------------------------------------------------------------------------------------------------------------- numbers

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;
inline constexpr int PS_INSIDEFRAME = 6; ///< draws nothing here, unlike the published style

inline constexpr UINT BS_SOLID = 0;
inline constexpr UINT BS_NULL = 1;
inline constexpr UINT BS_HOLLOW = BS_NULL;
inline constexpr UINT BS_HATCHED = 2;
inline constexpr UINT BS_PATTERN = 3;

inline constexpr int HS_HORIZONTAL = 0;
inline constexpr int HS_VERTICAL = 1;
inline constexpr int HS_FDIAGONAL = 2;
inline constexpr int HS_BDIAGONAL = 3;
inline constexpr int HS_CROSS = 4;
inline constexpr int HS_DIAGCROSS = 5;

// ------------------------------------------------------------------------------------------------------------- records

struct tagLOGPEN
{
    UINT lopnStyle;
    POINT lopnWidth; ///< the width in pixels is `x`
    COLORREF lopnColor;
};

struct tagEXTLOGPEN
{
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    ULONG_PTR elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
};

struct tagLOGBRUSH
{
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};

struct tagBITMAP
{
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

struct tagPALETTEENTRY
{
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
};

struct tagLOGPALETTE
{
    WORD palVersion;
    WORD palNumEntries;             ///< how many entries follow
    tagPALETTEENTRY palPalEntry[1]; ///< the first of them
};

Q_DECLARE_TYPEINFO(tagPALETTEENTRY, Q_PRIMITIVE_TYPE);

using LOGPEN = tagLOGPEN;
using LPLOGPEN = tagLOGPEN*;
using EXTLOGPEN = tagEXTLOGPEN;
using LPEXTLOGPEN = tagEXTLOGPEN*;
using LOGBRUSH = tagLOGBRUSH;
using LPLOGBRUSH = tagLOGBRUSH*;
using BITMAP = tagBITMAP;
using LPBITMAP = tagBITMAP*;
using PALETTEENTRY = tagPALETTEENTRY;
using LPPALETTEENTRY = tagPALETTEENTRY*;
using LOGPALETTE = tagLOGPALETTE;
using LPLOGPALETTE = tagLOGPALETTE*;

namespace xe::detail {

/// Picks the overload for numbers that are no `unsigned int`: a literal 0 is then a colour and not a null pointer.
template <class Number>
using IfNumber = std::enable_if_t<std::is_integral_v<Number>>;

} // namespace xe::detail

// ------------------------------------------------------------------------------------------------------ the base class

/// What pens, brushes, bitmaps, palettes and regions have in common: a handle, the address of a Qt value on the heap.
///
/// The object owns the value: DeleteObject() and the destructor free it. Several objects may hold one value, by
/// Attach() of a handle or CRgn_X::CopyRgn(); it then lives until the last of them lets go. A `Create` function or
/// Attach() on an object that holds a value lets go of that value without freeing it, since a device context or the
/// host may still use it: call DeleteObject() first.
///
/// FromHandle() gives the object that holds a handle. For an address that none holds it makes a temporary object, which
/// does not own the value and lives until DeleteTempMap().
///
/// Null arguments count as objects without a handle.
class XE_EXPORT CGdiObject_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGdiObject_X)

    CGdiObject_X() = default;
    /// Frees the value, as DeleteObject() does, without looking for the class: a plain CGdiObject_X does not know the
    /// type of its value and frees its memory alone. The classes below run the value's destructor.
    ~CGdiObject_X() override;

    /// The handle, null for none.
    operator void*() const { return m_hObject; }
    /// The handle, null for none and for a null object.
    HGDIOBJ GetSafeHandle() const;

    /// Takes over a value on the heap, of the type that the class stands for, and enters the object in the handle map.
    /// A value held before is let go of and not freed. 0 for null, with nothing changed, otherwise 1.
    BOOL Attach(HGDIOBJ handle);
    /// Gives up the value without freeing it: the handle, which is the caller's now unless another object holds it too;
    /// null for none.
    HGDIOBJ Detach();
    /// Gives up the value, and frees it unless another object holds it. 0 without a handle, otherwise 1.
    ///
    /// On the temporary object that CDC_X::SelectObject() returned for the pen or brush in use it frees nothing: that
    /// value is the device context's.
    BOOL DeleteObject();

    /// The object that holds the handle, or a temporary one; null for null. A temporary object is a plain CGdiObject_X
    /// whatever the value is, so it must not be cast down.
    static CGdiObject_X* FromHandle(HGDIOBJ handle);
    /// Deletes the temporary objects.
    static void DeleteTempMap();

    /// Writes nothing and gives 0: the classes have functions for their records.
    int GetObject(int count, void* object) const;

    HGDIOBJ m_hObject = nullptr;

private:
    bool letGo(); // whether nobody holds the value any more

    void* m_held = nullptr; // the handle that this object is counted as a holder of
};

// ---------------------------------------------------------------------------------------------------------------- pens

/// A pen: the handle is a QPen*.
class XE_EXPORT CPen_X : public CGdiObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPen_X)

    /// Without a handle.
    CPen_X() = default;
    /// As CreatePen() of the same arguments.
    CPen_X(int style, int width, COLORREF color);
    template <class Number, class = xe::detail::IfNumber<Number>>
    CPen_X(int style, int width, Number color) : CPen_X(style, width, static_cast<COLORREF>(color))
    {}
    CPen_X(int style, int width, const tagLOGBRUSH* brush, int count = 0, const DWORD* styles = nullptr);
    ~CPen_X() override;

    /// A pen of a PS_ style, a width in pixels and a colour. Width 0, which a negative one counts as, is one pixel
    /// under any transformation. A style other than PS_SOLID to PS_DASHDOTDOT draws nothing. 1.
    BOOL CreatePen(int style, int width, COLORREF color);
    template <class Number, class = xe::detail::IfNumber<Number>>
    BOOL CreatePen(int style, int width, Number color)
    {
        return CreatePen(style, width, static_cast<COLORREF>(color));
    }
    /// The same with the colour of a brush, whose style and hatch are ignored, as are `count` and `styles`. Unlike in
    /// the form above and in the published function the colour is read as 0x00RRGGBB: red and blue change places
    /// against a COLORREF. 0 for a null brush.
    BOOL CreatePen(int style, int width, const tagLOGBRUSH* brush, int count = 0, const DWORD* styles = nullptr);
    /// CreatePen() with the record's style, `lopnWidth.x` and colour. 0 for null.
    BOOL CreatePenIndirect(const tagLOGPEN* pen);

    /// Writes style, width (into `lopnWidth.x`, with 0 in `y`) and colour. A QPen style without a number reads PS_NULL.
    /// 0 without a handle or for null, otherwise 1.
    BOOL GetLogPen(tagLOGPEN* pen) const;
    /// Writes nothing and gives 0.
    BOOL GetExtLogPen(tagEXTLOGPEN* pen) const;

    /// CGdiObject_X::FromHandle().
    static CGdiObject_X* FromHandle(HPEN handle) { return CGdiObject_X::FromHandle(handle); }

    /// The Qt style of a PS_ number: Qt::NoPen for PS_NULL and for every number that is not named above it.
    static Qt::PenStyle mapToQtPenStyle(int style);
    /// The way back: PS_NULL for every style without a number.
    static int mapToMfcPenStyle(Qt::PenStyle style);
};

// ------------------------------------------------------------------------------------------------------------- bitmaps

/// A picture: the handle is a QImage*.
class XE_EXPORT CBitmap_X : public CGdiObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CBitmap_X)

    /// Without a handle.
    CBitmap_X() = default;
    ~CBitmap_X() override;

    /// Reads a picture from a file, also of the Qt resource tree (":/..."); it takes a path, unlike the published
    /// function. 1 in every case: a file that cannot be read, and a null path, leave a null QImage.
    BOOL LoadBitmap(const wchar_t* path);

    /// A black picture of this size in pixels, of 32 bits a pixel (QImage::Format_RGBX8888); the device context
    /// is ignored. 1. A width or height below 1 leaves a null QImage.
    BOOL CreateCompatibleBitmap(CDC_X* dc, int width, int height);
    BOOL CreateDiscardableBitmap(CDC_X* dc, int width, int height);
    /// The same with 1, 4, 8, 16 or 32 bits a pixel; another number gives 0 and no picture. `planes` is ignored, and so
    /// is `bits`, unlike in the published function: SetBitmapBits() takes them. With 4 the picture has a colour table
    /// (QImage::Format_Indexed8), of greys, and Qt cannot paint on it.
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
    /// CreateBitmap() with the record's width, height and bits per pixel. 0 for null.
    BOOL CreateBitmapIndirect(const tagBITMAP* bitmap);

    /// Writes all fields; `bmBits` is the address of the picture's own bytes, for reading and writing while the picture
    /// stays. 0 without a handle or for null, otherwise 1.
    BOOL GetBitmap(tagBITMAP* bitmap) const;
    /// Copies the first `count` bytes of the picture, at most as many as it has, and gives `count`, at most
    /// width x height x bytes a row. That product is larger than the picture, unlike the published result; what lies
    /// behind the picture's bytes in the buffer stays. 0 without a handle or for null.
    DWORD GetBitmapBits(DWORD count, void* bits) const;
    /// Makes the picture one over the caller's bytes, of the same size in QImage::Format_RGBX8888 whatever it was. The
    /// bytes are not copied: they must live as long as the picture. It is never written through it. With fewer than
    /// width x height x 4 bytes nothing changes. `count`; 0 without a handle or for null.
    DWORD SetBitmapBits(DWORD count, const void* bits);

    /// Width and height in pixels, unlike the published function; (0, 0) without a handle.
    CSize GetBitmapDimension() const;
    /// Changes nothing, and gives the size as GetBitmapDimension() does.
    CSize SetBitmapDimension(int width, int height);

    /// CGdiObject_X::FromHandle().
    static CGdiObject_X* FromHandle(HBITMAP handle) { return CGdiObject_X::FromHandle(handle); }

    /// Writes the format for a number of bits a pixel. False, with nothing written, for a number not named at
    /// CreateBitmap().
    static bool bitDepthIsCorrrect(int depth, QImage::Format& format);
};

// ------------------------------------------------------------------------------------------------------------- brushes

/// A brush: the handle is a QBrush*.
class XE_EXPORT CBrush_X : public CGdiObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CBrush_X)

    /// Without a handle.
    CBrush_X() = default;
    /// As CreateSolidBrush(), CreateHatchBrush() and CreatePatternBrush().
    explicit CBrush_X(COLORREF color);
    template <class Number, class = xe::detail::IfNumber<Number>>
    explicit CBrush_X(Number color) : CBrush_X(static_cast<COLORREF>(color))
    {}
    CBrush_X(int hatch, COLORREF color);
    explicit CBrush_X(CBitmap_X* bitmap);
    ~CBrush_X() override;

    /// A brush of one colour. 1.
    BOOL CreateSolidBrush(COLORREF color);
    /// A brush of lines in one of the HS_ directions. 1, also for another number, whose brush paints nothing.
    BOOL CreateHatchBrush(int hatch, COLORREF color);
    /// A brush of the picture as it is now. 0, with nothing made, for a bitmap without a handle, otherwise 1; a null
    /// QImage gives a brush that paints nothing.
    BOOL CreatePatternBrush(CBitmap_X* bitmap);
    /// A solid or a hatch brush. 0, with nothing made, for another style and for null.
    BOOL CreateBrushIndirect(const tagLOGBRUSH* brush);
    /// A solid brush of the window colour of the main frame's palette (TavoGetMainFrame()); a brush that paints nothing
    /// if there is no main frame. The index is ignored. 1.
    BOOL CreateSysColorBrush(int index);

    /// Writes style, hatch and colour. A brush of a QBrush style without a number, such as Qt::Dense4Pattern, reads as
    /// a solid one. 0 without a handle or for null, otherwise 1.
    BOOL GetLogBrush(tagLOGBRUSH* brush) const;

    /// CGdiObject_X::FromHandle().
    static CGdiObject_X* FromHandle(void* handle) { return CGdiObject_X::FromHandle(handle); }

    /// The Qt style of an HS_ number: Qt::NoBrush for any other.
    static Qt::BrushStyle mapToBrushStyle(int hatch);
    /// Writes the BS_ style, and for a hatched one the HS_ number. A Qt style without a number leaves both as they are.
    static void mapToHatchStyle(Qt::BrushStyle brushStyle, int& style, int& hatch);
};

// ------------------------------------------------------------------------------------------------------------ palettes

/// A table of colours. It has no handle at any time: GetEntryCount() tells whether there is anything in it.
class XE_EXPORT CPalette_X : public CGdiObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPalette_X)

    /// Without entries.
    CPalette_X() = default;
    ~CPalette_X() override;

    /// Appends the record's entries to those that are there: unlike the published function it may be called again. 0
    /// for null, otherwise 1. Want of memory raises std::bad_alloc, here and in ResizePalette().
    BOOL CreatePalette(const tagLOGPALETTE* palette);
    /// Makes nothing and gives 0.
    BOOL CreateHalftonePalette(CDC_X* dc);
    /// Cuts the table, or adds entries of zeros. 1.
    BOOL ResizePalette(UINT count);

    int GetEntryCount() const { return m_entries.size(); }
    /// How many of `count` entries there are from `start` on. It copies nothing, unlike the published function:
    /// `entries` is left as it is, and null gives 0.
    UINT GetPaletteEntries(UINT start, UINT count, tagPALETTEENTRY* entries) const;
    /// Copies entries into the table, up to its end, and gives their number. Unlike the published function a `count` of
    /// 0 goes on to the end of the table and reads as many entries. 0 for null and for a start behind the table.
    UINT SetPaletteEntries(UINT start, UINT count, const tagPALETTEENTRY* entries);
    /// Does nothing.
    void AnimatePalette(UINT start, UINT count, const tagPALETTEENTRY* entries);

    /// The entry whose red, green and blue differ least, in sum, from the colour's; the first of several. 0 without
    /// entries.
    UINT GetNearestPaletteIndex(COLORREF color) const;

    /// CGdiObject_X::FromHandle().
    static CGdiObject_X* FromHandle(HPALETTE handle) { return CGdiObject_X::FromHandle(handle); }

private:
    friend class CDC_X;

    QVector<tagPALETTEENTRY> m_entries;
};
