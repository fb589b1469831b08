// What a cell paints beside its text: background, frames and edges, picture and arrow.

#include "cell/canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xecolor.h>

class tst_CellDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void refused();
    void background();
    void selected();
    void focusFrame_data();
    void focusFrame();
    void focusedAndSelected();
    void dropHighlight();
    void raisedEdge();
    void headingOfTheFocus();
    void headingOfACoveredCell();
    void pictureAtItsSize();
    void pictureTooLarge();
    void picturePushesTheText();
    void tiledPicture();
    void sortArrow();
    void painterIsRestored();
    void printing();
};

void tst_CellDrawing::refused()
{
    Canvas canvas;
    canvas.grid.SetItemBkColour(1, 1, RGB(255, 0, 0));
    QCOMPARE(canvas.draw(1, 1, CRect(10, 10, 10, 39)), 0);
    QCOMPARE(canvas.draw(1, 1, CRect(10, 10, 79, 10)), 0);
    QCOMPARE(canvas.draw(1, 1, CRect(10, 10, 5, 5)), 0);
    QCOMPARE(canvas.grid.cellAt(1, 1)->Draw(nullptr, 1, 1, CRect(10, 10, 79, 39), nullptr, 0), 0);
    CDC_X inactive;
    QCOMPARE(canvas.grid.cellAt(1, 1)->Draw(&inactive, 1, 1, CRect(10, 10, 79, 39), nullptr, 0), 0);
    CGridCell_X alone;
    CDC_X dc(&canvas.image);
    QCOMPARE(alone.Draw(&dc, 1, 1, CRect(10, 10, 79, 39), nullptr, 1), 0);
    QVERIFY(canvas.painted().isNull());
    dc.end();
    QCOMPARE(canvas.draw(1, 1, CRect(10, 10, 11, 11)), 1);
}

void tst_CellDrawing::background()
{
    Canvas canvas;
    QCOMPARE(canvas.draw(1, 1), 1);
    QVERIFY(canvas.painted().isNull());
    canvas.grid.m_crTextBkColour = RGB(0, 0, 255);
    canvas.draw(1, 1, CRect(10, 10, 79, 39), 1);
    QCOMPARE(canvas.where(blue), corners(10, 10, 79, 39));
    canvas.grid.SetItemBkColour(1, 1, RGB(255, 0, 0));
    canvas.draw(1, 1); // its own, also when the grid has painted
    QCOMPARE(canvas.where(red), corners(10, 10, 79, 39));
    QVERIFY(canvas.where(blue).isNull());
}

void tst_CellDrawing::selected()
{
    Canvas canvas;
    canvas.grid.SetItemBkColour(1, 1, RGB(255, 0, 0));
    canvas.grid.SetItemState(1, 1, CGridCellBase_X::Selected);
    canvas.draw(1, 1);
    QCOMPARE(canvas.where(highlight), corners(10, 10, 79, 39));
    QCOMPARE(canvas.painted(), corners(10, 10, 79, 39));
}

void tst_CellDrawing::focusFrame_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QRect>("frame");

    QTest::newRow("inside the grid lines") << 3 << corners(10, 10, 78, 38);
    QTest::newRow("inside horizontal lines") << 1 << corners(10, 10, 78, 38);
    QTest::newRow("inside vertical lines") << 2 << corners(10, 10, 78, 38);
    QTest::newRow("round the cell without lines") << 0 << corners(10, 10, 79, 39);
}

void tst_CellDrawing::focusFrame()
{
    QFETCH(int, lines);
    QFETCH(QRect, frame);
    Canvas canvas;
    canvas.grid.m_nGridLines = lines;
    canvas.grid.SetItemFgColour(1, 1, RGB(0, 0, 255));
    canvas.grid.cellAt(1, 1)->SetState(CGridCellBase_X::Focused);
    canvas.draw(1, 1);
    QCOMPARE(canvas.painted(), frame);
    QCOMPARE(canvas.where(blue), frame);
    QCOMPARE(canvas.at(11, 11), white);
    QCOMPARE(canvas.at(frame.right() - 1, frame.bottom() - 1), white);
    QCOMPARE(canvas.at(frame.right(), 20), blue);
    QCOMPARE(canvas.at(20, frame.bottom()), blue);
}

void tst_CellDrawing::focusedAndSelected()
{
    Canvas canvas;
    canvas.grid.cellAt(1, 1)->SetState(CGridCellBase_X::Focused | CGridCellBase_X::Selected);
    canvas.draw(1, 1);
    QCOMPARE(canvas.at(10, 10), white); // the frame, in the highlighted text's colour
    QCOMPARE(canvas.at(78, 38), white);
    QCOMPARE(canvas.at(11, 11), highlight);
    QCOMPARE(canvas.at(79, 39), highlight);
}

void tst_CellDrawing::dropHighlight()
{
    Canvas canvas;
    canvas.grid.cellAt(1, 1)->SetState(CGridCellBase_X::DropHilited);
    canvas.draw(1, 1);
    QCOMPARE(canvas.where(black), corners(10, 10, 78, 38));
}

void tst_CellDrawing::raisedEdge()
{
    Canvas canvas;
    canvas.image.fill(QColor(blue));
    canvas.draw(0, 2);
    QCOMPARE(canvas.at(10, 10), white);
    QCOMPARE(canvas.at(78, 10), white);
    QCOMPARE(canvas.at(10, 38), white);
    QCOMPARE(canvas.at(79, 39), black);
    QCOMPARE(canvas.at(79, 11), black);
    QCOMPARE(canvas.at(11, 39), black);
    QCOMPARE(canvas.at(11, 11), blue);
    QCOMPARE(canvas.at(78, 38), blue);
}

void tst_CellDrawing::headingOfTheFocus()
{
    Canvas canvas;
    canvas.grid.m_idCurrentCell = CCellID_X(2, 2);
    canvas.draw(0, 2);
    QCOMPARE(canvas.where(black), corners(10, 10, 79, 39));
    QCOMPARE(canvas.at(11, 11), white);
    QCOMPARE(canvas.at(79, 39), black);
    Canvas side;
    side.grid.m_idCurrentCell = CCellID_X(2, 2);
    side.draw(2, 0);
    QCOMPARE(side.at(10, 10), black);
    Canvas other;
    other.image.fill(QColor(blue));
    other.grid.m_idCurrentCell = CCellID_X(2, 2);
    other.draw(0, 3);
    QCOMPARE(other.at(10, 10), white); // raised
}

void tst_CellDrawing::headingOfACoveredCell()
{
    Canvas canvas;
    canvas.image.fill(QColor(blue));
    canvas.grid.m_idCurrentCell = CCellID_X(2, 2);
    CGridCellBase_X& covered = *canvas.grid.cellAt(0, 2);
    covered.m_bMergeSlave = 1;
    covered.m_nMasterRow = 0;
    covered.m_nMasterCol = 1;
    canvas.draw(0, 2);
    QCOMPARE(canvas.at(10, 10), white); // the focus is not in the column of the block's first cell
    covered.m_nMasterCol = 2;
    canvas.draw(0, 2);
    QCOMPARE(canvas.at(10, 10), black);
}

void tst_CellDrawing::pictureAtItsSize()
{
    Canvas canvas;
    canvas.grid.SetItemImage(1, 1, 0);
    canvas.draw(1, 1);
    QCOMPARE(canvas.where(red), QRect(13, 10, 10, 8));
}

void tst_CellDrawing::pictureTooLarge()
{
    const auto isDrawn = [](const CRect& rect) {
        Canvas canvas;
        canvas.grid.SetItemImage(1, 1, 0);
        canvas.draw(1, 1, rect);
        return !canvas.where(red).isNull();
    };
    // left + 3 + 11 at most right - 3 + 6, top + 9 at most bottom + 6
    QVERIFY(isDrawn(CRect(10, 10, 21, 39)));
    QVERIFY(!isDrawn(CRect(10, 10, 20, 39)));
    QVERIFY(isDrawn(CRect(10, 10, 79, 13)));
    QVERIFY(!isDrawn(CRect(10, 10, 79, 12)));
}

void tst_CellDrawing::picturePushesTheText()
{
    const auto leftOfText = [](int image, int tile) {
        Canvas canvas;
        canvas.grid.m_crTextColour = RGB(0, 0, 255);
        canvas.grid.SetItemText(1, 1, L"||||||||||||||||||||||||||||||||||||||||||");
        canvas.grid.SetItemImage(1, 1, image);
        canvas.grid.SetItemTile(1, 1, tile);
        canvas.draw(1, 1, CRect(10, 10, 109, 39));
        QRect text;
        for (int y = 20; y < 40; ++y) { // below the picture
            for (int x = 0; x < 120; ++x)
                text |= canvas.at(x, y) != white && canvas.at(x, y) != red ? QRect(x, y, 1, 1) : QRect();
        }
        return text.left();
    };
    const int plain = leftOfText(-1, 0);
    QCOMPARE(leftOfText(0, 0) - plain, 14); // margin, width and 1
    QCOMPARE(leftOfText(0, 1) - plain, 13); // margin and width
    Canvas low;
    low.grid.SetItemImage(1, 1, 0);
    low.grid.SetItemText(1, 1, L"MMMM");
    low.draw(1, 1, CRect(10, 10, 79, 12)); // too low for the picture
    QVERIFY(low.where(red).isNull());
    QVERIFY(low.painted().isNull() || low.painted().left() >= 27);
}

void tst_CellDrawing::tiledPicture()
{
    Canvas canvas;
    canvas.grid.SetItemImage(1, 1, 0);
    canvas.grid.SetItemTile(1, 1, 1);
    canvas.draw(1, 1);
    QCOMPARE(canvas.where(red), QRect(13, 10, 63, 29)); // from the margins, right - left by bottom - top
}

void tst_CellDrawing::sortArrow()
{
    Canvas plain;
    plain.grid.m_nSortColumn = 1;
    plain.draw(1, 1);
    QVERIFY(plain.painted().isNull()); // row 0 alone has it
    const auto drawArrow = [](Canvas& canvas, int ascending) {
        canvas.grid.SetFixedRowCount(0);
        canvas.grid.SetFixedColumnCount(0);
        canvas.grid.m_nSortColumn = 1;
        canvas.grid.m_bAscending = ascending;
        canvas.image.fill(QColor(blue));
        canvas.draw(0, 1);
    };
    const int size = std::min(QFontMetrics(QFont()).height(), 29) - 4;
    Canvas up;
    drawArrow(up, 1);
    const QRgb shadow = 0xFFA0A0A0;
    QCOMPARE(up.at(76, 12 + size), shadow); // the base at the bottom
    QCOMPARE(up.at(76 - size, 12 + size), shadow);
    QCOMPARE(up.at(76 - size / 2, 12), shadow);
    QCOMPARE(up.at(77, 13 + size), white);
    Canvas down;
    drawArrow(down, 0);
    QCOMPARE(down.at(76, 12), shadow);
    QCOMPARE(down.at(76 - size, 12), shadow);
    QCOMPARE(down.at(76 - size / 2, 12 + size), shadow);
    QCOMPARE(down.at(77 - size / 2, 13 + size), white);
    Canvas low;
    low.grid.SetFixedRowCount(0);
    low.grid.m_nSortColumn = 1;
    low.draw(0, 1, CRect(10, 10, 79, 14));
    QVERIFY(low.painted().isNull());
}

void tst_CellDrawing::painterIsRestored()
{
    Canvas canvas;
    QFont font;
    font.setPixelSize(31);
    canvas.grid.SetItemText(0, 1, L"x");
    canvas.grid.SetItemImage(0, 1, 0);
    canvas.grid.m_nSortColumn = 1;
    canvas.grid.cellAt(0, 1)->SetState(63);
    canvas.grid.m_idCurrentCell = CCellID_X(1, 1);
    CDC_X dc(&canvas.image);
    const QPen pen(Qt::green, 3, Qt::DashLine);
    dc.setPen(pen);
    dc.setBrush(Qt::yellow);
    dc.setFont(font);
    dc.SetBkMode(OPAQUE);
    QCOMPARE(canvas.grid.cellAt(0, 1)->Draw(&dc, 0, 1, CRect(10, 10, 79, 39), nullptr, 1), 1);
    QCOMPARE(dc.pen(), pen);
    QCOMPARE(dc.brush(), QBrush(Qt::yellow));
    QCOMPARE(dc.font().pixelSize(), 31);
    QCOMPARE(dc.font().weight(), font.weight());
    QCOMPARE(dc.backgroundMode(), Qt::OpaqueMode);
    QCOMPARE(dc.m_crText, 0xFFFFFFFFU);
    dc.SetTextColor(RGB(1, 2, 3));
    canvas.grid.cellAt(0, 1)->Draw(&dc, 0, 1, CRect(10, 10, 79, 39), nullptr, 1);
    QCOMPARE(dc.m_crText, COLORREF(RGB(1, 2, 3)));
}

void tst_CellDrawing::printing()
{
    const auto background = [](int shaded, int row, COLORREF own) {
        Canvas canvas;
        canvas.grid.m_bShadedPrintOut = shaded;
        canvas.grid.m_crFixedBkColour = RGB(0, 0, 255);
        canvas.grid.m_crTextBkColour = RGB(255, 0, 0);
        canvas.grid.SetItemBkColour(row, 1, own);
        CDC_X dc(&canvas.image);
        if (!canvas.grid.cellAt(row, 1)->PrintCell(&dc, row, 1, CRect(10, 10, 79, 39)))
            return QRgb(0);
        return canvas.at(40, 25);
    };
    QCOMPARE(background(1, 0, CLR_DEFAULT), blue);
    QCOMPARE(background(1, 0, RGB(255, 0, 0)), red);
    QCOMPARE(background(1, 1, CLR_DEFAULT), white);
    QCOMPARE(background(1, 1, RGB(0, 0, 255)), blue);
    QCOMPARE(background(1, 1, RGB(255, 0, 0)), white); // the grid's own
    QCOMPARE(background(0, 0, CLR_DEFAULT), white);
    QCOMPARE(background(0, 0, RGB(255, 0, 0)), white);
    QCOMPARE(background(0, 1, RGB(0, 0, 255)), white);
    CGridCell_X alone;
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(alone.PrintCell(&dc, 0, 0, CRect(10, 10, 79, 39)), 0);
}

XE_TEST(tst_CellDrawing)

#include "tst_celldrawing.moc"
