// A menu and its wrappers: who makes whom, who deletes whom, in any order.

#include "deletelater.h"
#include "leavenothing.h"
#include "menutext.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <private/qobject_p.h> // who filters an object's events

#include <QPushButton>

namespace {

int filtersOf(QObject& object)
{
    const auto* const extra = QObjectPrivate::get(&object)->extraData;
    return extra ? extra->eventFilters.size() - extra->eventFilters.count(nullptr) : 0;
}

void open(QMenu& menu)
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
    menu.popup(QPoint());
}

__attribute__((no_sanitize("undefined"))) QMenu* handleOf(const CMenu_X* menu) { return menu->GetSafeHmenu(); }

// No wrapper: no links to one and no filter.
bool isClean(QMenu& menu) { return menu.dynamicPropertyNames().isEmpty() && filtersOf(menu) == 0; }

} // namespace

class tst_MenuLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        CMenu_X::DeleteTempMap();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void theClass();
    void madeWithAParent();
    void madeLater();
    void madeAnew();
    void theStyleSheet();
    void handleOfNoWrapper();

    void destroyedMenuOfItsOwn();
    void destroyedMenuOfOthers();
    void wrapperDeletedWhileItsMenuIsDestroyed();

    void temporaryWrapper();
    void permanentWrapperComesFirst();
    void aPermanentWrapperMayFollowATemporaryOne();
    void aMenuWrappedAsAWindow();
    void anEntryOfTheMapComesFirst();
    void temporaryWrapperNeverOwnsItsMenu();
    void temporaryWrapperForgetsAMenuThatDies();
    void temporaryWrapperOfAMenuAtTheSamePlace();
    void temporaryWrapperThatMadeAMenuOfItsOwn();
    void temporaryWrapperDeletedInAHandler();

    void thousandMenusLeaveNothing();
    void thousandTemporaryWrappersLeaveNothing();
};

void tst_MenuLife::theClass()
{
    QVERIFY(!RUNTIME_CLASS_X(CMenu_X)->CreateObject());
    QCOMPARE(RUNTIME_CLASS_X(CMenu_X)->GetImpClassName(), "QMenu");
    QPushButton button;
    CMenu_X menu;
    QVERIFY(!menu.Attach(&button, nullptr, true));
}

void tst_MenuLife::madeWithAParent()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    const CMenu_X ofWidget(&widget);
    const CMenu_X ofWindow(&window);
    const CMenu_X ofNone(nullptr);
    QCOMPARE(ofWidget.GetSafeHmenu()->parent(), &widget);
    QCOMPARE(ofWindow.GetSafeHmenu()->parent(), &widget);
    QCOMPARE(ofNone.GetSafeHmenu(), nullptr);
}

void tst_MenuLife::madeLater()
{
    for (const auto& make : {&CMenu_X::CreateMenu, &CMenu_X::CreatePopupMenu}) {
        QPointer<QMenu> imp;
        {
            CMenu_X menu;
            QCOMPARE((menu.*make)(), 1);
            imp = menu;
            QVERIFY(imp && !imp->parent());
            QVERIFY(!menu.IsExternalImpObj());
        }
        QVERIFY(imp);
        deleteLaterObjects();
        QVERIFY(!imp);
    }
}

void tst_MenuLife::madeAnew()
{
    class Counted : public CMenu_X
    {
    public:
        bool AttachDefault(QWidget* parent) override
        {
            ++calls;
            return CMenu_X::AttachDefault(parent);
        }
        int calls = 0;
    };
    Counted menu;
    menu.CreateMenu();
    const QPointer<QMenu> first = menu.GetSafeHmenu();
    QCOMPARE(menu.CreatePopupMenu(), 1);
    QCOMPARE(menu.calls, 2);
    QVERIFY(menu.GetSafeHmenu() != first);
    deleteLaterObjects();
    QVERIFY(!first);
    QVERIFY(menu.GetSafeHmenu());
}

void tst_MenuLife::theStyleSheet()
{
    CMenu_X menu;
    menu.CreateMenu();
    QCOMPARE(menu.GetSafeHmenu()->styleSheet(), QStringLiteral(" \t\tQMenu::separator { \t\theight: 2px; \t\t} "));
    QCOMPARE(menu.addMenu(QIcon(), QStringLiteral("x"), 1)->styleSheet(), QString());
}

void tst_MenuLife::handleOfNoWrapper() { QCOMPARE(handleOf(nullptr), nullptr); }

// --------------------------------------------------------------------------------------------------------- DestroyMenu

void tst_MenuLife::destroyedMenuOfItsOwn()
{
    CMenu_X menu;
    menu.CreateMenu();
    const QPointer<QMenu> imp = menu.GetSafeHmenu();
    QCOMPARE(menu.DestroyMenu(), 1);
    QCOMPARE(menu.GetSafeHmenu(), nullptr);
    QVERIFY(imp); // later
    deleteLaterObjects();
    QVERIFY(!imp);
    QCOMPARE(menu.DestroyMenu(), 0);
}

void tst_MenuLife::destroyedMenuOfOthers()
{
    QMenu imp;
    CMenu_X menu;
    menu.Attach(&imp, nullptr, true);
    QCOMPARE(menu.DestroyMenu(), 1);
    QCOMPARE(menu.GetSafeHmenu(), nullptr);
    deleteLaterObjects();
    QVERIFY(isClean(imp));
}

void tst_MenuLife::wrapperDeletedWhileItsMenuIsDestroyed()
{
    QMenu imp;
    auto* const menu = new CMenu_X;
    menu->Attach(&imp, nullptr, true);
    connect(&imp, &QMenu::aboutToHide, &imp, [menu] { delete menu; });
    open(imp);
    QCOMPARE(menu->DestroyMenu(), 1);
    QVERIFY(isClean(imp));
}

// ------------------------------------------------------------------------------------------------------ the handle map

void tst_MenuLife::temporaryWrapper()
{
    QMenu menu;
    CMenu_X* const wrapper = CMenu_X::FromHandle(&menu);
    QCOMPARE(wrapper->GetSafeHmenu(), &menu);
    QCOMPARE(CObject_X::GetOwner(&menu), wrapper);
    QVERIFY(wrapper->IsExternalImpObj());
    QCOMPARE(CMenu_X::FromHandle(&menu), wrapper);
    QCOMPARE(CMenu_X::FromHandle(nullptr), nullptr);
    CMenu_X::DeleteTempMap();
    QVERIFY(isClean(menu));
    QVERIFY(CMenu_X::FromHandle(&menu));
}

void tst_MenuLife::permanentWrapperComesFirst()
{
    CMenu_X menu;
    menu.CreateMenu();
    QCOMPARE(CMenu_X::FromHandle(menu), &menu);
    CMenu_X::DeleteTempMap();
    QCOMPARE(CObject_X::GetOwner(menu.GetSafeHmenu()), &menu);
}

void tst_MenuLife::aPermanentWrapperMayFollowATemporaryOne()
{
    QMenu imp;
    CMenu_X* const temporary = CMenu_X::FromHandle(&imp);
    {
        CMenu_X permanent;
        permanent.Attach(&imp, nullptr, true);
        QCOMPARE(CMenu_X::FromHandle(&imp), &permanent);
        CMenu_X::DeleteTempMap();
        QCOMPARE(CMenu_X::FromHandle(&imp), &permanent);
    }
    QVERIFY(isClean(imp));

    CMenu_X::FromHandle(&imp);
    {
        CMenu_X permanent;
        permanent.Attach(&imp, nullptr, true);
    }
    CMenu_X* const again = CMenu_X::FromHandle(&imp);
    QCOMPARE(CObject_X::GetOwner(&imp), again);
    QCOMPARE(filtersOf(imp), 1);
    Q_UNUSED(temporary)
}

// A window's wrapper has taken the place of the owner.
void tst_MenuLife::aMenuWrappedAsAWindow()
{
    QMenu imp;
    CMenu_X* const menu = CMenu_X::FromHandle(&imp);
    CWnd_X window;
    QCOMPARE(window.SubclassWindow(&imp), 1);
    QCOMPARE(CObject_X::GetOwner(&imp), &window);
    QCOMPARE(CMenu_X::FromHandle(&imp), menu);
    QCOMPARE(CObject_X::GetOwner(&imp), menu);
    window.Detach();
    CMenu_X::DeleteTempMap();
    deleteLaterObjects();
    QCOMPARE(filtersOf(imp), 0);
}

void tst_MenuLife::anEntryOfTheMapComesFirst()
{
    QMenu imp;
    CMenu_X entered;
    void* const handle = static_cast<QObject*>(&imp);
    afxMapHMENU_X(TRUE)->SetPermanent(handle, &entered);
    QCOMPARE(CMenu_X::FromHandle(&imp), &entered);
    QCOMPARE(entered.GetSafeHmenu(), nullptr); // as it is
    afxMapHMENU_X(TRUE)->RemoveHandle(handle);
}

void tst_MenuLife::temporaryWrapperNeverOwnsItsMenu()
{
    const QPointer<QMenu> menu = new QMenu;
    CMenu_X::FromHandle(menu)->Detach();
    deleteLaterObjects();
    QVERIFY(menu);
    CMenu_X::FromHandle(menu)->DestroyMenu();
    deleteLaterObjects();
    QVERIFY(menu);
    CMenu_X::FromHandle(menu)->CreateMenu();
    deleteLaterObjects();
    QVERIFY(menu);
    CMenu_X::FromHandle(menu);
    CMenu_X::DeleteTempMap();
    deleteLaterObjects();
    QVERIFY(menu);
    delete menu;
}

void tst_MenuLife::temporaryWrapperForgetsAMenuThatDies()
{
    auto menu = std::make_unique<QMenu>();
    CMenu_X* const wrapper = CMenu_X::FromHandle(menu.get());
    menu.reset();
    QCOMPARE(wrapper->GetSafeHmenu(), nullptr);
    QCOMPARE(wrapper->GetMenuItemCount(), 0);
    CMenu_X::DeleteTempMap();
}

void tst_MenuLife::temporaryWrapperOfAMenuAtTheSamePlace()
{
    std::aligned_storage_t<sizeof(QMenu), alignof(QMenu)> place;
    auto* menu = new (&place) QMenu;
    CMenu_X* const wrapper = CMenu_X::FromHandle(menu);
    menu->~QMenu();
    menu = new (&place) QMenu;
    QCOMPARE(CMenu_X::FromHandle(menu), wrapper);
    QCOMPARE(CObject_X::GetOwner(menu), wrapper);
    QVERIFY(wrapper->IsExternalImpObj());
    menu->~QMenu();
    QCOMPARE(wrapper->GetSafeHmenu(), nullptr);
}

void tst_MenuLife::temporaryWrapperThatMadeAMenuOfItsOwn()
{
    QMenu imp;
    CMenu_X* const wrapper = CMenu_X::FromHandle(&imp);
    wrapper->CreateMenu();
    const QPointer<QMenu> own = wrapper->GetSafeHmenu();
    QVERIFY(own != &imp);
    QVERIFY(isClean(imp));
    QCOMPARE(CMenu_X::FromHandle(&imp), wrapper); // the map knows it by that handle
    QCOMPARE(wrapper->GetSafeHmenu(), &imp);
    deleteLaterObjects();
    QVERIFY(!own);

    wrapper->CreateMenu();
    const QPointer<QMenu> second = wrapper->GetSafeHmenu();
    CMenu_X::DeleteTempMap();
    deleteLaterObjects();
    QVERIFY(!second);
}

void tst_MenuLife::temporaryWrapperDeletedInAHandler()
{
    QMenu menu;
    QAction* const action = menu.addAction(QStringLiteral("A"));
    int calls = 0;
    connect(action, &QAction::triggered, &menu, [&] {
        CMenu_X::DeleteTempMap();
        ++calls;
    });
    CMenu_X::FromHandle(&menu)->GetMenuItemAction(0)->trigger();
    QCOMPARE(calls, 1);
    connect(&menu, &QMenu::aboutToShow, &menu, [&] { CMenu_X::DeleteTempMap(); });
    CMenu_X::FromHandle(&menu);
    open(menu);
    menu.hide();
    QVERIFY(isClean(menu));
}

// ---------------------------------------------------------------------------------------------------- nothing piles up

void tst_MenuLife::thousandMenusLeaveNothing()
{
    QWidget window;
    for (int i = 0; i < 1000; ++i) {
        CMenu_X menu(&window);
        CMenu_X popup;
        popup.CreatePopupMenu();
        popup.AppendMenu(MF_STRING, 1, L"A");
        menu.AppendMenu(&popup, L"S", 2);
        menu.AppendMenu(MF_SEPARATOR);
        for (int j = 0; j < 6; ++j)
            QCOMPARE(menu.EnableMenuItem(1, MF_GRAYED), j ? 3 : 0);
        QCOMPARE(menuText(menu), QStringLiteral("S{A(gray)},-"));
    }
    deleteLaterObjects();
    QVERIFY(window.children().isEmpty());
    QCOMPARE(QApplication::allWidgets(), QWidgetList{&window});
}

void tst_MenuLife::thousandTemporaryWrappersLeaveNothing()
{
    QMenu menu;
    QAction* const action = menu.addAction(QStringLiteral("A"));
    action->setProperty("MenuItemIdx", 1);
    const int children = menu.children().size();
    for (int i = 0; i < 1000; ++i) {
        for (int j = 0; j < 6; ++j)
            CMenu_X::FromHandle(&menu)->CheckMenuItem(1, MF_CHECKED);
        CMenu_X::DeleteTempMap();
    }
    QVERIFY(isClean(menu));
    QCOMPARE(filtersOf(*action), 0);
    QVERIFY(QObjectPrivate::get(action)->extraData->eventFilters.size() <= 1);
    QCOMPARE(menu.children().size(), children);
}

XE_TEST(tst_MenuLife)
#include "tst_menulife.moc"
