#include "gridwindow.h"
#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <QClipboard>

namespace {

// Writes down what would be edited, and edits nothing.
class KeyedGrid : public Traced<CGridCtrl_X>
{
public:
    void OnEditCell(int row, int col, CPoint point, unsigned int ch) override
    {
        edits += QStringLiteral("%1,%2 %3 %4 %5").arg(row).arg(col).arg(point.x).arg(point.y).arg(ch);
    }
    void OnEditCopy() override { commands += QStringLiteral("copy"); }
    void OnEditCut() override { commands += QStringLiteral("cut"); }
    void OnEditPaste() override { commands += QStringLiteral("paste"); }
    void OnEditSelectAll() override { commands += QStringLiteral("all"); }

    static QString take(QStringList& list) { return std::exchange(list, {}).join(QLatin1String("; ")); }

    QStringList edits;
    QStringList commands;
};

using KeyedWindow = GridWindow<KeyedGrid>;

// What keys go on to the widget that the grid is painted on.
class PassedKeys : public QObject
{
public:
    explicit PassedKeys(QWidget* parent) : m_parent(parent) { parent->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            keys += QString::number(static_cast<QKeyEvent*>(event)->key(), 16);
        return false;
    }
    QStringList keys;

private:
    QWidget* m_parent;
};

} // namespace

class tst_GridKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void arrows_data();
    void arrows();
    void shiftExtends();
    void shiftWithoutAnAnchor();
    void controlAndArrows();
    void tab_data();
    void tab();
    void tabLeavesTheGrid();
    void tabIsNotHandled();
    void pages();
    void pageToAHiddenRow();
    void homeAndEnd_data();
    void homeAndEnd();
    void scrollsToTheFocus();
    void anArrowInsideDoesNotScroll();
    void listModeKeys();
    void deleteClears();
    void deleteOnAReadOnlyCell();
    void deleteAndNotices();
    void f2Edits();
    void characters_data();
    void characters();
    void charactersWithoutTheFocus();
    void commands_data();
    void commands();
    void otherKeysGoOn_data();
    void otherKeysGoOn();
    void withoutAFocusCell();
    void disabled();
    void whileSelectingWithTheMouse();
    void heldKeysCount();
    void noticesMayDelete_data();
    void noticesMayDelete();
};

void tst_GridKeys::arrows_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("atTheEdge");

    QTest::newRow("left") << int(Qt::Key_Left) << "3,2"
                          << "1,1";
    QTest::newRow("up") << int(Qt::Key_Up) << "2,3"
                        << "1,1";
    QTest::newRow("right") << int(Qt::Key_Right) << "3,5"
                           << "5,5"; // column 4 is hidden
    QTest::newRow("down") << int(Qt::Key_Down) << "5,3"
                          << "5,5"; // row 4 is hidden
}

void tst_GridKeys::arrows()
{
    QFETCH(int, key);
    QFETCH(QString, focus);
    QFETCH(QString, atTheEdge);
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetColumnWidth(4, 0);
    host.grid->SetRowHeight(4, 0);
    host.grid->SetFocusCell(3, 3);
    QTest::keyClick(host.widget, static_cast<Qt::Key>(key));
    QCOMPARE(host.focus(), focus);
    QCOMPARE(host.selected(), focus);
    QCOMPARE(host.grid->m_MouseMode, 0);
    const int edge = atTheEdge == QStringLiteral("1,1") ? 1 : 5;
    host.grid->SetFocusCell(edge, edge);
    host.window.take();
    QTest::keyClick(host.widget, static_cast<Qt::Key>(key));
    QCOMPARE(host.focus(), atTheEdge);
    QCOMPARE(host.window.take(), QString());
}

void tst_GridKeys::shiftExtends()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    QTest::keyClick(host.widget, Qt::Key_Right);
    QTest::keyClick(host.widget, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(host.widget, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(host.focus(), QStringLiteral("3,2"));
    QCOMPARE(host.selected(), QStringLiteral("2,2 2,3 3,2 3,3"));
    QTest::keyClick(host.widget, Qt::Key_Down);
    QCOMPARE(host.selected(), QStringLiteral("4,2"));
}

void tst_GridKeys::shiftWithoutAnAnchor()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    QTest::keyClick(host.widget, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(host.selected(), QStringLiteral("2,2 3,2"));
}

void tst_GridKeys::controlAndArrows()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    QTest::keyClick(host.widget, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(host.focus(), QStringLiteral("3,2"));
}

void tst_GridKeys::tab_data()
{
    QTest::addColumn<QPoint>("from"); // column, row
    QTest::addColumn<bool>("back");
    QTest::addColumn<QString>("focus");

    QTest::newRow("right") << QPoint(1, 1) << false << "1,2";
    QTest::newRow("over a hidden column") << QPoint(2, 1) << false << "1,4";
    QTest::newRow("to the next row") << QPoint(4, 1) << false << "2,1";
    QTest::newRow("over a hidden row") << QPoint(4, 2) << false << "4,1";
    QTest::newRow("back") << QPoint(2, 1) << true << "1,1";
    QTest::newRow("back over a hidden column") << QPoint(4, 1) << true << "1,2";
    QTest::newRow("back to the row before") << QPoint(1, 2) << true << "1,4";
    QTest::newRow("back over a hidden row") << QPoint(1, 4) << true << "2,4";
}

void tst_GridKeys::tab()
{
    QFETCH(QPoint, from);
    QFETCH(bool, back);
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetColumnWidth(3, 0);
    host.grid->SetColumnWidth(5, 0);
    host.grid->SetRowHeight(3, 0);
    host.grid->SetFocusCell(from.y(), from.x());
    if (back)
        QTest::keyClick(host.widget, Qt::Key_Backtab, Qt::ShiftModifier);
    else
        QTest::keyClick(host.widget, Qt::Key_Tab);
    QTEST(host.focus(), "focus");
    QCOMPARE(host.selected(), host.focus()); // Shift does not extend here
    QCoreApplication::sendPostedEvents();
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
    QVERIFY(host.widget->hasFocus());
}

void tst_GridKeys::tabLeavesTheGrid()
{
    KeyedWindow host(3, 3);
    auto* const before = new QLineEdit(host.window.GetSafeHwnd());
    auto* const after = new QLineEdit(host.window.GetSafeHwnd());
    QWidget::setTabOrder(before, host.widget);
    QWidget::setTabOrder(host.widget, after);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    QTest::keyClick(host.widget, Qt::Key_Tab);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    QCOMPARE(QApplication::focusWidget(), after);
    host.widget->setFocus();
    host.grid->SetFocusCell(1, 1);
    QTest::keyClick(host.widget, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(host.focus(), QStringLiteral("1,1"));
    QCOMPARE(QApplication::focusWidget(), before);
}

void tst_GridKeys::tabIsNotHandled()
{
    KeyedWindow host(3, 3);
    auto* const after = new QLineEdit(host.window.GetSafeHwnd());
    QWidget::setTabOrder(host.widget, after);
    QVERIFY(host.comeUp());
    host.grid->m_bHandleTabKey = FALSE;
    host.grid->SetFocusCell(1, 1);
    QTest::keyClick(host.widget, Qt::Key_Tab);
    QCOMPARE(host.focus(), QStringLiteral("1,1"));
    QCOMPARE(QApplication::focusWidget(), after);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
}

void tst_GridKeys::pages()
{
    KeyedWindow host(100, 3, 1, 1, {300, 120}); // 100 pixels, five rows, a page
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 1);
    QTest::keyClick(host.widget, Qt::Key_PageDown);
    QCOMPARE(host.grid->GetScrollPos32(SB_VERT), 100);
    QCOMPARE(host.focus(), QStringLiteral("7,1"));
    QTest::keyClick(host.widget, Qt::Key_PageUp);
    QCOMPARE(host.focus(), QStringLiteral("2,1"));
    QTest::keyClick(host.widget, Qt::Key_PageUp);
    QCOMPARE(host.focus(), QStringLiteral("1,1")); // nothing to scroll: the first row
    host.grid->SetScrollPos32(SB_VERT, host.grid->m_nVScrollMax);
    host.grid->SetFocusCell(96, 1);
    QTest::keyClick(host.widget, Qt::Key_PageDown);
    QCOMPARE(host.focus(), QStringLiteral("99,1"));
}

void tst_GridKeys::pageToAHiddenRow()
{
    KeyedWindow host(100, 3, 1, 1, {300, 120});
    QVERIFY(host.comeUp());
    host.grid->SetRowHeight(7, 0);
    host.grid->SetRowHeight(99, 0);
    host.grid->SetFocusCell(2, 1);
    QTest::keyClick(host.widget, Qt::Key_PageDown);
    QCOMPARE(host.focus(), QStringLiteral("8,1"));
    host.grid->SetScrollPos32(SB_VERT, host.grid->m_nVScrollMax);
    QTest::keyClick(host.widget, Qt::Key_PageDown);
    QCOMPARE(host.focus(), QStringLiteral("98,1"));
}

void tst_GridKeys::homeAndEnd_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("control");
    QTest::addColumn<QString>("focus");

    QTest::newRow("home") << int(Qt::Key_Home) << false << "3,2"; // column 1 is hidden
    QTest::newRow("end") << int(Qt::Key_End) << false << "3,8";   // so is the last one
    QTest::newRow("home of the grid") << int(Qt::Key_Home) << true << "2,2";
    QTest::newRow("end of the grid") << int(Qt::Key_End) << true << "18,8";
}

void tst_GridKeys::homeAndEnd()
{
    QFETCH(int, key);
    QFETCH(bool, control);
    KeyedWindow host(20, 10, 1, 1, {200, 100});
    QVERIFY(host.comeUp());
    for (const int line : {1, 9})
        host.grid->SetColumnWidth(line, 0);
    for (const int line : {1, 19})
        host.grid->SetRowHeight(line, 0);
    host.grid->SetFocusCell(3, 3);
    QTest::keyClick(host.widget, static_cast<Qt::Key>(key), control ? Qt::ControlModifier : Qt::NoModifier);
    QTEST(host.focus(), "focus");
    const bool isEnd = key == Qt::Key_End;
    QCOMPARE(host.grid->GetScrollPos32(SB_HORZ), isEnd ? host.grid->m_nHScrollMax : 0);
    QCOMPARE(host.grid->GetScrollPos32(SB_VERT), isEnd && control ? host.grid->m_nVScrollMax : 0);
}

void tst_GridKeys::scrollsToTheFocus()
{
    KeyedWindow host(100, 20, 1, 1, {217, 117}); // four columns and five rows are seen
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(4, 1);
    QTest::keyClick(host.widget, Qt::Key_Down);
    QVERIFY(host.grid->IsCellVisible(5, 1));
    QVERIFY(host.grid->GetScrollPos32(SB_VERT) > 0);
    host.grid->SetFocusCell(5, 3);
    QTest::keyClick(host.widget, Qt::Key_Right);
    QVERIFY(host.grid->IsCellVisible(5, 4));
    QVERIFY(host.grid->GetScrollPos32(SB_HORZ) > 0);
    host.grid->SetScrollPos32(SB_VERT, 0);
    host.grid->SetFocusCell(3, 19);
    host.grid->EnsureVisible(3, 19);
    QTest::keyClick(host.widget, Qt::Key_Tab);
    QCOMPARE(host.focus(), QStringLiteral("4,1"));
    QCOMPARE(host.grid->GetScrollPos32(SB_HORZ), 0);
}

void tst_GridKeys::anArrowInsideDoesNotScroll()
{
    KeyedWindow host(100, 20, 1, 1, {217, 117});
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(1, 1);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Tab, Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(host.widget, key);
    QCOMPARE(host.grid->GetScrollPos32(SB_VERT), 0);
    QCOMPARE(host.grid->GetScrollPos32(SB_HORZ), 0);
}

void tst_GridKeys::listModeKeys()
{
    KeyedWindow host(6, 3);
    QVERIFY(host.comeUp());
    host.grid->m_bListMode = TRUE;
    host.grid->SetFocusCell(2, 1);
    QTest::keyClick(host.widget, Qt::Key_Down);
    QCOMPARE(host.selected(), QStringLiteral("3,1 3,2"));
    QTest::keyClick(host.widget, Qt::Key_Down); // the mode that the first left behind means nothing
    QCOMPARE(host.selected(), QStringLiteral("4,1 4,2"));
    QTest::keyClick(host.widget, Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(host.selected(), QStringLiteral("3,1 3,2 4,1 4,2"));
}

void tst_GridKeys::deleteClears()
{
    KeyedWindow host(4, 4);
    host.fill();
    host.grid->SetModified(FALSE);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(1, 1, 3, 3);
    host.window.take();
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.window.take(), QStringLiteral("BEGIN(2, 2) END(2, 2)"));
    QVERIFY(host.grid->GetItemText(2, 2).IsEmpty());
    QVERIFY(host.grid->GetItemText(1, 1) == L"1,1"); // one cell alone
    QCOMPARE(host.grid->GetModified(2, 2), 1);
    QTest::qWait(0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString()); // its character opens no editor
}

void tst_GridKeys::deleteOnAReadOnlyCell()
{
    KeyedWindow host(4, 4);
    host.fill();
    QVERIFY(host.comeUp());
    host.grid->SetItemState(2, 2, CGridCellBase_X::ReadOnly);
    host.grid->SetFocusCell(2, 2);
    host.window.take();
    const PassedKeys passed(host.window.GetSafeHwnd());
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.window.take(), QString());
    QVERIFY(host.grid->GetItemText(2, 2) == L"2,2");
    QVERIFY(passed.keys.isEmpty()); // consumed
}

void tst_GridKeys::deleteAndNotices()
{
    KeyedWindow host(4, 4);
    host.fill();
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.window.onNotice = [&host](const XeGridNotification&) { host.grid->DeleteAllItems(); };
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.grid->GetRowCount(), 0);
}

void tst_GridKeys::f2Edits()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    QTest::keyClick(host.widget, Qt::Key_F2);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 1"));
}

void tst_GridKeys::characters_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("edit");

    QTest::newRow("a letter") << int(Qt::Key_A) << "a" << 0 << "2,3 -1 -1 97";
    QTest::newRow("with Shift") << int(Qt::Key_A) << "A" << int(Qt::ShiftModifier) << "2,3 -1 -1 65";
    QTest::newRow("a Chinese one") << int(Qt::Key_unknown) << QString::fromUtf8("世") << 0 << "2,3 -1 -1 19990";
    QTest::newRow("beyond 16 bits") << int(Qt::Key_unknown) << QString::fromUtf8("😀") << 0 << "2,3 -1 -1 128512";
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << "\b" << 0 << "2,3 -1 -1 8";
    QTest::newRow("a blank") << int(Qt::Key_Space) << " " << 0 << "2,3 -1 -1 32";
    QTest::newRow("with Ctrl") << int(Qt::Key_B) << "\x02" << int(Qt::ControlModifier) << "";
    QTest::newRow("another control character") << int(Qt::Key_B) << "\x02" << 0 << "";
    QTest::newRow("Return") << int(Qt::Key_Return) << "\r" << 0 << "";
    QTest::newRow("Esc") << int(Qt::Key_Escape) << "\x1b" << 0 << "";
    QTest::newRow("Delete's") << int(Qt::Key_unknown) << "\x7f" << 0 << "";
    QTest::newRow("Tab") << int(Qt::Key_unknown) << "\t" << 0 << "";
}

void tst_GridKeys::characters()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(int, modifiers);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
    QCoreApplication::sendEvent(host.widget, &press);
    QCoreApplication::sendPostedEvents(host.widget);
    QTEST(KeyedGrid::take(host.grid->edits), "edit");
}

void tst_GridKeys::charactersWithoutTheFocus()
{
    KeyedWindow host(4, 4);
    auto* const other = new QLineEdit(host.window.GetSafeHwnd());
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    other->setFocus();
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
    host.widget->setFocus();
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_CELLS;
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_ROW; // left behind, with no button held
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 97"));
    host.grid->m_bHandleTabKey = FALSE;
    host.grid->OnChar(9, 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 9"));
}

void tst_GridKeys::commands_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("commands");

    const int control = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    QTest::newRow("Ctrl+C") << int(Qt::Key_C) << control << "copy";
    QTest::newRow("Ctrl+Insert") << int(Qt::Key_Insert) << control << "copy";
    QTest::newRow("Ctrl+A") << int(Qt::Key_A) << control << "all";
    QTest::newRow("Ctrl+V") << int(Qt::Key_V) << control << "paste";
    QTest::newRow("Ctrl+X") << int(Qt::Key_X) << control << "cut";
    QTest::newRow("Shift+Insert") << int(Qt::Key_Insert) << shift << "paste";
    QTest::newRow("Ctrl+Shift+Insert") << int(Qt::Key_Insert) << (control | shift) << "copy; paste";
    QTest::newRow("Insert") << int(Qt::Key_Insert) << 0 << "";
    QTest::newRow("C") << int(Qt::Key_C) << 0 << "";
    QTest::newRow("Ctrl+B") << int(Qt::Key_B) << control << "";
}

void tst_GridKeys::commands()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    const PassedKeys passed(host.window.GetSafeHwnd());
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(host.widget, &press);
    QTEST(KeyedGrid::take(host.grid->commands), "commands");
    QCOMPARE(passed.keys, QStringList(QString::number(key, 16))); // and the window sees the key too
    host.grid->SetFocusCell(-1, -1);
    QCoreApplication::sendEvent(host.widget, &press);
    QCOMPARE(KeyedGrid::take(host.grid->commands), QString());
}

void tst_GridKeys::otherKeysGoOn_data()
{
    QTest::addColumn<int>("key");

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_F1, Qt::Key_F3, Qt::Key_Menu,
                              Qt::Key_Space, Qt::Key_Shift})
        QTest::newRow(qPrintable(QString::number(key, 16))) << int(key);
}

void tst_GridKeys::otherKeysGoOn()
{
    QFETCH(int, key);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    const PassedKeys passed(host.window.GetSafeHwnd());
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(host.widget, &press);
    QCOMPARE(passed.keys.size(), 1);
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
}

void tst_GridKeys::withoutAFocusCell()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    const PassedKeys passed(host.window.GetSafeHwnd());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Home})
        QTest::keyClick(host.widget, key);
    QCOMPARE(passed.keys.size(), 4);
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
}

void tst_GridKeys::disabled()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.widget->setEnabled(false);
    host.grid->OnKeyDown(VK_DOWN, 1, 0);
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
}

void tst_GridKeys::whileSelectingWithTheMouse()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(1, 1, 2, 2);
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_CELLS;
    host.grid->OnKeyDown(VK_DOWN, 0, 0);
    QCOMPARE(host.focus(), QStringLiteral("3,2"));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2")); // the mouse selects
}

void tst_GridKeys::heldKeysCount()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->OnKeyDown('C', 1, MK_CONTROL);
    QCOMPARE(KeyedGrid::take(host.grid->commands), QStringLiteral("copy"));
    host.grid->OnKeyDown(VK_RIGHT, 1, 0);
    host.grid->OnKeyDown(VK_DOWN, 1, MK_SHIFT);
    QCOMPARE(host.selected(), QStringLiteral("2,3 3,3"));
}

void tst_GridKeys::noticesMayDelete_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<UINT>("code");

    QTest::newRow("an arrow, when the focus leaves") << int(Qt::Key_Down) << LVN_ITEMCHANGING;
    QTest::newRow("an arrow, when the focus has come") << int(Qt::Key_Down) << LVN_ITEMCHANGED;
    QTest::newRow("Delete, before") << int(Qt::Key_Delete) << LVN_BEGINLABELEDITW;
    QTest::newRow("Delete, after") << int(Qt::Key_Delete) << LVN_ENDLABELEDITW;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << LVN_ITEMCHANGED;
    QTest::newRow("Shift+Tab") << int(Qt::Key_Backtab) << LVN_ITEMCHANGING;
}

void tst_GridKeys::noticesMayDelete()
{
    QFETCH(int, key);
    QFETCH(UINT, code);
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code == code)
            host.grid.reset();
    };
    QTest::keyPress(host.widget, static_cast<Qt::Key>(key));
    QVERIFY(!host.grid);
}

XE_TEST(tst_GridKeys)

#include "tst_gridkeys.moc"
