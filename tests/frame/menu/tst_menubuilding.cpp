// Items that are added to a menu.

#include "leavenothing.h"
#include "letters.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QPushButton>

class tst_MenuBuilding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void withoutAMenu();
    void aNullTextIsEmpty();
    void appendedItems_data();
    void appendedItems();
    void stateIsNotSetWhenAnItemIsAdded();
    void identifiersHave64Bits();
    void appendedPopup();
    void appendedPopupThatIsNone_data();
    void appendedPopupThatIsNone();
    void appendedWithAnIcon();
    void appendedWrapper();
    void appendedWrapperThatIsRefused_data();
    void appendedWrapperThatIsRefused();
    void addedDirectly();
    void whatIsAddedBelongsToTheMenu();
};

void tst_MenuBuilding::withoutAMenu()
{
    Letters sub;
    CMenu_X menu;
    CString_X text = L"stays?";
    QCOMPARE(menu.AppendMenu(MF_STRING, 1, L"A"), 0);
    QCOMPARE(menu.AppendMenu(MF_SEPARATOR), 0);
    QCOMPARE(menu.AppendMenu(MF_STRING, 1, L"A", QIcon()), 0);
    QCOMPARE(menu.AppendMenu(&sub, L"S", 1), 0);
    QCOMPARE(menu.AppendMenu(&sub, L"S", 1, QIcon()), 0);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION, 1, L"A"), 0);
    QCOMPARE(menu.InsertMenu(&sub, L"S", 1, 0), 0);
    QCOMPARE(menu.InsertMenu(&sub, L"S", 1, 0, QIcon()), 0);
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"A"), 0);
    QCOMPARE(menu.DeleteMenu(0, MF_BYPOSITION), 0);
    QCOMPARE(menu.RemoveMenu(1, MF_BYCOMMAND), 0);
    QCOMPARE(menu.EnableMenuItem(1, MF_GRAYED), -1);
    QCOMPARE(menu.CheckMenuItem(1, MF_CHECKED), 0);
    QCOMPARE(menu.GetMenuState(1, MF_BYCOMMAND), 0u);
    QCOMPARE(menu.GetMenuString(1, text, MF_BYCOMMAND), 0);
    QCOMPARE(text, CString_X());
    QCOMPARE(menu.GetMenuItemCount(), 0);
    QCOMPARE(menu.GetMenuItemAction(0), nullptr);
    QCOMPARE(menu.GetSubMenu(0), nullptr);
    QCOMPARE(menu.addAction(QIcon(), QStringLiteral("A"), 1), nullptr);
    QCOMPARE(menu.addMenu(QIcon(), QStringLiteral("A"), 1), nullptr);
    QCOMPARE(menu.addSeparator(), nullptr);
    QCOMPARE(menu.TrackPopupMenu(0, 0, 0, nullptr), 0);
    QCOMPARE(menu.DestroyMenu(), 0);
    menu.setTitle(L"title");
    menu.setIcon(redIcon());
}

void tst_MenuBuilding::aNullTextIsEmpty()
{
    Letters menu;
    QMenu popup;
    QCOMPARE(menu.AppendMenu(MF_STRING, 5), 1);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION, 6), 1);
    QCOMPARE(menu.AppendMenu(MF_POPUP, addressOf(&popup)), 1);
    QCOMPARE(menu.text(), QStringLiteral("A,,B,,{}"));
}

void tst_MenuBuilding::appendedItems_data()
{
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("id");
    const auto row = [](const char* name, UINT flags, const char* text, const QVariant& id) {
        QTest::newRow(name) << flags << QString::fromUtf8(text) << id;
    };
    row("no flag is an item", 0, "A,B,x", number(5));
    row("a separator has no identifier", 0x800, "A,B,-", {});
    row("owner-drawn is ignored", 0x100, "A,B,x", number(5));
    row("bitmap is ignored", 4, "A,B,x", number(5));
    row("bar break is ignored", 0x20, "A,B,x", number(5));
    row("by position is ignored", 0x400, "A,B,x", number(5));
}

void tst_MenuBuilding::appendedItems()
{
    QFETCH(const UINT, flags);
    Letters menu;
    QCOMPARE(menu.AppendMenu(flags, 5, L"x"), 1);
    QTEST(menu.text(), "text");
    QTEST(idOf(menu.at(2)), "id");
}

void tst_MenuBuilding::stateIsNotSetWhenAnItemIsAdded()
{
    Letters menu(0);
    menu.AppendMenu(MF_GRAYED | MF_CHECKED, 1, L"A");
    menu.AppendMenu(MF_DISABLED, 2, L"B", redIcon());
    menu.InsertMenu(0, MF_BYPOSITION | MF_GRAYED | MF_DISABLED | MF_CHECKED, 3, L"C");
    QCOMPARE(menu.text(), QStringLiteral("A,C,B"));
    QVERIFY(!menu.at(1)->isCheckable());
}

void tst_MenuBuilding::identifiersHave64Bits()
{
    constexpr UINT_PTR low = 0x00000007;
    constexpr UINT_PTR high = 0x100000007;
    Letters menu(0);
    menu.AppendMenu(MF_STRING, high, L"A");
    menu.AppendMenu(MF_STRING, low, L"B");
    QCOMPARE(idOf(menu.at(0)), number(high));
    QCOMPARE(int(idOf(menu.at(0)).type()), int(QVariant::ULongLong));
    QCOMPARE(menu.CheckMenuItem(low, MF_CHECKED), 1);
    QCOMPARE(menu.EnableMenuItem(high, MF_GRAYED), 0);
    QCOMPARE(menu.text(), QStringLiteral("A(gray),B*"));
}

void tst_MenuBuilding::appendedPopup()
{
    Letters menu;
    Letters popup(1);
    popup.setTitle(L"old");
    QCOMPARE(menu.AppendMenu(MF_POPUP | MF_SEPARATOR, addressOf(popup), L"S"), 1); // a popup it is
    QCOMPARE(menu.text(), QStringLiteral("A,B,S{A}"));
    QCOMPARE(idOf(popup.GetSafeHmenu()->menuAction()), number(addressOf(popup)));
    QCOMPARE(menu.EnableMenuItem(addressOf(popup), MF_GRAYED), 0);
    QCOMPARE(menu.text(), QStringLiteral("A,B,S(gray){A}"));
}

void tst_MenuBuilding::appendedPopupThatIsNone_data()
{
    QTest::addColumn<unsigned long long>("id");
    QTest::newRow("0") << 0ull;
    QTest::newRow("a small number") << 40001ull;
    QTest::newRow("an address that nobody has") << 0x7fff00001230ull;
    QTest::newRow("all bits") << ~0ull;
}

void tst_MenuBuilding::appendedPopupThatIsNone()
{
    QFETCH(const unsigned long long, id);
    Letters menu;
    QCOMPARE(menu.AppendMenu(MF_POPUP, id, L"S"), 0);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_POPUP, id, L"S"), 1);
    QCOMPARE(menu.text(), QStringLiteral("A,B"));

    QPushButton button;
    QCOMPARE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(&button), L"S"), 0);
    auto gone = std::make_unique<QMenu>();
    const UINT_PTR address = addressOf(gone.get());
    gone.reset();
    QCOMPARE(menu.AppendMenu(MF_POPUP, address, L"S"), 0);
    QCOMPARE(menu.AppendMenu(MF_POPUP, addressOf(menu), L"S"), 0);
    QCOMPARE(menu.text(), QStringLiteral("A,B"));
}

void tst_MenuBuilding::appendedWithAnIcon()
{
    Letters menu;
    const QIcon icon = redIcon();
    QCOMPARE(menu.AppendMenu(MF_STRING, 5, L"x", icon), 1);
    QCOMPARE(menu.AppendMenu(MF_SEPARATOR, 6, L"y", icon), 1);
    QCOMPARE(menu.AppendMenu(MF_POPUP, 7, L"z", icon), 1); // a plain number
    QCOMPARE(menu.text(), QStringLiteral("A,B,x,-,z{}"));
    QCOMPARE(menu.at(2)->icon().cacheKey(), icon.cacheKey());
    QCOMPARE(idOf(menu.at(2)), number(5));
    QCOMPARE(idOf(menu.at(3)), QVariant());
    QCOMPARE(menu.at(4)->icon().cacheKey(), icon.cacheKey());
    QCOMPARE(idOf(menu.at(4)), number(7));
    QCOMPARE(menu.at(4)->menu()->parent(), menu.GetSafeHmenu());
}

void tst_MenuBuilding::appendedWrapper()
{
    Letters menu;
    Letters first(1);
    Letters second(0);
    first.setIcon(redIcon());
    const qint64 key = first.GetSafeHmenu()->icon().cacheKey();
    const QIcon icon = redIcon();
    QCOMPARE(menu.AppendMenu(&first, L"S", 0x100000005), 1);
    QCOMPARE(menu.AppendMenu(&second, CString_X(L"T"), 6, icon), 1);
    QCOMPARE(menu.text(), QStringLiteral("A,B,S{A},T{}"));
    QCOMPARE(first.GetSafeHmenu()->title(), QStringLiteral("S"));
    QCOMPARE(idOf(menu.at(2)), number(0x100000005));
    QCOMPARE(menu.at(2)->icon().cacheKey(), key); // the one that it had
    QCOMPARE(menu.at(3)->icon().cacheKey(), icon.cacheKey());
}

void tst_MenuBuilding::appendedWrapperThatIsRefused_data()
{
    QTest::addColumn<SubMaker>("sub");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const SubMaker& sub, const char* text) {
        QTest::newRow(name) << sub << QString::fromUtf8(text);
    };
    static CMenu_X empty;
    row(
        "null", [](Letters&, Letters&) { return nullptr; }, "new");
    row(
        "the menu itself", [](Letters& menu, Letters&) { return &menu; }, "new");
    row(
        "a wrapper without a menu", [](Letters&, Letters&) { return &empty; }, "new");
    row(
        "an empty text", [](Letters&, Letters& other) { return &other; }, "");
    row(
        "one that is in the menu already",
        [](Letters& menu, Letters& other) {
            menu.GetSafeHmenu()->addMenu(other);
            return &other;
        },
        "new");
}

void tst_MenuBuilding::appendedWrapperThatIsRefused()
{
    QFETCH(const SubMaker, sub);
    QFETCH(const QString, text);
    Letters menu;
    Letters other(0);
    menu.setTitle(L"old");
    other.setTitle(L"old");
    CMenu_X* const refused = sub(menu, other);
    const QString before = menu.text();
    QCOMPARE(menu.AppendMenu(refused, text, 5), 0);
    QCOMPARE(menu.AppendMenu(refused, text, 5, redIcon()), 0);
    QCOMPARE(menu.InsertMenu(refused, text, 5, 1), 0);
    QCOMPARE(menu.InsertMenu(refused, text, 5, 1, redIcon()), 0);
    QCOMPARE(menu.text(), before);
    QCOMPARE(menu.GetSafeHmenu()->title(), QStringLiteral("old"));
    QCOMPARE(other.GetSafeHmenu()->title(), QStringLiteral("old"));
    QVERIFY(other.GetSafeHmenu()->icon().isNull());
}

void tst_MenuBuilding::addedDirectly()
{
    Letters menu;
    const QIcon icon = redIcon();
    QAction* const action = menu.addAction(icon, QStringLiteral("x"), 5);
    QMenu* const sub = menu.addMenu(icon, QStringLiteral("y"), 6);
    QAction* const separator = menu.addSeparator();
    QCOMPARE(menu.text(), QStringLiteral("A,B,x,y{},-"));
    QCOMPARE(menu.at(2), action);
    QCOMPARE(idOf(action), number(5));
    QCOMPARE(action->icon().cacheKey(), icon.cacheKey());
    QCOMPARE(menu.at(3), sub->menuAction());
    QCOMPARE(idOf(sub->menuAction()), number(6));
    QCOMPARE(sub->icon().cacheKey(), icon.cacheKey());
    QCOMPARE(menu.at(4), separator);
    QCOMPARE(idOf(separator), QVariant());
}

void tst_MenuBuilding::whatIsAddedBelongsToTheMenu()
{
    Letters menu(0);
    menu.AppendMenu(MF_STRING, 1, L"A");
    menu.AppendMenu(MF_SEPARATOR);
    menu.InsertMenu(1, MF_BYCOMMAND, 2, L"B");
    menu.InsertMenu(1, MF_BYCOMMAND | MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, 3, L"C", redIcon());
    QCOMPARE(menu.GetMenuItemCount(), 5);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(menu.at(i)->parent(), menu.GetSafeHmenu());
}

XE_TEST(tst_MenuBuilding)
#include "tst_menubuilding.moc"
