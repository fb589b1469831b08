// The message window: shows what it receives, counts keys by a hook, and goes with the main window.

#include "leavenothing.h"
#include "messageview.h"
#include "testclass.h"

class tst_PartsbookMessages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isAWindowOfItsOwn();
    void hasTheTextOfTheStringTable();
    void opensAgain();
    void showsWhatItReceives();
    void showsMoreThanThereIsRoomFor();
    void countsKeys();
    void countsAHeldKeyOnce();
    void timerIsAMessage();

private:
    QWidget* view() const { return m_view->GetSafeHwnd(); }
    QString lastLine() const { return m_view->Log().lines().last().text(); }

    QScopedPointer<CWnd_X> m_frame;
    QScopedPointer<CMessageView> m_view;
};

// The hook looks for the window below the host's main window.
void tst_PartsbookMessages::init()
{
    m_frame.reset(new CWnd_X);
    QVERIFY(m_frame->Create(nullptr));
    m_frame->GetSafeHwnd()->setObjectName("CTavoMainFrame");
    m_view.reset(new CMessageView);
    m_view->Open(m_frame.data());
    QVERIFY(QTest::qWaitForWindowActive(view()));
}

void tst_PartsbookMessages::cleanup()
{
    const QPointer<QWidget> widget(view());
    m_frame->DestroyWindow();
    QVERIFY(!m_view->GetSafeHwnd());
    m_view.reset();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
    QVERIFY(!widget);
}

void tst_PartsbookMessages::isAWindowOfItsOwn()
{
    QVERIFY(view()->isWindow());
    QCOMPARE(view()->parentWidget(), m_frame->GetSafeHwnd());
    QCOMPARE(view()->metaObject()->className(), "CTavoView");
}

void tst_PartsbookMessages::hasTheTextOfTheStringTable()
{
    QCOMPARE(view()->windowTitle(), QString("Messages 消息 😀"));
}

void tst_PartsbookMessages::opensAgain()
{
    QWidget* const first = view();
    QVERIFY(first->close());
    QVERIFY(!first->isVisible());
    m_view->Open(m_frame.data());
    QCOMPARE(view(), first);
    QVERIFY(first->isVisible());
}

void tst_PartsbookMessages::showsWhatItReceives()
{
    QTest::mouseClick(view(), Qt::LeftButton, {}, {110, 130});
    QCOMPARE(lastLine(), QString("WM_LBUTTONUP  (110, 130)"));
    const QImage before = view()->grab().toImage();
    QTest::mouseClick(view(), Qt::RightButton, {}, {120, 140});
    QVERIFY(view()->grab().toImage() != before);
}

void tst_PartsbookMessages::showsMoreThanThereIsRoomFor()
{
    const QImage before = view()->grab().toImage();
    for (int i = 0; i < 2 * MessageLog::capacity; ++i)
        QTest::keyClick(view(), Qt::Key_A);
    QVERIFY(view()->grab().toImage() != before);
    QVERIFY(m_view->Log().total() > 2 * MessageLog::capacity);
}

void tst_PartsbookMessages::countsKeys()
{
    QCOMPARE(m_view->Keys(), 0);
    QTest::keyClick(view(), Qt::Key_A);
    QCOMPARE(m_view->Keys(), 1);
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(m_view->Keys(), 2);
}

void tst_PartsbookMessages::countsAHeldKeyOnce()
{
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyRelease(view(), Qt::Key_B);
    QCOMPARE(m_view->Keys(), 1);
}

void tst_PartsbookMessages::timerIsAMessage()
{
    m_view->SendMessage(WM_TIMER, 1002);
    QCOMPARE(lastLine(), QString("WM_TIMER  id 1002"));
}

XE_TEST(tst_PartsbookMessages)
#include "tst_partsbookmessages.moc"
