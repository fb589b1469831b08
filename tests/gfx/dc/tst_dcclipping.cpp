// The clip of a device context, and its painting of regions.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>

#include <QPainterPath>

namespace {

// What can be painted on a canvas of this size after `prepare`.
QString paintable(int width, int height, const std::function<void(CDC_X&)>& prepare)
{
    Canvas canvas(width, height);
    CDC_X dc(&canvas.image);
    prepare(dc);
    dc.fillRect(-100, -100, 300, 300, Qt::red);
    dc.end();
    return canvas.view();
}

} // namespace

Q_DECLARE_METATYPE(std::function<int(CDC_X&)>)

class tst_DcClipping : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void selectRegion();
    void selectNothing();
    void selectByMode_data();
    void selectByMode();
    void narrowToARectangle_data();
    void narrowToARectangle();
    void emptyRectangle_data();
    void emptyRectangle();
    void excludeWindow();
    void excludeWindowFromAClip();
    void excludeNoWindow();
    void offsetMovesAllThatIsPainted();

    void fillRegion();
    void fillWithAPattern();
    void paintRegion();
    void frameRegion();
    void frameGoesRoundTheBounds();
    void invertRegion();
    void invertRegionInsideAClip();
    void withoutHandles();
    void emptyRegion();
};

// -------------------------------------------------------------------------------------------------------------- clip

void tst_DcClipping::selectRegion()
{
    const QString view = paintable(5, 4, [](CDC_X& dc) {
        CRgn_X first;
        first.CreateRectRgn(0, 0, 0, 0);
        QCOMPARE(dc.SelectClipRgn(&first), 0);
        CRgn_X region;
        region.CreateRectRgn(1, 1, 3, 2); // a region has its right and bottom edge
        QCOMPARE(dc.SelectClipRgn(&region), 0);
    });
    QCOMPARE(view, lines({".....", ".rrr.", ".rrr.", "....."}));
}

void tst_DcClipping::selectNothing()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setClipRect(1, 2, 3, 4);
    CRgn_X empty;
    QCOMPARE(dc.SelectClipRgn(&empty), 0);
    QCOMPARE(dc.SelectClipRgn(nullptr), 0);
    QCOMPARE(dc.SelectClipRgn(&empty, RGN_COPY), -1);
    QCOMPARE(dc.SelectClipRgn(nullptr, RGN_COPY), -1);
    QCOMPARE(dc.clipRegion(), QRegion(1, 2, 3, 4));
}

void tst_DcClipping::selectByMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected");

    const QString replaced = "..rr.";
    QTest::newRow("0 takes the clip off") << 0 << "rrrrr";
    QTest::newRow("RGN_AND replaces") << RGN_AND << replaced;
    QTest::newRow("RGN_OR intersects") << RGN_OR << "..r..";
    QTest::newRow("RGN_XOR replaces") << RGN_XOR << replaced;
    QTest::newRow("RGN_DIFF replaces") << RGN_DIFF << replaced;
    QTest::newRow("RGN_COPY replaces") << RGN_COPY << replaced;
    QTest::newRow("negative replaces") << -1 << replaced;
}

void tst_DcClipping::selectByMode()
{
    QFETCH(int, mode);
    const QString view = paintable(5, 1, [mode](CDC_X& dc) {
        dc.setClipRect(0, 0, 3, 1);
        CRgn_X region;
        region.CreateRectRgn(2, 0, 3, 0);
        QCOMPARE(dc.SelectClipRgn(&region, mode), 0);
    });
    QTEST(view, "expected");
}

void tst_DcClipping::narrowToARectangle_data()
{
    using Call = std::function<int(CDC_X&)>;
    QTest::addColumn<Call>("call");

    static const CRect rect(1, 1, 4, 3);
    QTest::newRow("IntersectClipRect, numbers") << Call([](CDC_X& dc) { return dc.IntersectClipRect(1, 1, 4, 3); });
    QTest::newRow("IntersectClipRect, rectangle") << Call([](CDC_X& dc) { return dc.IntersectClipRect(rect); });
    QTest::newRow("ExcludeClipRect, numbers") << Call([](CDC_X& dc) { return dc.ExcludeClipRect(1, 1, 4, 3); });
    QTest::newRow("ExcludeClipRect, rectangle") << Call([](CDC_X& dc) { return dc.ExcludeClipRect(rect); });
}

void tst_DcClipping::narrowToARectangle()
{
    QFETCH(std::function<int(CDC_X&)>, call);
    const QString alone = paintable(5, 4, [&](CDC_X& dc) { QCOMPARE(call(dc), 0); });
    QCOMPARE(alone, lines({".....", ".rrr.", ".rrr.", "....."}));
    const QString inAClip = paintable(5, 4, [&](CDC_X& dc) {
        dc.setClipRect(2, 0, 3, 2);
        QCOMPARE(call(dc), 0);
    });
    QCOMPARE(inAClip, lines({".....", "..rr.", ".....", "....."}));
}

void tst_DcClipping::emptyRectangle_data()
{
    QTest::addColumn<QRect>("edges");
    QTest::addColumn<bool>("excludedToo"); // setClipRect() puts swapped edges right

    QTest::newRow("no width") << QRect(2, 0, 2, 4) << true;
    QTest::newRow("swapped") << QRect(3, 3, 1, 1) << false;
}

void tst_DcClipping::emptyRectangle()
{
    QFETCH(QRect, edges);
    QFETCH(bool, excludedToo);
    const CRect rect(edges.x(), edges.y(), edges.width(), edges.height());
    const QString nothing = lines({"....", "....", "....", "...."});
    QCOMPARE(paintable(4, 4, [&](CDC_X& dc) { dc.IntersectClipRect(rect); }), nothing);
    QCOMPARE(paintable(4, 4, [&](CDC_X& dc) { dc.ExcludeClipRect(rect); }) == nothing, excludedToo);
    const QString all = lines({"rr", "rr"});
    QCOMPARE(paintable(2, 2, [](CDC_X& dc) { QCOMPARE(dc.IntersectClipRect(nullptr), 0); }), all);
    QCOMPARE(paintable(2, 2, [](CDC_X& dc) { QCOMPARE(dc.ExcludeClipRect(nullptr), 0); }), all);
}

void tst_DcClipping::excludeWindow()
{
    QWidget parent;
    QWidget child(&parent);
    child.setGeometry(1, 1, 2, 2);
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&child));
    const QString view = paintable(5, 4, [&](CDC_X& dc) { QCOMPARE(dc.ExcludeUpdateRgn(&window), 0); });
    QCOMPARE(view, lines({"rrrrr", "r..rr", "r..rr", "rrrrr"}));
}

void tst_DcClipping::excludeWindowFromAClip()
{
    QWidget parent;
    QWidget child(&parent);
    child.setGeometry(1, 1, 2, 2);
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&child));
    const QString view = paintable(5, 4, [&](CDC_X& dc) {
        dc.setClipRect(0, 0, 3, 2);
        dc.ExcludeUpdateRgn(&window);
    });
    QCOMPARE(view, lines({"rrr..", "r....", ".....", "....."}));
}

void tst_DcClipping::excludeNoWindow()
{
    CWnd_X empty;
    const QString view = paintable(2, 1, [&](CDC_X& dc) {
        QCOMPARE(dc.ExcludeUpdateRgn(nullptr), 0);
        QCOMPARE(dc.ExcludeUpdateRgn(&empty), 0);
        QVERIFY(!dc.hasClipping());
    });
    QCOMPARE(view, "rr");
}

void tst_DcClipping::offsetMovesAllThatIsPainted()
{
    Canvas canvas(5, 3);
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.OffsetClipRgn(2, 1), 0);
    QCOMPARE(dc.OffsetClipRgn(CSize(1, 0)), 0);
    dc.FillSolidRect(0, 0, 1, 1, Qt::red);
    dc.end();
    QCOMPARE(canvas.view(), lines({".....", "...r.", "....."}));
}

// ------------------------------------------------------------------------------------------------------------ regions

void tst_DcClipping::fillRegion()
{
    Canvas canvas(6, 4);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.Attach(new QRegion(QRegion(0, 0, 2, 2) + QRegion(3, 1, 2, 2) + QRegion(0, 3, 6, 1)));
    CBrush_X brush(RGB(255, 0, 0));
    dc.setBrush(Qt::blue);
    QCOMPARE(dc.FillRgn(&region, &brush), 1);
    QCOMPARE(dc.brush(), QBrush(Qt::blue));
    dc.end();
    QCOMPARE(canvas.view(), lines({"rr....", "rr.rr.", "...rr.", "rrrrrr"}));
}

void tst_DcClipping::fillWithAPattern()
{
    const QRegion shape = QRegion(3, 2, 20, 9) + QRegion(10, 5, 12, 20, QRegion::Ellipse);
    Canvas canvas(40, 30);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.Attach(new QRegion(shape));
    CBrush_X brush(HS_DIAGCROSS, RGB(255, 0, 0));
    dc.FillRgn(&region, &brush);
    dc.end();

    QPainterPath path;
    for (const QRect& rect : shape)
        path.addRect(rect);
    Canvas oracle(40, 30);
    QPainter painter(&oracle.image);
    painter.fillPath(path, QBrush(Qt::red, Qt::DiagCrossPattern));
    painter.end();
    QCOMPARE(canvas.image, oracle.image);
}

void tst_DcClipping::paintRegion()
{
    Canvas canvas(4, 2);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.CreateRectRgn(1, 0, 2, 0);
    dc.setBrush(Qt::blue);
    QCOMPARE(dc.PaintRgn(&region), 1);
    dc.end();
    QCOMPARE(canvas.view(), lines({".bb.", "...."}));
}

void tst_DcClipping::frameRegion()
{
    Canvas canvas(9, 8);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.CreateRectRgn(3, 2, 5, 5);
    CBrush_X brush(RGB(255, 0, 0));
    QCOMPARE(dc.FrameRgn(&region, &brush, 2, 1), 1);
    dc.end();
    QCOMPARE(canvas.view(), lines({
                                ".........",
                                ".rrrrrrr.",
                                ".rr..rr..",
                                ".rr..rr..",
                                ".rr..rr..",
                                ".rrrrrrr.",
                                ".rr..rr..",
                                ".........",
                            }));
}

void tst_DcClipping::frameGoesRoundTheBounds()
{
    CBrush_X brush(RGB(255, 0, 0));
    CRgn_X ellipse;
    ellipse.CreateEllipticRgn(3, 3, 12, 9);
    CRgn_X rectangle;
    rectangle.Attach(new QRegion(static_cast<QRegion*>(ellipse.GetSafeHandle())->boundingRect()));
    Canvas first(20, 16);
    Canvas second(20, 16);
    CDC_X(&first.image).FrameRgn(&ellipse, &brush, 1, 1);
    CDC_X(&second.image).FrameRgn(&rectangle, &brush, 1, 1);
    QCOMPARE(first.view(), second.view());
    QVERIFY(first.view().contains('r'));
}

void tst_DcClipping::invertRegion()
{
    Canvas canvas(4, 2);
    canvas.image.fill(Qt::red);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.CreateRectRgn(1, 0, 2, 0);
    QCOMPARE(dc.InvertRgn(&region), 0);
    QCOMPARE(dc.compositionMode(), QPainter::RasterOp_NotSource);
    QCOMPARE(dc.clipRegion(), QRegion(1, 0, 2, 1));
    dc.end();
    QCOMPARE(canvas.view(), lines({"r..r", "rrrr"}));
}

void tst_DcClipping::invertRegionInsideAClip()
{
    Canvas canvas(4, 1);
    canvas.image.fill(Qt::red);
    CDC_X dc(&canvas.image);
    dc.setClipRect(2, 0, 2, 1);
    CRgn_X region;
    region.CreateRectRgn(1, 0, 2, 0);
    dc.InvertRgn(&region);
    dc.end();
    QCOMPARE(canvas.view(), "rr.r");
}

void tst_DcClipping::withoutHandles()
{
    Canvas canvas(2, 1);
    CDC_X dc(&canvas.image);
    CRgn_X noRegion;
    CBrush_X noBrush;
    CRgn_X region;
    region.CreateRectRgn(0, 0, 5, 5);
    CBrush_X brush(RGB(255, 0, 0));
    QCOMPARE(dc.FillRgn(&noRegion, &brush), 0);
    QCOMPARE(dc.FillRgn(nullptr, &brush), 0);
    QCOMPARE(dc.FillRgn(&region, &noBrush), 0);
    QCOMPARE(dc.FillRgn(&region, nullptr), 0);
    QCOMPARE(dc.PaintRgn(&noRegion), 0);
    QCOMPARE(dc.PaintRgn(nullptr), 0);
    QCOMPARE(dc.FrameRgn(&noRegion, &brush, 1, 1), 0);
    QCOMPARE(dc.FrameRgn(&region, &noBrush, 1, 1), 0);
    QCOMPARE(dc.FrameRgn(nullptr, nullptr, 1, 1), 0);
    QCOMPARE(dc.InvertRgn(&noRegion), 0);
    QCOMPARE(dc.InvertRgn(nullptr), 0);
    QVERIFY(!dc.hasClipping());
    QCOMPARE(dc.compositionMode(), QPainter::CompositionMode_SourceOver);
    dc.end();
    QCOMPARE(canvas.view(), "..");
}

void tst_DcClipping::emptyRegion()
{
    Canvas canvas(2, 1);
    CDC_X dc(&canvas.image);
    CRgn_X region;
    region.CreateRectRgn(5, 5, 0, 0);
    CBrush_X brush(RGB(255, 0, 0));
    QCOMPARE(dc.FillRgn(&region, &brush), 1);
    QCOMPARE(dc.PaintRgn(&region), 1);
    dc.end();
    QCOMPARE(canvas.view(), "..");
}

XE_TEST(tst_DcClipping)
#include "tst_dcclipping.moc"
