// What the random input is watched with: whether more and more is in use.

#include "growth.h"
#include "testclass.h"

#include <QTimer>

#include <vector>

class tst_PartsbookGrowth : public QObject
{
    Q_OBJECT

private slots:
    void nothingGrows();
    void anObjectAtEachMoment();
    void bytesAtEachMoment();
    void fewMomentsTellNothing();
};

void tst_PartsbookGrowth::nothingGrows()
{
    Growth growth;
    const QObject once;
    for (int moment = 0; moment < 80; ++moment) {
        const QObject passing;
        growth.look();
    }
    QCOMPARE(growth.found(), QString());
}

void tst_PartsbookGrowth::anObjectAtEachMoment()
{
    Growth growth;
    QObject owner;
    for (int moment = 0; moment < 20; ++moment) {
        (void)new QTimer(&owner);
        growth.look();
    }
    QCOMPARE(growth.found(), QStringLiteral("10 more objects, 10 QTimer"));
}

void tst_PartsbookGrowth::bytesAtEachMoment()
{
    Growth growth;
    std::vector<std::vector<char>> kept(80);
    for (std::vector<char>& one : kept) {
        one.resize(20'000);
        growth.look();
    }
    QVERIFY2(growth.found().endsWith(QStringLiteral(" more bytes")), qPrintable(growth.found()));
}

void tst_PartsbookGrowth::fewMomentsTellNothing()
{
    Growth growth;
    QObject owner;
    for (int moment = 0; moment < 10; ++moment) {
        (void)new QTimer(&owner);
        growth.look();
    }
    QCOMPARE(growth.found(), QString());
}

XE_GUILESS_TEST(tst_PartsbookGrowth)
#include "tst_partsbookgrowth.moc"
