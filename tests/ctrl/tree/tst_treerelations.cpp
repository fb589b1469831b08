// Tree controls: which item stands where, and what shows.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

namespace {

// What GetVisibleCount() is told to give, asked of the view item by item.
UINT visibleByRects(QTreeWidget& tree)
{
    UINT count = 0;
    for (QTreeWidgetItemIterator it(&tree); *it; ++it)
        count += !tree.visualItemRect(*it).isEmpty();
    return count;
}

} // namespace

class tst_TreeRelations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void relations();
    void rootOfAnEmptyTree();
    void siblings();
    void siblingsAfterChanges();
    void nextItemGoesByOneBit_data();
    void nextItemGoesByOneBit();
    void visibleItems();
    void visibleCount_data();
    void visibleCount();
    void countAndIndex();
};

void tst_TreeRelations::relations()
{
    TreeFixture f;
    QCOMPARE(f.control.GetRootItem(), f.tools);
    QCOMPARE(f.control.GetParentItem(f.bit), f.drill);
    QCOMPARE(f.control.GetParentItem(f.tools), nullptr);
    QCOMPARE(f.control.GetChildItem(f.tools), f.drill);
    QCOMPARE(f.control.GetChildItem(f.glue), nullptr);
    QCOMPARE(f.control.GetChildItem(nullptr), f.tools);
    QCOMPARE(f.control.GetChildItem(TVI_ROOT), f.tools);
    QCOMPARE(f.control.ItemHasChildren(f.tools), TRUE);
    QCOMPARE(f.control.ItemHasChildren(f.saw), FALSE);
    QCOMPARE(f.control.GetSelectedItem(), nullptr);
}

void tst_TreeRelations::rootOfAnEmptyTree()
{
    QTreeWidget tree;
    CTreeCtrl_X control;
    control.SubclassWindow(&tree);
    QCOMPARE(control.GetRootItem(), tree.invisibleRootItem());
    QCOMPARE(control.GetChildItem(nullptr), nullptr);
    QCOMPARE(control.GetParentItem(control.GetRootItem()), nullptr);
    QCOMPARE(control.GetNextSiblingItem(control.GetRootItem()), nullptr);
    QCOMPARE(control.GetFirstVisibleItem(), nullptr);
    QCOMPARE(control.GetCount(), 0u);
    QCOMPARE(control.GetVisibleCount(), 0u);
    QCOMPARE(control.GetSelectIndex(), -1);
}

void tst_TreeRelations::siblings()
{
    TreeFixture f;
    QCOMPARE(f.control.GetNextSiblingItem(f.tools), f.paint);
    QCOMPARE(f.control.GetNextSiblingItem(f.paint), f.glue);
    QCOMPARE(f.control.GetNextSiblingItem(f.glue), nullptr);
    QCOMPARE(f.control.GetNextSiblingItem(f.bit), nullptr);
    QCOMPARE(f.control.GetNextSiblingItem(f.drill), f.saw);
    QCOMPARE(f.control.GetPrevSiblingItem(f.saw), f.drill);
    QCOMPARE(f.control.GetPrevSiblingItem(f.drill), nullptr);
    QCOMPARE(f.control.GetPrevSiblingItem(f.glue), f.paint);
    QCOMPARE(f.control.GetPrevSiblingItem(f.tools), nullptr);
}

void tst_TreeRelations::siblingsAfterChanges()
{
    TreeFixture f;
    QCOMPARE(f.control.GetNextSiblingItem(f.paint), f.glue);
    f.tree.insertTopLevelItem(0, new QTreeWidgetItem(QStringList(QStringLiteral("new"))));
    QCOMPARE(f.control.GetNextSiblingItem(f.paint), f.glue);
    QCOMPARE(f.control.GetPrevSiblingItem(f.tools)->text(0), QStringLiteral("new"));
    f.control.DeleteItem(f.tools);
    QCOMPARE(f.control.GetNextSiblingItem(f.paint), f.glue);
    f.control.DeleteItem(f.glue);
    QCOMPARE(f.control.GetNextSiblingItem(f.paint), nullptr);
}

void tst_TreeRelations::nextItemGoesByOneBit_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<bool>("isNext");
    QTest::newRow("root") << TVGN_ROOT << false;
    QTest::newRow("next") << TVGN_NEXT << true;
    QTest::newRow("previous") << TVGN_PREVIOUS << false;
    QTest::newRow("parent") << TVGN_PARENT << true;
    QTest::newRow("child") << TVGN_CHILD << false;
    QTest::newRow("first visible") << TVGN_FIRSTVISIBLE << true;
    QTest::newRow("next visible") << TVGN_NEXTVISIBLE << false;
    QTest::newRow("caret") << TVGN_CARET << true;
}

void tst_TreeRelations::nextItemGoesByOneBit()
{
    QFETCH(UINT, code);
    QFETCH(bool, isNext);
    TreeFixture f;
    QCOMPARE(f.control.GetNextItem(f.paint, code), isNext ? f.glue : nullptr);
    QCOMPARE(f.control.GetNextItem(f.glue, code), nullptr);
}

void tst_TreeRelations::visibleItems()
{
    TreeFixture f;
    f.tree.show();
    QCOMPARE(f.control.GetFirstVisibleItem(), f.tools);
    QCOMPARE(f.control.GetNextVisibleItem(f.tools), f.paint);
    f.control.Expand(f.tools, TVE_EXPAND);
    QCOMPARE(f.control.GetNextVisibleItem(f.tools), f.drill);
    QCOMPARE(f.control.GetNextVisibleItem(f.drill), f.saw);
    QCOMPARE(f.control.GetNextVisibleItem(f.glue), nullptr);
    f.tree.resize(300, 40);
    f.tree.verticalScrollBar()->setValue(2);
    QCOMPARE(f.control.GetFirstVisibleItem(), f.saw);
}

void tst_TreeRelations::visibleCount_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("closed") << 0;
    QTest::newRow("one open") << 1;
    QTest::newRow("all open") << 2;
    QTest::newRow("a child of a closed parent open") << 3;
    QTest::newRow("one hidden with what is below it") << 4;
    QTest::newRow("more than fit into the view") << 5;
    QTest::newRow("column narrower than the indentation") << 6;
    QTest::newRow("column hidden") << 7;
    QTest::newRow("a spanned row in a narrow column") << 8;
    QTest::newRow("no decoration at the root") << 9;
    QTest::newRow("a root of its own") << 10;
    QTest::newRow("the tree drawn in another column") << 11;
    QTest::newRow("another column hidden") << 12;
    QTest::newRow("only another column shown") << 13;
    QTest::newRow("column as wide as the indentation") << 14;
}

void tst_TreeRelations::visibleCount()
{
    QFETCH(int, kind);
    TreeFixture f;
    f.tree.setColumnCount(kind > 10 && kind < 14 ? 2 : 1);
    f.tree.header()->setStretchLastSection(false);
    f.tree.show();
    if (kind > 1)
        f.tree.expandAll();
    switch (kind) {
    case 1:
        f.tools->setExpanded(true);
        break;
    case 3:
        f.tools->setExpanded(false);
        break;
    case 4:
        f.drill->setHidden(true);
        break;
    case 5:
        f.tree.resize(300, 30);
        f.tree.verticalScrollBar()->setValue(3);
        break;
    case 6:
    case 8:
    case 9:
    case 11:
    case 12:
    case 13:
    case 14:
        f.tree.header()->setMinimumSectionSize(5);
        f.tree.setColumnWidth(0, 2 * f.tree.indentation() + 1);
        f.red->setFirstColumnSpanned(kind == 8);
        f.bit->setFirstColumnSpanned(kind == 8);
        f.tree.setRootIsDecorated(kind != 9);
        if (kind == 11)
            f.tree.setTreePosition(1);
        if (kind == 14)
            f.tree.setColumnWidth(0, 2 * f.tree.indentation());
        f.tree.setColumnHidden(1, kind == 12);
        f.tree.setColumnHidden(0, kind == 13);
        break;
    case 7:
        f.tree.setColumnHidden(0, true);
        break;
    case 10:
        f.tree.setRootIndex(f.tree.model()->index(0, 0));
        break;
    default:
        break;
    }
    QCOMPARE(f.control.GetVisibleCount(), visibleByRects(f.tree));
    if (kind == 0)
        QCOMPARE(f.control.GetVisibleCount(), 3u);
    if (kind == 2)
        QCOMPARE(f.control.GetVisibleCount(), 8u);
}

void tst_TreeRelations::countAndIndex()
{
    TreeFixture f;
    QCOMPARE(f.control.GetCount(), 8u);
    QCOMPARE(f.control.GetSelectIndex(), -1);
    const HTREEITEM inOrder[] = {f.tools, f.drill, f.bit, f.saw, f.paint, f.red, f.blue, f.glue};
    for (int i = 0; i < 8; ++i) {
        f.tree.setCurrentItem(inOrder[i]);
        QCOMPARE(f.control.GetSelectIndex(), i);
    }
}

XE_TEST(tst_TreeRelations)
#include "tst_treerelations.moc"
