// What device contexts, pens, regions and image lists cost beside plain QPainter, QPen, QRegion and QVector.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

namespace {

constexpr QRgb red = 0xFFFF0000;

QImage paper()
{
    QImage image(200, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

// -------------------------------------------------------------------------------------------------- a context's life

void liveAsContext(benchmark::State& state)
{
    QImage image = paper();
    for (auto _ : state) {
        CDC_X dc(&image);
        dc.FillSolidRect(0, 0, 200, 100, RGB(255, 0, 0));
    }
    if (image.pixel(39, 19) != red)
        state.SkipWithError("nothing was filled");
}

void liveAsPainter(benchmark::State& state)
{
    QImage image = paper();
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(0, 0, 200, 100, QColor(255, 0, 0));
    }
    if (image.pixel(39, 19) != red)
        state.SkipWithError("nothing was filled");
}

// ---------------------------------------------------------------------------------------------------------------- text

constexpr COLORREF textColors[] = {RGB(200, 0, 0), RGB(0, 0, 200)};

void drawTextOfContext(benchmark::State& state)
{
    QImage image = paper();
    CDC_X dc(&image);
    const CString_X text(L"twelve signs");
    const CRect rect(0, 0, 200, 30);
    const int flags = ToQtTextFlag(DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    int i = 0;
    for (auto _ : state) {
        dc.SetTextColor(textColors[++i % 2]);
        benchmark::DoNotOptimize(dc.DrawText(text, rect, flags));
    }
}

void drawTextOfPainter(benchmark::State& state)
{
    QImage image = paper();
    QPainter painter(&image);
    const QString text("twelve signs");
    const QRect rect(0, 0, 200, 30);
    const QColor colors[] = {QColor(200, 0, 0), QColor(0, 0, 200)};
    int i = 0;
    for (auto _ : state) {
        painter.setPen(colors[++i % 2]);
        painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
}

// -------------------------------------------------------------------------------------------------------- a pen's life

void livePens(benchmark::State& state)
{
    std::vector<std::unique_ptr<CPen_X>> others;
    for (int64_t i = 0; i < state.range(0); ++i)
        others.push_back(std::make_unique<CPen_X>(PS_SOLID, 1, RGB(1, 2, 3)));
    QImage image = paper();
    CDC_X dc(&image);
    for (auto _ : state) {
        CPen_X pen(PS_SOLID, 1, RGB(255, 0, 0));
        dc.SelectObject(&pen);
        dc.MoveTo(10, 10);
        dc.LineTo(190, 60);
    }
    if (image.pixel(10, 10) != red)
        state.SkipWithError("nothing was drawn");
}

void liveQPens(benchmark::State& state)
{
    std::vector<std::unique_ptr<QPen>> others;
    for (int64_t i = 0; i < state.range(0); ++i)
        others.push_back(std::make_unique<QPen>(QColor(1, 2, 3), 1));
    QImage image = paper();
    QPainter painter(&image);
    for (auto _ : state) {
        const QPen pen(QColor(255, 0, 0), 1);
        painter.setPen(pen);
        painter.drawLine(10, 10, 190, 60);
    }
    if (image.pixel(10, 10) != red)
        state.SkipWithError("nothing was drawn");
}

// ------------------------------------------------------------------------------------------------------------- regions

QRegion rectangles(int offset)
{
    QRegion region;
    for (int i = 0; i < 500; ++i)
        region += QRect(offset + i % 25 * 12, offset + i / 25 * 12, 8, 8);
    return region;
}

void combineRegions(benchmark::State& state)
{
    CRgn_X a;
    CRgn_X b;
    CRgn_X result;
    a.Attach(new QRegion(rectangles(0)));
    b.Attach(new QRegion(rectangles(3)));
    for (auto _ : state)
        benchmark::DoNotOptimize(result.CombineRgn(&a, &b, RGN_OR));
    if (*static_cast<QRegion*>(result.GetSafeHandle()) != rectangles(0) + rectangles(3))
        state.SkipWithError("this is another region");
}

void uniteQRegions(benchmark::State& state)
{
    const QRegion a = rectangles(0);
    const QRegion b = rectangles(3);
    std::unique_ptr<QRegion> result;
    for (auto _ : state)
        result = std::make_unique<QRegion>(a.united(b));
    if (result->isEmpty())
        state.SkipWithError("this is another region");
}

// --------------------------------------------------------------------------------------------------------- image lists

constexpr int images = 1000;

void addToImageList(benchmark::State& state)
{
    CBitmap_X bitmap;
    CBitmap_X mask;
    bitmap.CreateCompatibleBitmap(nullptr, 16, 16);
    mask.CreateCompatibleBitmap(nullptr, 16, 16);
    for (auto _ : state) {
        CImageList_X list;
        for (int i = 0; i < images; ++i)
            list.Add(&bitmap, &mask);
        if (list.GetImageCount() != images)
            state.SkipWithError("images are missing");
    }
}

void appendToVector(benchmark::State& state)
{
    const QImage image(16, 16, QImage::Format_RGBX8888);
    for (auto _ : state) {
        QVector<QImage> list;
        for (int i = 0; i < images; ++i)
            list.append(image);
        if (list.size() != images)
            state.SkipWithError("images are missing");
    }
}

} // namespace

BENCHMARK(liveAsContext)->Name("dc_life/ours");
BENCHMARK(liveAsPainter)->Name("dc_life/peer:QPainter");
BENCHMARK(drawTextOfContext)->Name("dc_text/ours");
BENCHMARK(drawTextOfPainter)->Name("dc_text/peer:QPainter");
BENCHMARK(livePens)->Name("pen_life/ours")->Arg(0)->Arg(10000);
BENCHMARK(liveQPens)->Name("pen_life/peer:QPen")->Arg(0)->Arg(10000);
BENCHMARK(combineRegions)->Name("combine_region/ours");
BENCHMARK(uniteQRegions)->Name("combine_region/peer:QRegion");
BENCHMARK(addToImageList)->Name("image_add/ours");
BENCHMARK(appendToVector)->Name("image_add/peer:QVector");
