// Bars that come and go: nothing of them stays, and nothing of theirs is touched afterwards.

#include "bars/bartext.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QMainWindow>

namespace {

constexpr int rounds = 1000;

using Use = void (*)(QWidget& parent, Commands& commands);

void useToolBar(QWidget& parent, Commands& commands)
{
    CToolBar_X bar;
    bar.Create(&parent);
    bar.LoadToolBar(commands.all(), 0);
    QPixmap picture(16, 15);
    picture.fill(Qt::red);
    bar.AddButton(picture, &commands.edit);
    bar.AddSeparator(nullptr);
    bar.DestroyWindow();
}

void useStatusBar(QWidget& parent, Commands&)
{
    CStatusBar_X bar;
    bar.Create(&parent);
    bar.SetPaneText(0, L"a");
    bar.SetPaneText(0, L"b");
    bar.SetPaneInfo(0, 0, SBPS_NORMAL, 20);
}

void useDialogBar(QWidget& parent, Commands&)
{
    CDialogBar_X bar;
    bar.Create(&parent, 1u, WS_VISIBLE | CBRS_BOTTOM, 0);
    bar.DestroyWindow();
}

void useDockBar(QWidget& parent, Commands&)
{
    CDockBar_X bar;
    bar.Create(&parent, WS_VISIBLE | CBRS_BOTTOM, 0);
    CControlBar_X inner;
    inner.Create(WS_CHILD, bar.GetSafeHwnd());
    bar.Insert(&inner, CRect(), CPoint());
}

} // namespace

Q_DECLARE_METATYPE(Use)

class tst_BarsLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void leaveNothing_data();
    void leaveNothing();
    void temporaryWrappersLeaveNothing();
    void wrapperDeletedByItsOwnButton();
    void windowDestroyedByItsOwnButton();
    void parentGoesFirst();
    void actionsGoFirst();
};

void tst_BarsLife::leaveNothing_data()
{
    QTest::addColumn<Use>("use");
    QTest::newRow("tool bar") << Use(useToolBar);
    QTest::newRow("status bar") << Use(useStatusBar);
    QTest::newRow("dialog bar") << Use(useDialogBar);
    QTest::newRow("dock bar") << Use(useDockBar);
}

void tst_BarsLife::leaveNothing()
{
    QFETCH(Use, use);
    QMainWindow parent;
    Commands commands;
    use(parent, commands);
    deleteLaterObjects();
    const int children = parent.children().size();
    for (int i = 0; i < rounds; ++i) {
        use(parent, commands);
        deleteLaterObjects();
    }
    QCOMPARE(parent.children().size(), children);
    QCOMPARE(commands.edit.associatedWidgets(), {});
}

void tst_BarsLife::temporaryWrappersLeaveNothing()
{
    QToolBar toolBar;
    QStatusBar statusBar;
    const int toolChildren = toolBar.children().size();
    const int statusChildren = statusBar.children().size();
    for (int i = 0; i < rounds; ++i) {
        QVERIFY(CWnd_X::FromHandle(&toolBar)->IsKindOf("CToolBar_X"));
        QVERIFY(CWnd_X::FromHandle(&statusBar)->IsKindOf("CStatusBar_X"));
        ClearTempObjectPool();
    }
    deleteLaterObjects();
    QCOMPARE(toolBar.children().size(), toolChildren);
    QCOMPARE(statusBar.children().size(), statusChildren);
}

void tst_BarsLife::wrapperDeletedByItsOwnButton()
{
    QWidget parent;
    Commands commands;
    auto bar = std::make_unique<CToolBar_X>();
    bar->Create(&parent);
    bar->LoadToolBar(commands.all(), 0);
    bar->DockBar(CBRS_TOP);
    parent.show();
    auto* const button = bar->Imp<QToolBar>()->widgetForAction(&commands.create);
    QTRY_VERIFY(button->isVisible());
    connect(&commands.create, &QAction::triggered, &parent, [&] { bar.reset(); });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!bar);
    deleteLaterObjects();
    QVERIFY(parent.findChildren<QToolBar*>().isEmpty());
}

void tst_BarsLife::windowDestroyedByItsOwnButton()
{
    QWidget parent;
    Commands commands;
    CToolBar_X bar;
    bar.Create(&parent);
    bar.LoadToolBar(commands.all(), 0);
    bar.DockBar(CBRS_TOP);
    parent.show();
    auto* const button = bar.Imp<QToolBar>()->widgetForAction(&commands.create);
    QTRY_VERIFY(button->isVisible());
    connect(&commands.create, &QAction::triggered, &parent, [&] { bar.DestroyWindow(); });
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(bar.GetSafeHwnd(), nullptr);
    QCOMPARE(bar.GetButtonCount(), 0);
    QCOMPARE(bar.Create(&parent), 1);
}

void tst_BarsLife::parentGoesFirst()
{
    auto parent = std::make_unique<QWidget>();
    CToolBar_X toolBar;
    CStatusBar_X statusBar;
    CDialogBar_X dialogBar;
    CDockBar_X dockBar;
    toolBar.Create(parent.get());
    statusBar.Create(parent.get());
    statusBar.SetPaneText(0, L"x");
    dialogBar.Create(parent.get(), 1u, 0, 0);
    dockBar.Create(parent.get(), 0, 0);
    dockBar.Insert(&toolBar, CRect(), CPoint());
    parent.reset();
    QCOMPARE(toolBar.AddSeparator(nullptr), 0);
    QCOMPARE(statusBar.m_mapPanes.empty(), true);
    QCOMPARE(dialogBar.GetSafeHwnd(), nullptr);
    QCOMPARE(dockBar.GetDockedControlBar(1), &toolBar);
    QCOMPARE(dockBar.Insert(&statusBar, CRect(), CPoint()), 3);
}

void tst_BarsLife::actionsGoFirst()
{
    QWidget parent;
    CToolBar_X bar;
    bar.Create(&parent);
    {
        Commands commands;
        bar.LoadToolBar(commands.all(), 0);
        QCOMPARE(bar.GetButtonCount(), 3);
    }
    QCOMPARE(bar.GetButtonCount(), 0);
    QCOMPARE(bar.LoadBitmap(L"/nowhere"), 0);
}

XE_TEST(tst_BarsLife)
#include "tst_barslife.moc"
