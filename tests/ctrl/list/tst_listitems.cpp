// List controls: items, their texts, numbers and boxes.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QSignalSpy>

#include <climits>

namespace {

tagQLVITEMW itemAt(int row, int column, UINT mask = 0)
{
    tagQLVITEMW item{};
    item.mask = mask;
    item.iItem = row;
    item.iSubItem = column;
    return item;
}

wchar_t* callbackText() { return reinterpret_cast<wchar_t*>(static_cast<qintptr>(-1)); }

QVariant roleOf(const QTableWidget& table, int row, int role)
{
    const QTableWidgetItem* const item = table.item(row, 0);
    return item ? item->data(role) : QVariant();
}

} // namespace

class tst_ListItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void insertByText_data();
    void insertByText();
    void insertIntoATableWithoutColumns();
    void insertByRecord_data();
    void insertByRecord();
    void insertByRecordRefuses();
    void setItemMakesANewOne();
    void setItemTextAndAlignment_data();
    void setItemTextAndAlignment();
    void setItemOutsideTheTable();
    void getItem();
    void getItemTextLivesUntilTheNext();
    void getPublishedItem_data();
    void getPublishedItem();
    void getPublishedItemLooksAtOneMask();
    void texts();
    void numbers();
    void deleteItem();
    void deleteAllItemsIsSilent();
    void boxes();
    void boxesOfRowsToCome();
    void boxesAreToldRowByRow();
    void aSlotMayEmptyTheListOfBoxes();
    void withoutWidget();
};

void tst_ListItems::insertByText_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("then");
    QTest::newRow("in front") << 0 << QStringLiteral("new r0c0 r1c0");
    QTest::newRow("inside") << 1 << QStringLiteral("r0c0 new r1c0");
    QTest::newRow("at the end") << 2 << QStringLiteral("r0c0 r1c0 new");
    QTest::newRow("beyond: nowhere") << 3 << QStringLiteral("r0c0 r1c0");
    QTest::newRow("far beyond: nowhere") << INT_MAX << QStringLiteral("r0c0 r1c0");
    QTest::newRow("negative: nowhere") << -1 << QStringLiteral("r0c0 r1c0");
}

void tst_ListItems::insertByText()
{
    QFETCH(int, row);
    ListFixture f(2, 2);
    QCOMPARE(f.list.InsertItem(row, L"new"), row);
    QTEST(f.column(), "then");
}

void tst_ListItems::insertIntoATableWithoutColumns()
{
    ListFixture f(0, 0);
    QCOMPARE(f.list.InsertItem(0, L"lost"), 0);
    QCOMPARE(f.list.GetItemCount(), 1);
    QCOMPARE(textOf(f.list.GetItemText(0, 0)), QString());
    QCOMPARE(f.list.SetItemText(0, 0, L"lost"), TRUE);
}

void tst_ListItems::insertByRecord_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("texts"); // of the column
    QTest::newRow("inside") << 1 << 0 << LVIF_TEXT << 1 << QStringLiteral("r0c0 new r1c0");
    QTest::newRow("sub-item of a new row") << 1 << 1 << LVIF_TEXT << 1 << QStringLiteral("r0c1 new r1c1");
    QTest::newRow("at the end") << 2 << 0 << LVIF_TEXT << 2 << QStringLiteral("r0c0 r1c0 new");
    QTest::newRow("beyond: rows are added") << 4 << 0 << LVIF_TEXT << 4 << QStringLiteral("r0c0 r1c0 - - new");
    QTest::newRow("appended") << INT_MAX << 0 << LVIF_TEXT << 2 << QStringLiteral("r0c0 r1c0 new");
    QTest::newRow("column beyond: columns are added") << 0 << 3 << LVIF_TEXT << 0 << QStringLiteral("new - -");
    QTest::newRow("no text masked") << 0 << 0 << LVIF_PARAM << 0 << QStringLiteral(" r0c0 r1c0");
}

void tst_ListItems::insertByRecord()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(UINT, mask);
    ListFixture f(2, 2);
    tagQLVITEMW item = itemAt(row, column, mask);
    wchar_t text[] = L"new";
    item.pszText = text;
    QTEST(f.list.InsertItem(&item), "result");
    QTEST(f.column(column), "texts");
}

void tst_ListItems::insertByRecordRefuses()
{
    ListFixture f(2, 2);
    tagQLVITEMW negativeRow = itemAt(-1, 0);
    tagQLVITEMW negativeColumn = itemAt(0, -1);
    tagQLVITEMW callback = itemAt(0, 0, LVIF_TEXT);
    callback.pszText = callbackText();
    QCOMPARE(f.list.InsertItem(&negativeRow), -1);
    QCOMPARE(f.list.InsertItem(&negativeColumn), -1);
    QCOMPARE(f.list.InsertItem(static_cast<tagQLVITEMW*>(nullptr)), -1);
    QCOMPARE(f.list.GetItemCount(), 2);
    QCOMPARE(f.list.InsertItem(&callback), 0);
    QCOMPARE(f.column(), QStringLiteral(" r0c0 r1c0"));
}

void tst_ListItems::setItemMakesANewOne()
{
    ListFixture f;
    f.list.SetItemData(2, 99);
    f.list.SetCheck(2, TRUE);
    f.table.item(2, 0)->setToolTip(QStringLiteral("tip"));
    QCOMPARE(f.list.SetItem(2, 0, LVIF_TEXT, L"new", -1, 0, 0, 0), TRUE);
    QCOMPARE(textOf(f.list.GetItemText(2, 0)), QStringLiteral("new"));
    QCOMPARE(f.list.GetItemData(2), 0ull);
    QCOMPARE(f.list.GetCheck(2), FALSE);
    QCOMPARE(f.table.item(2, 0)->toolTip(), QString());
    QVERIFY(!roleOf(f.table, 2, Qt::CheckStateRole).isValid());
}

void tst_ListItems::setItemTextAndAlignment_data()
{
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<LPARAM>("param");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("alignment");
    QTest::newRow("nothing masked: an empty item") << 0u << LPARAM(1) << QString() << 0;
    QTest::newRow("text") << LVIF_TEXT << LPARAM(1) << QStringLiteral("new") << 0;
    QTest::newRow("left") << LVIF_PARAM << LPARAM(LVCFMT_LEFT) << QString() << 1;
    QTest::newRow("right") << LVIF_PARAM << LPARAM(LVCFMT_RIGHT) << QString() << 2;
    QTest::newRow("centre") << (LVIF_TEXT | LVIF_PARAM) << LPARAM(LVCFMT_CENTER) << QStringLiteral("new") << 132;
    QTest::newRow("no item data") << LVIF_PARAM << LPARAM(4711) << QString() << 1;
}

void tst_ListItems::setItemTextAndAlignment()
{
    QFETCH(UINT, mask);
    QFETCH(LPARAM, param);
    ListFixture f;
    tagQLVITEMW item = itemAt(1, 2, mask);
    wchar_t text[] = L"new";
    item.pszText = text;
    item.lParam = param;
    QCOMPARE(f.list.SetItem(&item), TRUE);
    QTEST(f.table.item(1, 2)->text(), "text");
    QTEST(f.table.item(1, 2)->textAlignment(), "alignment");
    QCOMPARE(f.list.GetItemData(1), 0ull);
    QCOMPARE(f.list.SetItem(nullptr), FALSE);
}

void tst_ListItems::setItemOutsideTheTable()
{
    ListFixture f;
    QCOMPARE(f.list.SetItem(6, 0, LVIF_TEXT, L"new", 0, 0, 0, 0), TRUE);
    QCOMPARE(f.list.SetItem(0, 3, LVIF_TEXT, L"new", 0, 0, 0, 0), TRUE);
    QCOMPARE(f.list.SetItem(-1, -1, LVIF_TEXT | LVIF_STATE, L"new", 0, 2, 2, 0), TRUE);
    QCOMPARE(f.table.rowCount(), 6);
    QCOMPARE(f.table.columnCount(), 3);
}

void tst_ListItems::getItem()
{
    ListFixture f;
    f.table.item(1, 1)->setTextAlignment(Qt::AlignCenter);
    f.table.item(1, 1)->setData(Qt::UserRole + 2, 7);
    tagQLVITEMW item = itemAt(1, 1, LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_STATE);
    item.stateMask = LVIS_SELECTED;
    item.state = 0xFF;
    QCOMPARE(f.list.GetItem(&item), TRUE);
    QCOMPARE(QString::fromWCharArray(item.pszText), QStringLiteral("r1c1"));
    QCOMPARE(item.iImage, 7);
    QCOMPARE(item.lParam, LPARAM(LVCFMT_CENTER));
    QCOMPARE(item.state, 0u);
    f.table.selectRow(1);
    f.list.GetItem(&item);
    QCOMPARE(item.state, LVIS_SELECTED);

    tagQLVITEMW unmasked = itemAt(1, 1, LVIF_STATE);
    unmasked.state = 0x77;
    QCOMPARE(f.list.GetItem(&unmasked), TRUE);
    QCOMPARE(unmasked.state, 0x77u); // the state mask has no bit
    QCOMPARE(unmasked.pszText, nullptr);

    f.table.item(1, 1)->setTextAlignment(Qt::AlignRight);
    f.list.GetItem(&item);
    QCOMPARE(item.lParam, LPARAM(LVCFMT_RIGHT));
    f.table.item(1, 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    f.list.GetItem(&item);
    QCOMPARE(item.lParam, LPARAM(LVCFMT_LEFT)); // any other number

    tagQLVITEMW missing = itemAt(6, 0, LVIF_TEXT);
    QCOMPARE(f.list.GetItem(&missing), FALSE);
    delete f.table.takeItem(0, 0);
    missing.iItem = 0;
    QCOMPARE(f.list.GetItem(&missing), FALSE);
    QCOMPARE(f.list.GetItem(static_cast<tagQLVITEMW*>(nullptr)), FALSE);
}

void tst_ListItems::getItemTextLivesUntilTheNext()
{
    ListFixture f;
    f.list.SetItemText(0, 0, L"a text of more elements than fit into any small buffer");
    tagQLVITEMW item = itemAt(0, 0, LVIF_TEXT);
    f.list.GetItem(&item);
    f.list.SetItemText(0, 0, L"another");
    QCOMPARE(QString::fromWCharArray(item.pszText),
             QStringLiteral("a text of more elements than fit into any small buffer"));
    f.list.GetItem(&item);
    QCOMPARE(QString::fromWCharArray(item.pszText), QStringLiteral("another"));
}

void tst_ListItems::getPublishedItem_data()
{
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QString>("written"); // over "########"
    QTest::addColumn<int>("count");
    QTest::newRow("without a limit all, and no terminator") << 0 << QStringLiteral("Bolt €##") << 6;
    QTest::newRow("a negative limit is none") << -1 << QStringLiteral("Bolt €##") << 6;
    QTest::newRow("room to spare") << 8 << QStringLiteral("Bolt €##") << 6;
    QTest::newRow("cut") << 4 << QStringLiteral("Bolt####") << 4;
}

void tst_ListItems::getPublishedItem()
{
    QFETCH(int, capacity);
    ListFixture f;
    f.list.SetItemText(0, 1, L"Bolt €");
    wchar_t text[] = L"########";
    tagLVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iSubItem = 1;
    item.pszText = text;
    item.cchTextMax = capacity;
    QCOMPARE(f.list.GetItem(&item), TRUE);
    QTEST(QString::fromWCharArray(text), "written");
    QTEST(item.cchTextMax, "count");
}

void tst_ListItems::getPublishedItemLooksAtOneMask()
{
    ListFixture f;
    wchar_t text[] = L"##";
    tagLVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.pszText = text;
    QCOMPARE(f.list.GetItem(&item), TRUE);
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("##"));
    item.iItem = 6;
    QCOMPARE(f.list.GetItem(&item), FALSE);
    QCOMPARE(f.list.GetItem(static_cast<tagLVITEMW*>(nullptr)), FALSE);
}

void tst_ListItems::texts()
{
    ListFixture f;
    QTableWidgetItem* const item = f.table.item(0, 0);
    item->setData(Qt::UserRole + 1, 5);
    QCOMPARE(f.list.SetItemText(0, 0, L"世界 😀"), TRUE);
    QCOMPARE(f.table.item(0, 0), item); // the same item, unlike by SetItem()
    QCOMPARE(f.list.GetItemData(0), 5ull);
    QCOMPARE(textOf(f.list.GetItemText(0, 0)), QStringLiteral("世界 😀"));
    delete f.table.takeItem(1, 1);
    QCOMPARE(textOf(f.list.GetItemText(1, 1)), QString());
    QCOMPARE(f.list.SetItemText(1, 1, L"made"), TRUE);
    QCOMPARE(textOf(f.list.GetItemText(1, 1)), QStringLiteral("made"));
    QCOMPARE(f.list.SetItemText(1, 1, nullptr), TRUE);
    QCOMPARE(f.table.item(1, 1)->text(), QString());
    QCOMPARE(f.list.SetItemText(1, 1, callbackText()), TRUE);
    QCOMPARE(f.list.SetItemText(9, 9, L"nowhere"), TRUE);
    QCOMPARE(textOf(f.list.GetItemText(9, 9)), QString());
}

void tst_ListItems::numbers()
{
    ListFixture f;
    QCOMPARE(f.list.GetItemData(0), 0ull);
    QCOMPARE(f.list.SetItemData(0, 0xFFFFFFFFFFFFFFFFull), TRUE);
    QCOMPARE(f.list.GetItemData(0), 0xFFFFFFFFFFFFFFFFull);
    QCOMPARE(roleOf(f.table, 0, 257).toULongLong(), 0xFFFFFFFFFFFFFFFFull);
    QVERIFY(!f.table.item(0, 1)->data(257).isValid());
    QCOMPARE(f.list.SetItemData(6, 1), FALSE);
    QCOMPARE(f.list.GetItemData(-1), 0ull);
}

void tst_ListItems::deleteItem()
{
    ListFixture f(3, 1);
    f.table.setCurrentCell(1, 0);
    QSignalSpy current(&f.table, &QTableWidget::currentCellChanged);
    QSignalSpy selection(&f.table, &QTableWidget::itemSelectionChanged);
    QCOMPARE(f.list.DeleteItem(1), TRUE);
    QCOMPARE(f.column(), QStringLiteral("r0c0 r2c0"));
    QCOMPARE(f.list.DeleteItem(7), TRUE);
    QCOMPARE(f.list.DeleteItem(-1), TRUE);
    QCOMPARE(f.list.GetItemCount(), 2);
    QCOMPARE(current.size() + selection.size(), 0);
    QVERIFY(!f.table.signalsBlocked());
}

void tst_ListItems::deleteAllItemsIsSilent()
{
    ListFixture f;
    f.table.selectRow(3);
    QSignalSpy current(&f.table, &QTableWidget::currentCellChanged);
    QSignalSpy selection(&f.table, &QTableWidget::itemSelectionChanged);
    QSignalSpy changed(&f.table, &QTableWidget::itemChanged);
    QCOMPARE(f.list.DeleteAllItems(), TRUE);
    QCOMPARE(f.list.GetItemCount(), 0);
    QCOMPARE(f.table.columnCount(), 3);
    QCOMPARE(current.size() + selection.size() + changed.size(), 0);
    f.table.blockSignals(true);
    f.list.DeleteAllItems();
    QVERIFY(f.table.signalsBlocked()); // the host's own block stays
}

void tst_ListItems::boxes()
{
    ListFixture f;
    QCOMPARE(f.list.SetCheck(0), TRUE);
    QCOMPARE(f.list.GetCheck(0), TRUE);
    QCOMPARE(roleOf(f.table, 0, Qt::CheckStateRole).toInt(), 2);
    QCOMPARE(f.list.SetCheck(0, FALSE), TRUE);
    QCOMPARE(roleOf(f.table, 0, Qt::CheckStateRole), QVariant(0));
    QCOMPARE(f.list.SetCheck(0, 7), TRUE);
    QCOMPARE(roleOf(f.table, 0, Qt::CheckStateRole).toInt(), 2);
    f.table.item(0, 0)->setCheckState(Qt::PartiallyChecked);
    QCOMPARE(f.list.GetCheck(0), FALSE);
    QCOMPARE(f.list.SetCheck(9), TRUE); // without the item too
    QCOMPARE(f.list.GetCheck(9), FALSE);
}

void tst_ListItems::boxesOfRowsToCome()
{
    ListFixture f(2, 1);
    f.list.InsertItem(2, L"plain");
    QVERIFY(!roleOf(f.table, 2, Qt::CheckStateRole).isValid());

    QCOMPARE(f.list.SetExtendedStyle(LVS_EX_CHECKBOXES), 1u);
    QCOMPARE(roleOf(f.table, 0, Qt::CheckStateRole), QVariant(0));
    QVERIFY(f.table.item(2, 0)->flags() & Qt::ItemIsUserCheckable);
    QCOMPARE(f.list.hasCheckBoxes, 1);
    f.list.SetCheck(0);

    QCOMPARE(f.list.SetExtendedStyle(0), 1u);
    QVERIFY(!roleOf(f.table, 0, Qt::CheckStateRole).isValid());
    QVERIFY(!(f.table.item(0, 0)->flags() & Qt::ItemIsUserCheckable));
    QCOMPARE(f.list.hasCheckBoxes, 1);

    f.list.InsertItem(3, L"new");
    QCOMPARE(roleOf(f.table, 3, Qt::CheckStateRole), QVariant(0));
    tagQLVITEMW item = itemAt(4, 0, LVIF_TEXT);
    f.list.InsertItem(&item);
    QCOMPARE(roleOf(f.table, 4, Qt::CheckStateRole), QVariant(0));
    tagQLVITEMW subItem = itemAt(5, 1, LVIF_TEXT);
    f.list.InsertItem(&subItem);
    QVERIFY(!f.table.item(5, 1)->data(Qt::CheckStateRole).isValid());
}

void tst_ListItems::boxesAreToldRowByRow()
{
    ListFixture f(3, 2);
    delete f.table.takeItem(1, 0);
    QSignalSpy changed(&f.table, &QTableWidget::itemChanged);
    f.list.SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_GRIDLINES);
    QVERIFY(changed.size() >= 2);
    QVERIFY(!f.table.item(1, 0));
}

void tst_ListItems::aSlotMayEmptyTheListOfBoxes()
{
    ListFixture f;
    connect(&f.table, &QTableWidget::itemChanged, &f.table, [&f] { f.table.setRowCount(0); });
    QCOMPARE(f.list.SetExtendedStyle(LVS_EX_CHECKBOXES), 1u);
    QCOMPARE(f.list.GetItemCount(), 0);

    auto* const dying = new QTableWidget(2, 1);
    dying->setItem(0, 0, new QTableWidgetItem);
    CListCtrl_X list;
    list.SubclassWindow(dying);
    connect(dying, &QTableWidget::itemChanged, dying, [dying] { delete dying; });
    QCOMPARE(list.SetExtendedStyle(0), 1u);
}

void tst_ListItems::withoutWidget()
{
    CListCtrl_X list;
    tagQLVITEMW item = itemAt(0, 0, LVIF_TEXT);
    tagLVITEMW published{};
    QCOMPARE(list.InsertItem(0, L"x"), -1);
    QCOMPARE(list.InsertItem(&item), -1);
    QCOMPARE(list.SetItem(&item), FALSE);
    QCOMPARE(list.SetItem(0, 0, LVIF_TEXT, L"x", 0, 0, 0, 0), FALSE);
    QCOMPARE(list.GetItem(&item), FALSE);
    QCOMPARE(list.GetItem(&published), FALSE);
    QCOMPARE(textOf(list.GetItemText(0, 0)), QString());
    QCOMPARE(list.SetItemText(0, 0, L"x"), FALSE);
    QCOMPARE(list.GetItemData(0), 0ull);
    QCOMPARE(list.SetItemData(0, 1), FALSE);
    QCOMPARE(list.DeleteItem(0), FALSE);
    QCOMPARE(list.DeleteAllItems(), FALSE);
    QCOMPARE(list.GetItemCount(), -1);
    QCOMPARE(list.GetCheck(0), FALSE);
    QCOMPARE(list.SetCheck(0), FALSE);
    QCOMPARE(list.SetExtendedStyle(LVS_EX_CHECKBOXES), 0xFFFFFFFFu);
    QCOMPARE(list.GetExtendedStyle(), 0u);
    QCOMPARE(list.GetBkColor(), 0u);
}

XE_TEST(tst_ListItems)

#include "tst_listitems.moc"
