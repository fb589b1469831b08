// Tree controls: expanding, collapsing, sorting.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

#include <QSignalSpy>

class tst_TreeSorting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void expand_data();
    void expand();
    void expandAllBelow();
    void expandedByTheUser();
    void aSlotMayAddOrEndItems();
    void expandAndCollapseAll();
    void sortChildren();
    void sortTheTopLevel();
    void sortKeepsWhatIsExpandedSelectedAndCurrent();
    void sortIsSilent();
};

void tst_TreeSorting::expand_data()
{
    QTest::addColumn<bool>("wasExpanded");
    QTest::addColumn<UINT>("code");
    QTest::addColumn<bool>("isExpanded");
    QTest::newRow("expand") << false << TVE_EXPAND << true;
    QTest::newRow("collapse") << true << TVE_COLLAPSE << false;
    QTest::newRow("toggle expands") << false << TVE_TOGGLE << true;
    QTest::newRow("toggle leaves expanded") << true << TVE_TOGGLE << true;
    QTest::newRow("no code expands") << false << 0u << true;
    QTest::newRow("collapse with another bit") << true << (TVE_COLLAPSE | 0x8000u) << false;
}

void tst_TreeSorting::expand()
{
    QFETCH(bool, wasExpanded);
    QFETCH(UINT, code);
    TreeFixture f;
    f.tools->setExpanded(wasExpanded);
    f.tools->setData(0, 260, 1u);
    QCOMPARE(f.control.Expand(f.tools, code), TRUE);
    QTEST(f.tools->isExpanded(), "isExpanded");
    QCOMPARE(f.control.GetItemState(f.tools, 0), TVIS_EXPANDED); // either way
}

void tst_TreeSorting::expandAllBelow()
{
    TreeFixture f;
    QCOMPARE(f.control.ExpandAllChild(f.tools, TVE_EXPAND), TRUE);
    QVERIFY(f.tools->isExpanded() && f.drill->isExpanded());
    QVERIFY(!f.bit->isExpanded() && !f.paint->isExpanded());
    QCOMPARE(f.control.GetItemState(f.drill, 0), TVIS_EXPANDED);
    QCOMPARE(f.control.GetItemState(f.saw, 0), 0u); // has no children
    f.tree.show();
    QCOMPARE(f.control.GetVisibleCount(), 6u);
    QCOMPARE(f.control.ExpandAllChild(f.tools, TVE_COLLAPSE), TRUE);
    QVERIFY(!f.tools->isExpanded() && !f.drill->isExpanded());
    QCOMPARE(f.control.ExpandAllChild(f.glue, TVE_EXPAND), TRUE);
    QVERIFY(!f.glue->isExpanded());
}

void tst_TreeSorting::expandedByTheUser()
{
    TreeFixture f;
    f.tree.show();
    f.tree.setCurrentItem(f.tools);
    QTest::keyClick(&f.tree, Qt::Key_Right);
    QVERIFY(f.tools->isExpanded());
    QCOMPARE(f.control.GetItemState(f.tools, 0), 0u);
}

void tst_TreeSorting::aSlotMayAddOrEndItems()
{
    TreeFixture f;
    connect(&f.tree, &QTreeWidget::itemExpanded, &f.tree, [&f](QTreeWidgetItem* item) {
        if (item == f.drill) {
            f.control.InsertItem(L"more", f.control.InsertItem(L"late", f.drill));
        } else if (item == f.paint) {
            delete f.paint;
        }
    });
    f.control.ExpandAllChild(f.tools, TVE_EXPAND);
    QVERIFY(f.drill->child(1)->isExpanded());
    QCOMPARE(f.control.Expand(f.paint, TVE_EXPAND), TRUE);
    QCOMPARE(f.text(), QStringLiteral("tools (drill (bit late (more)) saw) glue"));
}

void tst_TreeSorting::expandAndCollapseAll()
{
    TreeFixture f;
    f.control.SetItemState(f.paint, 3, 3);
    f.control.ExpandAll();
    QVERIFY(f.tools->isExpanded() && f.drill->isExpanded() && f.paint->isExpanded());
    QCOMPARE(f.control.GetItemState(f.drill, 0), 32u);
    QCOMPARE(f.control.GetItemState(f.paint, 0), 34u);
    QCOMPARE(f.control.GetItemState(f.glue, 0), 0u);
    f.control.CollapseAll();
    QVERIFY(!f.tools->isExpanded() && !f.drill->isExpanded() && !f.paint->isExpanded());
    QCOMPARE(f.control.GetItemState(f.drill, 0), 1u);
    QCOMPARE(f.control.GetItemState(f.paint, 0), 3u);
}

void tst_TreeSorting::sortChildren()
{
    TreeFixture f;
    for (const wchar_t* text : {L"Zinc", L"ärgyle", L"10", L"9", L"red"})
        f.control.InsertItem(text, f.paint);
    QCOMPARE(f.control.SortChildren(f.paint), TRUE);
    QCOMPARE(TreeFixture::textBelow(*f.paint), QStringLiteral("10 9 Zinc blue red red ärgyle"));
    QCOMPARE(TreeFixture::textBelow(*f.tools), QStringLiteral("drill (bit) saw"));
    QCOMPARE(f.control.SortChildren(f.glue), TRUE);
}

void tst_TreeSorting::sortTheTopLevel()
{
    TreeFixture f;
    QCOMPARE(f.control.SortChildren(TVI_ROOT), TRUE);
    QCOMPARE(f.text(), QStringLiteral("glue paint (red blue) tools (drill (bit) saw)")); // one level
    QCOMPARE(f.control.SortChildren(nullptr), FALSE);
}

void tst_TreeSorting::sortKeepsWhatIsExpandedSelectedAndCurrent()
{
    TreeFixture f;
    f.tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    f.tree.show();
    f.tools->setExpanded(true);
    f.drill->setExpanded(true);
    f.tree.setCurrentItem(f.bit);
    f.glue->setSelected(true);
    f.control.SortChildren(TVI_ROOT);
    QVERIFY(f.tools->isExpanded() && f.drill->isExpanded() && !f.paint->isExpanded());
    QCOMPARE(f.tree.currentItem(), f.bit);
    QVERIFY(f.bit->isSelected() && f.glue->isSelected());
    QCOMPARE(f.tree.selectedItems().size(), 2);
    QCOMPARE(f.control.GetVisibleCount(), 6u);

    f.tree.setCurrentItem(nullptr);
    f.tree.clearSelection();
    f.control.SortChildren(f.tools);
    QVERIFY(f.drill->isExpanded());
    QCOMPARE(f.tree.selectedItems().size(), 0);
}

void tst_TreeSorting::sortIsSilent()
{
    TreeFixture f;
    f.tree.expandAll();
    f.tree.setCurrentItem(f.saw);
    QSignalSpy current(&f.tree, &QTreeWidget::currentItemChanged);
    QSignalSpy selection(&f.tree, &QTreeWidget::itemSelectionChanged);
    QSignalSpy expanded(&f.tree, &QTreeWidget::itemExpanded);
    QSignalSpy collapsed(&f.tree, &QTreeWidget::itemCollapsed);
    f.control.SortChildren(TVI_ROOT);
    QCOMPARE(current.size() + selection.size() + expanded.size() + collapsed.size(), 0);
}

XE_TEST(tst_TreeSorting)
#include "tst_treesorting.moc"
