#include "cellsuser.h"

#include "samplelines.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>

void CellsUser::comeUp()
{
    QApplication::setDoubleClickInterval(100); // less to wait for between two clicks
    BookUser::comeUp(headingLine + screw + bearing + nut + motor);
    if (!QTest::currentTestFailed())
        table().showAllColumns();
}

bool CellsUser::isModified() const
{
    m_frame->OnEnterIdle();
    return window()->isWindowModified();
}

QString CellsUser::editedText() const
{
    const auto* const field = qobject_cast<QLineEdit*>(editor());
    return field ? field->text() : QString("none");
}

QString CellsUser::paneText(int pane) const
{
    const auto* const bar = qobject_cast<CStatusBar_X*>(CWnd_X::FromHandle(window()->findChild<QStatusBar*>()));
    return static_cast<const QLabel*>(bar->GetListQWidgets().at(pane))->text();
}

QPoint CellsUser::placeOf(int row, int column) const
{
    if (column >= 0)
        table().scrollTo(row, column);
    return onScreen(table().widget(), table().center(row, column));
}

void CellsUser::click(int row, int column)
{
    clickAt(placeOf(row, column));
    QTRY_COMPARE(table().currentRow(), row);
    QTRY_COMPARE(table().currentColumn(), column);
    QTest::qWait(QApplication::doubleClickInterval() + 20); // the next one is no double click
}

void CellsUser::doubleClick(int row, int column)
{
    QApplication::setDoubleClickInterval(5000);
    clickAt(placeOf(row, column));
    QTRY_COMPARE(table().currentRow(), row); // the window manager loses clicks that follow each other faster
    QTest::qWait(50);
    m_input.clickButton(1);
}

void CellsUser::chord(unsigned long held, unsigned long key)
{
    m_input.pressKey(held);
    m_input.typeKey(key);
    m_input.releaseKey(held);
}

// A click moves the focus there, another one edits.
void CellsUser::open(int row, int column)
{
    click(row, column);
    clickAt(placeOf(row, column));
    QTRY_VERIFY(isEditing() || QApplication::activePopupWidget());
}

void CellsUser::clickItem(const QComboBox* box, int item)
{
    QTRY_VERIFY(box->view()->isVisible());
    const QRect place = box->view()->visualRect(box->model()->index(item, 0));
    QTest::qWait(QApplication::doubleClickInterval()); // Qt takes a release that follows at once for that of the press
    clickAt(onScreen(box->view()->viewport(), {place.left() + 10, place.center().y()}));
}
