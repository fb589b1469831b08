// The keys and the mouse of a grid's user, from a real keyboard and a real pointer: what moves, what selects, and what
// opens an editor.

#include "realgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScopeGuard>

#include <X11/keysym.h>

class tst_GridRealKeys : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void move_data();
    void move();
    void extend_data();
    void extend();
    void tabLeavesAtTheCorner();
    void listModeTwice();
    void controlInListMode();
    void controlAdds();
    void shiftAndClick();
    void headingSorts();
    void deleteClearsOneCell();
    void cutAndPaste();
    void selectAll();
    void openByCharacter_data();
    void openByCharacter();
    void openNothing_data();
    void openNothing();
    void shakingHandEdits();
    void doubleClickTells();
    void rightClickTells();
};

void tst_GridRealKeys::move_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("focus"); // from 5,2; row 6 and column 3 are hidden

    QTest::newRow("Left") << Keys{XK_Left} << "5,1";
    QTest::newRow("Right, over a hidden column") << Keys{XK_Right} << "5,4";
    QTest::newRow("Up") << Keys{XK_Up} << "4,2";
    QTest::newRow("Down, over a hidden row") << Keys{XK_Down} << "7,2";
    QTest::newRow("Tab, over a hidden column") << Keys{XK_Tab} << "5,4";
    QTest::newRow("Shift+Tab") << Keys{XK_Shift_L, XK_Tab} << "5,1";
    QTest::newRow("Home") << Keys{XK_Home} << "5,1";
    QTest::newRow("End") << Keys{XK_End} << "5,4";
    QTest::newRow("Ctrl+Home") << Keys{XK_Control_L, XK_Home} << "1,1";
    QTest::newRow("Ctrl+End") << Keys{XK_Control_L, XK_End} << "39,4";
    QTest::newRow("Page Down") << Keys{XK_Page_Down} << "15,2"; // nine rows, and the hidden one
    QTest::newRow("Page Up") << Keys{XK_Page_Up} << "1,2";
    QTest::newRow("Return") << Keys{XK_Return} << "5,2";
    QTest::newRow("Enter of the keypad") << Keys{XK_KP_Enter} << "5,2";
    QTest::newRow("Esc") << Keys{XK_Escape} << "5,2";
}

void tst_GridRealKeys::move()
{
    QFETCH(Keys, keys);
    QFETCH(QString, focus);
    RealGrid host(m_input);
    host.grid->SetRowHeight(6, 0);
    host.grid->SetColumnWidth(3, 0);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(5, 2);
    typeChord(keys);
    QTRY_COMPARE(host.focus(), focus);
    host.settle();
    QCOMPARE(host.focus(), focus);
    QVERIFY(!host.widget->findChild<QLineEdit*>());
    QVERIFY(host.widget->hasFocus());
}

void tst_GridRealKeys::extend_data()
{
    QTest::addColumn<Keys>("keys"); // from 2,2 after a step from 2,1
    QTest::addColumn<QString>("selected");

    QTest::newRow("Shift+Down") << Keys{XK_Shift_L, XK_Down} << "2,2 3,2";
    QTest::newRow("Shift+Right") << Keys{XK_Shift_R, XK_Right} << "2,2 2,3";
    QTest::newRow("Shift+Up") << Keys{XK_Shift_L, XK_Up} << "1,2 2,2";
    QTest::newRow("Shift+Left") << Keys{XK_Shift_L, XK_Left} << "2,1 2,2";
    QTest::newRow("Ctrl+Down") << Keys{XK_Control_L, XK_Down} << "3,2";
}

void tst_GridRealKeys::extend()
{
    QFETCH(Keys, keys);
    QFETCH(QString, selected);
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 1);
    m_input.typeKey(XK_Right);
    QTRY_COMPARE(host.selected(), QStringLiteral("2,2"));
    typeChord(keys);
    QTRY_COMPARE(host.selected(), selected);
}

void tst_GridRealKeys::tabLeavesAtTheCorner()
{
    RealGrid host(m_input, 3, 3);
    auto* const before = new QLineEdit(host.window.GetSafeHwnd());
    auto* const after = new QLineEdit(host.window.GetSafeHwnd());
    QWidget::setTabOrder(before, host.widget);
    QWidget::setTabOrder(host.widget, after);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(QApplication::focusWidget(), after);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    host.widget->setFocus();
    host.grid->SetFocusCell(1, 1);
    typeChord({XK_Shift_L, XK_Tab});
    QTRY_COMPARE(QApplication::focusWidget(), before);
    QCOMPARE(host.focus(), QStringLiteral("1,1"));
}

void tst_GridRealKeys::listModeTwice()
{
    RealGrid host(m_input, 6, 3);
    host.grid->m_bListMode = TRUE;
    QVERIFY(host.isReady());
    host.click(2, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("2,1 2,2"));
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(host.selected(), QStringLiteral("3,1 3,2"));
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(host.selected(), QStringLiteral("4,1 4,2"));
    typeChord({XK_Shift_L, XK_Up});
    QTRY_COMPARE(host.selected(), QStringLiteral("3,1 3,2 4,1 4,2"));
}

void tst_GridRealKeys::controlInListMode()
{
    RealGrid host(m_input, 6, 3);
    host.grid->m_bListMode = TRUE;
    QVERIFY(host.isReady());
    host.click(1, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("1,1 1,2"));
    m_input.pressKey(XK_Control_L);
    host.click(3, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("1,1 1,2 3,1 3,2"));
    host.click(1, 2);
    QTRY_COMPARE(host.selected(), QStringLiteral("3,1 3,2"));
    m_input.releaseKey(XK_Control_L);
}

void tst_GridRealKeys::controlAdds()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.click(1, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("1,1"));
    m_input.pressKey(XK_Control_L);
    host.click(3, 2);
    QTRY_COMPARE(host.selected(), QStringLiteral("1,1 3,2"));
    host.click(1, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("3,2"));
    m_input.releaseKey(XK_Control_L);
}

void tst_GridRealKeys::shiftAndClick()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.click(2, 1);
    QTRY_COMPARE(host.selected(), QStringLiteral("2,1"));
    m_input.pressKey(XK_Shift_L);
    host.click(3, 2);
    QTRY_COMPARE(host.selected(), QStringLiteral("2,1 2,2 3,1 3,2"));
    m_input.releaseKey(XK_Shift_L);
}

void tst_GridRealKeys::headingSorts()
{
    RealGrid host(m_input, 4, 3);
    host.grid->m_bListMode = TRUE;
    const wchar_t* const texts[] = {L"b", L"c", L"a"};
    for (int row = 1; row < 4; ++row)
        host.grid->SetItemText(row, 1, texts[row - 1]);
    const auto order = [&host] {
        return XeQString(host.grid->GetItemText(1, 1) + host.grid->GetItemText(2, 1) + host.grid->GetItemText(3, 1));
    };
    QVERIFY(host.isReady());
    host.click(0, 1);
    QTRY_COMPARE(order(), QStringLiteral("abc"));
    host.click(2, 1); // else the next press makes it a double click
    QTRY_COMPARE(host.selected(), QStringLiteral("2,1 2,2"));
    host.click(0, 1);
    QTRY_COMPARE(order(), QStringLiteral("cba"));
}

// ---------------------------------------------------------------------------------------------------------- the texts

void tst_GridRealKeys::deleteClearsOneCell()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(2, 2, 3, 3);
    m_input.typeKey(XK_Delete);
    QTRY_VERIFY(host.grid->GetItemText(2, 2).IsEmpty());
    QCOMPARE(XeQString(host.grid->GetItemText(3, 3)), QStringLiteral("3,3"));
    host.grid->SetItemState(3, 3, host.grid->GetItemState(3, 3) | CGridCellBase_X::ReadOnly);
    host.grid->SetFocusCell(3, 3);
    m_input.typeKey(XK_Delete);
    m_input.typeKey(XK_Left);
    QTRY_COMPARE(host.focus(), QStringLiteral("3,2"));
    QCOMPARE(XeQString(host.grid->GetItemText(3, 3)), QStringLiteral("3,3"));
}

void tst_GridRealKeys::cutAndPaste()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetItemText(2, 2, L"bolt");
    host.grid->SetItemText(2, 3, L"nut");
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(2, 2, 2, 3);
    typeChord({XK_Control_L, XK_x});
    QTRY_VERIFY(host.grid->GetItemText(2, 3).IsEmpty());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("bolt\tnut"));
    host.grid->SetFocusCell(4, 1);
    typeChord({XK_Control_L, XK_v});
    const auto text = [&host](int row, int col) { return QString(XeQString(host.grid->GetItemText(row, col))); };
    QTRY_COMPARE(text(4, 2), QStringLiteral("nut"));
    QCOMPARE(text(4, 1), QStringLiteral("bolt"));
    QVERIFY(!host.widget->findChild<QLineEdit*>());
}

void tst_GridRealKeys::selectAll()
{
    RealGrid host(m_input, 4, 3);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    typeChord({XK_Control_L, XK_a});
    QTRY_COMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2 3,1 3,2"));
    QVERIFY(!host.widget->findChild<QLineEdit*>());
}

// ------------------------------------------------------------------------------------------------ what opens an edit

void tst_GridRealKeys::openByCharacter_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("text");

    QTest::newRow("a letter") << Keys{XK_k} << "k";
    QTest::newRow("with Shift") << Keys{XK_Shift_L, XK_k} << "K";
    QTest::newRow("the number of Page Up") << Keys{XK_Shift_L, XK_1} << "!";
    QTest::newRow("the number of Down") << Keys{XK_Shift_L, XK_9} << "(";
    QTest::newRow("a blank, which selects the text") << Keys{XK_space} << "2,2";
    QTest::newRow("a key of the keypad") << Keys{XK_KP_Add} << "+";
    QTest::newRow("a Chinese letter") << Keys{0x1004E16} << QString::fromUtf8("世");
    QTest::newRow("a letter beyond 16 bits") << Keys{0x101F600} << QString::fromUtf8("😀");
    QTest::newRow("Backspace") << Keys{XK_BackSpace} << "2,";
    QTest::newRow("F2") << Keys{XK_F2} << "2,2";
}

void tst_GridRealKeys::openByCharacter()
{
    QFETCH(Keys, keys);
    QFETCH(QString, text);
    QVERIFY(m_input.provideKey(keys.last()));
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    typeChord(keys);
    QTRY_VERIFY(host.widget->findChild<QLineEdit*>());
    auto* const field = host.widget->findChild<QLineEdit*>();
    QTRY_COMPARE(field->text(), text);
    host.settle();
    QCOMPARE(field->text(), text);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    host.grid->EndEditing();
}

void tst_GridRealKeys::openNothing_data()
{
    QTest::addColumn<Keys>("keys");

    QTest::newRow("Ctrl+B") << Keys{XK_Control_L, XK_b};
    QTest::newRow("Ctrl+I, the character of Tab") << Keys{XK_Control_L, XK_i};
    QTest::newRow("Ctrl+M, the character of Return") << Keys{XK_Control_L, XK_m};
    QTest::newRow("Ctrl+H, the character of Backspace") << Keys{XK_Control_L, XK_h};
    QTest::newRow("Alt+X") << Keys{XK_Alt_L, XK_x};
    QTest::newRow("Delete") << Keys{XK_Delete};
    QTest::newRow("Esc") << Keys{XK_Escape};
    QTest::newRow("Shift alone") << Keys{XK_Shift_L};
    QTest::newRow("F5") << Keys{XK_F5};
}

void tst_GridRealKeys::openNothing()
{
    QFETCH(Keys, keys);
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    host.window.take();
    typeChord(keys);
    m_input.typeKey(XK_Right); // behind the others
    QTRY_COMPARE(host.focus(), QStringLiteral("2,3"));
    host.settle();
    QVERIFY(!host.widget->findChild<QLineEdit*>());
}

// ---------------------------------------------------------------------------------------------------------- the mouse

void tst_GridRealKeys::shakingHandEdits()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    host.moveTo(host.middleOf(2, 2));
    host.press();
    QTRY_COMPARE(host.grid->m_MouseMode, 10);
    host.moveTo(host.middleOf(2, 2) + QPoint(2, 1));
    host.release();
    QTRY_VERIFY(host.widget->findChild<QLineEdit*>());
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    host.grid->EndEditing();
}

void tst_GridRealKeys::doubleClickTells()
{
    RealGrid host(m_input, 6, 5);
    host.grid->m_bEditable = FALSE;
    QVERIFY(host.isReady());
    host.window.take();
    host.moveTo(host.middleOf(3, 2));
    const int interval = QApplication::doubleClickInterval();
    const auto restore = qScopeGuard([interval] { QApplication::setDoubleClickInterval(interval); });
    QApplication::setDoubleClickInterval(30000);
    host.press(); // each part has arrived before the next one: a busy window manager loses what comes at once
    QTRY_VERIFY(host.grid->m_bLMouseButtonDown);
    host.release();
    QTRY_COMPARE(host.grid->m_bLMouseButtonDown, 0);
    host.press();
    QTRY_VERIFY(host.window.notices.contains(QStringLiteral("DBLCLK(3, 2)")));
    host.release();
    host.window.notices.removeAll(QStringLiteral("COMMAND")); // posted
    QCOMPARE(host.window.take(), QStringLiteral("CHANGED(3, 2) CLICK(3, 2) DBLCLK(3, 2)"));
}

void tst_GridRealKeys::rightClickTells()
{
    RealGrid host(m_input, 6, 5);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(1, 1);
    host.grid->OnEditCell(1, 1, CPoint(-1, -1), 1);
    host.window.take();
    host.moveTo(host.middleOf(3, 2));
    m_input.clickButton(3);
    QTRY_VERIFY(host.window.notices.contains(QStringLiteral("RCLICK(3, 2)")));
    QCOMPARE(host.window.take(), QStringLiteral("END(1, 1) RCLICK(3, 2)"));
}

XE_TEST(tst_GridRealKeys)

#include "tst_gridrealkeys.moc"
