// Bitmaps.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <climits>
#include <cstring>

namespace {

QImage& imageOf(const CBitmap_X& bitmap) { return *static_cast<QImage*>(bitmap.GetSafeHandle()); }

QString text(const CBitmap_X& bitmap)
{
    if (!bitmap.GetSafeHandle())
        return QStringLiteral("none");
    const QImage& image = imageOf(bitmap);
    return QStringLiteral("%1x%2 %3").arg(image.width()).arg(image.height()).arg(image.format());
}

// A picture of 2 x 2 pixels and 16 bytes, 1 to 16.
void createNumbered(CBitmap_X& bitmap)
{
    bitmap.CreateBitmap(2, 2, 1, 32, nullptr);
    for (int i = 0; i < 16; ++i)
        imageOf(bitmap).bits()[i] = static_cast<uchar>(i + 1);
}

} // namespace

class tst_Bitmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void depths_data();
    void depths();
    void unknownDepths_data();
    void unknownDepths();
    void sizes_data();
    void sizes();
    void isBlack();
    void aColorTableForEachPixel();
    void createIgnoresTheBits();
    void nullRecords();
    void load();
    void loadNothing_data();
    void loadNothing();

    void getBitmap();
    void getBits_data();
    void getBits();
    void getBitsOfALargePicture();
    void setBits();
    void setBitsOfAnotherDepth();
    void setTooFewBits();
    void setBitsNeverWritesTheBytes();
    void dimension();
    void noHandle();
};

void tst_Bitmap::depths_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("format");
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("4") << 4 << 3;
    QTest::newRow("8") << 8 << 24;
    QTest::newRow("16") << 16 << 7;
    QTest::newRow("32") << 32 << 16;
}

void tst_Bitmap::depths()
{
    QFETCH(int, depth);
    QFETCH(int, format);
    QImage::Format found = QImage::Format_Invalid;
    QVERIFY(CBitmap_X::bitDepthIsCorrrect(depth, found));
    QCOMPARE(int(found), format);

    CBitmap_X bitmap;
    QCOMPARE(bitmap.CreateBitmap(5, 3, 77, static_cast<UINT>(depth), nullptr), TRUE);
    QCOMPARE(text(bitmap), QStringLiteral("5x3 %1").arg(format));
    const tagBITMAP record = {77, 5, 3, 77, 77, static_cast<WORD>(depth), &found};
    bitmap.DeleteObject();
    QCOMPARE(bitmap.CreateBitmapIndirect(&record), TRUE);
    QCOMPARE(text(bitmap), QStringLiteral("5x3 %1").arg(format));
}

void tst_Bitmap::unknownDepths_data()
{
    QTest::addColumn<int>("depth");
    QTest::newRow("0") << 0;
    QTest::newRow("2") << 2;
    QTest::newRow("24") << 24;
    QTest::newRow("64") << 64;
    QTest::newRow("negative") << -1;
}

void tst_Bitmap::unknownDepths()
{
    QFETCH(int, depth);
    QImage::Format format = QImage::Format_ARGB32;
    QVERIFY(!CBitmap_X::bitDepthIsCorrrect(depth, format));
    QCOMPARE(format, QImage::Format_ARGB32);
    CBitmap_X bitmap;
    QCOMPARE(bitmap.CreateBitmap(5, 3, 1, static_cast<UINT>(depth), nullptr), FALSE);
    QCOMPARE(text(bitmap), QStringLiteral("none"));
}

void tst_Bitmap::sizes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("made");
    QTest::newRow("a picture") << 5 << 3 << "5x3 16";
    QTest::newRow("no width") << 0 << 3 << "0x0 0";
    QTest::newRow("no height") << 5 << 0 << "0x0 0";
    QTest::newRow("negative") << -5 << -3 << "0x0 0";
    QTest::newRow("smallest") << INT_MIN << INT_MIN << "0x0 0";
    QTest::newRow("too large") << INT_MAX << INT_MAX << "0x0 0";
}

void tst_Bitmap::sizes()
{
    QFETCH(int, width);
    QFETCH(int, height);
    CBitmap_X compatible;
    QCOMPARE(compatible.CreateCompatibleBitmap(nullptr, width, height), TRUE);
    QTEST(text(compatible), "made");
    CBitmap_X discardable;
    QCOMPARE(discardable.CreateDiscardableBitmap(nullptr, width, height), TRUE);
    QTEST(text(discardable), "made");
    CBitmap_X bitmap;
    QCOMPARE(bitmap.CreateBitmap(width, height, 1, 32, nullptr), TRUE);
    QTEST(text(bitmap), "made");
}

void tst_Bitmap::isBlack()
{
    CBitmap_X bitmap;
    bitmap.CreateCompatibleBitmap(nullptr, 2, 2);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(imageOf(bitmap).pixel(i % 2, i / 2), 0xFF000000u);
}

// Qt looks up each pixel in the table, however short that is.
void tst_Bitmap::aColorTableForEachPixel()
{
    CBitmap_X bitmap;
    bitmap.CreateBitmap(2, 1, 1, 4, nullptr);
    imageOf(bitmap).bits()[1] = 255;
    QImage target(2, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter(&target).drawImage(0, 0, imageOf(bitmap));
    QCOMPARE(target.pixel(0, 0), 0xFF000000u);
    QCOMPARE(target.pixel(1, 0), 0xFFFFFFFFu);
}

void tst_Bitmap::createIgnoresTheBits()
{
    const DWORD red = 0xFF0000FF;
    CBitmap_X bitmap;
    bitmap.CreateBitmap(1, 1, 1, 32, &red);
    QCOMPARE(imageOf(bitmap).pixel(0, 0), 0xFF000000u);
}

void tst_Bitmap::nullRecords()
{
    CBitmap_X bitmap;
    QCOMPARE(bitmap.CreateBitmapIndirect(nullptr), FALSE);
    QCOMPARE(text(bitmap), QStringLiteral("none"));
    createNumbered(bitmap);
    QCOMPARE(bitmap.GetBitmap(nullptr), FALSE);
    QCOMPARE(bitmap.GetBitmapBits(16, nullptr), 0u);
    QCOMPARE(bitmap.SetBitmapBits(16, nullptr), 0u);
    QCOMPARE(imageOf(bitmap).constBits()[15], uchar(16));
}

// -------------------------------------------------------------------------------------------------------------- a file

void tst_Bitmap::load()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromUtf8("Bohrer größe 3.png"));
    QImage saved(3, 2, QImage::Format_ARGB32);
    saved.fill(Qt::red);
    QVERIFY(saved.save(path));
    CBitmap_X bitmap;
    QCOMPARE(bitmap.LoadBitmap(path.toStdWString().c_str()), TRUE);
    QCOMPARE(imageOf(bitmap).size(), QSize(3, 2));
    QCOMPARE(imageOf(bitmap).pixel(2, 1), 0xFFFF0000u);
}

void tst_Bitmap::loadNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no such file") << "/no/such/file.png";
    QTest::newRow("not in the resource tree") << ":/no/such/file.png";
    QTest::newRow("not a picture") << "/proc/self/status";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void tst_Bitmap::loadNothing()
{
    QFETCH(QString, path);
    const std::wstring wide = path.toStdWString();
    CBitmap_X bitmap;
    QCOMPARE(bitmap.LoadBitmap(path.isNull() ? nullptr : wide.c_str()), TRUE);
    QVERIFY(imageOf(bitmap).isNull());
    QVERIFY(bitmap.GetBitmapDimension() == CSize(0, 0));
}

// --------------------------------------------------------------------------------------------------------------- bytes

void tst_Bitmap::getBitmap()
{
    CBitmap_X bitmap;
    bitmap.CreateBitmap(5, 3, 1, 16, nullptr);
    const QImage copy = imageOf(bitmap); // shares the bytes until they are asked for
    tagBITMAP record = {77, 77, 77, 77, 77, 77, nullptr};
    QCOMPARE(bitmap.GetBitmap(&record), TRUE);
    QCOMPARE(record.bmType, 0);
    QCOMPARE(record.bmWidth, 5);
    QCOMPARE(record.bmHeight, 3);
    QCOMPARE(record.bmWidthBytes, 12);
    QCOMPARE(record.bmPlanes, WORD(1));
    QCOMPARE(record.bmBitsPixel, WORD(16));
    QCOMPARE(record.bmBits, imageOf(bitmap).constBits());
    QVERIFY(record.bmBits != copy.constBits());
}

void tst_Bitmap::getBits_data()
{
    QTest::addColumn<unsigned>("count");
    QTest::addColumn<unsigned>("told");
    QTest::addColumn<int>("copied");
    QTest::newRow("none") << 0u << 0u << 0;
    QTest::newRow("some") << 5u << 5u << 5;
    QTest::newRow("all") << 16u << 16u << 16;
    QTest::newRow("more than there are") << 20u << 20u << 16;
    QTest::newRow("width x height x bytes a row") << 40u << 32u << 16;
    QTest::newRow("all that can be told") << UINT_MAX << 32u << 16;
}

void tst_Bitmap::getBits()
{
    QFETCH(unsigned, count);
    QFETCH(int, copied);
    CBitmap_X bitmap;
    createNumbered(bitmap);
    uchar buffer[40];
    std::memset(buffer, 0xEE, sizeof buffer);
    QTEST(bitmap.GetBitmapBits(count, buffer), "told");
    for (int i = 0; i < 40; ++i)
        QCOMPARE(buffer[i], i < copied ? uchar(i + 1) : uchar(0xEE));
}

// Its product of three factors does not fit 32 bits.
void tst_Bitmap::getBitsOfALargePicture()
{
    CBitmap_X bitmap;
    bitmap.CreateBitmap(2048, 2048, 1, 32, nullptr);
    std::vector<uchar> buffer(2048 * 2048 * 4, 0xEE);
    QCOMPARE(bitmap.GetBitmapBits(UINT_MAX, buffer.data()), UINT_MAX);
    QCOMPARE(buffer.back(), uchar(0xFF)); // the fourth byte of black
    QCOMPARE(bitmap.GetBitmapBits(0x80000000u, buffer.data()), 0x80000000u);
}

void tst_Bitmap::setBits()
{
    CBitmap_X bitmap;
    createNumbered(bitmap);
    DWORD bytes[4] = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000, 0xFFFFFFFF};
    QCOMPARE(bitmap.SetBitmapBits(100, bytes), 100u);
    QCOMPARE(text(bitmap), QStringLiteral("2x2 16"));
    QCOMPARE(imageOf(bitmap).constBits(), reinterpret_cast<const uchar*>(bytes));
    QCOMPARE(imageOf(bitmap).pixel(0, 0), 0xFFFF0000u);
    QCOMPARE(imageOf(bitmap).pixel(0, 1), 0xFF0000FFu);
    bytes[0] = 0xFF00FF00; // the picture is the caller's bytes
    QCOMPARE(imageOf(bitmap).pixel(0, 0), 0xFF00FF00u);
}

void tst_Bitmap::setBitsOfAnotherDepth()
{
    CBitmap_X bitmap;
    bitmap.CreateBitmap(2, 2, 1, 1, nullptr);
    const DWORD bytes[4] = {0xFF0000FF, 0, 0, 0};
    QCOMPARE(bitmap.SetBitmapBits(16, bytes), 16u);
    QCOMPARE(text(bitmap), QStringLiteral("2x2 16"));
    QCOMPARE(imageOf(bitmap).pixel(0, 0), 0xFFFF0000u);
}

void tst_Bitmap::setTooFewBits()
{
    CBitmap_X bitmap;
    createNumbered(bitmap);
    const DWORD bytes[4] = {};
    QCOMPARE(bitmap.SetBitmapBits(15, bytes), 15u);
    QCOMPARE(bitmap.SetBitmapBits(0, bytes), 0u);
    QCOMPARE(imageOf(bitmap).constBits()[15], uchar(16));

    CBitmap_X empty;
    empty.Attach(new QImage);
    QCOMPARE(empty.SetBitmapBits(15, bytes), 15u);
    QVERIFY(imageOf(empty).isNull());
}

void tst_Bitmap::setBitsNeverWritesTheBytes()
{
    static const DWORD bytes[4] = {0xFF0000FF, 0xFF0000FF, 0xFF0000FF, 0xFF0000FF}; // perhaps in read-only memory
    CBitmap_X bitmap;
    createNumbered(bitmap);
    bitmap.SetBitmapBits(16, bytes);
    QPainter(&imageOf(bitmap)).fillRect(0, 0, 2, 2, Qt::blue);
    QCOMPARE(imageOf(bitmap).pixel(0, 0), 0xFF0000FFu);
    QCOMPARE(bytes[0], 0xFF0000FFu);
}

void tst_Bitmap::dimension()
{
    CBitmap_X bitmap;
    bitmap.CreateCompatibleBitmap(nullptr, 5, 3);
    QCOMPARE(text(bitmap), QStringLiteral("5x3 16"));
    QVERIFY(bitmap.GetBitmapDimension() == CSize(5, 3));
    QVERIFY(bitmap.SetBitmapDimension(50, 30) == CSize(5, 3));
    QVERIFY(bitmap.GetBitmapDimension() == CSize(5, 3));
}

void tst_Bitmap::noHandle()
{
    CBitmap_X bitmap;
    tagBITMAP record = {77, 77, 77, 77, 77, 77, nullptr};
    uchar buffer[4] = {7};
    QCOMPARE(bitmap.GetBitmap(&record), FALSE);
    QCOMPARE(record.bmType, 77);
    QCOMPARE(bitmap.GetBitmapBits(4, buffer), 0u);
    QCOMPARE(buffer[0], uchar(7));
    QCOMPARE(bitmap.SetBitmapBits(4, buffer), 0u);
    QVERIFY(bitmap.GetBitmapDimension() == CSize(0, 0));
    QVERIFY(bitmap.SetBitmapDimension(1, 1) == CSize(0, 0));
}

XE_TEST(tst_Bitmap)
#include "tst_bitmap.moc"
