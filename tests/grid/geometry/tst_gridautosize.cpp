#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

QString sizesOf(const CUIntArray_X& sizes)
{
    QStringList list;
    for (long long i = 0; i < sizes.GetSize(); ++i)
        list += QString::number(sizes[i]);
    return list.join(QLatin1Char(' '));
}

int widthOf(const wchar_t* text, bool isBold = false)
{
    QFont font;
    font.setWeight(isBold ? QFont::DemiBold : font.weight());
    return QFontMetrics(font).horizontalAdvance(XeQString(text)) + 12;
}

} // namespace

class tst_GridAutoSize : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void column();
    void row();
    void everyFontMeasuresForItself();
    void manyTexts();
    void all();
    void bothAtOnce();
    void mergedCellsDoNotCount();
    void emptyLinesStayVisible();
    void expandColumns_data();
    void expandColumns();
    void expandRows();
    void hiddenLinesStayHidden();
    void expandLeavesTheBarThatIsNeeded();
    void expandToFit();
};

void tst_GridAutoSize::column()
{
    ShownGrid<> shown(5, 4, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    grid.SetItemText(0, 1, L"a long heading");
    grid.SetItemText(3, 1, L"short");
    QCOMPARE(grid.AutoSizeColumn(-1), 0);
    QCOMPARE(grid.AutoSizeColumn(4), 0);
    QCOMPARE(grid.AutoSizeColumn(1), 1);
    QCOMPARE(grid.GetColumnWidth(1), widthOf(L"a long heading", true));
    QCOMPARE(grid.AutoSizeColumn(1, TRUE), 1);
    QCOMPARE(grid.GetColumnWidth(1), widthOf(L"short"));
    grid.SetColumnWidth(1, 0);
    QCOMPARE(grid.AutoSizeColumn(1), 0);
    QCOMPARE(grid.GetColumnWidth(1), 0);
}

// The same text again and again, in cells whose fonts differ, are shared or are only alike.
void tst_GridAutoSize::everyFontMeasuresForItself()
{
    ShownGrid<> shown(6, 1, 1, 0);
    CGridCtrl_X& grid = shown.grid;
    for (int row = 0; row < 6; ++row)
        grid.SetItemText(row, 0, L"one text");
    QFont large;
    large.setPixelSize(40);
    const int wide = QFontMetrics(large).horizontalAdvance(QStringLiteral("one text")) + 12;
    for (int row = 1; row < 6; ++row) {
        grid.cellAt(row, 0)->SetFont(reinterpret_cast<const CFont_X*>(&large));
        grid.AutoSizeColumn(0);
        QCOMPARE(grid.GetColumnWidth(0), wide);
        QFont again;
        grid.cellAt(row, 0)->SetFont(reinterpret_cast<const CFont_X*>(&again));
    }
    grid.AutoSizeColumn(0);
    QCOMPARE(grid.GetColumnWidth(0), widthOf(L"one text", true));
    grid.AutoSizeColumn(0, TRUE);
    QCOMPARE(grid.GetColumnWidth(0), widthOf(L"one text"));
}

// The widest comes last, behind more than are remembered.
void tst_GridAutoSize::manyTexts()
{
    constexpr int rows = 1500;
    CGridCtrl_X grid(rows, 1, 0, 0);
    for (int row = 0; row < rows; ++row)
        grid.SetItemText(row, 0, std::to_wstring(row).c_str());
    grid.SetItemText(rows - 1, 0, L"widest of all");
    grid.AutoSizeColumn(0);
    QCOMPARE(grid.GetColumnWidth(0), widthOf(L"widest of all"));
}

void tst_GridAutoSize::row()
{
    ShownGrid<> shown(5, 4, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    QFont large;
    large.setPixelSize(40);
    grid.SetItemFont(2, 3, reinterpret_cast<const CFont_X*>(&large));
    QCOMPARE(grid.AutoSizeRow(5), 0);
    QCOMPARE(grid.AutoSizeRow(2), 1);
    QCOMPARE(grid.GetRowHeight(2), QFontMetrics(large).height() + 6);
    grid.SetRowHeight(2, 0);
    QCOMPARE(grid.AutoSizeRow(2), 0);
}

void tst_GridAutoSize::all()
{
    ShownGrid<> shown(3, 3, 0, 0);
    CGridCtrl_X& grid = shown.grid;
    grid.SetItemText(1, 1, L"text");
    grid.SetColumnWidth(2, 0);
    grid.SetRowHeight(2, 0);
    grid.AutoSizeColumns();
    QCOMPARE(sizesOf(grid.m_arColWidths), QStringLiteral("12 %1 0").arg(widthOf(L"text")));
    grid.AutoSizeRows();
    const int height = QFontMetrics(QFont()).height() + 6;
    QCOMPARE(sizesOf(grid.m_arRowHeights), QStringLiteral("%1 %1 0").arg(height));
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridAutoSize::bothAtOnce()
{
    ShownGrid<> shown(3, 3, 1, 0);
    CGridCtrl_X& grid = shown.grid;
    const int height = QFontMetrics(QFont()).height() + 6;
    grid.SetItemText(0, 1, L"a long heading");
    grid.SetItemText(1, 1, L"text");
    grid.SetColumnWidth(2, 0);
    grid.AutoSize();
    QCOMPARE(sizesOf(grid.m_arColWidths), QStringLiteral("12 %1 0").arg(widthOf(L"a long heading", true)));
    QCOMPARE(grid.GetRowHeight(1), height);
    grid.SetRowHeight(0, 77);
    grid.SetRowHeight(2, 0);
    grid.AutoSize(TRUE);
    QCOMPARE(sizesOf(grid.m_arColWidths), QStringLiteral("12 %1 0").arg(widthOf(L"text")));
    QCOMPARE(sizesOf(grid.m_arRowHeights), QStringLiteral("77 %1 0").arg(height));
}

void tst_GridAutoSize::mergedCellsDoNotCount()
{
    ShownGrid<> shown(3, 4, 1, 0);
    CGridCtrl_X& grid = shown.grid;
    grid.SetItemText(0, 1, L"a heading over three columns");
    grid.SetItemText(1, 1, L"text");
    grid.cellAt(0, 1)->m_nMergeCols = 2;
    grid.cellAt(0, 2)->m_bMergeSlave = 1;
    grid.SetItemText(0, 2, L"covered");
    grid.AutoSizeColumns();
    QCOMPARE(sizesOf(grid.m_arColWidths), QStringLiteral("12 %1 12 12").arg(widthOf(L"text")));
}

void tst_GridAutoSize::emptyLinesStayVisible()
{
    ShownGrid<> shown(2, 2, 0, 0);
    CGridCtrl_X& grid = shown.grid;
    for (const CCellID_X cell : {CCellID_X(0, 0), CCellID_X(0, 1), CCellID_X(1, 0), CCellID_X(1, 1)})
        grid.cellAt(cell.row, cell.col)->SetMargin(0);
    grid.AutoSizeColumns();
    QCOMPARE(sizesOf(grid.m_arColWidths), QStringLiteral("1 1"));
}

void tst_GridAutoSize::expandColumns_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("sizes");

    QTest::newRow("an equal share") << 400 << "100 100 100 100";
    QTest::newRow("the rest goes to the first") << 403 << "101 101 101 100";
    QTest::newRow("narrower") << 100 << "25 25 25 25";
    QTest::newRow("narrower with a rest") << 101 << "25 25 25 26";
    QTest::newRow("never hidden") << 2 << "1 1 1 1";
}

void tst_GridAutoSize::expandColumns()
{
    QFETCH(int, width);
    ShownGrid<> shown(3, 4, 1, 1, {width, 300});
    shown.grid.ExpandColumnsToFit();
    QTEST(sizesOf(shown.grid.m_arColWidths), "sizes");
    QCOMPARE(GridSanity::problems(shown.grid), QString());
}

void tst_GridAutoSize::expandRows()
{
    ShownGrid<> shown(4, 3, 1, 1, {400, 302});
    shown.grid.ExpandRowsToFit();
    QCOMPARE(sizesOf(shown.grid.m_arRowHeights), QStringLiteral("76 76 75 75"));
}

void tst_GridAutoSize::hiddenLinesStayHidden()
{
    ShownGrid<> shown(3, 4, 1, 1, {301, 300});
    shown.grid.SetColumnWidth(1, 0);
    shown.grid.ExpandColumnsToFit();
    QCOMPARE(sizesOf(shown.grid.m_arColWidths), QStringLiteral("101 0 100 100"));
    for (int col = 0; col < 4; ++col)
        shown.grid.SetColumnWidth(col, 0);
    shown.grid.ExpandColumnsToFit();
    QCOMPARE(sizesOf(shown.grid.m_arColWidths), QStringLiteral("0 0 0 0"));
}

void tst_GridAutoSize::expandLeavesTheBarThatIsNeeded()
{
    ShownGrid<> shown(100, 40, 1, 1, {417, 300});
    shown.grid.SetScrollPos32(SB_HORZ, 300);
    shown.grid.ExpandColumnsToFit();
    QCOMPARE(shown.grid.GetVirtualWidth(), 400);
    QCOMPARE(shown.grid.m_nBarState, 2);
    QCOMPARE(shown.grid.GetTopleftNonFixedCell().col, 1); // nothing is scrolled away sideways any more
}

void tst_GridAutoSize::expandToFit()
{
    ShownGrid<> shown(10, 4, 1, 1, {400, 300});
    shown.grid.ExpandToFit();
    QCOMPARE(sizesOf(shown.grid.m_arColWidths), QStringLiteral("100 100 100 100"));
    QCOMPARE(shown.grid.GetVirtualHeight(), 300);
    QCOMPARE(shown.grid.m_nBarState, 0);
    shown.grid.SetRedraw(FALSE);
    shown.grid.ExpandRowsToFit();
    QCOMPARE(shown.grid.GetVirtualHeight(), 300);
}

XE_TEST(tst_GridAutoSize)
#include "tst_gridautosize.moc"
