// Selecting by the mouse: presses, drags, headings and lists, the timer, the cursors, and the tips on the way.

#include "gridwindow.h"
#include "input/mousemove.h"
#include "leavenothing.h"
#include "quietgrab.h"
#include "testclass.h"

#include <QCursor>
#include <QGuiApplication>

class tst_GridMouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { allowOffscreenGrab(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void pressSelectsAndFocuses();
    void shiftExtends();
    void controlAdds();
    void controlOnASelectedCell();
    void clickOnASelectedCell();
    void pressWithDragAllowed();
    void dragSelects();
    void headingsSelect_data();
    void headingsSelect();
    void modeAfterAHeading();
    void dragOverHeadings();
    void listModeRows();
    void listModeControl();
    void listModeSort();
    void timerScrolls();
    void timerWithoutCapture();
    void captureGone();
    void cursors();
    void dragLeaves();
    void tipOpens();
    void noTip_data();
    void noTip();
};

void tst_GridMouse::pressSelectsAndFocuses()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 3));
    QCOMPARE(host.window.take(), QStringLiteral("CHANGED(2, 3)"));
    QCOMPARE(host.selected(), QStringLiteral("2,3"));
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
    QCOMPARE(host.grid->m_MouseMode, 4);
    QCOMPARE(host.grid->m_bLMouseButtonDown, 1);
    QCOMPARE(host.grid->m_nTimerID, 513ul);
    QCOMPARE(host.grid->m_SelectionStartCell, CCellID_X(2, 3));
    QCOMPARE(QWidget::mouseGrabber(), host.widget);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 3));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(host.grid->m_bLMouseButtonDown, 0);
    QCOMPARE(host.grid->m_nTimerID, 0ul);
    QVERIFY(!hasTimer());
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
}

void tst_GridMouse::shiftExtends()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(1, 1));
    QTest::mouseClick(host.widget, Qt::LeftButton, Qt::ShiftModifier, host.middleOf(2, 2));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    host.grid->ResetSelectedRange();
    QTest::mousePress(host.widget, Qt::LeftButton, Qt::ShiftModifier, host.middleOf(3, 3)); // from no cell
    QCOMPARE(host.selected(), QStringLiteral("3,3"));
    moveMouse(host.widget, host.middleOf(4, 4), Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(host.selected(), QStringLiteral("3,3 3,4 4,3 4,4"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, Qt::ShiftModifier, host.middleOf(4, 4));
}

void tst_GridMouse::controlAdds()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(1, 1));
    QTest::mouseClick(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(3, 3));
    QCOMPARE(host.selected(), QStringLiteral("1,1 3,3"));
    QTest::mousePress(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(4, 4));
    moveMouse(host.widget, host.middleOf(5, 4), Qt::LeftButton, Qt::ControlModifier);
    QTest::mouseRelease(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(5, 4));
    QCOMPARE(host.selected(), QStringLiteral("1,1 3,3 4,4 5,4"));
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCOMPARE(host.selected(), QStringLiteral("2,2"));
    QVERIFY(host.grid->m_PrevSelectedCellMap.IsEmpty());
}

void tst_GridMouse::controlOnASelectedCell()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetSelectedRange(1, 1, 2, 2);
    QTest::mousePress(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(2, 1));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,2"));
    QCOMPARE(host.focus(), QStringLiteral("2,1"));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
    QVERIFY(!hasTimer());
    QTest::mouseRelease(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(2, 1));
}

void tst_GridMouse::clickOnASelectedCell()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetSelectedRange(1, 1, 2, 2);
    host.grid->SetFocusCell(1, 1);
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCOMPARE(host.focus(), QStringLiteral("1,1"));
    QCOMPARE(host.selected(), QStringLiteral("2,2"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
}

void tst_GridMouse::pressWithDragAllowed()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->m_bAllowDragAndDrop = TRUE;
    host.grid->SetSelectedRange(1, 1, 2, 2);
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCOMPARE(host.grid->m_MouseMode, 11);
    QCOMPARE(QWidget::mouseGrabber(), host.widget);
    QVERIFY(!hasTimer());
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCOMPARE(host.selected(), QString());
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(QWidget::mouseGrabber(), nullptr);
}

void tst_GridMouse::dragSelects()
{
    GridWindow<> host(6, 6);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(3, 3));
    moveMouse(host.widget, host.middleOf(4, 4), Qt::LeftButton);
    QCOMPARE(host.selected(), QStringLiteral("3,3 3,4 4,3 4,4"));
    QCOMPARE(host.focus(), QStringLiteral("4,4"));
    moveMouse(host.widget, host.middleOf(2, 3), Qt::LeftButton);
    QCOMPARE(host.selected(), QStringLiteral("2,3 3,3"));
    moveMouse(host.widget, QPoint(25, 50), Qt::LeftButton); // over a heading nothing is selected, and the focus stays
    QCOMPARE(host.selected(), QStringLiteral("2,3 3,3"));
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
    moveMouse(host.widget, QPoint(-5, 50), Qt::LeftButton);
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 3));
    QVERIFY(host.window.take().contains(QStringLiteral("CLICK(3, 3)")));
}

void tst_GridMouse::headingsSelect_data()
{
    QTest::addColumn<QPoint>("cell"); // column, row
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("focus");

    QTest::newRow("a column") << QPoint(2, 0) << 2 << "1,2 2,2"
                              << "1,2";
    QTest::newRow("a row") << QPoint(0, 2) << 3 << "2,1 2,2"
                           << "2,1";
    QTest::newRow("the corner") << QPoint(0, 0) << 1 << "1,1 1,2 2,1 2,2"
                                << "1,1";
}

void tst_GridMouse::headingsSelect()
{
    QFETCH(QPoint, cell);
    QFETCH(int, mode);
    QFETCH(QString, selected);
    QFETCH(QString, focus);
    GridWindow<> host(3, 3);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(cell.y(), cell.x()));
    QCOMPARE(host.grid->m_MouseMode, mode);
    QCOMPARE(host.selected(), selected);
    QCOMPARE(host.focus(), focus);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(cell.y(), cell.x()));
    QCOMPARE(host.grid->m_MouseMode, mode);
}

void tst_GridMouse::modeAfterAHeading()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 2));
    QCOMPARE(host.grid->m_MouseMode, 2);
    QCOMPARE(host.widget->cursor().shape(), Qt::ArrowCursor);
    QTest::keyClick(host.widget, Qt::Key_Down); // with no button held it means nothing
    QCOMPARE(host.selected(), QStringLiteral("2,2"));
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 3));
    moveMouse(host.widget, host.middleOf(2, 2));
    QCOMPARE(host.grid->m_MouseMode, 0);
}

void tst_GridMouse::dragOverHeadings()
{
    GridWindow<> host(4, 5);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(0, 2));
    moveMouse(host.widget, host.middleOf(0, 3), Qt::LeftButton);
    QCOMPARE(host.selected(), QStringLiteral("1,2 1,3 2,2 2,3 3,2 3,3"));
    QCOMPARE(host.focus(), QStringLiteral("1,3"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(0, 3));
}

void tst_GridMouse::listModeRows()
{
    GridWindow<> host(6, 3);
    QVERIFY(host.comeUp());
    host.grid->m_bListMode = TRUE;
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCOMPARE(host.grid->m_MouseMode, 3);
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2"));
    moveMouse(host.widget, host.middleOf(3, 1), Qt::LeftButton);
    QCOMPARE(host.selected(), QStringLiteral("2,1 2,2 3,1 3,2"));
    moveMouse(host.widget, host.middleOf(0, 2), Qt::LeftButton); // a heading stands for the first row
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 2,1 2,2"));
    QCOMPARE(host.focus(), QStringLiteral("1,2"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(0, 2));
    host.grid->m_bSingleRowSelection = TRUE;
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(4, 2));
    moveMouse(host.widget, host.middleOf(5, 1), Qt::LeftButton);
    QCOMPARE(host.selected(), QStringLiteral("5,1 5,2"));
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(5, 1));
}

void tst_GridMouse::listModeControl()
{
    GridWindow<> host(6, 3);
    QVERIFY(host.comeUp());
    host.grid->m_bListMode = TRUE;
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(1, 1));
    QTest::mouseClick(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(3, 1));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2 3,1 3,2"));
    QTest::mouseClick(host.widget, Qt::LeftButton, Qt::ControlModifier, host.middleOf(1, 2));
    QCOMPARE(host.selected(), QStringLiteral("3,1 3,2"));
    QCOMPARE(host.focus(), QStringLiteral("1,2"));
}

void tst_GridMouse::listModeSort()
{
    GridWindow<> host(4, 3);
    QVERIFY(host.comeUp());
    host.grid->m_bListMode = TRUE;
    const wchar_t* const texts[] = {L"b", L"c", L"a"};
    for (int row = 1; row < 4; ++row)
        host.grid->SetItemText(row, 1, texts[row - 1]);
    const auto order = [&host] {
        return XeQString(host.grid->GetItemText(1, 1) + host.grid->GetItemText(2, 1) + host.grid->GetItemText(3, 1));
    };
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 1));
    QCOMPARE(order(), QStringLiteral("abc"));
    QCOMPARE(host.grid->m_nSortColumn, 1);
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 1));
    QCOMPARE(order(), QStringLiteral("cba"));
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 0)); // the corner too
    QCOMPARE(host.grid->m_nSortColumn, 0);
    QCOMPARE(host.grid->m_bAscending, 1);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    host.grid->m_bSortOnClick = FALSE;
    QTest::mouseClick(host.widget, Qt::LeftButton, {}, host.middleOf(0, 1));
    QCOMPARE(host.grid->m_nSortColumn, 0);
}

void tst_GridMouse::timerScrolls()
{
    GridWindow<> host(100, 5, 1, 1, {300, 100});
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    QCursor::setPos(host.widget->mapToGlobal(QPoint(120, 140)));
    QTRY_VERIFY(host.grid->m_idCurrentCell.row >= 8);
    QCOMPARE(host.grid->GetSelectedCellRange().m_nMinRow, 2);
    QVERIFY(host.grid->GetSelectedCellRange().m_nMaxRow >= 8);
    QVERIFY(host.grid->GetTopleftNonFixedCell().row > 1);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, QPoint(120, 90));
    QVERIFY(!hasTimer());
    const int row = host.grid->m_idCurrentCell.row;
    host.grid->OnTimer(513); // without the mouse it does nothing
    QCOMPARE(host.grid->m_idCurrentCell.row, row);
}

void tst_GridMouse::timerWithoutCapture()
{
    GridWindow<> host(100, 5);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    CWnd_X::ReleaseCapture(); // the release is lost
    QTRY_VERIFY(!hasTimer());
    QCOMPARE(host.grid->m_nTimerID, 0ul);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
}

void tst_GridMouse::captureGone()
{
    GridWindow<> host(10, 5);
    QVERIFY(host.comeUp());
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
    host.grid->OnCaptureChanged(host.widget);
    QVERIFY(hasTimer());
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_DRAGGING;
    host.grid->OnCaptureChanged(host.window.GetSafeHwnd());
    QVERIFY(!hasTimer());
    QCOMPARE(host.grid->m_nTimerID, 0ul);
    QCOMPARE(host.grid->m_MouseMode, 0);
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(2, 2));
}

void tst_GridMouse::cursors()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    moveMouse(host.widget, QPoint(99, 10));
    QCOMPARE(host.grid->m_MouseMode, 8);
    QCOMPARE(host.widget->cursor().shape(), Qt::SizeHorCursor);
    QCOMPARE(host.grid->OnSetCursor(host.widget, 0, 0), 1);
    moveMouse(host.widget, QPoint(10, 39));
    QCOMPARE(host.grid->m_MouseMode, 6);
    QCOMPARE(host.widget->cursor().shape(), Qt::SizeVerCursor);
    QCOMPARE(host.grid->OnSetCursor(host.widget, 0, 0), 1);
    moveMouse(host.widget, QPoint(75, 30));
    QCOMPARE(host.grid->m_MouseMode, 0);
    QCOMPARE(host.widget->cursor().shape(), Qt::ArrowCursor);
    host.widget->setCursor(Qt::CrossCursor);
    QCursor::setPos(host.widget->mapToGlobal(QPoint(75, 30)));
    QCOMPARE(host.grid->OnSetCursor(host.widget, 0, 0), 1); // a cell sets none
    QCOMPARE(host.widget->cursor().shape(), Qt::CrossCursor);
    QCursor::setPos(host.widget->mapToGlobal(QPoint(290, 190)));
    QCOMPARE(host.grid->OnSetCursor(host.widget, 0, 0), 1);
    QCOMPARE(host.widget->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(host.grid->OnSetCursor(nullptr, 0, 0), 0);
}

void tst_GridMouse::dragLeaves()
{
    GridWindow<> host(4, 4);
    host.grid->OnDragLeave(); // over no cell
    host.grid->SetItemState(1, 1, CGridCellBase_X::DropHilited | CGridCellBase_X::ReadOnly);
    host.grid->m_LastDragOverCell = CCellID_X(1, 1);
    host.grid->OnDragLeave();
    QCOMPARE(host.grid->GetItemState(1, 1), 8u);
}

void tst_GridMouse::tipOpens()
{
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetItemText(1, 1, L"a text that does not fit into the cell");
    host.grid->SetItemText(2, 1, L"i");
    host.grid->m_crTextBkColour = 0x123456;
    host.grid->m_crTTipTextClr = 0x112233;
    moveMouse(host.widget, host.middleOf(1, 1));
    QVERIFY(host.grid->m_TitleTip.IsWindowVisible());
    QCOMPARE(host.grid->m_TitleTip.m_crBackDefault, 0x123456u);
    QCOMPARE(host.grid->m_TitleTip.m_crText, 0x112233u);
    QVERIFY(host.grid->m_TitleTip.m_strTitle == L" a text that does not fit into the cell ");
    QCOMPARE(host.grid->m_TitleTip.GetSafeHwnd()->y(), 38);
    QTest::mousePress(host.widget, Qt::LeftButton, {}, host.middleOf(1, 1));
    QVERIFY(!host.grid->m_TitleTip.IsWindowVisible());
    QTest::mouseRelease(host.widget, Qt::LeftButton, {}, host.middleOf(1, 1));
    moveMouse(host.widget, host.middleOf(2, 1));
    QVERIFY(!host.grid->m_TitleTip.IsWindowVisible());
}

void tst_GridMouse::noTip_data()
{
    QTest::addColumn<QString>("why");

    for (const char* why :
         {"tips are off", "a button is held", "the cell is being edited", "no text", "over a divider"})
        QTest::newRow(why) << QString::fromLatin1(why);
}

void tst_GridMouse::noTip()
{
    QFETCH(QString, why);
    GridWindow<> host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetItemText(1, 1, L"a text that does not fit into the cell");
    host.grid->SetItemText(0, 1, L"a text that does not fit into the cell");
    Qt::MouseButton button = Qt::NoButton;
    QPoint point = host.middleOf(1, 1);
    if (why == QStringLiteral("tips are off"))
        host.grid->m_bTitleTips = FALSE;
    else if (why == QStringLiteral("a button is held"))
        button = Qt::RightButton;
    else if (why == QStringLiteral("the cell is being edited"))
        static_cast<CGridCell_X*>(host.grid->cellAt(1, 1))->m_bEditing = 1;
    else if (why == QStringLiteral("no text"))
        host.grid->SetItemText(1, 1, L"");
    else
        point = QPoint(99, 10);
    moveMouse(host.widget, point, button);
    QVERIFY(!host.grid->m_TitleTip.IsWindowVisible());
    static_cast<CGridCell_X*>(host.grid->cellAt(1, 1))->m_bEditing = 0;
}

XE_TEST(tst_GridMouse)

#include "tst_gridmouse.moc"
