// Tree controls: the pictures, bits and boxes of items.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

#include <QSignalSpy>

namespace {

QColor colorOf(const QTreeWidgetItem& item, QIcon::Mode mode)
{
    return item.icon(0).pixmap(QSize(8, 8), mode).toImage().pixelColor(4, 4);
}

struct Icons
{
    Icons()
    {
        for (CBitmap_X* bitmap : {&red, &blue}) {
            bitmap->CreateCompatibleBitmap(nullptr, 8, 8);
            list.Add(bitmap, nullptr);
        }
        static_cast<QImage*>(red.GetSafeHandle())->fill(Qt::red);
        static_cast<QImage*>(blue.GetSafeHandle())->fill(Qt::blue);
    }

    CBitmap_X red;
    CBitmap_X blue;
    CImageList_X list;
};

} // namespace

class tst_TreeItemLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void setItemIgnoresTheMask();
    void aSlotMayEndTheItem();
    void pictures();
    void picturesBeyondTheList_data();
    void picturesBeyondTheList();
    void ownPicturesComeFirst();
    void imagesOfAHostsItem();
    void imageListsAreCopies();
    void bits_data();
    void bits();
    void bitsAreSilent();
    void boxesByState_data();
    void boxesByState();
    void boxes();
    void boxesOfItemsToCome();
};

void tst_TreeItemLook::setItemIgnoresTheMask()
{
    TreeFixture f;
    const Icons icons;
    f.control.SetImageList(icons.list, TVSIL_NORMAL);
    f.control.SetItemData(f.red, 5);
    QCOMPARE(f.control.SetItem(f.red, 0, L"new", 1, 0, 0xFFFF, 0xFFFF, 99), TRUE);
    QCOMPARE(f.red->text(0), QStringLiteral("new"));
    QCOMPARE(colorOf(*f.red, QIcon::Normal), QColor(Qt::blue));
    QCOMPARE(f.control.GetItemData(f.red), 5ull);
    QCOMPARE(f.control.GetItemState(f.red, 0xFFFF), 0u);
    QCOMPARE(f.control.SetItem(f.red, TVIF_TEXT, nullptr, 0, 0, 0, 0, 0), TRUE);
    QCOMPARE(f.red->text(0), QStringLiteral("new"));
    QCOMPARE(colorOf(*f.red, QIcon::Normal), QColor(Qt::red));
}

void tst_TreeItemLook::aSlotMayEndTheItem()
{
    TreeFixture f;
    const Icons icons;
    f.control.SetImageList(icons.list, TVSIL_NORMAL);
    connect(&f.tree, &QTreeWidget::itemChanged, &f.tree, [&f](QTreeWidgetItem* item) {
        if (item == f.red)
            delete item;
    });
    QCOMPARE(f.control.SetItem(f.red, 0, L"new", 0, 0, 0, 0, 0), TRUE);
    QCOMPARE(f.text(), QStringLiteral("tools (drill (bit) saw) paint (blue) glue"));
}

void tst_TreeItemLook::pictures()
{
    TreeFixture f;
    const Icons icons;
    f.control.SetImageList(icons.list, TVSIL_NORMAL);
    const HTREEITEM made = f.control.InsertItem(L"new", 0, 1);
    QCOMPARE(colorOf(*made, QIcon::Normal), QColor(Qt::red));
    QCOMPARE(colorOf(*made, QIcon::Selected), QColor(Qt::blue));
    QCOMPARE(f.control.SetItemImage(made, 1, 1), TRUE);
    QCOMPARE(colorOf(*made, QIcon::Normal), QColor(Qt::blue));
    int image = 9;
    int selected = 9;
    QCOMPARE(f.control.GetItemImage(made, image, selected), TRUE);
    QCOMPARE(image, 1);
    QCOMPARE(selected, 1);
    const HTREEITEM plain = f.control.InsertItem(L"plain"); // images 0 and 0
    QCOMPARE(colorOf(*plain, QIcon::Normal), QColor(Qt::red));
}

void tst_TreeItemLook::picturesBeyondTheList_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("selected");
    QTest::newRow("beyond") << 2 << 0;
    QTest::newRow("selected beyond") << 0 << 7;
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("selected negative") << 0 << -1;
}

void tst_TreeItemLook::picturesBeyondTheList()
{
    QFETCH(int, image);
    QFETCH(int, selected);
    TreeFixture f;
    const Icons icons;
    f.control.SetImageList(icons.list, TVSIL_NORMAL);
    const HTREEITEM made = f.control.InsertItem(L"new", image, selected);
    QVERIFY(made->icon(0).isNull());
    int imageThen = 9;
    int selectedThen = 9;
    f.control.GetItemImage(made, imageThen, selectedThen);
    QCOMPARE(imageThen, image); // kept all the same
    QCOMPARE(selectedThen, selected);

    f.control.SetItemImage(f.red, 1, 1);
    QCOMPARE(f.control.SetItemImage(f.red, image, selected), FALSE);
    f.control.GetItemImage(f.red, imageThen, selectedThen);
    QCOMPARE(imageThen, 1);
    QCOMPARE(selectedThen, 1);
}

void tst_TreeItemLook::ownPicturesComeFirst()
{
    TreeFixture f;
    const Icons icons;
    f.control.SetImageList(icons.list, TVSIL_NORMAL);
    f.control.AppendItemImage(picture(Qt::green));
    f.control.SetItemImage(f.red, 0, 1);
    QCOMPARE(colorOf(*f.red, QIcon::Normal), QColor(Qt::green));
    QCOMPARE(colorOf(*f.red, QIcon::Selected), QColor(Qt::blue)); // the list's own
    f.control.ClearItemImageList();
    QCOMPARE(f.control.itemImages.size(), 0);
    QCOMPARE(colorOf(*f.red, QIcon::Normal), QColor(Qt::green)); // the item goes on showing it
}

void tst_TreeItemLook::imagesOfAHostsItem()
{
    TreeFixture f;
    auto* const item = new QTreeWidgetItem(&f.tree);
    int image = 9;
    int selected = 9;
    QCOMPARE(f.control.GetItemImage(item, image, selected), TRUE);
    QCOMPARE(image, -1);
    QCOMPARE(selected, -1);
    image = 9;
    QCOMPARE(f.control.GetItemImage(nullptr, image, selected), FALSE);
    QCOMPARE(image, -1);
}

void tst_TreeItemLook::imageListsAreCopies()
{
    TreeFixture f;
    Icons icons;
    QCOMPARE(f.control.SetImageList(icons.list, 7).GetImageCount(), 0);
    icons.list.Remove(0);
    QCOMPARE(f.control.GetImageList(3u).GetImageCount(), 2);
    QCOMPARE(f.control.SetImageList(icons.list, 7).GetImageCount(), 2);
}

void tst_TreeItemLook::bits_data()
{
    QTest::addColumn<UINT>("old");
    QTest::addColumn<UINT>("state");
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<UINT>("then");
    QTest::newRow("set") << 0u << 2u << 2u << 2u;
    QTest::newRow("cleared") << 6u << 0u << 2u << 4u;
    QTest::newRow("only masked bits") << 4u << 0xFFu << 2u << 6u;
    QTest::newRow("no mask") << 4u << 0xFFu << 0u << 4u;
    QTest::newRow("collapsed by expanded") << 1u << 32u << 32u << 32u;
    QTest::newRow("expanded by collapsed") << 32u << 1u << 1u << 1u;
    QTest::newRow("expanded stays beside another") << 32u << 2u << 2u << 34u;
    QTest::newRow("collapsed stays beside another") << 1u << 2u << 2u << 3u;
    QTest::newRow("expanded cleared") << 34u << 0u << 32u << 2u;
    QTest::newRow("a mask that holds the box's is no box") << 0u << 0x3002u << 0xF002u << 0x3002u;
}

void tst_TreeItemLook::bits()
{
    QFETCH(UINT, old);
    QFETCH(UINT, state);
    QFETCH(UINT, mask);
    TreeFixture f;
    f.red->setData(0, 260, old);
    QCOMPARE(f.control.SetItemState(f.red, state, mask), TRUE);
    QTEST(f.red->data(0, 260).toUInt(), "then");
    QTEST(f.control.GetItemState(f.red, 0), "then"); // whatever the mask
}

void tst_TreeItemLook::bitsAreSilent()
{
    TreeFixture f;
    QSignalSpy changed(&f.tree, &QTreeWidget::itemChanged);
    f.control.SetItemState(f.red, 2, 2);
    f.control.Expand(f.paint, TVE_EXPAND);
    f.control.ExpandAll();
    f.control.SelectItem(f.red);
    QCOMPARE(changed.size(), 0);
    QVERIFY(!f.tree.signalsBlocked() && !f.tree.model()->signalsBlocked());
}

void tst_TreeItemLook::boxesByState_data()
{
    QTest::addColumn<UINT>("state");
    QTest::addColumn<int>("check");
    QTest::addColumn<UINT>("then");
    QTest::newRow("checked") << 0x3000u << 2 << 0x3000u;
    QTest::newRow("partly") << 0x2000u << 1 << 0x2000u;
    QTest::newRow("not") << 0x1000u << 0 << 0x1000u;
    QTest::newRow("another image") << 0x4000u << 0 << 0x1000u;
    QTest::newRow("no image") << 0u << 0 << 0x1000u;
    QTest::newRow("lower bits beside it") << 0x3022u << 2 << 0x3000u;
}

void tst_TreeItemLook::boxesByState()
{
    QFETCH(UINT, state);
    TreeFixture f;
    QCOMPARE(f.control.SetItemState(f.red, state, TVIS_STATEIMAGEMASK), TRUE);
    QTEST(f.red->data(0, Qt::CheckStateRole).toInt(), "check");
    QTEST(f.control.GetItemState(f.red, TVIS_STATEIMAGEMASK), "then");
    QVERIFY(!f.red->data(0, 260).isValid());
    f.red->setData(0, Qt::CheckStateRole, 5);
    QCOMPARE(f.control.GetItemState(f.red, TVIS_STATEIMAGEMASK), 0x5000u);
}

void tst_TreeItemLook::boxes()
{
    TreeFixture f;
    QCOMPARE(f.control.GetCheck(f.red), FALSE);
    QCOMPARE(f.control.SetCheck(f.red), TRUE);
    QCOMPARE(f.red->data(0, Qt::CheckStateRole).toInt(), 2);
    QCOMPARE(f.control.GetCheck(f.red), TRUE);
    QCOMPARE(f.control.SetCheck(f.red, FALSE), TRUE);
    QCOMPARE(f.red->data(0, Qt::CheckStateRole), QVariant(0));
    f.red->setCheckState(0, Qt::PartiallyChecked);
    QCOMPARE(f.control.GetCheck(f.red), FALSE);
}

void tst_TreeItemLook::boxesOfItemsToCome()
{
    TreeFixture f;
    QCOMPARE(f.control.GetCheckBoxes(), 0);
    f.control.SetCheckBoxes(1);
    QCOMPARE(f.control.GetCheckBoxes(), 1);
    QVERIFY(!f.red->data(0, Qt::CheckStateRole).isValid());
    const HTREEITEM made = f.control.InsertItem(L"new", f.paint);
    QCOMPARE(made->data(0, Qt::CheckStateRole), QVariant(0));
    QVERIFY(made->flags() & Qt::ItemIsAutoTristate);
    const HTREEITEM child = f.control.InsertItem(L"child", made);
    f.control.SetCheck(child);
    QCOMPARE(f.control.GetCheck(made), TRUE); // it goes by its children
    f.control.SetCheckBoxes(0);
    QVERIFY(!f.control.InsertItem(L"plain")->data(0, Qt::CheckStateRole).isValid());
}

XE_TEST(tst_TreeItemLook)

#include "tst_treeitemlook.moc"
