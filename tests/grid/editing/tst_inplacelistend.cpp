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

private:
    void typeTheEnd(EditStage& stage);
};

// ------------------------------------------------------------------------------------------------------------ the keys

void tst_InPlaceListEnd::endByKey_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("end");

    QTest::newRow("Return") << CBS_DROPDOWN << Keys{XK_Return} << "3,4 'washer' 13";
    QTest::newRow("Esc brings the text back") << CBS_DROPDOWN << Keys{XK_Escape} << "3,4 'nut' 27";
    QTest::newRow("Tab") << CBS_DROPDOWN << Keys{XK_Tab} << "3,4 'washer' 9";
    QTest::newRow("Ctrl and Down") << CBS_DROPDOWN << Keys{XK_Control_L, XK_Down} << "3,4 'washer' 40";
    QTest::newRow("Ctrl and Page Up") << CBS_DROPDOWN << Keys{XK_Control_L, XK_Page_Up} << "3,4 'washer' 33";
    QTest::newRow("Return without a field") << CBS_DROPDOWNLIST << Keys{XK_Return} << "3,4 'washer' 13";
    QTest::newRow("Esc without a field") << CBS_DROPDOWNLIST << Keys{XK_Escape} << "3,4 'nut' 27";
    QTest::newRow("Tab without a field") << CBS_DROPDOWNLIST << Keys{XK_Tab} << "3,4 'washer' 9";
}

void tst_InPlaceListEnd::endByKey()
{
    QFETCH(unsigned, style);
    PlainStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style);
    stage.box->setCurrentIndex(2);
    typeTheEnd(stage);
    QVERIFY(!stage.box);
    QVERIFY(!stage.list);
    QVERIFY(stage.grid->hasFocus());
}

// Types the keys of the row: the edit ends as the row says, and once.
void tst_InPlaceListEnd::typeTheEnd(EditStage& stage)
{
    QFETCH(Keys, keys);
    QFETCH(QString, end);
    typeChord(keys);
    QTRY_COMPARE(stage.host.ends, QStringList{end});
    stage.settle();
    QTest::qWait(20);
    QCOMPARE(stage.host.ends.size(), 1);
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
    QVERIFY(stage.comeUpWithList(CBS_DROPDOWN));
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.box->view()->currentIndex().row(), 2);
    m_input.typeKey(XK_Escape);
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'nut' 27")});
}

void tst_InPlaceListEnd::returnOnTheOpenList()
{
    PlainStage stage;
    QVERIFY(stage.comeUpWithList(CBS_DROPDOWN));
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
    QVERIFY(stage.comeUpWithList(CBS_DROPDOWN));
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
    EaseStage stage;
    QVERIFY(stage.comeUp());
    stage.open(style);
    stage.box->setCurrentIndex(2);
    stage.list->OnKeyDown(VK_RETURN, 1, 0); // it is the release that ends it
    QVERIFY(stage.host.ends.isEmpty());
    typeTheEnd(stage);
    QVERIFY(!stage.box);
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
