#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <random>

namespace {

// A cell that knows its row.
class PlacedCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(PlacedCell)

    using CGridCellBase_X::operator=;
    void SetCoords(int row, int col) override
    {
        place = {row, col};
        ++told;
    }

    CCellID_X place;
    int told = 0;
};

// A cell that makes its text when it is asked, always in the same place.
class MakingCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(MakingCell)

    using CGridCellBase_X::operator=;
    const wchar_t* GetText() const override
    {
        static std::wstring text;
        text = std::to_wstring(999 - GetData());
        return text.c_str();
    }
};

// The exchanges that the order of equal texts depends on, told once more.
void sortPlainly(std::vector<std::pair<std::wstring, int>>& rows, bool ascending, int low, int high)
{
    const auto before = [ascending](const std::wstring& a, const std::wstring& b) { return ascending ? a < b : b < a; };
    if (high <= low)
        return;
    const std::wstring middle = rows[static_cast<std::size_t>((low + high) / 2)].first;
    int i = low;
    int j = high;
    while (i <= j) {
        while (i < high && before(rows[static_cast<std::size_t>(i)].first, middle))
            ++i;
        while (j > low && before(middle, rows[static_cast<std::size_t>(j)].first))
            --j;
        if (i > j)
            break;
        if (rows[static_cast<std::size_t>(i)].first != rows[static_cast<std::size_t>(j)].first)
            std::swap(rows[static_cast<std::size_t>(i)], rows[static_cast<std::size_t>(j)]);
        ++i;
        --j;
    }
    if (j > low)
        sortPlainly(rows, ascending, low, j);
    if (i < high)
        sortPlainly(rows, ascending, i, high);
}

// The texts of a column below the heading.
QString columnOf(const CGridCtrl_X& grid, int col)
{
    QStringList texts;
    for (int row = 1; row < grid.GetRowCount(); ++row)
        texts += XeQString(grid.GetItemText(row, col));
    return texts.join(QLatin1Char(' '));
}

void setColumn(CGridCtrl_X& grid, int col, const QString& texts)
{
    int row = 1;
    for (const QString& text : texts.split(QLatin1Char(' ')))
        grid.SetItemText(row++, col, CString_X(text));
}

} // namespace

class tst_GridSort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void orders_data();
    void orders();
    void wholeRowsMove();
    void twoRows();
    void focusAndSelectionGo();
    void nothingToDo_data();
    void nothingToDo();
    void rangeForm();
    void rangeFormKeepsMarks();
    void rangeFormOverAHeading();
    void likeTheExchanges_data();
    void likeTheExchanges();
    void cellsHearOfTheirPlace();
    void blocksAreUndone();
    void anEditEndsTheArrow();
    void noticesMayDelete();
    void manyEqualRows();
    void anyElements_data();
    void anyElements();
    void textsMadeWhenAskedFor();
};

IMPLEMENT_DYNCREATE_X(PlacedCell, CGridCell_X)
IMPLEMENT_DYNCREATE_X(MakingCell, CGridCell_X)

void tst_GridSort::orders_data()
{
    QTest::addColumn<QString>("texts");
    QTest::addColumn<int>("ascending");
    QTest::addColumn<QString>("sorted");

    QTest::newRow("ascending") << "c a b" << 1 << "a b c";
    QTest::newRow("descending") << "c a b" << 0 << "c b a";
    QTest::newRow("any value but 0 ascends") << "c a b" << 7 << "a b c";
    QTest::newRow("by code point") << QString::fromUtf8("ä a Z z 世") << 1 << QString::fromUtf8("Z a z ä 世");
    QTest::newRow("a beginning comes first") << "ab a abc" << 1 << "a ab abc";
    QTest::newRow("numbers are texts") << "9 10 100" << 1 << "10 100 9";
    QTest::newRow("in order already") << "a b c d" << 1 << "a b c d";
}

void tst_GridSort::orders()
{
    QFETCH(QString, texts);
    QFETCH(int, ascending);
    CGridCtrl_X grid(texts.count(QLatin1Char(' ')) + 2, 3, 1, 1);
    setColumn(grid, 2, texts);
    grid.SetItemText(0, 2, L"a heading");
    grid.SetModified(FALSE);
    QCOMPARE(grid.SortTextItems(2, ascending), 1);
    QTEST(columnOf(grid, 2), "sorted");
    QVERIFY(grid.GetItemText(0, 2) == L"a heading");
    QCOMPARE(grid.m_nSortColumn, 2);
    QCOMPARE(grid.m_bAscending, ascending);
    QCOMPARE(grid.GetModified(), 0);
}

void tst_GridSort::wholeRowsMove()
{
    CGridCtrl_X grid(4, 3, 1, 1);
    setColumn(grid, 1, QStringLiteral("c a b"));
    setColumn(grid, 2, QStringLiteral("3 1 2"));
    for (int row = 1; row < 4; ++row)
        grid.SetRowHeight(row, 10 * row);
    CGridCellBase_X* const cell = grid.cellAt(1, 2);
    grid.SortTextItems(1, TRUE);
    QCOMPARE(columnOf(grid, 2), QStringLiteral("1 2 3"));
    QCOMPARE(grid.cellAt(3, 2), cell); // the objects themselves
    QCOMPARE(grid.GetRowHeight(1), 20);
    QCOMPARE(grid.GetRowHeight(2), 30);
    QCOMPARE(grid.GetRowHeight(3), 10);
    QCOMPARE(grid.GetVirtualHeight(), 80);
}

void tst_GridSort::twoRows()
{
    CGridCtrl_X grid(3, 2, 1, 1);
    setColumn(grid, 1, QStringLiteral("b a"));
    QCOMPARE(grid.SortTextItems(1, TRUE), 1);
    QCOMPARE(columnOf(grid, 1), QStringLiteral("a b"));
    QCOMPARE(grid.SortTextItems(1, TRUE), 1);
    QCOMPARE(columnOf(grid, 1), QStringLiteral("a b"));
    QCOMPARE(grid.m_nSortColumn, 1);
}

void tst_GridSort::focusAndSelectionGo()
{
    GridWindow<> host(4, 3);
    setColumn(*host.grid, 1, QStringLiteral("c a b"));
    host.grid->SetFocusCell(2, 1);
    host.grid->SetSelectedRange(1, 1, 2, 2);
    host.window.take();
    host.grid->SortTextItems(1, TRUE);
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    QCOMPARE(host.selected(), QString());
    QCOMPARE(host.window.take(), QStringLiteral("CHANGING(2, 1)"));
}

void tst_GridSort::nothingToDo_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("result");

    QTest::newRow("no such column") << 3 << 1 << -1 << 0;
    QTest::newRow("a column below 0") << -1 << 1 << -1 << 0;
    QTest::newRow("one row") << 1 << 2 << 2 << 0;
    QTest::newRow("reversed") << 1 << 3 << 1 << 0;
    QTest::newRow("past the last row") << 1 << 9 << -1 << 0;
    QTest::newRow("to past the last row") << 1 << 1 << 99 << 1;
}

void tst_GridSort::nothingToDo()
{
    QFETCH(int, column);
    QFETCH(int, low);
    QFETCH(int, high);
    CGridCtrl_X grid(4, 3, 1, 1);
    setColumn(grid, 1, QStringLiteral("c a b"));
    QTEST(grid.SortTextItems(column, TRUE, low, high), "result");
    if (column != 1)
        QCOMPARE(grid.SortTextItems(column, TRUE), 0);
    CGridCtrl_X small(2, 2, 1, 1);
    QCOMPARE(small.SortTextItems(1, TRUE), 0);
}

void tst_GridSort::rangeForm()
{
    CGridCtrl_X grid(6, 2, 1, 1);
    setColumn(grid, 1, QStringLiteral("e d c b a"));
    QCOMPARE(grid.SortTextItems(1, TRUE, 2, 4), 1);
    QCOMPARE(columnOf(grid, 1), QStringLiteral("e b c d a"));
    QCOMPARE(grid.m_nSortColumn, -1);
    QCOMPARE(grid.SortTextItems(1, TRUE, 3, -1), 1);
    QCOMPARE(columnOf(grid, 1), QStringLiteral("e b a c d"));
}

void tst_GridSort::rangeFormKeepsMarks()
{
    GridWindow<> host(4, 2);
    setColumn(*host.grid, 1, QStringLiteral("c a b"));
    host.grid->SetFocusCell(1, 1);
    host.grid->SetItemState(2, 1, CGridCellBase_X::Selected);
    host.window.take();
    host.grid->SortTextItems(1, TRUE, 1, 3);
    QCOMPARE(host.focus(), QStringLiteral("3,1"));
    QCOMPARE(host.inState(CGridCellBase_X::Focused), QStringLiteral("3,1"));
    QCOMPARE(host.selected(), QStringLiteral("1,1"));
    CCellID_X cell;
    QVERIFY(host.grid->m_SelectedCellMap.Lookup(1 | 1 << 16, cell));
    QCOMPARE(host.grid->m_SelectedCellMap.GetCount(), 1LL);
    QCOMPARE(host.window.take(), QString());
}

void tst_GridSort::rangeFormOverAHeading()
{
    CGridCtrl_X grid(3, 2, 1, 1);
    grid.SetItemText(0, 1, L"z");
    setColumn(grid, 1, QStringLiteral("b a"));
    grid.SortTextItems(1, TRUE, 0, -1);
    QVERIFY(grid.GetItemText(0, 1) == L"a");
    for (int row = 0; row < 3; ++row)
        QCOMPARE(grid.GetItemState(row, 1) & CGridCellBase_X::Fixed, row == 0 ? 16u : 0u);
}

void tst_GridSort::likeTheExchanges_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("texts");
    QTest::addColumn<bool>("ascending");

    for (const int texts : {2, 10, 1000}) {
        QTest::addRow("%d texts", texts) << 300 << texts << true;
        QTest::addRow("%d texts, descending", texts) << 300 << texts << false;
    }
    constexpr int nearlyAll = 1'000'000'000;
    QTest::newRow("different texts") << 2000 << nearlyAll << true;
    QTest::newRow("different texts, descending") << 2000 << nearlyAll << false;
}

void tst_GridSort::likeTheExchanges()
{
    QFETCH(int, rows);
    QFETCH(int, texts);
    QFETCH(bool, ascending);
    std::mt19937 random(static_cast<unsigned>(texts));
    CGridCtrl_X grid(rows, 2, 0, 0);
    std::vector<std::pair<std::wstring, int>> plain;
    for (int row = 0; row < rows; ++row) {
        plain.emplace_back(std::to_wstring(static_cast<int>(random()) % texts), row);
        grid.SetItemText(row, 1, plain.back().first.c_str());
        grid.SetItemData(row, 0, row);
    }
    sortPlainly(plain, ascending, 0, rows - 1);
    grid.SortTextItems(1, ascending);
    for (int row = 0; row < rows; ++row) {
        QCOMPARE(grid.GetItemData(row, 0), static_cast<long long>(plain[static_cast<std::size_t>(row)].second));
        QVERIFY(grid.GetItemText(row, 1) == plain[static_cast<std::size_t>(row)].first.c_str());
    }
}

void tst_GridSort::cellsHearOfTheirPlace()
{
    CGridCtrl_X grid(5, 2, 1, 1);
    for (int row = 1; row < 5; ++row)
        grid.SetCellType(row, 1, RUNTIME_CLASS_X(PlacedCell));
    setColumn(grid, 1, QStringLiteral("a d c b"));
    grid.SortTextItems(1, TRUE);
    for (int row = 1; row < 5; ++row) {
        const auto* const cell = static_cast<const PlacedCell*>(grid.cellAt(row, 1));
        QCOMPARE(cell->place, CCellID_X(row, 1));
        QCOMPARE(cell->told, row == 2 || row == 4 ? 2 : 1); // those that have moved
    }
}

void tst_GridSort::blocksAreUndone()
{
    CGridCtrl_X grid(7, 4, 1, 1);
    setColumn(grid, 1, QStringLiteral("a c b d e f"));
    grid.SetCellCombine(3, 2, 1, 1, 0); // row 3 moves
    grid.SetCellCombine(5, 2, 1, 1, 0);
    grid.SortTextItems(1, TRUE);
    for (int row = 1; row < 5; ++row) {
        for (int col = 1; col < 4; ++col)
            QVERIFY(!grid.cellAt(row, col)->m_bMergeSlave && !grid.cellAt(row, col)->m_nMergeRows);
    }
    QCOMPARE(grid.cellAt(5, 2)->m_nMergeRows, 1);
    QCOMPARE(grid.cellAt(6, 3)->m_bMergeSlave, 1);
}

void tst_GridSort::anEditEndsTheArrow()
{
    CGridCtrl_X grid(3, 2, 1, 1);
    setColumn(grid, 1, QStringLiteral("b a"));
    grid.SortTextItems(1, TRUE);
    QCOMPARE(grid.m_nSortColumn, 1);
    grid.SetItemText(1, 1, L"c");
    QCOMPARE(grid.m_nSortColumn, -1);
}

void tst_GridSort::noticesMayDelete()
{
    GridWindow<> host(4, 2);
    setColumn(*host.grid, 1, QStringLiteral("c a b"));
    host.grid->SetFocusCell(1, 1);
    host.window.onNotice = [&host](const XeGridNotification&) { host.grid.reset(); };
    QCOMPARE(host.grid->SortTextItems(1, TRUE), 0);
    QVERIFY(!host.grid);
}

void tst_GridSort::manyEqualRows()
{
    CGridCtrl_X grid(100'000, 1, 0, 0);
    QCOMPARE(grid.SortTextItems(0, TRUE), 1);
    for (int row = 0; row < grid.GetRowCount(); ++row)
        grid.SetItemText(row, 0, std::to_wstring(100'000 + row).c_str());
    QCOMPARE(grid.SortTextItems(0, FALSE), 1); // from the other order
    QVERIFY(grid.GetItemText(0, 0) == L"199999");
}

void tst_GridSort::anyElements_data()
{
    QTest::addColumn<std::size_t>("shortest");
    QTest::addColumn<bool>("ascending");

    QTest::newRow("short texts") << std::size_t(0) << true;
    QTest::newRow("short texts, descending") << std::size_t(0) << false;
    QTest::newRow("long texts") << std::size_t(4) << true;
    QTest::newRow("long texts, descending") << std::size_t(4) << false;
}

// Also such as are no code points: the order is that of the numbers.
void tst_GridSort::anyElements()
{
    QFETCH(std::size_t, shortest);
    QFETCH(bool, ascending);
    constexpr int elements[] = {1,       2,        'a',      0x7F,     0x80,       0x7FF, 0x800,      0xFFFF,
                                0x10000, 0x10FFFF, 0x1FFFFF, 0x200000, 0x7FFFFFFF, -1,    -0x7FFFFFFF};
    constexpr int rows = 1500;
    std::mt19937 random(7);
    CGridCtrl_X grid(rows, 1, 0, 0);
    std::vector<std::wstring> expected;
    for (int row = 0; row < rows; ++row) {
        std::wstring text;
        for (std::size_t length = shortest + random() % 5; length > 0; --length)
            text += static_cast<wchar_t>(elements[random() % std::size(elements)]);
        grid.SetItemText(row, 0, text.c_str());
        expected.push_back(text);
    }
    std::sort(expected.begin(), expected.end());
    if (!ascending)
        std::reverse(expected.begin(), expected.end());
    grid.SortTextItems(0, ascending);
    for (int row = 0; row < rows; ++row)
        QVERIFY(grid.GetItemText(row, 0) == expected[static_cast<std::size_t>(row)].c_str());
}

void tst_GridSort::textsMadeWhenAskedFor()
{
    CGridCtrl_X grid(6, 1, 0, 0);
    for (int row = 0; row < 6; ++row) {
        grid.SetCellType(row, 0, row == 0 ? RUNTIME_CLASS_X(CGridCell_X) : RUNTIME_CLASS_X(MakingCell));
        grid.SetItemData(row, 0, row);
    }
    grid.SetItemText(0, 0, L"9955");
    grid.SortTextItems(0, TRUE);
    QStringList order;
    for (int row = 0; row < 6; ++row)
        order += QString::number(grid.GetItemData(row, 0));
    QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("5 4 0 3 2 1"));
}

XE_TEST(tst_GridSort)

#include "tst_gridsort.moc"
