// Items that are put into a menu at a place.

#include "leavenothing.h"
#include "letters.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

class tst_MenuInserting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void insertedByPosition_data();
    void insertedByPosition();
    void insertedByIdentifier_data();
    void insertedByIdentifier();
    void insertedKinds();
    void insertedPopup();
    void insertedWrapper_data();
    void insertedWrapper();
    void insertedWrapperThatIsRefused();
};

void tst_MenuInserting::insertedByPosition_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<unsigned long long>("position");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, int count, unsigned long long position, const char* text) {
        QTest::newRow(name) << count << position << QString::fromUtf8(text);
    };
    row("behind the first", 2, 0, "A,x,B");
    row("behind the last", 2, 1, "A,B,x");
    row("past the end", 2, 2, "A,B,x");
    row("in the middle", 3, 1, "A,B,x,C");
    row("-1 of 32 bits is the end", 2, positionFarBehind, "A,B,x");
    row("-1 of 64 bits is the end", 2, ~0ull, "A,B,x");
    row("an empty menu", 0, 0, "x");
    row("-1 in an empty menu", 0, ~0ull, "x");
}

void tst_MenuInserting::insertedByPosition()
{
    QFETCH(const int, count);
    QFETCH(const unsigned long long, position);
    Letters menu(count);
    QCOMPARE(menu.InsertMenu(position, MF_BYPOSITION, 5, L"x"), 1);
    QTEST(menu.text(), "text");
    QCOMPARE(menu.GetMenuState(5, MF_BYCOMMAND), 0u);
    QVERIFY(CMenu_X::findAction(5, menu));
}

void tst_MenuInserting::insertedByIdentifier_data()
{
    QTest::addColumn<unsigned long long>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("in front of the first") << 1ull << QStringLiteral("x,A,S{C,D},B");
    QTest::newRow("in front of the last") << 2ull << QStringLiteral("A,S{C,D},x,B");
    QTest::newRow("in front of a submenu") << 9ull << QStringLiteral("A,x,S{C,D},B");
    QTest::newRow("beside an item of a submenu") << 4ull << QStringLiteral("A,S{C,x,D},B");
    QTest::newRow("the menu's own action is no place") << 77ull << QStringLiteral("A,S{C,D},B,x");
    QTest::newRow("no such item") << 55ull << QStringLiteral("A,S{C,D},B,x");
}

void tst_MenuInserting::insertedByIdentifier()
{
    QFETCH(const unsigned long long, id);
    Nested menu;
    menu.GetSafeHmenu()->menuAction()->setProperty(idProperty, 77);
    QCOMPARE(menu.InsertMenu(id, MF_BYCOMMAND, 5, L"x"), 1);
    QTEST(menu.text(), "text");
    QAction* const made = CMenu_X::findAction(5, menu);
    QVERIFY(made);
    QVERIFY(made->associatedWidgets().contains(qobject_cast<QWidget*>(made->parent())));
}

void tst_MenuInserting::insertedKinds()
{
    Letters menu;
    Letters popup(0);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_SEPARATOR), 1);
    QCOMPARE(menu.InsertMenu(2, MF_BYCOMMAND | MF_SEPARATOR | MF_POPUP, addressOf(popup), L"S"), 1); // a separator
    QCOMPARE(menu.text(), QStringLiteral("A,-,-,B"));
    QCOMPARE(idOf(menu.at(1)), QVariant());
}

void tst_MenuInserting::insertedPopup()
{
    Letters menu;
    Letters popup(1);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_POPUP, addressOf(popup), L"S 字"), 1);
    QCOMPARE(menu.text(), QStringLiteral("A,S 字{A},B"));
    QCOMPARE(idOf(menu.at(1)), number(addressOf(popup)));
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_POPUP, addressOf(menu), L"T"), 1); // nothing
    QCOMPARE(menu.GetMenuItemCount(), 3);
}

void tst_MenuInserting::insertedWrapper_data()
{
    QTest::addColumn<unsigned long long>("before");
    QTest::addColumn<QString>("text");
    QTest::newRow("in front of the first") << 1ull << QStringLiteral("N{},A,S{C,D},B");
    QTest::newRow("in front of a submenu") << 9ull << QStringLiteral("A,N{},S{C,D},B");
    QTest::newRow("beside an item of a submenu") << 4ull << QStringLiteral("A,S{C,N{},D},B");
    QTest::newRow("no such item") << 55ull << QStringLiteral("A,S{C,D},B,N{}");
}

void tst_MenuInserting::insertedWrapper()
{
    QFETCH(const unsigned long long, before);
    Nested menu;
    Letters added(0);
    const QIcon icon = redIcon();
    QCOMPARE(menu.InsertMenu(&added, L"N", 5, before, icon), 1);
    QTEST(menu.text(), "text");
    QCOMPARE(idOf(added.GetSafeHmenu()->menuAction()), number(5));
    QCOMPARE(added.GetSafeHmenu()->icon().cacheKey(), icon.cacheKey());
    Letters another(0);
    another.setIcon(icon);
    QCOMPARE(menu.InsertMenu(&another, L"O", 6, 5), 1);
    QCOMPARE(another.GetSafeHmenu()->icon().cacheKey(), icon.cacheKey());
    QVERIFY(menu.text().contains(QStringLiteral("O{},N{}")));
}

// It is below another submenu, and would be put into itself.
void tst_MenuInserting::insertedWrapperThatIsRefused()
{
    Nested menu;
    Letters deep(1);
    deep.at(0)->setProperty(idProperty, 33);
    QCOMPARE(menu.inner.AppendMenu(&deep, L"E", 10), 1);
    QCOMPARE(menu.InsertMenu(&deep, L"N", 5, 33), 0);
    QCOMPARE(menu.text(), QStringLiteral("A,S{C,D,E{A}},B"));
}

XE_TEST(tst_MenuInserting)
#include "tst_menuinserting.moc"
