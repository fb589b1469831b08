// Regions: what each call makes and answers.

#include "testclass.h"
#include "valuetext.h"

#include <XeMFCEmu.h>

#include <QPainterPath>
#include <QRegion>

#include <climits>

namespace {

const QRegion& regionOf(const CRgn_X& region) { return *static_cast<const QRegion*>(region.GetSafeHandle()); }

// The result of GetRgnBox and the box, "none" without a handle.
QString box(const CRgn_X& region)
{
    tagRECT rect = {77, 77, 77, 77};
    const int result = region.GetRgnBox(&rect);
    return result ? QStringLiteral("%1: ").arg(result) + text(rect) : QStringLiteral("none");
}

QString inside(const QRegion& region, int width = 6, int height = 6)
{
    QString picture;
    for (int y = 0; y < height; ++y, picture += QLatin1Char('\n'))
        for (int x = 0; x < width; ++x)
            picture += QLatin1Char(region.contains(QPoint(x, y)) ? '#' : '.');
    return picture;
}

} // namespace

class tst_Region : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectangles_data();
    void rectangles();
    void ellipse();
    void roundCorners_data();
    void roundCorners();
    void polygon();
    void polygonModeIsIgnored();
    void polygonWithoutPoints();
    void polyPolygonIsTheLast();
    void polyPolygonCounts();
    void ofADeviceContext();
    void createFreesNothing();
    void nullRecords();
    void stubs();

    void setRect();
    void combine_data();
    void combine();
    void combineWithItself();
    void combineFreesTheOld();
    void combineWithNothing();

    void pointsInside_data();
    void pointsInside();
    void rectanglesInside_data();
    void rectanglesInside();
    void offset();
    void withoutAHandle();
};

// -------------------------------------------------------------------------------------------------------------- making

void tst_Region::rectangles_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const tagRECT& rect, const char* expected) {
        CRgn_X region;
        QCOMPARE(region.CreateRectRgn(rect.left, rect.top, rect.right, rect.bottom), TRUE);
        QTest::newRow(name) << box(region) << expected;
        CRgn_X indirect;
        QCOMPARE(indirect.CreateRectRgnIndirect(&rect), TRUE);
        QTest::newRow(qPrintable(QLatin1String(name) + QLatin1String(", of a record"))) << box(indirect) << expected;
    };
    row("one pixel larger", {0, 0, 10, 10}, "2: 0 0 11 11");
    row("a single pixel", {3, 4, 3, 4}, "2: 3 4 4 5");
    row("negative", {-5, -6, -1, -1}, "2: -5 -6 0 0");
    row("no width", {3, 4, 2, 9}, "2: 0 0 0 0");
    row("swapped", {10, 10, 0, 0}, "2: 0 0 0 0");
}

void tst_Region::rectangles()
{
    QFETCH(QString, made);
    QTEST(made, "expected");
}

void tst_Region::ellipse()
{
    const QRegion expected(QRect(QPoint(2, 3), QPoint(21, 14)), QRegion::Ellipse);
    CRgn_X region;
    QCOMPARE(region.CreateEllipticRgn(2, 3, 21, 14), TRUE);
    QCOMPARE(regionOf(region), expected);
    QCOMPARE(box(region), QStringLiteral("2: 2 3 22 15")); // SIMPLEREGION whatever the shape
    QVERIFY(!region.PtInRegion(2, 3));
    QVERIFY(region.PtInRegion(11, 8));
    CRgn_X indirect;
    const tagRECT rect = {2, 3, 21, 14};
    QCOMPARE(indirect.CreateEllipticRgnIndirect(&rect), TRUE);
    QCOMPARE(regionOf(indirect), expected);
    CRgn_X swapped;
    QCOMPARE(swapped.CreateEllipticRgn(21, 14, 2, 3), TRUE);
    QVERIFY(regionOf(swapped).isEmpty());
}

void tst_Region::roundCorners_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("round") << 6 << 6;
    QTest::newRow("flat corners") << 12 << 3;
    QTest::newRow("no radius") << 0 << 0;
    QTest::newRow("negative radius") << -4 << -4;
    QTest::newRow("a radius beyond the middle") << 100 << 100;
}

void tst_Region::roundCorners()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QPainterPath path;
    path.addRoundedRect(QRectF(10, 20, 31, 21), width, height, Qt::AbsoluteSize); // to (40, 40), and one pixel more
    CRgn_X region;
    QCOMPARE(region.CreateRoundRectRgn(10, 20, 40, 40, width, height), TRUE);
    QCOMPARE(regionOf(region), QRegion(path.toFillPolygon().toPolygon(), Qt::OddEvenFill));
    QVERIFY(region.PtInRegion(25, 30));
    QCOMPARE(region.PtInRegion(10, 20), BOOL(width <= 0));
}

void tst_Region::polygon()
{
    const tagPOINT points[] = {{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}};
    CRgn_X region;
    QCOMPARE(region.CreatePolygonRgn(points, 6, ALTERNATE), TRUE);
    QCOMPARE(inside(regionOf(region)), QStringLiteral("####..\n####..\n##....\n##....\n......\n......\n"));
}

void tst_Region::polygonModeIsIgnored()
{
    // The inner square is inside twice.
    const tagPOINT points[] = {{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}};
    for (const int mode : {ALTERNATE, WINDING, 0, -1}) {
        CRgn_X region;
        QCOMPARE(region.CreatePolygonRgn(points, 10, mode), TRUE);
        QVERIFY(region.PtInRegion(1, 1));
        QVERIFY(!region.PtInRegion(3, 3));
    }
}

void tst_Region::polygonWithoutPoints()
{
    const tagPOINT points[] = {{0, 0}, {4, 0}, {4, 4}};
    for (const int count : {0, -1, INT_MIN}) {
        CRgn_X region;
        QCOMPARE(region.CreatePolygonRgn(points, count, ALTERNATE), TRUE);
        QCOMPARE(box(region), QStringLiteral("2: 0 0 0 0"));
    }
    CRgn_X region;
    QCOMPARE(region.CreatePolygonRgn(nullptr, 3, ALTERNATE), TRUE);
    QCOMPARE(box(region), QStringLiteral("2: 0 0 0 0"));
}

void tst_Region::polyPolygonIsTheLast()
{
    const tagPOINT points[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {10, 10}, {20, 10}, {20, 20}, {10, 20}};
    const int counts[] = {4, 4};
    CRgn_X region;
    QCOMPARE(region.CreatePolyPolygonRgn(points, counts, 2, WINDING), TRUE);
    QVERIFY(!region.PtInRegion(2, 2));
    QVERIFY(region.PtInRegion(15, 15));
}

void tst_Region::polyPolygonCounts()
{
    const tagPOINT points[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    const int counts[] = {-3, 0, 4};
    CRgn_X region;
    QCOMPARE(region.CreatePolyPolygonRgn(points, counts, 3, ALTERNATE), TRUE);
    QCOMPARE(box(region), QStringLiteral("2: 0 0 4 4"));
    void* const value = region;
    QCOMPARE(region.CreatePolyPolygonRgn(points, counts, 0, ALTERNATE), TRUE);
    QCOMPARE(region.CreatePolyPolygonRgn(points, counts, -1, ALTERNATE), TRUE);
    QCOMPARE(region.CreatePolyPolygonRgn(nullptr, counts, 3, ALTERNATE), TRUE);
    QCOMPARE(region.CreatePolyPolygonRgn(points, nullptr, 3, ALTERNATE), TRUE);
    QCOMPARE(region.GetSafeHandle(), value);
}

void tst_Region::ofADeviceContext()
{
    CRgn_X idle;
    CDC_X nowhere;
    QCOMPARE(idle.CreateFromPath(&nowhere), TRUE);
    QCOMPARE(box(idle), QStringLiteral("2: 0 0 0 0"));

    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    CDC_X dc(&image);
    CRgn_X unclipped;
    QCOMPARE(unclipped.CreateFromPath(&dc), TRUE);
    QCOMPARE(box(unclipped), QStringLiteral("2: 0 0 0 0"));
    dc.setClipRect(2, 3, 4, 5);
    CRgn_X clip;
    QCOMPARE(clip.CreateFromPath(&dc), TRUE);
    QCOMPARE(box(clip), QStringLiteral("2: 2 3 6 8"));
    dc.setClipRect(0, 0, 1, 1); // the region is a copy
    QCOMPARE(box(clip), QStringLiteral("2: 2 3 6 8"));
}

void tst_Region::createFreesNothing()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    const std::unique_ptr<QRegion> old(static_cast<QRegion*>(region.GetSafeHandle()));
    region.CreateRectRgn(0, 0, 20, 20);
    QCOMPARE(old->boundingRect(), QRect(0, 0, 11, 11));
}

void tst_Region::nullRecords()
{
    CRgn_X region;
    QCOMPARE(region.CreateRectRgnIndirect(nullptr), FALSE);
    QCOMPARE(region.CreateEllipticRgnIndirect(nullptr), FALSE);
    QCOMPARE(region.CreateFromPath(nullptr), FALSE);
    QCOMPARE(box(region), QStringLiteral("none"));
    region.CreateRectRgn(0, 0, 10, 10);
    QCOMPARE(region.SetRectRgn(nullptr), FALSE);
    QCOMPARE(region.GetRgnBox(nullptr), SIMPLEREGION);
    QCOMPARE(region.RectInRegion(nullptr), FALSE);
    QCOMPARE(box(region), QStringLiteral("2: 0 0 11 11"));
}

void tst_Region::stubs()
{
    const tagXFORM transform = {1, 0, 0, 1, 0, 0};
    _RGNDATA data = {};
    CRgn_X region;
    QCOMPARE(region.CreateFromData(&transform, sizeof data, &data), FALSE);
    QCOMPARE(box(region), QStringLiteral("none"));
    region.CreateRectRgn(0, 0, 10, 10);
    QCOMPARE(static_cast<unsigned>(region.GetRegionData(nullptr, 0)), 0xFFFFFFFFu);
    QCOMPARE(static_cast<unsigned>(region.GetRegionData(&data, sizeof data)), 0xFFFFFFFFu);
    QCOMPARE(data.rdh.dwSize, 0u);
}

// ----------------------------------------------------------------------------------------------------------- replacing

void tst_Region::setRect()
{
    CRgn_X region;
    QCOMPARE(region.SetRectRgn(1, 2, 3, 4), TRUE); // without a handle too
    QCOMPARE(box(region), QStringLiteral("2: 1 2 4 5"));
    const tagRECT rect = {5, 6, 7, 8};
    QCOMPARE(region.SetRectRgn(&rect), TRUE); // a sanitizer would tell if the old one were left
    QCOMPARE(box(region), QStringLiteral("2: 5 6 8 9"));
}

void tst_Region::combine_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QRegion>("expected");
    const QRegion a(0, 0, 11, 11);
    const QRegion b(5, 5, 11, 11);
    QTest::newRow("and") << RGN_AND << QRegion(5, 5, 6, 6);
    QTest::newRow("or") << RGN_OR << (a | b);
    QTest::newRow("exclusive or") << RGN_XOR << (a ^ b);
    QTest::newRow("difference") << RGN_DIFF << (a - b);
    QTest::newRow("copy unites") << RGN_COPY << (a | b);
    QTest::newRow("0") << 0 << QRegion();
    QTest::newRow("beyond") << 6 << QRegion();
    QTest::newRow("negative") << -1 << QRegion();
}

void tst_Region::combine()
{
    QFETCH(int, mode);
    CRgn_X a;
    CRgn_X b;
    CRgn_X result;
    a.CreateRectRgn(0, 0, 10, 10);
    b.CreateRectRgn(5, 5, 15, 15);
    QCOMPARE(result.CombineRgn(&a, &b, mode), TRUE);
    QTEST(regionOf(result), "expected");
    QCOMPARE(box(a), QStringLiteral("2: 0 0 11 11"));
    QCOMPARE(box(b), QStringLiteral("2: 5 5 16 16"));
}

void tst_Region::combineWithItself()
{
    CRgn_X a;
    CRgn_X b;
    a.CreateRectRgn(0, 0, 10, 10);
    b.CreateRectRgn(5, 5, 15, 15);
    QCOMPARE(a.CombineRgn(&a, &b, RGN_AND), TRUE);
    QCOMPARE(box(a), QStringLiteral("2: 5 5 11 11"));
    QCOMPARE(b.CombineRgn(&a, &b, RGN_DIFF), TRUE);
    QVERIFY(regionOf(b).isEmpty());
    QCOMPARE(a.CombineRgn(&a, &a, RGN_XOR), TRUE);
    QVERIFY(regionOf(a).isEmpty());
}

void tst_Region::combineFreesTheOld()
{
    CRgn_X a;
    a.CreateRectRgn(0, 0, 10, 10);
    CRgn_X result;
    result.CreateRectRgn(0, 0, 1, 1);
    void* const old = result;
    QCOMPARE(result.CombineRgn(&a, &a, RGN_OR), TRUE);
    QVERIFY(!afxMapHGDIOBJ_X(TRUE)->LookupPermanent(old));
    QCOMPARE(CRgn_X::FromHandle(result), &result);
}

void tst_Region::combineWithNothing()
{
    CRgn_X a;
    a.CreateRectRgn(0, 0, 10, 10);
    const CRgn_X none;
    CRgn_X result;
    QCOMPARE(result.CombineRgn(&a, nullptr, RGN_COPY), TRUE);
    QCOMPARE(box(result), QStringLiteral("2: 0 0 11 11"));
    QCOMPARE(result.CombineRgn(&a, &none, RGN_AND), TRUE);
    QVERIFY(regionOf(result).isEmpty());
    QCOMPARE(result.CombineRgn(&none, &a, RGN_XOR), TRUE);
    QCOMPARE(box(result), QStringLiteral("2: 0 0 11 11"));
    QCOMPARE(result.CombineRgn(nullptr, nullptr, RGN_OR), TRUE);
    QCOMPARE(box(result), QStringLiteral("2: 0 0 0 0"));
}

// --------------------------------------------------------------------------------------------------- asking and moving

void tst_Region::pointsInside_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("isInside");
    QTest::newRow("first") << 2 << 3 << 1;
    QTest::newRow("last, which is the right and bottom number") << 10 << 10 << 1;
    QTest::newRow("left of it") << 1 << 3 << 0;
    QTest::newRow("above it") << 2 << 2 << 0;
    QTest::newRow("right of it") << 11 << 10 << 0;
    QTest::newRow("below it") << 10 << 11 << 0;
}

void tst_Region::pointsInside()
{
    QFETCH(int, x);
    QFETCH(int, y);
    CRgn_X region;
    region.CreateRectRgn(2, 3, 10, 10);
    QTEST(region.PtInRegion(x, y), "isInside");
    QTEST(region.PtInRegion(CPoint(x, y)), "isInside");
}

void tst_Region::rectanglesInside_data()
{
    QTest::addColumn<QRect>("corners");
    QTest::addColumn<int>("isInside");
    const auto corners = [](int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right, bottom));
    };
    QTest::newRow("in it") << corners(3, 4, 5, 6) << 1;
    QTest::newRow("overlapping") << corners(0, 0, 2, 3) << 1;
    QTest::newRow("around it") << corners(0, 0, 20, 20) << 1;
    QTest::newRow("beside it") << corners(11, 3, 20, 10) << 0;
    QTest::newRow("a pixel") << corners(10, 10, 10, 10) << 1;
}

void tst_Region::rectanglesInside()
{
    QFETCH(QRect, corners);
    CRgn_X region;
    region.CreateRectRgn(2, 3, 10, 10);
    const tagRECT rect = {corners.left(), corners.top(), corners.right(), corners.bottom()};
    QTEST(region.RectInRegion(&rect), "isInside");
}

void tst_Region::offset()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    QCOMPARE(region.OffsetRgn(3, -4), 0);
    QCOMPARE(box(region), QStringLiteral("2: 3 -4 14 7"));
    QCOMPARE(region.OffsetRgn(CPoint(-3, 4)), 0);
    QCOMPARE(box(region), QStringLiteral("2: 0 0 11 11"));
}

void tst_Region::withoutAHandle()
{
    CRgn_X region;
    tagRECT rect = {1, 1, 1, 1};
    QCOMPARE(static_cast<void*>(region), nullptr);
    QCOMPARE(static_cast<unsigned>(region.OffsetRgn(1, 1)), 0xFFFFFFFFu);
    QCOMPARE(static_cast<unsigned>(region.OffsetRgn(CPoint(1, 1))), 0xFFFFFFFFu);
    QCOMPARE(region.GetRgnBox(&rect), 0);
    QCOMPARE(rect.left, 1);
    QCOMPARE(region.PtInRegion(1, 1), FALSE);
    QCOMPARE(region.PtInRegion(CPoint(1, 1)), FALSE);
    QCOMPARE(region.RectInRegion(&rect), FALSE);
}

XE_APPLESS_TEST(tst_Region)
#include "tst_region.moc"
