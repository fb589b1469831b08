// The image that a grid paints itself on, and what has it painted anew.

#include "gridwindow.h"
#include "leavenothing.h"
#include "paint/drawncell.h"
#include "paint/gridcolours.h"
#include "testclass.h"

#include <XeGridBtnCell.h>
#include <xeafxdc.h>

namespace {

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

class tst_GridImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        DrawnCell::reset();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void switchedOffLeavesTheFreshImage();
    void imageIsKept();
    void hostsPaintOnTheKeptImage();
    void withAndWithoutAHostTheSame();
    void imageOfAFineScreen();
    void redrawCell();
    void redrawLine();
    void invalidateCells();
};

void tst_GridImage::switchedOffLeavesTheFreshImage()
{
    GridWindow<> host(3, 3);
    host.grid->SetRedraw(FALSE);
    QImage expected(host.widget->size(), QImage::Format_RGB32);
    expected.fill(fresh);
    QCOMPARE(host.grab(), expected);
    host.grid->SetRedraw(TRUE);
    QVERIFY(host.grab() != expected);
}

void tst_GridImage::imageIsKept()
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

void tst_GridImage::hostsPaintOnTheKeptImage()
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
void tst_GridImage::withAndWithoutAHostTheSame()
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

void tst_GridImage::imageOfAFineScreen()
{
    GridWindow<> host(3, 3);
    host.grid->CreateImage();
    QCOMPARE(host.grid->m_pImage->devicePixelRatioF(), host.widget->devicePixelRatioF());
    QCOMPARE(host.grid->m_pImage->size(), QSize(300, 200) * host.widget->devicePixelRatioF());
}

void tst_GridImage::redrawCell()
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

void tst_GridImage::redrawLine()
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

void tst_GridImage::invalidateCells()
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

XE_TEST(tst_GridImage)

#include "tst_gridimage.moc"
