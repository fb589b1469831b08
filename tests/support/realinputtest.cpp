#include "realinputtest.h"

#include "leavenothing.h"

#include <QTest>
#include <QWidget>

void RealInputTest::initTestCase() { QVERIFY(m_input.isUsable()); }

void RealInputTest::init() { m_input.movePointer({1200, 1000}); }

void RealInputTest::cleanup()
{
    m_input.releaseAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void RealInputTest::typeChord(const Keys& keys)
{
    for (int i = 0; i + 1 < keys.size(); ++i)
        m_input.pressKey(keys[i]);
    m_input.typeKey(keys.last());
    m_input.releaseAll();
}

void RealInputTest::clickAt(const QWidget& window, QPoint place, unsigned button)
{
    m_input.movePointer(m_input.windowOrigin(window.winId()) + place);
    m_input.clickButton(button);
}

#include "realinputtest.moc"
