// Header controls.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QScreen>
#include <QSignalSpy>
#include <QStyle>
#include <QTableWidget>

#include <climits>

namespace {

/// The header of a table of three columns, 50, 60 and 70 pixels wide, wrapped.
struct Header
{
    Header()
    {
        table.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Stock"), QStringLiteral("Price €")});
        for (int column = 0; column < 3; ++column)
            table.setColumnWidth(column, 50 + 10 * column);
        table.resize(400, 200);
        table.show();
        control.SubclassWindow(view);
    }

    QTableWidget table{2, 3};
    QHeaderView* const view = table.horizontalHeader();
    CHeaderCtrl_X control;
};

_HD_ITEMW itemWith(wchar_t* text)
{
    _HD_ITEMW item{};
    item.pszText = text;
    return item;
}

} // namespace

class tst_Header : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void create();
    void createEx();
    void wrapperOfAForeignHeader();
    void count();
    void getItem();
    void getItemWritesNothing_data();
    void getItemWritesNothing();
    void setItem();
    void insertItemAddsNoSection();
    void deleteItem();
    void itemRect();
    void itemRectOfAMovedHeader();
    void getOrderArray_data();
    void getOrderArray();
    void setOrderArray();
    void aSlotMayEndTheHeader();
    void hitTest_data();
    void hitTest();
    void hitTestOfMovedSections();
    void focusedItem();
    void focusedItemWithoutRows();
    void bitmapMargin();
    void withoutEffect();
    void withoutModel();
    void withoutWidget();
};

void tst_Header::create()
{
    QWidget parent;
    CWnd_X wrapper;
    wrapper.SubclassWindow(&parent);
    CHeaderCtrl_X control;
    QCOMPARE(control.Create(WS_VISIBLE | WS_HSCROLL | 0x40000000u, CRect(0, 0, 200, 20), &wrapper, 17), 1);
    auto* const view = control.Imp<QHeaderView>();
    QVERIFY(view);
    QCOMPARE(view->orientation(), Qt::Horizontal);
    QCOMPARE(view->geometry(), QRect(0, 0, 200, 20));
    QCOMPARE(control.GetStyle(), WS_VISIBLE | 0x40000000u);
    QCOMPARE(control.GetItemCount(), 0);
}

void tst_Header::createEx()
{
    QWidget parent;
    CHeaderCtrl_X control;
    QCOMPARE(control.CreateEx(0x200, WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 200, 20), &parent, 17), 1);
    QCOMPARE(control.GetStyle(), WS_VISIBLE | 0x200u); // one more plain style
}

void tst_Header::wrapperOfAForeignHeader()
{
    QTableWidget table(1, 1);
    auto* const control = qobject_cast<CHeaderCtrl_X*>(CWnd_X::FromHandle(table.horizontalHeader()));
    QVERIFY(control);
    QCOMPARE(control->GetItemCount(), 1);
}

void tst_Header::count()
{
    Header h;
    QCOMPARE(h.control.GetItemCount(), 3);
}

void tst_Header::getItem()
{
    Header h;
    wchar_t text[] = L"##########";
    _HD_ITEMW item = itemWith(text);
    item.cchTextMax = 2; // not looked at
    item.cxy = 77;
    QCOMPARE(h.control.GetItem(2, &item), TRUE);
    QCOMPARE(std::wstring(text), std::wstring(L"Price €"));
    QCOMPARE(text[8], L'#');
    QCOMPARE(item.cxy, 77);
    QCOMPARE(item.mask, 0u);
}

void tst_Header::getItemWritesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("at the count") << 3;
}

void tst_Header::getItemWritesNothing()
{
    QFETCH(int, index);
    Header h;
    wchar_t text[] = L"##";
    _HD_ITEMW item = itemWith(text);
    _HD_ITEMW noText = itemWith(nullptr);
    QCOMPARE(h.control.GetItem(index, &item), FALSE);
    QCOMPARE(std::wstring(text), std::wstring(L"##"));
    QCOMPARE(h.control.SetItem(index, &item), FALSE);
    QCOMPARE(h.control.DeleteItem(index), FALSE);
    QCOMPARE(h.control.GetItem(0, &noText), FALSE);
    QCOMPARE(h.control.GetItem(0, nullptr), FALSE);
    QCOMPARE(h.control.SetItem(0, nullptr), FALSE);
}

void tst_Header::setItem()
{
    Header h;
    wchar_t text[] = L"世界";
    _HD_ITEMW item = itemWith(text);
    QCOMPARE(h.control.SetItem(1, &item), TRUE);
    QCOMPARE(h.table.horizontalHeaderItem(1)->text(), QStringLiteral("世界"));
    item.pszText = nullptr;
    QCOMPARE(h.control.SetItem(1, &item), TRUE);
    QCOMPARE(h.table.horizontalHeaderItem(1)->text(), QString());
}

void tst_Header::insertItemAddsNoSection()
{
    Header h;
    wchar_t text[] = L"new";
    _HD_ITEMW item = itemWith(text);
    QCOMPARE(h.control.InsertItem(0, &item), 1);
    QCOMPARE(h.table.horizontalHeaderItem(0)->text(), QStringLiteral("new"));
    QCOMPARE(h.control.GetItemCount(), 3);
    QCOMPARE(h.control.InsertItem(3, &item), 0);
    QCOMPARE(h.control.GetItemCount(), 3);
}

void tst_Header::deleteItem()
{
    Header h;
    QCOMPARE(h.control.DeleteItem(1), TRUE);
    QCOMPARE(h.table.columnCount(), 2);
    QCOMPARE(h.table.horizontalHeaderItem(1)->text(), QStringLiteral("Price €"));
    while (h.control.DeleteItem(0)) {
    }
    QCOMPARE(h.table.columnCount(), 0);
}

void tst_Header::itemRect()
{
    QWidget parent;
    QTableWidget table(1, 2);
    QHeaderView view(Qt::Horizontal, &parent);
    view.setModel(table.model());
    view.setMinimumSectionSize(5);
    view.resizeSection(0, 10);
    view.resizeSection(1, 50);
    view.setGeometry(0, 0, 100, 20);
    CHeaderCtrl_X control;
    control.SubclassWindow(&view);
    tagRECT rect{};
    QCOMPARE(control.GetItemRect(1, &rect), TRUE); // a section at 10, 50 wide, in a header 20 high
    QCOMPARE(rect.left, 10);
    QCOMPARE(rect.top, 60);
    QCOMPARE(rect.right, 0);
    QCOMPARE(rect.bottom, 21);
    QCOMPARE(control.GetItemRect(2, &rect), FALSE);
    QCOMPARE(control.GetItemRect(-1, &rect), FALSE);
    QCOMPARE(control.GetItemRect(0, nullptr), FALSE);
}

void tst_Header::itemRectOfAMovedHeader()
{
    Header h;
    h.control.Detach();
    QWidget parent;
    h.view->setParent(&parent);
    h.view->setGeometry(5, 30, 200, 25);
    h.view->setOffset(20);
    h.control.SubclassWindow(h.view);
    tagRECT rect{};
    h.control.GetItemRect(1, &rect);
    QCOMPARE(rect.left, 30);
    QCOMPARE(rect.top, 90);
    QCOMPARE(rect.right, 30); // the header's y
    QCOMPARE(rect.bottom, 56);
    h.view->setParent(&h.table);
}

void tst_Header::getOrderArray_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<int>("count");
    QTest::addColumn<QVector<int>>("then"); // over 9 9 9
    QTest::newRow("descending") << 1 << Qt::DescendingOrder << 3 << QVector<int>{-1, 1, -1};
    QTest::newRow("ascending") << 2 << Qt::AscendingOrder << 3 << QVector<int>{-1, -1, 0};
    QTest::newRow("fewer entries") << 1 << Qt::AscendingOrder << 1 << QVector<int>{-1, 9, 9};
    QTest::newRow("no entries") << 0 << Qt::AscendingOrder << 0 << QVector<int>{9, 9, 9};
    QTest::newRow("negative count") << 0 << Qt::AscendingOrder << -3 << QVector<int>{9, 9, 9};
    QTest::newRow("no mark") << -1 << Qt::AscendingOrder << 3 << QVector<int>{-1, -1, -1};
}

void tst_Header::getOrderArray()
{
    QFETCH(int, section);
    QFETCH(Qt::SortOrder, order);
    QFETCH(int, count);
    Header h;
    h.view->setSortIndicator(section, order);
    QVector<int> entries{9, 9, 9};
    QCOMPARE(h.control.GetOrderArray(entries.data(), count), TRUE);
    QTEST(entries, "then");
    QCOMPARE(h.control.GetOrderArray(nullptr, 3), FALSE);
}

void tst_Header::setOrderArray()
{
    Header h;
    QSignalSpy marked(h.view, &QHeaderView::sortIndicatorChanged);
    int order[] = {2, 0, 1};
    QCOMPARE(h.control.SetOrderArray(3, order), TRUE);
    QVERIFY(h.view->isSortIndicatorShown());
    QCOMPARE(h.view->sortIndicatorSection(), 1); // the last one stands
    QCOMPARE(h.view->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(marked.size(), 3);
    QCOMPARE(h.control.OrderToIndex(0), 1);
    QCOMPARE(h.control.OrderToIndex(77), 1);
    QCOMPARE(h.control.SetOrderArray(3, nullptr), FALSE);
    QCOMPARE(h.control.SetOrderArray(-1, order), TRUE);
    QCOMPARE(h.view->sortIndicatorSection(), 1);
}

void tst_Header::aSlotMayEndTheHeader()
{
    QTableWidget table(1, 2);
    auto* const view = new QHeaderView(Qt::Horizontal, &table);
    view->setModel(table.model());
    CHeaderCtrl_X control;
    control.SubclassWindow(view);
    connect(view, &QHeaderView::sortIndicatorChanged, view, [view] { view->deleteLater(); });
    int order[] = {0, 1};
    QCOMPARE(control.SetOrderArray(2, order), TRUE);
}

void tst_Header::hitTest_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("section");
    QTest::newRow("first") << 0 << 0;
    QTest::newRow("end of the first") << 49 << 0;
    QTest::newRow("second") << 50 << 1;
    QTest::newRow("end of the second") << 109 << 1;
    QTest::newRow("last") << 110 << -1;
    QTest::newRow("behind the last") << 300 << -1;
    QTest::newRow("left of the first") << -1 << -1;
}

void tst_Header::hitTest()
{
    QFETCH(int, x);
    Header h;
    _HD_HITTESTINFO info{{x, 1000}, 77, 99};
    QTEST(h.control.HitTest(&info), "section");
    QTEST(info.iItem, "section");
    QCOMPARE(info.flags, 77u);
    QCOMPARE(h.control.HitTest(nullptr), -1);
}

void tst_Header::hitTestOfMovedSections()
{
    Header h;
    h.view->moveSection(2, 0); // Price, Name, Stock
    _HD_HITTESTINFO info{{10, 5}, 0, 0};
    QCOMPARE(h.control.HitTest(&info), 2);
    info.pt.x = 75;
    QCOMPARE(h.control.HitTest(&info), 0);
    info.pt.x = 125;
    QCOMPARE(h.control.HitTest(&info), -1); // the last one seen
}

void tst_Header::focusedItem()
{
    Header h;
    QCOMPARE(h.control.GetFocusedItem(), -1);
    QCOMPARE(h.control.SetFocusedItem(2), TRUE);
    QCOMPARE(h.control.GetFocusedItem(), 2);
    QCOMPARE(h.table.currentColumn(), 2);
    QCOMPARE(h.table.currentRow(), 0);
    QCOMPARE(h.control.SetFocusedItem(3), FALSE);
    QCOMPARE(h.control.GetFocusedItem(), 2);
}

void tst_Header::focusedItemWithoutRows()
{
    Header h;
    h.table.setRowCount(0);
    QCOMPARE(h.control.SetFocusedItem(1), TRUE);
    QCOMPARE(h.control.GetFocusedItem(), -1);
}

void tst_Header::bitmapMargin()
{
    Header h;
    const int margin = h.view->style()->pixelMetric(static_cast<QStyle::PixelMetric>(46), nullptr, h.view);
    const qreal density = QGuiApplication::primaryScreen()->logicalDotsPerInchX();
    QCOMPARE(h.control.GetBitmapMargin(), qRound(margin * density / 96));
}

void tst_Header::withoutEffect()
{
    Header h;
    tagRECT rect{1, 2, 3, 4};
    _HD_LAYOUT layout{};
    QCOMPARE(h.control.GetItemDropDownRect(1, &rect), TRUE);
    QCOMPARE(h.control.GetOverflowRect(&rect), TRUE);
    QVERIFY(rect.left == 1 && rect.top == 2 && rect.right == 3 && rect.bottom == 4);
    QCOMPARE(h.control.GetImageList(), nullptr);
    QCOMPARE(h.control.SetImageList(&h.control.imageList), nullptr);
    QCOMPARE(h.control.Layout(&layout), FALSE);
    QCOMPARE(h.control.CreateDragImage(0), nullptr);
    QCOMPARE(h.control.SetBitmapMargin(3), -1);
    QCOMPARE(h.control.SetHotDivider(CPoint(1, 1)), -1);
    QCOMPARE(h.control.SetHotDivider(1), -1);
    QCOMPARE(h.control.SetFilterChangeTimeout(100), -1);
    QCOMPARE(h.control.EditFilter(0, TRUE), -1);
    QCOMPARE(h.control.ClearFilter(0), -1);
    QCOMPARE(h.control.ClearAllFilters(), -1);
    QCOMPARE(h.control.OnChildNotify(0, 0, 0, nullptr), TRUE);
}

void tst_Header::withoutModel()
{
    QHeaderView view(Qt::Horizontal);
    CHeaderCtrl_X control;
    control.SubclassWindow(&view);
    wchar_t text[] = L"x";
    _HD_ITEMW item = itemWith(text);
    int order[] = {9};
    QCOMPARE(control.GetItem(0, &item), FALSE);
    QCOMPARE(control.SetItem(0, &item), FALSE);
    QCOMPARE(control.InsertItem(0, &item), -1);
    QCOMPARE(control.DeleteItem(0), FALSE);
    QCOMPARE(control.GetOrderArray(order, 1), FALSE);
    QCOMPARE(order[0], 9);
    QCOMPARE(control.SetFocusedItem(0), FALSE);
}

void tst_Header::withoutWidget()
{
    CHeaderCtrl_X control;
    _HD_ITEMW item{};
    _HD_HITTESTINFO hit{};
    tagRECT rect{};
    int order[] = {9};
    QCOMPARE(control.GetItemCount(), -1);
    QCOMPARE(control.GetItem(0, &item), FALSE);
    QCOMPARE(control.SetItem(0, &item), FALSE);
    QCOMPARE(control.InsertItem(0, &item), -1);
    QCOMPARE(control.DeleteItem(0), FALSE);
    QCOMPARE(control.GetItemRect(0, &rect), FALSE);
    QCOMPARE(control.OrderToIndex(0), 0);
    QCOMPARE(control.GetOrderArray(order, 1), FALSE);
    QCOMPARE(control.SetOrderArray(1, order), FALSE);
    QCOMPARE(control.HitTest(&hit), -1);
    QCOMPARE(control.GetFocusedItem(), -1);
    QCOMPARE(control.SetFocusedItem(0), FALSE);
    QCOMPARE(control.GetBitmapMargin(), 0);
    QCOMPARE(control.GetItemDropDownRect(0, &rect), FALSE);
    QCOMPARE(control.GetOverflowRect(&rect), FALSE);
}

XE_TEST(tst_Header)

#include "tst_header.moc"
