// Lines, shapes and fills of a device context, pixel by pixel.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_DcDrawing : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void linesHaveBothEnds();
    void currentPositionWithoutDevice();
    void pixels();
    void pixelLeavesAPlainPen();

    void rectangle();
    void rectangleByNumbers();
    void ellipses_data();
    void ellipses();
    void frameRectFills();
    void frameRectWithoutBrush();

    void solidFill_data();
    void solidFill();
    void solidFillOfARectangle_data();
    void solidFillOfARectangle();
    void colorRefsAreNotExchanged();
    void frameInTwoColours_data();
    void frameInTwoColours();

    void edges_data();
    void edges();
    void edgeOfNothing();

    void patterns_data();
    void patterns();
    void patternInWhiteHasThePensOutline();

    void nullRectangles();
    void largeNumbers();
    void devicePixelRatio2();
};

// ------------------------------------------------------------------------------------------------------------- lines

void tst_DcDrawing::linesHaveBothEnds()
{
    Canvas canvas(6, 5);
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.MoveTo(1, 1), 1);
    QCOMPARE(dc.LineTo(4, 1), 1);
    QCOMPARE(dc.m_ptCurrent, CPoint(4, 1));
    QCOMPARE(dc.LineTo(CPoint(4, 3)), 1);
    QCOMPARE(dc.MoveTo(CPoint(0, 4)), 1);
    QCOMPARE(dc.m_ptCurrent, CPoint(0, 4));
    dc.LineTo(0, 4);
    dc.end();
    QCOMPARE(canvas.view(), lines({"......", ".####.", "....#.", "....#.", "#....."}));
}

void tst_DcDrawing::currentPositionWithoutDevice()
{
    CDC_X dc;
    QCOMPARE(dc.MoveTo(3, 4), 1);
    QCOMPARE(dc.m_ptCurrent, CPoint(3, 4));
    QCOMPARE(dc.LineTo(5, 6), 1);
    QCOMPARE(dc.m_ptCurrent, CPoint(5, 6));
}

void tst_DcDrawing::pixels()
{
    Canvas canvas(4, 2);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::green);
    QCOMPARE(dc.SetPixel(1, 0, Qt::red), QColor(Qt::red));
    QCOMPARE(dc.SetPixel(CPoint(2, 1), QColor(Qt::blue)), QColor(Qt::blue));
    QCOMPARE(dc.SetPixel(3, 0, RGB(255, 0, 0)), QColor(Qt::red));
    QCOMPARE(dc.SetPixel(CPoint(0, 1), RGB(0, 0, 255)), QColor(Qt::blue));
    QCOMPARE(dc.pen().color(), QColor(Qt::green));
    dc.end();
    QCOMPARE(canvas.view(), lines({".r.r", "b.b."}));
}

void tst_DcDrawing::pixelLeavesAPlainPen()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(QPen(Qt::green, 5, Qt::DashLine));
    dc.SetPixel(0, 0, Qt::red);
    QCOMPARE(dc.pen(), QPen(QColor(Qt::green)));
    dc.setPen(Qt::NoPen);
    dc.SetPixel(0, 0, Qt::red);
    QCOMPARE(dc.pen(), QPen(QColor(Qt::black)));
}

// ------------------------------------------------------------------------------------------------------------ shapes

// The outline is one pixel wider than the inside, as drawRect() has it.
void tst_DcDrawing::rectangle()
{
    Canvas canvas(7, 6);
    CDC_X dc(&canvas.image);
    dc.setBrush(Qt::red);
    const CRect rect(1, 1, 5, 4);
    QCOMPARE(dc.Rectangle(rect), 1);
    dc.end();
    QCOMPARE(canvas.view(), lines({".......", ".#####.", ".#rrr#.", ".#rrr#.", ".#####.", "......."}));
}

void tst_DcDrawing::rectangleByNumbers()
{
    Canvas canvas(7, 6);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::NoPen);
    dc.setBrush(Qt::red);
    QCOMPARE(dc.Rectangle(1, 1, 5, 4), 1);
    dc.end();
    QCOMPARE(canvas.view(), lines({".......", ".rrrr..", ".rrrr..", ".rrrr..", ".......", "......."}));
}

void tst_DcDrawing::ellipses_data()
{
    QTest::addColumn<bool>("byNumbers");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("four numbers: width and height") << true << QRect(10, 10, 20, 20);
    QTest::newRow("a rectangle: edges") << false << QRect(10, 10, 10, 10);
}

void tst_DcDrawing::ellipses()
{
    QFETCH(bool, byNumbers);
    QFETCH(QRect, expected);
    Canvas canvas(40, 40);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::NoPen);
    dc.setBrush(Qt::red);
    const CRect rect(10, 10, 20, 20);
    QCOMPARE(byNumbers ? dc.Ellipse(10, 10, 20, 20) : dc.Ellipse(rect), 1);
    dc.end();

    Canvas oracle(40, 40);
    QPainter painter(&oracle.image);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::red);
    painter.drawEllipse(expected);
    painter.end();
    QCOMPARE(canvas.view(), oracle.view());
}

void tst_DcDrawing::frameRectFills()
{
    Canvas canvas(6, 5);
    CDC_X dc(&canvas.image);
    CBrush_X brush(RGB(255, 0, 0));
    const CRect rect(1, 1, 4, 3);
    dc.FrameRect(rect, &brush);
    QCOMPARE(dc.brush(), QBrush(Qt::red)); // stays
    dc.end();
    QCOMPARE(canvas.view(), lines({"......", ".####.", ".#rr#.", ".####.", "......"}));
}

void tst_DcDrawing::frameRectWithoutBrush()
{
    Canvas canvas(3, 3);
    CDC_X dc(&canvas.image);
    CBrush_X empty;
    const CRect rect(0, 0, 2, 2);
    dc.FrameRect(rect, &empty);
    dc.FrameRect(rect, nullptr);
    CBrush_X brush(RGB(255, 0, 0));
    dc.FrameRect(nullptr, &brush);
    dc.end();
    QCOMPARE(canvas.view(), lines({"...", "...", "..."}));
}

// ------------------------------------------------------------------------------------------------------ solid colours

void tst_DcDrawing::solidFill_data()
{
    QTest::addColumn<QRect>("numbers"); // x, y, width, height
    QTest::addColumn<QString>("expected");

    QTest::newRow("width and height") << QRect(1, 1, 3, 2) << lines({".....", ".rrr.", ".rrr.", "....."});
    QTest::newRow("one pixel") << QRect(2, 2, 1, 1) << lines({".....", ".....", "..r..", "....."});
    QTest::newRow("no width") << QRect(1, 1, 0, 2) << lines({".....", ".....", ".....", "....."});
    QTest::newRow("negative width: to the left") << QRect(3, 1, -2, 2) << lines({".....", ".rr..", ".rr..", "....."});
    QTest::newRow("negative height: upwards") << QRect(1, 3, 1, -3) << lines({".r...", ".r...", ".r...", "....."});
    QTest::newRow("beyond the image") << QRect(4, -1, 9, 9) << lines({"....r", "....r", "....r", "....r"});
}

void tst_DcDrawing::solidFill()
{
    QFETCH(QRect, numbers);
    Canvas canvas(5, 4);
    CDC_X dc(&canvas.image);
    dc.setPen(QPen(Qt::blue, 3)); // has no part in it
    dc.FillSolidRect(numbers.x(), numbers.y(), numbers.width(), numbers.height(), Qt::red);
    dc.end();
    QTEST(canvas.view(), "expected");
}

void tst_DcDrawing::solidFillOfARectangle_data()
{
    QTest::addColumn<QRect>("edges"); // left, top, right, bottom
    QTest::addColumn<QString>("expected");

    QTest::newRow("right and bottom excluded") << QRect(1, 1, 4, 3) << lines({".....", ".rrr.", ".rrr.", "....."});
    QTest::newRow("empty") << QRect(1, 1, 1, 3) << lines({".....", ".....", ".....", "....."});
    QTest::newRow("swapped sides: from the left one on by the distance")
        << QRect(3, 1, 1, 2) << lines({".....", "...rr", ".....", "....."});
    QTest::newRow("top and bottom swapped: downwards")
        << QRect(0, 2, 1, 0) << lines({".....", ".....", "r....", "r...."});
}

void tst_DcDrawing::solidFillOfARectangle()
{
    QFETCH(QRect, edges);
    Canvas canvas(5, 4);
    CDC_X dc(&canvas.image);
    const CRect rect(edges.x(), edges.y(), edges.width(), edges.height());
    dc.FillSolidRect(rect, QColor(Qt::red));
    dc.end();
    QTEST(canvas.view(), "expected");
}

void tst_DcDrawing::colorRefsAreNotExchanged()
{
    Canvas canvas(6, 2);
    CDC_X dc(&canvas.image);
    const COLORREF red = 0x0000FF;
    unsigned int blue = 0xFF0000;
    const CRect rect(2, 0, 3, 2);
    dc.FillSolidRect(0, 0, 1, 2, red);
    dc.FillSolidRect(1, 0, 1, 2, blue);
    dc.FillSolidRect(rect, red);
    dc.FillSolidRect(3, 0, 1, 2, RGB(0, 0, 255));
    dc.Draw3dRect(4, 0, 2, 2, red, blue);
    dc.end();
    QCOMPARE(canvas.view(), lines({"rbrbrb", "rbrbbb"}));

    Canvas other(2, 2);
    CDC_X dc2(&other.image);
    const CRect frame(0, 0, 2, 2);
    dc2.Draw3dRect(frame, RGB(255, 0, 0), RGB(0, 0, 255));
    dc2.end();
    QCOMPARE(other.view(), lines({"rb", "bb"}));
}

void tst_DcDrawing::frameInTwoColours_data()
{
    QTest::addColumn<bool>("byNumbers");

    QTest::newRow("numbers") << true;
    QTest::newRow("rectangle") << false;
}

void tst_DcDrawing::frameInTwoColours()
{
    QFETCH(bool, byNumbers);
    Canvas canvas(7, 6);
    CDC_X dc(&canvas.image);
    const CRect rect(1, 1, 6, 5);
    if (byNumbers)
        dc.Draw3dRect(1, 1, 5, 4, Qt::red, Qt::blue);
    else
        dc.Draw3dRect(rect, QColor(Qt::red), QColor(Qt::blue));
    dc.end();
    QCOMPARE(canvas.view(), lines({".......", ".rrrrb.", ".r...b.", ".r...b.", ".bbbbb.", "......."}));
}

// ------------------------------------------------------------------------------------------------------------- edges

void tst_DcDrawing::edges_data()
{
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0U << lines({".....", ".....", ".....", ".....", "....."});
    QTest::newRow("BF_LEFT") << BF_LEFT << lines({".....", ".#...", ".#...", ".#...", "....."});
    QTest::newRow("BF_TOP") << BF_TOP << lines({".....", ".###.", ".....", ".....", "....."});
    QTest::newRow("BF_RIGHT at the right edge itself")
        << BF_RIGHT << lines({".....", "...#.", "...#.", "...#.", "....."});
    QTest::newRow("BF_BOTTOM at the bottom edge itself")
        << BF_BOTTOM << lines({".....", ".....", ".....", ".###.", "....."});
    QTest::newRow("BF_RECT") << BF_RECT << lines({".....", ".###.", ".#.#.", ".###.", "....."});
    QTest::newRow("other bits") << ~BF_RECT << lines({".....", ".....", ".....", ".....", "....."});
}

void tst_DcDrawing::edges()
{
    QFETCH(UINT, flags);
    QFETCH(QString, expected);
    for (const UINT edge : {0U, EDGE_RAISED, EDGE_SUNKEN}) {
        Canvas canvas(5, 5);
        CDC_X dc(&canvas.image);
        const CRect rect(1, 1, 3, 3);
        QCOMPARE(dc.DrawEdge(rect, edge, flags), 1);
        dc.end();
        QCOMPARE(canvas.view(), expected);
    }
}

void tst_DcDrawing::edgeOfNothing()
{
    const CRect rect(1, 1, 3, 3);
    QCOMPARE(DrawEdge_X(nullptr, rect, EDGE_RAISED, BF_RECT), 0);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(DrawEdge_X(&dc, nullptr, EDGE_RAISED, BF_RECT), 0);
    QCOMPARE(DrawEdge_X(&dc, rect, EDGE_RAISED, BF_RECT), 1);
    QCOMPARE(dc.m_ptCurrent, CPoint(0, 0));
}

// ---------------------------------------------------------------------------------------------------------- patterns

void tst_DcDrawing::patterns_data()
{
    QTest::addColumn<UINT>("operation");
    QTest::addColumn<Qt::GlobalColor>("paper");
    QTest::addColumn<Qt::GlobalColor>("brush");
    QTest::addColumn<QString>("expected"); // a pixel of the paper and one of the rectangle

    QTest::newRow("BLACKNESS") << BLACKNESS << Qt::white << Qt::red << "#";
    QTest::newRow("WHITENESS") << WHITENESS << Qt::black << Qt::red << ".";
    QTest::newRow("DSTINVERT") << DSTINVERT << Qt::white << Qt::red << "#";
    QTest::newRow("DSTINVERT, whatever the brush") << DSTINVERT << Qt::black << Qt::blue << ".";
    QTest::newRow("PATINVERT on black") << PATINVERT << Qt::black << Qt::red << "r";
    QTest::newRow("PATINVERT on the same") << PATINVERT << Qt::red << Qt::red << "#";
    QTest::newRow("PATCOPY") << PATCOPY << Qt::white << Qt::red << "r";
    QTest::newRow("any other") << 0xCC0020U << Qt::white << Qt::red << "r";
}

void tst_DcDrawing::patterns()
{
    QFETCH(UINT, operation);
    QFETCH(Qt::GlobalColor, paper);
    QFETCH(Qt::GlobalColor, brush);
    Canvas canvas(3, 3);
    canvas.image.fill(paper);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::NoPen);
    dc.setBrush(brush);
    QCOMPARE(dc.PatBlt(0, 0, 2, 2, operation), 1);
    QCOMPARE(dc.compositionMode(), QPainter::CompositionMode_SourceOver);
    QCOMPARE(dc.brush(), QBrush(brush));
    dc.end();
    const QString view = canvas.view();
    const QChar background = view.at(2);
    QFETCH(QString, expected);
    const QString row = expected + expected + background;
    QCOMPARE(view, row + '\n' + row + '\n' + QString(3, background));
}

void tst_DcDrawing::patternInWhiteHasThePensOutline()
{
    Canvas canvas(4, 4);
    canvas.image.fill(Qt::red);
    CDC_X dc(&canvas.image);
    dc.PatBlt(0, 0, 3, 3, WHITENESS);
    dc.end();
    QCOMPARE(canvas.view(), lines({"####", "#..#", "#..#", "####"}));

    Canvas inverted(4, 4);
    CDC_X dc2(&inverted.image); // without a brush
    dc2.PatBlt(0, 0, 3, 3, DSTINVERT);
    dc2.end();
    QCOMPARE(inverted.view(), lines({"####", "#..#", "#..#", "####"}));
}

// ------------------------------------------------------------------------------------------------------------ misuse

void tst_DcDrawing::nullRectangles()
{
    Canvas canvas(3, 3);
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.Rectangle(nullptr), 0);
    QCOMPARE(dc.Ellipse(nullptr), 0);
    dc.FillSolidRect(nullptr, QColor(Qt::red));
    dc.FillSolidRect(nullptr, RGB(1, 2, 3));
    dc.Draw3dRect(nullptr, QColor(Qt::red), QColor(Qt::red));
    dc.end();
    QCOMPARE(canvas.view(), lines({"...", "...", "..."}));
}

void tst_DcDrawing::largeNumbers()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    Canvas canvas(3, 3);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::NoPen);
    const CRect all(least, least, most, most);
    dc.FillSolidRect(all, QColor(Qt::red));
    dc.FillSolidRect(most, most, most, most, Qt::red);
    dc.Draw3dRect(most, least, most, least, Qt::red, Qt::red);
    dc.Rectangle(least, least, least, least);
    dc.Ellipse(least, 0, 0, most);
    dc.PatBlt(most, most, 1, 1, BLACKNESS);
    dc.MoveTo(least, least);
    dc.LineTo(most, most);
    QCOMPARE(dc.m_ptCurrent, CPoint(most, most));
}

void tst_DcDrawing::devicePixelRatio2()
{
    Canvas canvas(6, 4, 2);
    CDC_X dc(&canvas.image);
    dc.FillSolidRect(1, 1, 1, 1, Qt::red);
    dc.end();
    QCOMPARE(canvas.view(), lines({"......", "......", "..rr..", "..rr.."}));
}

XE_TEST(tst_DcDrawing)
#include "tst_dcdrawing.moc"
