// Text of a device context: flags, colours, lengths, and the pen that it leaves.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

using Draw = std::function<int(CDC_X&, const wchar_t* text, int length, const tagRECT*, int flags)>;

int drawString(CDC_X& dc, const wchar_t* text, int, const tagRECT* rect, int flags)
{
    return dc.DrawText(CString_X(text), rect, flags);
}

int drawElements(CDC_X& dc, const wchar_t* text, int length, const tagRECT* rect, int flags)
{
    return dc.DrawText(text, length, rect, flags);
}

int drawA(CDC_X& dc, const wchar_t* text, int length, const tagRECT* rect, int flags)
{
    return DrawTextA(&dc, text, length, rect, UINT(flags));
}

int drawW(CDC_X& dc, const wchar_t* text, int length, const tagRECT* rect, int flags)
{
    return DrawTextW(&dc, text, length, rect, UINT(flags));
}

const CRect textPlace(2, 3, 150, 40);

// What Qt draws into the place.
QImage drawnByQt(const QString& text, int flags, const QColor& color)
{
    Canvas canvas(160, 50);
    QPainter painter(&canvas.image);
    painter.setPen(color);
    painter.drawText(QRect(QPoint(2, 3), QPoint(149, 39)), flags, text);
    return canvas.image;
}

int heightOfALine()
{
    Canvas canvas;
    QPainter painter(&canvas.image);
    return QFontMetrics(painter.font()).height();
}

} // namespace

Q_DECLARE_METATYPE(Draw)

class tst_DcText : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void qtFlags_data();
    void qtFlags();
    void flagsInAnyCombination();

    void drawsWhatQtDraws_data();
    void drawsWhatQtDraws();
    void textColour_data();
    void textColour();
    void thePenAfterwards_data();
    void thePenAfterwards();
    void length_data();
    void length();
    void unterminatedText();
    void beyondTheBmp();
    void theAmpersandIsHidden();
    void theRectangleStays();
    void nothingToDraw_data();
    void nothingToDraw();
    void nullContext();
    void opaqueBackground();

    void extent();
    void extentOfFirstElements_data();
    void extentOfFirstElements();
    void extentFollowsTheFont();

private:
    static void addCalls();
};

void tst_DcText::addCalls()
{
    QTest::addColumn<Draw>("draw");
    QTest::newRow("DrawText of a string") << Draw(drawString);
    QTest::newRow("DrawText of elements") << Draw(drawElements);
    QTest::newRow("DrawTextA") << Draw(drawA);
    QTest::newRow("DrawTextW") << Draw(drawW);
}

// ------------------------------------------------------------------------------------------------------------- flags

void tst_DcText::qtFlags_data()
{
    QTest::addColumn<UINT>("format");
    QTest::addColumn<int>("expected");

    QTest::newRow("DT_LEFT and DT_TOP") << 0x0U << 0;
    QTest::newRow("DT_CENTER: vertically too") << 0x1U << 0x84;
    QTest::newRow("DT_RIGHT") << 0x2U << 0x2;
    QTest::newRow("DT_VCENTER") << 0x4U << 0x80;
    QTest::newRow("DT_BOTTOM") << 0x8U << 0;
    QTest::newRow("DT_WORDBREAK") << 0x10U << 0x1000;
    QTest::newRow("DT_SINGLELINE") << 0x20U << 0x100;
    QTest::newRow("DT_EXPANDTABS") << 0x40U << 0;
    QTest::newRow("DT_NOCLIP") << 0x100U << 0;
    QTest::newRow("DT_CALCRECT") << 0x400U << 0;
    QTest::newRow("DT_NOPREFIX") << 0x800U << 0x8000;
    QTest::newRow("DT_END_ELLIPSIS") << 0x8000U << 0;
    QTest::newRow("DT_RIGHT | DT_VCENTER") << 0x6U << 0x82;
    QTest::newRow("DT_SINGLELINE | DT_NOPREFIX") << 0x820U << 0x8100;
    QTest::newRow("DT_CENTER | DT_VCENTER | DT_SINGLELINE") << 0x25U << 0x184;
    QTest::newRow("all bits") << 0xFFFFFFFFU << 0x9186;
}

void tst_DcText::qtFlags()
{
    QFETCH(UINT, format);
    QTEST(ToQtTextFlag(format), "expected");
}

void tst_DcText::flagsInAnyCombination()
{
    const UINT bits[] = {DT_CENTER, DT_RIGHT, DT_VCENTER, DT_WORDBREAK, DT_SINGLELINE, DT_NOPREFIX};
    for (UINT choice = 0; choice < 64; ++choice) {
        UINT format = 0;
        int expected = 0;
        for (UINT i = 0; i < 6; ++i) {
            if (choice >> i & 1) {
                format |= bits[i];
                expected |= ToQtTextFlag(bits[i]);
            }
        }
        QCOMPARE(ToQtTextFlag(format), expected);
    }
}

// ----------------------------------------------------------------------------------------------------------- drawing

void tst_DcText::drawsWhatQtDraws_data() { addCalls(); }

void tst_DcText::drawsWhatQtDraws()
{
    QFETCH(Draw, draw);
    for (const int flags : {0, 0x84, 0x82, 0x1000, 0x184}) {
        Canvas canvas(160, 50);
        CDC_X dc(&canvas.image);
        QCOMPARE(draw(dc, L"Fig, 零件 and more text than fits", -1, textPlace, flags), heightOfALine());
        dc.end();
        QCOMPARE(canvas.image, drawnByQt("Fig, 零件 and more text than fits", flags, Qt::black));
        QVERIFY(canvas.image != Canvas(160, 50).image);
    }
}

void tst_DcText::textColour_data() { addCalls(); }

void tst_DcText::textColour()
{
    QFETCH(Draw, draw);
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::green);
    dc.SetTextColor(RGB(255, 0, 0));
    draw(dc, L"Text", -1, textPlace, 0);
    dc.end();
    QCOMPARE(canvas.image, drawnByQt("Text", 0, Qt::red));

    Canvas penColour(160, 50);
    CDC_X dc2(&penColour.image);
    dc2.setPen(Qt::green);
    draw(dc2, L"Text", -1, textPlace, 0);
    dc2.end();
    QCOMPARE(penColour.image, drawnByQt("Text", 0, Qt::green));
}

void tst_DcText::thePenAfterwards_data() { addCalls(); }

void tst_DcText::thePenAfterwards()
{
    QFETCH(Draw, draw);
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    for (const COLORREF color : {0xFFFFFFFFU, 0x0000FFU}) {
        dc.SetTextColor(color);
        dc.setPen(QPen(Qt::green, 5, Qt::DashLine));
        draw(dc, L"Text", -1, textPlace, 0);
        QCOMPARE(dc.pen(), QPen(QColor(Qt::green)));
        dc.setPen(Qt::NoPen);
        draw(dc, L"Text", -1, textPlace, 0);
        QCOMPARE(dc.pen(), QPen(QColor(Qt::black)));
    }
}

void tst_DcText::length_data()
{
    QTest::addColumn<Draw>("draw");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("expected");

    for (const auto& [name, draw] : {std::pair("elements", Draw(drawElements)), std::pair("DrawTextA", Draw(drawA))}) {
        QTest::addRow("%s: below the text's", name) << draw << 3 << "abc";
        QTest::addRow("%s: the text's", name) << draw << 6 << "abcdef";
        QTest::addRow("%s: above it", name) << draw << 100 << "abcdef";
        QTest::addRow("%s: negative", name) << draw << -1 << "abcdef";
        QTest::addRow("%s: none", name) << draw << 0 << "";
    }
    QTest::newRow("DrawTextW ignores it") << Draw(drawW) << 3 << "abcdef";
    QTest::newRow("DrawTextW ignores 0") << Draw(drawW) << 0 << "abcdef";
}

void tst_DcText::length()
{
    QFETCH(Draw, draw);
    QFETCH(int, length);
    QFETCH(QString, expected);
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    QCOMPARE(draw(dc, L"abcdef", length, textPlace, 0), heightOfALine());
    dc.end();
    QCOMPARE(canvas.image, drawnByQt(expected, 0, Qt::black));
}

// Nothing lies behind the last element.
void tst_DcText::unterminatedText()
{
    const std::unique_ptr<wchar_t[]> text(new wchar_t[3]{L'a', L'b', L'c'});
    for (const Draw& draw : {Draw(drawElements), Draw(drawA)}) {
        Canvas canvas(160, 50);
        CDC_X dc(&canvas.image);
        draw(dc, text.get(), 3, textPlace, 0);
        QCOMPARE(dc.GetOutputTextExtent(text.get(), 3), dc.GetOutputTextExtent(L"abc"));
        dc.end();
        QCOMPARE(canvas.image, drawnByQt("abc", 0, Qt::black));
    }
}

// A length counts UTF-16 units, of which such a character has two.
void tst_DcText::beyondTheBmp()
{
    const wchar_t text[] = {wchar_t(0x1D11E), L'a', L'b', 0};
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    dc.DrawText(text, 3, textPlace, 0);
    dc.end();
    QCOMPARE(canvas.image, drawnByQt(QString::fromWCharArray(text, 2), 0, Qt::black));
}

void tst_DcText::theAmpersandIsHidden()
{
    const int flags = ToQtTextFlag(DT_NOPREFIX);
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    dc.DrawText(L"A&B", textPlace, flags);
    dc.end();
    QCOMPARE(canvas.image, drawnByQt("AB", 0, Qt::black));

    Canvas doubled(160, 50);
    CDC_X dc2(&doubled.image);
    dc2.DrawText(L"A&&B", textPlace, flags);
    dc2.end();
    QCOMPARE(doubled.image, drawnByQt("A&B", 0, Qt::black));
}

void tst_DcText::theRectangleStays()
{
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    CRect rect(textPlace);
    dc.DrawText(L"Text", rect, int(DT_CALCRECT));
    DrawTextA(&dc, L"Text", -1, rect, DT_CALCRECT);
    DrawTextW(&dc, L"Text", -1, rect, DT_CALCRECT);
    QCOMPARE(rect, textPlace);
}

void tst_DcText::nothingToDraw_data() { addCalls(); }

void tst_DcText::nothingToDraw()
{
    QFETCH(Draw, draw);
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    dc.SetTextColor(RGB(255, 0, 0));
    QCOMPARE(draw(dc, L"Text", 4, nullptr, 0), heightOfALine());
    QCOMPARE(draw(dc, nullptr, 4, textPlace, 0), heightOfALine());
    QCOMPARE(draw(dc, nullptr, -1, textPlace, 0), heightOfALine());
    QCOMPARE(draw(dc, L"", -1, textPlace, 0), heightOfALine());
    const CRect swapped(40, 40, 2, 2);
    QCOMPARE(draw(dc, L"", -1, swapped, 0), heightOfALine());
    dc.end();
    QCOMPARE(canvas.image, Canvas(160, 50).image);
}

void tst_DcText::nullContext()
{
    QCOMPARE(DrawTextA(nullptr, L"Text", -1, textPlace, 0), 0);
    QCOMPARE(DrawTextW(nullptr, L"Text", -1, textPlace, 0), 0);
}

void tst_DcText::opaqueBackground()
{
    Canvas canvas(160, 50);
    CDC_X dc(&canvas.image);
    dc.SetBkMode(OPAQUE);
    dc.SetBkColor(RGB(0, 0, 255));
    dc.DrawText(L"  ", textPlace, 0);
    dc.end();
    QVERIFY(canvas.view().contains('b'));
    QVERIFY(!canvas.view().contains('#'));
}

// ------------------------------------------------------------------------------------------------------------ extents

void tst_DcText::extent()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    const QFontMetrics metrics(dc.font());
    QCOMPARE(dc.GetOutputTextExtent(L"Text 零件"), CSize(metrics.horizontalAdvance("Text 零件"), metrics.height()));
    QCOMPARE(dc.GetOutputTextExtent(CString_X()), CSize(0, metrics.height()));
}

void tst_DcText::extentOfFirstElements_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("measured");

    QTest::newRow("some") << 3 << "abc";
    QTest::newRow("none") << 0 << "";
    QTest::newRow("all") << 6 << "abcdef";
    QTest::newRow("more: up to the terminator") << 60 << "abcdef";
    QTest::newRow("negative: all") << -1 << "abcdef";
}

void tst_DcText::extentOfFirstElements()
{
    QFETCH(int, length);
    QFETCH(QString, measured);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    const QFontMetrics metrics(dc.font());
    QCOMPARE(dc.GetOutputTextExtent(L"abcdef", length), CSize(metrics.horizontalAdvance(measured), metrics.height()));
    QCOMPARE(dc.GetOutputTextExtent(nullptr, length), CSize(0, metrics.height()));
}

void tst_DcText::extentFollowsTheFont()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    const CSize small = dc.GetOutputTextExtent(L"abcdef");
    QFont font = dc.font();
    font.setPointSize(3 * font.pointSize());
    dc.SelectObject(font);
    QVERIFY(dc.GetOutputTextExtent(L"abcdef").cx > 2 * small.cx);
    QVERIFY(dc.GetOutputTextExtent(L"abcdef").cy > 2 * small.cy);
}

XE_TEST(tst_DcText)
#include "tst_dctext.moc"
