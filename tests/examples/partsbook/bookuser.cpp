#include "bookuser.h"

#include "leavenothing.h"
#include "resource.h"
#include "samplelines.h"

#include <QTest>

void BookUser::comeUp(const QByteArray& book, const QString& fileName)
{
    m_folder.reset(new QTemporaryDir);
    m_path = m_folder->filePath(fileName);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(book);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(path()));
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    const auto isActive = [this] {
        window()->activateWindow();
        return window()->isActiveWindow();
    };
    QVERIFY(QTest::qWaitFor(isActive));
    QTRY_COMPARE(window()->mapToGlobal({0, 0}), m_input.windowOrigin(window()->winId()));
}

void BookUser::goAway()
{
    m_input.releaseAll();
    if (m_frame && m_frame->GetSafeHwnd())
        m_frame->DestroyWindow();
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

QByteArray BookUser::saved()
{
    command(ID_FILE_SAVE)->trigger();
    return contentOf(path());
}

QPoint BookUser::onScreen(const QWidget* widget, QPoint place) const
{
    return m_input.windowOrigin(widget->window()->winId()) + widget->mapTo(widget->window(), place);
}

void BookUser::clickAt(QPoint place, unsigned button)
{
    m_input.movePointer(place);
    m_input.clickButton(button);
}

// What the keyboard has without Shift.
void BookUser::type(const QString& text)
{
    for (const QChar ch : text)
        m_input.typeKey(ch.unicode());
}
