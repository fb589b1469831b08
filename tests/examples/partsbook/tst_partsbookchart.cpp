// The chart of the stock: what it counts, where its bars stand, how it is painted, and what a click on it does.

#include "chartpainter.h"
#include "leavenothing.h"
#include "mainframe.h"
#include "partsview.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray oldNut = "FA-4,Old nut,Fastener,华丰,bought,30,100,0.06,no,\n";
const QByteArray bookOfFive = headingLine + screw + bearing + nut + oldNut + motor;

KindStock stockOf(long long inUse, long long unused, long long minimum)
{
    KindStock stock;
    stock.kind = L"Kind";
    stock.inUse = inUse;
    stock.unused = unused;
    stock.minimum = minimum;
    return stock;
}

// What is painted into a pane of 216 x 400: a plot of 176 pixels.
QImage painted(const std::vector<KindStock>& stock, int selected)
{
    QImage image(216, 400, QImage::Format_RGB32);
    CDC_X dc(&image);
    paintChart(dc, layOutChart(stock, {216, 400}), stock, selected);
    dc.end();
    return image;
}

QRgb at(const QImage& image, CPoint place) { return image.pixel(place.x, place.y); }

} // namespace

class tst_PartsbookChart : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void countsByKind();
    void lengthsAreShares();
    void aKindThatNeedsNothing();
    void aPaneWithoutRoom();

    void coloursOfThePalette();
    void partsOutOfUseAreHatched();
    void roundCorners();
    void theSelectedBarIsInverted();

    void aClickSelectsTheFirstPart();
    void aClickBesideTheBars();
    void theMarkFollowsTheList();
    void theChartFollowsTheBook();

private:
    QWidget* pane() const { return m_frame->GetSafeHwnd()->findChild<QWidget*>("IDC_CHART"); }
    CStockChart* chart() const { return static_cast<CStockChart*>(CWnd_X::FromHandlePermanent(pane())); }
    PartsView table() const { return PartsView(*m_frame->GetSafeHwnd()); }
    void click(CPoint place) { QTest::mouseClick(pane(), Qt::LeftButton, {}, {place.x, place.y}); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookChart::init()
{
    m_folder.reset(new QTemporaryDir);
    QFile file(m_folder->filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bookOfFive);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
}

void tst_PartsbookChart::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// -------------------------------------------------------------------------------------------------- counts and places

void tst_PartsbookChart::countsByKind()
{
    PartsBook parts;
    QVERIFY(parts.load(m_folder->filePath("parts.csv")));
    const std::vector<KindStock> kinds = stockByKind(parts);
    QCOMPARE(kinds.size(), std::size_t(3));
    QCOMPARE(XeQString(kinds[0].kind), QString("Fastener"));
    QCOMPARE(kinds[0].firstRow, 0);
    QCOMPARE(kinds[0].inUse, 30LL);
    QCOMPARE(kinds[0].unused, 30LL);
    QCOMPARE(kinds[0].minimum, 20LL); // what is out of use needs nothing
    QCOMPARE(XeQString(kinds[1].kind), QString("Bearing"));
    QCOMPARE(kinds[1].firstRow, 1);
    QCOMPARE(kinds[1].inUse, 3LL);
    QCOMPARE(XeQString(kinds[2].kind), QString("Electrical"));
    QCOMPARE(kinds[2].firstRow, 4);
}

// The longest bar fills the plot, from 20 to 196; all others are to its scale.
void tst_PartsbookChart::lengthsAreShares()
{
    const ChartLayout chart = layOutChart({stockOf(300, 100, 100), stockOf(5, 5, 10), stockOf(0, 0, 7)}, {216, 400});
    QCOMPARE(chart.bars.size(), std::size_t(3));
    QCOMPARE(chart.reorder, 20 + 44);
    QCOMPARE(chart.bars[0].inUse.left, 20);
    QCOMPARE(chart.bars[0].inUse.right, 20 + 132);
    QCOMPARE(chart.bars[0].unused.left, 20 + 132);
    QCOMPARE(chart.bars[0].unused.right, 196);
    QCOMPARE(chart.bars[0].whole().Width(), 176);
    QCOMPARE(chart.bars[1].inUse.right, 20 + 22);
    QCOMPARE(chart.bars[1].unused.right, 20 + 44);
    QVERIFY(chart.bars[2].whole().IsRectEmpty());
    QVERIFY(chart.bars[1].label.top >= chart.bars[0].inUse.bottom);
}

void tst_PartsbookChart::aKindThatNeedsNothing()
{
    const ChartLayout chart = layOutChart({stockOf(99999, 0, 0), stockOf(10, 0, 10)}, {216, 400});
    QCOMPARE(chart.bars[0].inUse.right, 196);
    QCOMPARE(chart.bars[1].inUse.right, chart.reorder);
    QVERIFY(chart.reorder < 196);
}

void tst_PartsbookChart::aPaneWithoutRoom()
{
    for (const CSize size : {CSize(0, 0), CSize(1, 400), CSize(400, 1), CSize(30, 60)}) {
        const std::vector<KindStock> stock(50, stockOf(1, 1, 1));
        const ChartLayout chart = layOutChart(stock, size);
        QCOMPARE(chart.bars.size(), stock.size());
        QImage image(50, 60, QImage::Format_RGB32);
        CDC_X dc(&image);
        paintChart(dc, chart, stock, 49);
    }
    QVERIFY(layOutChart({}, {216, 400}).bars.empty());
}

// ------------------------------------------------------------------------------------------------------------ picture

void tst_PartsbookChart::coloursOfThePalette()
{
    const std::vector<KindStock> stock(2, stockOf(30, 0, 10));
    const ChartLayout chart = layOutChart(stock, {216, 400});
    const QImage image = painted(stock, -1);
    QCOMPARE(at(image, chart.bars[0].inUse.TopLeft()), 0xFFD75252); // entry 13
    QCOMPARE(at(image, chart.bars[1].inUse.TopLeft()), 0xFF91D752); // entry 63
}

void tst_PartsbookChart::partsOutOfUseAreHatched()
{
    const std::vector<KindStock> stock{stockOf(10, 20, 10)};
    const CRect unused = layOutChart(stock, {216, 400}).bars[0].unused;
    const QImage image = painted(stock, -1);
    int lines = 0;
    for (int x = unused.left; x < unused.right; ++x)
        lines += at(image, CPoint(x, unused.top)) != 0xFFFFFFFF;
    QVERIFY(lines > 5);
    QVERIFY(lines < unused.Width() / 2);
}

void tst_PartsbookChart::roundCorners()
{
    const QImage image = painted({}, -1);
    const CRect card = layOutChart({}, {216, 400}).card;
    QCOMPARE(at(image, card.TopLeft()), at(image, CPoint(0, 0)));
    QCOMPARE(at(image, CPoint(card.left, card.top + 20)), 0xFFF3F6FA);
    QCOMPARE(at(image, CPoint(card.right - 1, card.bottom - 1)), at(image, CPoint(0, 0)));
}

void tst_PartsbookChart::theSelectedBarIsInverted()
{
    const std::vector<KindStock> stock(2, stockOf(30, 0, 10));
    const ChartLayout chart = layOutChart(stock, {216, 400});
    const QImage image = painted(stock, 1);
    QCOMPARE(at(image, chart.bars[0].inUse.TopLeft()), 0xFFD75252);
    QCOMPARE(at(image, chart.bars[1].inUse.TopLeft()), 0xFF6E28AD);
}

// --------------------------------------------------------------------------------------------------------------- pane

void tst_PartsbookChart::aClickSelectsTheFirstPart()
{
    QCOMPARE(table().currentRow(), 0);
    click(chart()->Layout().bars[1].inUse.CenterPoint());
    QCOMPARE(table().currentRow(), 1);
    click(chart()->Layout().bars[0].unused.CenterPoint());
    QCOMPARE(table().currentRow(), 0);
    const CRect last = chart()->Layout().bars[2].inUse;
    click({last.right - 1, last.bottom - 1});
    QCOMPARE(table().currentRow(), 4);
}

void tst_PartsbookChart::aClickBesideTheBars()
{
    table().setCurrentCell(3, 0);
    const CRect bar = chart()->Layout().bars[1].whole();
    click({bar.right, bar.top});
    click({bar.left, bar.bottom});
    click({bar.left - 1, bar.top});
    click({1, 1});
    QCOMPARE(table().currentRow(), 3);
}

void tst_PartsbookChart::theMarkFollowsTheList()
{
    QCOMPARE(chart()->SelectedBar(), 0);
    const QImage before = pane()->grab().toImage();
    table().setCurrentCell(4, 2);
    QCOMPARE(chart()->SelectedBar(), 2);
    QVERIFY(pane()->grab().toImage() != before);
    table().setCurrentCell(3, 2);
    QCOMPARE(chart()->SelectedBar(), 0);
    QCOMPARE(pane()->grab().toImage(), before);
}

void tst_PartsbookChart::theChartFollowsTheBook()
{
    QFile file(m_folder->filePath("other.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(headingLine + motor);
    file.close();
    QVERIFY(m_frame->OpenBook(file.fileName()));
    QCOMPARE(chart()->Layout().bars.size(), std::size_t(1));
    QCOMPARE(chart()->SelectedBar(), 0);
}

XE_TEST(tst_PartsbookChart)
#include "tst_partsbookchart.moc"
