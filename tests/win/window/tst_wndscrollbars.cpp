// The scroll bars that a window keeps at its edges.

#include "leavenothing.h"
#include "testclass.h"
#include "window/windowsteps.h"

#include <XeMFCEmu.h>

Q_DECLARE_METATYPE(tagSCROLLINFO)

namespace {

QString rectText(const QRect& rect)
{
    return QStringLiteral("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

// Such as "H 0,63 83x17 V 83,0 17x63": the bars that are not hidden and where they are.
QString barsText(const CWnd_X& window)
{
    QStringList words;
    for (const int bar : {SB_HORZ, SB_VERT}) {
        const QScrollBar* const scrollBar = window.GetScrollBarCtrl(bar);
        if (scrollBar && !scrollBar->isHidden()) {
            words += (scrollBar->orientation() == Qt::Horizontal ? QStringLiteral("H ") : QStringLiteral("V "))
                     + rectText(scrollBar->geometry());
        }
    }
    return words.join(QLatin1Char(' '));
}

class CountingWindow : public CWnd_X
{
public:
    void RecalcLayout() override
    {
        ++layouts;
        CWnd_X::RecalcLayout();
    }
    int layouts = 0;
};

// A wrapped widget of 100x80.
struct Stage
{
    explicit Stage(DWORD style = 0)
    {
        widget.resize(100, 80);
        window.ModifyStyle(0, style);
        window.SubclassWindow(&widget);
        window.layouts = 0;
    }

    QWidget widget;
    CountingWindow window;
};

struct Scene
{
    const char* name;
    WindowSteps steps;
    const char* bars;
    int layouts;
};

const Scene scenes[] = {
    {"none", [](CWnd_X&) {}, "", 0},
    {"horizontal", [](CWnd_X& window) { window.ShowScrollBar(SB_HORZ); }, "H 0,63 100x17", 1},
    {"vertical", [](CWnd_X& window) { window.ShowScrollBar(SB_VERT, TRUE); }, "V 83,0 17x80", 1},
    {"both leave the corner empty", [](CWnd_X& window) { window.ShowScrollBar(SB_BOTH); }, "H 0,63 83x17 V 83,0 17x63",
     1},
    {"one after the other",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_VERT);
         window.ShowScrollBar(SB_HORZ);
     },
     "H 0,63 83x17 V 83,0 17x63", 2},
    {"twice the same",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_VERT);
         window.ShowScrollBar(SB_VERT);
     },
     "V 83,0 17x80", 2},
    {"one of two hidden: the other gets the whole side",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_BOTH);
         window.ShowScrollBar(SB_HORZ, FALSE);
     },
     "V 83,0 17x80", 2},
    {"both hidden",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_BOTH);
         window.ShowScrollBar(SB_BOTH, FALSE);
     },
     "", 2},
    {"hiding what is not there", [](CWnd_X& window) { window.ShowScrollBar(SB_BOTH, FALSE); }, "", 1},
    {"another number only lays out anew", [](CWnd_X& window) { window.ShowScrollBar(SB_CTL); }, "", 1},
    {"a number out of range", [](CWnd_X& window) { window.ShowScrollBar(77); }, "", 1},
    {"EnableScrollBarCtrl shows", [](CWnd_X& window) { window.EnableScrollBarCtrl(SB_VERT); }, "V 83,0 17x80", 1},
    {"EnableScrollBarCtrl hides",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_BOTH);
         window.EnableScrollBarCtrl(SB_VERT, FALSE);
     },
     "H 0,63 100x17", 2},
    {"EnableScrollBar shows", [](CWnd_X& window) { QCOMPARE(window.EnableScrollBar(SB_HORZ, ESB_ENABLE_BOTH), 1); },
     "H 0,63 100x17", 1},
    {"EnableScrollBar enables by default", [](CWnd_X& window) { window.EnableScrollBar(SB_VERT); }, "V 83,0 17x80", 1},
    {"a disabled bar is a hidden one",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_BOTH);
         QCOMPARE(window.EnableScrollBar(SB_HORZ, ESB_DISABLE_BOTH), 1);
     },
     "V 83,0 17x80", 2},
    {"one arrow disabled hides the bar too",
     [](CWnd_X& window) {
         window.ShowScrollBar(SB_BOTH);
         window.EnableScrollBar(SB_VERT, 1);
     },
     "H 0,63 100x17", 2},
    {"EnableScrollBar_X",
     [](CWnd_X& window) { QCOMPARE(EnableScrollBar_X(window.GetSafeHwnd(), SB_VERT, ESB_ENABLE_BOTH), 1); },
     "V 83,0 17x80", 1},
};

tagSCROLLINFO info(UINT mask)
{
    tagSCROLLINFO result{};
    result.cbSize = 4711;
    result.fMask = mask;
    result.nMin = -10;
    result.nMax = 300;
    result.nPage = 20;
    result.nPos = 30;
    result.nTrackPos = 40;
    return result;
}

QString text(const tagSCROLLINFO& info)
{
    return QStringLiteral("mask %1 range %2..%3 page %4 pos %5 track %6")
        .arg(info.fMask)
        .arg(info.nMin)
        .arg(info.nMax)
        .arg(info.nPage)
        .arg(info.nPos)
        .arg(info.nTrackPos);
}

} // namespace

class tst_WndScrollBars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void barsShown_data();
    void barsShown();
    void barsOfTheStyle();
    void barsFollowTheWindow_data();
    void barsFollowTheWindow();
    void whichBar();
    void aClassMayHaveBarsOfItsOwn();

    void setInfo_data();
    void setInfo();
    void getInfo_data();
    void getInfo();
    void noInfo();
    void trackPositionIsThatOfTheSlider();
    void limitIsOneLessThanTheMaximum();
};

// ---------------------------------------------------------------------------------------------------- where they are

void tst_WndScrollBars::barsShown_data()
{
    QTest::addColumn<WindowSteps>("steps");
    QTest::addColumn<QString>("bars");
    QTest::addColumn<int>("layouts");
    for (const Scene& row : scenes)
        QTest::newRow(row.name) << row.steps << row.bars << row.layouts;
}

void tst_WndScrollBars::barsShown()
{
    QFETCH(WindowSteps, steps);
    QFETCH(QString, bars);
    Stage stage;
    steps(stage.window);
    QCOMPARE(barsText(stage.window), bars);
    QTEST(stage.window.layouts, "layouts");
    QCOMPARE(stage.window.IsScrollBarEnabled(SB_HORZ), BOOL(bars.contains(QLatin1Char('H'))));
    QCOMPARE(stage.window.IsScrollBarEnabled(SB_VERT), BOOL(bars.contains(QLatin1Char('V'))));
    for (const QScrollBar* bar : stage.widget.findChildren<QScrollBar*>())
        QVERIFY(bar->isEnabled());
}

void tst_WndScrollBars::barsOfTheStyle()
{
    QWidget parent;
    CWnd_X window;
    window.Create(WS_VISIBLE | WS_VSCROLL, CRect(0, 0, 100, 80), &parent);
    QCOMPARE(barsText(window), QStringLiteral("V 83,0 17x80"));
    QVERIFY(!window.GetSafeHwnd()->isHidden());
    CRect rect;
    window.GetClientRect(rect);
    QCOMPARE(rect.Width(), 100 - 17);
}

void tst_WndScrollBars::barsFollowTheWindow_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QString>("bars");
    QTest::newRow("none") << DWORD(0) << "";
    QTest::newRow("horizontal") << WS_HSCROLL << "H 0,183 300x17";
    QTest::newRow("vertical") << WS_VSCROLL << "V 283,0 17x200";
    QTest::newRow("both") << (WS_HSCROLL | WS_VSCROLL) << "H 0,183 283x17 V 283,0 17x183";
}

void tst_WndScrollBars::barsFollowTheWindow()
{
    QFETCH(DWORD, style);
    QWidget parent;
    CWnd_X window;
    window.Create(WS_VISIBLE | style, CRect(0, 0, 100, 80), &parent);
    parent.show();
    window.GetSafeHwnd()->resize(300, 200);
    QTEST(barsText(window), "bars");
    window.ShowScrollBar(SB_BOTH, FALSE);
    window.GetSafeHwnd()->resize(400, 300);
    QCOMPARE(barsText(window), QString());
}

void tst_WndScrollBars::whichBar()
{
    Stage stage;
    const CWnd_X& window = stage.window;
    for (const int bar : {SB_HORZ, SB_VERT, SB_CTL, SB_BOTH, -1})
        QCOMPARE(window.GetScrollBarCtrl(bar), nullptr);
    stage.window.ShowScrollBar(SB_BOTH);
    QCOMPARE(window.GetScrollBarCtrl(SB_HORZ)->orientation(), Qt::Horizontal);
    for (const int bar : {SB_VERT, SB_CTL, SB_BOTH, -1})
        QCOMPARE(window.GetScrollBarCtrl(bar)->orientation(), Qt::Vertical);
    QCOMPARE(window.GetScrollBarCtrl(SB_VERT)->parentWidget(), &stage.widget);

    delete window.GetScrollBarCtrl(SB_VERT);
    QCOMPARE(window.GetScrollBarCtrl(SB_VERT), nullptr);
    stage.window.ShowScrollBar(SB_VERT);
    QCOMPARE(barsText(window), QStringLiteral("H 0,63 83x17 V 83,0 17x63"));
}

void tst_WndScrollBars::aClassMayHaveBarsOfItsOwn()
{
    class OwnBarWindow : public CWnd_X
    {
    public:
        QScrollBar* GetScrollBarCtrl(int bar) const override { return bar ? own : nullptr; }
        QScrollBar* own = nullptr;
    };
    QWidget widget;
    widget.resize(100, 80);
    OwnBarWindow window;
    window.own = new QScrollBar(Qt::Vertical, &widget);
    window.SubclassWindow(&widget);
    window.SetScrollRange(SB_VERT, 0, 500);
    window.SetScrollPos(SB_VERT, 123);
    QCOMPARE(window.own->value(), 123);
    QCOMPARE(window.GetScrollLimit(SB_VERT), 499);
    widget.show();
    widget.resize(300, 200);
    QCOMPARE(rectText(window.own->geometry()), QStringLiteral("283,0 17x200"));
}

// -------------------------------------------------------------------------------------------------- what they say

void tst_WndScrollBars::setInfo_data()
{
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("bar");
    // At first: 0..99, page 10, position 5.
    QTest::newRow("nothing") << 0U << 0 << "0..99 page 10 pos 5";
    QTest::newRow("range") << SIF_RANGE << 1 << "-10..300 page 10 pos 5";
    QTest::newRow("page") << SIF_PAGE << 1 << "0..99 page 20 pos 5";
    QTest::newRow("position") << SIF_POS << 1 << "0..99 page 10 pos 30";
    QTest::newRow("track position") << SIF_TRACKPOS << 1 << "0..99 page 10 pos 40";
    QTest::newRow("the track position comes last") << (SIF_POS | SIF_TRACKPOS) << 1 << "0..99 page 10 pos 40";
    QTest::newRow("all") << SIF_ALL << 1 << "-10..300 page 20 pos 40";
    QTest::newRow("another bit alone does nothing") << 8U << 0 << "0..99 page 10 pos 5";
    QTest::newRow("another bit beside") << (SIF_PAGE | 8U) << 1 << "0..99 page 20 pos 5";
}

void tst_WndScrollBars::setInfo()
{
    QFETCH(UINT, mask);
    for (const int bar : {SB_HORZ, SB_VERT}) {
        Stage stage(WS_HSCROLL | WS_VSCROLL);
        QScrollBar* const scrollBar = stage.window.GetScrollBarCtrl(bar);
        scrollBar->setPageStep(10);
        scrollBar->setValue(5);
        tagSCROLLINFO given = info(mask);
        QTEST(stage.window.SetScrollInfo(bar, &given), "result");
        QTEST(QStringLiteral("%1..%2 page %3 pos %4")
                  .arg(scrollBar->minimum())
                  .arg(scrollBar->maximum())
                  .arg(scrollBar->pageStep())
                  .arg(scrollBar->sliderPosition()),
              "bar");
        QCOMPARE(text(given), text(info(mask)));
    }
}

void tst_WndScrollBars::getInfo_data()
{
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<QString>("record");
    // The bar has 1..200, page 50, position 60.
    QTest::newRow("nothing") << 0U << "mask 0 range -10..300 page 20 pos 30 track 40";
    QTest::newRow("range") << SIF_RANGE << "mask 1 range 1..200 page 20 pos 30 track 40";
    QTest::newRow("page") << SIF_PAGE << "mask 2 range -10..300 page 50 pos 30 track 40";
    QTest::newRow("position") << SIF_POS << "mask 4 range -10..300 page 20 pos 60 track 40";
    QTest::newRow("track position") << SIF_TRACKPOS << "mask 16 range -10..300 page 20 pos 30 track 60";
    QTest::newRow("all") << SIF_ALL << "mask 23 range 1..200 page 50 pos 60 track 60";
    QTest::newRow("another bit") << 8U << "mask 8 range -10..300 page 20 pos 30 track 40";
}

void tst_WndScrollBars::getInfo()
{
    QFETCH(UINT, mask);
    Stage stage(WS_VSCROLL);
    QScrollBar* const scrollBar = stage.window.GetScrollBarCtrl(SB_VERT);
    scrollBar->setRange(1, 200);
    scrollBar->setPageStep(50);
    scrollBar->setValue(60);
    for (const UINT ownMask : {0U, SIF_ALL}) { // the record's own mask has no say
        tagSCROLLINFO asked = info(ownMask);
        QCOMPARE(stage.window.GetScrollInfo(SB_VERT, &asked, mask), 1);
        QTEST(text(asked), "record");
        QCOMPARE(asked.cbSize, 4711U);
    }
    tagSCROLLINFO asked = info(0);
    stage.window.GetScrollInfo(SB_VERT, &asked);
    QCOMPARE(text(asked), QStringLiteral("mask 23 range 1..200 page 50 pos 60 track 60"));
}

void tst_WndScrollBars::noInfo()
{
    Stage stage(WS_VSCROLL);
    tagSCROLLINFO record = info(SIF_ALL);
    QCOMPARE(stage.window.SetScrollInfo(SB_HORZ, &record), 0);
    QCOMPARE(stage.window.GetScrollInfo(SB_HORZ, &record), 0);
    QCOMPARE(text(record), text(info(SIF_ALL)));
    QCOMPARE(stage.window.SetScrollInfo(SB_VERT, nullptr), 0);
    QCOMPARE(stage.window.GetScrollInfo(SB_VERT, nullptr), 0);
}

void tst_WndScrollBars::trackPositionIsThatOfTheSlider()
{
    Stage stage(WS_VSCROLL);
    QScrollBar* const scrollBar = stage.window.GetScrollBarCtrl(SB_VERT);
    scrollBar->setTracking(false);
    scrollBar->setSliderDown(true);
    tagSCROLLINFO record = info(SIF_TRACKPOS);
    stage.window.SetScrollInfo(SB_VERT, &record);
    QCOMPARE(scrollBar->value(), 0); // until the slider is let go
    stage.window.GetScrollInfo(SB_VERT, &record);
    QCOMPARE(record.nPos, 40);
    QCOMPARE(record.nTrackPos, 40);
    QCOMPARE(stage.window.GetScrollPos(SB_VERT), 0);
}

void tst_WndScrollBars::limitIsOneLessThanTheMaximum()
{
    Stage stage(WS_VSCROLL);
    QCOMPARE(stage.window.GetScrollLimit(SB_HORZ), 0);
    QCOMPARE(stage.window.GetScrollLimit(SB_VERT), 98);
    stage.window.SetScrollRange(SB_VERT, 0, 0);
    QCOMPARE(stage.window.GetScrollLimit(SB_VERT), -1);
}

XE_TEST(tst_WndScrollBars)
#include "tst_wndscrollbars.moc"
