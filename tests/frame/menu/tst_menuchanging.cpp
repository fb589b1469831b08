// Items of a menu that are changed, enabled and checked.

#include "leavenothing.h"
#include "letters.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

class tst_MenuChanging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void modifiedState_data();
    void modifiedState();
    void modifiedText_data();
    void modifiedText();
    void modifiedWithoutAText();
    void shortcutThatIsNotFromHereStays();
    void modifiedByPositionOrIdentifier();
    void enabled_data();
    void enabled();
    void checked_data();
    void checked();
};

void tst_MenuChanging::modifiedState_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("checkable");
    const auto row = [](const char* name, const char* before, UINT flags, const char* text, bool checkable) {
        QTest::newRow(name) << QString::fromUtf8(before) << flags << QString::fromUtf8(text) << checkable;
    };
    row("0 changes nothing", "A", 0, "A", false);
    row("0 does not enable or uncheck", "A*(gray)", 0, "A*(gray)", true);
    row("by position alone changes nothing", "A*(gray)", 0x400, "A*(gray)", true);
    row("1 disables", "A", 1, "A(gray)", false);
    row("2 disables and makes checkable", "A", 2, "A(gray)", true);
    row("8 checks", "A", 8, "A*", true);
    row("8 does not enable", "A(gray)", 8, "A*(gray)", true);
    row("bits add up", "A", 1 | 8, "A*(gray)", true);
    row("bits add up with the position", "A", 0x400 | 2 | 8, "A*(gray)", true);
    row("other bits change nothing", "A", 0x100 | 4 | 0x20, "A", false);
}

void tst_MenuChanging::modifiedState()
{
    QFETCH(const QString, before);
    QFETCH(const UINT, flags);
    Letters menu(1);
    menu.at(0)->setProperty(idProperty, 0); // its position and its identifier
    menu.at(0)->setCheckable(before.contains('*'));
    menu.at(0)->setChecked(before.contains('*'));
    menu.at(0)->setEnabled(!before.contains("gray"));
    QCOMPARE(menu.text(), before);
    QCOMPARE(menu.ModifyMenu(0, flags, 7), 1);
    QTEST(menu.text(), "text");
    QTEST(menu.at(0)->isCheckable(), "checkable");
    QCOMPARE(idOf(menu.at(0)), number(7));
}

void tst_MenuChanging::modifiedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QKeySequence>("shortcut");
    QTest::newRow("a tab sets the shortcut and stays") << "Open\tCtrl+O" << QKeySequence("Ctrl+O");
    QTest::newRow("no tab") << "Open" << QKeySequence();
    QTest::newRow("nothing behind the tab") << "Open\t" << QKeySequence();
    QTest::newRow("a tab at the front is no such tab") << "\tCtrl+O" << QKeySequence();
    QTest::newRow("the one behind it is") << "\tA\tB" << QKeySequence("B");
    QTest::newRow("the first of two") << "A\tF2\tF3" << QKeySequence("F2\tF3");
    QTest::newRow("function key and Chinese") << "打开(&O)\tF12" << QKeySequence("F12");
}

void tst_MenuChanging::modifiedText()
{
    QFETCH(const QString, text);
    QFETCH(const QKeySequence, shortcut);
    Letters menu(1);
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"old\tF5"), 1);
    QCOMPARE(menu.at(0)->shortcut(), QKeySequence("F5"));
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 1, CString_X(text)), 1);
    QCOMPARE(menu.at(0)->text(), text);
    QCOMPARE(menu.at(0)->shortcut(), shortcut);
    QCOMPARE(menu.at(0)->shortcutContext(), Qt::WidgetShortcut);
}

void tst_MenuChanging::modifiedWithoutAText()
{
    Letters menu(1);
    menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"x\tF5");
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 2, L""), 1);
    QCOMPARE(menu.ModifyMenu(2, MF_BYCOMMAND, 3), 1);
    QCOMPARE(menu.at(0)->text(), QStringLiteral("x\tF5"));
    QCOMPARE(menu.at(0)->shortcut(), QKeySequence("F5"));
    QCOMPARE(idOf(menu.at(0)), number(3));
}

void tst_MenuChanging::shortcutThatIsNotFromHereStays()
{
    Letters menu(1);
    menu.at(0)->setShortcut(QKeySequence("F6"));
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"x"), 1);
    QCOMPARE(menu.at(0)->shortcut(), QKeySequence("F6"));
    QCOMPARE(menu.at(0)->shortcutContext(), Qt::WindowShortcut);
}

void tst_MenuChanging::modifiedByPositionOrIdentifier()
{
    Nested menu;
    QCOMPARE(menu.ModifyMenu(2, MF_BYPOSITION, 21, L"x"), 1);
    QCOMPARE(menu.ModifyMenu(4, MF_BYCOMMAND, 41, L"y"), 1);
    QCOMPARE(menu.ModifyMenu(9, MF_BYCOMMAND, 91, L"z"), 1);
    QCOMPARE(menu.ModifyMenu(9, MF_BYCOMMAND, 5, L"no"), 0);
    QCOMPARE(menu.ModifyMenu(3, MF_BYPOSITION, 5, L"no"), 0);
    QCOMPARE(menu.ModifyMenu(~0ull, MF_BYPOSITION, 5, L"no"), 0);
    QCOMPARE(menu.text(), QStringLiteral("A,z{C,y},x"));
    QCOMPARE(idOf(menu.at(2)), number(21));
    QCOMPARE(idOf(menu.at(1)), number(91));
}

void tst_MenuChanging::enabled_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("after");
    const auto row = [](const char* name, bool before, UINT flags, int result, bool after) {
        QTest::newRow(name) << before << flags << result << after;
    };
    row("grayed", true, 1, 0, false);
    row("disabled", true, 2, 0, false);
    row("already grayed", false, 1, 3, false);
    row("enabled", false, 0, 3, true);
    row("3 enables", false, 3, 3, true);
    row("3 leaves enabled", true, 3, 0, true);
    row("grayed by position enables", false, 0x401, 3, true);
    row("checked enables", false, 8, 3, true);
    row("all bits enable", false, ~0u, 3, true);
}

void tst_MenuChanging::enabled()
{
    QFETCH(const bool, before);
    QFETCH(const UINT, flags);
    for (const int id : {1, 3, 9}) { // here, in a submenu, and that itself
        Nested menu;
        const QAction* const action = CMenu_X::findAction(static_cast<UINT_PTR>(id), menu);
        const_cast<QAction*>(action)->setEnabled(before);
        QTEST(menu.EnableMenuItem(static_cast<UINT_PTR>(id), flags), "result");
        QTEST(action->isEnabled(), "after");
        QCOMPARE(menu.EnableMenuItem(0, flags), -1); // no position
        QCOMPARE(menu.EnableMenuItem(55, flags), -1);
    }
}

void tst_MenuChanging::checked_data()
{
    QTest::addColumn<unsigned long long>("item");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, unsigned long long item, UINT flags, int result, const char* text) {
        QTest::newRow(name) << item << flags << result << QString::fromUtf8(text);
    };
    row("checks by identifier", 1, 8, 1, "A*,S{C,D*},B");
    row("checks by position", 2, 0x408, 1, "A,S{C,D*},B*");
    row("unchecks in a submenu", 4, 0, 1, "A,S{C,D},B");
    row("unchecked stays unchecked", 1, 0, 1, "A,S{C,D*},B");
    row("checked stays checked", 4, 8, 1, "A,S{C,D*},B");
    row("other bits do not check", 4, ~8u & ~0x400u, 1, "A,S{C,D},B");
    row("no such identifier", 55, 8, 0, "A,S{C,D*},B");
    row("no such position", 3, 0x408, 0, "A,S{C,D*},B");
}

void tst_MenuChanging::checked()
{
    QFETCH(const unsigned long long, item);
    QFETCH(const UINT, flags);
    Nested menu;
    menu.inner.CheckMenuItem(4, MF_CHECKED);
    QTEST(menu.CheckMenuItem(item, flags), "result");
    QTEST(menu.text(), "text");
}

XE_TEST(tst_MenuChanging)
#include "tst_menuchanging.moc"
