// Brushes.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QBrush>

#include <climits>

namespace {

const QBrush& brushOf(const CBrush_X& brush) { return *static_cast<const QBrush*>(brush.GetSafeHandle()); }

// The QBrush, and what GetLogBrush writes: "style colour | style colour hatch".
QString text(const CBrush_X& brush)
{
    if (!brush.GetSafeHandle())
        return QStringLiteral("none");
    const QBrush& value = brushOf(brush);
    tagLOGBRUSH log = {99, 99, 99};
    if (!brush.GetLogBrush(&log))
        return QStringLiteral("no record");
    return QString::asprintf("%d %s | %u %06x %lu", int(value.style()), qPrintable(value.color().name(QColor::HexArgb)),
                             log.lbStyle, log.lbColor, log.lbHatch);
}

QString indirect(UINT style, COLORREF color, ULONG_PTR hatch)
{
    const tagLOGBRUSH record = {style, color, hatch};
    CBrush_X brush;
    const QString result = QString::number(brush.CreateBrushIndirect(&record));
    return result + QLatin1String(": ") + text(brush);
}

} // namespace

class tst_Brush : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void hatches_data();
    void hatches();
    void stylesOfQt_data();
    void stylesOfQt();
    void made_data();
    void made();
    void indirectly_data();
    void indirectly();
    void aLiteralZeroIsAColour();
    void pattern();
    void patternWithoutAPicture();
    void sysColor();
    void nullRecords();
};

void tst_Brush::hatches_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("style");
    QTest::newRow("horizontal") << HS_HORIZONTAL << 9;
    QTest::newRow("vertical") << HS_VERTICAL << 10;
    QTest::newRow("falling") << HS_FDIAGONAL << 13;
    QTest::newRow("rising") << HS_BDIAGONAL << 12;
    QTest::newRow("cross") << HS_CROSS << 11;
    QTest::newRow("diagonal cross") << HS_DIAGCROSS << 14;
    QTest::newRow("beyond") << 6 << 0;
    QTest::newRow("far beyond") << INT_MAX << 0;
    QTest::newRow("negative") << -1 << 0;
}

void tst_Brush::hatches()
{
    QFETCH(int, number);
    QFETCH(int, style);
    QCOMPARE(int(CBrush_X::mapToBrushStyle(number)), style);
    CBrush_X created;
    QCOMPARE(created.CreateHatchBrush(number, 0x563412), TRUE);
    const QString expected = QStringLiteral("%1 #ff123456 | %2 563412 %3")
                                 .arg(style)
                                 .arg(style == 0 ? BS_NULL : BS_HATCHED)
                                 .arg(style == 0 ? 0 : number);
    QCOMPARE(text(created), expected);
    QCOMPARE(text(CBrush_X(number, 0x563412u)), expected);
}

void tst_Brush::stylesOfQt_data()
{
    QTest::addColumn<int>("qtStyle");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("hatch");
    QTest::newRow("none") << int(Qt::NoBrush) << 1 << 77;
    QTest::newRow("solid") << int(Qt::SolidPattern) << 0 << 77;
    QTest::newRow("falling lines") << int(Qt::FDiagPattern) << 2 << 2;
    QTest::newRow("rising lines") << int(Qt::BDiagPattern) << 2 << 3;
    QTest::newRow("picture") << int(Qt::TexturePattern) << 3 << 77;
    QTest::newRow("dots have no number") << int(Qt::Dense4Pattern) << 77 << 77;
    QTest::newRow("neither has a gradient") << int(Qt::LinearGradientPattern) << 77 << 77;
}

void tst_Brush::stylesOfQt()
{
    QFETCH(int, qtStyle);
    int style = 77;
    int hatch = 77;
    CBrush_X::mapToHatchStyle(static_cast<Qt::BrushStyle>(qtStyle), style, hatch);
    QTEST(style, "style");
    QTEST(hatch, "hatch");
}

void tst_Brush::made_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const CBrush_X& brush, const char* expected) {
        QTest::newRow(name) << text(brush) << expected;
    };
    row("nothing", CBrush_X(), "none");
    row("red", CBrush_X(0x0000FFu), "1 #ffff0000 | 0 0000ff 0");
    row("the high byte is not looked at", CBrush_X(0x80563412u), "1 #ff123456 | 0 563412 0");
    row("hatched", CBrush_X(HS_CROSS, 0x0000FFu), "11 #ffff0000 | 2 0000ff 4");
    CBrush_X dots;
    dots.Attach(new QBrush(Qt::red, Qt::Dense4Pattern));
    row("dots read as solid", dots, "5 #ffff0000 | 0 0000ff 0");
    CBrush_X none;
    none.Attach(new QBrush);
    row("no brush", none, "0 #ff000000 | 1 000000 0");
}

void tst_Brush::made()
{
    QFETCH(QString, made);
    QTEST(made, "expected");
}

void tst_Brush::indirectly_data()
{
    QTest::addColumn<QString>("made");
    QTest::addColumn<QString>("expected");
    QTest::newRow("solid, hatch ignored") << indirect(BS_SOLID, 0x0000FF, 4) << "1: 1 #ffff0000 | 0 0000ff 0";
    QTest::newRow("hatched") << indirect(BS_HATCHED, 0x0000FF, HS_BDIAGONAL) << "1: 12 #ffff0000 | 2 0000ff 3";
    QTest::newRow("hatched beyond") << indirect(BS_HATCHED, 0, 9) << "1: 0 #ff000000 | 1 000000 0";
    QTest::newRow("null") << indirect(BS_NULL, 0, 0) << "0: none";
    QTest::newRow("pattern") << indirect(BS_PATTERN, 0, 0) << "0: none";
    QTest::newRow("beyond") << indirect(0xFFFFFFFF, 0, 0) << "0: none";
}

void tst_Brush::indirectly()
{
    QFETCH(QString, made);
    QTEST(made, "expected");
}

void tst_Brush::aLiteralZeroIsAColour()
{
    QCOMPARE(text(CBrush_X(0)), QStringLiteral("1 #ff000000 | 0 000000 0"));
    QCOMPARE(text(CBrush_X(0xFF)), QStringLiteral("1 #ffff0000 | 0 0000ff 0"));
    QCOMPARE(text(CBrush_X(nullptr)), QStringLiteral("none"));
    CBrush_X brush;
    QCOMPARE(brush.CreateSolidBrush(0), TRUE);
    QCOMPARE(text(brush), QStringLiteral("1 #ff000000 | 0 000000 0"));
}

void tst_Brush::pattern()
{
    CBitmap_X bitmap;
    bitmap.CreateCompatibleBitmap(nullptr, 2, 1);
    auto& picture = *static_cast<QImage*>(bitmap.GetSafeHandle());
    picture.fill(Qt::green);
    picture.setPixelColor(1, 0, Qt::blue);
    CBrush_X brush;
    QCOMPARE(brush.CreatePatternBrush(&bitmap), TRUE);
    picture.fill(Qt::red); // the brush has the picture as it was

    const CBrush_X constructed(&bitmap);
    QCOMPARE(brushOf(brush).style(), Qt::TexturePattern);
    const QImage texture = brushOf(brush).texture().toImage();
    QCOMPARE(texture.size(), QSize(2, 1));
    QCOMPARE(texture.pixelColor(0, 0), QColor(Qt::green));
    QCOMPARE(texture.pixelColor(1, 0), QColor(Qt::blue));
    QCOMPARE(brushOf(constructed).texture().toImage().pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(text(brush), QStringLiteral("24 #ff000000 | 3 000000 0"));
}

void tst_Brush::patternWithoutAPicture()
{
    CBrush_X brush;
    CBitmap_X bitmap;
    QCOMPARE(brush.CreatePatternBrush(nullptr), FALSE);
    QCOMPARE(brush.CreatePatternBrush(&bitmap), FALSE);
    QCOMPARE(text(brush), QStringLiteral("none"));
    QCOMPARE(text(CBrush_X(&bitmap)), QStringLiteral("none"));
    bitmap.Attach(new QImage);
    QCOMPARE(brush.CreatePatternBrush(&bitmap), TRUE);
    QCOMPARE(text(brush), QStringLiteral("0 #ff000000 | 1 000000 0"));
}

void tst_Brush::sysColor()
{
    CBrush_X without;
    QCOMPARE(without.CreateSysColorBrush(COLOR_WINDOW), TRUE);
    QCOMPARE(text(without), QStringLiteral("0 #ff000000 | 1 000000 0"));

    QWidget frame;
    frame.setObjectName(QStringLiteral("CTavoMainFrame"));
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x12, 0x34, 0x56));
    frame.setPalette(palette);
    CBrush_X brush;
    QCOMPARE(brush.CreateSysColorBrush(-1), TRUE); // the index is ignored
    QCOMPARE(text(brush), QStringLiteral("1 #ff123456 | 0 563412 0"));
}

void tst_Brush::nullRecords()
{
    CBrush_X brush;
    QCOMPARE(brush.CreateBrushIndirect(nullptr), FALSE);
    tagLOGBRUSH log = {7, 7, 7};
    QCOMPARE(brush.GetLogBrush(&log), FALSE);
    QCOMPARE(log.lbStyle, 7u);
    brush.CreateSolidBrush(0);
    QCOMPARE(brush.GetLogBrush(nullptr), FALSE);
}

XE_TEST(tst_Brush)
#include "tst_brush.moc"
