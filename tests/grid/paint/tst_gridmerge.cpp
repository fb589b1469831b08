#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

// A cell's merge record as "right bottom slave style rows cols masterRow masterCol".
QString recordOf(const CGridCtrl_X& grid, int row, int col)
{
    const CGridCellBase_X& cell = *grid.cellAt(row, col);
    return QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
        .arg(cell.m_bMergeRight)
        .arg(cell.m_bMergeBottom)
        .arg(cell.m_bMergeSlave)
        .arg(cell.m_nMergeStyle)
        .arg(cell.m_nMergeRows)
        .arg(cell.m_nMergeCols)
        .arg(cell.m_nMasterRow)
        .arg(cell.m_nMasterCol);
}

const QString plain = QStringLiteral("0 0 0 0 0 0 0 0");

} // namespace

Q_DECLARE_METATYPE(CRect)

class tst_GridMerge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void blockOfCells();
    void blockOfHeadings();
    void oneRow();
    void noCellsMore();
    void refused_data();
    void refused();
    void refusedForHeadings_data();
    void refusedForHeadings();
    void occupied();
    void undo();
    void undoOfAHeading();
    void undoOfOtherCells();
    void undoOfALeftover();
    void blocksChangeNothingElse();
};

void tst_GridMerge::blockOfCells()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    QCOMPARE(grid.SetCellCombine(1, 2, 1, 2, 7), 1);
    QCOMPARE(recordOf(grid, 1, 2), QStringLiteral("1 1 0 7 1 2 0 0"));
    QCOMPARE(recordOf(grid, 1, 3), QStringLiteral("1 1 1 7 0 0 1 2"));
    QCOMPARE(recordOf(grid, 1, 4), QStringLiteral("0 1 1 7 0 0 1 2"));
    QCOMPARE(recordOf(grid, 2, 2), QStringLiteral("1 0 1 7 0 0 1 2"));
    QCOMPARE(recordOf(grid, 2, 3), QStringLiteral("1 0 1 7 0 0 1 2"));
    QCOMPARE(recordOf(grid, 2, 4), QStringLiteral("0 0 1 7 0 0 1 2"));
    QCOMPARE(recordOf(grid, 1, 5), plain);
    QCOMPARE(recordOf(grid, 3, 2), plain);
}

void tst_GridMerge::blockOfHeadings()
{
    CGridCtrl_X grid(6, 6, 2, 1);
    QCOMPARE(grid.SetFixedCellCombine(0, 2, 1, 1), 1);
    QCOMPARE(recordOf(grid, 0, 2), QStringLiteral("0 0 0 0 1 1 0 2"));
    QCOMPARE(recordOf(grid, 0, 3), QStringLiteral("0 0 1 0 0 0 0 2"));
    QCOMPARE(recordOf(grid, 1, 2), QStringLiteral("0 0 1 0 0 0 0 2"));
    QCOMPARE(recordOf(grid, 1, 3), QStringLiteral("0 0 1 0 0 0 0 2"));
}

void tst_GridMerge::oneRow()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    QCOMPARE(grid.SetCellCombine(1, 1, 0, 1, 2), 1);
    QCOMPARE(recordOf(grid, 1, 1), QStringLiteral("1 0 0 2 0 1 0 0"));
    QCOMPARE(recordOf(grid, 1, 2), QStringLiteral("0 0 1 2 0 0 1 1"));
}

void tst_GridMerge::noCellsMore()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    QCOMPARE(grid.SetCellCombine(1, 1, 0, 0, 5), 1);
    QCOMPARE(recordOf(grid, 1, 1), QStringLiteral("0 0 0 5 0 0 0 0"));
}

void tst_GridMerge::refused_data()
{
    QTest::addColumn<CRect>("block"); // row, column, further rows, further columns
    QTest::addColumn<int>("result");

    QTest::newRow("no such first cell") << CRect(-1, 1, 1, 1) << 0;
    QTest::newRow("too many rows") << CRect(3, 1, 1, 1) << 0;
    QTest::newRow("too many columns") << CRect(1, 3, 1, 1) << 0;
    QTest::newRow("more than any number of rows") << CRect(1, 1, 2147483647, 1) << 0;
    QTest::newRow("rows below 0") << CRect(2, 2, -1, 1) << 0;
    QTest::newRow("columns below 0") << CRect(2, 2, 1, -1) << 0;
    QTest::newRow("a heading gives 1") << CRect(0, 1, 1, 1) << 1;
    QTest::newRow("a heading at the left gives 1") << CRect(1, 0, 1, 1) << 1;
}

void tst_GridMerge::refused()
{
    QFETCH(CRect, block);
    QFETCH(int, result);
    CGridCtrl_X grid(4, 4, 1, 1);
    QCOMPARE(grid.SetCellCombine(block.left, block.top, block.right, block.bottom, 9), result);
    for (int i = 0; i < 16; ++i)
        QCOMPARE(recordOf(grid, i / 4, i % 4), plain);
}

void tst_GridMerge::refusedForHeadings_data()
{
    QTest::addColumn<CRect>("block");
    QTest::addColumn<int>("result");

    QTest::newRow("the far corner is no heading") << CRect(0, 1, 1, 1) << 0;
    QTest::newRow("an ordinary cell") << CRect(1, 1, 1, 1) << 0;
    QTest::newRow("beyond the grid") << CRect(0, 1, 0, 3) << 0;
    QTest::newRow("below 0") << CRect(0, 2, 0, -1) << 0;
}

void tst_GridMerge::refusedForHeadings()
{
    QFETCH(CRect, block);
    QFETCH(int, result);
    CGridCtrl_X grid(4, 4, 1, 1);
    QCOMPARE(grid.SetFixedCellCombine(block.left, block.top, block.right, block.bottom), result);
    for (int i = 0; i < 16; ++i)
        QCOMPARE(recordOf(grid, i / 4, i % 4), plain);
}

void tst_GridMerge::occupied()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    grid.SetCellCombine(2, 2, 1, 1, 0);
    QCOMPARE(grid.SetCellCombine(3, 3, 1, 1, 0), 0); // covered
    QCOMPARE(grid.SetCellCombine(1, 1, 1, 1, 0), 0); // the first cell of a block
    QCOMPARE(recordOf(grid, 1, 1), plain);
    QCOMPARE(grid.SetCellCombine(4, 1, 1, 4, 0), 1);
    grid.SetFixedCellCombine(0, 1, 0, 1);
    QCOMPARE(grid.SetFixedCellCombine(0, 2, 0, 1), 0);
}

void tst_GridMerge::undo()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    grid.SetCellCombine(1, 1, 2, 2, 3);
    QCOMPARE(grid.UndoCellCombine(1, 1), 1);
    for (int i = 0; i < 36; ++i)
        QCOMPARE(recordOf(grid, i / 6, i % 6), plain);
    QCOMPARE(grid.SetCellCombine(2, 2, 1, 1, 0), 1);
}

void tst_GridMerge::undoOfAHeading()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    grid.SetFixedCellCombine(0, 1, 0, 3);
    grid.UndoCellCombine(0, 1);
    for (int i = 0; i < 36; ++i)
        QCOMPARE(recordOf(grid, i / 6, i % 6), plain);
}

void tst_GridMerge::undoOfOtherCells()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    grid.SetCellCombine(1, 1, 1, 1, 3);
    const QString covered = recordOf(grid, 2, 2);
    grid.UndoCellCombine(2, 2);
    grid.UndoCellCombine(4, 4);
    QCOMPARE(recordOf(grid, 2, 2), covered);
    QCOMPARE(recordOf(grid, 1, 1), QStringLiteral("1 1 0 3 1 1 0 0"));
    QCOMPARE(grid.UndoCellCombine(6, 0), 0);
    QCOMPARE(grid.UndoCellCombine(0, -1), 0);
}

void tst_GridMerge::undoOfALeftover()
{
    CGridCtrl_X grid(6, 6, 1, 1);
    CGridCellBase_X* const cell = grid.cellAt(2, 2);
    cell->m_nMergeRows = -1;
    cell->m_nMergeCols = 2;
    cell->m_bMergeRight = cell->m_bMergeBottom = cell->m_bMergeSlave = 1;
    cell->m_nMergeStyle = 4;
    grid.UndoCellCombine(2, 2);
    QCOMPARE(recordOf(grid, 2, 2), QStringLiteral("0 0 0 4 0 0 0 0"));
}

void tst_GridMerge::blocksChangeNothingElse()
{
    GridWindow<> host(6, 6);
    host.grid->SetCellCombine(1, 1, 1, 1, 0);
    QCOMPARE(host.grid->GetCellFromPt(CPoint(110, 50)), CCellID_X(2, 2));
    CRect rect;
    host.grid->GetCellRect(1, 1, &rect);
    QCOMPARE(rect, CRect(50, 20, 99, 39));
    host.grid->SetFocusCell(2, 2);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
}

XE_TEST(tst_GridMerge)

#include "tst_gridmerge.moc"
