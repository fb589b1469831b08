// InvertRect() of a device context on images of each format and on widgets.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

// Inverts its middle in its paint event, and counts how often it is painted.
class Inverting : public QWidget
{
public:
    int paints = 0;
    QPainter::CompositionMode modeAfterwards = QPainter::CompositionMode_Clear;
    CRect rect{2, 1, 4, 2};

protected:
    void paintEvent(QPaintEvent*) override
    {
        ++paints;
        CDC_X dc(this);
        dc.fillRect(QWidget::rect(), Qt::red);
        dc.InvertRect(rect);
        modeAfterwards = dc.compositionMode();
    }
};

constexpr QRgb cyan = 0xFF00FFFF;

} // namespace

class tst_DcInversion : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void overhangingRectangle();
    void theRectangleComesBackConverted();
    void clipHasNoPart();
    void formats_data();
    void formats();
    void translucentPixels();
    void twoColours_data();
    void twoColours();
    void twiceIsTheOldPicture();
    void devicePixelRatio2();
    void largeNumbers();

    void widget();
    void childWidget();
    void onAnythingElse();
};

void tst_DcInversion::overhangingRectangle()
{
    Canvas canvas(4, 3);
    CDC_X dc(&canvas.image);
    CRect rect(2, 1, 100, 100);
    dc.InvertRect(rect);
    QCOMPARE(rect, CRect(2, 1, 100, 100));
    CRect outside(-5, -5, 0, 9);
    dc.InvertRect(outside);
    CRect empty(0, 0, 0, 2);
    dc.InvertRect(empty);
    dc.InvertRect(nullptr);
    dc.end();
    QCOMPARE(canvas.view(), lines({"....", "..##", "..##"}));
}

void tst_DcInversion::theRectangleComesBackConverted()
{
    Canvas canvas(6, 4);
    CDC_X dc(&canvas.image);
    dc.translate(1, 1);
    dc.scale(2, 1);
    CRect rect(0, 0, 2, 1);
    dc.InvertRect(rect);
    QCOMPARE(rect, CRect(1, 1, 5, 2));
    dc.end();
    QCOMPARE(canvas.view(), lines({"......", ".####.", "......", "......"}));
}

void tst_DcInversion::clipHasNoPart()
{
    Canvas canvas(3, 1);
    CDC_X dc(&canvas.image);
    dc.setClipRect(0, 0, 1, 1);
    CRect rect(0, 0, 3, 1);
    dc.InvertRect(rect);
    dc.end();
    QCOMPARE(canvas.view(), "###");
}

void tst_DcInversion::formats_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QRgb>("expected");

    QTest::newRow("RGB32") << QImage::Format_RGB32 << cyan;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32 << cyan;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied << cyan;
    QTest::newRow("RGB16") << QImage::Format_RGB16 << cyan;
    QTest::newRow("RGB888") << QImage::Format_RGB888 << cyan;
    QTest::newRow("RGBX8888") << QImage::Format_RGBX8888 << cyan;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888 << cyan;
    QTest::newRow("RGB30") << QImage::Format_RGB30 << cyan;
    QTest::newRow("Grayscale8") << QImage::Format_Grayscale8 << QRgb(0xFFA8A8A8); // red is 87 of 255
}

void tst_DcInversion::formats()
{
    QFETCH(QImage::Format, format);
    QImage image(3, 1, format);
    image.fill(Qt::red);
    const QRgb before = image.pixel(0, 0);
    CDC_X dc(&image);
    CRect rect(1, 0, 2, 1);
    dc.InvertRect(rect);
    dc.end();
    QCOMPARE(image.pixel(0, 0), before);
    QTEST(image.pixel(1, 0), "expected");
    QCOMPARE(image.pixel(2, 0), before);
}

// Each red of each alpha that there is.
void tst_DcInversion::translucentPixels()
{
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBA8888}) {
        QImage image(256, 256, QImage::Format_ARGB32_Premultiplied);
        for (int alpha = 0; alpha < 256; ++alpha) {
            for (int x = 0; x < 256; ++x)
                image.setPixel(x, alpha, qRgba(qMin(x, alpha), 0, 0, alpha));
        }
        image = image.convertToFormat(format);
        const QImage before = image.copy();
        CDC_X dc(&image);
        CRect rect(0, 0, 256, 256);
        dc.InvertRect(rect);
        dc.end();
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 256; ++x) {
                const QRgb old = before.pixel(x, y);
                QCOMPARE(image.pixel(x, y), qRgb(255 - qRed(old), 255 - qGreen(old), 255 - qBlue(old)));
            }
        }
    }
}

void tst_DcInversion::twoColours_data()
{
    QTest::addColumn<QImage::Format>("format");

    QTest::newRow("Mono") << QImage::Format_Mono;
    QTest::newRow("MonoLSB") << QImage::Format_MonoLSB;
}

void tst_DcInversion::twoColours()
{
    QFETCH(QImage::Format, format);
    QImage image(3, 1, format);
    image.fill(0);
    image.setPixel(2, 0, 1);
    CDC_X dc(&image);
    CRect rect(1, 0, 3, 1);
    dc.InvertRect(rect);
    dc.end();
    QCOMPARE(image.pixelIndex(0, 0), 0);
    QCOMPARE(image.pixelIndex(1, 0), 1);
    QCOMPARE(image.pixelIndex(2, 0), 0);
}

void tst_DcInversion::twiceIsTheOldPicture()
{
    Canvas canvas(64, 64);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            canvas.image.setPixel(x, y, qRgb(4 * x, 4 * y, x + y));
    }
    const QImage before = canvas.image.copy();
    CDC_X dc(&canvas.image);
    CRect rect(0, 0, 64, 64);
    dc.InvertRect(rect);
    QCOMPARE(canvas.image.pixel(10, 20), qRgb(255 - 40, 255 - 80, 255 - 30));
    dc.InvertRect(rect);
    dc.end();
    QCOMPARE(canvas.image, before);
}

void tst_DcInversion::devicePixelRatio2()
{
    Canvas canvas(6, 4, 2);
    CDC_X dc(&canvas.image);
    CRect rect(1, 0, 2, 1);
    dc.InvertRect(rect);
    QCOMPARE(rect, CRect(2, 0, 4, 2));
    dc.end();
    QCOMPARE(canvas.view(), lines({"..##..", "..##..", "......", "......"}));
}

void tst_DcInversion::largeNumbers()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    Canvas canvas(2, 1);
    CDC_X dc(&canvas.image);
    CRect all(-1000000, -1000000, most, most);
    dc.InvertRect(all);
    CRect swapped(most, most, least, least);
    dc.InvertRect(swapped);
    dc.end();
    QCOMPARE(canvas.view(), "##");
}

// ------------------------------------------------------------------------------------------------------------ widgets

// The widget is not painted again for a picture of it; right and bottom edge belong to it.
void tst_DcInversion::widget()
{
    Inverting widget;
    widget.resize(8, 5);
    const QImage picture = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(widget.paints, 1);
    QCOMPARE(widget.modeAfterwards, QPainter::CompositionMode_SourceOver);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool inside = x >= 2 && x <= 4 && y >= 1 && y <= 2;
            QCOMPARE(picture.pixel(x, y), inside ? cyan : 0xFFFF0000);
        }
    }
}

void tst_DcInversion::childWidget()
{
    QWidget parent;
    parent.resize(30, 20);
    auto* const child = new Inverting;
    child->setParent(&parent);
    child->setGeometry(10, 5, 8, 5);
    const QImage picture = parent.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(child->paints, 1);
    QCOMPARE(picture.pixel(10, 5), 0xFFFF0000);
    QCOMPARE(picture.pixel(12, 6), cyan);
    QCOMPARE(picture.pixel(14, 7), cyan);
    QCOMPARE(picture.pixel(15, 7), 0xFFFF0000);
}

void tst_DcInversion::onAnythingElse()
{
    QPixmap pixmap(3, 1);
    pixmap.fill(Qt::red);
    CDC_X dc;
    QVERIFY(dc.begin(&pixmap));
    dc.translate(1, 0);
    CRect rect(0, 0, 2, 1);
    dc.InvertRect(rect);
    QCOMPARE(rect, CRect(1, 0, 3, 1));
    dc.end();
    QCOMPARE(pixmap.toImage().pixel(1, 0), 0xFFFF0000);

    QTest::ignoreMessage(QtWarningMsg, "QPainter::deviceTransform: Painter not active");
    dc.InvertRect(rect);
    QCOMPARE(rect, CRect(1, 0, 3, 1));
}

XE_TEST(tst_DcInversion)
#include "tst_dcinversion.moc"
