#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdc.h>
#include <xecolor.h>

namespace {

// Stores more than an ordinary cell, so that it shows what a change of the class takes over.
class CNumberCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CNumberCell)
    void SetCoords(int row, int col) override { place = CCellID_X(row, col); }
    CCellID_X place;
};
IMPLEMENT_DYNCREATE_X(CNumberCell, CGridCell_X)

// A class that cannot be made by name.
class CUnmadeCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CUnmadeCell)
};
IMPLEMENT_DYNAMIC_X(CUnmadeCell, CGridCell_X)

} // namespace

class tst_GridItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void noCell_data();
    void noCell();
    void values();
    void whatMarksAsModified();
    void modifiedFlags();
    void modifiedOffClearsAll();
    void firstRowAndColumn();
    void sortArrowGoes();
    void stateAndSelection();
    void farCells();
    void record();
    void recordsMask();
    void recordMarksByTheRow();
    void ranges();
    void editableAndSelected();
    void cellType();
    void cellTypeRefused();
    void defaultCellType();
    void nullCells();
};

void tst_GridItems::noCell_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");

    QTest::newRow("negative row") << -1 << 0;
    QTest::newRow("negative column") << 0 << -1;
    QTest::newRow("row at the count") << 3 << 0;
    QTest::newRow("column at the count") << 0 << 3;
    QTest::newRow("no cell object") << 1 << 1;
}

void tst_GridItems::noCell()
{
    QFETCH(int, row);
    QFETCH(int, column);
    CGridCtrl_X grid(3, 3, 0, 0);
    delete std::exchange((*grid.m_RowData[1])[1], nullptr);
    _GV_ITEM_X item;
    item.row = row;
    item.col = column;
    item.mask = 511;
    tagRECT rect{};
    QVERIFY(!grid.cellAt(row, column));
    QVERIFY(grid.GetItemText(row, column).IsEmpty());
    QCOMPARE(grid.SetItemText(row, column, L"x"), 0);
    QCOMPARE(grid.GetItemData(row, column), 0LL);
    QCOMPARE(grid.SetItemData(row, column, 1), 0);
    QCOMPARE(grid.GetItemImage(row, column), 0);
    QCOMPARE(grid.SetItemImage(row, column, 1), 0);
    QCOMPARE(grid.GetItemTile(row, column), 0);
    QCOMPARE(grid.SetItemTile(row, column, 1), 0);
    QCOMPARE(grid.GetItemState(row, column), 0U);
    QCOMPARE(grid.SetItemState(row, column, 2), 0);
    QCOMPARE(grid.GetItemFormat(row, column), 0U);
    QCOMPARE(grid.SetItemFormat(row, column, 1), 0);
    QCOMPARE(grid.GetItemBkColour(row, column), 0U);
    QCOMPARE(grid.SetItemBkColour(row, column, 1), 0);
    QCOMPARE(grid.GetItemFgColour(row, column), 0U);
    QCOMPARE(grid.SetItemFgColour(row, column, 1), 0);
    QVERIFY(grid.GetItemFont(row, column) == &grid.m_Font);
    QCOMPARE(grid.SetItemFont(row, column, nullptr), 0);
    QCOMPARE(grid.IsItemEditing(row, column), 0);
    QCOMPARE(grid.GetItem(&item), 0);
    QCOMPARE(grid.SetItem(&item), 0);
    QCOMPARE(grid.GetTextExtent(row, column, L"x"), CSize(0, 0));
    QCOMPARE(grid.GetTextRect(row, column, &rect), 0);
    QCOMPARE(grid.m_bModified, 0);
    QVERIFY(grid.m_SelectedCellMap.IsEmpty());
}

void tst_GridItems::values()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    QFont font;
    font.setPixelSize(31);
    QCOMPARE(grid.SetItemText(1, 2, L"x"), 1);
    QCOMPARE(grid.SetItemData(1, 2, 0x123456789ALL), 1);
    QCOMPARE(grid.SetItemImage(1, 2, 3), 1);
    QCOMPARE(grid.SetItemTile(1, 2, 4), 1);
    QCOMPARE(grid.SetItemFormat(1, 2, DT_RIGHT), 1);
    QCOMPARE(grid.SetItemBkColour(1, 2, 5), 1);
    QCOMPARE(grid.SetItemFgColour(1, 2, 6), 1);
    QCOMPARE(grid.SetItemFont(1, 2, reinterpret_cast<const CFont_X*>(&font)), 1);
    QVERIFY(grid.GetItemText(1, 2) == L"x");
    QCOMPARE(grid.GetItemData(1, 2), 0x123456789ALL);
    QCOMPARE(grid.GetItemImage(1, 2), 3);
    QCOMPARE(grid.GetItemTile(1, 2), 4);
    QCOMPARE(grid.GetItemFormat(1, 2), DT_RIGHT);
    QCOMPARE(grid.GetItemBkColour(1, 2), 5U);
    QCOMPARE(grid.GetItemFgColour(1, 2), 6U);
    QCOMPARE(*grid.GetItemFont(1, 2), font);
    grid.SetItemBkColour(1, 2);
    QCOMPARE(grid.GetItemBkColour(1, 2), 0xFF000000U);
    QCOMPARE(textOf(grid), QStringLiteral(",,|,,x|,,"));
}

void tst_GridItems::whatMarksAsModified()
{
    const auto marks = [](const std::function<void(CGridCtrl_X&)>& change) {
        CGridCtrl_X grid(3, 3, 0, 0);
        change(grid);
        return grid.m_bModified && grid.GetItemState(1, 1) == CGridCellBase_X::Modified;
    };
    QVERIFY(marks([](CGridCtrl_X& grid) { grid.SetItemText(1, 1, L"x"); }));
    QVERIFY(marks([](CGridCtrl_X& grid) { grid.SetItemData(1, 1, 1); }));
    QVERIFY(marks([](CGridCtrl_X& grid) { grid.SetItemImage(1, 1, 1); }));
    QVERIFY(marks([](CGridCtrl_X& grid) { grid.SetItemTile(1, 1, 1); }));
    QVERIFY(!marks([](CGridCtrl_X& grid) { grid.SetItemFormat(1, 1, 1); }));
    QVERIFY(!marks([](CGridCtrl_X& grid) { grid.SetItemBkColour(1, 1, 1); }));
    QVERIFY(!marks([](CGridCtrl_X& grid) { grid.SetItemFgColour(1, 1, 1); }));
    QVERIFY(!marks([](CGridCtrl_X& grid) { grid.SetItemFont(1, 1, nullptr); }));
}

void tst_GridItems::modifiedFlags()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    grid.SetModified(TRUE, 1, 2);
    QCOMPARE(grid.GetModified(1, 2), 1);
    QCOMPARE(grid.GetModified(1, 1), 0);
    QCOMPARE(grid.GetModified(), 1);
    grid.SetModified(FALSE, 1, 2);
    QCOMPARE(grid.GetModified(1, 2), 0);
    QCOMPARE(grid.GetModified(), 1); // one cell taken back leaves the grid's
    grid.SetModified(TRUE, 9, 9);
    QCOMPARE(grid.GetModified(9, 9), 0);
}

void tst_GridItems::modifiedOffClearsAll()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    grid.SetModified(TRUE, 1, 2);
    grid.SetModified(TRUE, 2, 2);
    grid.SetModified(FALSE);
    QCOMPARE(grid.GetModified(), 0);
    QCOMPARE(grid.GetItemState(1, 2), 0U);
    QCOMPARE(grid.GetItemState(2, 2), 0U);
}

void tst_GridItems::firstRowAndColumn()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    grid.SetItemText(0, 2, L"x");
    QCOMPARE(grid.GetModified(0, 2), 1);
    QCOMPARE(grid.GetModified(2, 0), 1);
    QCOMPARE(grid.GetItemState(0, 2), 0U);
    grid.SetModified(TRUE, 1, 1);
    grid.SetModified(FALSE, 0, 2); // the grid's flag, and so all
    QCOMPARE(grid.GetItemState(1, 1), 0U);
}

void tst_GridItems::sortArrowGoes()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    grid.m_nSortColumn = 1;
    grid.SetItemFormat(1, 1, 0);
    QCOMPARE(grid.m_nSortColumn, 1);
    grid.SetItemText(1, 1, L"x");
    QCOMPARE(grid.m_nSortColumn, -1);
    grid.m_nSortColumn = 1;
    grid.SetModified(FALSE, 9, 9);
    QCOMPARE(grid.m_nSortColumn, -1);
}

void tst_GridItems::stateAndSelection()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    QCOMPARE(grid.SetItemState(1, 2, CGridCellBase_X::Selected | CGridCellBase_X::ReadOnly), 1);
    QCOMPARE(grid.GetItemState(1, 2), 10U);
    const auto* const pair = grid.m_SelectedCellMap.PLookup(0x00020001);
    QVERIFY(pair);
    QCOMPARE(textOf(pair->value), QStringLiteral("1 2"));
    grid.SetItemState(1, 2, CGridCellBase_X::ReadOnly);
    QVERIFY(grid.m_SelectedCellMap.IsEmpty());
    grid.cellAt(1, 2)->SetState(CGridCellBase_X::Selected); // the cell alone
    QVERIFY(grid.m_SelectedCellMap.IsEmpty());
    QCOMPARE(grid.GetItemState(1, 2), 2U);
}

// The keys of the map have 16 bits for a row: row 65537 would be row 1.
void tst_GridItems::farCells()
{
    CGridCtrl_X grid(65540, 1, 0, 0);
    grid.SetItemState(1, 0, CGridCellBase_X::Selected);
    grid.SetItemState(65537, 0, CGridCellBase_X::Selected);
    grid.SetItemState(65537, 0, 0);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 1LL);
    grid.SetItemState(65538, 0, CGridCellBase_X::Selected);
    grid.DeleteRow(0);
    QCOMPARE(grid.GetItemState(65537, 0), 0U);
    QCOMPARE(grid.GetItemState(0, 0), 0U);
    QVERIFY(grid.m_SelectedCellMap.IsEmpty());
}

void tst_GridItems::record()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    _GV_ITEM_X item;
    item.row = 1;
    item.col = 2;
    item.mask = 511;
    item.strText = L"x";
    item.iImage = 3;
    item.iTile = 1;
    item.lParam = 77;
    item.nState = CGridCellBase_X::Selected;
    item.crBkClr = 5;
    item.crFgClr = 6;
    item.nFormat = DT_RIGHT;
    item.lfFont.setPixelSize(31);
    item.nMargin = 9;
    QCOMPARE(grid.SetItem(nullptr), 0);
    QCOMPARE(grid.SetItem(&item), 1);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 1LL);
    _GV_ITEM_X read;
    read.row = 1;
    read.col = 2;
    read.mask = 511;
    QCOMPARE(grid.GetItem(nullptr), 0);
    QCOMPARE(grid.GetItem(&read), 1);
    QVERIFY(read.strText == L"x");
    QCOMPARE(read.iImage, 3);
    QCOMPARE(read.iTile, 1);
    QCOMPARE(read.lParam, 77LL);
    QCOMPARE(read.nState, 2U);
    QCOMPARE(read.crBkClr, 5U);
    QCOMPARE(read.crFgClr, 6U);
    QCOMPARE(read.nFormat, DT_RIGHT);
    QCOMPARE(read.lfFont.pixelSize(), 31);
    QCOMPARE(read.nMargin, 9U);
}

void tst_GridItems::recordsMask()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    grid.SetItemText(1, 1, L"x");
    grid.SetItemImage(1, 1, 3);
    _GV_ITEM_X item;
    item.row = item.col = 1;
    item.mask = _GV_ITEM_X::Text;
    item.strText = L"new";
    item.iImage = 8;
    item.nMargin = 20;
    grid.SetItem(&item);
    QVERIFY(grid.GetItemText(1, 1) == L"new");
    QCOMPARE(grid.GetItemImage(1, 1), 3);
    QCOMPARE(grid.cellAt(1, 1)->GetMargin(), 3U);
    item.mask = _GV_ITEM_X::Image;
    grid.GetItem(&item);
    QCOMPARE(item.iImage, 3);
    QCOMPARE(item.nMargin, 20U);
}

void tst_GridItems::recordMarksByTheRow()
{
    CGridCtrl_X grid(5, 3, 0, 0);
    _GV_ITEM_X item;
    item.row = 4;
    item.col = 1;
    QCOMPARE(grid.SetItem(&item), 1);
    QCOMPARE(grid.m_bModified, 4);
    QCOMPARE(grid.GetItemState(4, 1), 0U);
    grid.SetModified(TRUE, 2, 2);
    item.row = 0;
    QCOMPARE(grid.SetItem(&item), 1);
    QCOMPARE(grid.m_bModified, 0);
    QCOMPARE(grid.GetItemState(2, 2), 0U);
}

void tst_GridItems::ranges()
{
    const CGridCtrl_X grid(3, 4, 1, 2);
    QVERIFY(grid.IsValid(CCellRange_X(0, 0, 2, 3)));
    QVERIFY(grid.IsValid(grid.GetCellRange()));
    QVERIFY(!grid.IsValid(CCellRange_X(0, 0, 3, 3)));
    QVERIFY(!grid.IsValid(CCellRange_X(0, 0, 2, 4)));
    QVERIFY(!grid.IsValid(CCellRange_X(-1, 0, 2, 3)));
    QVERIFY(!grid.IsValid(CCellRange_X(2, 0, 1, 3)));
    QVERIFY(!grid.IsValid(CCellRange_X(0, 3, 2, 2)));
    QVERIFY(grid.IsValid(CCellID_X(2, 3)));
    QVERIFY(!grid.IsValid(CCellID_X()));
    QCOMPARE(grid.IsCellFixed(0, 3), 1);
    QCOMPARE(grid.IsCellFixed(2, 1), 1);
    QCOMPARE(grid.IsCellFixed(1, 2), 0);
}

void tst_GridItems::editableAndSelected()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    QVERIFY(grid.IsCellEditable(1, 1));
    grid.SetItemState(1, 1, CGridCellBase_X::ReadOnly | CGridCellBase_X::Selected);
    QVERIFY(!grid.IsCellEditable(CCellID_X(1, 1)));
    QVERIFY(grid.IsCellSelected(1, 1));
    QVERIFY(!grid.IsCellSelected(CCellID_X(2, 1)));
    QVERIFY(!grid.IsCellSelected(9, 9));
    grid.m_bEnableSelection = FALSE;
    QVERIFY(!grid.IsCellSelected(1, 1));
    grid.m_bEditable = FALSE;
    QVERIFY(!grid.IsCellEditable(2, 2));
}

void tst_GridItems::cellType()
{
    CGridCtrl_X grid(3, 3, 1, 1);
    grid.SetItemText(1, 2, L"x");
    grid.SetItemState(1, 2, CGridCellBase_X::Selected | CGridCellBase_X::Modified);
    grid.cellAt(1, 2)->m_nMergeRows = 1;
    grid.cellAt(1, 2)->m_nMasterRow = 7;
    QCOMPARE(grid.SetCellType(1, 2, RUNTIME_CLASS_X(CNumberCell)), 1);
    auto* const cell = qobject_cast<CNumberCell*>(grid.cellAt(1, 2));
    QVERIFY(cell);
    QCOMPARE(textOf(cell->place), QStringLiteral("1 2"));
    QVERIFY(cell->GetGrid() == &grid);
    QVERIFY(grid.GetItemText(1, 2) == L"x");
    QCOMPARE(grid.GetItemState(1, 2), 34U);
    QCOMPARE(grid.m_SelectedCellMap.GetCount(), 1LL);
    QCOMPARE(cell->m_nMergeRows, 1);
    QCOMPARE(cell->m_nMasterRow, 7);
    QCOMPARE(grid.SetCellType(0, 0, RUNTIME_CLASS_X(CNumberCell)), 1);
    cell->m_nMergeRows = 0;
    QCOMPARE(GridSanity::problems(grid), QString());
}

void tst_GridItems::cellTypeRefused()
{
    CGridCtrl_X grid(3, 3, 0, 0);
    QCOMPARE(grid.SetCellType(3, 0, RUNTIME_CLASS_X(CNumberCell)), 0);
    QCOMPARE(grid.SetCellType(1, 1, nullptr), 0);
    QCOMPARE(grid.SetCellType(1, 1, RUNTIME_CLASS_X(CWnd_X)), 0);
    const CUnmadeCell unmade;
    QCOMPARE(grid.SetCellType(1, 1, unmade.GetRuntimeClass()), 0);
    QVERIFY(grid.cellAt(1, 1)->GetRuntimeClass() == RUNTIME_CLASS_X(CGridCell_X));
}

void tst_GridItems::defaultCellType()
{
    CGridCtrl_X grid;
    QCOMPARE(grid.SetDefaultCellType(nullptr), 0);
    QCOMPARE(grid.SetDefaultCellType(RUNTIME_CLASS_X(CWnd_X)), 0);
    QVERIFY(grid.m_pRtcDefault == RUNTIME_CLASS_X(CGridCell_X));
    QCOMPARE(grid.SetDefaultCellType(RUNTIME_CLASS_X(CNumberCell)), 1);
    QFont font;
    font.setPixelSize(31);
    grid.m_Font = font;
    grid.SetRowCount(2);
    grid.SetColumnCount(2);
    QVERIFY(qobject_cast<CNumberCell*>(grid.cellAt(1, 1)));
    QCOMPARE(*grid.GetItemFont(1, 1), font);
    grid.m_pRtcDefault = nullptr;
    QVERIFY(!grid.CreateCell(0, 0));
    grid.m_pRtcDefault = RUNTIME_CLASS_X(CWnd_X);
    QVERIFY(!grid.CreateCell(0, 0));
    grid.SetRowCount(3);
    QVERIFY(!grid.cellAt(2, 0));
}

// A host may put null into the table: everything goes on round it.
void tst_GridItems::nullCells()
{
    ShownGrid<> shown(6, 6, 1, 1);
    CGridCtrl_X& grid = shown.grid;
    for (const int row : {0, 2, 5})
        delete std::exchange((*grid.m_RowData[static_cast<std::size_t>(row)])[2], nullptr);
    grid.SetFixedRowCount(3);
    grid.SetFixedRowCount(1);
    grid.SetModified(FALSE);
    grid.AutoSize();
    grid.AutoSizeColumns();
    grid.AutoSizeRows();
    grid.ExpandToFit();
    grid.EnsureVisible(2, 2);
    grid.InsertRow(L"", 2);
    grid.InsertColumn(L"", 0, 2);
    grid.DeleteRow(3);
    grid.DeleteColumn(3);
    grid.SetRowCount(2);
    grid.SetColumnCount(2);
    QCOMPARE(GridSanity::problems(grid), QString());
}

XE_TEST(tst_GridItems)
#include "tst_griditems.moc"
