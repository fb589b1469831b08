// List controls: columns.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QSignalSpy>

#include <climits>

class tst_ListColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void insertBeyondTheCountAddsColumns();
    void insertInsideReplacesTheHeaderOnly();
    void alignmentAndWidth_data();
    void alignmentAndWidth();
    void insertByRecord_data();
    void insertByRecord();
    void setColumn_data();
    void setColumn();
    void setTextOfAColumnWithoutHeading();
    void getColumn_data();
    void getColumn();
    void getColumnWithoutHeading();
    void widths();
    void deleteColumn();
    void headerControl();
    void withoutWidget();
};

void tst_ListColumns::insertBeyondTheCountAddsColumns()
{
    ListFixture f(2, 1);
    QCOMPARE(f.list.InsertColumn(3, L"Price €"), 3);
    QCOMPARE(f.table.columnCount(), 4);
    QCOMPARE(f.table.horizontalHeaderItem(3)->text(), QStringLiteral("Price €"));
    QVERIFY(!f.table.horizontalHeaderItem(2));
    QCOMPARE(f.list.InsertColumn(-1, L"none"), -1);
    QCOMPARE(f.list.InsertColumn(INT_MAX, L"none"), -1);
    QCOMPARE(f.table.columnCount(), 4);
}

void tst_ListColumns::insertInsideReplacesTheHeaderOnly()
{
    ListFixture f;
    f.list.InsertColumn(1, L"old");
    QCOMPARE(f.list.InsertColumn(1, L"new", LVCFMT_RIGHT), 1);
    QCOMPARE(f.table.columnCount(), 3);
    QCOMPARE(f.table.horizontalHeaderItem(1)->text(), QStringLiteral("new"));
    QCOMPARE(f.column(1), QStringLiteral("r0c1 r1c1 r2c1 r3c1 r4c1 r5c1"));
    f.list.InsertColumn(1, static_cast<const wchar_t*>(nullptr));
    QCOMPARE(f.table.horizontalHeaderItem(1)->text(), QString());
}

void tst_ListColumns::alignmentAndWidth_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("widthThen");
    QTest::newRow("left, width left alone") << LVCFMT_LEFT << -1 << 1 << 77;
    QTest::newRow("right") << LVCFMT_RIGHT << 60 << 2 << 60;
    QTest::newRow("centre") << LVCFMT_CENTER << 120 << 132 << 120;
    QTest::newRow("unknown format is left") << 0x800 << 50 << 1 << 50;
}

void tst_ListColumns::alignmentAndWidth()
{
    QFETCH(int, format);
    QFETCH(int, width);
    ListFixture f;
    f.table.setColumnWidth(1, 77);
    f.list.InsertColumn(1, L"x", format, width, 5);
    QTEST(f.table.horizontalHeaderItem(1)->data(Qt::TextAlignmentRole).toInt(), "alignment");
    QTEST(f.table.columnWidth(1), "widthThen");
}

void tst_ListColumns::insertByRecord_data()
{
    QTest::addColumn<uint>("mask");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("width");
    QTest::newRow("nothing masked") << 0u << QString() << 1 << 77;
    QTest::newRow("text") << LVCF_TEXT << QStringLiteral("heading") << 1 << 77;
    QTest::newRow("format") << LVCF_FMT << QString() << 2 << 77;
    QTest::newRow("width") << LVCF_WIDTH << QString() << 1 << 55;
    QTest::newRow("sub-item means nothing") << LVCF_SUBITEM << QString() << 1 << 77;
    QTest::newRow("all") << 15u << QStringLiteral("heading") << 2 << 55;
}

void tst_ListColumns::insertByRecord()
{
    QFETCH(uint, mask);
    ListFixture f;
    f.table.setColumnWidth(2, 77);
    wchar_t heading[] = L"heading";
    const tagQLVCOLUMNW record{mask, LVCFMT_RIGHT, 55, heading, 0, 1};
    QCOMPARE(f.list.InsertColumn(2, &record), 2);
    QTEST(f.table.horizontalHeaderItem(2)->text(), "text");
    QTEST(f.table.horizontalHeaderItem(2)->textAlignment(), "alignment");
    QTEST(f.table.columnWidth(2), "width");
    QCOMPARE(f.list.InsertColumn(2, static_cast<const tagQLVCOLUMNW*>(nullptr)), -1);
}

void tst_ListColumns::setColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<uint>("mask");
    QTest::addColumn<BOOL>("result");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("width alone") << 1 << LVCF_WIDTH << TRUE << QStringLiteral("old") << 44;
    QTest::newRow("text alone") << 1 << LVCF_TEXT << TRUE << QStringLiteral("new") << 77;
    QTest::newRow("both at once do nothing") << 1 << (LVCF_WIDTH | LVCF_TEXT) << FALSE << QStringLiteral("old") << 77;
    QTest::newRow("format does nothing") << 1 << LVCF_FMT << FALSE << QStringLiteral("old") << 77;
    QTest::newRow("column at the count") << 3 << LVCF_TEXT << FALSE << QStringLiteral("old") << 77;
    QTest::newRow("negative column") << -1 << LVCF_WIDTH << FALSE << QStringLiteral("old") << 77;
}

void tst_ListColumns::setColumn()
{
    QFETCH(int, column);
    QFETCH(uint, mask);
    ListFixture f;
    f.list.InsertColumn(1, L"old", LVCFMT_CENTER, 77);
    wchar_t text[] = L"new";
    tagLVCOLUMNW record{};
    record.mask = mask;
    record.cx = 44;
    record.pszText = text;
    QTEST(f.list.SetColumn(column, &record), "result");
    QTEST(f.table.horizontalHeaderItem(1)->text(), "text");
    QTEST(f.table.columnWidth(1), "width");
    QCOMPARE(f.table.horizontalHeaderItem(1)->textAlignment(), 132); // stays
    QCOMPARE(f.list.SetColumn(1, nullptr), FALSE);
}

void tst_ListColumns::setTextOfAColumnWithoutHeading()
{
    ListFixture f;
    wchar_t text[] = L"new";
    tagLVCOLUMNW record{};
    record.mask = LVCF_TEXT;
    record.pszText = text;
    QCOMPARE(f.list.SetColumn(0, &record), TRUE);
    QCOMPARE(f.table.horizontalHeaderItem(0)->text(), QStringLiteral("new"));
    record.pszText = nullptr;
    QCOMPARE(f.list.SetColumn(0, &record), TRUE);
    QCOMPARE(f.table.horizontalHeaderItem(0)->text(), QString());
}

void tst_ListColumns::getColumn_data()
{
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QString>("written"); // over "########"
    QTest::newRow("room to spare: the last character is missing") << 8 << QStringLiteral("Stoc####");
    QTest::newRow("room for all: the last character is missing") << 5 << QStringLiteral("Stoc####");
    QTest::newRow("room for three: two") << 3 << QStringLiteral("St######");
    QTest::newRow("room for one: none") << 1 << QStringLiteral("########");
    QTest::newRow("no room") << 0 << QStringLiteral("########");
    QTest::newRow("negative room") << -5 << QStringLiteral("########");
}

void tst_ListColumns::getColumn()
{
    QFETCH(int, capacity);
    ListFixture f;
    f.list.InsertColumn(1, L"Stock", LVCFMT_LEFT, 64);
    wchar_t text[] = L"########";
    tagLVCOLUMNW record{};
    record.mask = LVCF_TEXT;
    record.pszText = text;
    record.cchTextMax = capacity;
    QCOMPARE(f.list.GetColumn(1, &record), TRUE);
    QTEST(QString::fromWCharArray(text), "written");
    QCOMPARE(record.cchTextMax, capacity);
    record.mask = LVCF_WIDTH;
    QCOMPARE(f.list.GetColumn(1, &record), TRUE);
    QCOMPARE(record.cx, 64);
}

void tst_ListColumns::getColumnWithoutHeading()
{
    ListFixture f;
    tagLVCOLUMNW record{};
    record.mask = LVCF_TEXT;
    QCOMPARE(f.list.GetColumn(0, &record), FALSE);
    f.list.InsertColumn(0, L"x");
    QCOMPARE(f.list.GetColumn(0, &record), TRUE); // without a buffer nothing is written
    record.mask = LVCF_TEXT | LVCF_WIDTH;
    QCOMPARE(f.list.GetColumn(0, &record), FALSE);
    QCOMPARE(f.list.GetColumn(7, &record), FALSE);
    QCOMPARE(f.list.GetColumn(0, nullptr), FALSE);
}

void tst_ListColumns::widths()
{
    ListFixture f;
    QCOMPARE(f.list.SetColumnWidth(1, 91), TRUE);
    QCOMPARE(f.list.GetColumnWidth(1), 91);
    QCOMPARE(f.list.SetColumnWidth(1, -2), TRUE); // no width of its own kind
    QCOMPARE(f.list.GetColumnWidth(1), 91);
    QCOMPARE(f.list.SetColumnWidth(9, 10), TRUE);
}

void tst_ListColumns::deleteColumn()
{
    ListFixture f;
    QSignalSpy changed(&f.table, &QTableWidget::currentCellChanged);
    f.table.setCurrentCell(0, 1);
    changed.clear();
    QCOMPARE(f.list.DeleteColumn(3), FALSE);
    QCOMPARE(f.list.DeleteColumn(-1), FALSE);
    QCOMPARE(f.list.DeleteColumn(1), TRUE);
    QCOMPARE(f.column(1), QStringLiteral("r0c2 r1c2 r2c2 r3c2 r4c2 r5c2"));
    while (f.list.DeleteColumn(0)) {
    }
    QCOMPARE(f.table.columnCount(), 0);
    QCOMPARE(changed.size(), 0);
}

void tst_ListColumns::headerControl()
{
    ListFixture f;
    CHeaderCtrl_X* const header = f.list.GetHeaderCtrl();
    QVERIFY(header);
    QCOMPARE(header->GetSafeHwnd(), f.table.horizontalHeader());
    QCOMPARE(f.list.GetHeaderCtrl(), header);
    QCOMPARE(static_cast<CWnd_X*>(header), CWnd_X::FromHandle(f.table.horizontalHeader()));

    CWnd_X other;
    header->Detach();
    other.SubclassWindow(f.table.horizontalHeader());
    QCOMPARE(f.list.GetHeaderCtrl(), nullptr); // the host's own, of another class
}

void tst_ListColumns::withoutWidget()
{
    CListCtrl_X list;
    const tagQLVCOLUMNW record{};
    tagLVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    QCOMPARE(list.InsertColumn(0, L"x"), -1);
    QCOMPARE(list.InsertColumn(0, &record), -1);
    QCOMPARE(list.DeleteColumn(0), FALSE);
    QCOMPARE(list.SetColumn(0, &column), FALSE);
    QCOMPARE(list.GetColumn(0, &column), FALSE);
    QCOMPARE(list.GetColumnWidth(0), -1);
    QCOMPARE(list.SetColumnWidth(0, 10), FALSE);
    QCOMPARE(list.GetHeaderCtrl(), nullptr);
}

XE_TEST(tst_ListColumns)

#include "tst_listcolumns.moc"
