// Tree controls: the widget, what is selected, edited and on the screen.

#include "leavenothing.h"
#include "testclass.h"
#include "tree/treefixture.h"

#include <XeMFCEmu.h>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

CPoint centre(const QTreeWidget& tree, HTREEITEM item)
{
    const QPoint point = tree.visualItemRect(item).center();
    return {point.x(), point.y()};
}

} // namespace

class tst_TreeView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void selectItem();
    void selectGoesByOneCode();
    void ensureVisible();
    void dropTarget();
    void hitTest();
    void placesOfTheClientArea();
    void itemRect();
    void editLabel();
    void editLabelTwice();
    void editLabelOfAnItemThatCannotBeEdited();
    void dragImage();
    void createHidesTheHeader();
    void createLeavesOutTheScrollBars();
    void wrapperOfAForeignTree();
    void clickReachesTree();
    void withoutWidget();
    void manyItems();
};

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

// What is open stays, and Qt is given no reason to complain.
void tst_TreeView::editLabelTwice()
{
    TreeFixture f;
    f.tree.show();
    QCOMPARE(f.control.EditLabel(f.paint), TRUE);
    auto* const editor = f.tree.viewport()->findChild<QLineEdit*>();
    editor->setText(QStringLiteral("varnish"));
    QCOMPARE(f.control.EditLabel(f.paint), TRUE);
    QCOMPARE(f.control.EditLabel(f.glue), TRUE);
    QCOMPARE(f.tree.viewport()->findChildren<QLineEdit*>(), QList<QLineEdit*>{editor});
    QCOMPARE(editor->text(), QStringLiteral("varnish"));
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
