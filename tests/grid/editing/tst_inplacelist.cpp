// The editors with a list, under a real keyboard and a real pointer: how they open, and what is chosen in them.

#include "editing/liststage.h"
#include "realinputtest.h"
#include "testclass.h"

#include <X11/keysym.h>

class tst_InPlaceList : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
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

    void fieldSendsKeysOn();
    void fieldOfItsOwn();

    void easeGrows();
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
    QVERIFY(stage.comeUpWithList(CBS_DROPDOWNLIST));
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

XE_TEST(tst_InPlaceList)

#include "tst_inplacelist.moc"
