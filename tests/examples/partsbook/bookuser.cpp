#include "bookuser.h"

#include "resource.h"

#include <QTest>

void BookUser::comeUp(const QByteArray& book, const QString& fileName)
{
    BookFrame::comeUp(fileName);
    write(book);
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
    BookFrame::goAway();
}

QByteArray BookUser::saved()
{
    command(ID_FILE_SAVE)->trigger();
    return content();
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
