// The editors with a list, under a real keyboard: what ends them, and what does not.

#include "editing/liststage.h"
#include "realinputtest.h"
#include "testclass.h"

#include <X11/keysym.h>

class tst_InPlaceListEnd : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
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

    void easeEndsByKey_data();
    void easeEndsByKey();
    void easeAndTheFocus_data();
    void easeAndTheFocus();
};

// ------------------------------------------------------------------------------------------------------------ the keys

void tst_InPlaceListEnd::endByKey_data()
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

void tst_InPlaceListEnd::endByKey()
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

void tst_InPlaceListEnd::plainArrowsStay()
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

void tst_InPlaceListEnd::releaseOfTheOpener_data()
{
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<unsigned long>("key");

    QTest::newRow("Tab") << 9u << static_cast<unsigned long>(XK_Tab);
    QTest::newRow("Return") << 13u << static_cast<unsigned long>(XK_Return);
}

void tst_InPlaceListEnd::releaseOfTheOpener()
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

void tst_InPlaceListEnd::escapeOnTheOpenList()
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

void tst_InPlaceListEnd::returnOnTheOpenList()
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

void tst_InPlaceListEnd::downSpaceAndTab()
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

void tst_InPlaceListEnd::focusLoss()
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

void tst_InPlaceListEnd::openListKeepsTheEdit()
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

void tst_InPlaceListEnd::deactivationEnds()
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

void tst_InPlaceListEnd::wheelChangesNothing()
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

void tst_InPlaceListEnd::deletedInItsReport_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("editor") << 0;
    QTest::newRow("box") << 1;
    QTest::newRow("grid's widget") << 2;
}

void tst_InPlaceListEnd::deletedInItsReport()
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

void tst_InPlaceListEnd::easeEndsByKey_data() { endByKey_data(); }

void tst_InPlaceListEnd::easeEndsByKey()
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

void tst_InPlaceListEnd::easeAndTheFocus_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<bool>("ends");

    QTest::newRow("simple") << CBS_SIMPLE << false;
    QTest::newRow("with a field") << CBS_DROPDOWN << false;
    QTest::newRow("without a field") << CBS_DROPDOWNLIST << true;
}

void tst_InPlaceListEnd::easeAndTheFocus()
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

XE_TEST(tst_InPlaceListEnd)

#include "tst_inplacelistend.moc"
