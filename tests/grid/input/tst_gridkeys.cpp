// Keys that move the focus cell of a grid, and that select.

#include "input/keyedgrid.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QApplication>
#include <QLineEdit>

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
    void whileSelectingWithTheMouse();
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

XE_TEST(tst_GridKeys)

#include "tst_gridkeys.moc"
