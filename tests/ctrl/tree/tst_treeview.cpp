// Tree controls: relations, walks, commands, the screen.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>

namespace {

CPoint centre(const QTreeWidget& tree, HTREEITEM item)
{
    const QPoint point = tree.visualItemRect(item).center();
    return {point.x(), point.y()};
}

// What GetVisibleCount() is told to give, asked of the view item by item.
UINT visibleByRects(QTreeWidget& tree)
{
    UINT count = 0;
    for (QTreeWidgetItemIterator it(&tree); *it; ++it)
        count += !tree.visualItemRect(*it).isEmpty();
    return count;
}

} // namespace

class tst_TreeView : public QObject
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
    void selectItem();
    void selectGoesByOneCode();
    void ensureVisible();
    void dropTarget();
    void hitTest();
    void placesOfTheClientArea();
    void itemRect();
    void editLabel();
    void editLabelOfAnItemThatCannotBeEdited();
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
    void dragImage();
    void createHidesTheHeader();
    void createLeavesOutTheScrollBars();
    void wrapperOfAForeignTree();
    void clickReachesTree();
    void withoutWidget();
    void manyItems();
};

void tst_TreeView::relations()
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

void tst_TreeView::rootOfAnEmptyTree()
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

void tst_TreeView::siblings()
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

void tst_TreeView::siblingsAfterChanges()
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

void tst_TreeView::nextItemGoesByOneBit_data()
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

void tst_TreeView::nextItemGoesByOneBit()
{
    QFETCH(UINT, code);
    QFETCH(bool, isNext);
    TreeFixture f;
    QCOMPARE(f.control.GetNextItem(f.paint, code), isNext ? f.glue : nullptr);
    QCOMPARE(f.control.GetNextItem(f.glue, code), nullptr);
}

void tst_TreeView::visibleItems()
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

void tst_TreeView::visibleCount_data()
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

void tst_TreeView::visibleCount()
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

void tst_TreeView::countAndIndex()
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

void tst_TreeView::selectItem()
{
    TreeFixture f;
    QSignalSpy current(&f.tree, &QTreeWidget::currentItemChanged);
    QCOMPARE(f.control.SelectItem(f.saw), TRUE);
    QCOMPARE(f.control.GetSelectedItem(), f.saw);
    QVERIFY(f.saw->isSelected());
    QCOMPARE(current.size(), 1);
    QCOMPARE(f.control.GetItemState(f.saw, TVIS_SELECTED), TVIS_SELECTED);
    f.control.SelectItem(f.red);
    QCOMPARE(f.control.GetItemState(f.saw, TVIS_SELECTED), TVIS_SELECTED); // the old one keeps its bit
    connect(&f.tree, &QTreeWidget::currentItemChanged, &f.tree, [&f](QTreeWidgetItem* item) {
        if (item == f.glue)
            delete f.glue;
    });
    QCOMPARE(f.control.SelectItem(f.glue), TRUE);
    QCOMPARE(f.control.GetCount(), 7u);
}

void tst_TreeView::selectGoesByOneCode()
{
    TreeFixture f;
    QCOMPARE(f.control.Select(f.saw, TVGN_FIRSTVISIBLE), FALSE);
    QCOMPARE(f.control.Select(f.saw, TVGN_DROPHILITE), FALSE);
    QCOMPARE(f.control.GetSelectedItem(), nullptr);
    QCOMPARE(f.control.Select(f.saw, TVGN_CARET), TRUE);
    QCOMPARE(f.control.GetSelectedItem(), f.saw);
}

void tst_TreeView::ensureVisible()
{
    TreeFixture f;
    for (int i = 0; i < 100; ++i)
        f.control.InsertItem(L"more", f.glue);
    f.tree.show();
    const HTREEITEM last = f.glue->child(99);
    QCOMPARE(f.control.EnsureVisible(last), TRUE);
    QVERIFY(f.glue->isExpanded());
    QVERIFY(f.tree.viewport()->rect().contains(f.tree.visualItemRect(last)));
}

void tst_TreeView::dropTarget()
{
    TreeFixture f;
    f.red->setFlags(Qt::ItemIsEnabled);
    QCOMPARE(f.control.SelectDropTarget(f.red), TRUE);
    QCOMPARE(f.red->flags(), Qt::ItemIsEnabled | Qt::ItemIsDropEnabled);
}

void tst_TreeView::hitTest()
{
    TreeFixture f;
    f.tree.show();
    UINT flags = 0;
    QCOMPARE(f.control.HitTest(centre(f.tree, f.paint), &flags), f.paint);
    QCOMPARE(flags, 70u);
    flags = 0;
    QCOMPARE(f.control.HitTest(CPoint(10, 280), &flags), nullptr);
    QCOMPARE(flags, 70u); // though there is nothing
    QCOMPARE(f.control.HitTest(centre(f.tree, f.glue)), f.glue);
}

void tst_TreeView::placesOfTheClientArea()
{
    TreeFixture f;
    f.tree.setHeaderHidden(false);
    f.tree.show();
    CPoint point = centre(f.tree, f.glue);
    f.control.ClientToScreen(&point);
    QCOMPARE(QPoint(point.x, point.y), f.tree.viewport()->mapToGlobal(f.tree.visualItemRect(f.glue).center()));
    f.control.ScreenToClient(&point);
    QCOMPARE(f.control.HitTest(point), f.glue);
}

void tst_TreeView::itemRect()
{
    TreeFixture f;
    f.tree.show();
    const QRect qt = f.tree.visualItemRect(f.paint);
    CRect rect;
    QCOMPARE(f.control.GetItemRect(f.paint, &rect, TRUE), TRUE);
    QCOMPARE(QRect(rect.left, rect.top, rect.Width(), rect.Height()), qt);
    QCOMPARE(f.control.GetItemRect(f.red, &rect, FALSE), TRUE); // below a closed one
    QVERIFY(rect.IsRectEmpty());
    QCOMPARE(f.control.GetItemRect(f.paint, nullptr, FALSE), FALSE);
}

void tst_TreeView::editLabel()
{
    TreeFixture f;
    f.tree.show();
    QVERIFY(!(f.paint->flags() & Qt::ItemIsEditable));
    QCOMPARE(f.control.EditLabel(f.paint), TRUE);
    auto* const editor = f.tree.viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("varnish"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(textOf(f.control.GetItemText(f.paint)), QStringLiteral("varnish"));
    QVERIFY(f.paint->flags() & Qt::ItemIsEditable);
}

void tst_TreeView::editLabelOfAnItemThatCannotBeEdited()
{
    TreeFixture f;
    f.tree.show();
    connect(&f.tree, &QTreeWidget::itemChanged, &f.tree, [&f](QTreeWidgetItem* item) {
        if (item == f.glue)
            delete item;
    });
    QCOMPARE(f.control.EditLabel(f.glue), TRUE);
    QVERIFY(!f.tree.viewport()->findChild<QLineEdit*>());
}

void tst_TreeView::expand_data()
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

void tst_TreeView::expand()
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

void tst_TreeView::expandAllBelow()
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

void tst_TreeView::expandedByTheUser()
{
    TreeFixture f;
    f.tree.show();
    f.tree.setCurrentItem(f.tools);
    QTest::keyClick(&f.tree, Qt::Key_Right);
    QVERIFY(f.tools->isExpanded());
    QCOMPARE(f.control.GetItemState(f.tools, 0), 0u);
}

void tst_TreeView::aSlotMayAddOrEndItems()
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

void tst_TreeView::expandAndCollapseAll()
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

void tst_TreeView::sortChildren()
{
    TreeFixture f;
    for (const wchar_t* text : {L"Zinc", L"ärgyle", L"10", L"9", L"red"})
        f.control.InsertItem(text, f.paint);
    QCOMPARE(f.control.SortChildren(f.paint), TRUE);
    QCOMPARE(TreeFixture::textBelow(*f.paint), QStringLiteral("10 9 Zinc blue red red ärgyle"));
    QCOMPARE(TreeFixture::textBelow(*f.tools), QStringLiteral("drill (bit) saw"));
    QCOMPARE(f.control.SortChildren(f.glue), TRUE);
}

void tst_TreeView::sortTheTopLevel()
{
    TreeFixture f;
    QCOMPARE(f.control.SortChildren(TVI_ROOT), TRUE);
    QCOMPARE(f.text(), QStringLiteral("glue paint (red blue) tools (drill (bit) saw)")); // one level
    QCOMPARE(f.control.SortChildren(nullptr), FALSE);
}

void tst_TreeView::sortKeepsWhatIsExpandedSelectedAndCurrent()
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

void tst_TreeView::sortIsSilent()
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

void tst_TreeView::dragImage()
{
    TreeFixture f;
    f.tree.show();
    QCOMPARE(f.control.CreateDragImage(f.paint).size(), f.tree.visualItemRect(f.paint).size());
    QVERIFY(f.control.CreateDragImage(f.red).isNull()); // has no place
}

void tst_TreeView::createHidesTheHeader()
{
    QWidget parent;
    CTreeCtrl_X control;
    QCOMPARE(control.Create(WS_VISIBLE | TVS_HASBUTTONS, CRect(10, 20, 210, 120), &parent), 1);
    auto* const tree = control.Imp<QTreeWidget>();
    QVERIFY(tree && tree->isHeaderHidden());
    QCOMPARE(tree->geometry(), QRect(10, 20, 200, 100));

    QTreeWidget ofAForm;
    CTreeCtrl_X other;
    other.SubclassWindow(&ofAForm);
    QVERIFY(!ofAForm.isHeaderHidden());
}

void tst_TreeView::createLeavesOutTheScrollBars()
{
    QWidget parent;
    CWnd_X wrapper;
    wrapper.SubclassWindow(&parent);
    const DWORD style = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | TVS_HASLINES;
    const CRect rect(0, 0, 100, 100);
    CTreeCtrl_X controls[6];
    controls[0].Create(style, &parent);
    controls[1].Create(style, rect, &parent);
    controls[2].Create(style, rect, &parent, 17);
    controls[3].Create(style, &wrapper);
    controls[4].Create(style, rect, &wrapper);
    controls[5].Create(style, rect, &wrapper, 17);
    for (const CTreeCtrl_X& control : controls) {
        QCOMPARE(control.GetStyle(), WS_VISIBLE | TVS_HASLINES);
        QCOMPARE(control.GetScrollBarCtrl(SB_VERT), nullptr);
        QVERIFY(control.Imp<QTreeWidget>()->isHeaderHidden());
    }
}

void tst_TreeView::wrapperOfAForeignTree()
{
    TreeFixture f;
    f.control.Detach();
    auto* const control = qobject_cast<CTreeCtrl_X*>(CWnd_X::FromHandle(&f.tree));
    QVERIFY(control && control->IsTemporary());
    QCOMPARE(control->GetRootItem(), f.tools);
    QTreeView view;
    QCOMPARE(f.control.SubclassWindow(&view), 0);
}

void tst_TreeView::clickReachesTree()
{
    TreeFixture f;
    f.tree.show();
    QTest::mouseClick(f.tree.viewport(), Qt::LeftButton, {}, f.tree.visualItemRect(f.paint).center());
    QCOMPARE(f.control.GetSelectedItem(), f.paint);
    QTest::mouseDClick(f.tree.viewport(), Qt::LeftButton, {}, f.tree.visualItemRect(f.paint).center());
    QVERIFY(f.paint->isExpanded());
}

void tst_TreeView::withoutWidget()
{
    CTreeCtrl_X control;
    UINT flags = 5;
    QCOMPARE(control.GetRootItem(), nullptr);
    QCOMPARE(control.GetChildItem(nullptr), nullptr);
    QCOMPARE(control.GetSelectedItem(), nullptr);
    QCOMPARE(control.GetFirstVisibleItem(), nullptr);
    QCOMPARE(control.GetVisibleCount(), 0u);
    QCOMPARE(control.GetCount(), 0u);
    QCOMPARE(control.GetSelectIndex(), -1);
    QCOMPARE(control.HitTest(CPoint(1, 1), &flags), nullptr);
    control.ExpandAll();
    control.CollapseAll();
}

void tst_TreeView::manyItems()
{
    constexpr int count = 100'000;
    QTreeWidget tree;
    CTreeCtrl_X control;
    control.SubclassWindow(&tree);
    QElapsedTimer timer;
    timer.start();
    const HTREEITEM top = control.InsertItem(L"top");
    HTREEITEM last = nullptr;
    CString_X text;
    for (int i = 0; i < count; ++i) {
        text.Format(L"%06d", (i * 7919) % count);
        last = control.InsertItem(text, 0, 0, top, last);
    }
    int walked = 0;
    for (HTREEITEM item = control.GetChildItem(top); item; item = control.GetNextSiblingItem(item))
        ++walked;
    for (HTREEITEM item = last; item; item = control.GetPrevSiblingItem(item))
        ++walked;
    QCOMPARE(walked, 2 * count);
    control.Expand(top, TVE_EXPAND); // Qt takes time by the square to empty a tree after its own expandAll()
    QCOMPARE(control.GetVisibleCount(), static_cast<UINT>(count + 1));
    control.SortChildren(top);
    text.Format(L"%06d", 0);
    QCOMPARE(textOf(control.GetItemText(control.GetChildItem(top))), textOf(text));
    for (int i = 0; i < 1000; ++i)
        control.DeleteItem(top->child(top->childCount() - 1));
    while (const HTREEITEM first = control.GetChildItem(top))
        control.DeleteItem(first);
    QCOMPARE(control.GetCount(), 1u);
    QVERIFY2(timer.elapsed() < 30'000, "a step takes time by the square of the items");
}

XE_TEST(tst_TreeView)

#include "tst_treeview.moc"
