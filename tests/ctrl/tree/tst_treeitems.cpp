// Tree controls: making and ending items, their texts and numbers.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

#include <QLabel>

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
    void setItemByRecord();
    void numbers();
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

void tst_TreeItems::numbers()
{
    TreeFixture f;
    QCOMPARE(f.control.GetItemData(f.red), 0ull);
    QCOMPARE(f.control.SetItemData(f.red, 0xFFFFFFFFFFFFFFFFull), TRUE);
    QCOMPARE(f.control.GetItemData(f.red), 0xFFFFFFFFFFFFFFFFull);
    QCOMPARE(f.red->data(0, 257).toULongLong(), 0xFFFFFFFFFFFFFFFFull);
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
