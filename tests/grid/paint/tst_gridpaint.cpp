#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeGridBtnCell.h>
#include <xeafxdc.h>
#include <xecolor.h>

#include <QRegularExpression>

namespace {

constexpr QRgb text = qRgb(250, 250, 200);
constexpr QRgb background = qRgb(90, 90, 120);
constexpr QRgb fixedBack = qRgb(200, 210, 220);
constexpr QRgb line = qRgb(1, 200, 3);
constexpr QRgb fresh = qRgb(158, 158, 158);

COLORREF toColorRef(QRgb colour) { return RGB(qRed(colour), qGreen(colour), qBlue(colour)); }

void setColours(CGridCtrl_X& grid)
{
    grid.m_crTextBkColour = toColorRef(text);
    grid.m_crBkColour = toColorRef(background);
    grid.m_crFixedBkColour = toColorRef(fixedBack);
    grid.m_crGridColour = toColorRef(line);
}

// A cell that writes down where it was drawn, and draws nothing.
class DrawnCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(DrawnCell)

    using CGridCellBase_X::operator=;

    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget*, int erase) override
    {
        calls += QStringLiteral("%1,%2:%3 %4 %5 %6%7")
                     .arg(row)
                     .arg(col)
                     .arg(rect.left)
                     .arg(rect.top)
                     .arg(rect.right)
                     .arg(rect.bottom)
                     .arg(erase ? QStringLiteral(" erased") : QString());
        if (onDrawOn)
            onDrawOn(dc->device());
        if (onDraw)
            onDraw();
        return 1;
    }

    static QString take() { return std::exchange(calls, {}).join(QLatin1String("; ")); }
    static bool hasDrawn(const QString& call) { return calls.contains(call); }

    static QStringList calls;
    static std::function<void()> onDraw;
    static std::function<void(const QPaintDevice*)> onDrawOn;
};

QStringList DrawnCell::calls;
std::function<void()> DrawnCell::onDraw;
std::function<void(const QPaintDevice*)> DrawnCell::onDrawOn;

void setDrawn(CGridCtrl_X& grid)
{
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            grid.SetCellType(row, col, RUNTIME_CLASS_X(DrawnCell));
    }
}

// A grid that looks at what it is painted on.
class WatchedGrid : public CGridCtrl_X
{
public:
    void OnDraw(CDC_X* dc) override
    {
        isOnKeptImage = dc->device() == m_pImage;
        CGridCtrl_X::OnDraw(dc);
    }

    bool isOnKeptImage = false;
};

void fillWithAllLooks(CGridCtrl_X& grid)
{
    setColours(grid);
    grid.SetItemText(1, 1, L"red, green, blue");
    grid.SetItemFgColour(1, 1, RGB(200, 0, 10));
    grid.SetItemText(1, 2, L"page");
    grid.SetItemBkColour(1, 2, RGB(10, 20, 230));
    grid.SetItemText(0, 1, L"Head");
    grid.SetItemState(2, 1, CGridCellBase_X::Selected);
    grid.SetFocusCell(2, 2);
    grid.SetCellType(3, 2, RUNTIME_CLASS_X(CGridBtnCell_X));
}

// Two ways to blend a text differ by what they round.
int largestDifference(const QImage& one, const QImage& other)
{
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest =
                std::max({largest, qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))});
        }
    }
    return largest;
}

} // namespace

class tst_GridPaint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void backgrounds();
    void switchedOffLeavesTheFreshImage();
    void lines_data();
    void lines();
    void hiddenLinesHaveNoLine();
    void orderOfCells();
    void linesOfSizeZeroAreNotDrawn();
    void scrolledCells();
    void cellsPastTheEdgeAreNotDrawn();
    void nullCellsAndNullContext();
    void headingBlockIsOneCell();
    void scrolledHeadingBlock();
    void ordinaryBlockStaysSingleCells();
    void brokenBlocks();
    void imageIsKept();
    void hostsPaintOnTheKeptImage();
    void withAndWithoutAHostTheSame();
    void imageOfAFineScreen();
    void cellMayDeleteTheGrid();
    void cellMayDeleteRows();
    void resizeLine();
    void resizeLineIsForgotten();
    void cornerBetweenTheBars();
    void redrawCell();
    void redrawLine();
    void invalidateCells();
};

IMPLEMENT_DYNCREATE_X(DrawnCell, CGridCell_X)

void tst_GridPaint::cleanup()
{
    DrawnCell::take();
    DrawnCell::onDraw = nullptr;
    DrawnCell::onDrawOn = nullptr;
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_GridPaint::backgrounds()
{
    GridWindow<> host(3, 3); // 150 x 60 of 300 x 200
    setColours(*host.grid);
    host.grid->m_nGridLines = 0;
    const QImage image = host.grab();
    QCOMPARE(image.size(), QSize(300, 200));
    QCOMPARE(image.pixel(60, 30), text);
    QCOMPARE(image.pixel(149, 59), text);
    QCOMPARE(image.pixel(150, 30), background);
    QCOMPARE(image.pixel(60, 60), background);
    QCOMPARE(image.pixel(299, 0), background);
    QCOMPARE(image.pixel(299, 199), background);
    QCOMPARE(image.pixel(0, 199), background);
    QCOMPARE(image.pixel(25, 10), fixedBack);
    QCOMPARE(image.pixel(125, 10), fixedBack);
    QCOMPARE(image.pixel(25, 30), fixedBack);
}

void tst_GridPaint::switchedOffLeavesTheFreshImage()
{
    GridWindow<> host(3, 3);
    host.grid->SetRedraw(FALSE);
    QImage expected(host.widget->size(), QImage::Format_RGB32);
    expected.fill(fresh);
    QCOMPARE(host.grab(), expected);
    host.grid->SetRedraw(TRUE);
    QVERIFY(host.grab() != expected);
}

void tst_GridPaint::lines_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<QRgb>("vertical");
    QTest::addColumn<QRgb>("horizontal");

    QTest::newRow("none") << 0 << text << text;
    QTest::newRow("horizontal") << 1 << text << line;
    QTest::newRow("vertical") << 2 << line << text;
    QTest::newRow("both") << 3 << line << line;
}

void tst_GridPaint::lines()
{
    QFETCH(int, lines);
    QFETCH(QRgb, vertical);
    QFETCH(QRgb, horizontal);
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_nGridLines = lines;
    const QImage image = host.grab();
    QCOMPARE(image.pixel(99, 30), vertical);
    QCOMPARE(image.pixel(149, 30), vertical);
    QCOMPARE(image.pixel(98, 30), text);
    QCOMPARE(image.pixel(60, 39), horizontal);
    QCOMPARE(image.pixel(60, 59), horizontal);
    QCOMPARE(image.pixel(60, 38), text);
    // They begin behind the headings and end one pixel past the last cell.
    QVERIFY(image.pixel(99, 19) != line);
    QVERIFY(image.pixel(49, 39) != line);
    QCOMPARE(image.pixel(99, 60), vertical == line ? line : background);
    QCOMPARE(image.pixel(99, 61), background);
    QCOMPARE(image.pixel(150, 39), horizontal == line ? line : background);
    QCOMPARE(image.pixel(151, 39), background);
}

void tst_GridPaint::hiddenLinesHaveNoLine()
{
    GridWindow<> host(3, 4);
    setColours(*host.grid);
    host.grid->SetColumnWidth(1, 0);
    const QImage image = host.grab();
    QVERIFY(image.pixel(49, 30) != line);
    QCOMPARE(image.pixel(99, 30), line);
    QCOMPARE(image.pixel(149, 30), line);
}

void tst_GridPaint::orderOfCells()
{
    GridWindow<> host(2, 3);
    setDrawn(*host.grid);
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; "
                                               "1,0:0 20 49 39; "
                                               "0,1:50 0 99 19; 0,2:100 0 149 19; "
                                               "1,1:50 20 99 39; 1,2:100 20 149 39"));
}

void tst_GridPaint::linesOfSizeZeroAreNotDrawn()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    host.grid->SetColumnWidth(1, 0);
    host.grid->SetRowHeight(1, 0);
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; 2,0:0 20 49 39; 0,2:50 0 99 19; 2,2:50 20 99 39"));
}

void tst_GridPaint::scrolledCells()
{
    GridWindow<> host(100, 20);
    setDrawn(*host.grid);
    host.grid->SetScrollPos32(SB_VERT, 40);
    host.grid->SetScrollPos32(SB_HORZ, 50);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,0:0 0 49 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,0:0 20 49 39")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 99 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,2:50 20 99 39")));
    QVERIFY(DrawnCell::calls.filter(QRegularExpression(QStringLiteral("^[12],"))).isEmpty());
    QVERIFY(DrawnCell::calls.filter(QRegularExpression(QStringLiteral(",1:"))).isEmpty());
}

void tst_GridPaint::cellsPastTheEdgeAreNotDrawn()
{
    GridWindow<> host(1000, 1000, 1, 1, {137, 77}); // the client is 120 x 60
    setDrawn(*host.grid);
    host.grab();
    QCOMPARE(DrawnCell::calls.size(), 9);
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,2:100 40 149 59")));
}

void tst_GridPaint::nullCellsAndNullContext()
{
    GridWindow<> host(2, 2);
    setDrawn(*host.grid);
    delete (*host.grid->m_RowData[1])[1];
    (*host.grid->m_RowData[1])[1] = nullptr;
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19; 1,0:0 20 49 39; 0,1:50 0 99 19"));
    host.grid->OnDraw(nullptr);
    host.grid->EraseBkgnd(nullptr);
    QCOMPARE(DrawnCell::take(), QString());
}

void tst_GridPaint::headingBlockIsOneCell()
{
    GridWindow<> host(3, 5);
    setDrawn(*host.grid);
    QCOMPARE(host.grid->SetFixedCellCombine(0, 1, 0, 2), 1);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 199 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,4:200 0 249 19")));
}

void tst_GridPaint::scrolledHeadingBlock()
{
    GridWindow<> host(30, 20);
    setDrawn(*host.grid);
    host.grid->SetFixedCellCombine(0, 1, 0, 2);
    host.grid->SetFixedCellCombine(1, 0, 2, 0);
    host.grid->SetScrollPos32(SB_HORZ, 50);
    host.grid->SetScrollPos32(SB_VERT, 20);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:50 0 149 19"))); // from the first column that is seen
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 149 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,0:0 20 49 59")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("3,0:0 20 49 59")));
    DrawnCell::take();
    host.grid->SetScrollPos32(SB_HORZ, 100);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,3:50 0 99 19")));
}

void tst_GridPaint::ordinaryBlockStaysSingleCells()
{
    GridWindow<> host(4, 4);
    setDrawn(*host.grid);
    QCOMPARE(host.grid->SetCellCombine(1, 1, 1, 1, 0), 1);
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("1,1:50 20 99 39")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("2,2:100 40 149 59")));
}

void tst_GridPaint::brokenBlocks()
{
    GridWindow<> host(2, 3);
    setDrawn(*host.grid);
    CGridCellBase_X* const cell = host.grid->cellAt(0, 1);
    cell->m_bMergeSlave = 1;
    cell->m_nMasterRow = 77; // no such master
    CGridCellBase_X* const other = host.grid->cellAt(0, 2);
    other->m_nMergeCols = 2147483647; // no such last cell
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 99 19")));
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,2:100 0 149 19")));
    cell->m_nMasterRow = 0; // a master without a block
    cell->m_nMasterCol = 0;
    DrawnCell::take();
    host.grab();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,1:50 0 99 19")));
}

void tst_GridPaint::imageIsKept()
{
    GridWindow<> host(3, 3);
    QCOMPARE(host.grid->m_pImage, nullptr);
    host.grab();
    const QImage* const image = host.grid->m_pImage;
    QVERIFY(image);
    QCOMPARE(image->size(), QSize(300, 200));
    QCOMPARE(static_cast<int>(image->format()), 16);
    host.grab();
    QCOMPARE(host.grid->m_pImage, image);
    host.grid->CreateImage();
    QCOMPARE(host.grid->m_pImage, image);
    QCOMPARE(host.grid->m_pImage->pixel(10, 10), fresh);
    host.widget->resize(200, 100);
    host.grab();
    QCOMPARE(host.grid->m_pImage->size(), QSize(200, 100));
    host.widget->resize(0, 0);
    host.grid->OnPaint(); // nothing to paint
    QCOMPARE(host.grid->m_pImage->size(), QSize(200, 100));
}

void tst_GridPaint::hostsPaintOnTheKeptImage()
{
    GridWindow<WatchedGrid> host(4, 4);
    host.grab();
    QVERIFY(host.grid->isOnKeptImage);
    GridWindow<> other(4, 4);
    other.grid->SetCellType(2, 2, RUNTIME_CLASS_X(DrawnCell));
    bool isOnKeptImage = false;
    DrawnCell::onDrawOn = [&](const QPaintDevice* device) { isOnKeptImage = device == other.grid->m_pImage; };
    other.grab();
    QVERIFY(isOnKeptImage);
}

// Nobody sees what a grid without overrides is painted on, so that is another image, which is faster.
void tst_GridPaint::withAndWithoutAHostTheSame()
{
    GridWindow<> host(5, 4);
    GridWindow<WatchedGrid> other(5, 4);
    fillWithAllLooks(*host.grid);
    fillWithAllLooks(*other.grid);
    const QImage image = host.grab();
    QVERIFY(largestDifference(image, other.grab()) <= 2);
    QCOMPARE(host.grid->m_pImage->format(), QImage::Format_RGBX8888);
    QCOMPARE(largestDifference(image, *host.grid->m_pImage), 0);
    QCOMPARE(image.pixel(51, 21), text);
    QCOMPARE(image.pixel(148, 22), qRgb(10, 20, 230));
}

void tst_GridPaint::imageOfAFineScreen()
{
    GridWindow<> host(3, 3);
    host.grid->CreateImage();
    QCOMPARE(host.grid->m_pImage->devicePixelRatioF(), host.widget->devicePixelRatioF());
    QCOMPARE(host.grid->m_pImage->size(), QSize(300, 200) * host.widget->devicePixelRatioF());
}

void tst_GridPaint::cellMayDeleteTheGrid()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    DrawnCell::onDraw = [&host] { host.grid.reset(); };
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19"));
}

void tst_GridPaint::cellMayDeleteRows()
{
    GridWindow<> host(3, 3);
    setDrawn(*host.grid);
    DrawnCell::onDraw = [&host] { host.grid->DeleteAllItems(); };
    host.grab();
    QCOMPARE(DrawnCell::take(), QStringLiteral("0,0:0 0 49 19"));
}

void tst_GridPaint::resizeLine()
{
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SIZING_COL;
    host.grid->m_rcResizing = CRect(80, 0, 82, 200);
    const QImage image = host.grab();
    for (const int y : {0, 30, 199}) {
        QCOMPARE(image.pixel(80, y), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(81, y), qRgb(0, 0, 0));
        QVERIFY(image.pixel(82, y) != qRgb(0, 0, 0));
    }
    QCOMPARE(image.pixel(79, 30), text);
    QCOMPARE(image.pixel(82, 30), text);
}

void tst_GridPaint::resizeLineIsForgotten()
{
    GridWindow<> host(3, 3);
    setColours(*host.grid);
    host.grid->m_rcResizing = CRect(80, 0, 82, 200);
    const QImage image = host.grab();
    QCOMPARE(image.pixel(80, 30), text);
    QVERIFY(host.grid->m_rcResizing.IsRectNull());
}

void tst_GridPaint::cornerBetweenTheBars()
{
    GridWindow<> host(100, 100);
    QCOMPARE(host.grab().pixel(299, 199), host.widget->palette().color(QPalette::Window).rgb());
}

void tst_GridPaint::redrawCell()
{
    GridWindow<> host(100, 100);
    QVERIFY(host.comeUp());
    setDrawn(*host.grid);
    QCoreApplication::processEvents();
    DrawnCell::take();
    QCOMPARE(host.grid->RedrawCell(1, 1), 1);
    QCoreApplication::processEvents();
    QVERIFY(DrawnCell::hasDrawn(QStringLiteral("0,0:0 0 49 19"))); // all of the window
    DrawnCell::take();
    QCOMPARE(host.grid->RedrawCell(90, 1), 0);
    QCOMPARE(host.grid->RedrawCell(CCellID_X(1, 90)), 0);
    QCOMPARE(host.grid->RedrawCell(-1, 1), 0);
    host.grid->SetRedraw(FALSE);
    QCOMPARE(host.grid->RedrawCell(1, 1), 0);
    QCoreApplication::processEvents();
    QCOMPARE(DrawnCell::take(), QString());
}

void tst_GridPaint::redrawLine()
{
    GridWindow<> host(3, 3);
    QVERIFY(host.comeUp());
    QCOMPARE(host.grid->RedrawRow(1), 1);
    QCOMPARE(host.grid->RedrawColumn(2), 1);
    QCOMPARE(host.grid->RedrawRow(3), 0);
    host.grid->SetColumnCount(50);
    QCOMPARE(host.grid->RedrawRow(1), 0); // its last cells are not seen
    host.grid->SetColumnCount(0);
    QCOMPARE(host.grid->RedrawRow(1), 1); // an empty line
}

void tst_GridPaint::invalidateCells()
{
    GridWindow<> host(100, 100);
    QVERIFY(host.comeUp());
    QCOMPARE(host.grid->InvalidateCellRect(CCellID_X(1, 1)), 1);
    QCOMPARE(host.grid->InvalidateCellRect(CCellID_X(90, 1)), 0);
    QCOMPARE(host.grid->InvalidateCellRect(CCellRange_X(1, 1, 90, 90)), 1);
    QCOMPARE(host.grid->InvalidateCellRect(CCellRange_X(80, 80, 90, 90)), 0);
    QCOMPARE(host.grid->InvalidateCellRect(CCellRange_X(-1, -1, -1, -1)), 0);
    host.grid->SetRedraw(FALSE);
    QCOMPARE(host.grid->InvalidateCellRect(CCellID_X(1, 1)), 0);
    QCOMPARE(host.grid->InvalidateCellRect(CCellRange_X(1, 1, 2, 2)), 0);
    CGridCtrl_X bare(2, 2);
    QCOMPARE(bare.InvalidateCellRect(CCellID_X(1, 1)), 0);
}

XE_TEST(tst_GridPaint)

#include "tst_gridpaint.moc"
