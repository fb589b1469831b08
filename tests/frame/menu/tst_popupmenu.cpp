// A menu that opens by itself, on a real X server, worked by mouse and keys.

#include "leavenothing.h"
#include "realwindow.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QTimer>

namespace {

enum Key : unsigned long {
    Return = 0xff0d,
    Escape = 0xff1b,
    Left = 0xff51,
    Up = 0xff52,
    Right = 0xff53,
    Down = 0xff54
};

// Does something once, as soon as the menu is on the screen, from inside the menu's own loop.
class WhenOpen
{
public:
    WhenOpen(const QMenu* menu, const std::function<void()>& act)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, menu, act] {
            if (!menu->isVisible() || !menu->windowHandle()->isExposed())
                return;
            m_timer.stop();
            act();
        });
        m_timer.start(1);
    }
    Q_DISABLE_COPY_MOVE(WhenOpen)

private:
    QTimer m_timer;
};

constexpr int x = 300;
constexpr int y = 250;

} // namespace

class tst_PopupMenu : public QObject
{
    Q_OBJECT

public:
    using Act = void (tst_PopupMenu::*)();

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init();
    void cleanup();

    void chosen_data();
    void chosen();
    void openedBesideThePoint();
    void aDisabledItemDoesNotClose();
    void argumentsThatMeanNothing();
    void aSecondTimeWhileItIsOpen();
    void againFromAHandler();
    void triggeredFromElsewhere();

    void itemDeletedByItsHandler_data();
    void itemDeletedByItsHandler();
    void wrapperDeletedByAHandler();
    void menuDestroyedByAHandler_data();
    void menuDestroyedByAHandler();
    void wrapperDeletedWhileOpen();
    void menuDeletedWhileOpen();
    void temporaryMapDeletedWhileOpen();
    void destroyedWhileOpen();
    void identifierChangedByAHandler();

public: // what the rows do
    void clickFirst() { click(*m_menu, 0); }
    void clickSecond() { click(*m_menu, 1); }
    void clickWithoutIdentifier() { click(*m_menu, 4); }
    void clickIntoSubmenu();
    void pressAndLetGo();
    void clickOutside();
    void type(std::initializer_list<unsigned long> keys);
    void escape() { type({Escape}); }
    void downReturn() { type({Down, Return}); }
    void upReturn() { type({Up, Return}); }
    void mnemonic() { type({'b'}); }
    void keysIntoSubmenu();
    void keysBackFromSubmenu();

private:
    QAction* item(int index) const { return m_menu->GetMenuItemAction(index); }
    int track() { return m_menu->TrackPopupMenu(0, x, y, nullptr); }
    QPoint centreOf(const QMenu* menu, int index) const;
    void click(const QMenu* menu, int index);
    static void settle();

    VirtualInput m_input;
    std::unique_ptr<RealWindow<CWnd_X>> m_window;
    std::unique_ptr<CMenu_X> m_sub;
    std::unique_ptr<CMenu_X> m_menu;
};

Q_DECLARE_METATYPE(tst_PopupMenu::Act)

// "A" (1), "B" (2), a separator, "S" (9) of "C" (0x100000003) and "D" (4), "none" without an identifier.
void tst_PopupMenu::init()
{
    m_window = std::make_unique<RealWindow<CWnd_X>>(m_input);
    QVERIFY(m_window->comeUp());
    m_sub = std::make_unique<CMenu_X>();
    m_sub->CreatePopupMenu();
    m_sub->AppendMenu(MF_STRING, 0x100000003, L"C");
    m_sub->AppendMenu(MF_STRING, 4, L"D");
    m_menu = std::make_unique<CMenu_X>();
    m_menu->CreatePopupMenu();
    m_menu->AppendMenu(MF_STRING, 1, L"A");
    m_menu->AppendMenu(MF_STRING, 2, L"&B");
    m_menu->AppendMenu(MF_SEPARATOR);
    m_menu->AppendMenu(m_sub.get(), L"S", 9);
    m_menu->GetSafeHmenu()->addAction(QStringLiteral("none"));
}

void tst_PopupMenu::cleanup()
{
    m_menu.reset();
    m_sub.reset();
    CMenu_X::DeleteTempMap();
    m_window.reset();
    m_input.releaseAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PopupMenu::settle()
{
    QGuiApplication::sync();
    QCoreApplication::processEvents();
}

QPoint tst_PopupMenu::centreOf(const QMenu* menu, int index) const
{
    return m_input.windowOrigin(menu->winId()) + menu->actionGeometry(menu->actions().at(index)).center();
}

void tst_PopupMenu::click(const QMenu* menu, int index)
{
    m_input.movePointer(centreOf(menu, index));
    settle();
    m_input.clickButton(1);
}

void tst_PopupMenu::type(std::initializer_list<unsigned long> keys)
{
    for (const unsigned long key : keys)
        m_input.typeKey(key);
}

void tst_PopupMenu::clickIntoSubmenu()
{
    click(*m_menu, 3);
    QTRY_VERIFY(m_sub->GetSafeHmenu()->isVisible() && m_sub->GetSafeHmenu()->windowHandle()->isExposed());
    click(*m_sub, 1);
}

void tst_PopupMenu::pressAndLetGo()
{
    m_input.movePointer(centreOf(*m_menu, 0));
    m_input.pressButton(1);
    settle();
    m_input.movePointer(centreOf(*m_menu, 1));
    settle();
    m_input.releaseButton(1);
}

void tst_PopupMenu::clickOutside()
{
    m_input.movePointer(QPoint(x - 60, y - 60));
    settle();
    m_input.clickButton(1);
}

void tst_PopupMenu::keysIntoSubmenu()
{
    type({Down, Down, Down, Right});
    QTRY_VERIFY(m_sub->GetSafeHmenu()->isVisible());
    type({Return});
}

void tst_PopupMenu::keysBackFromSubmenu()
{
    type({Down, Down, Down, Right});
    QTRY_VERIFY(m_sub->GetSafeHmenu()->isVisible());
    type({Left});
    QTRY_VERIFY(!m_sub->GetSafeHmenu()->isVisible());
    type({Up, Return});
}

// ------------------------------------------------------------------------------------------------------------- results

void tst_PopupMenu::chosen_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<int>("id");
    const auto row = [](const char* name, Act act, int id) { QTest::newRow(name) << act << id; };
    row("a click on an item", &tst_PopupMenu::clickFirst, 1);
    row("a click on another item", &tst_PopupMenu::clickSecond, 2);
    row("a button that goes down on one item and up on another", &tst_PopupMenu::pressAndLetGo, 2);
    row("a click on an item of a submenu", &tst_PopupMenu::clickIntoSubmenu, 4);
    row("an item without an identifier", &tst_PopupMenu::clickWithoutIdentifier, -1);
    row("a click outside", &tst_PopupMenu::clickOutside, -1);
    row("Escape", &tst_PopupMenu::escape, -1);
    row("Down, Return", &tst_PopupMenu::downReturn, 1);
    row("Up, Return", &tst_PopupMenu::upReturn, -1); // the last one has no identifier
    row("the underlined letter", &tst_PopupMenu::mnemonic, 2);
    row("keys into a submenu; an identifier of 64 bits", &tst_PopupMenu::keysIntoSubmenu, 3);
    row("keys into a submenu and back", &tst_PopupMenu::keysBackFromSubmenu, 2);
}

void tst_PopupMenu::chosen()
{
    QFETCH(const Act, act);
    int triggered = 0;
    connect(m_menu->GetSafeHmenu(), &QMenu::triggered, this, [&] { ++triggered; });
    const WhenOpen user(*m_menu, [&] { (this->*act)(); });
    QTEST(track(), "id");
    QVERIFY(!m_menu->GetSafeHmenu()->isVisible());
    QTRY_VERIFY(m_window->widget()->isActiveWindow());
    QVERIFY(triggered <= 1);
}

void tst_PopupMenu::openedBesideThePoint()
{
    QPoint place;
    const WhenOpen user(*m_menu, [&] {
        const QMenu* const menu = *m_menu;
        (void)QTest::qWaitFor([&] { return m_input.windowOrigin(menu->winId()) == menu->pos(); });
        place = m_input.windowOrigin(menu->winId());
        escape();
    });
    QCOMPARE(track(), -1);
    QCOMPARE(place, QPoint(x + 1, y + 1));
}

void tst_PopupMenu::aDisabledItemDoesNotClose()
{
    m_menu->EnableMenuItem(1, MF_GRAYED);
    bool stayed = false;
    const WhenOpen user(*m_menu, [&] {
        clickFirst();
        QTest::qWait(50);
        stayed = m_menu->GetSafeHmenu()->isVisible();
        clickSecond();
    });
    QCOMPARE(track(), 2);
    QVERIFY(stayed);
}

void tst_PopupMenu::argumentsThatMeanNothing()
{
    const tagRECT rect{0, 0, 2000, 2000};
    const WhenOpen user(*m_menu, [&] { clickFirst(); });
    QCOMPARE(m_menu->TrackPopupMenu(TPM_RIGHTALIGN | TPM_BOTTOMALIGN | TPM_NONOTIFY, x, y, &m_window->wrapper, &rect),
             1);
}

void tst_PopupMenu::aSecondTimeWhileItIsOpen()
{
    int second = 0;
    const WhenOpen user(*m_menu, [&] {
        second = track();
        clickFirst();
    });
    QCOMPARE(track(), 1);
    QCOMPARE(second, -1);
}

void tst_PopupMenu::againFromAHandler()
{
    int second = 0;
    QScopedPointer<WhenOpen> inner;
    connect(item(0), &QAction::triggered, this, [&] {
        inner.reset(new WhenOpen(*m_menu, [&] { clickSecond(); }));
        second = track();
    });
    const WhenOpen user(*m_menu, [&] { clickFirst(); });
    QCOMPARE(track(), 1);
    QCOMPARE(second, 2);
}

// An accelerator of the host's, say: that chooses nothing in this menu.
void tst_PopupMenu::triggeredFromElsewhere()
{
    const WhenOpen user(*m_menu, [&] {
        type({Down});
        QTRY_COMPARE(m_menu->GetSafeHmenu()->activeAction(), item(0));
        item(0)->trigger();
        escape();
    });
    QCOMPARE(track(), -1);
}

// ----------------------------------------------------------------------------------------------- what handlers may do

void tst_PopupMenu::itemDeletedByItsHandler_data()
{
    QTest::addColumn<bool>("inSubmenu");
    QTest::addColumn<bool>("byTheMenu");
    QTest::addColumn<int>("id");
    QTest::newRow("at once") << false << false << 1;
    QTest::newRow("at once, in a submenu") << true << false << 4;
    QTest::newRow("by DeleteMenu") << false << true << 1;
    QTest::newRow("by DeleteMenu, in a submenu") << true << true << 4;
}

void tst_PopupMenu::itemDeletedByItsHandler()
{
    QFETCH(const bool, inSubmenu);
    QFETCH(const bool, byTheMenu);
    QFETCH(const int, id);
    QAction* const action = CMenu_X::findAction(static_cast<UINT_PTR>(id), *m_menu);
    connect(action, &QAction::triggered, this, [=] {
        if (byTheMenu)
            m_menu->DeleteMenu(static_cast<UINT_PTR>(id), MF_BYCOMMAND);
        else
            delete action;
    });
    const WhenOpen user(*m_menu, [&] { inSubmenu ? clickIntoSubmenu() : clickFirst(); });
    QCOMPARE(track(), id);
    QTRY_VERIFY(!CMenu_X::findAction(static_cast<UINT_PTR>(id), *m_menu));
}

void tst_PopupMenu::wrapperDeletedByAHandler()
{
    connect(item(0), &QAction::triggered, this, [this] { m_menu.reset(); });
    const WhenOpen user(*m_menu, [&] { clickFirst(); });
    QCOMPARE(track(), 1);
    QVERIFY(!m_menu);
}

void tst_PopupMenu::menuDestroyedByAHandler_data()
{
    QTest::addColumn<bool>("inSubmenu");
    QTest::addColumn<int>("id");
    QTest::newRow("of an item") << false << 1;
    QTest::newRow("of an item in a submenu") << true << 4;
}

void tst_PopupMenu::menuDestroyedByAHandler()
{
    QFETCH(const bool, inSubmenu);
    QFETCH(const int, id);
    const QPointer<QMenu> menu = m_menu->GetSafeHmenu();
    connect(CMenu_X::findAction(static_cast<UINT_PTR>(id), menu), &QAction::triggered, menu, [=] {
        m_menu->DestroyMenu();
        QCoreApplication::processEvents();
    });
    const WhenOpen user(menu, [&] { inSubmenu ? clickIntoSubmenu() : clickFirst(); });
    QCOMPARE(track(), id);
    QVERIFY(!m_menu->GetSafeHmenu());
    QTRY_VERIFY(!menu);
}

void tst_PopupMenu::wrapperDeletedWhileOpen()
{
    const WhenOpen user(*m_menu, [this] { m_menu.reset(); }); // its menu goes with it
    QCOMPARE(track(), -1);
}

void tst_PopupMenu::menuDeletedWhileOpen()
{
    const WhenOpen user(*m_menu, [this] { delete m_menu->GetSafeHmenu(); });
    QCOMPARE(track(), -1);
}

void tst_PopupMenu::temporaryMapDeletedWhileOpen()
{
    QMenu menu;
    menu.addAction(QStringLiteral("A"))->setProperty("MenuItemIdx", 5);
    const WhenOpen user(&menu, [&] {
        CMenu_X::DeleteTempMap();
        click(&menu, 0);
    });
    QCOMPARE(CMenu_X::FromHandle(&menu)->TrackPopupMenu(0, x, y, nullptr), 5);
}

void tst_PopupMenu::destroyedWhileOpen()
{
    const WhenOpen user(*m_menu, [this] { m_menu->DestroyMenu(); });
    QCOMPARE(track(), -1);
    QVERIFY(!m_menu->GetSafeHmenu());
}

// The identifier is the one that the item has when it is chosen.
void tst_PopupMenu::identifierChangedByAHandler()
{
    connect(item(0), &QAction::hovered, this, [this] { m_menu->ModifyMenu(0, MF_BYPOSITION, 11); });
    connect(item(0), &QAction::triggered, this, [this] { m_menu->ModifyMenu(0, MF_BYPOSITION, 12); });
    const WhenOpen user(*m_menu, [&] { clickFirst(); });
    QCOMPARE(track(), 11);
}

XE_TEST(tst_PopupMenu)
#include "tst_popupmenu.moc"
