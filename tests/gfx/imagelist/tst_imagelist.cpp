// Image lists.

#include "imagelist/bitmaps.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <climits>

namespace {

HIMAGELIST handleOf(int number) { return reinterpret_cast<HIMAGELIST>(static_cast<quintptr>(number)); }

// Null objects are asked on purpose, by hosts and here.
__attribute__((no_sanitize("undefined"))) HIMAGELIST safeHandle(const CImageList_X* list)
{
    return list->GetSafeHandle();
}

} // namespace

class tst_ImageList : public QObject, Bitmaps
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createMakesNothing();
    void createOfAList();
    void createOfTwoLists();
    void createOfTwoListsScalesTheSources();
    void createOfTwoListsRefuses_data();
    void createOfTwoListsRefuses();

    void add();
    void addNothing();
    void theMaskHasNoEffect();
    void replaceChangesNothing();
    void remove_data();
    void remove();
    void setImageCount();

    void copyWithinAList_data();
    void copyWithinAList();
    void copyBetweenLists();

    void handles();
    void deleteImageList();
    void copiesOfAList();
    void temporaryLists();
    void nullObject();
    void withoutEffect();

private:
    CImageList_X m_list;
};

void tst_ImageList::init()
{
    m_list.m_listImages = {&red, &green, &blue};
    createAll();
}

void tst_ImageList::cleanup() { CImageList_X::DeleteTempMap(); }

// -------------------------------------------------------------------------------------------------------------- making

void tst_ImageList::createMakesNothing()
{
    CImageList_X list;
    QCOMPARE(list.Create(16, 16, ILC_COLOR, 1, 1), FALSE);
    QCOMPARE(list.Create(7u, 16, 1, 0xC0C0C0u), FALSE);
    QCOMPARE(list.Create(L"icons", 16, 1, 0xC0C0C0u), FALSE);
    QCOMPARE(list.GetImageCount(), 0);
    QCOMPARE(list.GetSafeHandle(), nullptr);
    QCOMPARE(list.Add(&red, nullptr), 0);
}

void tst_ImageList::createOfAList()
{
    CImageList_X list;
    QCOMPARE(list.Create(&list), FALSE);
    QCOMPARE(list.Create(static_cast<CImageList_X*>(nullptr)), FALSE);
    QCOMPARE(list.Create(&m_list), TRUE);
    QCOMPARE(entries(list), QStringLiteral("red green blue"));
    QCOMPARE(list.Create(&list), TRUE);
    QCOMPARE(entries(list), QStringLiteral("red green blue red green blue"));
    QCOMPARE(entries(m_list), QStringLiteral("red green blue"));
}

void tst_ImageList::createOfTwoLists()
{
    CImageList_X a;
    CImageList_X b;
    CImageList_X list;
    a.m_listImages = {&red, &none, &green};
    b.m_listImages = {&blue, nullptr};
    list.Add(&green, nullptr);
    QCOMPARE(list.Create(a, 2, b, 2, 4, 2), TRUE);
    QCOMPARE(entries(list), QStringLiteral("green red none blue null"));
    QCOMPARE(entries(a), QStringLiteral("red none green"));
    QCOMPARE(list.Create(list, 1, list, 2, 4, 2), TRUE); // of itself
    QCOMPARE(entries(list), QStringLiteral("green red none blue null green green red"));
}

void tst_ImageList::createOfTwoListsScalesTheSources()
{
    CBitmap_X wide;
    CBitmap_X high;
    CBitmap_X left;
    CBitmap_X null;
    create(wide, Qt::red, 4, 2);
    create(high, Qt::blue, 3, 5);
    create(left, Qt::green, 4, 2);
    null.Attach(new QImage);
    CImageList_X a;
    CImageList_X b;
    CImageList_X list;
    a.m_listImages = {&wide, &null, &left};
    b.m_listImages = {&high};
    void* const picture = wide;
    QCOMPARE(list.Create(a, 2, b, 1, 8, 8), TRUE);
    QCOMPARE(pictureOf(wide).size(), QSize(8, 8));
    QCOMPARE(pictureOf(wide).pixelColor(7, 7), QColor(Qt::red));
    QCOMPARE(pictureOf(high).size(), QSize(8, 8));
    QCOMPARE(pictureOf(left).size(), QSize(4, 2)); // beyond the number asked for
    QVERIFY(pictureOf(null).isNull());
    QCOMPARE(static_cast<void*>(wide), picture); // in place
}

void tst_ImageList::createOfTwoListsRefuses_data()
{
    QTest::addColumn<int>("countA");
    QTest::addColumn<int>("countB");
    QTest::addColumn<int>("cx");
    QTest::addColumn<int>("cy");
    QTest::newRow("none of the first") << 0 << 1 << 8 << 8;
    QTest::newRow("none of the second") << 1 << 0 << 8 << 8;
    QTest::newRow("no width") << 1 << 1 << 0 << 8;
    QTest::newRow("no height") << 1 << 1 << 8 << -1;
    QTest::newRow("more than the first has") << 4 << 1 << 8 << 8;
    QTest::newRow("more than the second has") << 1 << 2 << 8 << 8;
    QTest::newRow("negative") << INT_MIN << 1 << 8 << 8;
}

void tst_ImageList::createOfTwoListsRefuses()
{
    QFETCH(int, countA);
    QFETCH(int, countB);
    QFETCH(int, cx);
    QFETCH(int, cy);
    CImageList_X b;
    CImageList_X list;
    b.Add(&green, nullptr);
    QCOMPARE(list.Create(m_list, countA, b, countB, cx, cy), FALSE);
    QCOMPARE(list.GetImageCount(), 0);
    QCOMPARE(pictureOf(red).size(), QSize(4, 2));
}

// -------------------------------------------------------------------------------------------------------------- images

void tst_ImageList::add()
{
    CImageList_X list;
    QCOMPARE(list.Add(&red, nullptr), 0);
    QCOMPARE(list.Add(&none, &red), 1); // the bitmap is what is kept
    QCOMPARE(list.Add(&red, &none), 2);
    QCOMPARE(list.GetImageCount(), 3);
    QCOMPARE(entries(list), QStringLiteral("red none red"));
}

void tst_ImageList::addNothing()
{
    CImageList_X list;
    QCOMPARE(list.Add(nullptr, &red), -1);
    QCOMPARE(list.Add(red.GetSafeHandle()), -1);
    QCOMPARE(list.Add(static_cast<void*>(nullptr)), -1);
    QCOMPARE(list.GetImageCount(), 0);
}

void tst_ImageList::theMaskHasNoEffect()
{
    CBitmap_X picture;
    CBitmap_X mask;
    picture.Attach(new QImage(2, 2, QImage::Format_ARGB32));
    mask.Attach(new QImage(2, 2, QImage::Format_ARGB32));
    pictureOf(picture).fill(Qt::red);
    pictureOf(mask).fill(Qt::transparent);
    const QImage before = pictureOf(picture);
    CImageList_X list;
    list.Add(&picture, &mask);
    QCOMPARE(pictureOf(picture), before);
    QCOMPARE(list.ExtractIcon(0), picture.GetSafeHandle());
    QCOMPARE(list.Replace(0, &picture, &mask), TRUE);
    QCOMPARE(pictureOf(picture), before);
}

void tst_ImageList::replaceChangesNothing()
{
    QCOMPARE(m_list.Replace(0, &blue, &green), TRUE);
    QCOMPARE(m_list.Replace(0, &blue, &none), TRUE);
    QCOMPARE(m_list.Replace(0, &blue, nullptr), TRUE);
    QCOMPARE(m_list.Replace(77, &blue, nullptr), TRUE); // the index is not looked at
    QCOMPARE(m_list.Replace(0, &none, &green), FALSE);
    QCOMPARE(m_list.Replace(0, nullptr, nullptr), FALSE);
    QCOMPARE(m_list.Replace(0, blue.GetSafeHandle()), -1);
    QCOMPARE(entries(m_list), QStringLiteral("red green blue"));
}

void tst_ImageList::remove_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("left");
    QTest::newRow("first") << 0 << 1 << "green blue";
    QTest::newRow("last") << 2 << 1 << "red green";
    QTest::newRow("the count") << 3 << 1 << "red green blue";
    QTest::newRow("beyond") << 4 << 0 << "red green blue";
    QTest::newRow("-1 does not stand for all") << -1 << 0 << "red green blue";
}

void tst_ImageList::remove()
{
    QFETCH(int, index);
    QTEST(m_list.Remove(index), "result");
    QTEST(entries(m_list), "left");
}

void tst_ImageList::setImageCount()
{
    QCOMPARE(m_list.SetImageCount(0), FALSE);
    QCOMPARE(m_list.SetImageCount(100), TRUE);
    QCOMPARE(m_list.SetImageCount(1), TRUE);
    QCOMPARE(m_list.SetImageCount(UINT_MAX), TRUE);
    QCOMPARE(entries(m_list), QStringLiteral("red green blue"));
}

void tst_ImageList::copyWithinAList_data()
{
    QTest::addColumn<int>("destination");
    QTest::addColumn<int>("source");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("left");
    QTest::newRow("move") << 0 << 2 << ILCF_MOVE << 1 << "blue green blue";
    QTest::newRow("swap") << 0 << 2 << ILCF_SWAP << 1 << "blue green red";
    QTest::newRow("other flags") << 0 << 2 << 2u << 1 << "red green blue";
    QTest::newRow("equal") << 1 << 1 << ILCF_SWAP << 0 << "red green blue";
    QTest::newRow("negative destination") << -1 << 1 << ILCF_MOVE << 0 << "red green blue";
    QTest::newRow("negative source") << 1 << -1 << ILCF_MOVE << 0 << "red green blue";
    QTest::newRow("destination beyond") << 3 << 1 << ILCF_MOVE << 0 << "red green blue";
    QTest::newRow("source beyond") << 1 << 3 << ILCF_SWAP << 0 << "red green blue";
}

void tst_ImageList::copyWithinAList()
{
    QFETCH(int, destination);
    QFETCH(int, source);
    QFETCH(unsigned, flags);
    QTEST(m_list.Copy(destination, source, flags), "result");
    QTEST(entries(m_list), "left");
}

void tst_ImageList::copyBetweenLists()
{
    CImageList_X other;
    other.m_listImages = {&none, &green};
    QCOMPARE(m_list.Copy(2, &other, 0), TRUE);
    QCOMPARE(entries(m_list), QStringLiteral("red green none"));
    QCOMPARE(m_list.Copy(0, &other, 1, ILCF_SWAP), TRUE);
    QCOMPARE(entries(m_list), QStringLiteral("green green none"));
    QCOMPARE(entries(other), QStringLiteral("none red"));
    QCOMPARE(m_list.Copy(1, &other, 1, ILCF_SWAP), FALSE); // equal, though in another list
    QCOMPARE(m_list.Copy(0, &other, 2, ILCF_SWAP), FALSE);
    QCOMPARE(m_list.Copy(3, &other, 1, ILCF_SWAP), FALSE);
    QCOMPARE(m_list.Copy(0, nullptr, 1, ILCF_SWAP), FALSE);
    QCOMPARE(entries(m_list), QStringLiteral("green green none"));
}

// -------------------------------------------------------------------------------------------------------------- handle

void tst_ImageList::handles()
{
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(3)), nullptr);
    CImageList_X list;
    QCOMPARE(list.Attach(nullptr), FALSE);
    QCOMPARE(list.Detach(), nullptr);
    QCOMPARE(list.Attach(handleOf(3)), TRUE);
    QCOMPARE(list.GetSafeHandle(), handleOf(3));
    QCOMPARE(list.m_hImageList, handleOf(3));
    QCOMPARE(CImageList_X::FromHandle(handleOf(3)), &list);
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(3)), &list);
    QCOMPARE(list.Attach(handleOf(4)), TRUE);
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(3)), nullptr);
    QCOMPARE(list.Detach(), handleOf(4));
    QCOMPARE(list.GetSafeHandle(), nullptr);
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(4)), nullptr);
    {
        CImageList_X dies;
        dies.Attach(handleOf(5));
    }
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(5)), nullptr);
}

void tst_ImageList::deleteImageList()
{
    CImageList_X list;
    list.Add(&red, nullptr);
    QCOMPARE(list.DeleteImageList(), FALSE);
    QCOMPARE(list.GetImageCount(), 1);
    list.Attach(handleOf(3));
    QCOMPARE(list.DeleteImageList(), TRUE);
    QCOMPARE(list.GetImageCount(), 0);
    QCOMPARE(list.GetSafeHandle(), handleOf(3));
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(3)), &list);
    QVERIFY(red.GetSafeHandle()); // bitmaps are not the list's
}

void tst_ImageList::copiesOfAList()
{
    CImageList_X list;
    list.Attach(handleOf(3));
    list.Add(&red, nullptr);
    {
        CImageList_X copy(list);
        QCOMPARE(copy.GetSafeHandle(), handleOf(3));
        QCOMPARE(entries(copy), QStringLiteral("red"));
        copy.Add(&green, nullptr);
        QCOMPARE(entries(list), QStringLiteral("red"));
        CImageList_X assigned;
        assigned.Attach(handleOf(4));
        assigned = copy;
        QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(4)), nullptr);
        QCOMPARE(entries(assigned), QStringLiteral("red green"));
        assigned = *&assigned;
        QCOMPARE(entries(assigned), QStringLiteral("red green"));
        QCOMPARE(assigned.GetSafeHandle(), handleOf(3));
    }
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(3)), &list);
}

void tst_ImageList::temporaryLists()
{
    CImageList_X* const list = CImageList_X::FromHandle(handleOf(6));
    QVERIFY(list);
    QCOMPARE(list->GetRuntimeClass(), RUNTIME_CLASS_X(CImageList_X));
    QCOMPARE(list->GetSafeHandle(), handleOf(6));
    QCOMPARE(list->GetImageCount(), 0);
    QCOMPARE(CImageList_X::FromHandle(handleOf(6)), list);
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(6)), nullptr);
    QCOMPARE(CImageList_X::FromHandle(nullptr), nullptr);

    CImageList_X* const attached = CImageList_X::FromHandle(handleOf(7));
    attached->Attach(handleOf(8));
    CImageList_X::DeleteTempMap();
    QCOMPARE(CImageList_X::FromHandlePermanent(handleOf(8)), nullptr);
}

void tst_ImageList::nullObject() { QCOMPARE(safeHandle(nullptr), nullptr); }

void tst_ImageList::withoutEffect()
{
    _IMAGELISTDRAWPARAMS parameters = {};
    tagPOINT point = {7, 7};
    QCOMPARE(m_list.Draw(nullptr, 0, point, ILD_NORMAL), FALSE);
    QCOMPARE(m_list.DrawEx(nullptr, 0, point, {1, 1}, 0, 0, ILD_NORMAL), FALSE);
    QCOMPARE(m_list.DrawIndirect(&parameters), FALSE);
    QCOMPARE(m_list.DrawIndirect(nullptr, 0, point, {1, 1}, point), FALSE);
    QCOMPARE(m_list.Read(nullptr), FALSE);
    QCOMPARE(m_list.Write(nullptr), FALSE);
    QCOMPARE(m_list.BeginDrag(0, point), FALSE);
    QCOMPARE(m_list.SetDragCursorImage(0, point), FALSE);
    QCOMPARE(CImageList_X::DragMove(point), FALSE);
    QCOMPARE(CImageList_X::DragEnter(nullptr, point), FALSE);
    QCOMPARE(CImageList_X::DragLeave(nullptr), FALSE);
    QCOMPARE(CImageList_X::DragShowNolock(TRUE), FALSE);
    QCOMPARE(CImageList_X::GetDragImage(&point, &point), nullptr);
    QCOMPARE(point.x, 7);
    CImageList_X::EndDrag();
    QCOMPARE(entries(m_list), QStringLiteral("red green blue"));
}

XE_APPLESS_TEST(tst_ImageList)
#include "tst_imagelist.moc"
