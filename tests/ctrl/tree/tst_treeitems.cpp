// Tree controls: making and ending items, and what they have.

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

QPixmap picture(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
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

class tst_TreeItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void insertBelowAndBehind_data();
    void insertBelowAndBehind();
    void insertByRecord();
    void insertIntoTheRootOfAnEmptyTree();
    void deleteItem();
    void deleteTheWholeTree_data();
    void deleteTheWholeTree();
    void deleteNothing();
    void deleteAnItemWithAWidget();
    void texts();
    void setItemIgnoresTheMask();
    void setItemByRecord();
    void aSlotMayEndTheItem();
    void pictures();
    void picturesBeyondTheList_data();
    void picturesBeyondTheList();
    void ownPicturesComeFirst();
    void imagesOfAHostsItem();
    void imageListsAreCopies();
    void numbers();
    void bits_data();
    void bits();
    void bitsAreSilent();
    void boxesByState_data();
    void boxesByState();
    void boxes();
    void boxesOfItemsToCome();
    void nothingForNoItem_data();
    void nothingForNoItem();
    void itemsOfAnotherTree();
    void withoutWidget();
};

void tst_TreeItems::insertBelowAndBehind_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("then");
    const QString all = QStringLiteral("tools (drill (bit) saw) paint (red blue) glue");
    const auto paintWith = [](const char* children) {
        return QStringLiteral("tools (drill (bit) saw) paint (%1) glue").arg(QLatin1String(children));
    };
    QTest::newRow("no parent: the end") << QString() << QString() << all + QStringLiteral(" new");
    QTest::newRow("the root: the end") << QStringLiteral("root") << QString() << all + QStringLiteral(" new");
    QTest::newRow("top level ignores after") << QString() << QStringLiteral("tools") << all + QStringLiteral(" new");
    QTest::newRow("top level ignores first")
        << QStringLiteral("root") << QStringLiteral("first") << all + QStringLiteral(" new");
    QTest::newRow("below: the end") << QStringLiteral("paint") << QString() << paintWith("red blue new");
    QTest::newRow("behind a child") << QStringLiteral("paint") << QStringLiteral("red") << paintWith("red new blue");
    QTest::newRow("behind the last") << QStringLiteral("paint") << QStringLiteral("blue") << paintWith("red blue new");
    QTest::newRow("behind another's child: in front")
        << QStringLiteral("paint") << QStringLiteral("saw") << paintWith("new red blue");
    QTest::newRow("first: in front") << QStringLiteral("paint") << QStringLiteral("first") << paintWith("new red blue");
    QTest::newRow("last: in front") << QStringLiteral("paint") << QStringLiteral("last") << paintWith("new red blue");
    QTest::newRow("sorted: in front") << QStringLiteral("paint") << QStringLiteral("sort") << paintWith("new red blue");
}

void tst_TreeItems::insertBelowAndBehind()
{
    QFETCH(QString, parent);
    QFETCH(QString, after);
    TreeFixture f;
    const QHash<QString, HTREEITEM> handles = {
        {QStringLiteral("root"), TVI_ROOT}, {QStringLiteral("first"), TVI_FIRST}, {QStringLiteral("last"), TVI_LAST},
        {QStringLiteral("sort"), TVI_SORT}, {QStringLiteral("tools"), f.tools},   {QStringLiteral("paint"), f.paint},
        {QStringLiteral("red"), f.red},     {QStringLiteral("blue"), f.blue},     {QStringLiteral("saw"), f.saw},
    };
    const HTREEITEM made = f.control.InsertItem(L"new", 0, 0, handles.value(parent), handles.value(after));
    QVERIFY(made);
    QCOMPARE(made->text(0), QStringLiteral("new"));
    QTEST(f.text(), "then");
}

void tst_TreeItems::insertByRecord()
{
    TreeFixture f;
    tagTVINSERTSTRUCT_X record{};
    record.hParent = f.paint;
    record.hInsertAfter = f.red;
    record.item.pszText = L"green";
    record.item.iImage = 4;
    record.item.iSelectedImage = 5;
    record.item.lParam = -1;
    HTREEITEM made = f.control.InsertItem(&record); // text and images whatever the mask
    QCOMPARE(f.text(), QStringLiteral("tools (drill (bit) saw) paint (red green blue) glue"));
    QCOMPARE(made->data(0, 258).toInt(), 4);
    QCOMPARE(made->data(0, 259).toInt(), 5);
    QVERIFY(!made->data(0, 257).isValid());
    record.item.mask = TVIF_PARAM;
    made = f.control.InsertItem(&record);
    QCOMPARE(f.control.GetItemData(made), 0xFFFFFFFFFFFFFFFFull);
    QCOMPARE(f.control.InsertItem(static_cast<tagTVINSERTSTRUCT_X*>(nullptr)), nullptr);
}

void tst_TreeItems::insertIntoTheRootOfAnEmptyTree()
{
    QTreeWidget tree;
    CTreeCtrl_X control;
    control.SubclassWindow(&tree);
    control.InsertItem(L"first", control.GetRootItem());
    control.InsertItem(static_cast<const wchar_t*>(nullptr));
    QCOMPARE(tree.topLevelItemCount(), 2);
    QCOMPARE(tree.topLevelItem(1)->text(0), QString());
}

void tst_TreeItems::deleteItem()
{
    TreeFixture f;
    QCOMPARE(f.control.DeleteItem(f.drill), TRUE);
    QCOMPARE(f.text(), QStringLiteral("tools (saw) paint (red blue) glue"));
    QCOMPARE(f.control.DeleteItem(f.glue), TRUE);
    QCOMPARE(f.control.DeleteItem(f.tools), TRUE);
    QCOMPARE(f.text(), QStringLiteral("paint (red blue)"));
}

void tst_TreeItems::deleteTheWholeTree_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("by its own function") << 0;
    QTest::newRow("by the root") << 1;
    QTest::newRow("by the invisible root") << 2;
}

void tst_TreeItems::deleteTheWholeTree()
{
    QFETCH(int, way);
    TreeFixture f;
    const BOOL result = way == 0   ? f.control.DeleteAllItems()
                        : way == 1 ? f.control.DeleteItem(TVI_ROOT)
                                   : f.control.DeleteItem(f.tree.invisibleRootItem());
    QCOMPARE(result, TRUE);
    QCOMPARE(f.control.GetCount(), 0u);
    QCOMPARE(f.control.DeleteItem(f.control.GetRootItem()), TRUE); // of an empty tree
    QVERIFY(f.control.InsertItem(L"new"));
    QCOMPARE(f.text(), QStringLiteral("new"));
}

void tst_TreeItems::deleteNothing()
{
    TreeFixture f;
    const QString before = f.text();
    QCOMPARE(f.control.DeleteItem(nullptr), TRUE);
    QCOMPARE(f.control.DeleteItem(TVI_LAST), TRUE);
    QCOMPARE(f.text(), before);
}

void tst_TreeItems::deleteAnItemWithAWidget()
{
    TreeFixture f;
    QPointer<QLabel> label = new QLabel;
    f.tree.setItemWidget(f.saw, 0, label);
    f.control.DeleteItem(f.saw);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!label);
}

void tst_TreeItems::texts()
{
    TreeFixture f;
    QCOMPARE(f.control.SetItemText(f.red, L"世界 😀"), TRUE);
    QCOMPARE(f.red->text(0), QStringLiteral("世界 😀"));
    QCOMPARE(textOf(f.control.GetItemText(f.red)), QStringLiteral("世界 😀"));
    QCOMPARE(f.control.SetItemText(f.red, nullptr), TRUE);
    QCOMPARE(textOf(f.control.GetItemText(f.red)), QString());
}

void tst_TreeItems::setItemIgnoresTheMask()
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

void tst_TreeItems::setItemByRecord()
{
    TreeFixture f;
    tagTVITEM_X record{};
    QCOMPARE(f.control.SetItem(&record), FALSE);
    QCOMPARE(f.control.SetItem(nullptr), FALSE);
    record.hItem = f.blue;
    record.pszText = L"navy";
    QCOMPARE(f.control.SetItem(&record), TRUE);
    QCOMPARE(f.blue->text(0), QStringLiteral("navy"));
    record.pszText = L"";
    f.control.SetItem(&record);
    QCOMPARE(f.blue->text(0), QString());
}

void tst_TreeItems::aSlotMayEndTheItem()
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

void tst_TreeItems::pictures()
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

void tst_TreeItems::picturesBeyondTheList_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("selected");
    QTest::newRow("beyond") << 2 << 0;
    QTest::newRow("selected beyond") << 0 << 7;
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("selected negative") << 0 << -1;
}

void tst_TreeItems::picturesBeyondTheList()
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

void tst_TreeItems::ownPicturesComeFirst()
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

void tst_TreeItems::imagesOfAHostsItem()
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

void tst_TreeItems::imageListsAreCopies()
{
    TreeFixture f;
    Icons icons;
    QCOMPARE(f.control.SetImageList(icons.list, 7).GetImageCount(), 0);
    icons.list.Remove(0);
    QCOMPARE(f.control.GetImageList(3u).GetImageCount(), 2);
    QCOMPARE(f.control.SetImageList(icons.list, 7).GetImageCount(), 2);
}

void tst_TreeItems::numbers()
{
    TreeFixture f;
    QCOMPARE(f.control.GetItemData(f.red), 0ull);
    QCOMPARE(f.control.SetItemData(f.red, 0xFFFFFFFFFFFFFFFFull), TRUE);
    QCOMPARE(f.control.GetItemData(f.red), 0xFFFFFFFFFFFFFFFFull);
    QCOMPARE(f.red->data(0, 257).toULongLong(), 0xFFFFFFFFFFFFFFFFull);
}

void tst_TreeItems::bits_data()
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

void tst_TreeItems::bits()
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

void tst_TreeItems::bitsAreSilent()
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

void tst_TreeItems::boxesByState_data()
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

void tst_TreeItems::boxesByState()
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

void tst_TreeItems::boxes()
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

void tst_TreeItems::boxesOfItemsToCome()
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

void tst_TreeItems::nothingForNoItem_data()
{
    QTest::addColumn<HTREEITEM>("item");
    QTest::newRow("null") << HTREEITEM(nullptr);
    QTest::newRow("root") << TVI_ROOT;
    QTest::newRow("first") << TVI_FIRST;
    QTest::newRow("last") << TVI_LAST;
    QTest::newRow("sorted") << TVI_SORT;
}

void tst_TreeItems::nothingForNoItem()
{
    QFETCH(HTREEITEM, item);
    TreeFixture f;
    int image = 3;
    CRect rect;
    QCOMPARE(f.control.SetItem(item, 0, L"x", 0, 0, 0, 0, 0), FALSE);
    QCOMPARE(f.control.SetItemText(item, L"x"), FALSE);
    QCOMPARE(textOf(f.control.GetItemText(item)), QString());
    QCOMPARE(f.control.SetItemImage(item, 0, 0), FALSE);
    QCOMPARE(f.control.GetItemImage(item, image, image), FALSE);
    QCOMPARE(f.control.SetItemData(item, 1), FALSE);
    QCOMPARE(f.control.GetItemData(item), 0ull);
    QCOMPARE(f.control.SetItemState(item, 2, 2), FALSE);
    QCOMPARE(f.control.GetItemState(item, 2), 0u);
    QCOMPARE(f.control.GetCheck(item), FALSE);
    QCOMPARE(f.control.SetCheck(item), FALSE);
    QCOMPARE(f.control.ItemHasChildren(item), FALSE);
    QCOMPARE(f.control.GetParentItem(item), nullptr);
    QCOMPARE(f.control.GetNextSiblingItem(item), nullptr);
    QCOMPARE(f.control.GetPrevSiblingItem(item), nullptr);
    QCOMPARE(f.control.GetNextItem(item, TVGN_NEXT), nullptr);
    QCOMPARE(f.control.GetNextVisibleItem(item), nullptr);
    QCOMPARE(f.control.EnsureVisible(item), FALSE);
    QCOMPARE(f.control.SelectItem(item), FALSE);
    QCOMPARE(f.control.Select(item, TVGN_CARET), FALSE);
    QCOMPARE(f.control.SelectDropTarget(item), FALSE);
    QCOMPARE(f.control.EditLabel(item), FALSE);
    QCOMPARE(f.control.Expand(item, TVE_EXPAND), FALSE);
    QCOMPARE(f.control.ExpandAllChild(item, TVE_EXPAND), FALSE);
    QVERIFY(f.control.CreateDragImage(item).isNull());
    QCOMPARE(f.control.GetItemRect(item, &rect, FALSE), FALSE);
    if (item != TVI_ROOT)
        QCOMPARE(f.control.SortChildren(item), FALSE);
}

void tst_TreeItems::itemsOfAnotherTree()
{
    TreeFixture f;
    TreeFixture other;
    QCOMPARE(f.control.SetItemText(other.red, L"x"), FALSE);
    QCOMPARE(f.control.DeleteItem(other.red), FALSE);
    QCOMPARE(f.control.GetNextSiblingItem(other.red), nullptr);
    QCOMPARE(other.text(), QStringLiteral("tools (drill (bit) saw) paint (red blue) glue"));
    QTreeWidgetItem loose;
    QCOMPARE(f.control.SelectItem(&loose), FALSE);
}

void tst_TreeItems::withoutWidget()
{
    CTreeCtrl_X control;
    QTreeWidgetItem loose;
    tagTVINSERTSTRUCT_X record{};
    QCOMPARE(control.InsertItem(L"x"), nullptr);
    QCOMPARE(control.InsertItem(L"x", 0, 0, &loose), nullptr);
    QCOMPARE(control.InsertItem(&record), nullptr);
    QCOMPARE(control.DeleteItem(&loose), FALSE);
    QCOMPARE(control.DeleteItem(nullptr), TRUE);
    QCOMPARE(control.DeleteAllItems(), FALSE);
    QCOMPARE(control.SetItemText(&loose, L"x"), FALSE);
    QCOMPARE(control.SortChildren(TVI_ROOT), FALSE);
    control.AppendItemImage(picture(Qt::red));
    QCOMPARE(control.itemImages.size(), 1);
}

XE_TEST(tst_TreeItems)

#include "tst_treeitems.moc"
