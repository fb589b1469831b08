// A tool bar: how it is made, its sizes, and where it docks.

#include "bars/bartext.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

QString placeText(const QWidget& widget)
{
    const QRect place = widget.geometry();
    return QStringLiteral("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

} // namespace

class tst_ToolBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void classes();
    void isMadeByItsStyle_data();
    void isMadeByItsStyle();
    void styleSheet();
    void defaultStyle();
    void parentByItsWrapper();
    void nullParent();
    void refusedByOnCreate();
    void handlersMayDeleteIt();
    void isItsOwnControl();

    void sizes();
    void oddHeights_data();
    void oddHeights();
    void buttonStyle();
    void geometry();

    void docks_data();
    void docks();
    void docksByItsIconSize();
    void fixedHeightWins();
    void noParentToDockIn();

    void updatedSize_data();
    void updatedSize();

    void withoutWidget();
};

void tst_ToolBar::classes()
{
    QCOMPARE(CToolBar_X::s_classInfo.IsDerivedFrom(RUNTIME_CLASS_X(CControlBar_X)), true);
    QCOMPARE(CControlBar_X::s_classInfo.IsDerivedFrom(RUNTIME_CLASS_X(CWnd_X)), true);
    const std::unique_ptr<CObject_X> made(RUNTIME_CLASS_X(CToolBar_X)->CreateObject());
    QVERIFY(made->IsKindOf("CToolBar_X"));
    const std::unique_ptr<CObject_X> base(RUNTIME_CLASS_X(CControlBar_X)->CreateObject());
    QVERIFY(base->IsKindOf("CControlBar_X"));

    QToolBar widget;
    CWnd_X* const found = CWnd_X::FromHandle(&widget);
    QVERIFY(found->IsKindOf(RUNTIME_CLASS_X(CToolBar_X)));
    QLabel other;
    CToolBar_X bar;
    QCOMPARE(bar.SubclassWindow(&other), 0);
}

void tst_ToolBar::isMadeByItsStyle_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<bool>("shown");
    QTest::newRow("visible") << DWORD(WS_CHILD | WS_VISIBLE | CBRS_TOP) << true;
    QTest::newRow("not visible") << DWORD(WS_CHILD | CBRS_TOP) << false;
    QTest::newRow("no style") << DWORD(0) << false;
}

void tst_ToolBar::isMadeByItsStyle()
{
    QFETCH(DWORD, style);
    QFETCH(bool, shown);
    QWidget parent;
    parent.show(); // which would show children too
    CToolBar_X bar;
    QCOMPARE(bar.Create(&parent, style), 1);
    const auto* const widget = bar.Imp<QToolBar>();
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->isVisible(), shown);
    QCOMPARE(widget->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(widget->iconSize(), QSize(16, 15));
    QCOMPARE(bar.GetStyle(), style);
}

void tst_ToolBar::styleSheet()
{
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent, 0);
    QCOMPARE(bar.GetSafeHwnd()->styleSheet(),
             QStringLiteral("QToolBar {border:none;}\t\tQToolBar QToolButton:hover{background-color:#a4d4ff;}\t\t"
                            "QToolBar QToolButton:selected{background-color:#a4d4ff;}\t\tQToolBar "
                            "QToolButton:checked{background-color:#a4d4ff;}\t\tQToolBar QToolButton:pressed{background-"
                            "color:#a4d4ff;}    QToolBar::separator{width:1px;height:23px;background:rgb(54,59,66);}"));
}

void tst_ToolBar::defaultStyle()
{
    QWidget parent;
    CToolBar_X bar;
    QCOMPARE(bar.Create(&parent), 1);
    QCOMPARE(bar.GetStyle(), DWORD(0x50002800));
}

void tst_ToolBar::parentByItsWrapper()
{
    CWnd_X frame;
    frame.Create(0, static_cast<QWidget*>(nullptr));
    CToolBar_X bar;
    QCOMPARE(bar.Create(&frame), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), frame.GetSafeHwnd());
    CToolBar_X other;
    QCOMPARE(other.Create(static_cast<CWnd_X*>(nullptr), WS_CHILD), 1);
    QCOMPARE(other.GetSafeHwnd()->parentWidget(), nullptr);
}

void tst_ToolBar::nullParent()
{
    CToolBar_X bar;
    QCOMPARE(bar.Create(nullptr, WS_CHILD), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), nullptr);
    bar.DestroyWindow();
    QWidget frame;
    frame.setObjectName(QStringLiteral("CTavoMainFrame"));
    QCOMPARE(bar.Create(nullptr, WS_CHILD), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), &frame);
}

void tst_ToolBar::refusedByOnCreate()
{
    class Refusing : public CToolBar_X
    {
    public:
        int OnCreate(tagCREATESTRUCTW*) override { return -1; }
    };
    QWidget parent;
    Refusing bar;
    QCOMPARE(bar.Create(&parent), 0);
    QCOMPARE(bar.GetSafeHwnd(), nullptr);
}

void tst_ToolBar::handlersMayDeleteIt()
{
    class ShownOnce : public CToolBar_X
    {
    public:
        int PreTranslateMessage(tagMSG* message) override
        {
            if (message->message == WM_SHOWWINDOW)
                delete this;
            return 1;
        }
    };
    QWidget parent;
    parent.show();
    const QPointer<CToolBar_X> bar(new ShownOnce);
    QCOMPARE(bar->Create(&parent), 1);
    QVERIFY(!bar);
}

void tst_ToolBar::isItsOwnControl()
{
    CToolBar_X bar;
    QCOMPARE(&bar.GetToolBarCtrl(), &bar);
}

// ------------------------------------------------------------------------------------------------------------- sizes

void tst_ToolBar::sizes()
{
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent);
    bar.SetSizes({60, 50}, {24, 22});
    QCOMPARE(bar.Imp<QToolBar>()->iconSize(), QSize(24, 22));
    bar.SetHeight(33);
    QCOMPARE(bar.GetSafeHwnd()->minimumHeight(), 33);
    QCOMPARE(bar.GetSafeHwnd()->maximumHeight(), 33);
}

void tst_ToolBar::oddHeights_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expected");
    QTest::newRow("negative") << -5 << 0;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("beyond what a widget can have, which is none") << INT_MAX << 0;
}

void tst_ToolBar::oddHeights()
{
    QFETCH(int, height);
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent, WS_CHILD);
    bar.SetHeight(height);
    QTEST(bar.GetSafeHwnd()->minimumHeight(), "expected");
}

void tst_ToolBar::buttonStyle()
{
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent);
    QCOMPARE(bar.GetButtonStyle(), Qt::ToolButtonIconOnly);
    bar.SetButtonStyle(Qt::ToolButtonTextUnderIcon);
    QCOMPARE(bar.GetButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QCOMPARE(bar.Imp<QToolBar>()->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
}

void tst_ToolBar::geometry()
{
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent);
    bar.setGeometry({5, 6, 70, 30});
    QCOMPARE(placeText(*bar.GetSafeHwnd()), QStringLiteral("5,6 70x30"));
}

// ----------------------------------------------------------------------------------------------------------- docking

void tst_ToolBar::docks_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QString>("place");
    QTest::addColumn<Qt::Orientation>("orientation");
    // The parent is 400 x 300, and was turned the other way before.
    QTest::newRow("left") << 5120 << "0,0 24x300" << Qt::Vertical;
    QTest::newRow("top") << 10240 << "0,0 400x23" << Qt::Horizontal;
    QTest::newRow("right") << 16640 << "376,0 24x300" << Qt::Vertical;
    QTest::newRow("bottom") << 33280 << "0,277 400x23" << Qt::Horizontal;
    QTest::newRow("no side") << 0 << "1,2 80x40" << Qt::Horizontal;
    QTest::newRow("alignment alone") << 0x2000 << "1,2 80x40" << Qt::Horizontal;
    QTest::newRow("two sides") << (5120 | 10240) << "1,2 80x40" << Qt::Horizontal;
    QTest::newRow("negative") << -1 << "1,2 80x40" << Qt::Horizontal;
}

void tst_ToolBar::docks()
{
    QFETCH(int, side);
    QFETCH(Qt::Orientation, orientation);
    QWidget parent;
    parent.resize(400, 300);
    CToolBar_X bar;
    bar.Create(&parent);
    bar.setGeometry({1, 2, 80, 40});
    bar.DockBar(side);
    QTEST(placeText(*bar.GetSafeHwnd()), "place");
    QCOMPARE(bar.Imp<QToolBar>()->orientation(), orientation);
}

void tst_ToolBar::docksByItsIconSize()
{
    QWidget parent;
    parent.resize(200, 100);
    CToolBar_X bar;
    bar.Create(&parent);
    bar.SetSizes({0, 0}, {32, 20});
    bar.DockBar(CBRS_BOTTOM);
    QCOMPARE(placeText(*bar.GetSafeHwnd()), QStringLiteral("0,72 200x28"));
    bar.DockBar(CBRS_LEFT);
    QCOMPARE(placeText(*bar.GetSafeHwnd()), QStringLiteral("0,0 40x100"));
}

void tst_ToolBar::fixedHeightWins()
{
    QWidget parent;
    parent.resize(200, 100);
    CToolBar_X bar;
    bar.Create(&parent);
    bar.SetHeight(50);
    bar.DockBar(CBRS_TOP);
    QCOMPARE(placeText(*bar.GetSafeHwnd()), QStringLiteral("0,0 200x50"));
}

void tst_ToolBar::noParentToDockIn()
{
    CToolBar_X bar;
    bar.Create(nullptr, 0);
    bar.setGeometry({1, 2, 80, 40});
    bar.DockBar(CBRS_LEFT);
    QCOMPARE(placeText(*bar.GetSafeHwnd()), QStringLiteral("1,2 80x40"));
    QCOMPARE(bar.Imp<QToolBar>()->orientation(), Qt::Horizontal);
}

void tst_ToolBar::updatedSize_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("separators");
    QTest::addColumn<int>("setWidth");
    QTest::addColumn<Qt::ToolButtonStyle>("style");
    QTest::addColumn<QSize>("size");
    // The smallest and the largest size are one; (0, 0) stands for none that is set.
    QTest::newRow("height alone") << 3 << 1 << 0 << Qt::ToolButtonIconOnly << QSize(0, 23);
    QTest::newRow("width too") << 3 << 1 << 1 << Qt::ToolButtonIconOnly << QSize(3 * 23 + 7 + 1, 23);
    QTest::newRow("any other number sets it too") << 1 << 0 << -4 << Qt::ToolButtonIconOnly << QSize(24, 23);
    QTest::newRow("separators alone") << 0 << 2 << 1 << Qt::ToolButtonIconOnly << QSize(15, 23);
    QTest::newRow("nothing on the bar") << 0 << 0 << 1 << Qt::ToolButtonIconOnly << QSize(0, 0);
    QTest::newRow("texts on the buttons") << 3 << 1 << 1 << Qt::ToolButtonTextBesideIcon << QSize(0, 0);
}

void tst_ToolBar::updatedSize()
{
    QFETCH(int, buttons);
    QFETCH(int, separators);
    QFETCH(int, setWidth);
    QFETCH(Qt::ToolButtonStyle, style);
    QFETCH(QSize, size);
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent);
    for (int i = 0; i < buttons; ++i)
        bar.Imp<QToolBar>()->addAction(QStringLiteral("b"));
    for (int i = 0; i < separators; ++i)
        bar.AddSeparator(nullptr);
    bar.SetButtonStyle(style);
    bar.UpdateToolBarSize(setWidth);
    QCOMPARE(bar.GetSafeHwnd()->minimumSize(), size);
    const QSize largest(size.width() ? size.width() : QWIDGETSIZE_MAX, size.height() ? size.height() : QWIDGETSIZE_MAX);
    QCOMPARE(bar.GetSafeHwnd()->maximumSize(), largest);
}

void tst_ToolBar::withoutWidget()
{
    CToolBar_X bar;
    bar.SetSizes({1, 1}, {1, 1});
    bar.SetHeight(4);
    bar.SetButtonStyle(Qt::ToolButtonTextOnly);
    QCOMPARE(bar.GetButtonStyle(), Qt::ToolButtonIconOnly);
    bar.setGeometry({1, 2, 3, 4});
    bar.DockBar(CBRS_TOP);
    bar.UpdateToolBarSize(1);
    QCOMPARE(bar.GetSafeHwnd(), nullptr);
}

XE_TEST(tst_ToolBar)
#include "tst_toolbar.moc"
