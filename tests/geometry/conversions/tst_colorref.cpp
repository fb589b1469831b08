// Between COLORREF and Qt's colours.

#include "geometry/colorref.h"
#include "testclass.h"

class tst_Colorref : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void theHighByteIsNotLookedAt();
    void exchanged();
};

void tst_Colorref::roundTrip_data()
{
    QTest::addColumn<unsigned>("colorref");
    QTest::addColumn<QColor>("color");
    QTest::newRow("black") << 0x000000u << QColor(Qt::black);
    QTest::newRow("red is the lowest byte") << 0x0000FFu << QColor(255, 0, 0);
    QTest::newRow("green") << 0x00FF00u << QColor(0, 255, 0);
    QTest::newRow("blue") << 0xFF0000u << QColor(0, 0, 255);
    QTest::newRow("each channel of its own") << 0x563412u << QColor(0x12, 0x34, 0x56);
    QTest::newRow("white") << 0xFFFFFFu << QColor(Qt::white);
}

void tst_Colorref::roundTrip()
{
    QFETCH(unsigned, colorref);
    QFETCH(QColor, color);
    QCOMPARE(xe::toQColor(colorref).rgba(), color.rgba());
    QCOMPARE(xe::toColorRef(color), colorref);
}

void tst_Colorref::theHighByteIsNotLookedAt()
{
    QCOMPARE(xe::toQColor(0x80563412).rgba(), 0xFF123456u);
    QCOMPARE(xe::toColorRef(QColor(1, 2, 3, 4)), 0x030201u);
}

void tst_Colorref::exchanged()
{
    QCOMPARE(xe::exchangedQColor(0x0000FF).rgba(), 0xFF0000FFu); // blue
    QCOMPARE(xe::exchangedQColor(0x80563412).rgba(), 0xFF563412u);
}

XE_APPLESS_TEST(tst_Colorref)
#include "tst_colorref.moc"
