// List controls: the pictures of items.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

QColor colorOf(const QTableWidgetItem& item) { return item.icon().pixmap(8, 8).toImage().pixelColor(4, 4); }

QPixmap picture(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}

void paint(CBitmap_X& bitmap, const QColor& color)
{
    bitmap.CreateCompatibleBitmap(nullptr, 8, 8);
    static_cast<QImage*>(bitmap.GetSafeHandle())->fill(color);
}

} // namespace

class tst_ListPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void imageListsAreCopies();
    void picturesOfTheImageList();
    void ownPicturesComeFirst();
    void picturesThatChange();
    void imageIndexBeyondTheList_data();
    void imageIndexBeyondTheList();
    void appendedPictureIsACopyWithAlpha();
    void clearLeavesTheHostsBitmaps();
    void dragImage();
};

void tst_ListPictures::imageListsAreCopies()
{
    ListFixture f;
    CBitmap_X red;
    CImageList_X icons;
    icons.Add(&red, nullptr);
    QCOMPARE(f.list.SetImageList(icons, LVSIL_SMALL).GetImageCount(), 0);
    icons.Add(&red, nullptr);
    QCOMPARE(f.list.imageList.GetImageCount(), 1);
    const CListCtrl_X& list = f.list;
    QCOMPARE(list.GetImageList(7u).GetImageCount(), 1);
    QCOMPARE(f.list.GetImageList(7u), &f.list.imageList);
    QCOMPARE(f.list.SetImageList(icons, LVSIL_NORMAL).GetImageCount(), 1);
    QCOMPARE(f.list.imageList.GetImageCount(), 2);
}

void tst_ListPictures::picturesOfTheImageList()
{
    ListFixture f;
    CBitmap_X red;
    CBitmap_X blue;
    paint(red, Qt::red);
    paint(blue, Qt::blue);
    CImageList_X icons;
    icons.Add(&red, nullptr);
    icons.Add(&blue, nullptr);
    f.list.SetImageList(icons, LVSIL_SMALL);
    f.list.SetItem(0, 0, LVIF_TEXT | LVIF_IMAGE, L"x", 1, 0, 0, 0);
    QCOMPARE(colorOf(*f.table.item(0, 0)), QColor(Qt::blue));
    QCOMPARE(f.table.item(0, 0)->data(258).toInt(), 1);
    tagQLVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = 0;
    item.iSubItem = 2;
    QCOMPARE(f.list.InsertItem(&item), 0);
    QCOMPARE(colorOf(*f.table.item(0, 2)), QColor(Qt::red));
}

void tst_ListPictures::ownPicturesComeFirst()
{
    ListFixture f;
    CBitmap_X red;
    paint(red, Qt::red);
    CImageList_X icons;
    icons.Add(&red, nullptr);
    icons.Add(&red, nullptr);
    f.list.SetImageList(icons, LVSIL_SMALL);
    f.list.AppendItemImage(picture(Qt::green));
    f.list.SetItem(0, 0, LVIF_IMAGE, nullptr, 0, 0, 0, 0);
    f.list.SetItem(1, 0, LVIF_IMAGE, nullptr, 1, 0, 0, 0);
    QCOMPARE(colorOf(*f.table.item(0, 0)), QColor(Qt::green));
    QCOMPARE(colorOf(*f.table.item(1, 0)), QColor(Qt::red));
    f.list.ClearItemImageList();
    QCOMPARE(f.list.itemImages.size(), 0);
    f.list.SetItem(0, 0, LVIF_IMAGE, nullptr, 0, 0, 0, 0);
    QCOMPARE(colorOf(*f.table.item(0, 0)), QColor(Qt::red));
}

void tst_ListPictures::picturesThatChange()
{
    ListFixture f;
    CBitmap_X bitmap;
    paint(bitmap, Qt::red);
    f.list.imageList.Add(&bitmap, nullptr);
    f.list.SetItem(0, 0, LVIF_IMAGE, nullptr, 0, 0, 0, 0);
    f.list.imageList.SetBkColor(RGB(0, 0, 255));
    f.list.SetItem(1, 0, LVIF_IMAGE, nullptr, 0, 0, 0, 0);
    QCOMPARE(colorOf(*f.table.item(0, 0)), QColor(Qt::red));
    QCOMPARE(colorOf(*f.table.item(1, 0)), QColor(Qt::blue));
}

void tst_ListPictures::imageIndexBeyondTheList_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("at the count") << 1;
    QTest::newRow("of a picture that no list entry stands for") << 2;
}

void tst_ListPictures::imageIndexBeyondTheList()
{
    QFETCH(int, index);
    ListFixture f;
    CBitmap_X red;
    paint(red, Qt::red);
    f.list.imageList.Add(&red, nullptr);
    for (int i = 0; i < 3; ++i)
        f.list.AppendItemImage(picture(Qt::green));
    f.list.SetItem(0, 0, LVIF_TEXT | LVIF_IMAGE, L"x", index, 0, 0, 0);
    QVERIFY(f.table.item(0, 0)->icon().isNull());
    QVERIFY(!f.table.item(0, 0)->data(258).isValid());
}

void tst_ListPictures::appendedPictureIsACopyWithAlpha()
{
    CListCtrl_X list; // needs no widget
    QPixmap pixmap(3, 5);
    pixmap.fill(QColor(255, 0, 0, 128));
    list.AppendItemImage(pixmap);
    QCOMPARE(list.itemImages.size(), 1);
    const auto& image = *static_cast<QImage*>(list.itemImages[0]->GetSafeHandle());
    QCOMPARE(image.size(), QSize(3, 5));
    QCOMPARE(image.depth(), 32);
    QCOMPARE(image.pixelColor(1, 1).alpha(), 128);
    list.AppendItemImage(QPixmap());
    QCOMPARE(list.itemImages.size(), 2);
}

void tst_ListPictures::clearLeavesTheHostsBitmaps()
{
    CBitmap_X own;
    paint(own, Qt::red);
    {
        CListCtrl_X list;
        list.itemImages.append(&own);
        list.AppendItemImage(picture(Qt::green));
        list.ClearItemImageList();
        QVERIFY(list.itemImages.isEmpty());
        list.AppendItemImage(picture(Qt::green));
        list.itemImages.append(&own);
    }
    QVERIFY(own.GetSafeHandle());
}

void tst_ListPictures::dragImage()
{
    ListFixture f;
    f.table.show();
    tagPOINT at{};
    const QPixmap pixmap = f.list.CreateDragImage(1, &at);
    QCOMPARE(pixmap.size(), f.table.visualItemRect(f.table.item(1, 0)).size());
    QVERIFY(f.list.CreateDragImage(6, nullptr).isNull());
}

XE_TEST(tst_ListPictures)

#include "tst_listpictures.moc"
