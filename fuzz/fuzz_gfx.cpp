// A device context, its objects and an image list, made, selected, drawn with and deleted in any order: a value lives
// as long as an object holds it, and what a call answers agrees with what the next one does.

#include <XeMFCEmu.h>

#include "check.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <memory>

namespace {

// The numbers of a program; zeros when it has ended.
class Numbers
{
public:
    Numbers(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool atEnd() const { return m_next == m_end; }
    int byte() { return atEnd() ? 0 : *m_next++; }
    int small() { return byte() - 64; } // a coordinate, on the picture or beside it
    COLORREF color() { return static_cast<COLORREF>(byte()) * 0x01030507; }

    tagRECT rect()
    {
        const int left = small();
        const int top = small();
        return {left, top, left + small(), top + small()};
    }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

template <class Object>
using Shelf = std::array<Object, 3>;

// What a host has. The lists go first, since they hold addresses of the bitmaps.
struct Host
{
    template <class Object>
    static Object& chosen(Shelf<Object>& shelf, Numbers& numbers)
    {
        return shelf[static_cast<std::size_t>(numbers.byte()) % shelf.size()];
    }

    void start() { dc = std::make_unique<CDC_X>(&image); }

    QImage image{32, 32, QImage::Format_ARGB32_Premultiplied};
    Shelf<CPen_X> pens;
    Shelf<CBrush_X> brushes;
    Shelf<CBitmap_X> bitmaps;
    Shelf<CRgn_X> regions;
    Shelf<CPalette_X> palettes;
    Shelf<CImageList_X> lists;
    std::unique_ptr<CDC_X> dc;
    CGdiObject_X* selected = nullptr; // what the last SelectObject gave
};

// -------------------------------------------------------------------------------------------------------- the context

void restart(Host& host, Numbers& numbers)
{
    host.dc.reset();
    if (host.selected)
        check(!host.selected->GetSafeHandle(), "the context takes back what it handed out");
    host.image = QImage(32, 32, numbers.byte() % 2 ? QImage::Format_Mono : QImage::Format_ARGB32_Premultiplied);
    host.start();
}

void saveOrRestore(Host& host, Numbers& numbers)
{
    if (numbers.byte() % 2)
        host.dc->SaveDC();
    else
        host.dc->RestoreDC(-1);
}

void selectPen(Host& host, Numbers& numbers)
{
    host.selected = host.dc->SelectObject(&host.chosen(host.pens, numbers));
}

void selectBrush(Host& host, Numbers& numbers)
{
    host.selected = host.dc->SelectObject(&host.chosen(host.brushes, numbers));
}

void selectRegion(Host& host, Numbers& numbers)
{
    CRgn_X& region = host.chosen(host.regions, numbers);
    host.dc->SelectClipRgn(&region, numbers.byte());
    host.dc->SelectObject(&region);
}

void selectBack(Host& host, Numbers&) { host.dc->SelectObject(host.selected); }

void selectOther(Host& host, Numbers& numbers)
{
    host.dc->SelectStockObject(numbers.byte());
    host.dc->SelectPalette(numbers.byte() % 2 ? &host.chosen(host.palettes, numbers) : &host.dc->m_palette, FALSE);
    host.dc->SetTextColor(numbers.byte());
    host.dc->SetBkColor(numbers.color());
}

void deleteSelected(Host& host, Numbers&)
{
    if (!host.selected)
        return;
    const bool had = host.selected->GetSafeHandle();
    check(host.selected->DeleteObject() == had, "DeleteObject tells whether there was a handle");
    check(!host.selected->GetSafeHandle(), "no handle is left");
}

void forgetTemporaries(Host& host, Numbers&)
{
    host.selected = nullptr;
    CGdiObject_X::DeleteTempMap();
}

void draw(Host& host, Numbers& numbers)
{
    tagRECT rect = numbers.rect();
    host.dc->MoveTo(numbers.small(), numbers.small());
    host.dc->LineTo(numbers.small(), numbers.small());
    host.dc->Rectangle(&rect);
    host.dc->Ellipse(rect.left, rect.top, numbers.small(), numbers.small());
    host.dc->FillSolidRect(&rect, numbers.color());
    host.dc->FrameRect(&rect, &host.chosen(host.brushes, numbers));
    host.dc->PatBlt(rect.left, rect.top, numbers.small(), numbers.small(), DSTINVERT);
    host.dc->InvertRect(&rect);
    host.dc->DrawText(L"parts", numbers.small(), &rect, numbers.byte());
}

void drawRegion(Host& host, Numbers& numbers)
{
    CRgn_X& region = host.chosen(host.regions, numbers);
    CBrush_X& brush = host.chosen(host.brushes, numbers);
    const bool both = region.GetSafeHandle() && brush.GetSafeHandle();
    check(host.dc->FillRgn(&region, &brush) == both, "a region and a brush fill");
    host.dc->PaintRgn(&region);
    host.dc->FrameRgn(&region, &brush, numbers.small(), numbers.small());
    host.dc->InvertRgn(&region);
}

void clip(Host& host, Numbers& numbers)
{
    const tagRECT rect = numbers.rect();
    host.dc->OffsetClipRgn(numbers.small(), numbers.small());
    host.dc->ExcludeClipRect(&rect);
    host.dc->SetViewportOrg(numbers.small(), numbers.small());
}

// -------------------------------------------------------------------------------------------------------- its objects

void makePen(Host& host, Numbers& numbers)
{
    CPen_X& pen = host.chosen(host.pens, numbers);
    pen.DeleteObject();
    const int style = numbers.small();
    pen.CreatePen(style, numbers.small() / 8, numbers.color());
    tagLOGPEN log;
    check(pen.GetLogPen(&log), "a pen has a record");
    check(log.lopnStyle == static_cast<UINT>(style >= PS_SOLID && style <= PS_DASHDOTDOT ? style : PS_NULL),
          "the record has the pen's style");
}

void makeBrush(Host& host, Numbers& numbers)
{
    CBrush_X& brush = host.chosen(host.brushes, numbers);
    CBitmap_X& bitmap = host.chosen(host.bitmaps, numbers);
    brush.DeleteObject();
    const int kind = numbers.byte() % 3;
    if (kind == 0)
        brush.CreateSolidBrush(numbers.color());
    else if (kind == 1)
        brush.CreateHatchBrush(numbers.small(), numbers.color());
    else
        check(brush.CreatePatternBrush(&bitmap) == (bitmap.GetSafeHandle() != nullptr), "a picture makes a pattern");
}

void makeBitmap(Host& host, Numbers& numbers)
{
    CBitmap_X& bitmap = host.chosen(host.bitmaps, numbers);
    const int width = numbers.small();
    const int height = numbers.small();
    bitmap.DeleteObject();
    if (!bitmap.CreateBitmap(width, height, 1, static_cast<UINT>(numbers.byte() % 33), nullptr))
        return;
    const CSize size = width > 0 && height > 0 ? CSize(width, height) : CSize();
    check(bitmap.GetBitmapDimension() == size, "a bitmap has its size");
}

void bitmapBits(Host& host, Numbers& numbers)
{
    static const std::array<DWORD, 200 * 200> bytes = {};
    static std::array<char, 200 * 200 * 4> buffer;
    CBitmap_X& bitmap = host.chosen(host.bitmaps, numbers);
    if (numbers.byte() % 2)
        bitmap.SetBitmapBits(static_cast<DWORD>(numbers.byte() * 1000) % sizeof bytes, bytes.data());
    bitmap.GetBitmapBits(buffer.size(), buffer.data());
}

void makeRegion(Host& host, Numbers& numbers)
{
    CRgn_X& region = host.chosen(host.regions, numbers);
    region.DeleteObject();
    const tagRECT rect = numbers.rect();
    const tagPOINT points[] = {{rect.left, rect.top}, {rect.right, rect.top}, {numbers.small(), rect.bottom}};
    switch (numbers.byte() % 5) {
    case 0:
        region.CreateRectRgnIndirect(&rect);
        break;
    case 1:
        region.CreateEllipticRgnIndirect(&rect);
        break;
    case 2:
        region.CreateRoundRectRgn(rect.left, rect.top, rect.right, rect.bottom, numbers.small(), numbers.small());
        break;
    case 3:
        region.CreatePolygonRgn(points, static_cast<int>(std::size(points)), ALTERNATE);
        break;
    default:
        region.CreateFromPath(host.dc.get());
    }
    check(region.GetSafeHandle(), "a region is made");
}

void combineRegions(Host& host, Numbers& numbers)
{
    CRgn_X& result = host.chosen(host.regions, numbers);
    CRgn_X& a = host.chosen(host.regions, numbers);
    CRgn_X& b = host.chosen(host.regions, numbers);
    const int mode = numbers.byte() % 7;
    const int x = numbers.small();
    const int y = numbers.small();
    const bool inA = a.PtInRegion(x, y);
    const bool inB = b.PtInRegion(x, y);
    result.CombineRgn(&a, &b, mode);
    const bool expected[] = {false, inA && inB, inA || inB, inA != inB, inA && !inB, inA || inB, false};
    check(result.PtInRegion(x, y) == expected[mode], "a point is in the combined region");
}

void copyRegion(Host& host, Numbers& numbers)
{
    CRgn_X& copy = host.chosen(host.regions, numbers);
    CRgn_X& region = host.chosen(host.regions, numbers);
    if (&copy != &region)
        copy.DeleteObject();
    copy.CopyRgn(&region);
    check(copy.EqualRgn(&region), "a copy is the same region");
    region.OffsetRgn(numbers.small() / 8, numbers.small() / 8);
}

// Both objects hold the value.
template <class Object>
void share(Object& to, Object& from)
{
    if (&to == &from)
        return;
    to.DeleteObject();
    to.Attach(from.GetSafeHandle());
    check(to.GetSafeHandle() == from.GetSafeHandle(), "both have the handle");
}

void shareObjects(Host& host, Numbers& numbers)
{
    share(host.chosen(host.pens, numbers), host.chosen(host.pens, numbers));
    share(host.chosen(host.brushes, numbers), host.chosen(host.brushes, numbers));
    share(host.chosen(host.bitmaps, numbers), host.chosen(host.bitmaps, numbers));
}

void deleteObject(Host& host, Numbers& numbers)
{
    CGdiObject_X* const objects[] = {&host.chosen(host.pens, numbers), &host.chosen(host.brushes, numbers),
                                     &host.chosen(host.bitmaps, numbers), &host.chosen(host.regions, numbers)};
    CGdiObject_X* const object = objects[numbers.byte() % 4];
    object->DeleteObject();
    check(!object->DeleteObject(), "a second DeleteObject has nothing to delete");
}

void changePalette(Host& host, Numbers& numbers)
{
    CPalette_X& palette = host.chosen(host.palettes, numbers);
    const auto count = static_cast<UINT>(numbers.byte());
    const tagPALETTEENTRY entry = {1, 2, 3, 4};
    palette.ResizePalette(count);
    palette.SetPaletteEntries(static_cast<UINT>(numbers.byte()), 1, &entry);
    check(palette.GetNearestPaletteIndex(numbers.color()) < std::max(count, 1U), "the nearest entry is there");
}

// --------------------------------------------------------------------------------------------------------- image lists

void addImage(Host& host, Numbers& numbers)
{
    CImageList_X& list = host.chosen(host.lists, numbers);
    const int count = list.GetImageCount();
    if (count < 100)
        check(list.Add(&host.chosen(host.bitmaps, numbers), nullptr) == count, "an image comes last");
}

void changeList(Host& host, Numbers& numbers)
{
    CImageList_X& list = host.chosen(host.lists, numbers);
    CImageList_X& other = host.chosen(host.lists, numbers);
    list.Copy(numbers.small(), &other, numbers.small(), static_cast<UINT>(numbers.byte() % 3));
    list.Remove(numbers.small());
    list.SetOverlayImage(numbers.byte() % 8, numbers.byte() % 8);
    if (numbers.byte() % 2)
        list.SetBkColor(numbers.color());
    else if (list.GetImageCount() < 50)
        list.Create(list, numbers.small(), other, numbers.small(), numbers.small(), numbers.small());
}

void askList(Host& host, Numbers& numbers)
{
    CImageList_X& list = host.chosen(host.lists, numbers);
    const int index = numbers.small();
    _IMAGEINFO info = {};
    const bool known = list.GetImageInfo(index, &info);
    check(known == (list.ExtractIcon(index) != nullptr), "an image has a picture");
    check(!known || info.hbmImage == list.ExtractIcon(index), "both calls give it");
}

using Step = void (*)(Host&, Numbers&);

constexpr Step steps[] = {restart,           saveOrRestore, selectPen,      selectBrush, selectRegion,
                          selectBack,        selectOther,   draw,           drawRegion,  deleteSelected,
                          forgetTemporaries, clip,          makePen,        makeBrush,   makeBitmap,
                          bitmapBits,        makeRegion,    combineRegions, copyRegion,  shareObjects,
                          deleteObject,      changePalette, addImage,       changeList,  askList};

void silence(QtMsgType, const QMessageLogContext&, const QString&) {} // Qt's about painters

} // namespace

// Each byte chooses a step, which takes the numbers that it needs from what follows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 0;
    static const auto* const application = new QApplication(argc, nullptr); // Qt's own statics go before ours
    Q_UNUSED(application)
    qInstallMessageHandler(silence);
    Numbers numbers(data, size);
    Host host;
    host.start();
    while (!numbers.atEnd())
        steps[static_cast<std::size_t>(numbers.byte()) % std::size(steps)](host, numbers);
    host.dc.reset();
    CGdiObject_X::DeleteTempMap();
    return 0;
}
