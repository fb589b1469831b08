// Items that are added to a menu, changed and taken away.

#include "leavenothing.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QPushButton>

namespace {

constexpr auto idProperty = "MenuItemIdx";
constexpr auto positionFarBehind = 0xFFFFFFFFu;

void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

UINT_PTR addressOf(const QMenu* menu) { return reinterpret_cast<UINT_PTR>(menu); }

QVariant idOf(const QAction* action) { return action->property(idProperty); }

QVariant number(unsigned long long id) { return id; }

QIcon redIcon()
{
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    return picture;
}

// A menu with the items "A", "B" and so on, whose identifiers are 1, 2 and so on.
class Letters : public CMenu_X
{
public:
    explicit Letters(int count = 2)
    {
        CreatePopupMenu();
        for (int i = 0; i < count; ++i)
            AppendMenu(MF_STRING, static_cast<UINT_PTR>(i + 1), CString_X(static_cast<wchar_t>(L'A' + i)));
    }

    QString text() const { return menuText(*this); }
    QAction* at(int index) const { return GetMenuItemAction(index); }
};

// "A", a submenu with "C" (3) and "D" (4) whose own identifier is 9, "B".
class Nested : public Letters
{
public:
    Nested()
    {
        inner.CreatePopupMenu();
        inner.AppendMenu(MF_STRING, 3, L"C");
        inner.AppendMenu(MF_STRING, 4, L"D");
        InsertMenu(&inner, L"S", 9, 2);
    }

    Letters inner{0};
};

using SubMaker = std::function<CMenu_X*(Letters& menu, Letters& other)>;

} // namespace

Q_DECLARE_METATYPE(SubMaker)

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

    void insertedByPosition_data();
    void insertedByPosition();
    void insertedByIdentifier_data();
    void insertedByIdentifier();
    void insertedKinds();
    void insertedPopup();
    void insertedWrapper_data();
    void insertedWrapper();
    void insertedWrapperThatIsRefused();

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

// ----------------------------------------------------------------------------------------------------------- appending

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

// ----------------------------------------------------------------------------------------------------------- inserting

void tst_MenuBuilding::insertedByPosition_data()
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

void tst_MenuBuilding::insertedByPosition()
{
    QFETCH(const int, count);
    QFETCH(const unsigned long long, position);
    Letters menu(count);
    QCOMPARE(menu.InsertMenu(position, MF_BYPOSITION, 5, L"x"), 1);
    QTEST(menu.text(), "text");
    QCOMPARE(menu.GetMenuState(5, MF_BYCOMMAND), 0u);
    QVERIFY(CMenu_X::findAction(5, menu));
}

void tst_MenuBuilding::insertedByIdentifier_data()
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

void tst_MenuBuilding::insertedByIdentifier()
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

void tst_MenuBuilding::insertedKinds()
{
    Letters menu;
    Letters popup(0);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_SEPARATOR), 1);
    QCOMPARE(menu.InsertMenu(2, MF_BYCOMMAND | MF_SEPARATOR | MF_POPUP, addressOf(popup), L"S"), 1); // a separator
    QCOMPARE(menu.text(), QStringLiteral("A,-,-,B"));
    QCOMPARE(idOf(menu.at(1)), QVariant());
}

void tst_MenuBuilding::insertedPopup()
{
    Letters menu;
    Letters popup(1);
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_POPUP, addressOf(popup), L"S 字"), 1);
    QCOMPARE(menu.text(), QStringLiteral("A,S 字{A},B"));
    QCOMPARE(idOf(menu.at(1)), number(addressOf(popup)));
    QCOMPARE(menu.InsertMenu(0, MF_BYPOSITION | MF_POPUP, addressOf(menu), L"T"), 1); // nothing
    QCOMPARE(menu.GetMenuItemCount(), 3);
}

void tst_MenuBuilding::insertedWrapper_data()
{
    QTest::addColumn<unsigned long long>("before");
    QTest::addColumn<QString>("text");
    QTest::newRow("in front of the first") << 1ull << QStringLiteral("N{},A,S{C,D},B");
    QTest::newRow("in front of a submenu") << 9ull << QStringLiteral("A,N{},S{C,D},B");
    QTest::newRow("beside an item of a submenu") << 4ull << QStringLiteral("A,S{C,N{},D},B");
    QTest::newRow("no such item") << 55ull << QStringLiteral("A,S{C,D},B,N{}");
}

void tst_MenuBuilding::insertedWrapper()
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
void tst_MenuBuilding::insertedWrapperThatIsRefused()
{
    Nested menu;
    Letters deep(1);
    deep.at(0)->setProperty(idProperty, 33);
    QCOMPARE(menu.inner.AppendMenu(&deep, L"E", 10), 1);
    QCOMPARE(menu.InsertMenu(&deep, L"N", 5, 33), 0);
    QCOMPARE(menu.text(), QStringLiteral("A,S{C,D,E{A}},B"));
}

// ------------------------------------------------------------------------------------------------------------ changing

void tst_MenuBuilding::modifiedState_data()
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

void tst_MenuBuilding::modifiedState()
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

void tst_MenuBuilding::modifiedText_data()
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

void tst_MenuBuilding::modifiedText()
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

void tst_MenuBuilding::modifiedWithoutAText()
{
    Letters menu(1);
    menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"x\tF5");
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 2, L""), 1);
    QCOMPARE(menu.ModifyMenu(2, MF_BYCOMMAND, 3), 1);
    QCOMPARE(menu.at(0)->text(), QStringLiteral("x\tF5"));
    QCOMPARE(menu.at(0)->shortcut(), QKeySequence("F5"));
    QCOMPARE(idOf(menu.at(0)), number(3));
}

void tst_MenuBuilding::shortcutThatIsNotFromHereStays()
{
    Letters menu(1);
    menu.at(0)->setShortcut(QKeySequence("F6"));
    QCOMPARE(menu.ModifyMenu(1, MF_BYCOMMAND, 1, L"x"), 1);
    QCOMPARE(menu.at(0)->shortcut(), QKeySequence("F6"));
    QCOMPARE(menu.at(0)->shortcutContext(), Qt::WindowShortcut);
}

void tst_MenuBuilding::modifiedByPositionOrIdentifier()
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

void tst_MenuBuilding::enabled_data()
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

void tst_MenuBuilding::enabled()
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

void tst_MenuBuilding::checked_data()
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

void tst_MenuBuilding::checked()
{
    QFETCH(const unsigned long long, item);
    QFETCH(const UINT, flags);
    Nested menu;
    menu.inner.CheckMenuItem(4, MF_CHECKED);
    QTEST(menu.CheckMenuItem(item, flags), "result");
    QTEST(menu.text(), "text");
}

// ------------------------------------------------------------------------------------------------------------ deleting

void tst_MenuBuilding::deleted_data()
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

void tst_MenuBuilding::deleted()
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

void tst_MenuBuilding::deletedFromAnEmptyMenu()
{
    Letters menu(0);
    QCOMPARE(menu.DeleteMenu(0, MF_BYPOSITION), 0);
    QCOMPARE(menu.RemoveMenu(1, MF_BYCOMMAND), 0);
}

void tst_MenuBuilding::deletedItemsAreFreed()
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

void tst_MenuBuilding::deletedItemThatIsInAMenuAgainStays()
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

void tst_MenuBuilding::deletedItemOfOthersStays()
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

void tst_MenuBuilding::deletedSubmenuStays()
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

void tst_MenuBuilding::deletedInItsOwnHandler()
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

void tst_MenuBuilding::rebuiltMenuDoesNotGrow()
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

XE_TEST(tst_MenuBuilding)
#include "tst_menubuilding.moc"
