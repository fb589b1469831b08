// Items that are asked for: by identifier, which is looked for in submenus too, and by position.

#include "leavenothing.h"
#include "letters.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QDynamicPropertyChangeEvent>

namespace {

QAction* add(QMenu& menu, const char* text, const QVariant& id)
{
    QAction* const action = menu.addAction(QString::fromUtf8(text));
    action->setProperty(idProperty, id);
    return action;
}

QString textOf(const QAction* action) { return action ? action->text() : QStringLiteral("none"); }

// The wrapper of a menu that is searched often enough for anything that remembers answers.
class Searched
{
public:
    explicit Searched(QMenu& menu)
    {
        m_wrapper.Attach(&menu, nullptr, true);
        for (int i = 0; i < 20; ++i)
            m_wrapper.EnableMenuItem(4711, MF_ENABLED);
    }

    // By the wrapper, and the same by a walk through the menu alone.
    QString find(unsigned long long id)
    {
        CString_X text;
        const QString found = m_wrapper.GetMenuString(id, text, 0) ? XeQString(text) : QStringLiteral("none");
        QMenu* const menu = m_wrapper;
        m_wrapper.Detach();
        const QString walked = textOf(CMenu_X::findAction(id, menu));
        m_wrapper.Attach(menu, nullptr, true);
        return found == walked ? found : found + QLatin1String(" but ") + walked;
    }

    // The answer before a change, which is remembered, and the one after it.
    QString around(unsigned long long id, const std::function<void()>& change)
    {
        CString_X before;
        CString_X after;
        for (int i = 0; i < 20; ++i)
            m_wrapper.GetMenuString(id, before, 0);
        change();
        m_wrapper.GetMenuString(id, after, 0);
        const QString walked = find(id);
        return XeQString(before) + QLatin1String(" then ") + XeQString(after)
               + (walked == XeQString(after) || after.IsEmpty() ? QString() : QLatin1String(" but ") + walked);
    }

private:
    CMenu_X m_wrapper;
};

// A root with "A" (1), a popup "S" (9) of "C" (3) and a deeper popup "T" (8) of "D" (4), and "B" (2).
struct Tree
{
    QMenu root;
    QMenu sub;
    QMenu deep;
    QAction* a;
    QAction* b;
    QAction* c;
    QAction* d;

    Tree()
    {
        a = add(root, "A", number(1));
        root.addMenu(&sub)->setText(QStringLiteral("S"));
        sub.menuAction()->setProperty(idProperty, number(9));
        b = add(root, "B", number(2));
        c = add(sub, "C", number(3));
        sub.addMenu(&deep)->setText(QStringLiteral("T"));
        deep.menuAction()->setProperty(idProperty, number(8));
        d = add(deep, "D", number(4));
    }
};

using Change = void (*)(Tree& tree);

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_MenuLookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void found_data();
    void found();
    void nothingIsFoundInNoMenu();
    void theFirstOfEqualsCounts();
    void actionsWithoutAnIdentifierMatchNothing();
    void separatorsArePassedOver();
    void aMenuInItselfEnds();
    void aPopupItemIsFoundByItsMenusAction();

    void neverAnOldAnswer_data();
    void neverAnOldAnswer();
    void changesThatMeanNothingLeaveTheAnswer();
    void aHostThatSwallowsEvents();
    void theWrapperMayGetAnotherMenu();

    void states_data();
    void states();
    void texts_data();
    void texts();
    void actionsByIndex();
    void submenusByIndex();
    void existence();
};

void tst_MenuLookup::found_data()
{
    QTest::addColumn<unsigned long long>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("the menu's own action") << 77ull << "R";
    QTest::newRow("an item") << 1ull << "A";
    QTest::newRow("an item behind a submenu") << 2ull << "B";
    QTest::newRow("an item of a submenu") << 3ull << "C";
    QTest::newRow("an item two levels down") << 4ull << "D";
    QTest::newRow("a popup item") << 9ull << "S";
    QTest::newRow("a popup item of a submenu") << 8ull << "T";
    QTest::newRow("nothing") << 5ull << "none";
    QTest::newRow("nothing by the low half") << 0x100000001ull << "none";
}

void tst_MenuLookup::found()
{
    QFETCH(const unsigned long long, id);
    Tree tree;
    tree.root.setTitle(QStringLiteral("R"));
    tree.root.menuAction()->setProperty(idProperty, 77);
    QTEST(Searched(tree.root).find(id), "text");
}

void tst_MenuLookup::nothingIsFoundInNoMenu() { QCOMPARE(CMenu_X::findAction(1, nullptr), nullptr); }

void tst_MenuLookup::theFirstOfEqualsCounts()
{
    Tree tree;
    tree.b->setProperty(idProperty, 3);
    QCOMPARE(Searched(tree.root).find(3), QStringLiteral("C")); // depth first
    tree.sub.menuAction()->setProperty(idProperty, 3);
    QCOMPARE(Searched(tree.root).find(3), QStringLiteral("S"));
    tree.a->setProperty(idProperty, 3);
    QCOMPARE(Searched(tree.root).find(3), QStringLiteral("A"));
}

void tst_MenuLookup::actionsWithoutAnIdentifierMatchNothing()
{
    QMenu menu;
    menu.addAction(QStringLiteral("A"));
    QCOMPARE(Searched(menu).find(0), QStringLiteral("none"));
    add(menu, "B", 0); // of whatever type
    QCOMPARE(Searched(menu).find(0), QStringLiteral("B"));
}

void tst_MenuLookup::separatorsArePassedOver()
{
    QMenu menu;
    QAction* const separator = menu.addSeparator();
    separator->setText(QStringLiteral("-"));
    separator->setProperty(idProperty, 1);
    QCOMPARE(Searched(menu).find(1), QStringLiteral("none"));
    separator->setSeparator(false);
    QCOMPARE(Searched(menu).find(1), QStringLiteral("-"));
}

void tst_MenuLookup::aMenuInItselfEnds()
{
    QMenu a;
    QMenu b;
    a.addMenu(&b);
    b.addMenu(&a);
    a.addMenu(&a);
    add(b, "B", number(2));
    QCOMPARE(Searched(a).find(1), QStringLiteral("none"));
    QCOMPARE(Searched(a).find(2), QStringLiteral("B"));
}

// Of several items that show one menu the last one is its own.
void tst_MenuLookup::aPopupItemIsFoundByItsMenusAction()
{
    QMenu root;
    QMenu sub;
    QAction* const first = add(root, "first", number(1));
    QAction* const last = add(root, "last", number(2));
    first->setMenu(&sub);
    last->setMenu(&sub);
    QCOMPARE(Searched(root).find(1), QStringLiteral("none"));
    QCOMPARE(Searched(root).find(2), QStringLiteral("last"));
}

// ------------------------------------------------------------------------------------------------------------- changes

void tst_MenuLookup::neverAnOldAnswer_data()
{
    QTest::addColumn<unsigned long long>("id");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("answers");
    const auto row = [](const char* name, unsigned long long id, Change change, const char* answers) {
        QTest::newRow(name) << id << change << QString::fromUtf8(answers);
    };
    row(
        "an item is added", 5, [](Tree& tree) { add(tree.root, "x", number(5)); }, " then x");
    row(
        "an item is added two levels down", 5, [](Tree& tree) { add(tree.deep, "x", number(5)); }, " then x");
    row(
        "an item is removed", 1, [](Tree& tree) { tree.root.removeAction(tree.a); }, "A then ");
    row(
        "an item is removed two levels down", 4, [](Tree& tree) { tree.deep.removeAction(tree.d); }, "D then ");
    row(
        "an item is deleted", 3, [](Tree& tree) { delete tree.c; }, "C then ");
    row(
        "an item gets the identifier", 5, [](Tree& tree) { tree.d->setProperty(idProperty, 5); }, " then D");
    row(
        "an item loses the identifier", 4, [](Tree& tree) { tree.d->setProperty(idProperty, QVariant()); }, "D then ");
    row(
        "an earlier item gets the identifier", 4, [](Tree& tree) { tree.a->setProperty(idProperty, 4); }, "D then A");
    row(
        "the menu's own action gets the identifier", 4,
        [](Tree& tree) {
            tree.root.setTitle(QStringLiteral("R"));
            tree.root.menuAction()->setProperty(idProperty, 4);
        },
        "D then R");
    row(
        "an earlier item of equals goes", 2,
        [](Tree& tree) {
            tree.a->setProperty(idProperty, 2);
            tree.root.removeAction(tree.a);
        },
        "B then B");
    row(
        "the order is turned round", 2,
        [](Tree& tree) {
            tree.c->setProperty(idProperty, 2); // in front of B
            tree.root.insertAction(tree.a, tree.b);
        },
        "B then B");
    row(
        "an item becomes a separator", 1, [](Tree& tree) { tree.a->setSeparator(true); }, "A then ");
    row(
        "an item becomes a popup", 1, [](Tree& tree) { tree.a->setMenu(new QMenu(&tree.root)); }, "A then A");
    row(
        "a popup shows another menu", 4, [](Tree& tree) { tree.sub.menuAction()->setMenu(new QMenu(&tree.root)); },
        "D then ");
    row(
        "a submenu is deleted", 1,
        [](Tree& tree) {
            auto* const gone = new QMenu;
            tree.a->setMenu(gone);
            tree.a->setMenu(nullptr);
            delete gone;
        },
        "A then A");
    row(
        "an action that is in none of the menus becomes a menu's own", 8,
        [](Tree& tree) {
            auto* const elsewhere = new QAction(&tree.root);
            elsewhere->setText(QStringLiteral("elsewhere"));
            elsewhere->setMenu(&tree.deep); // nobody is told
        },
        "T then ");
    row(
        "all items go", 2, [](Tree& tree) { tree.root.clear(); }, "B then ");
}

void tst_MenuLookup::neverAnOldAnswer()
{
    QFETCH(const unsigned long long, id);
    QFETCH(const Change, change);
    Tree tree;
    Searched searched(tree.root);
    QTEST(searched.around(id, [&] { change(tree); }), "answers");
    QCOMPARE(searched.find(4711), QStringLiteral("none"));
}

void tst_MenuLookup::changesThatMeanNothingLeaveTheAnswer()
{
    Tree tree;
    Searched searched(tree.root);
    const auto change = [&] {
        tree.d->setText(QStringLiteral("E"));
        tree.d->setEnabled(false);
        tree.a->setProperty("another", 4);
        tree.sub.setEnabled(false);
    };
    QCOMPARE(searched.around(4, change), QStringLiteral("D then E"));
}

// A filter that lets nothing through hides additions and deletions from whoever listens.
void tst_MenuLookup::aHostThatSwallowsEvents()
{
    class Swallow : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent*) override { return true; }
    };
    Tree tree;
    Searched searched(tree.root);
    Swallow swallow;
    const auto change = [&] {
        for (QObject* object : std::initializer_list<QObject*>{&tree.root, &tree.sub, &tree.deep, tree.d})
            object->installEventFilter(&swallow);
        delete tree.d;
        add(tree.deep, "new", number(4));
    };
    QCOMPARE(searched.around(4, change), QStringLiteral("D then new"));
}

void tst_MenuLookup::theWrapperMayGetAnotherMenu()
{
    Tree tree;
    QMenu other;
    CMenu_X menu;
    menu.Attach(&tree.root, nullptr, true);
    for (int i = 0; i < 20; ++i)
        QCOMPARE(menu.EnableMenuItem(4, MF_GRAYED), i ? 3 : 0);
    menu.Attach(&other, nullptr, true);
    QCOMPARE(menu.EnableMenuItem(4, MF_GRAYED), -1);
    menu.Detach();
    QCOMPARE(menu.EnableMenuItem(4, MF_GRAYED), -1);
    {
        QMenu passing;
        add(passing, "x", number(4));
        menu.Attach(&passing, nullptr, true);
        for (int i = 0; i < 20; ++i)
            QCOMPARE(menu.EnableMenuItem(4, MF_GRAYED), i ? 3 : 0);
    }
    QCOMPARE(menu.EnableMenuItem(4, MF_GRAYED), -1);
}

// ----------------------------------------------------------------------------------------------------------- questions

void tst_MenuLookup::states_data()
{
    QTest::addColumn<unsigned long long>("item");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<UINT>("state");
    const auto row = [](const char* name, unsigned long long item, UINT flags, UINT state) {
        QTest::newRow(name) << item << flags << state;
    };
    row("enabled", 1, 0, 0);
    row("enabled, by position", 0, 0x400, 0);
    row("disabled", 2, 0, 1);
    row("disabled, by position", 1, 0x400, 1);
    row("checked", 3, 0, 8);
    row("disabled and checked", 4, 0, 9);
    row("a separator", 4, 0x400, 0x800);
    row("a disabled separator", 5, 0x400, 0x801);
    row("no such identifier", 5, 0, 0);
    row("no such position", 6, 0x400, 0);
}

void tst_MenuLookup::states()
{
    QFETCH(const unsigned long long, item);
    QFETCH(const UINT, flags);
    QMenu imp;
    CMenu_X menu;
    menu.Attach(&imp, nullptr, true);
    add(imp, "A", number(1));
    add(imp, "B", number(2))->setEnabled(false);
    QAction* const checked = add(imp, "C", number(3));
    QAction* const both = add(imp, "D", number(4));
    for (QAction* action : {checked, both}) {
        action->setCheckable(true);
        action->setChecked(true);
    }
    both->setEnabled(false);
    menu.addSeparator();
    menu.addSeparator()->setEnabled(false);
    QTEST(menu.GetMenuState(item, flags), "state");
}

void tst_MenuLookup::texts_data()
{
    QTest::addColumn<unsigned long long>("item");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, unsigned long long item, UINT flags, int length, const char* text) {
        QTest::newRow(name) << item << flags << length << QString::fromUtf8(text);
    };
    row("by identifier, as it stands", 7, 0, 12, "&Open\tCtrl+O");
    row("by position with the value 4", 0, 4, 12, "&Open\tCtrl+O");
    row("0x400 is an identifier still", 7, 0x400, 12, "&Open\tCtrl+O");
    row("one element a character", 8, 0, 2, "字😀");
    row("a separator", 2, 4, 0, "");
    row("no such identifier", 5, 0, 0, "");
    row("no such position", 3, 4, 0, "");
}

void tst_MenuLookup::texts()
{
    QFETCH(const unsigned long long, item);
    QFETCH(const UINT, flags);
    QFETCH(const QString, text);
    QMenu imp;
    CMenu_X menu;
    menu.Attach(&imp, nullptr, true);
    add(imp, "&Open\tCtrl+O", number(7));
    add(imp, "字😀", number(8));
    menu.addSeparator();
    CString_X found = L"old";
    QTEST(menu.GetMenuString(item, found, flags), "length");
    QCOMPARE(XeQString(found), text);
}

void tst_MenuLookup::actionsByIndex()
{
    Tree tree;
    CMenu_X menu;
    menu.Attach(&tree.root, nullptr, true);
    QCOMPARE(menu.GetMenuItemCount(), 3);
    QCOMPARE(menu.GetMenuItemAction(0), tree.a);
    QCOMPARE(menu.GetMenuItemAction(1), tree.sub.menuAction());
    QCOMPARE(menu.GetMenuItemAction(3), nullptr);
    QCOMPARE(menu.GetMenuItemAction(-1), nullptr);
}

void tst_MenuLookup::submenusByIndex()
{
    Tree tree;
    CMenu_X menu;
    menu.Attach(&tree.root, nullptr, true);
    QCOMPARE(menu.GetSubMenu(0), nullptr);
    QCOMPARE(menu.GetSubMenu(3), nullptr);
    QCOMPARE(menu.GetSubMenu(-1), nullptr);
    CMenu_X* const temporary = menu.GetSubMenu(1);
    QCOMPARE(temporary->GetSafeHmenu(), &tree.sub);
    QCOMPARE(menu.GetSubMenu(1), temporary);
    QCOMPARE(CMenu_X::FromHandle(&tree.sub), temporary);
    CMenu_X own;
    own.Attach(&tree.deep, nullptr, true);
    QCOMPARE(temporary->GetSubMenu(1), &own);
    CMenu_X::DeleteTempMap();
}

void tst_MenuLookup::existence()
{
    Tree tree;
    QVERIFY(CMenu_X::checkExist(&tree.root, &tree.sub));
    QVERIFY(!CMenu_X::checkExist(&tree.root, &tree.deep)); // not of this menu's own
    QVERIFY(!CMenu_X::checkExist(&tree.sub, &tree.root));
    QVERIFY(!CMenu_X::checkExist(&tree.root, nullptr));
    QVERIFY(!CMenu_X::checkExist(nullptr, &tree.root));
}

XE_TEST(tst_MenuLookup)
#include "tst_menulookup.moc"
