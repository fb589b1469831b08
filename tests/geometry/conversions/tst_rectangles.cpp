// Between Win32 rectangles and Qt's, in each of the meanings that four numbers have.

#include "geometry/rectangle.h"
#include "testclass.h"
#include "valuetext.h"

#include <climits>

class tst_Rectangles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toQt_data();
    void toQt();
    void edgesOfTheNumbers();
    void points();
};

void tst_Rectangles::toQt_data()
{
    QTest::addColumn<QRect>("rectangle");
    QTest::addColumn<QRect>("corners");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("bottom");
    QTest::newRow("ten pixels, or eleven") << QRect(0, 0, 10, 10) << QRect(0, 0, 11, 11) << 0 << 0 << 10 << 10;
    QTest::newRow("nothing, or one pixel") << QRect(3, 4, 0, 0) << QRect(3, 4, 1, 1) << 3 << 4 << 3 << 4;
    QTest::newRow("swapped") << QRect(5, 5, -2, -2) << QRect(5, 5, -1, -1) << 5 << 5 << 3 << 3;
    QTest::newRow("negative") << QRect(-5, -6, 4, 5) << QRect(-5, -6, 5, 6) << -5 << -6 << -1 << -1;
}

void tst_Rectangles::toQt()
{
    QFETCH(QRect, rectangle);
    QFETCH(QRect, corners);
    QFETCH(int, left);
    QFETCH(int, top);
    QFETCH(int, right);
    QFETCH(int, bottom);
    const tagRECT rect = {left, top, right, bottom};
    QCOMPARE(xe::toQRect(rect), rectangle);
    QCOMPARE(text(xe::toRect(rectangle)), text(rect));
    QCOMPARE(xe::cornersToQRect(rect), corners);
    QCOMPARE(text(xe::toCorners(corners)), text(rect));
}

void tst_Rectangles::edgesOfTheNumbers()
{
    const tagRECT rect = {INT_MIN, INT_MIN, INT_MIN, INT_MAX};
    QCOMPARE(text(xe::toRect(xe::toQRect(rect))), text(rect));
    QCOMPARE(text(xe::toCorners(xe::cornersToQRect(rect))), text(rect));
}

void tst_Rectangles::points()
{
    QCOMPARE(xe::toQPoint({3, -4}), QPoint(3, -4));
    QCOMPARE(text(xe::toWinPoint(QPoint(3, -4))), QStringLiteral("3 -4"));
}

XE_APPLESS_TEST(tst_Rectangles)
#include "tst_rectangles.moc"
