// The text of a cell: its place, its font, its colour, and that a painter would draw it so.

#include "cell/canvas.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xecolor.h>

class tst_CellText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void textOfTheHeadingOfTheFocus();
    void text();
    void textsAsAPainterDrawsThem_data();
    void textsAsAPainterDrawsThem();
    void textOnAFinerDevice();
    void textColours();
};

void tst_CellText::textOfTheHeadingOfTheFocus()
{
    QFont other;
    other.setItalic(true);
    Canvas canvas;
    canvas.grid.m_idCurrentCell = CCellID_X(2, 2);
    canvas.grid.SetItemText(0, 2, L"Head");
    for (QFont font : {QFont(), other, QFont()}) {
        canvas.image.fill(QColor(white));
        canvas.grid.SetItemFont(0, 2, reinterpret_cast<const CFont_X*>(&font));
        canvas.draw(0, 2);
        QImage expected(canvas.image.size(), canvas.image.format());
        expected.fill(QColor(white));
        font.setWeight(QFont::DemiBold);
        QPainter painter(&expected);
        painter.setFont(font);
        painter.drawText(corners(14, 11, 74, 37), ToQtTextFlag(0x8824) | Qt::TextHideMnemonic, "Head");
        const QRect inside = corners(11, 11, 78, 38);
        QCOMPARE(canvas.image.copy(inside), expected.copy(inside));
    }
}

void tst_CellText::text()
{
    Canvas canvas;
    canvas.grid.SetItemText(1, 1, L"MMMMMMMMMMMMMMMMMMMMMMMM");
    canvas.draw(1, 1);
    const QRect place = canvas.painted();
    QVERIFY(place.left() >= 13);
    QVERIFY(place.right() <= 75); // right - margin - 1
    Canvas centred;
    centred.grid.SetItemText(1, 1, L"-");
    centred.grid.SetItemFormat(1, 1, DT_CENTER);
    centred.draw(1, 1);
    QVERIFY(std::abs(centred.painted().center().x() - 44) <= 2);
    QVERIFY(std::abs(centred.painted().center().y() - 24) <= 4); // DT_CENTER centres both ways
    Canvas right;
    right.grid.SetItemText(1, 1, L"-");
    right.grid.SetItemFormat(1, 1, DT_RIGHT);
    right.draw(1, 1);
    QVERIFY(right.painted().left() > 60);
    QVERIFY(right.painted().center().y() < 24);
}

void tst_CellText::textsAsAPainterDrawsThem_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("one word") << QStringLiteral("Word");
    QTest::newRow("kerned") << QStringLiteral("AVAToYe fi");
    QTest::newRow("spaces around") << QStringLiteral("  between  ");
    QTest::newRow("one space") << QStringLiteral(" ");
    QTest::newRow("does not fit") << QStringLiteral("a text that is too long for its cell");
    QTest::newRow("lines") << QStringLiteral("one\ntwo\r\nthree");
    QTest::newRow("line separator") << QStringLiteral("one") + QChar(QChar::LineSeparator) + QStringLiteral("two");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("ampersands") << QStringLiteral("a&b && c");
    QTest::newRow("two lengths") << QStringLiteral("longer") + QChar(0x9C) + QStringLiteral("long");
    QTest::newRow("accents") << QString::fromUtf8("na\u0308h e\u0301t\u00E9 \u00F1");
    QTest::newRow("several scripts") << QString::fromUtf8("abc \u4E16\u754C \u0416 \u03A9");
    QTest::newRow("from right to left") << QString::fromUtf8("\u05E9\u05DC\u05D5\u05DD 12 a");
    QTest::newRow("from right to left inside") << QString::fromUtf8("a \u05E9\u05DC\u05D5\u05DD 12");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("a\U0001F600b");
}

// In each font and format, when the text comes for the first time and when it comes again.
void tst_CellText::textsAsAPainterDrawsThem()
{
    QFETCH(QString, text);
    QFont lines;
    lines.setUnderline(true);
    lines.setStrikeOut(true);
    QFont large;
    large.setPixelSize(27);
    Canvas canvas;
    CGridCellBase_X& cell = *canvas.grid.cellAt(1, 1);
    cell.SetText(CString_X(text));
    for (const QFont& font : {QFont(), lines, large, QFont()}) {
        cell.SetFont(reinterpret_cast<const CFont_X*>(&font));
        for (const UINT format : {DT_LEFT, DT_CENTER, DT_RIGHT | DT_VCENTER, DT_VCENTER | DT_SINGLELINE, DT_RIGHT,
                                  DT_WORDBREAK, UINT(0x8824)}) {
            cell.SetFormat(format);
            for (const CRect& rect : {CRect(3, 4, 110, 50), CRect(10, 10, 45, 24)}) {
                QImage expected(canvas.image.size(), canvas.image.format());
                expected.fill(QColor(white));
                QPainter painter(&expected);
                painter.setFont(font);
                const QRect place(QPoint(rect.left + 3, rect.top), QPoint(rect.right - 4, rect.bottom - 1));
                painter.drawText(place, ToQtTextFlag(format) | Qt::TextHideMnemonic, text);
                for (int time = 0; time < 2; ++time) {
                    canvas.image.fill(QColor(white));
                    canvas.draw(1, 1, rect);
                    QCOMPARE(canvas.image, expected);
                }
            }
        }
    }
}

void tst_CellText::textOnAFinerDevice()
{
    Canvas canvas;
    QFont font;
    font.setPointSize(9);
    CGridCellBase_X& cell = *canvas.grid.cellAt(1, 1);
    cell.SetFont(reinterpret_cast<const CFont_X*>(&font));
    cell.SetText(L"text");
    canvas.draw(1, 1);
    const int width = canvas.painted().width();
    canvas.image.fill(QColor(white));
    for (const auto set : {&QImage::setDotsPerMeterX, &QImage::setDotsPerMeterY})
        (canvas.image.*set)(2 * 3780);
    canvas.draw(1, 1);
    QVERIFY(canvas.painted().width() > width * 3 / 2);
}

void tst_CellText::textColours()
{
    const auto hasColour = [](Canvas& canvas, QRgb wanted) { // of a text as high as the cell, drawn sharp
        QFont font;
        font.setPixelSize(26);
        font.setStyleStrategy(QFont::NoAntialias);
        for (const CCellID_X cell : {CCellID_X(0, 2), CCellID_X(1, 1)})
            canvas.grid.SetItemFont(cell.row, cell.col, reinterpret_cast<const CFont_X*>(&font));
        canvas.grid.SetItemText(0, 2, L"M");
        canvas.grid.SetItemText(1, 1, L"M");
        canvas.draw(0, 2);
        const bool inHeading = !canvas.where(wanted).isNull();
        canvas.image.fill(QColor(white));
        canvas.draw(1, 1);
        return QStringLiteral("%1 %2").arg(inHeading).arg(!canvas.where(wanted).isNull());
    };
    Canvas ordinary;
    ordinary.grid.m_crTextColour = RGB(0, 0, 255);
    QCOMPARE(hasColour(ordinary, blue), QStringLiteral("0 1"));
    Canvas fixed;
    fixed.grid.m_crFixedTextColour = RGB(0, 0, 255);
    QCOMPARE(hasColour(fixed, blue), QStringLiteral("1 0"));
    Canvas own;
    own.grid.SetItemFgColour(1, 1, RGB(0, 0, 255));
    own.grid.SetItemFgColour(0, 2, RGB(0, 0, 255));
    QCOMPARE(hasColour(own, blue), QStringLiteral("1 1"));
    Canvas selected;
    selected.grid.SetItemFgColour(1, 1, RGB(0, 0, 255));
    selected.grid.SetItemState(1, 1, CGridCellBase_X::Selected);
    QCOMPARE(hasColour(selected, blue), QStringLiteral("0 0"));
}

XE_TEST(tst_CellText)

#include "tst_celltext.moc"
