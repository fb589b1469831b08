// The editors with a list, under a real keyboard and a real pointer.

#include "editing/edithost.h"
#include "leavenothing.h"
#include "testclass.h"
#include "virtualinput.h"

#include <QAbstractItemView>
#include <QComboBox>

#include <X11/keysym.h>

namespace {

constexpr unsigned openedByHost = 1;

CStringArray_X itemsOf(const QStringList& texts)
{
    CStringArray_X items;
    for (const QString& text : texts)
        items.Add(CString_X(text));
    return items;
}

const QStringList parts{QStringLiteral("bolt"), QStringLiteral("nut"), QStringLiteral("washer")};

/// An editor of the class List over an EditStage.
template <class List>
struct ListStage : EditStage
{
    void open(unsigned style, unsigned ch = openedByHost, const wchar_t* text = L"nut",
              const QStringList& texts = parts)
    {
        CStringArray_X items = itemsOf(texts);
        list = new List(&host, rect, style, 8, 3, 4, items, text, ch);
        box = qobject_cast<QComboBox*>(list->GetSafeHwnd());
    }
    bool isOpen() const { return box && box->view()->isVisible(); }
    bool waitForList() const { return isOpen() && QTest::qWaitForWindowExposed(box->view()->window()); }

    CRect rect{20, 30, 120, 50};
    QPointer<List> list;
    QPointer<QComboBox> box;
};

using PlainStage = ListStage<CInPlaceList_X>;
using EaseStage = ListStage<CEaseInPlaceList_X>;

} // namespace

class tst_InPlaceList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init() { m_input.movePointer({1200, 1000}); }
    void cleanup()
    {
        m_input.releaseAll();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void startValues();
    void manyItems();
    void opening_data();
    void opening();
    void wideItemsWidenTheList();
    void typedTextIsNoItem();
    void withoutParent();

    void clickOpensAListWithoutField();
    void choiceByTheMouse();
    void choiceTellsTheGrid_data();
    void choiceTellsTheGrid();
    void pressOnTheField();

    void endByKey_data();
    void endByKey();
    void plainArrowsStay();
    void releaseOfTheOpener_data();
    void releaseOfTheOpener();
    void escapeOnTheOpenList();
    void returnOnTheOpenList();
    void downSpaceAndTab();

    void focusLoss();
    void openListKeepsTheEdit();
    void deactivationEnds();
    void wheelChangesNothing();
    void deletedInItsReport_data();
    void deletedInItsReport();

    void fieldSendsKeysOn();
    void fieldOfItsOwn();

    void easeGrows();
    void easeEndsByKey_data();
    void easeEndsByKey();
    void easeAndTheFocus_data();
    void easeAndTheFocus();

private:
    VirtualInput m_input;
};

void tst_InPlaceList::startValues()
{
    PlainStage stage;
    stage.open(CBS_DROPDOWN, 13);
    QCOMPARE(stage.list->m_nNumLines, 3);
    QCOMPARE(XeQString(stage.list->m_sInitText), QStringLiteral("nut"));
    QCOMPARE(stage.list->m_nRow, 3);
    QCOMPARE(stage.list->m_nCol, 4);
    QCOMPARE(stage.list->m_nLastChar, 0u);
    QCOMPARE(stage.list->m_bExitOnArrows, 0);
    QCOMPARE(stage.list->m_edit.GetSafeHwnd(), stage.box->lineEdit());
    QCOMPARE(stage.box->geometry(), QRect(20, 30, 100, 20));
    QCOMPARE(stage.list->GetStyle(), 0x50800002u);
    PlainStage withoutField;
    withoutField.open(CBS_DROPDOWNLIST);
    QVERIFY(!withoutField.box->isEditable());
    QVERIFY(!withoutField.list->m_edit.GetSafeHwnd());
}

void tst_InPlaceList::manyItems()
{
    QStringList texts;
    for (int i = 0; i < 30; ++i)
        texts += QStringLiteral("item %1").arg(i);
    PlainStage stage;
    stage.open(CBS_DROPDOWN, 1, L"item 25", texts);
    QCOMPARE(stage.list->m_nNumLines, 20);
    QCOMPARE(stage.box->count(), 30);
    QCOMPARE(stage.box->currentIndex(), 25);
}

void tst_InPlaceList::opening_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("selected");

    const QString nut = QStringLiteral("nut");
    QTest::newRow("the host") << CBS_DROPDOWN << 1u << nut << QString();
    QTest::newRow("Return") << CBS_DROPDOWN << 13u << nut << QString();
    QTest::newRow("Backspace") << CBS_DROPDOWN << 8u << QStringLiteral("nu") << QString();
    QTest::newRow("Down") << CBS_DROPDOWN << 40u << nut << nut;
    QTest::newRow("Page Up") << CBS_DROPDOWN << 33u << nut << nut;
    QTest::newRow("Tab") << CBS_DROPDOWN << 9u << nut << nut;
    QTest::newRow("Space is typed") << CBS_DROPDOWN << 32u << QStringLiteral(" ") << QString();
    QTest::newRow("a letter") << CBS_DROPDOWN << unsigned('b') << QStringLiteral("b") << QString();
    QTest::newRow("a letter, simple") << CBS_SIMPLE << unsigned('b') << QStringLiteral("b") << QString();
    QTest::newRow("a letter, no kind") << 0u << unsigned('b') << QStringLiteral("b") << QString();
    QTest::newRow("a letter without a field") << CBS_DROPDOWNLIST << unsigned('b') << nut << QString();
}

void tst_InPlaceList::opening()
{
    QFETCH(unsigned, style);
    QFETCH(unsigned, ch);
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style, ch);
    stage.settle();
    QVERIFY(stage.box);
    QTEST(stage.box->currentText(), "text");
    if (stage.box->lineEdit())
        QTEST(stage.box->lineEdit()->selectedText(), "selected");
    QVERIFY(stage.box->hasFocus());
    QVERIFY(stage.host.ends.isEmpty());
}

void tst_InPlaceList::wideItemsWidenTheList()
{
    PlainStage stage;
    const QString wide(60, QLatin1Char('m'));
    stage.open(CBS_DROPDOWN, 1, L"x", {QStringLiteral("a"), wide});
    const QFontMetrics metrics(stage.grid->font());
    const int wanted = metrics.horizontalAdvance(wide) + 17 + 2 * metrics.horizontalAdvance(QLatin1Char(' '));
    QCOMPARE(stage.box->view()->minimumWidth(), wanted);
    QCOMPARE(stage.box->width(), 100);
}

void tst_InPlaceList::typedTextIsNoItem()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN, 1, L"screw");
    QCOMPARE(stage.box->currentText(), QStringLiteral("screw"));
    stage.box->lineEdit()->clear();
    m_input.typeKey(XK_b);
    QTRY_COMPARE(stage.box->currentText(), QStringLiteral("b")); // not completed
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'b' 13")});
    QCOMPARE(stage.box ? stage.box->count() : 3, 3);
}

void tst_InPlaceList::withoutParent()
{
    CStringArray_X items = itemsOf(parts);
    CRect rect(0, 0, 10, 10);
    CInPlaceList_X list(nullptr, rect, 2, 8, 1, 1, items, L"x", 1);
    QVERIFY(!list.GetSafeHwnd());
    list.EndEdit();
    CEaseInPlaceList_X ease(nullptr, rect, 2, 8, 1, 1, items, L"x", 1);
    QVERIFY(!ease.GetSafeHwnd());
}

// ----------------------------------------------------------------------------------------------------------- the mouse

void tst_InPlaceList::clickOpensAListWithoutField()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWNLIST);
    QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
    m_input.movePointer(m_input.windowOrigin(stage.window.winId()) + QPoint(60, 50)); // not on the arrow
    m_input.pressButton(1);
    QTRY_VERIFY(stage.isOpen());
    m_input.releaseButton(1);
    QTest::qWait(100);
    QVERIFY(stage.isOpen());
    QVERIFY(stage.host.ends.isEmpty());
    m_input.typeKey(XK_Escape);
    QTRY_COMPARE(stage.host.ends.size(), 1);
}

void tst_InPlaceList::choiceByTheMouse()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWNLIST);
    stage.list->ShowDropDown();
    QVERIFY(stage.waitForList());
    const QAbstractItemView* const view = stage.box->view();
    const QPoint item(20, view->visualRect(view->model()->index(2, 0)).center().y());
    m_input.movePointer(m_input.windowOrigin(view->window()->winId()) + view->viewport()->mapTo(view->window(), item));
    QTRY_COMPARE(view->currentIndex().row(), 2);
    m_input.clickButton(1);
    QTRY_VERIFY(!stage.isOpen());
    QTRY_COMPARE(stage.box->currentText(), QStringLiteral("washer"));
    QVERIFY(stage.host.ends.isEmpty());
    QTRY_VERIFY(stage.box->hasFocus());
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'washer' 13")});
}

void tst_InPlaceList::choiceTellsTheGrid_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<int>("buttonDown");

    QTest::newRow("with a field") << CBS_DROPDOWN << 0;
    QTest::newRow("simple") << CBS_SIMPLE << 1;
    QTest::newRow("without a field") << CBS_DROPDOWNLIST << 1;
}

void tst_InPlaceList::choiceTellsTheGrid()
{
    QFETCH(unsigned, style);
    QWidget window;
    CGridCtrl_X grid;
    grid.SubclassWindow(&window);
    CStringArray_X items = itemsOf(parts);
    CRect rect(0, 0, 50, 20);
    const QPointer<CInPlaceList_X> list = new CInPlaceList_X(&grid, rect, style, 8, 1, 1, items, L"nut", 1);
    grid.m_bLMouseButtonDown = 1;
    Q_EMIT qobject_cast<QComboBox*>(list->GetSafeHwnd())->activated(1);
    QTEST(grid.m_bLMouseButtonDown, "buttonDown");
    list->EndEdit();
    EditStage::settle();
    QVERIFY(!list);
}

void tst_InPlaceList::pressOnTheField()
{
    PlainStage stage;
    stage.open(CBS_DROPDOWN);
    tagMSG message{};
    for (const UINT number : {WM_LBUTTONDOWN, WM_LBUTTONUP}) {
        message.message = number;
        QCOMPARE(stage.list->PreTranslateMessage(&message), 0);
    }
    QVERIFY(!stage.isOpen());
    PlainStage simple;
    simple.open(CBS_SIMPLE);
    message.message = WM_LBUTTONUP;
    QCOMPARE(simple.list->PreTranslateMessage(&message), 1);
    message.message = WM_MOUSEMOVE;
    QCOMPARE(simple.list->PreTranslateMessage(&message), 0);
}

// ------------------------------------------------------------------------------------------------------------ the keys

void tst_InPlaceList::endByKey_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<unsigned long>("key");
    QTest::addColumn<bool>("control");
    QTest::addColumn<QString>("end");

    const auto row = [](const char* name, unsigned style, unsigned long key, bool control, const char* end) {
        QTest::newRow(name) << style << key << control << QString::fromLatin1(end);
    };
    row("Return", CBS_DROPDOWN, XK_Return, false, "3,4 'washer' 13");
    row("Esc brings the text back", CBS_DROPDOWN, XK_Escape, false, "3,4 'nut' 27");
    row("Tab", CBS_DROPDOWN, XK_Tab, false, "3,4 'washer' 9");
    row("Ctrl and Down", CBS_DROPDOWN, XK_Down, true, "3,4 'washer' 40");
    row("Ctrl and Page Up", CBS_DROPDOWN, XK_Page_Up, true, "3,4 'washer' 33");
    row("Return without a field", CBS_DROPDOWNLIST, XK_Return, false, "3,4 'washer' 13");
    row("Esc without a field", CBS_DROPDOWNLIST, XK_Escape, false, "3,4 'nut' 27");
    row("Tab without a field", CBS_DROPDOWNLIST, XK_Tab, false, "3,4 'washer' 9");
}

void tst_InPlaceList::endByKey()
{
    QFETCH(unsigned, style);
    QFETCH(unsigned long, key);
    QFETCH(bool, control);
    QFETCH(QString, end);
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style);
    stage.box->setCurrentIndex(2);
    if (control)
        m_input.pressKey(XK_Control_L);
    m_input.typeKey(key);
    m_input.releaseAll();
    QTRY_COMPARE(stage.host.ends, QStringList{end});
    stage.settle();
    QTest::qWait(20);
    QCOMPARE(stage.host.ends.size(), 1);
    QVERIFY(!stage.box);
    QVERIFY(!stage.list);
    QVERIFY(stage.grid->hasFocus());
    QVERIFY(stage.host.keys.isEmpty());
}

void tst_InPlaceList::plainArrowsStay()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWNLIST, 40);
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.box->currentText(), QStringLiteral("washer"));
    m_input.typeKey(XK_Down); // at the last one, where Qt leaves the key alone
    m_input.typeKey(XK_Left);
    m_input.typeKey(XK_Up);
    QTRY_COMPARE(stage.box->currentText(), QStringLiteral("nut"));
    QVERIFY(stage.host.ends.isEmpty());
    QVERIFY(stage.host.keys.isEmpty());
    m_input.typeKey(XK_Escape);
    QTRY_COMPARE(stage.host.ends.size(), 1);
}

void tst_InPlaceList::releaseOfTheOpener_data()
{
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<unsigned long>("key");

    QTest::newRow("Tab") << 9u << static_cast<unsigned long>(XK_Tab);
    QTest::newRow("Return") << 13u << static_cast<unsigned long>(XK_Return);
}

void tst_InPlaceList::releaseOfTheOpener()
{
    QFETCH(unsigned, ch);
    QFETCH(unsigned long, key);
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.list = nullptr;
    m_input.pressKey(key); // the grid has it
    EditStage::settle();
    QTest::qWait(20);
    stage.grid->setFocus();
    stage.open(CBS_DROPDOWN, ch);
    m_input.releaseKey(key);
    QTest::qWait(50);
    QVERIFY(stage.host.ends.isEmpty());
    m_input.typeKey(key);
    QTRY_COMPARE(stage.host.ends.size(), 1);
}

void tst_InPlaceList::escapeOnTheOpenList()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN);
    stage.list->ShowDropDown();
    QVERIFY(stage.waitForList());
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.box->view()->currentIndex().row(), 2);
    m_input.typeKey(XK_Escape);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'nut' 27")});
}

void tst_InPlaceList::returnOnTheOpenList()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN);
    stage.list->ShowDropDown();
    QVERIFY(stage.waitForList());
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.box->view()->currentIndex().row(), 2);
    m_input.pressKey(XK_Return);
    QTRY_VERIFY(!stage.isOpen());
    m_input.releaseKey(XK_Return);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'washer' 13")});
    QTest::qWait(20);
    QCOMPARE(stage.host.ends.size(), 1);
}

void tst_InPlaceList::downSpaceAndTab()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWNLIST);
    m_input.typeKey(XK_w); // finds the item
    QTRY_COMPARE(stage.box->currentText(), QStringLiteral("washer"));
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'washer' 9")});
}

// ----------------------------------------------------------------------------------------------------------- the focus

void tst_InPlaceList::focusLoss()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN, 'b');
    stage.list->OnKillFocus(stage.box);
    stage.list->OnKillFocus(stage.box->lineEdit());
    QVERIFY(stage.host.ends.isEmpty());
    stage.other->setFocus(Qt::PopupFocusReason);
    QVERIFY(stage.host.ends.isEmpty());
    stage.box->setFocus();
    stage.other->setFocus(Qt::MouseFocusReason);
    QCOMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'b' 0")});
    QVERIFY(stage.other->hasFocus());
    stage.settle();
    QVERIFY(!stage.list);
}

void tst_InPlaceList::openListKeepsTheEdit()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN);
    stage.list->ShowDropDown();
    QVERIFY(stage.waitForList());
    stage.list->OnKillFocus(nullptr);
    QVERIFY(stage.host.ends.isEmpty());
    stage.list->ShowDropDown(FALSE);
    QTRY_VERIFY(stage.box->hasFocus());
    QVERIFY(stage.host.ends.isEmpty());
    stage.list->OnKillFocus(nullptr);
    QCOMPARE(stage.host.ends.size(), 1);
}

void tst_InPlaceList::deactivationEnds()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN);
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_COMPARE(stage.host.ends.size(), 1);
    stage.settle();
    QVERIFY(!stage.list);
}

void tst_InPlaceList::wheelChangesNothing()
{
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(CBS_DROPDOWN);
    m_input.movePointer(m_input.windowOrigin(stage.window.winId()) + QPoint(60, 50));
    m_input.clickButton(5);
    m_input.clickButton(5);
    QTest::qWait(50);
    QCOMPARE(stage.box->currentText(), QStringLiteral("nut"));
    stage.list->EndEdit();
}

void tst_InPlaceList::deletedInItsReport_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("editor") << 0;
    QTest::newRow("box") << 1;
    QTest::newRow("grid's widget") << 2;
}

void tst_InPlaceList::deletedInItsReport()
{
    QFETCH(int, what);
    for (const unsigned long key : {XK_Return, XK_Tab, XK_Escape}) {
        PlainStage stage;
        QVERIFY(stage.comeUp());
        stage.open(CBS_DROPDOWN);
        stage.host.onEnd = [&, what] {
            if (what == 0)
                delete stage.list;
            else if (what == 1)
                delete stage.box;
            else
                delete stage.grid;
        };
        m_input.typeKey(key);
        QTRY_COMPARE(stage.host.ends.size(), 1);
        EditStage::settle();
        QVERIFY(!stage.list);
        QVERIFY(!stage.box);
    }
}

// ----------------------------------------------------------------------------------------------------------- the field

void tst_InPlaceList::fieldSendsKeysOn()
{
    struct KeyBox : CComboBox_X
    {
        int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
        {
            if (message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR)
                seen += QStringLiteral("%1 %2 %3").arg(message).arg(wParam).arg(lParam, 0, 16);
            return CComboBox_X::OnWndMsg(message, wParam, lParam, result);
        }
        QStringList seen;
    };
    QComboBox box;
    box.setEditable(true);
    KeyBox wrapper;
    wrapper.SubclassWindow(&box);
    CComboEdit_X field;
    field.SubclassWindow(box.lineEdit());
    field.OnKeyDown(VK_DOWN, 1, 0);
    field.OnKeyDown(VK_RETURN, 1, MK_CONTROL);
    field.OnKeyUp(VK_DOWN, 1, 0);
    QVERIFY(wrapper.seen.isEmpty());
    field.OnKeyDown(VK_DOWN, 2, MK_CONTROL);
    field.OnKeyUp(VK_TAB, 1, 0);
    field.OnKeyUp(VK_RETURN, 1, MK_SHIFT);
    field.OnKeyUp(VK_ESCAPE, 1, 0);
    QCOMPARE(wrapper.seen, (QStringList{QStringLiteral("256 40 80002"), QStringLiteral("257 9 1"),
                                        QStringLiteral("257 13 40001"), QStringLiteral("257 27 1")}));
    tagMSG message{};
    for (const UINT number : {WM_KEYDOWN, WM_KEYUP, WM_SYSCHAR}) {
        message.message = number;
        QCOMPARE(field.PreTranslateMessage(&message), 1);
    }
    message.message = WM_CHAR;
    QCOMPARE(field.PreTranslateMessage(&message), 0);
    field.OnKillFocus(nullptr); // the box is no editor
}

void tst_InPlaceList::fieldOfItsOwn()
{
    PlainStage stage;
    stage.open(CBS_DROPDOWN);
    stage.list->m_edit.OnKillFocus(nullptr);
    QCOMPARE(stage.host.ends.size(), 1);
    EaseStage ease;
    ease.open(CBS_DROPDOWN);
    ease.list->m_edit.OnKillFocus(nullptr);
    QCOMPARE(ease.host.ends.size(), 1);
}

// ---------------------------------------------------------------------------------------------------------------- ease

void tst_InPlaceList::easeGrows()
{
    EaseStage stage;
    stage.open(CBS_DROPDOWN);
    QCOMPARE(stage.rect, CRect(20, 30, 120, 50 + 20 * 3 + 17));
    QCOMPARE(stage.box->geometry(), QRect(20, 30, 100, 20));
    QCOMPARE(stage.list->m_nNumLines, 3);
    QCOMPARE(stage.list->GetStyle(), 0x50800042u); // the list of the box scrolls by itself
}

void tst_InPlaceList::easeEndsByKey_data() { endByKey_data(); }

void tst_InPlaceList::easeEndsByKey()
{
    QFETCH(unsigned, style);
    QFETCH(unsigned long, key);
    QFETCH(bool, control);
    QFETCH(QString, end);
    EaseStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style);
    stage.box->setCurrentIndex(2);
    stage.list->OnKeyDown(VK_RETURN, 1, 0); // it is the release that ends it
    QVERIFY(stage.host.ends.isEmpty());
    if (control)
        m_input.pressKey(XK_Control_L);
    m_input.typeKey(key);
    m_input.releaseAll();
    QTRY_COMPARE(stage.host.ends, QStringList{end});
    stage.settle();
    QTest::qWait(20);
    QCOMPARE(stage.host.ends.size(), 1);
    QVERIFY(!stage.box);
    QVERIFY(stage.host.keys.isEmpty());
}

void tst_InPlaceList::easeAndTheFocus_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<bool>("ends");

    QTest::newRow("simple") << CBS_SIMPLE << false;
    QTest::newRow("with a field") << CBS_DROPDOWN << false;
    QTest::newRow("without a field") << CBS_DROPDOWNLIST << true;
}

void tst_InPlaceList::easeAndTheFocus()
{
    QFETCH(unsigned, style);
    QFETCH(bool, ends);
    EaseStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style);
    stage.other->setFocus();
    QCOMPARE(stage.host.ends.size(), ends ? 1 : 0);
    if (!ends)
        stage.list->EndEdit();
    QVERIFY(stage.other->hasFocus());
}

XE_TEST(tst_InPlaceList)

#include "tst_inplacelist.moc"
