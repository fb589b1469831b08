// The menu bar of a window, and that passing wrappers leave none behind.

#include "deletelater.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <private/qobject_p.h> // who filters an object's events

#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>

namespace {

// "hidden" or "shown", and the titles in it.
QString menuText(const QWidget& widget)
{
    const auto bars = widget.findChildren<QMenuBar*>();
    if (bars.size() != 1)
        return QStringLiteral("%1 bars").arg(bars.size());
    QStringList words(bars.first()->isHidden() ? QStringLiteral("hidden") : QStringLiteral("shown"));
    for (const QAction* action : bars.first()->actions())
        words += action->text();
    return words.join(QLatin1Char(' '));
}

// Those of the widgets whose events the window's menu bar filters.
QList<QWidget*> filteredBy(const QMenuBar* bar, const QList<QWidget*>& widgets)
{
    QList<QWidget*> filtered;
    for (QWidget* widget : widgets) {
        const auto* const extra = QObjectPrivate::get(widget)->extraData;
        if (extra && extra->eventFilters.contains(const_cast<QMenuBar*>(bar)))
            filtered += widget;
    }
    return filtered;
}

void show(QMainWindow& window)
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    window.show();
}

using Maker = QWidget* (*)();

} // namespace

Q_DECLARE_METATYPE(Maker)

class tst_WndMenuBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void menusAreAddedAndTakenAway();
    void menuWithoutQMenu();
    void menuOutlivesTheBar();
    void overridesMayCallEachOther();
    void noMenuBar();
    void aDialogsBarComesWithItsFirstMenu();
    void aHiddenBarFiltersNothing();
    void aBarFollowsItsWindowAfterAMoveInHiding();
    void splitterHasNone();
    void aShownBarFillsTheTop();
    void aHiddenBarIsNotPlaced();
    void mainWindowUsesItsOwn();
    void mainWindowWithoutABarGetsOne();
    void mainWindowWithAnotherWidgetInItsPlace();

    void temporaryWrappersLeaveNothing_data();
    void temporaryWrappersLeaveNothing();
    void permanentWrappersLeaveNothing();
    void aBarMayEndItsWindow();
};

void tst_WndMenuBar::menusAreAddedAndTakenAway()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X file(&widget);
    CMenu_X edit(&widget);
    CMenu_X help(&widget);
    file.Imp<QMenu>()->setTitle(QStringLiteral("File"));
    edit.Imp<QMenu>()->setTitle(QStringLiteral("Edit"));
    help.Imp<QMenu>()->setTitle(QStringLiteral("Help"));

    QCOMPARE(menuText(widget), QStringLiteral("hidden"));
    QCOMPARE(window.SetMenu(&file), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown File"));
    QCOMPARE(window.SetMenu({&edit, &help}), 1); // behind what is there
    QCOMPARE(menuText(widget), QStringLiteral("shown File Edit Help"));
    QCOMPARE(window.SetMenu(nullptr), 1);
    QCOMPARE(menuText(widget), QStringLiteral("hidden"));
    QCOMPARE(window.SetMenu(QList<CMenu_X*>()), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown"));
    QCOMPARE(window.SetMenu(NULL), 1);
    QCOMPARE(window.SetMenu({nullptr, &help, nullptr}), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown Help"));
}

void tst_WndMenuBar::menuWithoutQMenu()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X menu;
    QCOMPARE(window.SetMenu(&menu), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown"));
}

void tst_WndMenuBar::menuOutlivesTheBar()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X menu(&widget);
    window.SetMenu(&menu);
    window.DestroyWindow();
    deleteLaterObjects();
    QVERIFY(menu.Imp<QMenu>());
    QCOMPARE(menuText(widget), QStringLiteral("0 bars"));
}

void tst_WndMenuBar::overridesMayCallEachOther()
{
    class OneByOne : public CWnd_X
    {
    public:
        using CWnd_X::SetMenu;
        int SetMenu(QList<CMenu_X*> menus) override
        {
            int result = 0;
            for (CMenu_X* menu : qAsConst(menus))
                result += SetMenu(menu);
            return result;
        }
    };
    QWidget widget;
    OneByOne window;
    window.SubclassWindow(&widget);
    CMenu_X file(&widget);
    CMenu_X edit(&widget);
    file.Imp<QMenu>()->setTitle(QStringLiteral("File"));
    edit.Imp<QMenu>()->setTitle(QStringLiteral("Edit"));
    QCOMPARE(window.SetMenu({&file, &edit}), 2);
    QCOMPARE(menuText(widget), QStringLiteral("shown File Edit"));
}

void tst_WndMenuBar::noMenuBar()
{
    class Bare : public CWnd_X
    {
    public:
        int OnCreate(tagCREATESTRUCTW*) override { return 0; }
    };
    QWidget widget;
    Bare window;
    window.SubclassWindow(&widget);
    CMenu_X menu(&widget);
    QCOMPARE(window.SetMenu(&menu), 0);
    QCOMPARE(window.SetMenu({&menu}), 0);
    QCOMPARE(window.SetMenu(nullptr), 0);
    QCOMPARE(menuText(widget), QStringLiteral("0 bars"));
}

void tst_WndMenuBar::aDialogsBarComesWithItsFirstMenu()
{
    CDialog_X dialog;
    dialog.CWnd_X::Create(static_cast<QWidget*>(nullptr));
    QWidget& widget = *dialog.GetSafeHwnd();
    QCOMPARE(menuText(widget), QStringLiteral("0 bars"));
    CMenu_X menu(&widget);
    menu.setTitle(L"File");
    QCOMPARE(dialog.SetMenu(&menu), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown File"));
    QCOMPARE(dialog.SetMenu(nullptr), 1);
    QCOMPARE(menuText(widget), QStringLiteral("hidden"));
    dialog.DestroyWindow();
    QCOMPARE(dialog.SetMenu(&menu), 0);
    deleteLaterObjects();
}

void tst_WndMenuBar::aHiddenBarFiltersNothing()
{
    QWidget top;
    QWidget middle(&top);
    QWidget widget(&middle);
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X menu(&widget);
    const QList<QWidget*> all{&widget, &middle, &top};
    const auto* const bar = widget.findChild<QMenuBar*>();
    QCOMPARE(filteredBy(bar, all), {});
    window.SetMenu(&menu);
    QCOMPARE(filteredBy(bar, all), all); // as Qt's own does
    window.SetMenu(nullptr);
    QCOMPARE(filteredBy(bar, all), {});
    window.SetMenu(&menu);
    window.SetMenu(&menu);
    QCOMPARE(filteredBy(bar, all), all);
}

void tst_WndMenuBar::aBarFollowsItsWindowAfterAMoveInHiding()
{
    auto first = std::make_unique<QWidget>();
    QWidget second;
    auto* const widget = new QWidget(first.get());
    CWnd_X window;
    window.SubclassWindow(widget);
    CMenu_X menu(widget);
    const auto* const bar = widget->findChild<QMenuBar*>();
    widget->setParent(&second);
    window.SetMenu(&menu);
    QCOMPARE(filteredBy(bar, {widget, first.get(), &second}), (QList<QWidget*>{widget, &second}));
    window.SetMenu(nullptr);
    widget->setParent(nullptr);
    first.reset();
    window.SetMenu(&menu);
    QCOMPARE(filteredBy(bar, {widget, &second}), {widget});
    window.Detach();
    delete widget;
    deleteLaterObjects();
}

// It would become a column there.
void tst_WndMenuBar::splitterHasNone()
{
    QSplitter splitter;
    CWnd_X window;
    window.SubclassWindow(&splitter);
    CMenu_X menu(&splitter);
    QCOMPARE(splitter.count(), 0);
    QCOMPARE(window.SetMenu(&menu), 0);
    QCOMPARE(splitter.count(), 0);
}

void tst_WndMenuBar::aShownBarFillsTheTop()
{
    QWidget widget;
    widget.resize(400, 300);
    CWnd_X window;
    window.SubclassWindow(&widget);
    widget.show();
    CMenu_X file(&widget);
    file.setTitle(L"File");
    window.SetMenu(&file);
    const auto* const bar = widget.findChild<QMenuBar*>();
    QVERIFY(bar->heightForWidth(400) > 0);
    QCOMPARE(bar->geometry(), QRect(0, 0, 400, bar->heightForWidth(400)));
    QVERIFY(bar->isVisible());

    QList<CMenu_X*> more;
    std::vector<std::unique_ptr<CMenu_X>> menus;
    for (int i = 0; i < 8; ++i) {
        menus.push_back(std::make_unique<CMenu_X>(&widget));
        menus.back()->setTitle(L"Another menu");
        more += menus.back().get();
    }
    widget.resize(1200, 300);
    window.SetMenu(more);
    QCOMPARE(bar->geometry(), QRect(0, 0, 1200, bar->heightForWidth(1200)));
    widget.resize(900, 200);
    QCOMPARE(bar->geometry(), QRect(0, 0, 900, bar->heightForWidth(900)));
    QVERIFY(bar->actionGeometry(bar->actions().last()).isValid()); // no extension arrow
}

void tst_WndMenuBar::aHiddenBarIsNotPlaced()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    widget.show();
    const auto* const bar = widget.findChild<QMenuBar*>();
    const QRect place = bar->geometry();
    widget.resize(500, 400);
    QCOMPARE(bar->geometry(), place);
}

void tst_WndMenuBar::mainWindowUsesItsOwn()
{
    QMainWindow widget;
    widget.menuBar()->addMenu(QStringLiteral("Own"));
    const QPointer<QMenuBar> own = widget.menuBar();
    const QList<QWidget*> all{&widget};
    {
        CWnd_X window;
        window.SubclassWindow(&widget);
        CMenu_X menu(&widget);
        menu.setTitle(L"Added");
        QCOMPARE(window.SetMenu(&menu), 1);
        QCOMPARE(menuText(widget), QStringLiteral("shown Own Added"));
        QCOMPARE(widget.menuBar(), own);
        QCOMPARE(filteredBy(own, all), all);
        QCOMPARE(window.SetMenu(nullptr), 1);
        QCOMPARE(menuText(widget), QStringLiteral("hidden"));
        QCOMPARE(window.SetMenu(&menu), 1);
        QCOMPARE(menuText(widget), QStringLiteral("shown Added"));
        QCOMPARE(widget.menuBar(), own);
        widget.resize(500, 300);
        show(widget);
        QCOMPARE(own->geometry(), QRect(0, 0, 500, own->heightForWidth(500)));
    }
    deleteLaterObjects();
    QVERIFY(own && own->isVisible()); // it is the main window's
}

void tst_WndMenuBar::mainWindowWithoutABarGetsOne()
{
    QMainWindow widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    QCOMPARE(menuText(widget), QStringLiteral("0 bars"));
    CMenu_X menu(&widget);
    menu.setTitle(L"Added");
    show(widget);
    QCOMPARE(window.SetMenu(&menu), 1);
    QCOMPARE(menuText(widget), QStringLiteral("shown Added"));
    QCOMPARE(widget.menuWidget(), widget.findChild<QMenuBar*>());
}

void tst_WndMenuBar::mainWindowWithAnotherWidgetInItsPlace()
{
    QMainWindow widget;
    auto* const other = new QLabel;
    widget.setMenuWidget(other);
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X menu(&widget);
    QCOMPARE(window.SetMenu(&menu), 0);
    QCOMPARE(window.SetMenu(nullptr), 0);
    QCOMPARE(widget.menuWidget(), other);
    QCOMPARE(menuText(widget), QStringLiteral("0 bars"));
}

// ------------------------------------------------------------------------------------------------ nothing piles up

void tst_WndMenuBar::temporaryWrappersLeaveNothing_data()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("QLabel") << Maker([]() -> QWidget* { return new QLabel(QStringLiteral("text")); });
    QTest::newRow("QPushButton") << Maker([]() -> QWidget* { return new QPushButton; });
    QTest::newRow("QComboBox") << Maker([]() -> QWidget* { return new QComboBox; });
    QTest::newRow("QScrollArea") << Maker([]() -> QWidget* { return new QScrollArea; });
    QTest::newRow("QMainWindow") << Maker([]() -> QWidget* { return new QMainWindow; });
    QTest::newRow("QSplitter") << Maker([]() -> QWidget* { return new QSplitter; });
}

void tst_WndMenuBar::temporaryWrappersLeaveNothing()
{
    QFETCH(Maker, make);
    const std::unique_ptr<QWidget> widget(make());
    const QSize size = widget->sizeHint();
    const int children = widget->children().size();
    for (int i = 0; i < 100; ++i) {
        QVERIFY(CWnd_X::FromHandle(widget.get())->GetSafeHwnd());
        ClearTempObjectPool();
        QCOMPARE(CWnd_X::FromHandlePermanent(widget.get()), nullptr);
    }
    deleteLaterObjects();
    QCOMPARE(widget->children().size(), children);
    QCOMPARE(widget->dynamicPropertyNames(), QList<QByteArray>());
    QCOMPARE(widget->sizeHint(), size);
}

void tst_WndMenuBar::permanentWrappersLeaveNothing()
{
    QWidget widget;
    CWnd_X window;
    window.ModifyStyle(0, WS_HSCROLL | WS_VSCROLL);
    for (int i = 0; i < 100; ++i) {
        QCOMPARE(window.SubclassWindow(&widget), 1);
        deleteLaterObjects();
        QCOMPARE(widget.children().size(), 3);
        if (i % 2)
            window.Detach();
    }
    deleteLaterObjects();
    QVERIFY(widget.children().isEmpty());
}

// The bars go when the event loop comes round: one of them may be what has ended the window.
void tst_WndMenuBar::aBarMayEndItsWindow()
{
    QWidget widget;
    CWnd_X window;
    window.ModifyStyle(0, WS_VSCROLL);
    window.SubclassWindow(&widget);
    QPointer<QScrollBar> bar = window.GetScrollBarCtrl(SB_VERT);
    connect(bar, &QScrollBar::valueChanged, bar, [&] { window.DestroyWindow(); });
    bar->setValue(5);
    QCOMPARE(window.GetSafeHwnd(), nullptr);
    QVERIFY(bar && bar->isHidden());
    deleteLaterObjects();
    QVERIFY(!bar);

    window.SubclassWindow(&widget);
    CMenu_X menu(&widget);
    QAction* const quit = menu.Imp<QMenu>()->addAction(QStringLiteral("Quit"));
    window.SetMenu(&menu);
    connect(quit, &QAction::triggered, quit, [&] { window.DestroyWindow(); });
    auto* const menuBar = widget.findChild<QMenuBar*>();
    menuBar->addAction(quit);
    widget.show();
    menuBar->resize(300, menuBar->sizeHint().height());
    QTest::mouseClick(menuBar, Qt::LeftButton, Qt::NoModifier, menuBar->actionGeometry(quit).center());
    QCOMPARE(window.GetSafeHwnd(), nullptr);
}

XE_TEST(tst_WndMenuBar)
#include "tst_wndmenubar.moc"
