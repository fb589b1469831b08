// Texts that are cut off wait for each other while a grid is painted; nothing of that is seen.

#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxdc.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace {

const wchar_t* const longText = L"a text that is too long for its cell";

// A cell that is painted as any other, but by a function of its own, so that its text does not wait.
class LoneCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(LoneCell)

    using CGridCellBase_X::operator=;

    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase) override
    {
        return CGridCell_X::Draw(dc, row, col, rect, widget, erase);
    }
};

// A cell that covers what is at its left.
class WideCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(WideCell)

    using CGridCellBase_X::operator=;

    int Draw(CDC_X* dc, int, int, CRect rect, QWidget*, int) override
    {
        dc->fillRect(QRect(QPoint(rect.left - 50, rect.top), QPoint(rect.right, rect.bottom)), Qt::red);
        return 1;
    }
};

// A cell whose text is asked for once with something done before.
class TroubledCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(TroubledCell)

    using CGridCellBase_X::operator=;

    const wchar_t* GetText() const override
    {
        if (const auto action = std::exchange(trouble, nullptr))
            action();
        return longText;
    }

    static std::function<void()> trouble;
};

std::function<void()> TroubledCell::trouble;

using Look = std::function<void(CGridCtrl_X&)>;
using ForCell = std::function<void(int row, int col)>;

void forAll(CGridCtrl_X& grid, const ForCell& action)
{
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            action(row, col);
    }
}

void setFonts(CGridCtrl_X& grid, const std::function<void(QFont&)>& change)
{
    forAll(grid, [&](int row, int col) {
        QFont font;
        if (col % 2)
            change(font);
        grid.SetItemFont(row, col, reinterpret_cast<const CFont_X*>(&font));
    });
}

void setFormats(CGridCtrl_X& grid, unsigned format)
{
    forAll(grid, [&](int row, int col) { grid.SetItemFormat(row, col, format | DT_SINGLELINE); });
}

void setHeights(CGridCtrl_X& grid, int height)
{
    for (int row = 0; row < grid.GetRowCount(); ++row)
        grid.SetRowHeight(row, height);
}

/// A painting of a grid on an image that is as fine as that.
QImage painted(CGridCtrl_X& grid, qreal ratio = 1, Qt::BGMode mode = Qt::TransparentMode)
{
    QImage image(QSize(300, 200) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::gray);
    CDC_X dc(&image);
    dc.setBackgroundMode(mode);
    dc.setBackground(Qt::yellow);
    grid.OnDraw(&dc);
    return image;
}

/// A grid with a text that is cut off in each cell, another in each.
struct CutGrid : GridWindow<>
{
    CutGrid() : GridWindow<>(8, 5, 2, 1)
    {
        forAll(*grid, [this](int row, int col) {
            grid->SetItemText(row, col, (std::to_wstring(row * 10 + col) + longText).c_str());
        });
    }
};

} // namespace

Q_DECLARE_METATYPE(Look)

IMPLEMENT_DYNCREATE_X(LoneCell, CGridCell_X)
IMPLEMENT_DYNCREATE_X(WideCell, CGridCell_X)
IMPLEMENT_DYNCREATE_X(TroubledCell, CGridCell_X)

class tst_GridTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void waitingIsNotSeen_data();
    void waitingIsNotSeen();
    void onFineDevices_data();
    void onFineDevices();
    void withoutBackgroundsOfTexts();
    void underACellOfAHosts();
    void paintedWithinAPainting();
    void afterAnException();
};

void tst_GridTexts::waitingIsNotSeen_data()
{
    QTest::addColumn<Look>("look");

    const auto add = [](const char* name, const Look& look) { QTest::newRow(name) << look; };
    add("left", [](CGridCtrl_X& grid) { setFormats(grid, DT_LEFT | DT_VCENTER); });
    add("right", [](CGridCtrl_X& grid) { setFormats(grid, DT_RIGHT | DT_VCENTER); });
    add("centred", [](CGridCtrl_X& grid) { setFormats(grid, DT_CENTER | DT_VCENTER); });
    add("at the top", [](CGridCtrl_X& grid) { setFormats(grid, DT_LEFT | DT_TOP); });
    add("at the bottom", [](CGridCtrl_X& grid) { setFormats(grid, DT_LEFT | DT_BOTTOM); });
    add("high rows", [](CGridCtrl_X& grid) { setHeights(grid, 31); });
    add("low rows", [](CGridCtrl_X& grid) { setHeights(grid, 13); });
    add("low rows with short texts", [](CGridCtrl_X& grid) {
        setHeights(grid, 13);
        forAll(grid, [&](int row, int col) { grid.SetItemText(row, col, L"j\u00C4"); });
    });
    add("large signs", [](CGridCtrl_X& grid) {
        forAll(grid, [&](int row, int col) { grid.SetItemText(row, col, L"\u4E16\u754C\u4E16\u754C\u4E16\u754C"); });
    });
    add("signs on signs", [](CGridCtrl_X& grid) {
        forAll(grid, [&](int row, int col) {
            grid.SetItemText(row, col, L"e\u0301\u0302\u0323\u0324e\u0301\u0302 too long");
        });
    });
    add("bold", [](CGridCtrl_X& grid) { setFonts(grid, [](QFont& font) { font.setBold(true); }); });
    add("larger", [](CGridCtrl_X& grid) { setFonts(grid, [](QFont& font) { font.setPointSize(15); }); });
    add("underlined", [](CGridCtrl_X& grid) { setFonts(grid, [](QFont& font) { font.setUnderline(true); }); });
    add("underlined below what is seen", [](CGridCtrl_X& grid) {
        setHeights(grid, 13);
        forAll(grid, [&](int row, int col) { grid.SetItemText(row, col, L"ace"); });
        setFonts(grid, [](QFont& font) { font.setUnderline(true); });
    });
    add("colours", [](CGridCtrl_X& grid) {
        forAll(grid, [&](int row, int col) {
            grid.SetItemFgColour(row, col, RGB(20 * row, 50 * col, 100));
            grid.SetItemBkColour(row, col, RGB(250, 250 - 20 * col, 250 - 20 * row));
        });
    });
    add("selected", [](CGridCtrl_X& grid) { grid.SetSelectedRange(2, 1, 4, 3); });
    add("focus", [](CGridCtrl_X& grid) { grid.SetFocusCell(3, 3); });
    add("heading blocks", [](CGridCtrl_X& grid) {
        grid.SetFixedCellCombine(0, 1, 1, 2);
        grid.SetItemBkColour(1, 2, RGB(0, 200, 200)); // over the text of the block
    });
}

void tst_GridTexts::waitingIsNotSeen()
{
    QFETCH(Look, look);
    CutGrid cut;
    look(*cut.grid);
    const QImage image = painted(*cut.grid);
    forAll(*cut.grid, [&](int row, int col) { cut.grid->SetCellType(row, col, RUNTIME_CLASS_X(LoneCell)); });
    QCOMPARE(image, painted(*cut.grid));
}

void tst_GridTexts::onFineDevices_data()
{
    QTest::addColumn<qreal>("ratio");

    QTest::newRow("twice as fine") << 2.0;
    QTest::newRow("a half finer") << 1.5;
    QTest::newRow("a quarter finer") << 1.25;
}

void tst_GridTexts::onFineDevices()
{
    QFETCH(qreal, ratio);
    CutGrid cut;
    const QImage image = painted(*cut.grid, ratio);
    forAll(*cut.grid, [&](int row, int col) { cut.grid->SetCellType(row, col, RUNTIME_CLASS_X(LoneCell)); });
    QCOMPARE(image, painted(*cut.grid, ratio));
}

void tst_GridTexts::withoutBackgroundsOfTexts()
{
    CutGrid cut;
    QCOMPARE(painted(*cut.grid, 1, Qt::OpaqueMode), painted(*cut.grid));
}

void tst_GridTexts::underACellOfAHosts()
{
    CutGrid cut;
    cut.grid->SetCellType(3, 2, RUNTIME_CLASS_X(WideCell));
    const QImage image = painted(*cut.grid);
    QImage expected = image;
    QPainter(&expected).fillRect(50, 60, 100, 20, Qt::red);
    QPainter(&expected).fillRect(99, 60, 1, 20, image.pixelColor(99, 60));   // lines of the grid
    QPainter(&expected).fillRect(149, 60, 1, 20, image.pixelColor(149, 60)); //
    QPainter(&expected).fillRect(50, 79, 100, 1, image.pixelColor(50, 79));
    QCOMPARE(image, expected);
}

void tst_GridTexts::paintedWithinAPainting()
{
    CutGrid cut;
    cut.grid->SetCellType(4, 2, RUNTIME_CLASS_X(TroubledCell));
    const QImage plain = painted(*cut.grid);
    QImage inner;
    TroubledCell::trouble = [&] { inner = painted(*cut.grid); };
    QCOMPARE(painted(*cut.grid), plain);
    QCOMPARE(inner, plain);
}

void tst_GridTexts::afterAnException()
{
    CutGrid cut;
    cut.grid->SetCellType(4, 2, RUNTIME_CLASS_X(TroubledCell));
    const QImage plain = painted(*cut.grid);
    TroubledCell::trouble = [] { throw std::runtime_error("no text"); };
    QVERIFY_EXCEPTION_THROWN(painted(*cut.grid), std::runtime_error);
    QCOMPARE(painted(*cut.grid), plain);
}

XE_TEST(tst_GridTexts)

#include "tst_gridtexts.moc"
