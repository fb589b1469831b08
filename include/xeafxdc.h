/// @file xeafxdc.h
/// Device contexts: the published painting calls on a QPainter.
#pragma once

#include "xeafxgdi.h"
#include "xeafxrgn.h"
#include "xeafxstr.h"
#include "xeatltypes.h"
#include "xecolor.h"

#include <QColor>
#include <QPainter>
#include <QVarLengthArray>

#include <type_traits>

class CFont_X;
class CWnd_X;

// ------------------------------------------------------------------------------------------------------------- numbers

// Background modes, for CDC_X::SetBkMode(). CDC_X::GetBkMode() gives Qt's numbers.
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// How text stands in its rectangle, for ToQtTextFlag().
inline constexpr UINT DT_TOP = 0x0000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_EXPANDTABS = 0x0040;
inline constexpr UINT DT_TABSTOP = 0x0080;
inline constexpr UINT DT_NOCLIP = 0x0100;
inline constexpr UINT DT_EXTERNALLEADING = 0x0200;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_INTERNAL = 0x1000;
inline constexpr UINT DT_EDITCONTROL = 0x2000;
inline constexpr UINT DT_PATH_ELLIPSIS = 0x4000;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
inline constexpr UINT DT_MODIFYSTRING = 0x10000;
inline constexpr UINT DT_RTLREADING = 0x20000;
inline constexpr UINT DT_WORD_ELLIPSIS = 0x40000;

// Sides and looks of an edge, for DrawEdge_X(), which knows the sides alone.
inline constexpr UINT BDR_RAISEDOUTER = 0x1;
inline constexpr UINT BDR_SUNKENOUTER = 0x2;
inline constexpr UINT BDR_RAISEDINNER = 0x4;
inline constexpr UINT BDR_SUNKENINNER = 0x8;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;
inline constexpr UINT BF_LEFT = 0x1;
inline constexpr UINT BF_TOP = 0x2;
inline constexpr UINT BF_RIGHT = 0x4;
inline constexpr UINT BF_BOTTOM = 0x8;
inline constexpr UINT BF_TOPLEFT = BF_TOP | BF_LEFT;
inline constexpr UINT BF_TOPRIGHT = BF_TOP | BF_RIGHT;
inline constexpr UINT BF_BOTTOMLEFT = BF_BOTTOM | BF_LEFT;
inline constexpr UINT BF_BOTTOMRIGHT = BF_BOTTOM | BF_RIGHT;
inline constexpr UINT BF_RECT = BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM;

// Operations of CDC_X::PatBlt().
inline constexpr UINT BLACKNESS = 0x00000042;
inline constexpr UINT DSTINVERT = 0x00550009;
inline constexpr UINT PATINVERT = 0x005A0049;
inline constexpr UINT PATCOPY = 0x00F00021;
inline constexpr UINT WHITENESS = 0x00FF0062;

// Stock objects, for CDC_X::SelectStockObject().
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;

namespace xe::detail {

/// Admits a COLORREF itself and nothing that converts to one, so that `Qt::red` stays a QColor.
template <class Color>
using IfColorRef = std::enable_if_t<std::is_same_v<Color, COLORREF>, int>;

} // namespace xe::detail

// ------------------------------------------------------------------------------------------------------ device context

/// A device context: a QPainter with the published calls on top.
///
/// It is bound once, by its constructor, to an image or, in a paint handler, to a widget; its destruction ends the
/// painting. All that a QPainter can do it can do as well, drawing images above all: there is no BitBlt and no TextOut.
///
///     void CPlanView::OnPaint()
///     {
///         CClientDC_X dc(this);
///         CPen_X pen(PS_DASH, 1, RGB(192, 0, 0));
///         CGdiObject_X* const old = dc.SelectObject(&pen);
///         dc.MoveTo(0, 20);
///         dc.LineTo(100, 20);
///         dc.SelectObject(old);
///     }
///
/// Coordinates are logical pixels. A rectangle excludes its right and bottom edge, unless a call says otherwise; a null
/// one draws nothing and gives 0. A colour is a QColor or a COLORREF, 0x00BBGGRR, whose high byte is not looked at.
/// A null object (pen, brush, region, window) counts as one without a handle.
///
/// Pen, brush, font, background, clip and transform are the painter's. A context without a device (made by the default
/// constructor or FromHandle(), or on a null device) draws nothing; Qt warns of some calls to it. GUI thread only.
class XE_EXPORT CDC_X : public CObject_X, public QPainter
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CDC_X)

    /// Without a device, and with an empty palette.
    CDC_X();
    /// Paints on the image; on nothing if that is null.
    explicit CDC_X(QImage* image);
    /// Paints on the widget, which Qt allows in its paint event alone; on nothing if that is null.
    explicit CDC_X(QWidget* widget);
    ~CDC_X() override;

    // --------------------------------------------------------------------------------------------------------- handles
    // A handle is any value of the host's; nothing is drawn through it.

    /// Takes the handle, enters the context in the handle map under it and passes it to SetAttribDC(). 0 for null, else
    /// 1.
    int Attach(void* handle);
    /// Gives the handle up, and calls ReleaseAttribDC(). The old handle, null without one.
    void* Detach();
    /// The context that has attached the handle, or else a temporary one, without a device. Null for null.
    static CDC_X* FromHandle(void* handle);
    /// Destroys the temporary contexts that FromHandle() has made.
    static void DeleteTempMap();
    /// The attached handle: null for a context on a device and, as the published function, for a null object.
    void* GetSafeHdc() const;

    virtual void SetAttribDC(void* handle);
    virtual void ReleaseAttribDC();

    // ----------------------------------------------------------------------------------------------------- coordinates

    /// Moves the painter's viewport there. The old origin.
    CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(tagPOINT origin) { return SetViewportOrg(origin.x, origin.y); }
    CPoint GetViewportOrg() const;

    /// From logical to device coordinates. For a child widget these are those of its top-level window, times the device
    /// pixel ratio.
    void LPtoDP(tagPOINT* points, int count = 1) const;
    /// Both corners, as points.
    void LPtoDP(tagRECT* rect) const;
    /// The size is converted as if it was a point, so a translation changes it, unlike the published function.
    void LPtoDP(tagSIZE* size) const;
    /// The way back. Nothing if the transform has no inverse.
    void DPtoLP(tagPOINT* points, int count = 1) const;
    void DPtoLP(tagRECT* rect) const;
    void DPtoLP(tagSIZE* size) const;

    // ----------------------------------------------------------------------------------------------------------- state
    // A setter gives the old value. A literal such as `SetTextColor(0)` is the form with a palette index, unlike
    // `SetTextColor(RGB(0, 0, 0))`.

    QColor GetBkColor() const;
    QColor SetBkColor(COLORREF color);
    /// The colour of this entry of the working palette; nothing if there is no such entry.
    QColor SetBkColor(int index);
    QColor SetBkColor(const QColor& color);
    QColor SetBkColor(Qt::GlobalColor color) { return SetBkColor(QColor(color)); }

    /// The text colour; the pen's as long as none has been set.
    QColor GetTextColor() const;
    /// 0xFFFFFFFF takes the text colour away again.
    QColor SetTextColor(COLORREF color);
    /// The colour of this entry of the working palette; nothing if there is no such entry.
    QColor SetTextColor(int index);
    QColor SetTextColor(const QColor& color); ///< without its alpha
    QColor SetTextColor(Qt::GlobalColor color) { return SetTextColor(QColor(color)); }

    /// Qt's number, unlike the published function: 0 for transparent, 1 for opaque.
    int GetBkMode() const;
    /// TRANSPARENT, or anything else for opaque. The old mode as GetBkMode() has it.
    int SetBkMode(int mode);

    /// Sets the QFont that the pointer names: a `CFont_X` is a QFont here. Null leaves the font alone. The old font.
    QFont SelectObject(CFont_X* font);
    QFont SelectObject(const QFont& font);
    QPen SelectObject(const QPen& pen);       ///< the old pen
    QBrush SelectObject(const QBrush& brush); ///< the old brush
    /// Sets the pen, unless it has no handle. Gives a wrapper of the context's own pen, not of the old one as the
    /// published function does: selecting that changes nothing, and so does deleting what it wraps.
    CGdiObject_X* SelectObject(CPen_X* pen);
    CGdiObject_X* SelectObject(CBrush_X* brush); ///< the same with the brush
    /// Selects a pen, brush or region, by its class. Null, with nothing done, for any other object.
    CGdiObject_X* SelectObject(CGdiObject_X* object);
    /// Makes the region the clip. 0, or -1 for one without a handle.
    int SelectObject(CRgn_X* region);

    /// Takes its entries as the working palette, filled up with white to 256; the default palette for null. The result
    /// is the working palette, not the previous one. `background` is ignored.
    CPalette_X* SelectPalette(CPalette_X* palette, BOOL background);
    UINT RealizePalette() { return 0; } ///< nothing, 0

    // --------------------------------------------------------------------------------------------------------- drawing

    int MoveTo(int x, int y); ///< 1, unlike the published function
    int MoveTo(tagPOINT point) { return MoveTo(point.x, point.y); }
    /// Draws with the pen from the current position, and goes there. Both ends are drawn. 1.
    int LineTo(int x, int y);
    int LineTo(tagPOINT point) { return LineTo(point.x, point.y); }

    /// Outline by the pen and inside by the brush, as QPainter::drawRect() has them. 1.
    int Rectangle(const tagRECT* rect);
    int Rectangle(int left, int top, int right, int bottom);
    int Ellipse(const tagRECT* rect); ///< likewise
    /// With a width and a height, unlike Rectangle() and the published function.
    int Ellipse(int x, int y, int width, int height);

    /// Fills the pixels; of a negative width or height, those on the other side of `x` or `y`.
    void FillSolidRect(int x, int y, int width, int height, QColor color);
    /// From the left and the top edge on; swapped edges fill as much to the right or downwards.
    void FillSolidRect(const tagRECT* rect, QColor color);
    /// A frame of one pixel: left and top in the first colour, right and bottom in the second.
    void Draw3dRect(int x, int y, int width, int height, QColor topLeft, QColor bottomRight);
    void Draw3dRect(const tagRECT* rect, QColor topLeft, QColor bottomRight);
    /// Selects the brush, which stays, and calls Rectangle(): fills the inside, unlike the published function.
    void FrameRect(const tagRECT* rect, CBrush_X* brush);
    /// Leaves a plain pen of the old colour: width and style are gone, unlike with the published function. The colour
    /// given.
    QColor SetPixel(int x, int y, QColor color);
    QColor SetPixel(tagPOINT point, QColor color) { return SetPixel(point.x, point.y, color); }

    // The same with a COLORREF, which a QColor would take for a QRgb, red and blue exchanged.
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    void FillSolidRect(int x, int y, int width, int height, Color color)
    {
        FillSolidRect(x, y, width, height, colorOf(color));
    }
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    void FillSolidRect(const tagRECT* rect, Color color)
    {
        FillSolidRect(rect, colorOf(color));
    }
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    void Draw3dRect(int x, int y, int width, int height, Color topLeft, Color bottomRight)
    {
        Draw3dRect(x, y, width, height, colorOf(topLeft), colorOf(bottomRight));
    }
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    void Draw3dRect(const tagRECT* rect, Color topLeft, Color bottomRight)
    {
        Draw3dRect(rect, colorOf(topLeft), colorOf(bottomRight));
    }
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    QColor SetPixel(int x, int y, Color color)
    {
        return SetPixel(x, y, colorOf(color));
    }
    template <class Color, xe::detail::IfColorRef<Color> = 0>
    QColor SetPixel(tagPOINT point, Color color)
    {
        return SetPixel(point.x, point.y, colorOf(color));
    }

    int DrawEdge(const tagRECT* rect, UINT edge, UINT flags); ///< DrawEdge_X()
    /// Draws the rectangle by pen and brush: BLACKNESS and WHITENESS with a brush of that colour, DSTINVERT and
    /// PATINVERT in Qt's raster operations, anything else plainly. The pen draws its outline each time, and DSTINVERT
    /// under no brush inverts the outline alone, unlike the published function. 1.
    int PatBlt(int x, int y, int width, int height, UINT operation);
    /// Inverts the colours, and converts the caller's rectangle by LPtoDP().
    ///
    /// On an image: what the converted rectangle covers of it, whatever the clip; each pixel becomes opaque. On a
    /// widget: what has been painted so far, right and bottom edge included. On anything else nothing.
    void InvertRect(tagRECT* rect);

    // ------------------------------------------------------------------------------------------------------------ text

    /// Width and height of a line of text in the painter's font.
    CSize GetOutputTextExtent(const CString_X& text) const;
    /// Of the first `length` elements, of all for a negative one. The text may end earlier by a terminator.
    CSize GetOutputTextExtent(const wchar_t* text, int length) const;

    /// Draws text into the rectangle, in the text colour if one has been set.
    ///
    /// `flags` are Qt's: an alignment and Qt::TextFlag, as ToQtTextFlag() makes them. The rectangle is not changed. The
    /// pen is a plain one of its old colour afterwards: width and style are gone. The height of a line of the font.
    int DrawText(const CString_X& text, const tagRECT* rect, int flags);
    /// The first `length` UTF-16 units; all up to the terminator for a negative length.
    int DrawText(const wchar_t* text, int length, const tagRECT* rect, int flags);

    // --------------------------------------------------------------------------------------------------- regions, clip

    /// Makes the region the clip; nothing without a handle: unlike with the published function, null does not take the
    /// clip away. 0.
    int SelectClipRgn(CRgn_X* region);
    /// The same by a Qt::ClipOperation: 0 no clip, 1 replace, 2 intersect, unlike the published numbers; anything else
    /// replaces. 0, or -1 for a region without a handle.
    int SelectClipRgn(CRgn_X* region, int mode);
    /// Narrows the clip to the rectangle. 0.
    int IntersectClipRect(int left, int top, int right, int bottom);
    int IntersectClipRect(const tagRECT* rect);
    /// Narrows the clip *to* the rectangle, unlike the published function: a host that is painted right by this would
    /// be painted where it is not now. 0.
    int ExcludeClipRect(int left, int top, int right, int bottom);
    int ExcludeClipRect(const tagRECT* rect);
    /// Takes the place that the window has in its parent out of the clip. 0.
    int ExcludeUpdateRgn(CWnd_X* window);
    /// Moves the whole coordinate system, not the clip alone, unlike the published function. 0.
    int OffsetClipRgn(int dx, int dy);
    int OffsetClipRgn(tagSIZE by) { return OffsetClipRgn(by.cx, by.cy); }

    int FillRgn(CRgn_X* region, CBrush_X* brush); ///< 1; 0 without a handle of either
    int PaintRgn(CRgn_X* region);                 ///< with the painter's brush
    /// Draws a frame around the rectangle that bounds the region, `width` and `height` thick: outside it at the left
    /// and the top, over its last column and row at the right and the bottom. 1; 0 without a handle of either.
    int FrameRgn(CRgn_X* region, CBrush_X* brush, int width, int height);
    /// Turns the region white, whatever was there, and leaves the clip narrowed and the composition mode changed. 0.
    int InvertRgn(CRgn_X* region);

    // ---------------------------------------------------------------------------------------------------- overridables

    /// A solid white, light grey, grey, dark grey or black brush, or a white or black pen. Nothing for NULL_BRUSH and
    /// for an index beyond. Always null.
    virtual CGdiObject_X* SelectStockObject(int index);
    /// QPainter::save(): text colour, current position and working palette are not saved. 0.
    virtual int SaveDC();
    /// QPainter::restore(), one step, whatever `level` is. 1.
    virtual int RestoreDC(int level);

    // ---------------------------------------------------------------------------------------------------------- fields

    CPoint m_ptCurrent;             ///< the current position
    void* m_hDC = nullptr;          ///< by Attach()
    void* m_hAttribDC = nullptr;    ///< by SetAttribDC(); no drawing looks at it
    CPalette_X m_palette;           ///< the working palette
    COLORREF m_crText = 0xFFFFFFFF; ///< the text colour; 0xFFFFFFFF for none

private:
    static QColor colorOf(COLORREF color);
    void startOn(QPaintDevice* device);
    void leaveMap();
    const tagPALETTEENTRY* paletteEntry(int index) const;
    CGdiObject_X* handOut(const void* slot);
    void takeBack(const void* slot);

    QVarLengthArray<const void*, 2> m_slots; // the pens and brushes of the painter that have been handed out
};

/// A device context on a window's widget, for its OnPaint(): elsewhere Qt does not allow it.
class XE_EXPORT CClientDC_X : public CDC_X
{
    Q_OBJECT

public:
    /// Without a device if the window is null or has no widget.
    explicit CClientDC_X(CWnd_X* window);
    ~CClientDC_X() override;
};

// ------------------------------------------------------------------------------------------------------ free functions

/// Qt's text flags for DT_ flags: an alignment of DT_RIGHT, DT_VCENTER and DT_CENTER, which centres vertically too,
/// with the flags for DT_SINGLELINE, DT_WORDBREAK and DT_NOPREFIX. Under the last one Qt takes the "&" out of "A&B",
/// unlike the published function: a text needs "&&". All other flags give nothing.
XE_EXPORT int ToQtTextFlag(UINT format);

/// CDC_X::DrawText() in GetTextColor(), whether a text colour has been set or not. 0 for a null context.
XE_EXPORT int DrawTextA(CDC_X* dc, const wchar_t* text, int length, const tagRECT* rect, UINT flags);
/// The same with the whole text, whatever `length` is.
XE_EXPORT int DrawTextW(CDC_X* dc, const wchar_t* text, int length, const tagRECT* rect, UINT flags);

/// Draws the sides that the BF_ flags name as lines in the current pen, right and bottom at the numbers as they stand.
/// `edge` is ignored: nothing looks raised or sunken, unlike the published function. 1; 0 for null.
XE_EXPORT int DrawEdge_X(CDC_X* dc, const tagRECT* rect, UINT edge, UINT flags);

/// Null: there is no painting outside a paint event.
XE_EXPORT HDC GetDC_X(void* window);
/// Nothing, 0.
XE_EXPORT int ReleaseDC_X(void* window, void* dc);
/// 0 for each index.
XE_EXPORT int GetDeviceCaps_X(void* dc, int index);
/// Deletes a QPainter on the heap; a CDC_X is not to be given, it is deleted as an object. 1.
XE_EXPORT BOOL DeleteDC_X(void* dc);
