#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdc.h>
#include <xeafxgdi.h>

#include <type_traits>

namespace {

QString textOf(const wchar_t* text) { return XeQString(text); }

const CFont_X* asFont(const QFont& font) { return reinterpret_cast<const CFont_X*>(&font); }

// A cell that stores nothing but what a test gives it.
class CBareCell : public CGridCellBase_X
{
    Q_OBJECT

public:
    using CGridCellBase_X::operator=;
    CGridCtrl_X* GetGrid() const override { return grid; }
    unsigned int GetFormat() const override { return format; }
    const wchar_t* GetText() const override { return text; }
    CGridCtrl_X* grid = nullptr;
    unsigned int format = 0;
    const wchar_t* text = nullptr;
};

class CBigCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CBigCell)
    char more[100] = {};
};
IMPLEMENT_DYNCREATE_X(CBigCell, CGridCell_X)

// A grid with pictures of 16 x 16 and 40 x 30, and a bitmap without one.
struct Pictures
{
    Pictures() : small(QImage(16, 16, QImage::Format_RGB32)), large(QImage(40, 30, QImage::Format_RGB32))
    {
        smallBitmap.Attach(&small);
        largeBitmap.Attach(&large);
        emptyBitmap.Attach(&empty);
        list.Add(&smallBitmap, nullptr);
        list.Add(&largeBitmap, nullptr);
        list.Add(&emptyBitmap, nullptr);
        grid.SetRowCount(3);
        grid.SetColumnCount(3);
        grid.m_pImageList = &list;
    }
    ~Pictures()
    {
        smallBitmap.Detach();
        largeBitmap.Detach();
        emptyBitmap.Detach();
    }

    QImage small;
    QImage large;
    QImage empty;
    CBitmap_X smallBitmap;
    CBitmap_X largeBitmap;
    CBitmap_X emptyBitmap;
    CImageList_X list;
    CGridCtrl_X grid;
};

} // namespace

class tst_GridCell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void places();
    void newCell();
    void baseCell();
    void madeByName();
    void texts();
    void fonts();
    void reset();
    void assignment();
    void assignmentFromABaseCell();
    void assignmentToItself();
    void pool_data();
    void pool();
    void textExtent();
    void cellExtent();
    void cellExtentOfLines();
    void pictureInTheExtent();
    void textRect();
    void noticeWithoutGrid();
};

void tst_GridCell::places()
{
    QCOMPARE(textOf(CCellID_X()), QStringLiteral("-1 -1"));
    QCOMPARE(textOf(CCellID_X{2, 3}), QStringLiteral("2 3"));
    QVERIFY(CCellID_X(2, 3) == CCellID_X(2, 3));
    QVERIFY(CCellID_X(2, 3) != CCellID_X(3, 2));
    QVERIFY(CCellID_X(2, 3) != CCellID_X(2, 4));
    QCOMPARE(textOf(CCellRange_X()), QStringLiteral("-1 -1 -1 -1"));
    QCOMPARE(textOf(CCellRange_X(1, 2, 3, 4)), QStringLiteral("1 2 3 4"));
    QCOMPARE(textOf(CCellRange_X(CCellID_X(1, 2), CCellID_X(3, 4))), QStringLiteral("1 2 3 4"));
    QVERIFY(CCellRange_X(1, 2, 3, 4) == CCellRange_X(1, 2, 3, 4));
    QVERIFY(CCellRange_X(1, 2, 3, 4) != CCellRange_X(1, 2, 3, 5));
    QVERIFY((!std::is_convertible_v<int, CCellID_X>));
    QVERIFY((!std::is_convertible_v<int, CCellRange_X>));
    QCOMPARE(sizeof(XeGridNotification), std::size_t(32));
    QCOMPARE(sizeof(NMHDR), std::size_t(24));
}

void tst_GridCell::newCell()
{
    const CGridCell_X cell;
    QCOMPARE(cell.GetState(), 0U);
    QCOMPARE(cell.GetFormat(), 0x8824U);
    QCOMPARE(textOf(cell.GetText()), textOf(L""));
    QCOMPARE(textOf(cell.GetTipText()), textOf(L""));
    QCOMPARE(cell.GetImage(), -1);
    QCOMPARE(cell.GetTile(), 0);
    QCOMPARE(cell.GetBackClr(), 0xFF000000U);
    QCOMPARE(cell.GetTextClr(), 0xFF000000U);
    QCOMPARE(cell.GetData(), 0LL);
    QCOMPARE(*cell.GetFont(), QFont());
    QCOMPARE(cell.GetMargin(), 3U);
    QCOMPARE(cell.IsEditing(), 0);
    QVERIFY(!cell.GetGrid());
    QVERIFY(!cell.m_pEditWnd);
}

void tst_GridCell::baseCell()
{
    CGridCellBase_X cell;
    const QFont font;
    cell.SetText(L"x");
    cell.SetImage(1);
    cell.SetTile(1);
    cell.SetData(1);
    cell.SetFormat(1);
    cell.SetTextClr(1);
    cell.SetBackClr(1);
    cell.SetFont(asFont(font));
    cell.SetMargin(1);
    cell.SetCoords(1, 1);
    QVERIFY(!cell.GetText());
    QVERIFY(!cell.GetTipText());
    QCOMPARE(cell.GetImage(), -1);
    QCOMPARE(cell.GetTile(), 0);
    QCOMPARE(cell.GetData(), 0LL);
    QCOMPARE(cell.GetFormat(), 0U);
    QCOMPARE(cell.GetTextClr(), 0U);
    QCOMPARE(cell.GetBackClr(), 0U);
    QVERIFY(!cell.GetFont());
    QCOMPARE(cell.GetMargin(), 0U);
    QVERIFY(!cell.GetGrid());
    QCOMPARE(cell.IsEditing(), 0);
    QCOMPARE(cell.Edit(0, 0, CRect(), CPoint(), 8, 1), 0);
    QCOMPARE(cell.OnSetCursor(), 1);
    cell.SetState(5);
    QCOMPARE(cell.GetState(), 5U);
    QCOMPARE(cell.GetCellExtent(), CSize(0, QFontMetrics(QFont()).height()));
}

void tst_GridCell::madeByName()
{
    const std::unique_ptr<CObject_X> base(RUNTIME_CLASS_X(CGridCellBase_X)->CreateObject());
    const std::unique_ptr<CObject_X> cell(RUNTIME_CLASS_X(CGridCell_X)->CreateObject());
    QCOMPARE(base->GetClassName(), "CGridCellBase_X");
    QCOMPARE(cell->GetClassName(), "CGridCell_X");
    QVERIFY(cell->IsKindOf("CGridCellBase_X"));
}

void tst_GridCell::texts()
{
    CGridCell_X cell;
    cell.SetText(L"grün");
    QCOMPARE(textOf(cell.GetText()), textOf(L"grün"));
    QCOMPARE(textOf(cell.GetTipText()), textOf(L"grün"));
    cell.SetText(nullptr);
    QCOMPARE(textOf(cell.GetText()), textOf(L""));
}

void tst_GridCell::fonts()
{
    CGridCell_X cell;
    QFont font;
    font.setPixelSize(31);
    cell.SetFont(asFont(font));
    font.setPixelSize(7);
    QCOMPARE(cell.GetFont()->pixelSize(), 31);
    cell.SetFont(nullptr);
    QCOMPARE(cell.GetFont()->pixelSize(), 31);
}

void tst_GridCell::reset()
{
    CGridCtrl_X grid(1, 1, 0, 0);
    CGridCell_X cell;
    cell.SetGrid(&grid);
    cell.SetText(L"x");
    cell.SetImage(3);
    cell.SetTile(1);
    cell.SetData(-5);
    cell.SetState(63);
    cell.SetFormat(1);
    cell.SetTextClr(2);
    cell.SetBackClr(3);
    cell.SetMargin(9);
    cell.m_bEditing = 1;
    cell.m_bMergeRight = cell.m_bMergeBottom = cell.m_bMergeSlave = 1;
    cell.m_nMergeStyle = 4;
    cell.m_nMergeRows = cell.m_nMergeCols = cell.m_nMasterRow = cell.m_nMasterCol = 5;
    cell.Reset();
    QCOMPARE(cell.GetFormat(), 0x8824U);
    QCOMPARE(textOf(cell.GetText()), textOf(L""));
    QCOMPARE(cell.GetImage(), -1);
    QCOMPARE(cell.GetTile(), 0);
    QCOMPARE(cell.GetData(), 0LL);
    QCOMPARE(cell.GetState(), 0U);
    QCOMPARE(cell.GetTextClr(), 0xFF000000U);
    QCOMPARE(cell.GetBackClr(), 0xFF000000U);
    QCOMPARE(cell.GetMargin(), 3U);
    QCOMPARE(cell.IsEditing(), 0);
    QVERIFY(!cell.GetGrid());
    QCOMPARE(cell.m_bMergeRight + cell.m_bMergeBottom + cell.m_bMergeSlave, 0);
    QCOMPARE(cell.m_nMergeStyle, 0U);
    QCOMPARE(cell.m_nMergeRows + cell.m_nMergeCols + cell.m_nMasterRow + cell.m_nMasterCol, 0);
}

void tst_GridCell::assignment()
{
    CGridCtrl_X grid(1, 1, 0, 0);
    CGridCell_X from;
    QFont font;
    font.setPixelSize(31);
    from.SetGrid(&grid);
    from.SetText(L"x");
    from.SetImage(3);
    from.SetTile(1);
    from.SetData(-5);
    from.SetState(63);
    from.SetFormat(1);
    from.SetTextClr(2);
    from.SetBackClr(3);
    from.SetFont(asFont(font));
    from.SetMargin(9);
    from.m_nMergeRows = 2;
    from.m_bEditing = 1;
    CGridCell_X to;
    to.m_nMergeCols = 4;
    to = from;
    QVERIFY(to.GetGrid() == &grid);
    QCOMPARE(textOf(to.GetText()), textOf(L"x"));
    QCOMPARE(to.GetImage(), 3);
    QCOMPARE(to.GetTile(), 1);
    QCOMPARE(to.GetData(), -5LL);
    QCOMPARE(to.GetState(), 63U);
    QCOMPARE(to.GetFormat(), 1U);
    QCOMPARE(to.GetTextClr(), 2U);
    QCOMPARE(to.GetBackClr(), 3U);
    QCOMPARE(*to.GetFont(), font);
    QCOMPARE(to.GetMargin(), 9U);
    QCOMPARE(to.m_nMergeRows, 0);
    QCOMPARE(to.m_nMergeCols, 4);
    QCOMPARE(to.IsEditing(), 0);
}

void tst_GridCell::assignmentFromABaseCell()
{
    CGridCellBase_X from;
    CGridCell_X to;
    QFont font;
    font.setPixelSize(31);
    to.SetText(L"x");
    to.SetFont(asFont(font));
    CGridCellBase_X& target = to;
    target = from;
    QCOMPARE(textOf(to.GetText()), textOf(L""));
    QCOMPARE(to.GetImage(), -1);
    QCOMPARE(to.GetFont()->pixelSize(), 31);
    QCOMPARE(to.GetTextClr(), 0U);
}

void tst_GridCell::assignmentToItself()
{
    CGridCell_X cell;
    cell.SetText(L"x");
    CGridCell_X& same = cell;
    cell = same;
    QCOMPARE(textOf(cell.GetText()), textOf(L"x"));
}

void tst_GridCell::pool_data()
{
    QTest::addColumn<int>("count");

    QTest::newRow("some blocks") << 3000;
    QTest::newRow("some regions of blocks") << 70'000;
}

// More cells than one block of the pool holds, freed in another order than made, with cells of a larger class between.
void tst_GridCell::pool()
{
    QFETCH(int, count);
    std::vector<CGridCellBase_X*> cells;
    for (int i = 0; i < count; ++i) {
        cells.push_back(i % 5 ? new CGridCell_X : new CBigCell);
        cells.back()->SetData(i);
    }
    for (std::size_t i = 0; i < cells.size(); i += 2)
        delete std::exchange(cells[i], nullptr);
    for (std::size_t i = 0; i < cells.size() / 2; i += 4) {
        cells[i] = new CGridCell_X;
        QCOMPARE(cells[i]->GetFormat(), 0x8824U);
        cells[i]->SetData(static_cast<long long>(i));
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i])
            QCOMPARE(cells[i]->GetData(), static_cast<long long>(i));
        delete std::exchange(cells[i], nullptr);
        if (i % 16 == 0)
            cells[i / 16] = new CGridCell_X; // where a block has just become empty, too
    }
    for (const CGridCellBase_X* const cell : cells)
        delete cell;
}

void tst_GridCell::textExtent()
{
    CGridCell_X cell;
    const QFontMetrics plain{QFont()};
    QFont bolder;
    bolder.setWeight(63);
    const QFontMetrics bold(bolder);
    cell.SetText(L"own text");
    QCOMPARE(cell.GetTextExtent(L"given"),
             CSize(plain.horizontalAdvance(QStringLiteral("given")) + 6, plain.height() + 6));
    QCOMPARE(cell.GetTextExtent(nullptr),
             CSize(plain.horizontalAdvance(QStringLiteral("own text")) + 6, plain.height() + 6));
    cell.SetState(CGridCellBase_X::Fixed);
    QCOMPARE(cell.GetTextExtent(nullptr),
             CSize(bold.horizontalAdvance(QStringLiteral("own text")) + 6, bold.height() + 6));
    QCOMPARE(cell.GetFont()->weight(), QFont().weight());
}

void tst_GridCell::cellExtent()
{
    CGridCell_X cell;
    cell.SetText(L"own text");
    const QFontMetrics plain{QFont()};
    const int width = plain.horizontalAdvance(QStringLiteral("own text"));
    QCOMPARE(cell.GetCellExtent(), CSize(width + 12, plain.height() + 6));
    cell.SetMargin(0);
    QCOMPARE(cell.GetCellExtent(), CSize(width, plain.height()));
    QFont bolder;
    bolder.setWeight(63);
    cell.SetState(CGridCellBase_X::Fixed);
    QCOMPARE(cell.GetCellExtent(),
             CSize(QFontMetrics(bolder).horizontalAdvance(QStringLiteral("own text")), QFontMetrics(bolder).height()));
}

void tst_GridCell::cellExtentOfLines()
{
    CBareCell cell;
    cell.text = L"one\nlonger line\nx";
    const QFontMetrics metrics{QFont()};
    QCOMPARE(int(cell.GetCellExtent().cy), metrics.height());
    cell.format = 0x1000;
    QCOMPARE(cell.GetCellExtent(),
             CSize(metrics
                       .boundingRect(QRect(0, 0, metrics.horizontalAdvance(QStringLiteral("longer line")), 0), 0x1000,
                                     QStringLiteral("one\nlonger line\nx"))
                       .width(),
                   3 * metrics.height()));
    cell.format = 0x1100;
    QCOMPARE(int(cell.GetCellExtent().cy), metrics.height());
}

void tst_GridCell::pictureInTheExtent()
{
    Pictures pictures;
    CGridCtrl_X& grid = pictures.grid;
    const CSize plain = grid.cellAt(1, 1)->GetCellExtent();
    const auto extentWith = [&grid](int image) {
        grid.SetItemImage(1, 1, image);
        return grid.cellAt(1, 1)->GetCellExtent();
    };
    QCOMPARE(extentWith(0), CSize(plain.cx + 17, std::max<LONG>(plain.cy, 17)));
    QCOMPARE(extentWith(1), CSize(plain.cx + 41, 31));
    QCOMPARE(extentWith(2), plain); // a null picture
    QCOMPARE(extentWith(3), plain); // beyond the list
    QCOMPARE(extentWith(-1), plain);
    grid.SetItemImage(1, 1, 1);
    grid.m_pImageList = nullptr;
    QCOMPARE(grid.cellAt(1, 1)->GetCellExtent(), plain);
}

void tst_GridCell::textRect()
{
    Pictures pictures;
    CGridCellBase_X& cell = *pictures.grid.cellAt(1, 1);
    CRect rect(10, 20, 100, 40);
    QCOMPARE(cell.GetTextRect(nullptr), 0);
    QCOMPARE(cell.GetTextRect(&rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("10 20 100 40"));
    cell.SetImage(0);
    QCOMPARE(cell.GetTextRect(&rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("30 20 100 40"));
    cell.SetImage(2);
    QCOMPARE(cell.GetTipTextRect(&rect), 1);
    QCOMPARE(textOf(rect), QStringLiteral("30 20 100 40"));
}

void tst_GridCell::noticeWithoutGrid()
{
    CGridCell_X cell;
    QCOMPARE(cell.SendMessageToParent(1, 2, -2), 0LL);
    ShownGrid<> shown;
    shown.parent.result = 17;
    QCOMPARE(shown.grid.cellAt(1, 2)->SendMessageToParent(1, 2, -2), 17LL);
    QCOMPARE(shown.parent.takeNotes(), QStringLiteral("-2(1, 2)"));
}

XE_TEST(tst_GridCell)
#include "tst_gridcell.moc"
