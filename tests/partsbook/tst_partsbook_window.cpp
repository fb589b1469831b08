#include "mainframe.h"
#include "messagelog.h"
#include "text.h"

#include <xehook.h>
#include <xeprocess.h>
#include <xeresource.h>

#include <QLabel>
#include <QtTest>

namespace {

const QRgb blue = 0xff1f6fd0;
const QRgb orange = 0xffd97706;
const QRgb green = 0xff2e9e5b;

} // namespace

Q_DECLARE_METATYPE(Qt::MouseButton)

class tst_partsbook_window : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isTheMainWindowOfTheHost();
    void runsNoCommand();
    void setsTheCursor_data();
    void setsTheCursor();
    void viewHasTheKeyboard();
    void textsComeFromTheStringTable();

    void markerFollowsTheButtons_data();
    void markerFollowsTheButtons();
    void markerStaysOnTheSurface();
    void wheelChangesTheMarkersSize();
    void doubleClickRestoresTheMarkersSize();
    void showsMoreMessagesThanThereIsRoomFor();

    void countsKeys();
    void countsAHeldKeyOnce();
    void closingTakesTheWindowAndTheHookAway();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    QWidget* view() const { return window()->findChild<CTavoView*>(); }
    QRgb pixel(int x, int y) const;
    QString status() const { return window()->findChild<QLabel*>()->text(); }
    void turnWheel(int delta);

    QScopedPointer<MessageLog> m_log;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_partsbook_window::init()
{
    m_log.reset(new MessageLog);
    m_frame.reset(new CMainFrame(*m_log));
    QCOMPARE(m_frame->Create(nullptr), 1);
    window()->show();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
}

void tst_partsbook_window::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
}

QRgb tst_partsbook_window::pixel(int x, int y) const { return view()->grab().toImage().pixel(x, y); }

void tst_partsbook_window::turnWheel(int delta)
{
    const QPoint place(100, 200);
    QWheelEvent event(place, view()->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view(), &event);
}

// --------------------------------------------------------------------------------------------------- the main window

void tst_partsbook_window::isTheMainWindowOfTheHost()
{
    QCOMPARE(TavoGetMainFrame(), window());
    QCOMPARE(CWnd_X::FromHandlePermanent(window()), static_cast<CWnd_X*>(m_frame.data()));
    QCOMPARE(window()->metaObject()->className(), "CTavoMainFrame");
    QCOMPARE(view()->metaObject()->className(), "CTavoView");
}

void tst_partsbook_window::runsNoCommand()
{
    const auto isActive = reinterpret_cast<bool (*)()>(window()->property("IsTavoCmdActive").toLongLong());
    QVERIFY(isActive);
    QCOMPARE(isActive(), false);
}

void tst_partsbook_window::setsTheCursor_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<Qt::CursorShape>("shape");

    QTest::newRow("arrow") << 256 << Qt::ArrowCursor;
    QTest::newRow("text") << 257 << Qt::IBeamCursor;
    QTest::newRow("cross") << 258 << Qt::CrossCursor;
    QTest::newRow("wait") << 259 << Qt::WaitCursor;
    QTest::newRow("up and down") << 260 << Qt::SizeVerCursor;
    QTest::newRow("left and right") << 261 << Qt::SizeHorCursor;
    QTest::newRow("rising diagonal") << 262 << Qt::SizeBDiagCursor;
    QTest::newRow("falling diagonal") << 263 << Qt::SizeFDiagCursor;
    QTest::newRow("all directions") << 264 << Qt::SizeAllCursor;
    QTest::newRow("hand") << 268 << Qt::PointingHandCursor;
    QTest::newRow("unknown code") << 265 << Qt::ArrowCursor;
    QTest::newRow("negative code") << -1 << Qt::ArrowCursor;
}

void tst_partsbook_window::setsTheCursor()
{
    QFETCH(const int, code);
    const auto setCursor = reinterpret_cast<int (*)(QWidget*, int)>(window()->property("TavoSetCursor").toLongLong());
    QVERIFY(setCursor);
    window()->setCursor(Qt::ForbiddenCursor);
    QCOMPARE(setCursor(nullptr, code), code);
    QTEST(window()->cursor().shape(), "shape");
}

void tst_partsbook_window::viewHasTheKeyboard() { QCOMPARE(window()->focusWidget(), view()); }

void tst_partsbook_window::textsComeFromTheStringTable()
{
    QCOMPARE(window()->windowTitle(), QString("Parts Book"));
    QVERIFY(loadText(IDS_SURFACE) == L"Drawing surface 绘图区");
    QVERIFY(loadText(IDS_MESSAGES) == L"Messages 消息 😀");
    for (const unsigned id : GetResourceIDMap().keys())
        QVERIFY2(!loadText(id).IsEmpty(), qPrintable(ToStringId(id)));
}

// ---------------------------------------------------------------------------------------------------------- painting

void tst_partsbook_window::markerFollowsTheButtons_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QRgb>("colour");

    QTest::newRow("left") << Qt::LeftButton << blue;
    QTest::newRow("right") << Qt::RightButton << orange;
    QTest::newRow("middle") << Qt::MiddleButton << green;
}

void tst_partsbook_window::markerFollowsTheButtons()
{
    QFETCH(const Qt::MouseButton, button);
    QFETCH(const QRgb, colour);
    QVERIFY(pixel(110, 330) != colour);
    QTest::mouseClick(view(), button, {}, {110, 330});
    QCOMPARE(pixel(110, 330), colour);
}

void tst_partsbook_window::markerStaysOnTheSurface()
{
    QTest::mouseClick(view(), Qt::LeftButton, {}, {110, 330});
    QTest::mouseClick(view(), Qt::RightButton, {}, {view()->width() - 10, 330});
    QCOMPARE(pixel(110, 330), blue);
}

// The marker's arms reach 8 beyond its radius of 24.
void tst_partsbook_window::wheelChangesTheMarkersSize()
{
    QTest::mouseClick(view(), Qt::LeftButton, {}, {110, 330});
    QCOMPARE(pixel(110 + 31, 330), blue);
    QVERIFY(pixel(110 + 37, 330) != blue);
    turnWheel(120);
    QCOMPARE(pixel(110 + 37, 330), blue);
    turnWheel(-240);
    QVERIFY(pixel(110 + 31, 330) != blue);
    QCOMPARE(pixel(110 + 25, 330), blue);
}

void tst_partsbook_window::doubleClickRestoresTheMarkersSize()
{
    QTest::mouseClick(view(), Qt::LeftButton, {}, {110, 330});
    turnWheel(-360);
    QVERIFY(pixel(110 + 31, 330) != blue);
    QTest::mouseDClick(view(), Qt::LeftButton, {}, {110, 330});
    QCOMPARE(pixel(110 + 31, 330), blue);
}

void tst_partsbook_window::showsMoreMessagesThanThereIsRoomFor()
{
    const QImage before = view()->grab().toImage();
    for (int i = 0; i < 2 * MessageLog::capacity; ++i)
        QTest::keyClick(view(), Qt::Key_A);
    QVERIFY(view()->grab().toImage() != before);
    QVERIFY(m_log->total() > 2 * MessageLog::capacity);
}

// --------------------------------------------------------------------------------------------------- keys and the end

void tst_partsbook_window::countsKeys()
{
    QCOMPARE(status(), QString("Keys pressed: 0"));
    QTest::keyClick(view(), Qt::Key_A);
    QCOMPARE(status(), QString("Keys pressed: 1    Last: VK 'A'"));
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(status(), QString("Keys pressed: 2    Last: VK_RETURN"));
}

void tst_partsbook_window::countsAHeldKeyOnce()
{
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyPress(view(), Qt::Key_B);
    QTest::keyRelease(view(), Qt::Key_B);
    QCOMPARE(status(), QString("Keys pressed: 1    Last: VK 'B'"));
}

void tst_partsbook_window::closingTakesTheWindowAndTheHookAway()
{
    const QPointer<QWidget> closed(window());
    QVERIFY(closed->close());
    QVERIFY(!m_frame->GetSafeHwnd());
    QVERIFY(!closed->isVisible());
    QVERIFY(GetGlobalEventHandler()->IsEmptyHookChain());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!closed);
}

QTEST_MAIN(tst_partsbook_window)
#include "tst_partsbook_window.moc"
