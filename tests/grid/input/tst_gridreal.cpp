// The grid as a user has it: a real pointer and a real keyboard.

#include "realgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScopeGuard>

namespace {

constexpr unsigned long keyTab = 0xFF09;
constexpr unsigned long keyDown = 0xFF54;
constexpr unsigned long keyShift = 0xFFE1;
constexpr unsigned long keyControl = 0xFFE3;
constexpr unsigned long keyDelete = 0xFFFF;

} // namespace

class tst_GridReal : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void dragPastTheEdge();
    void shiftTabGoesBack();
    void copiesByTheKeyboard();
    void deleteOpensNoEditor();
    void wheelMovesARow();
    void tipGivesThePressOn();
    void dividerIsDragged();
    void pointerShapes();
};

void tst_GridReal::dragPastTheEdge()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(host.middleOf(2, 1));
    host.press();
    QTRY_COMPARE(host.focus(), QStringLiteral("2,1"));
    host.moveTo(host.middleOf(4, 2));
    QTRY_COMPARE(host.focus(), QStringLiteral("4,2"));
    QCOMPARE(host.grid->m_SelectedCellMap.GetCount(), 6LL);
    host.moveTo(QPoint(120, 250)); // below: the timer goes on
    QTRY_VERIFY(host.grid->m_idCurrentCell.row > 20);
    host.moveTo(host.middleOf(host.grid->m_idCurrentCell.row - 3, 2));
    host.release();
    QTRY_COMPARE(host.grid->m_bLMouseButtonDown, 0);
    const CCellRange_X selected = host.grid->GetSelectedCellRange();
    QCOMPARE(selected.m_nMinRow, 2);
    QCOMPARE(selected.m_nMinCol, 1);
    QCOMPARE(selected.m_nMaxCol, 2);
}

void tst_GridReal::shiftTabGoesBack()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    host.type(keyTab);
    QTRY_COMPARE(host.focus(), QStringLiteral("2,3"));
    m_input.pressKey(keyShift);
    host.type(keyTab);
    host.type(keyTab);
    m_input.releaseKey(keyShift);
    QTRY_COMPARE(host.focus(), QStringLiteral("2,1"));
    QCOMPARE(host.grid->IsItemEditing(2, 1), 0);
}

void tst_GridReal::copiesByTheKeyboard()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    m_input.pressKey(keyShift);
    host.type(keyDown);
    m_input.releaseKey(keyShift);
    QTRY_COMPARE(host.selected(), QStringLiteral("2,2 3,2"));
    m_input.pressKey(keyControl);
    host.type('c');
    m_input.releaseKey(keyControl);
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("2,2\n3,2"));
    QCOMPARE(host.grid->IsItemEditing(3, 2), 0);
}

void tst_GridReal::deleteOpensNoEditor()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.grid->SetFocusCell(2, 2);
    host.type(keyDelete);
    QTRY_VERIFY(host.grid->GetItemText(2, 2).IsEmpty());
    host.settle();
    QCOMPARE(host.grid->IsItemEditing(2, 2), 0);
}

void tst_GridReal::wheelMovesARow()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(host.middleOf(2, 2));
    m_input.clickButton(5);
    QTRY_COMPARE(host.grid->GetTopleftNonFixedCell().row, 2);
    m_input.clickButton(4);
    QTRY_COMPARE(host.grid->GetTopleftNonFixedCell().row, 1);
}

void tst_GridReal::tipGivesThePressOn()
{
    RealGrid host(m_input);
    host.grid->SetItemText(2, 2, L"a text that does not fit into the cell");
    QVERIFY(host.isReady());
    // Until nothing of the window's coming up takes it away again.
    const auto showsTip = [&host] {
        host.moveTo(host.middleOf(2, 2) - QPoint(10, 0));
        host.moveTo(host.middleOf(2, 2));
        return host.grid->m_TitleTip.IsWindowVisible();
    };
    QTRY_VERIFY(showsTip());
    host.press();
    QTRY_COMPARE(host.focus(), QStringLiteral("2,2"));
    QVERIFY(!host.grid->m_TitleTip.IsWindowVisible());
    host.release();
    QTRY_COMPARE(host.grid->m_bLMouseButtonDown, 0);
    host.moveTo(host.middleOf(2, 2) + QPoint(3, 0));
    QTRY_VERIFY(host.grid->m_TitleTip.IsWindowVisible());
    host.moveTo(host.middleOf(2, 3));
    QTRY_VERIFY(!host.grid->m_TitleTip.IsWindowVisible());
    QTRY_COMPARE(host.grid->m_LastMousePoint, CPoint(host.middleOf(2, 3).x(), host.middleOf(2, 3).y()));
}

void tst_GridReal::dividerIsDragged()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(QPoint(99, 10));
    QTRY_COMPARE(host.grid->m_MouseMode, 8);
    host.press();
    host.moveTo(QPoint(115, 12));
    QTRY_COMPARE(host.grid->m_rcResizing.left, 115);
    host.release();
    QTRY_COMPARE(host.grid->GetColumnWidth(1), 65);
    host.moveTo(QPoint(114, 12));
    QTRY_COMPARE(host.grid->m_MouseMode, 8);
    host.grid->SetItemText(3, 1, L"a wider text than the column");
    const int interval = QApplication::doubleClickInterval();
    const auto restore = qScopeGuard([interval] { QApplication::setDoubleClickInterval(interval); });
    QApplication::setDoubleClickInterval(30000);
    host.press(); // each part has arrived before the next one: a busy window manager loses what comes at once
    QTRY_COMPARE(host.grid->m_MouseMode, 9);
    host.release();
    QTRY_VERIFY(!QWidget::mouseGrabber());
    host.press();
    QTRY_COMPARE(host.grid->GetColumnWidth(1), static_cast<int>(host.grid->cellAt(3, 1)->GetCellExtent().cx));
    host.release();
}

void tst_GridReal::pointerShapes()
{
    RealGrid host(m_input);
    QVERIFY(host.isReady());
    host.moveTo(QPoint(99, 10));
    QTRY_COMPARE(host.widget->cursor().shape(), Qt::SizeHorCursor);
    host.moveTo(QPoint(10, 39));
    QTRY_COMPARE(host.widget->cursor().shape(), Qt::SizeVerCursor);
    host.moveTo(host.middleOf(2, 2));
    QTRY_COMPARE(host.widget->cursor().shape(), Qt::ArrowCursor);
}

XE_TEST(tst_GridReal)

#include "tst_gridreal.moc"
