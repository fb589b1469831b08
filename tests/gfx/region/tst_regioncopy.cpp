// Regions that several objects hold.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QRegion>

class tst_RegionCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothHoldOne();
    void movesBoth();
    void eitherMayDieFirst();
    void deletingOneLeavesTheOther();
    void replacingOneLeavesTheOther();
    void copyTwice();
    void copyOfItself();
    void copyOfNothing();
    void theOldRegionIsNotFreed();
    void equality();
};

void tst_RegionCopy::bothHoldOne()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    CRgn_X copy;
    QCOMPARE(copy.CopyRgn(&region), TRUE);
    QCOMPARE(copy.GetSafeHandle(), region.GetSafeHandle());
    QCOMPARE(CRgn_X::FromHandle(region), &copy);
}

void tst_RegionCopy::movesBoth()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    CRgn_X copy;
    copy.CopyRgn(&region);
    copy.OffsetRgn(100, 0);
    QVERIFY(region.PtInRegion(105, 5));
    QVERIFY(!region.PtInRegion(5, 5));
}

void tst_RegionCopy::eitherMayDieFirst()
{
    CRgn_X outlives;
    {
        CRgn_X region;
        region.CreateRectRgn(0, 0, 10, 10);
        outlives.CopyRgn(&region);
    }
    QVERIFY(outlives.PtInRegion(5, 5));
    {
        CRgn_X copy;
        copy.CopyRgn(&outlives);
    }
    QVERIFY(outlives.PtInRegion(5, 5));
}

void tst_RegionCopy::deletingOneLeavesTheOther()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    CRgn_X copy;
    copy.CopyRgn(&region);
    QCOMPARE(region.DeleteObject(), TRUE);
    QCOMPARE(region.DeleteObject(), FALSE);
    QVERIFY(copy.PtInRegion(5, 5));
}

void tst_RegionCopy::replacingOneLeavesTheOther()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    CRgn_X copy;
    copy.CopyRgn(&region);
    copy.SetRectRgn(20, 20, 30, 30);
    QVERIFY(region.PtInRegion(5, 5));
    QVERIFY(!region.PtInRegion(25, 25));
    CRgn_X another;
    another.CopyRgn(&region);
    another.CombineRgn(&region, &copy, RGN_OR);
    QVERIFY(another.PtInRegion(25, 25));
    QVERIFY(!region.PtInRegion(25, 25));
}

void tst_RegionCopy::copyTwice()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    {
        CRgn_X copy;
        QCOMPARE(copy.CopyRgn(&region), TRUE);
        QCOMPARE(copy.CopyRgn(&region), TRUE);
    }
    QVERIFY(region.PtInRegion(5, 5));
}

void tst_RegionCopy::copyOfItself()
{
    CRgn_X region;
    QCOMPARE(region.CopyRgn(&region), TRUE);
    QCOMPARE(region.GetSafeHandle(), nullptr);
    region.CreateRectRgn(0, 0, 10, 10);
    QCOMPARE(region.CopyRgn(&region), TRUE);
    QVERIFY(region.PtInRegion(5, 5));
}

void tst_RegionCopy::copyOfNothing()
{
    const CRgn_X none;
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    const std::unique_ptr<QRegion> first(static_cast<QRegion*>(region.GetSafeHandle()));
    QCOMPARE(region.CopyRgn(&none), FALSE);
    QCOMPARE(region.GetSafeHandle(), nullptr);
    region.CreateRectRgn(0, 0, 10, 10);
    const std::unique_ptr<QRegion> second(static_cast<QRegion*>(region.GetSafeHandle()));
    QCOMPARE(region.CopyRgn(nullptr), FALSE);
    QCOMPARE(region.GetSafeHandle(), nullptr);
}

void tst_RegionCopy::theOldRegionIsNotFreed()
{
    CRgn_X region;
    region.CreateRectRgn(0, 0, 10, 10);
    CRgn_X copy;
    copy.CreateRectRgn(20, 20, 30, 30);
    const std::unique_ptr<QRegion> old(static_cast<QRegion*>(copy.GetSafeHandle()));
    copy.CopyRgn(&region);
    QVERIFY(old->contains(QPoint(25, 25)));
    QVERIFY(!afxMapHGDIOBJ_X(TRUE)->LookupPermanent(old.get()));
}

void tst_RegionCopy::equality()
{
    CRgn_X region;
    CRgn_X alike;
    CRgn_X copy;
    QVERIFY(region.EqualRgn(&alike)); // neither holds one
    QVERIFY(region.EqualRgn(nullptr));
    region.CreateRectRgn(0, 0, 10, 10);
    alike.CreateRectRgn(0, 0, 10, 10);
    copy.CopyRgn(&region);
    QVERIFY(region.EqualRgn(&copy));
    QVERIFY(copy.EqualRgn(&region));
    QVERIFY(region.EqualRgn(&region));
    QVERIFY(!region.EqualRgn(&alike)); // of equal shape
    QVERIFY(!region.EqualRgn(nullptr));
}

XE_APPLESS_TEST(tst_RegionCopy)
#include "tst_regioncopy.moc"
