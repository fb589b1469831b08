/// @file xeafxrgn.h
/// Regions.
#pragma once

#include "xeafxgdi.h"

class CDC_X;

// ------------------------------------------------------------------------------------------------------------- numbers

// How CRgn_X::CombineRgn() combines.
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5; ///< the same as RGN_OR here

// How the edges of a polygon tell inside from outside. A region always takes the former.
inline constexpr int ALTERNATE = 1;
inline constexpr int WINDING = 2;

// What a region consists of.
#ifndef ERROR
inline constexpr int ERROR = 0;
#endif
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;

// ------------------------------------------------------------------------------------------------------------- records

struct tagXFORM
{
    float eM11;
    float eM12;
    float eM21;
    float eM22;
    float eDx;
    float eDy;
};

struct _RGNDATAHEADER
{
    DWORD dwSize;
    DWORD iType;
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
};

struct _RGNDATA
{
    _RGNDATAHEADER rdh;
    char Buffer[1];
};

using XFORM = tagXFORM;
using LPXFORM = tagXFORM*;
using RGNDATAHEADER = _RGNDATAHEADER;
using RGNDATA = _RGNDATA;
using LPRGNDATA = _RGNDATA*;

// ------------------------------------------------------------------------------------------------------------- regions

/// A set of pixels: the handle is a QRegion*.
///
/// The four numbers of a rectangle are its first and its last column and row, so that a region is one pixel wider and
/// higher than the published one of the same numbers, and than what CDC_X draws with them. Swapped corners give an
/// empty region.
///
/// A `Create` function lets go of a region held before without freeing it, as Attach() does; SetRectRgn() and
/// CombineRgn() free it. A null region, and one without a handle, counts as empty.
class XE_EXPORT CRgn_X : public CGdiObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CRgn_X)

    /// Without a handle.
    CRgn_X() = default;
    ~CRgn_X() override;

    /// A rectangle. 1; the record forms give 0, with nothing made, for null.
    BOOL CreateRectRgn(int left, int top, int right, int bottom);
    BOOL CreateRectRgnIndirect(const tagRECT* rect);
    /// The ellipse in a rectangle, likewise.
    BOOL CreateEllipticRgn(int left, int top, int right, int bottom);
    BOOL CreateEllipticRgnIndirect(const tagRECT* rect);
    /// A rectangle with round corners. `width` and `height` are the radii of the corners, unlike the published ones,
    /// which are diameters. 1.
    BOOL CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
    /// The inside of a polygon by the odd-even rule; `mode` is ignored. 1; without points the region is empty.
    BOOL CreatePolygonRgn(const tagPOINT* points, int count, int mode);
    /// The last of `count` polygons: unlike the published function it does not unite them. `counts` has the number of
    /// points of each, a negative one counts as 0. 1; without polygons nothing is made.
    BOOL CreatePolyPolygonRgn(const tagPOINT* points, const int* counts, int count, int mode);
    /// The clip region of a device context, empty if it has none: a device context has no paths. 1; 0 for null.
    BOOL CreateFromPath(CDC_X* dc);
    /// Makes nothing and gives 0.
    BOOL CreateFromData(const tagXFORM* transform, int count, const _RGNDATA* data);
    /// Writes nothing and gives -1, so that the query for the size of the record fails.
    int GetRegionData(_RGNDATA* data, int size) const;

    /// CreateRectRgn() in place of what the object held, which is freed unless another object holds it too. 1.
    BOOL SetRectRgn(int left, int top, int right, int bottom);
    BOOL SetRectRgn(const tagRECT* rect); ///< 0 for null, with nothing changed

    /// Makes this region what `mode` makes of two others, either of which may be this one. What the object held is
    /// freed unless another object holds it too. RGN_COPY unites as RGN_OR does; another number makes it empty. 1: the
    /// result is not a kind of region, unlike the published one.
    int CombineRgn(const CRgn_X* a, const CRgn_X* b, int mode);
    /// Takes the other object's region, which both hold from now on: OffsetRgn() of one moves both. Unlike the
    /// published function this is no copy; CombineRgn(&other, nullptr, RGN_OR) makes one. What the object held is not
    /// freed. 1; 0 if the other has no handle, and then this one has none either. Of itself nothing, 1.
    int CopyRgn(const CRgn_X* other);

    /// Whether both hold the same region, or neither holds one. Regions of equal shape are not equal here.
    BOOL EqualRgn(const CRgn_X* other) const;
    /// Moves the region, in every object that holds it. 0; -1 without a handle.
    int OffsetRgn(int dx, int dy);
    int OffsetRgn(tagPOINT by);
    /// Writes the smallest rectangle around the region, right and bottom one past it. SIMPLEREGION whatever the shape;
    /// 0 without a handle.
    int GetRgnBox(tagRECT* rect) const;
    /// Whether the point is in the region; 0 without a handle.
    BOOL PtInRegion(int x, int y) const;
    BOOL PtInRegion(tagPOINT point) const;
    /// Whether the rectangle and the region have a pixel in common; 0 without a handle or for null.
    BOOL RectInRegion(const tagRECT* rect) const;

    /// CGdiObject_X::FromHandle().
    static CGdiObject_X* FromHandle(HRGN handle) { return CGdiObject_X::FromHandle(handle); }
};
