// Bars on a real screen: clicks and drags of the pointer, windows of their own, colours.

#include "bars/bartext.h"
#include "leavenothing.h"
#include "testclass.h"
#include "virtualinput.h"

#include <XeMFCEmu.h>

#include <QAbstractEventDispatcher>
#include <QMainWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QToolButton>
#include <QWindow>

namespace {

constexpr QPoint nowhere(1200, 1000);

/// Runs the event loop until it is about to wait.
void idle()
{
    QEventLoop loop;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop,
                     &QEventLoop::quit);
    loop.exec();
}

} // namespace

class tst_BarsOnScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init();
    void cleanup();

    void clickReachesTheHostsAction();
    void clickReachesTheActionOfAnAddedButton();
    void checkButtonToggles();
    void pressedAndHoveredButtonsAreBlue();
    void separatorIsALine();
    void commandUpdateShowsOnTheBar();

    void dockBarFloatsAsAWindow();
    void closeButtonHidesADialogBar();
    void statusTextsDoNotWidenTheWindow();

private:
    void showBar(CToolBar_X& bar);
    QPoint centreOf(const QWidget& widget) const
    {
        return m_input.windowOrigin(widget.window()->winId()) + widget.mapTo(widget.window(), widget.rect().center());
    }
    void clickOn(const QWidget& widget)
    {
        m_input.movePointer(centreOf(widget));
        QTRY_VERIFY(widget.underMouse()); // else the window manager may lose one of two clicks
        m_input.clickButton(1);
    }
    static QColor colorAt(const QWidget& widget, QPoint place)
    {
        const QPoint onScreen = widget.mapToGlobal(place);
        return widget.screen()->grabWindow(0, onScreen.x(), onScreen.y(), 1, 1).toImage().pixelColor(0, 0);
    }
    // The style mixes the colour of the style sheet with light and shade of its own.
    static bool isBlue(const QWidget& button)
    {
        const QColor color = colorAt(button, button.rect().center());
        return color.blue() > color.green() + 15 && color.green() > color.red() + 15;
    }

    VirtualInput m_input;
    std::unique_ptr<QMainWindow> m_frame;
    std::unique_ptr<Commands> m_commands;
};

void tst_BarsOnScreen::init()
{
    m_input.movePointer(nowhere);
    m_commands = std::make_unique<Commands>();
    m_frame = std::make_unique<QMainWindow>();
    m_frame->setGeometry(200, 150, 400, 300);
    m_frame->setCentralWidget(new QWidget);
}

void tst_BarsOnScreen::cleanup()
{
    m_input.releaseAll();
    m_frame.reset();
    m_commands.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_BarsOnScreen::showBar(CToolBar_X& bar)
{
    m_frame->addToolBar(bar.Imp<QToolBar>());
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
}

// --------------------------------------------------------------------------------------------------------- tool bars

void tst_BarsOnScreen::clickReachesTheHostsAction()
{
    CToolBar_X bar;
    bar.Create(m_frame.get());
    bar.LoadToolBar(m_commands->all(), 0);
    showBar(bar);
    const QSignalSpy edit(&m_commands->edit, &QAction::triggered);
    clickOn(*bar.Imp<QToolBar>()->widgetForAction(&m_commands->edit));
    QTRY_COMPARE(edit.size(), 1);
    bar.EnableButton(&m_commands->edit, 0);
    clickOn(*bar.Imp<QToolBar>()->widgetForAction(&m_commands->edit));
    const QSignalSpy find(&m_commands->find, &QAction::triggered);
    clickOn(*bar.Imp<QToolBar>()->widgetForAction(&m_commands->find));
    QTRY_COMPARE(find.size(), 1);
    QCOMPARE(edit.size(), 1);
}

void tst_BarsOnScreen::clickReachesTheActionOfAnAddedButton()
{
    QPixmap picture(16, 15);
    picture.fill(Qt::darkGreen);
    CToolBar_X bar;
    bar.Create(m_frame.get());
    QCOMPARE(bar.AddButton(picture, &m_commands->create), 1);
    showBar(bar);
    const QSignalSpy create(&m_commands->create, &QAction::triggered);
    clickOn(*bar.Imp<QToolBar>()->widgetForAction(bar.GetListActions()[0]));
    QTRY_COMPARE(create.size(), 1);
}

void tst_BarsOnScreen::checkButtonToggles()
{
    CToolBar_X bar;
    bar.Create(m_frame.get());
    bar.LoadToolBar(m_commands->all(), 1);
    showBar(bar);
    const QWidget& find = *bar.Imp<QToolBar>()->widgetForAction(&m_commands->find);
    clickOn(find);
    QTRY_COMPARE(barText(bar), QStringLiteral("New.|Edit.|-|Find*"));
    clickOn(find);
    QTRY_COMPARE(barText(bar), QStringLiteral("New.|Edit.|-|Find."));
}

void tst_BarsOnScreen::pressedAndHoveredButtonsAreBlue()
{
    QPixmap clear(16, 15);
    clear.fill(Qt::transparent);
    CToolBar_X bar;
    bar.Create(m_frame.get());
    bar.LoadToolBar({&m_commands->create, &m_commands->edit}, 1);
    for (QAction* action : bar.GetListActions())
        action->setIcon(clear);
    bar.CheckButton(&m_commands->edit, 1);
    showBar(bar);
    const QWidget& create = *bar.Imp<QToolBar>()->widgetForAction(&m_commands->create);
    const QWidget& edit = *bar.Imp<QToolBar>()->widgetForAction(&m_commands->edit);
    QTRY_VERIFY(isBlue(edit));
    QVERIFY(!isBlue(create));
    m_input.movePointer(centreOf(create));
    QTRY_VERIFY(isBlue(create));
    m_input.movePointer(nowhere);
    QTRY_VERIFY(!isBlue(create));
    m_input.movePointer(centreOf(create));
    m_input.pressButton(1);
    QTRY_VERIFY(isBlue(create));
}

void tst_BarsOnScreen::separatorIsALine()
{
    CToolBar_X bar;
    bar.Create(m_frame.get());
    bar.LoadToolBar(m_commands->all(), 0);
    showBar(bar);
    const QWidget& separator = *bar.Imp<QToolBar>()->widgetForAction(&m_commands->separator);
    QCOMPARE(separator.width(), 1);
    QTRY_COMPARE(colorAt(separator, separator.rect().center()), QColor(54, 59, 66));
}

// The action is on the menu and on the bar: one change shows on both.
void tst_BarsOnScreen::commandUpdateShowsOnTheBar()
{
    class Frame : public CWnd_X
    {
    public:
        explicit Frame(Commands& commands)
        {
            connect(this, &CWnd_X::updateCmdUi, this, [&commands, this] {
                commands.edit.setEnabled(hasPart);
                commands.find.setChecked(hasPart);
            });
        }
        bool hasPart = false;
    };
    Frame frame(*m_commands);
    frame.SubclassWindow(m_frame.get());
    CToolBar_X bar;
    bar.Create(&frame);
    m_commands->find.setCheckable(true);
    bar.LoadToolBar(m_commands->all(), 0);
    showBar(bar);
    idle();
    QCOMPARE(barText(bar), QStringLiteral("New|(Edit)|-|Find."));
    QVERIFY(!bar.Imp<QToolBar>()->widgetForAction(&m_commands->edit)->isEnabled());
    frame.hasPart = true;
    idle();
    QCOMPARE(barText(bar), QStringLiteral("New|Edit|-|Find*"));
    QVERIFY(static_cast<QToolButton*>(bar.Imp<QToolBar>()->widgetForAction(&m_commands->find))->isChecked());
}

// -------------------------------------------------------------------------------------------------- bars that float

void tst_BarsOnScreen::dockBarFloatsAsAWindow()
{
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    CDockBar_X bar(TRUE);
    QCOMPARE(bar.Create(m_frame.get(), WS_VISIBLE | CBRS_LEFT, 0), 1);
    auto* const widget = bar.Imp<QDockWidget>();
    widget->setWidget(new QLabel(QStringLiteral("on the dock")));
    widget->resize(150, 100);
    QVERIFY(widget->isFloating() && widget->isWindow());
    QVERIFY(QTest::qWaitForWindowExposed(widget));
    QVERIFY(widget->winId() != m_frame->winId());
    QTRY_COMPARE(m_input.windowOrigin(widget->winId()), widget->geometry().topLeft()); // the window manager moves it
    bar.DestroyWindow();
    deleteLaterObjects();
    QVERIFY(m_frame->isVisible());
}

void tst_BarsOnScreen::closeButtonHidesADialogBar()
{
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    CDialogBar_X bar;
    QCOMPARE(bar.Create(m_frame.get(), 1u, WS_VISIBLE | CBRS_FLOATING, 0), 1);
    auto* const widget = bar.Imp<QDockWidget>();
    auto* const content = new QLabel(QStringLiteral("a bar"));
    content->setFixedSize(200, 60);
    widget->setWidget(content);
    widget->move(650, 200);
    QVERIFY(QTest::qWaitForWindowExposed(widget));
    const auto* const button = widget->findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
    QTRY_VERIFY(button->isVisible());
    QCoreApplication::processEvents();
    clickOn(*button);
    QTRY_VERIFY(!widget->isVisible());
    QVERIFY(bar.GetSafeHwnd());
    bar.ShowWindow(SW_SHOW);
    QTRY_VERIFY(widget->isVisible());
}

// -------------------------------------------------------------------------------------------------------- status bar

void tst_BarsOnScreen::statusTextsDoNotWidenTheWindow()
{
    CStatusBar_X bar;
    bar.Create(m_frame.get());
    m_frame->setStatusBar(bar.Imp<QStatusBar>());
    for (int pane = 0; pane < 3; ++pane)
        bar.SetPaneText(pane, L"text");
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    for (int i = 0; i < 450; ++i) {
        bar.SetPaneText(i % 3, L"text");
        QCoreApplication::processEvents();
    }
    QCOMPARE(m_frame->width(), 400);
    int width = 0;
    for (const QWidget* pane : bar.GetListQWidgets())
        width += pane->width() + 7;
    QCOMPARE(width, 400);
}

XE_TEST(tst_BarsOnScreen)
#include "tst_barsonscreen.moc"
