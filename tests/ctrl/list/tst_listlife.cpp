// List controls: creating, attaching, messages, and lists of many rows.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QElapsedTimer>
#include <QScrollBar>

namespace {

class CPartList : public CListCtrl_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPartList)

public:
    void OnMessageMap() override
    {
        using ThisClass = CPartList;
        CListCtrl_X::OnMessageMap();
        ON_WM_LBUTTONDOWN_X()
        ON_WM_KEYDOWN_X()
    }
    void OnLButtonDown(UINT flags, CPoint point)
    {
        hit = HitTest(point);
        CListCtrl_X::OnLButtonDown(flags, point);
    }
    void OnKeyDown(UINT vk, UINT count, UINT flags)
    {
        key = vk;
        CListCtrl_X::OnKeyDown(vk, count, flags);
    }

    int hit = -2;
    UINT key = 0;
};

IMPLEMENT_DYNCREATE_X(CPartList, CListCtrl_X)

} // namespace

class tst_ListLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void createMakesATable();
    void createLeavesOutTheScrollBars();
    void createUnderAWrapper();
    void wrapperOfAForeignTable();
    void refusesOtherWidgets();
    void attachDetachAndAnotherKind();
    void textIsTheWindows();
    void clickReachesHandlerAndTable();
    void keyReachesHandlerAndTable();
    void wrapperMayGoFirst();
    void manyRows();
    void manyRowsWithGapsSelected();
    void manyRowsSelectedOneByOne();
};

void tst_ListLife::createMakesATable()
{
    QWidget parent;
    CListCtrl_X list;
    QCOMPARE(list.Create(WS_VISIBLE | LVS_REPORT, CRect(10, 20, 210, 120), &parent), 1);
    auto* const table = list.Imp<QTableWidget>();
    QVERIFY(table);
    QCOMPARE(table->parentWidget(), &parent);
    QCOMPARE(table->geometry(), QRect(10, 20, 200, 100));
    QVERIFY(!table->isHidden());
    QCOMPARE(list.GetStyle(), WS_VISIBLE | LVS_REPORT);
    QCOMPARE(list.GetItemCount(), 0);
    QVERIFY(!list.IsExternalImpObj());
}

void tst_ListLife::createLeavesOutTheScrollBars()
{
    QWidget parent;
    CWnd_X wrapper;
    wrapper.SubclassWindow(&parent);
    const DWORD style = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | LVS_REPORT;
    const CRect rect(0, 0, 100, 100);
    CListCtrl_X lists[6];
    lists[0].Create(style, &parent);
    lists[1].Create(style, rect, &parent);
    lists[2].Create(style, rect, &parent, 17);
    lists[3].Create(style, &wrapper);
    lists[4].Create(style, rect, &wrapper);
    lists[5].Create(style, rect, &wrapper, 17);
    for (const CListCtrl_X& list : lists) {
        QCOMPARE(list.GetStyle(), WS_VISIBLE | LVS_REPORT);
        QCOMPARE(list.GetScrollBarCtrl(SB_VERT), nullptr);
        QCOMPARE(list.GetScrollBarCtrl(SB_HORZ), nullptr);
        QCOMPARE(list.GetSafeHwnd()->parentWidget(), &parent);
    }
}

void tst_ListLife::createUnderAWrapper()
{
    CWnd_X window;
    window.Create(0, CRect(0, 0, 300, 300), static_cast<QWidget*>(nullptr));
    {
        CPartList list;
        QCOMPARE(list.Create(WS_VISIBLE, CRect(0, 0, 100, 100), &window), 1);
        QCOMPARE(list.GetParent(), &window);
    }
    window.DestroyWindow();
}

void tst_ListLife::wrapperOfAForeignTable()
{
    QTableWidget table(1, 1);
    const auto* const list = qobject_cast<CListCtrl_X*>(CWnd_X::FromHandle(&table));
    QVERIFY(list);
    QVERIFY(list->IsTemporary());
    QCOMPARE(list->GetItemCount(), 1);
}

void tst_ListLife::refusesOtherWidgets()
{
    QTableView view;
    CListCtrl_X list;
    QCOMPARE(list.SubclassWindow(&view), 0);
    QCOMPARE(list.GetSafeHwnd(), nullptr);
}

void tst_ListLife::attachDetachAndAnotherKind()
{
    ListFixture f;
    f.list.Detach();
    QCOMPARE(f.list.GetItemCount(), -1);
    CWnd_X plain;
    QCOMPARE(plain.SubclassWindow(&f.table), 1);
    QCOMPARE(CWnd_X::FromHandle(&f.table), &plain);
    plain.Detach();
    QTableWidget other(2, 1);
    QCOMPARE(f.list.SubclassWindow(&other), 1);
    QCOMPARE(f.list.GetItemCount(), 2);
    QCOMPARE(f.list.SubclassWindow(&f.table), 1);
    QCOMPARE(f.list.GetItemCount(), 6);
}

void tst_ListLife::textIsTheWindows()
{
    ListFixture f;
    QCOMPARE(SetWindowText_X(&f.table, L"parts"), TRUE);
    QCOMPARE(f.table.windowTitle(), QStringLiteral("parts"));
    CString_X text;
    f.list.GetWindowText(text);
    QCOMPARE(textOf(text), QStringLiteral("parts"));
}

void tst_ListLife::clickReachesHandlerAndTable()
{
    QTableWidget table(5, 1);
    for (int row = 0; row < 5; ++row)
        table.setItem(row, 0, new QTableWidgetItem(QString::number(row)));
    CPartList list;
    list.SubclassWindow(&table);
    table.show();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(3, 0)).center());
    QCOMPARE(list.hit, 3); // the handler's point is in the viewport
    QCOMPARE(table.currentRow(), 3);
}

void tst_ListLife::keyReachesHandlerAndTable()
{
    QTableWidget table(5, 1);
    CPartList list;
    list.SubclassWindow(&table);
    table.show();
    table.setCurrentCell(1, 0);
    QTest::keyClick(&table, Qt::Key_Down);
    QCOMPARE(list.key, static_cast<UINT>(VK_DOWN));
    QCOMPARE(table.currentRow(), 2);
}

void tst_ListLife::wrapperMayGoFirst()
{
    QTableWidget table(3, 1);
    {
        CListCtrl_X list;
        list.SubclassWindow(&table);
        table.selectAll();
        QCOMPARE(list.GetSelectedCount(), 3u);
        list.SetExtendedStyle(LVS_EX_CHECKBOXES);
    }
    table.clearSelection(); // what the wrapper had connected is gone
    table.selectRow(1);
    QCOMPARE(CWnd_X::FromHandlePermanent(&table), nullptr);
}

void tst_ListLife::manyRows()
{
    constexpr int count = 100'000;
    QTableWidget table(0, 2);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    CListCtrl_X list;
    list.SubclassWindow(&table);
    QElapsedTimer timer;
    timer.start();
    CString_X text;
    for (int row = 0; row < count; ++row) {
        text.Format(L"%06d", count - row);
        list.InsertItem(row, text);
        list.SetItemData(row, static_cast<ULONGLONG>(row));
    }
    list.SortItems(nullptr, 0);
    QCOMPARE(list.GetItemData(0), static_cast<ULONGLONG>(count - 1));
    table.selectAll();
    long long sum = 0;
    for (POSITION position = list.GetFirstSelectedItemPosition(); position;)
        sum += list.GetNextSelectedItem(position);
    QCOMPARE(sum, static_cast<long long>(count) * (count - 1) / 2);
    list.DeleteAllItems();
    QCOMPARE(list.GetItemCount(), 0);
    QVERIFY2(timer.elapsed() < 30'000, "a step takes time by the square of the rows");
}

void tst_ListLife::manyRowsWithGapsSelected()
{
    constexpr int count = 100'000;
    QTableWidget table(count, 2);
    CListCtrl_X list;
    list.SubclassWindow(&table);
    QItemSelection everySecond;
    for (int row = 0; row < count; row += 2)
        everySecond.append(QItemSelectionRange(table.model()->index(row, 0), table.model()->index(row, 1)));
    table.selectionModel()->select(everySecond, QItemSelectionModel::ClearAndSelect);
    QElapsedTimer timer;
    timer.start();
    int walked = 0;
    for (POSITION position = list.GetFirstSelectedItemPosition(); position; ++walked)
        list.GetNextSelectedItem(position);
    QCOMPARE(walked, count / 2);
    int selected = 0;
    for (int row = 0; row < count; ++row)
        selected += list.GetItemState(row, LVIS_SELECTED) == LVIS_SELECTED;
    QCOMPARE(selected, count / 2);
    QVERIFY2(timer.elapsed() < 10'000, "a step takes time by the square of the rows");
}

void tst_ListLife::manyRowsSelectedOneByOne()
{
    constexpr int count = 100'000;
    QTableWidget table(count, 2);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::MultiSelection);
    CListCtrl_X list;
    list.SubclassWindow(&table);
    QElapsedTimer timer;
    timer.start();
    for (int row = 0; row < count; ++row)
        list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    QCOMPARE(list.GetSelectedCount(), static_cast<UINT>(count));
    QVERIFY2(timer.elapsed() < 30'000, "a step takes time by the square of the rows");
}

XE_TEST(tst_ListLife)

#include "tst_listlife.moc"
