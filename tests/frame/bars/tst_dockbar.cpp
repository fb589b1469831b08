// A dock bar: where it goes by its style, and its list of bars.

#include "bars/bartext.h"
#include "bars/dockplace.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// Bars of known places, named by letters, on a dock bar whose widget is at the same place as its parent.
struct Dock
{
    explicit Dock(UINT style = CBRS_TOP, int floating = FALSE) : dock(floating)
    {
        parent.resize(600, 400);
        dock.Create(&parent, style, 0);
        dock.GetSafeHwnd()->setGeometry(0, 0, 600, 400);
    }

    CControlBar_X* add(char name, const QRect& place)
    {
        auto bar = std::make_unique<CControlBar_X>();
        bar->Create(WS_CHILD, dock.GetSafeHwnd());
        bar->GetSafeHwnd()->setGeometry(place);
        bar->setObjectName(QChar::fromLatin1(name));
        bars.push_back(std::move(bar));
        return bars.back().get();
    }

    void put(CControlBar_X* bar) { dock.m_arrBars.Add(bar); }
    void put(ULONG_PTR number) { dock.m_arrBars.Add(reinterpret_cast<void*>(number)); }

    /// Bars "a" and "b" in one line, "c" in the next.
    void putTwoLines(const QRect& a, const QRect& b, const QRect& c)
    {
        put(ULONG_PTR(0));
        put(add('a', a));
        put(add('b', b));
        put(ULONG_PTR(0));
        put(add('c', c));
        put(ULONG_PTR(0));
    }

    /// "0 a b 0 #5 0": ends of rows, bars, a placeholder.
    QString text() const
    {
        QStringList words;
        for (int i = 0; i < dock.m_arrBars.GetSize(); ++i) {
            const auto number = reinterpret_cast<ULONG_PTR>(dock.m_arrBars[i]);
            const CControlBar_X* const bar = dock.GetDockedControlBar(i);
            words += bar ? bar->objectName() : number ? QStringLiteral("#%1").arg(number) : QStringLiteral("0");
        }
        return words.join(QLatin1Char(' '));
    }

    QWidget parent;
    CDockBar_X dock;
    std::vector<std::unique_ptr<CControlBar_X>> bars;
};

} // namespace

class tst_DockBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void classes();
    void isPlacedByItsStyle_data();
    void isPlacedByItsStyle();
    void floatsAsConstructed();
    void styleThatIsKept_data();
    void styleThatIsKept();
    void rectangleIsCleared();
    void parentByItsWrapper();
    void deletedWhileItIsShown();

    void entries_data();
    void entries();
    void findsABar();
    void counts();
    void showsNothing();

    void intoAnEmptyDock();
    void dropOnRows_data();
    void dropOnRows();
    void dropOnColumns_data();
    void dropOnColumns();
    void firstEntryStopsADropAboveIt();
    void placeholdersArePassedOver();
    void barWithoutWidget();
    void placesAreTheDocksOwn();
    void nullBar();
    void withoutWidget();
};

void tst_DockBar::classes()
{
    QVERIFY(RUNTIME_CLASS_X(CDockBar_X)->IsDerivedFrom(RUNTIME_CLASS_X(CControlBar_X)));
    QCOMPARE(RUNTIME_CLASS_X(CDockBar_X)->CreateObject(), nullptr);
    CDockBar_X bar;
    QCOMPARE(bar.IsDockBar(), 1);
    QCOMPARE(bar.m_bFloating, 0);
    QCOMPARE(CDockBar_X(7).m_bFloating, 7);
}

void tst_DockBar::isPlacedByItsStyle_data() { addPlaces(); }

void tst_DockBar::isPlacedByItsStyle()
{
    QFETCH(UINT, style);
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    expectWarnings(style & CBRS_FLOATING, style & CBRS_SIZE_FIXED);
    CDockBar_X bar;
    QCOMPARE(bar.Create(&parent, style, 7), 1);
    QTEST(dockPlace(bar), "place");
    QCOMPARE(bar.Imp<QDockWidget>()->allowedAreas(), Qt::DockWidgetAreas(Qt::AllDockWidgetAreas));
}

void tst_DockBar::floatsAsConstructed()
{
    QWidget parent;
    parent.resize(400, 300);
    parent.show();
    expectWarnings(true, false);
    CDockBar_X bar(TRUE);
    QCOMPARE(bar.Create(&parent, WS_VISIBLE | CBRS_LEFT, 7), 1);
    QCOMPARE(dockPlace(bar), QStringLiteral("shown floating"));
}

void tst_DockBar::styleThatIsKept_data()
{
    QTest::addColumn<UINT>("style");
    QTest::addColumn<UINT>("kept");
    QTest::newRow("a bar's bits") << 0x2800u << 0x2800u;
    QTest::newRow("a window's bits go") << 0x50002800u << 0x2800u;
    QTest::newRow("the gripper stays") << 0xFFFFFFFFu << 0x40FFFFu;
}

void tst_DockBar::styleThatIsKept()
{
    QFETCH(UINT, style);
    expectWarnings(style & CBRS_FLOATING, style & CBRS_SIZE_FIXED);
    QWidget parent;
    CDockBar_X bar;
    bar.Create(&parent, style, 0);
    QTEST(bar.GetStyle(), "kept");
}

void tst_DockBar::rectangleIsCleared()
{
    QWidget parent;
    CDockBar_X bar;
    QVERIFY(bar.m_rectLayout == CRect());
    bar.m_rectLayout = CRect(1, 2, 3, 4);
    bar.Create(&parent, 0, 0);
    QVERIFY(bar.m_rectLayout == CRect());
}

void tst_DockBar::parentByItsWrapper()
{
    CWnd_X frame;
    frame.Create(0, static_cast<QWidget*>(nullptr));
    CDockBar_X bar;
    QCOMPARE(bar.Create(&frame, 0, 0), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), frame.GetSafeHwnd());
}

void tst_DockBar::deletedWhileItIsShown()
{
    class ShownOnce : public CDockBar_X
    {
    public:
        using CDockBar_X::CDockBar_X;
        int PreTranslateMessage(tagMSG* message) override
        {
            if (message->message == WM_SHOWWINDOW)
                delete this;
            return 1;
        }
    };
    QWidget parent;
    parent.show();
    const QPointer<CDockBar_X> bar(new ShownOnce(TRUE));
    QCOMPARE(bar->Create(&parent, WS_VISIBLE, 7), 1);
    QVERIFY(!bar);
}

// ---------------------------------------------------------------------------------------------------------- the list

void tst_DockBar::entries_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("bar");
    QTest::newRow("negative") << -1 << "";
    QTest::newRow("end of a row") << 0 << "";
    QTest::newRow("bar") << 1 << "a";
    QTest::newRow("placeholder") << 2 << "";
    QTest::newRow("highest placeholder") << 3 << "";
    QTest::newRow("bar behind it") << 4 << "b";
    QTest::newRow("as many as entries") << 6 << "";
    QTest::newRow("far beyond") << INT_MAX << "";
}

void tst_DockBar::entries()
{
    QFETCH(int, index);
    Dock dock;
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {0, 0, 10, 10}));
    dock.put(1);
    dock.put(0xFFFF);
    dock.put(dock.add('b', {0, 0, 10, 10}));
    dock.put(ULONG_PTR(0));
    const CControlBar_X* const bar = dock.dock.GetDockedControlBar(index);
    QTEST(bar ? bar->objectName() : QString(), "bar");
}

void tst_DockBar::findsABar()
{
    Dock dock;
    CControlBar_X* const a = dock.add('a', {});
    CControlBar_X* const b = dock.add('b', {});
    CControlBar_X* const c = dock.add('c', {});
    dock.put(ULONG_PTR(0));
    dock.put(a);
    dock.put(b);
    dock.put(ULONG_PTR(0));
    dock.put(a);
    QCOMPARE(dock.dock.FindBar(a), 1);
    QCOMPARE(dock.dock.FindBar(a, 1), 4);
    QCOMPARE(dock.dock.FindBar(a, 4), 1);
    QCOMPARE(dock.dock.FindBar(b, 2), -1);
    QCOMPARE(dock.dock.FindBar(c), -1);
    QCOMPARE(dock.dock.FindBar(nullptr), 0);
    QCOMPARE(dock.dock.FindBar(nullptr, 0), 3);
}

void tst_DockBar::counts()
{
    Dock dock;
    QCOMPARE(dock.dock.GetDockedCount(), 0);
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {}));
    dock.put(5);
    dock.put(dock.add('b', {}));
    QCOMPARE(dock.dock.GetDockedCount(), 2);
    dock.bars[0]->ShowWindow(SW_HIDE);
    QCOMPARE(dock.dock.GetDockedVisibleCount(), 2);
}

void tst_DockBar::showsNothing()
{
    Dock dock;
    QCOMPARE(dock.dock.ShowAll(TRUE), 0);
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {}));
    dock.put(5);
    dock.parent.show();
    dock.bars[0]->ShowWindow(SW_HIDE);
    QCOMPARE(dock.dock.ShowAll(TRUE), 3);
    QVERIFY(!dock.bars[0]->IsWindowVisible());
    dock.bars[0]->ShowWindow(SW_SHOW);
    QCOMPARE(dock.dock.ShowAll(FALSE), 3);
    QVERIFY(dock.bars[0]->IsWindowVisible());
}

// ----------------------------------------------------------------------------------------------------------- dropping

void tst_DockBar::intoAnEmptyDock()
{
    Dock dock;
    CControlBar_X* const bar = dock.add('a', {0, 0, 50, 20});
    QCOMPARE(dock.dock.Insert(bar, CRect(0, 0, 50, 20), CPoint(25, 10)), 1);
    QCOMPARE(dock.text(), QStringLiteral("0 a 0"));
}

void tst_DockBar::dropOnRows_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    // Two rows: a at 0 and b at 100, 20 and 28 pixels high, then c at 0, 20 pixels high. Each row has 2 pixels less, so
    // that the null ahead of all ends at -2, the first row at 24 and the second at 42.
    QTest::newRow("ahead of the first bar") << 0 << 10 << 1 << "0 x a b 0 c 0";
    QTest::newRow("behind the first bar") << 1 << 10 << 2 << "0 a x b 0 c 0";
    QTest::newRow("where the second bar begins") << 100 << 10 << 2 << "0 a x b 0 c 0";
    QTest::newRow("behind the second bar") << 101 << 10 << 3 << "0 a b x 0 c 0";
    QTest::newRow("last line of the first row") << 500 << 23 << 3 << "0 a b x 0 c 0";
    QTest::newRow("first line of the second row") << 0 << 24 << 4 << "0 a b 0 x c 0";
    QTest::newRow("behind the bar of the second row") << 7 << 41 << 5 << "0 a b 0 c x 0";
    QTest::newRow("beyond all rows") << 0 << 42 << 6 << "0 a b 0 c 0 x 0";
    QTest::newRow("far beyond all rows") << 0 << INT_MAX << 6 << "0 a b 0 c 0 x 0";
}

void tst_DockBar::dropOnRows()
{
    QFETCH(int, left);
    QFETCH(int, y);
    Dock dock(CBRS_TOP);
    dock.putTwoLines({0, 0, 100, 20}, {100, 0, 100, 28}, {0, 30, 100, 20});
    CControlBar_X* const x = dock.add('x', {});
    QTEST(dock.dock.Insert(x, CRect(left, 0, left + 50, 20), CPoint(0, y)), "index");
    QTEST(dock.text(), "text");
}

void tst_DockBar::dropOnColumns_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    // Two columns: a at 0 and b at 100, 31 pixels wide, then c, 20 wide. Each has 3 pixels less, the null
    // ahead of all 2: they end at 26 and 43.
    QTest::newRow("above the first bar") << 0 << 10 << 1 << "0 x a b 0 c 0";
    QTest::newRow("below the first bar") << 50 << 10 << 2 << "0 a x b 0 c 0";
    QTest::newRow("below the second bar, last line") << 150 << 25 << 3 << "0 a b x 0 c 0";
    QTest::newRow("second column") << 0 << 26 << 4 << "0 a b 0 x c 0";
    QTest::newRow("second column, last line") << 60 << 42 << 5 << "0 a b 0 c x 0";
    QTest::newRow("beyond all columns") << 0 << 43 << 6 << "0 a b 0 c 0 x 0";
}

void tst_DockBar::dropOnColumns()
{
    QFETCH(int, top);
    QFETCH(int, x);
    Dock dock(CBRS_LEFT);
    dock.putTwoLines({0, 0, 20, 100}, {0, 100, 31, 100}, {30, 0, 20, 100});
    CControlBar_X* const dropped = dock.add('x', {});
    QTEST(dock.dock.Insert(dropped, CRect(0, top, 20, top + 50), CPoint(x, 0)), "index");
    QTEST(dock.text(), "text");
}

void tst_DockBar::firstEntryStopsADropAboveIt()
{
    Dock dock;
    CControlBar_X* const x = dock.add('x', {});
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {0, 0, 100, 20}));
    dock.put(ULONG_PTR(0));
    QCOMPARE(dock.dock.Insert(x, CRect(0, -20, 50, 0), CPoint(0, -3)), 1); // above -2
    QCOMPARE(dock.text(), QStringLiteral("0 x 0 a 0"));
}

void tst_DockBar::placeholdersArePassedOver()
{
    Dock dock;
    CControlBar_X* const x = dock.add('x', {});
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {0, 0, 100, 20}));
    dock.put(9);
    dock.put(ULONG_PTR(0));
    QCOMPARE(dock.dock.Insert(x, CRect(50, 0, 60, 10), CPoint(0, 5)), 2);
    QCOMPARE(dock.text(), QStringLiteral("0 a x #9 0"));
}

void tst_DockBar::barWithoutWidget()
{
    Dock dock;
    CControlBar_X bare;
    bare.setObjectName(QStringLiteral("bare"));
    CControlBar_X* const x = dock.add('x', {});
    dock.put(ULONG_PTR(0));
    dock.put(&bare);
    dock.put(ULONG_PTR(0));
    QCOMPARE(dock.dock.Insert(x, CRect(50, 0, 60, 10), CPoint(0, 0)), 3);
    QCOMPARE(dock.text(), QStringLiteral("0 bare 0 x 0"));
}

void tst_DockBar::placesAreTheDocksOwn()
{
    Dock dock;
    dock.parent.move(300, 200);
    dock.dock.GetSafeHwnd()->move(40, 30);
    CControlBar_X* const x = dock.add('x', {});
    dock.put(ULONG_PTR(0));
    dock.put(dock.add('a', {10, 0, 100, 20}));
    dock.put(ULONG_PTR(0));
    QCOMPARE(dock.dock.Insert(x, CRect(10, 0, 60, 10), CPoint(0, 5)), 1);
    QCOMPARE(dock.text(), QStringLiteral("0 x a 0"));
}

void tst_DockBar::nullBar()
{
    Dock dock;
    QCOMPARE(dock.dock.Insert(nullptr, CRect(), CPoint()), -1);
    QCOMPARE(dock.text(), QString());
}

void tst_DockBar::withoutWidget()
{
    CDockBar_X dock;
    CControlBar_X bar;
    QCOMPARE(dock.Insert(&bar, CRect(), CPoint()), 1);
    QCOMPARE(dock.GetDockedCount(), 1);
    QCOMPARE(dock.FindBar(&bar), 1);
    QCOMPARE(dock.ShowAll(1), 3);
}

XE_TEST(tst_DockBar)
#include "tst_dockbar.moc"
