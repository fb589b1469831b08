// List controls: sorting, finding, places on the screen.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QLineEdit>

namespace {

struct Call
{
    LPARAM first;
    LPARAM second;
    LPARAM data;
};

QVector<Call> calls;
int answer = 0;

int compare(LPARAM first, LPARAM second, LPARAM data)
{
    calls.append({first, second, data});
    return answer;
}

/// Notes what is repainted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region().boundingRect();
        return false;
    }
    QVector<QRect> painted;
};

CPoint centre(const QTableWidget& table, int row, int column)
{
    const QPoint point = table.visualItemRect(table.item(row, column)).center();
    return {point.x(), point.y()};
}

} // namespace

class tst_ListView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void sortAsksOnce_data();
    void sortAsksOnce();
    void sortWithoutFunction();
    void findLooksAtTheRowAbove_data();
    void findLooksAtTheRowAbove();
    void findNeedsTextAndPlace();
    void hitTest();
    void subItemHitTest();
    void placesOfTheClientArea();
    void itemRect();
    void redrawItems_data();
    void redrawItems();
    void ensureVisible();
    void editLabel();
    void editLabelThatDoesNotBegin();
    void topIndexAndPage();
    void extendedStyle();
    void groundColor();
    void withoutWidget();
};

void tst_ListView::sortAsksOnce_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("then");
    QTest::newRow("above: ascending") << 1 << QStringLiteral("Zoll anker b ä");
    QTest::newRow("far above: ascending") << 500 << QStringLiteral("Zoll anker b ä");
    QTest::newRow("equal: descending") << 0 << QStringLiteral("ä b anker Zoll");
    QTest::newRow("below: descending") << -1 << QStringLiteral("ä b anker Zoll");
}

void tst_ListView::sortAsksOnce()
{
    QFETCH(int, answer);
    ListFixture f(0, 1);
    for (const wchar_t* text : {L"b", L"ä", L"Zoll", L"anker"})
        f.list.InsertItem(0, text);
    for (const bool isEx : {false, true}) {
        calls.clear();
        ::answer = answer;
        QCOMPARE(isEx ? f.list.SortItemsEx(compare, 7) : f.list.SortItems(compare, 7), TRUE);
        QTEST(f.column(), "then");
        QCOMPARE(calls.size(), 1);
        QVERIFY(calls[0].first == 1 && calls[0].second == 0 && calls[0].data == 0);
    }
}

void tst_ListView::sortWithoutFunction()
{
    ListFixture f(0, 2);
    QCOMPARE(f.list.SortItems(nullptr, 0), TRUE);
    for (const wchar_t* text : {L"b", L"a"})
        f.list.InsertItem(0, text);
    f.list.SetItemData(1, 22); // b
    f.list.SetItemText(1, 1, L"of b");
    QCOMPARE(f.list.SortItems(nullptr, 0), TRUE);
    f.list.SortItems([](LPARAM, LPARAM, LPARAM) { return -1; }, 0);
    QCOMPARE(f.column(), QStringLiteral("b a"));
    QCOMPARE(f.list.GetItemData(0), 22ull); // whole rows move
    QCOMPARE(f.column(1), QStringLiteral("of b -"));
}

void tst_ListView::findLooksAtTheRowAbove_data()
{
    QTest::addColumn<int>("rowAtPoint");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("found");
    QTest::newRow("the row above") << 3 << QStringLiteral("r2c0") << -1 << 2;
    QTest::newRow("start at it") << 3 << QStringLiteral("r2c0") << 2 << 2;
    QTest::newRow("start behind it") << 3 << QStringLiteral("r2c0") << 3 << -1;
    QTest::newRow("the row itself") << 3 << QStringLiteral("r3c0") << -1 << -1;
    QTest::newRow("another case") << 3 << QStringLiteral("R2C0") << -1 << -1;
    QTest::newRow("a part") << 3 << QStringLiteral("r2") << -1 << -1;
    QTest::newRow("nothing above the first") << 0 << QStringLiteral("r0c0") << -1 << -1;
}

void tst_ListView::findLooksAtTheRowAbove()
{
    QFETCH(int, rowAtPoint);
    QFETCH(QString, text);
    QFETCH(int, start);
    ListFixture f;
    f.table.show();
    const CString_X wide(text);
    tagLVFINDINFOW info{};
    info.flags = LVFI_STRING;
    info.psz = wide;
    info.pt = centre(f.table, rowAtPoint, 1);
    QTEST(f.list.FindItem(&info, start), "found");
}

void tst_ListView::findNeedsTextAndPlace()
{
    ListFixture f;
    f.table.show();
    tagLVFINDINFOW info{};
    info.flags = LVFI_STRING;
    info.pt = centre(f.table, 3, 0);
    QCOMPARE(f.list.FindItem(&info), -1); // no text
    info.psz = L"r2c0";
    QCOMPARE(f.list.FindItem(&info), 2);
    info.flags = 1;
    QCOMPARE(f.list.FindItem(&info), -1);
    info.flags = LVFI_STRING;
    info.pt = {390, 290};
    QCOMPARE(f.list.FindItem(&info), -1);
    QCOMPARE(f.list.FindItem(nullptr), -1);
}

void tst_ListView::hitTest()
{
    ListFixture f;
    f.table.show();
    UINT flags = 77;
    QCOMPARE(f.list.HitTest(centre(f.table, 2, 1), &flags), 2);
    QCOMPARE(flags, 77u);
    QCOMPARE(f.list.HitTest(CPoint(390, 290), &flags), -1);
    QCOMPARE(f.list.HitTest(centre(f.table, 0, 0)), 0);
    delete f.table.takeItem(2, 1);
    f.table.setItem(2, 1, nullptr);
    const QPoint empty = f.table.visualRect(f.table.model()->index(2, 1)).center();
    QCOMPARE(f.list.HitTest(CPoint(empty.x(), empty.y())), -1); // a cell without an item
}

void tst_ListView::subItemHitTest()
{
    ListFixture f;
    f.table.show();
    tagLVHITTESTINFO info{};
    info.pt = centre(f.table, 4, 2);
    QCOMPARE(f.list.SubItemHitTest(&info), 4);
    QCOMPARE(info.flags, LVHT_ONITEM);
    QCOMPARE(info.iItem, 4);
    QCOMPARE(info.iSubItem, 2);
    info.pt = {390, 290};
    QCOMPARE(f.list.SubItemHitTest(&info), -1);
    QCOMPARE(info.iItem, 4);
    QCOMPARE(f.list.SubItemHitTest(nullptr), -1);
}

// What a handler of a click does: the point on the screen, then the row there.
void tst_ListView::placesOfTheClientArea()
{
    ListFixture f;
    f.table.show();
    CRect rect;
    QVERIFY(f.list.GetItemRect(0, &rect, LVIR_BOUNDS));
    QCOMPARE(rect.top, 0); // the header is above the client area
    CPoint point(rect.left + 2, rect.top + 2);
    f.list.ClientToScreen(&point);
    QCOMPARE(QPoint(point.x, point.y), f.table.viewport()->mapToGlobal(QPoint(rect.left + 2, rect.top + 2)));
    f.list.ScreenToClient(&point);
    QCOMPARE(f.list.HitTest(point), 0);
}

void tst_ListView::itemRect()
{
    ListFixture f;
    f.table.show();
    const QRect qt = f.table.visualItemRect(f.table.item(2, 0));
    CRect rect;
    QCOMPARE(f.list.GetItemRect(2, &rect, LVIR_ICON), TRUE);
    QCOMPARE(QRect(rect.left, rect.top, rect.Width(), rect.Height()), qt);
    QCOMPARE(f.list.GetSubItemRect(2, 1, LVIR_LABEL, rect), TRUE);
    QCOMPARE(rect.left, f.table.visualItemRect(f.table.item(2, 1)).left());
    QCOMPARE(f.list.GetItemRect(2, nullptr, LVIR_BOUNDS), FALSE);
    QCOMPARE(f.list.GetItemRect(6, &rect, LVIR_BOUNDS), FALSE);
    QCOMPARE(f.list.GetSubItemRect(2, 3, LVIR_BOUNDS, rect), FALSE);
}

void tst_ListView::redrawItems_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("from"); // rows repainted, -1 for none
    QTest::addColumn<int>("to");
    QTest::newRow("two rows") << 1 << 3 << 1 << 2;
    QTest::newRow("the last is left out") << 3 << 3 << -1 << -1;
    QTest::newRow("beyond the table") << 4 << 100 << 4 << 5;
    QTest::newRow("from below 0") << -5 << 1 << 0 << 0;
    QTest::newRow("reversed") << 4 << 2 << -1 << -1;
}

void tst_ListView::redrawItems()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, from);
    QFETCH(int, to);
    ListFixture f;
    f.table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.table));
    QCoreApplication::processEvents();
    PaintWatch watch(f.table.viewport());
    QCOMPARE(f.list.RedrawItems(first, last), TRUE);
    if (from < 0) {
        QVERIFY(watch.painted.isEmpty());
        return;
    }
    const int top = f.table.rowViewportPosition(from);
    const int bottom = f.table.rowViewportPosition(to) + f.table.rowHeight(to);
    QCOMPARE(watch.painted, QVector<QRect>({QRect(0, top, f.table.viewport()->width(), bottom - top)}));
}

void tst_ListView::ensureVisible()
{
    ListFixture f(100, 1);
    f.table.show();
    QCOMPARE(f.list.EnsureVisible(80, FALSE), TRUE);
    QVERIFY(f.table.viewport()->rect().contains(f.table.visualItemRect(f.table.item(80, 0))));
    delete f.table.takeItem(5, 0);
    QCOMPARE(f.list.EnsureVisible(5, TRUE), TRUE);
    QCOMPARE(f.list.GetTopIndex(), 5);
    QCOMPARE(f.list.EnsureVisible(500, FALSE), TRUE);
    QCOMPARE(f.list.EnsureVisible(-1, FALSE), TRUE);
    QCOMPARE(f.list.GetTopIndex(), 5);
}

void tst_ListView::editLabel()
{
    ListFixture f;
    f.table.show();
    QCOMPARE(f.list.EditLabel(1), TRUE);
    auto* const editor = f.table.viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("renamed"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(textOf(f.list.GetItemText(1, 0)), QStringLiteral("renamed"));
    QCOMPARE(f.list.EditLabel(6), FALSE);
}

// Qt would complain.
void tst_ListView::editLabelThatDoesNotBegin()
{
    ListFixture f;
    f.table.show();
    f.table.item(2, 0)->setFlags(Qt::ItemIsEnabled);
    QCOMPARE(f.list.EditLabel(2), TRUE);
    QVERIFY(!f.table.viewport()->findChild<QLineEdit*>());
    QCOMPARE(f.list.EditLabel(1), TRUE);
    QCOMPARE(f.list.EditLabel(1), TRUE);
    QCOMPARE(f.list.EditLabel(3), TRUE);
    QCOMPARE(f.table.viewport()->findChildren<QLineEdit*>().size(), 1);
}

void tst_ListView::topIndexAndPage()
{
    ListFixture f(100, 1);
    f.table.verticalHeader()->setMinimumSectionSize(10);
    f.table.verticalHeader()->setDefaultSectionSize(20);
    f.table.show();
    f.table.verticalScrollBar()->setValue(17);
    QCOMPARE(f.list.GetTopIndex(), 17);
    QCOMPARE(f.list.GetCountPerPage(), 15); // 300 pixels, with the header
    f.table.hideRow(0);
    QCOMPARE(f.list.GetCountPerPage(), 0);
    f.list.DeleteAllItems();
    QCOMPARE(f.list.GetCountPerPage(), 0);
}

void tst_ListView::extendedStyle()
{
    ListFixture f;
    QCOMPARE(f.list.GetExtendedStyle(), LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
    f.table.setShowGrid(false);
    QCOMPARE(f.list.GetExtendedStyle(), LVS_EX_FULLROWSELECT);
    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    QCOMPARE(f.list.GetExtendedStyle(), 0u);
    QCOMPARE(f.list.SetExtendedStyle(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES), 1u);
    QCOMPARE(f.list.GetExtendedStyle(), 0u); // neither set, nor the boxes told
}

void tst_ListView::groundColor()
{
    ListFixture f;
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(10, 20, 30));
    f.table.setPalette(palette);
    QCOMPARE(f.list.GetBkColor(), RGB(10, 20, 30));
}

void tst_ListView::withoutWidget()
{
    CListCtrl_X list;
    CRect rect;
    UINT flags = 0;
    tagLVFINDINFOW find{};
    tagLVHITTESTINFO hit{};
    QCOMPARE(list.SortItems(compare, 0), FALSE);
    QCOMPARE(list.FindItem(&find), -1);
    QCOMPARE(list.HitTest(CPoint(1, 1), &flags), -1);
    QCOMPARE(list.SubItemHitTest(&hit), -1);
    QCOMPARE(list.GetItemRect(0, &rect, 0), FALSE);
    QCOMPARE(list.GetSubItemRect(0, 0, 0, rect), FALSE);
    QCOMPARE(list.RedrawItems(0, 1), FALSE);
    QCOMPARE(list.EnsureVisible(0, FALSE), FALSE);
    QCOMPARE(list.EditLabel(0), FALSE);
    QCOMPARE(list.GetTopIndex(), 0);
    QCOMPARE(list.GetCountPerPage(), 0);
    QVERIFY(list.CreateDragImage(0, nullptr).isNull());
}

XE_TEST(tst_ListView)

#include "tst_listview.moc"
