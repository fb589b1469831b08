// The coordinates of a device context.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

bool operator==(const tagPOINT& a, const tagPOINT& b) { return a.x == b.x && a.y == b.y; }

} // namespace

class tst_DcMapping : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void viewportOrigin();
    void viewportMovesWhatIsPainted();
    void withoutDevice();
    void pointsBothWays_data();
    void pointsBothWays();
    void rectangle();
    void sizeIsMovedToo();
    void nothingToConvert();
    void noWayBack();
};

void tst_DcMapping::viewportOrigin()
{
    Canvas canvas(20, 10);
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.GetViewportOrg(), CPoint(0, 0));
    QCOMPARE(dc.SetViewportOrg(3, 4), CPoint(0, 0));
    QCOMPARE(dc.viewport(), QRect(3, 4, 20, 10));
    QCOMPARE(dc.SetViewportOrg(CPoint(-1, 2)), CPoint(3, 4));
    QCOMPARE(dc.GetViewportOrg(), CPoint(-1, 2));
    QCOMPARE(dc.viewport().size(), QSize(20, 10));
}

void tst_DcMapping::viewportMovesWhatIsPainted()
{
    Canvas canvas(4, 3);
    CDC_X dc(&canvas.image);
    dc.SetViewportOrg(2, 1);
    dc.FillSolidRect(0, 0, 1, 1, Qt::red);
    dc.end();
    QCOMPARE(canvas.view(), lines({"....", "..r.", "...."}));
}

void tst_DcMapping::withoutDevice()
{
    CDC_X dc;
    QTest::ignoreMessage(QtWarningMsg, "QPainter::viewport: Painter not active");
    QCOMPARE(dc.SetViewportOrg(3, 4), CPoint(0, 0));
    QTest::ignoreMessage(QtWarningMsg, "QPainter::viewport: Painter not active");
    QCOMPARE(dc.GetViewportOrg(), CPoint(0, 0));
    CPoint point(3, 4);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::deviceTransform: Painter not active");
    dc.LPtoDP(&point);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::deviceTransform: Painter not active");
    dc.DPtoLP(&point);
    QCOMPARE(point, CPoint(3, 4));
}

void tst_DcMapping::pointsBothWays_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<int>("originX");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QPoint>("logical");
    QTest::addColumn<QPoint>("device");

    const QTransform none;
    const auto moved = QTransform::fromTranslate(10, -5);
    const auto scaled = QTransform::fromScale(3, 2);
    QTest::newRow("as they are") << none << 0 << 1.0 << QPoint(3, 4) << QPoint(3, 4);
    QTest::newRow("moved") << moved << 0 << 1.0 << QPoint(3, 4) << QPoint(13, -1);
    QTest::newRow("scaled") << scaled << 0 << 1.0 << QPoint(3, 4) << QPoint(9, 8);
    QTest::newRow("scaled, then moved") << scaled * moved << 0 << 1.0 << QPoint(3, 4) << QPoint(19, 3);
    QTest::newRow("with a viewport") << none << 7 << 1.0 << QPoint(3, 4) << QPoint(10, 4);
    QTest::newRow("device pixel ratio 2") << none << 0 << 2.0 << QPoint(3, 4) << QPoint(6, 8);
    QTest::newRow("ratio 2, moved") << moved << 0 << 2.0 << QPoint(3, 4) << QPoint(26, -2);
}

void tst_DcMapping::pointsBothWays()
{
    QFETCH(QTransform, transform);
    QFETCH(int, originX);
    QFETCH(qreal, ratio);
    QFETCH(QPoint, logical);
    QFETCH(QPoint, device);
    Canvas canvas(20, 20, ratio);
    CDC_X dc(&canvas.image);
    dc.setTransform(transform);
    if (originX)
        dc.SetViewportOrg(originX, 0);

    tagPOINT points[3] = {{logical.x(), logical.y()}, {logical.x(), logical.y()}, {logical.x(), logical.y()}};
    dc.LPtoDP(points, 2);
    QVERIFY(points[0] == (tagPOINT{device.x(), device.y()}));
    QVERIFY(points[1] == points[0]);
    QVERIFY(points[2] == (tagPOINT{logical.x(), logical.y()}));
    dc.DPtoLP(points, 2);
    QVERIFY(points[0] == points[2] && points[1] == points[2]);
}

void tst_DcMapping::rectangle()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.translate(10, 20);
    dc.scale(2, 3);
    CRect rect(1, 2, 3, 4);
    dc.LPtoDP(rect);
    QCOMPARE(rect, CRect(12, 26, 16, 32));
    dc.DPtoLP(rect);
    QCOMPARE(rect, CRect(1, 2, 3, 4));
}

void tst_DcMapping::sizeIsMovedToo()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.translate(10, 20);
    dc.scale(2, 3);
    CSize size(1, 2);
    dc.LPtoDP(&size);
    QCOMPARE(size, CSize(12, 26));
    dc.DPtoLP(&size);
    QCOMPARE(size, CSize(1, 2));
}

void tst_DcMapping::nothingToConvert()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.translate(10, 20);
    CPoint point(1, 2);
    for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
        dc.LPtoDP(&point, count);
        dc.DPtoLP(&point, count);
    }
    QCOMPARE(point, CPoint(1, 2));
    dc.LPtoDP(static_cast<tagPOINT*>(nullptr), 3);
    dc.DPtoLP(static_cast<tagPOINT*>(nullptr), 3);
    dc.LPtoDP(static_cast<tagRECT*>(nullptr));
    dc.DPtoLP(static_cast<tagRECT*>(nullptr));
    dc.LPtoDP(static_cast<tagSIZE*>(nullptr));
    dc.DPtoLP(static_cast<tagSIZE*>(nullptr));
}

void tst_DcMapping::noWayBack()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.scale(0, 2);
    CPoint point(5, 6);
    dc.DPtoLP(&point);
    QCOMPARE(point, CPoint(5, 6));
    CRect rect(1, 2, 3, 4);
    dc.DPtoLP(rect);
    QCOMPARE(rect, CRect(1, 2, 3, 4));
}

XE_TEST(tst_DcMapping)
#include "tst_dcmapping.moc"
