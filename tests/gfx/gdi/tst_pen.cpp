// Pens.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QPen>

#include <climits>

namespace {

const QPen& penOf(const CPen_X& pen) { return *static_cast<const QPen*>(pen.GetSafeHandle()); }

// The QPen, and what GetLogPen writes: "style width colour | style x,y colour".
QString text(const CPen_X& pen)
{
    if (!pen.GetSafeHandle())
        return QStringLiteral("none");
    const QPen& value = penOf(pen);
    tagLOGPEN log = {99, {99, 99}, 99};
    if (!pen.GetLogPen(&log))
        return QStringLiteral("no record");
    return QString::asprintf("%d %d %s | %u %d,%d %06x", int(value.style()), value.width(),
                             qPrintable(value.color().name(QColor::HexArgb)), log.lopnStyle, log.lopnWidth.x,
                             log.lopnWidth.y, log.lopnColor);
}

} // namespace

class tst_Pen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void styles_data();
    void styles();
    void stylesWithoutANumber_data();
    void stylesWithoutANumber();
    void made_data();
    void made();
    void created();
    void aLiteralZeroIsAColour();
    void nullRecords();
    void createFreesNothing();
    void noHandle();
    void theExtendedRecord();
};

void tst_Pen::styles_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("back");
    QTest::newRow("solid") << PS_SOLID << int(Qt::SolidLine) << 0;
    QTest::newRow("dashes") << PS_DASH << int(Qt::DashLine) << 1;
    QTest::newRow("dots") << PS_DOT << int(Qt::DotLine) << 2;
    QTest::newRow("dash, dot") << PS_DASHDOT << int(Qt::DashDotLine) << 3;
    QTest::newRow("dash, dot, dot") << PS_DASHDOTDOT << int(Qt::DashDotDotLine) << 4;
    QTest::newRow("null") << PS_NULL << int(Qt::NoPen) << 5;
    QTest::newRow("inside the frame draws nothing") << PS_INSIDEFRAME << int(Qt::NoPen) << 5;
    QTest::newRow("negative") << -1 << int(Qt::NoPen) << 5;
    QTest::newRow("smallest") << INT_MIN << int(Qt::NoPen) << 5;
    QTest::newRow("largest") << INT_MAX << int(Qt::NoPen) << 5;
}

void tst_Pen::styles()
{
    QFETCH(int, number);
    QFETCH(int, style);
    QFETCH(int, back);
    QCOMPARE(int(CPen_X::mapToQtPenStyle(number)), style);
    QCOMPARE(CPen_X::mapToMfcPenStyle(static_cast<Qt::PenStyle>(style)), back);
    QCOMPARE(text(CPen_X(number, 1, 0)), QStringLiteral("%1 1 #ff000000 | %2 1,0 000000").arg(style).arg(back));
}

void tst_Pen::stylesWithoutANumber_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("none") << int(Qt::NoPen);
    QTest::newRow("custom") << int(Qt::CustomDashLine);
    QTest::newRow("the mask of the styles") << int(Qt::MPenStyle);
}

void tst_Pen::stylesWithoutANumber()
{
    QFETCH(int, style);
    QCOMPARE(CPen_X::mapToMfcPenStyle(static_cast<Qt::PenStyle>(style)), PS_NULL);
}

void tst_Pen::made_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const CPen_X& pen, const char* expected) {
        QTest::newRow(name) << text(pen) << expected;
    };
    const tagLOGBRUSH brush = {BS_HATCHED, 0x0000FF, HS_CROSS};
    const DWORD dashes[] = {1, 2};
    row("red", CPen_X(PS_SOLID, 2, 0x0000FFu), "1 2 #ffff0000 | 0 2,0 0000ff");
    row("each channel of its own", CPen_X(PS_DASH, 3, 0x563412u), "2 3 #ff123456 | 1 3,0 563412");
    row("the high byte is not looked at", CPen_X(PS_DOT, 1, 0x80563412u), "3 1 #ff123456 | 2 1,0 563412");
    row("cosmetic", CPen_X(PS_SOLID, 0, 0u), "1 0 #ff000000 | 0 0,0 000000");
    row("a negative width is cosmetic", CPen_X(PS_SOLID, -3, 0u), "1 0 #ff000000 | 0 0,0 000000");
    row("the smallest width", CPen_X(PS_SOLID, INT_MIN, 0u), "1 0 #ff000000 | 0 0,0 000000");
    row("a brush's red is blue", CPen_X(PS_SOLID, 2, &brush), "1 2 #ff0000ff | 0 2,0 ff0000");
    row("dashes are ignored", CPen_X(PS_DASHDOT, 1, &brush, 2, dashes), "4 1 #ff0000ff | 3 1,0 ff0000");
}

void tst_Pen::made()
{
    QFETCH(QString, made);
    QTEST(made, "expected");
}

void tst_Pen::created()
{
    const tagLOGBRUSH brush = {BS_SOLID, 0x0000FF, 0};
    const tagLOGPEN log = {PS_DASHDOTDOT, {4, 77}, 0x563412};
    const tagLOGPEN noStyle = {0xFFFFFFFF, {1, 0}, 0};
    CPen_X pen;
    QCOMPARE(pen.CreatePen(PS_SOLID, 2, 0x0000FFu), TRUE);
    QCOMPARE(text(pen), QStringLiteral("1 2 #ffff0000 | 0 2,0 0000ff"));
    pen.DeleteObject();
    QCOMPARE(pen.CreatePen(PS_SOLID, 2, &brush), TRUE);
    QCOMPARE(text(pen), QStringLiteral("1 2 #ff0000ff | 0 2,0 ff0000"));
    pen.DeleteObject();
    QCOMPARE(pen.CreatePenIndirect(&log), TRUE); // the record's y is ignored
    QCOMPARE(text(pen), QStringLiteral("5 4 #ff123456 | 4 4,0 563412"));
    pen.DeleteObject();
    QCOMPARE(pen.CreatePenIndirect(&noStyle), TRUE);
    QCOMPARE(text(pen), QStringLiteral("0 1 #ff000000 | 5 1,0 000000"));
}

void tst_Pen::aLiteralZeroIsAColour()
{
    CPen_X pen(PS_NULL, 1, 0);
    QCOMPARE(text(pen), QStringLiteral("0 1 #ff000000 | 5 1,0 000000"));
    pen.DeleteObject();
    QCOMPARE(pen.CreatePen(PS_SOLID, 1, 0), TRUE);
    pen.DeleteObject();
    QCOMPARE(pen.CreatePen(PS_SOLID, 1, 0xFFL), TRUE);
    QCOMPARE(text(pen), QStringLiteral("1 1 #ffff0000 | 0 1,0 0000ff"));
}

void tst_Pen::nullRecords()
{
    CPen_X pen;
    QCOMPARE(pen.CreatePen(PS_SOLID, 1, nullptr), FALSE);
    QCOMPARE(pen.CreatePenIndirect(nullptr), FALSE);
    QCOMPARE(pen.GetSafeHandle(), nullptr);
    QCOMPARE(CPen_X(PS_SOLID, 1, nullptr).GetSafeHandle(), nullptr);
    pen.CreatePen(PS_SOLID, 1, 0);
    QCOMPARE(pen.GetLogPen(nullptr), FALSE);
}

void tst_Pen::createFreesNothing()
{
    CPen_X pen(PS_SOLID, 1, 0x0000FFu);
    const std::unique_ptr<QPen> old(static_cast<QPen*>(pen.GetSafeHandle()));
    QCOMPARE(pen.CreatePen(PS_DASH, 2, 0u), TRUE);
    QVERIFY(pen.GetSafeHandle() != old.get());
    QCOMPARE(old->color(), QColor(Qt::red));
    QVERIFY(!afxMapHGDIOBJ_X(TRUE)->LookupPermanent(old.get()));
}

void tst_Pen::noHandle()
{
    tagLOGPEN log = {7, {7, 7}, 7};
    QCOMPARE(CPen_X().GetLogPen(&log), FALSE);
    QCOMPARE(log.lopnStyle, 7u);
}

void tst_Pen::theExtendedRecord()
{
    tagEXTLOGPEN log = {7, 7, 7, 7, 7, 7, {7}};
    QCOMPARE(CPen_X(PS_SOLID, 1, 0).GetExtLogPen(&log), FALSE);
    QCOMPARE(log.elpPenStyle, 7u);
    QCOMPARE(CPen_X().GetExtLogPen(nullptr), FALSE);
}

XE_APPLESS_TEST(tst_Pen)
#include "tst_pen.moc"
