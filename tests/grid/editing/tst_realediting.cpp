// What a person's keys and clicks do while a cell is edited: which stay in the editor, which end it, and where the
// focus goes.

#include "editedgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <QClipboard>
#include <QDialog>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>

#include <X11/keysym.h>

namespace {

QWidget* openPopup() { return QApplication::activePopupWidget(); }

} // namespace

class tst_RealEditing : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void keysStay_data();
    void keysStay();
    void defaultButtonIsNotPressed_data();
    void defaultButtonIsNotPressed();
    void contextMenuKeepsTheEdit();
    void menuBarKeepsTheEdit();
    void otherWindowStores();
    void pasteWidensTheField();
    void shiftTabTwice();
    void tabAtTheCorner();
    void functionKeyAndTab();
    void wheelScrollsTheGrid();
    void easeListEndsByAClick();
};

void tst_RealEditing::keysStay_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("text"); // with an "x" typed behind

    QTest::newRow("Up") << Keys{XK_Up} << "2.2x";
    QTest::newRow("Down") << Keys{XK_Down} << "2.2x";
    QTest::newRow("Page Down") << Keys{XK_Page_Down} << "2.2x";
    QTest::newRow("Left") << Keys{XK_Left} << "2.x2";
    QTest::newRow("Home") << Keys{XK_Home} << "x2.2";
    QTest::newRow("Delete") << Keys{XK_Delete} << "2.2x";
    QTest::newRow("Ctrl+I, the character of Tab") << Keys{XK_Control_L, XK_i} << "2.2x";
    QTest::newRow("Ctrl+M, the character of Return") << Keys{XK_Control_L, XK_m} << "2.2x";
    QTest::newRow("Ctrl+[, the character of Esc") << Keys{XK_Control_L, XK_bracketleft} << "2.2x";
    QTest::newRow("Ctrl+A and Delete") << Keys{XK_Control_L, XK_a} << "x";
    QTest::newRow("F5") << Keys{XK_F5} << "2.2x";
    QTest::newRow("Shift alone") << Keys{XK_Shift_L} << "2.2x";
}

void tst_RealEditing::keysStay()
{
    QFETCH(Keys, keys);
    QFETCH(QString, text);
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    typeChord(keys);
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), text);
    QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(2, 2));
    QVERIFY(stage.openField()->hasFocus());
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2)"));
    stage.grid->EndEditing();
}

void tst_RealEditing::defaultButtonIsNotPressed_data()
{
    QTest::addColumn<unsigned long>("key");
    QTest::addColumn<QString>("text");

    QTest::newRow("Return") << static_cast<unsigned long>(XK_Return) << "2,2x";
    QTest::newRow("Enter of the keypad") << static_cast<unsigned long>(XK_KP_Enter) << "2,2x";
    QTest::newRow("Esc") << static_cast<unsigned long>(XK_Escape) << "2,2";
}

void tst_RealEditing::defaultButtonIsNotPressed()
{
    QFETCH(unsigned long, key);
    QFETCH(QString, text);
    QDialog dialog;
    dialog.resize(400, 300);
    QPushButton ok(&dialog);
    ok.setGeometry(300, 260, 80, 30);
    ok.setDefault(true);
    auto* const widget = new QWidget(&dialog);
    widget->resize(280, 200);
    CGridCtrl_X grid(4, 4, 1, 1);
    grid.SubclassWindow(widget);
    grid.SetItemText(2, 2, L"2,2");
    QSignalSpy clicked(&ok, &QPushButton::clicked);
    QSignalSpy closed(&dialog, &QDialog::finished);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    widget->setFocus();
    grid.OnEditCell(2, 2, CPoint(-1, -1), 1);
    m_input.typeKey(XK_x);
    m_input.typeKey(key);
    QTRY_COMPARE(grid.IsItemEditing(2, 2), 0);
    QCoreApplication::processEvents();
    QCOMPARE(XeQString(grid.GetItemText(2, 2)), text);
    QVERIFY(widget->hasFocus());
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(closed.count(), 0);
}

// ----------------------------------------------------------------------------------------------------------- the focus

void tst_RealEditing::contextMenuKeepsTheEdit()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2x"));
    clickAt(stage.window, stage.openField()->geometry().center(), 3);
    QTRY_VERIFY(openPopup());
    QVERIFY(qobject_cast<QMenu*>(openPopup()));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!openPopup());
    QTRY_VERIFY(stage.openField() && stage.openField()->hasFocus());
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2)"));
    m_input.typeKey(XK_y);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2xy"));
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("2.2xy"));
}

void tst_RealEditing::menuBarKeepsTheEdit()
{
    EditedGrid<> stage;
    QMenuBar bar(&stage.window);
    bar.setNativeMenuBar(false);
    bar.setGeometry(300, 255, 150, 30);
    bar.addMenu(QStringLiteral("Parts"))->addAction(QStringLiteral("New"));
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2x"));
    clickAt(stage.window, bar.geometry().topLeft() + bar.actionGeometry(bar.actions().constFirst()).center());
    QTRY_VERIFY(openPopup());
    QVERIFY(stage.openField());
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!openPopup());
    m_input.typeKey(XK_Escape); // from the bar
    QTRY_VERIFY(stage.openField() && stage.openField()->hasFocus());
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2)"));
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("2.2x"));
}

void tst_RealEditing::otherWindowStores()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2x"));
    QWidget window;
    window.setGeometry(600, 400, 200, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("2.2x"));
    QVERIFY(!stage.openField());
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2) END(2, 2)"));
}

void tst_RealEditing::pasteWidensTheField()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    QApplication::clipboard()->setText(QStringLiteral("a text that is wider than the cell"));
    stage.edit();
    const int width = stage.openField()->width();
    typeChord({XK_Control_L, XK_v});
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2a text that is wider than the cell"));
    QVERIFY(stage.openField()->width() > width);
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("2.2a text that is wider than the cell"));
}

// ------------------------------------------------------------------------------------------------- from cell to cell

void tst_RealEditing::shiftTabTwice()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.grid->SetFocusCell(2, 3);
    stage.edit(2, 3);
    typeChord({XK_Shift_L, XK_Tab});
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2"));
    m_input.typeKey(XK_q);
    QTRY_COMPARE(stage.openText(), QStringLiteral("q"));
    typeChord({XK_Shift_L, XK_Tab});
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.1"));
    QCOMPARE(stage.text(2, 2), QStringLiteral("q"));
    typeChord({XK_Shift_L, XK_Tab});
    QTRY_COMPARE(stage.openText(), QStringLiteral("1.3"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
    QVERIFY(stage.widget->hasFocus());
}

void tst_RealEditing::tabAtTheCorner()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.grid->SetFocusCell(5, 3);
    stage.owner.take();
    stage.edit(5, 3);
    m_input.typeKey(XK_x);
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(stage.text(5, 3), QStringLiteral("5.3x"));
    EditedGrid<>::settle();
    QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(5, 3));
    QVERIFY(stage.owner.take().startsWith(QStringLiteral("BEGIN(5, 3) END(5, 3)")));
    stage.grid->EndEditing();
}

void tst_RealEditing::functionKeyAndTab()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    m_input.typeKey(XK_F2);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2"));
    m_input.typeKey(XK_End);
    m_input.typeKey(XK_x);
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.3"));
    QCOMPARE(stage.text(2, 2), QStringLiteral("2.2x"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
    QCOMPARE(stage.text(2, 3), QStringLiteral("2.3"));
}

// ----------------------------------------------------------------------------------------------------------- the mouse

void tst_RealEditing::wheelScrollsTheGrid()
{
    EditedGrid<> stage;
    stage.grid->SetRowCount(60);
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2x"));
    clickAt(stage.window, stage.openField()->geometry().center(), 5);
    QTRY_COMPARE(stage.grid->GetTopleftNonFixedCell().row, 2);
    QCOMPARE(stage.text(2, 2), QStringLiteral("2.2x"));
    QVERIFY(!stage.openField());
}

void tst_RealEditing::easeListEndsByAClick()
{
    EditedGrid<> stage;
    CBtnDataBase_X shared;
    shared.SetGrid(stage.grid.get());
    stage.grid->SetCellType(2, 2, RUNTIME_CLASS_X(CGridBtnCellCombo_X));
    auto* const cell = static_cast<CGridBtnCellCombo_X*>(stage.grid->cellAt(2, 2));
    cell->SetBtnDataBase(&shared);
    cell->SetAllowEase(TRUE);
    cell->SetComboStyle(CBS_DROPDOWN);
    QVERIFY(stage.comeUp());
    stage.edit(2, 2, 'b');
    QTRY_COMPARE(stage.openText(), QStringLiteral("b"));
    stage.owner.take();
    CRect rect;
    stage.grid->GetCellRect(3, 3, &rect);
    clickAt(stage.window, {rect.left + 10, rect.top + 5});
    QTRY_VERIFY(stage.grid->m_idCurrentCell == CCellID_X(3, 3));
    QVERIFY(!cell->IsEditing());
    QCOMPARE(stage.text(2, 2), QStringLiteral("b"));
    QCOMPARE(stage.owner.take().count(QStringLiteral("END(2, 2)")), 1);
    EditedGrid<>::settle();
    stage.grid->DeleteAllItems();
}

XE_TEST(tst_RealEditing)

#include "tst_realediting.moc"
