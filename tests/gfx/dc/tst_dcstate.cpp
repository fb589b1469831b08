// Colours, modes and saved states of a device context.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_DcState : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void backgroundColour();
    void textColour();
    void textColourOfThePen();
    void onlyAllOnesMeanNoTextColour_data();
    void onlyAllOnesMeanNoTextColour();
    void oldColoursCanBeHandedBack();
    void namedColoursAreNoIndices();
    void backgroundMode_data();
    void backgroundMode();
    void saveAndRestore();
    void restoreWithoutSave();
    void restoreTakesOneStep();
};

void tst_DcState::backgroundColour()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.GetBkColor(), QColor(Qt::white));
    QCOMPARE(dc.SetBkColor(COLORREF(0x7F0000FF)), QColor(Qt::white));
    QCOMPARE(dc.GetBkColor(), QColor(255, 0, 0));
    QCOMPARE(dc.background().style(), Qt::SolidPattern);
    QCOMPARE(dc.SetBkColor(COLORREF(0x302010)), QColor(255, 0, 0));
    QCOMPARE(dc.GetBkColor(), QColor(0x10, 0x20, 0x30));
}

void tst_DcState::textColour()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(QPen(Qt::green, 3, Qt::DashLine));
    QCOMPARE(dc.SetTextColor(COLORREF(0x302010)), QColor(Qt::green));
    QCOMPARE(dc.m_crText, 0x302010U);
    QCOMPARE(dc.GetTextColor(), QColor(0x10, 0x20, 0x30));
    QCOMPARE(dc.SetTextColor(COLORREF(0xFF0000)), QColor(0x10, 0x20, 0x30));
    QCOMPARE(dc.pen(), QPen(Qt::green, 3, Qt::DashLine));
}

void tst_DcState::textColourOfThePen()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.GetTextColor(), QColor(Qt::black));
    dc.setPen(QColor(1, 2, 3));
    QCOMPARE(dc.GetTextColor(), QColor(1, 2, 3));
}

void tst_DcState::onlyAllOnesMeanNoTextColour_data()
{
    QTest::addColumn<COLORREF>("color");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("all bits") << 0xFFFFFFFFU << QColor(Qt::green);
    QTest::newRow("one bit less") << 0xFFFFFFFEU << QColor(254, 255, 255);
    QTest::newRow("a high byte") << 0xFF000000U << QColor(Qt::black);
    QTest::newRow("the highest bit alone") << 0x80000010U << QColor(16, 0, 0);
}

void tst_DcState::onlyAllOnesMeanNoTextColour()
{
    QFETCH(COLORREF, color);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::green);
    dc.SetTextColor(COLORREF(0x123456));
    dc.SetTextColor(color);
    QTEST(dc.GetTextColor(), "expected");
}

void tst_DcState::oldColoursCanBeHandedBack()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.SetTextColor(RGB(1, 2, 3));
    dc.SetBkColor(RGB(4, 5, 6));
    const QColor oldText = dc.SetTextColor(RGB(7, 8, 9));
    const QColor oldBack = dc.SetBkColor(RGB(10, 11, 12));
    QCOMPARE(dc.SetTextColor(oldText), QColor(7, 8, 9));
    QCOMPARE(dc.SetBkColor(oldBack), QColor(10, 11, 12));
    QCOMPARE(dc.m_crText, RGB(1, 2, 3));
    QCOMPARE(dc.GetBkColor(), QColor(4, 5, 6));
    dc.SetTextColor(QColor(1, 2, 3, 128));
    QCOMPARE(dc.GetTextColor(), QColor(1, 2, 3));
}

void tst_DcState::namedColoursAreNoIndices()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.SetTextColor(Qt::red);
    dc.SetBkColor(Qt::blue);
    QCOMPARE(dc.GetTextColor(), QColor(Qt::red));
    QCOMPARE(dc.GetBkColor(), QColor(Qt::blue));
}

void tst_DcState::backgroundMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("expected");

    QTest::newRow("TRANSPARENT") << TRANSPARENT << 0;
    QTest::newRow("OPAQUE") << OPAQUE << 1;
    QTest::newRow("0 is opaque") << 0 << 1;
    QTest::newRow("negative is opaque") << -1 << 1;
    QTest::newRow("any other is opaque") << 77 << 1;
}

void tst_DcState::backgroundMode()
{
    QFETCH(int, mode);
    QFETCH(int, expected);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.GetBkMode(), 0);
    QCOMPARE(dc.SetBkMode(mode), 0);
    QCOMPARE(dc.GetBkMode(), expected);
    QCOMPARE(int(dc.backgroundMode()), expected);
    QCOMPARE(dc.SetBkMode(TRANSPARENT), expected);
}

void tst_DcState::saveAndRestore()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.SaveDC(), 0);
    dc.setPen(Qt::red);
    dc.setBrush(Qt::blue);
    dc.translate(1, 2);
    dc.SetTextColor(RGB(1, 2, 3));
    dc.MoveTo(5, 6);
    dc.m_palette.ResizePalette(3);
    QCOMPARE(dc.RestoreDC(-1), 1);
    QCOMPARE(dc.pen(), QPen(Qt::black));
    QCOMPARE(dc.brush(), QBrush());
    QVERIFY(dc.transform().isIdentity());
    QCOMPARE(dc.m_crText, RGB(1, 2, 3));
    QCOMPARE(dc.m_ptCurrent, CPoint(5, 6));
    QCOMPARE(dc.m_palette.GetEntryCount(), 3);
}

void tst_DcState::restoreWithoutSave()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.setPen(Qt::red);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::restore: Unbalanced save/restore");
    QCOMPARE(dc.RestoreDC(0), 1);
    QCOMPARE(dc.pen(), QPen(Qt::red));
}

void tst_DcState::restoreTakesOneStep()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.SaveDC();
    dc.setPen(Qt::red);
    dc.SaveDC();
    dc.setPen(Qt::blue);
    QCOMPARE(dc.RestoreDC(1), 1); // not both
    QCOMPARE(dc.pen(), QPen(Qt::red));
    QCOMPARE(dc.RestoreDC(100), 1);
    QCOMPARE(dc.pen(), QPen(Qt::black));
}

XE_TEST(tst_DcState)
#include "tst_dcstate.moc"
