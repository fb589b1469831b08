// Items that are taken off a menu, and what goes with them.

#include "leavenothing.h"
#include "letters.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

class tst_MenuDeleting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void deleted_data();
    void deleted();
    void deletedFromAnEmptyMenu();
    void deletedItemsAreFreed();
    void deletedItemThatIsInAMenuAgainStays();
    void deletedItemOfOthersStays();
    void deletedSubmenuStays();
    void deletedInItsOwnHandler();
    void rebuiltMenuDoesNotGrow();
};

void tst_MenuDeleting::deleted_data()
{
    QTest::addColumn<unsigned long long>("position");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, unsigned long long position, UINT flags, const char* text) {
        QTest::newRow(name) << position << flags << QString::fromUtf8(text);
    };
    row("by position", 0, 0x400, "S{C,D},B");
    row("a submenu by position", 1, 0x400, "A,B");
    row("by identifier", 2, 0, "A,S{C,D}");
    row("from the submenu that holds it", 3, 0, "A,S{D},B");
    row("a submenu by identifier", 9, 0, "A,B");
    row("a position past the end", 3, 0x400, "A,S{C,D},B");
    row("position -1", ~0ull, 0x400, "A,S{C,D},B");
    row("no such identifier", 55, 0, "A,S{C,D},B");
    row("the menu's own action", 77, 0, "A,S{C,D},B");
}

void tst_MenuDeleting::deleted()
{
    QFETCH(const unsigned long long, position);
    QFETCH(const UINT, flags);
    for (const auto& remove : {&CMenu_X::DeleteMenu, &CMenu_X::RemoveMenu}) {
        Nested menu;
        menu.GetSafeHmenu()->menuAction()->setProperty(idProperty, 77);
        QCOMPARE((menu.*remove)(position, flags), 1);
        QTEST(menu.text(), "text");
        deleteLaterObjects();
        QTEST(menu.text(), "text");
        QCOMPARE(menuText(menu.inner).isEmpty(), false);
    }
}

void tst_MenuDeleting::deletedFromAnEmptyMenu()
{
    Letters menu(0);
    QCOMPARE(menu.DeleteMenu(0, MF_BYPOSITION), 0);
    QCOMPARE(menu.RemoveMenu(1, MF_BYCOMMAND), 0);
}

void tst_MenuDeleting::deletedItemsAreFreed()
{
    Letters menu;
    menu.AppendMenu(MF_SEPARATOR);
    const QPointer<QAction> item = menu.at(0);
    const QPointer<QAction> separator = menu.at(2);
    menu.DeleteMenu(2, MF_BYPOSITION);
    menu.DeleteMenu(1, MF_BYCOMMAND);
    QVERIFY(item && separator);
    deleteLaterObjects();
    QVERIFY(!item && !separator);
    QCOMPARE(menu.text(), QStringLiteral("B"));
}

void tst_MenuDeleting::deletedItemThatIsInAMenuAgainStays()
{
    Letters menu;
    Letters other(0);
    const QPointer<QAction> item = menu.at(0);
    menu.DeleteMenu(1, MF_BYCOMMAND);
    menu.GetSafeHmenu()->addAction(item);
    menu.DeleteMenu(1, MF_BYCOMMAND); // a second time
    other.GetSafeHmenu()->addAction(item);
    deleteLaterObjects();
    QVERIFY(item);
    QCOMPARE(other.text(), QStringLiteral("A"));
    deleteLaterObjects();
    QVERIFY(item);
    item->deleteLater(); // what its owner says counts from then on
    deleteLaterObjects();
    QVERIFY(!item);
}

void tst_MenuDeleting::deletedItemOfOthersStays()
{
    QWidget window;
    QAction action(QStringLiteral("x"), &window);
    Letters menu;
    menu.GetSafeHmenu()->addAction(&action);
    const QPointer<QAction> living(&action);
    QCOMPARE(menu.DeleteMenu(2, MF_BYPOSITION), 1);
    deleteLaterObjects();
    QVERIFY(living);
    QCOMPARE(menu.text(), QStringLiteral("A,B"));
}

void tst_MenuDeleting::deletedSubmenuStays()
{
    Nested menu;
    QMenu* const made = menu.addMenu(QIcon(), QStringLiteral("M"), 11);
    auto* const action = new QAction(QStringLiteral("N"), menu.GetSafeHmenu()); // a child of the menu, and a popup item
    QMenu popup;
    action->setMenu(&popup);
    menu.GetSafeHmenu()->addAction(action);
    const QPointer<QMenu> living(made);
    const QPointer<QAction> livingAction(action);
    QCOMPARE(menu.DeleteMenu(11, MF_BYCOMMAND), 1);
    QCOMPARE(menu.DeleteMenu(9, MF_BYCOMMAND), 1);
    QCOMPARE(menu.DeleteMenu(2, MF_BYPOSITION), 1);
    deleteLaterObjects();
    QVERIFY(living && livingAction);
    QCOMPARE(menu.text(), QStringLiteral("A,B"));
    QCOMPARE(menuText(menu.inner), QStringLiteral("C,D"));
}

void tst_MenuDeleting::deletedInItsOwnHandler()
{
    Letters menu;
    const QPointer<QAction> item = menu.at(0);
    int calls = 0;
    connect(item, &QAction::triggered, &menu, [&] {
        QCOMPARE(menu.DeleteMenu(1, MF_BYCOMMAND), 1);
        QCoreApplication::processEvents(); // a dialog's loop does no harm
        QVERIFY(item);
        ++calls;
    });
    item->trigger();
    QCOMPARE(calls, 1);
    deleteLaterObjects();
    QVERIFY(!item);
}

void tst_MenuDeleting::rebuiltMenuDoesNotGrow()
{
    Letters menu;
    const int children = menu.GetSafeHmenu()->children().size();
    for (int i = 0; i < 100; ++i) {
        while (menu.GetMenuItemCount())
            menu.DeleteMenu(0, MF_BYPOSITION);
        menu.AppendMenu(MF_STRING, 1, L"A");
        menu.AppendMenu(MF_STRING, 2, L"B");
        deleteLaterObjects();
    }
    QCOMPARE(menu.GetSafeHmenu()->children().size(), children);
}

XE_TEST(tst_MenuDeleting)
#include "tst_menudeleting.moc"
