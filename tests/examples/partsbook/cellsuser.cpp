#include "cellsuser.h"

#include "leavenothing.h"
#include "resource.h"
#include "samplelines.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>
#include <xeresource.h>

void CellsUser::comeUp()
{
    QApplication::setDoubleClickInterval(100); // less to wait for between two clicks
    m_folder.reset(new QTemporaryDir);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(headingLine + screw + bearing + nut + motor);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(path()));
    table().showAllColumns();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    const auto isActive = [this] {
        window()->activateWindow();
        return window()->isActiveWindow();
    };
    QVERIFY(QTest::qWaitFor(isActive));
    QTRY_COMPARE(window()->mapToGlobal({0, 0}), m_input.windowOrigin(window()->winId()));
}

void CellsUser::goAway()
{
    m_input.releaseAll();
    if (m_frame->GetSafeHwnd())
        m_frame->DestroyWindow();
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(LeaveNothing::leftovers(), QString());
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

QPoint CellsUser::onScreen(const QWidget* widget, QPoint place) const
{
    return m_input.windowOrigin(widget->window()->winId()) + widget->mapTo(widget->window(), place);
}

QPoint CellsUser::placeOf(int row, int column) const
{
    if (column >= 0)
        table().scrollTo(row, column);
    return onScreen(table().widget(), table().center(row, column));
}

void CellsUser::clickAt(QPoint place)
{
    m_input.movePointer(place);
    m_input.clickButton(1);
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

// What the keyboard has without Shift.
void CellsUser::type(const QString& text)
{
    for (const QChar ch : text)
        m_input.typeKey(ch.unicode());
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

QByteArray CellsUser::saved()
{
    window()->findChild<QAction*>(ToStringId(ID_FILE_SAVE))->trigger();
    return contentOf(path());
}
