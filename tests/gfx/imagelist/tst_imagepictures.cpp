// The pictures of an image list: fetched, filled, laid over each other.

#include "imagelist/bitmaps.h"
#include "testclass.h"
#include "valuetext.h"

#include <XeMFCEmu.h>

#include <climits>

class tst_ImagePictures : public QObject, Bitmaps
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void imageInfo();
    void imageInfoOfNothing_data();
    void imageInfoOfNothing();
    void bkColor();
    void bkColorOfNothing();
    void bkColorWithoutAColorTable();
    void overlay();
    void overlayOfEachDepth_data();
    void overlayOfEachDepth();
    void overlayRefuses_data();
    void overlayRefuses();

private:
    CImageList_X m_list;
};

void tst_ImagePictures::init()
{
    m_list.m_listImages = {&red, &green, &blue};
    createAll();
}

void tst_ImagePictures::imageInfo()
{
    _IMAGEINFO info = {&info, &info, 77, 78, {79, 79, 79, 79}};
    QCOMPARE(m_list.GetImageInfo(2, &info), TRUE);
    QCOMPARE(info.hbmImage, blue.GetSafeHandle());
    QCOMPARE(text(info.rcImage), QStringLiteral("0 0 3 5"));
    QCOMPARE(info.hbmMask, &info);
    QCOMPARE(info.Unused1, 77);
    QCOMPARE(info.Unused2, 78);
    QCOMPARE(CBitmap_X::FromHandle(info.hbmImage), &blue);
    QCOMPARE(m_list.ExtractIcon(2), blue.GetSafeHandle());
}

void tst_ImagePictures::imageInfoOfNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("an entry without a picture") << 3;
    QTest::newRow("a null entry") << 4;
    QTest::newRow("the count") << 5;
    QTest::newRow("beyond") << INT_MAX;
}

void tst_ImagePictures::imageInfoOfNothing()
{
    QFETCH(int, index);
    m_list.m_listImages += {&none, nullptr};
    _IMAGEINFO info = {nullptr, nullptr, 0, 0, {79, 79, 79, 79}};
    QCOMPARE(m_list.GetImageInfo(index, &info), FALSE);
    QCOMPARE(info.hbmImage, nullptr);
    QCOMPARE(info.rcImage.left, 79);
    QCOMPARE(m_list.ExtractIcon(index), nullptr);
    QCOMPARE(m_list.GetImageInfo(0, nullptr), FALSE);
}

void tst_ImagePictures::bkColor()
{
    pictureOf(red).setPixelColor(0, 0, QColor(0x12, 0x34, 0x56));
    m_list.m_listImages += {&none, nullptr};
    QCOMPARE(m_list.GetBkColor(), 0x563412u);
    QCOMPARE(m_list.SetBkColor(0x80ABCDEF), 0x563412u);
    QCOMPARE(m_list.GetBkColor(), 0xABCDEFu);
    for (const CBitmap_X* bitmap : {&red, &green, &blue}) {
        const QImage& picture = pictureOf(*bitmap);
        QCOMPARE(picture.pixel(0, 0), 0xFFEFCDABu);
        QCOMPARE(picture.pixel(picture.width() - 1, picture.height() - 1), 0xFFEFCDABu);
    }
}

void tst_ImagePictures::bkColorOfNothing()
{
    CImageList_X list;
    QCOMPARE(list.GetBkColor(), CLR_NONE);
    QCOMPARE(list.SetBkColor(0xFFFFFF), CLR_NONE);
    CBitmap_X null;
    null.Attach(new QImage);
    for (CBitmap_X* first : {&none, static_cast<CBitmap_X*>(nullptr), &null}) {
        list.m_listImages = {first, &red};
        QCOMPARE(list.GetBkColor(), CLR_NONE);
        QCOMPARE(list.SetBkColor(0xFFFFFF), CLR_NONE);
        QCOMPARE(pictureOf(red).pixelColor(0, 0), QColor(Qt::red));
    }
}

// Qt takes such a picture for one of greys where it converts it, and reads past the table where it paints it.
void tst_ImagePictures::bkColorWithoutAColorTable()
{
    CBitmap_X bitmap;
    bitmap.Attach(new QImage(2, 2, QImage::Format_Indexed8));
    pictureOf(bitmap).fill(0x40);
    m_list.m_listImages = {&bitmap};
    QCOMPARE(m_list.GetBkColor(), 0x404040u);
}

void tst_ImagePictures::overlay()
{
    CBitmap_X ground;
    CBitmap_X mark;
    create(ground, QColor(200, 0, 0), 3, 1);
    mark.Attach(new QImage(1, 1, QImage::Format_ARGB32)); // over the first pixel alone
    pictureOf(mark).fill(QColor(0, 0, 200));
    m_list.m_listImages = {&mark, &ground};
    void* const picture = ground;
    QCOMPARE(m_list.SetOverlayImage(1, 0), TRUE);
    QCOMPARE(static_cast<void*>(ground), picture);
    QCOMPARE(int(pictureOf(ground).format()), 16);
    QCOMPARE(pictureOf(ground).size(), QSize(3, 1));
    const QColor mixed = pictureOf(ground).pixelColor(0, 0);
    QVERIFY(qAbs(mixed.red() - 100) <= 1 && mixed.green() == 0 && qAbs(mixed.blue() - 100) <= 1);
    const QColor faded = pictureOf(ground).pixelColor(2, 0); // the picture at half its strength on black
    QVERIFY(qAbs(faded.red() - 100) <= 1 && faded.green() == 0 && faded.blue() == 0);
    QCOMPARE(pictureOf(mark).pixelColor(0, 0), QColor(0, 0, 200));

    pictureOf(ground).setPixelColor(0, 0, Qt::white); // of its own bytes
    QCOMPARE(m_list.SetOverlayImage(1, 1), TRUE);
}

void tst_ImagePictures::overlayOfEachDepth_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("1 bit") << int(QImage::Format_Mono);
    QTest::newRow("8 bits, colour table") << int(QImage::Format_Indexed8);
    QTest::newRow("8 bits, grey") << int(QImage::Format_Grayscale8);
    QTest::newRow("16 bits") << int(QImage::Format_RGB16);
    QTest::newRow("24 bits") << int(QImage::Format_RGB888);
    QTest::newRow("32 bits") << int(QImage::Format_ARGB32);
    QTest::newRow("64 bits") << int(QImage::Format_RGBA64);
    QTest::newRow("null") << int(QImage::Format_Invalid);
}

void tst_ImagePictures::overlayOfEachDepth()
{
    QFETCH(int, format);
    CBitmap_X ground;
    const QSize size = format == QImage::Format_Invalid ? QSize() : QSize(5, 3);
    ground.Attach(new QImage(size, static_cast<QImage::Format>(format)));
    pictureOf(ground).fill(0u);
    m_list.Add(&ground, nullptr);
    QCOMPARE(m_list.SetOverlayImage(3, 0), TRUE);
    QCOMPARE(pictureOf(ground).isNull(), size.isNull() || !size.isValid());
    if (size.isValid()) {
        QCOMPARE(pictureOf(ground).size(), size);
        QCOMPARE(int(pictureOf(ground).format()), 16);
    }
    QCOMPARE(m_list.SetOverlayImage(0, 3), TRUE); // as the overlay too
    QCOMPARE(pictureOf(red).size(), QSize(4, 2));
}

void tst_ImagePictures::overlayRefuses_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("overlay");
    QTest::newRow("negative image") << -1 << 0;
    QTest::newRow("negative overlay") << 0 << -1;
    QTest::newRow("overlay beyond") << 0 << 4;
    QTest::newRow("image beyond") << 4 << 0;
    QTest::newRow("image without a picture") << 3 << 0;
    QTest::newRow("overlay without a picture") << 0 << 3;
}

void tst_ImagePictures::overlayRefuses()
{
    QFETCH(int, image);
    QFETCH(int, overlay);
    m_list.Add(&none, nullptr);
    QCOMPARE(m_list.SetOverlayImage(image, overlay), FALSE);
    QCOMPARE(pictureOf(red).pixelColor(0, 0), QColor(Qt::red));
}

XE_APPLESS_TEST(tst_ImagePictures)
#include "tst_imagepictures.moc"
