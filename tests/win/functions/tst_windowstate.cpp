// Shown or hidden, enabled, minimised, maximised.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// Counts the events that were posted to it.
class Letterbox : public QObject
{
public:
    void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        ++received;
        return true;
    }

    int received = 0;
};

class PaintedWidget : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

} // namespace

class tst_WindowState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void nullWindow();
    void anyPointerIsAWindow();
    void visibility();
    void enabling_data();
    void enabling();
    void childOfADisabledParentIsDisabled();
    void closeWindowToggles();
    void minimisedAndMaximised();
    void openIconRestoresAndFocuses();
    void copiedIcon();

    void hidingATopLevelWindowStoresItsPlace();
    void showingATopLevelWindowRestoresItsPlace_data();
    void showingATopLevelWindowRestoresItsPlace();
    void showingForTheFirstTimeMovesNothing();
    void childHasNoStoredPlace();
    void hiddenByQtHasNoStoredPlace();
    void eventsAreProcessedForAWindowThatIsNotActive();
    void eventsStayQueuedForTheRest();
    void otherCommandsDoNothing_data();
    void otherCommandsDoNothing();

    void updateDoesNotPaintAtOnce();
};

void tst_WindowState::nullWindow()
{
    QCOMPARE(IsWindow_X(nullptr), 0);
    QCOMPARE(IsWindowVisible_X(nullptr), 0);
    QCOMPARE(IsWindowEnabled_X(nullptr), 0);
    QCOMPARE(EnableWindow_X(nullptr, TRUE), 0);
    QCOMPARE(IsIconic_X(nullptr), 0);
    QCOMPARE(IsZoomed_X(nullptr), 0);
    QCOMPARE(CloseWindow_X(nullptr), 0);
    QCOMPARE(OpenIcon_X(nullptr), 0);
    QCOMPARE(ShowWindow_X(nullptr, SW_HIDE), 0);
    QCOMPARE(ShowWindow_X(nullptr, SW_SHOW), 0);
    QCOMPARE(ShowWindow_X(nullptr, SW_MAXIMIZE), 0);
    QCOMPARE(UpdateWindow_X(nullptr), 0);
}

void tst_WindowState::anyPointerIsAWindow()
{
    auto* const widget = new QWidget;
    const auto address = reinterpret_cast<quintptr>(widget);
    QCOMPARE(IsWindow_X(widget), 1);
    delete widget;
    QCOMPARE(IsWindow_X(reinterpret_cast<QWidget*>(address)), 1);
}

void tst_WindowState::visibility()
{
    QWidget parent;
    auto* const shown = new QWidget(&parent);
    auto* const hidden = new QWidget(&parent);
    hidden->hide();
    QCOMPARE(IsWindowVisible_X(&parent), 0);
    QVERIFY(!shown->isVisible());
    QCOMPARE(IsWindowVisible_X(shown), 1); // although its parent is hidden
    QCOMPARE(IsWindowVisible_X(hidden), 0);

    parent.show();
    QCOMPARE(IsWindowVisible_X(&parent), 1);
    QCOMPARE(IsWindowVisible_X(shown), 1);
    QCOMPARE(IsWindowVisible_X(hidden), 0);
}

void tst_WindowState::enabling_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<int>("enable");
    QTest::newRow("enabled one stays") << true << 1;
    QTest::newRow("enabled one is disabled") << true << 0;
    QTest::newRow("disabled one is enabled") << false << 1;
    QTest::newRow("disabled one stays") << false << 0;
    QTest::newRow("any number that is not 0 enables") << false << -2;
}

void tst_WindowState::enabling()
{
    QFETCH(bool, before);
    QFETCH(int, enable);
    QWidget widget;
    widget.setEnabled(before);
    QCOMPARE(IsWindowEnabled_X(&widget), before ? 1 : 0);
    QCOMPARE(EnableWindow_X(&widget, enable), before ? 1 : 0);
    QCOMPARE(widget.isEnabled(), enable != 0);
}

void tst_WindowState::childOfADisabledParentIsDisabled()
{
    QWidget parent;
    auto* const child = new QWidget(&parent);
    EnableWindow_X(&parent, FALSE);
    QCOMPARE(IsWindowEnabled_X(child), 0);
    QCOMPARE(EnableWindow_X(&parent, TRUE), 0);
    QCOMPARE(IsWindowEnabled_X(child), 1);
}

void tst_WindowState::closeWindowToggles()
{
    QWidget window;
    window.show();
    QCOMPARE(IsIconic_X(&window), 0);
    QCOMPARE(CloseWindow_X(&window), 1);
    QCOMPARE(IsIconic_X(&window), 1);
    QVERIFY(window.isMinimized());
    QCOMPARE(CloseWindow_X(&window), 1);
    QCOMPARE(IsIconic_X(&window), 0);
    QVERIFY(!window.isMinimized());
    QVERIFY(window.isVisible());
}

void tst_WindowState::minimisedAndMaximised()
{
    QWidget window;
    window.showMaximized();
    QCOMPARE(IsZoomed_X(&window), 1);
    QCOMPARE(IsIconic_X(&window), 0);
    window.showMinimized();
    QCOMPARE(IsIconic_X(&window), 1);
    window.showNormal();
    QCOMPARE(IsZoomed_X(&window), 0);
    QCOMPARE(IsIconic_X(&window), 0);
}

void tst_WindowState::openIconRestoresAndFocuses()
{
    QWidget window;
    window.setFocusPolicy(Qt::NoFocus);
    new QLineEdit(&window);
    window.showMinimized();
    QCOMPARE(OpenIcon_X(&window), 1);
    QVERIFY(!window.isMinimized());
    QVERIFY(window.isVisible());
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(QApplication::focusWidget(), &window);
}

void tst_WindowState::copiedIcon()
{
    QPixmap pixmap(4, 4);
    pixmap.fill(Qt::red);
    const QIcon icon(pixmap);
    QCOMPARE(CopyIcon_X(icon).cacheKey(), icon.cacheKey());
    QVERIFY(CopyIcon_X(QIcon()).isNull());
}

// ---------------------------------------------------------------------------------------------------------- ShowWindow

void tst_WindowState::hidingATopLevelWindowStoresItsPlace()
{
    QWidget window;
    window.move(40, 50);
    window.show();
    const QPoint place = window.pos();
    QCOMPARE(ShowWindow_X(&window, SW_HIDE), 1);
    QVERIFY(window.isHidden());
    QCOMPARE(window.property("lastPos"), QVariant(place));
}

void tst_WindowState::showingATopLevelWindowRestoresItsPlace_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("SW_SHOW") << 5;
    QTest::newRow("SW_SHOWNORMAL") << 1;
}

void tst_WindowState::showingATopLevelWindowRestoresItsPlace()
{
    QFETCH(int, command);
    QWidget window;
    window.move(40, 50);
    window.show();
    const QPoint place = window.pos();
    ShowWindow_X(&window, SW_HIDE);
    window.move(400, 300);
    QCOMPARE(ShowWindow_X(&window, command), 1);
    QVERIFY(window.isVisible());
    QCOMPARE(window.pos(), place);
    QCOMPARE(window.property("lastPos"), QVariant());

    window.move(60, 70);
    ShowWindow_X(&window, command);
    QCOMPARE(window.pos(), QPoint(60, 70)); // only what was hidden comes back
}

void tst_WindowState::showingForTheFirstTimeMovesNothing()
{
    QWidget window;
    window.move(40, 50);
    QCOMPARE(ShowWindow_X(&window, SW_SHOW), 1);
    QVERIFY(window.isVisible());
    QCOMPARE(window.pos(), QPoint(40, 50));
}

void tst_WindowState::childHasNoStoredPlace()
{
    QWidget window;
    auto* const child = new QWidget(&window);
    window.show();
    child->move(10, 20);
    QCOMPARE(ShowWindow_X(child, SW_HIDE), 1);
    QVERIFY(child->isHidden());
    QCOMPARE(child->property("lastPos"), QVariant());

    child->setProperty("lastPos", QPoint(1, 2));
    QCOMPARE(ShowWindow_X(child, SW_SHOW), 1);
    QVERIFY(child->isVisible());
    QCOMPARE(child->pos(), QPoint(10, 20));
}

void tst_WindowState::hiddenByQtHasNoStoredPlace()
{
    QWidget window;
    window.move(40, 50);
    window.show();
    window.hide();
    window.move(60, 70);
    ShowWindow_X(&window, SW_SHOW);
    QCOMPARE(window.pos(), QPoint(60, 70));
}

void tst_WindowState::eventsAreProcessedForAWindowThatIsNotActive()
{
    QWidget window;
    Letterbox letterbox;
    letterbox.post();
    ShowWindow_X(&window, SW_SHOW);
    QCOMPARE(letterbox.received, 1);

    QWidget active;
    active.show();
    active.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&active));
    letterbox.post();
    ShowWindow_X(&window, SW_SHOWNORMAL); // also for one that is shown already
    QCOMPARE(letterbox.received, 2);
}

void tst_WindowState::eventsStayQueuedForTheRest()
{
    QWidget window;
    auto* const child = new QWidget(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    Letterbox letterbox;
    letterbox.post();
    ShowWindow_X(&window, SW_SHOW);
    ShowWindow_X(&window, SW_MAXIMIZE);
    ShowWindow_X(&window, SW_HIDE);
    ShowWindow_X(child, SW_HIDE);
    ShowWindow_X(child, SW_SHOW);
    QCOMPARE(letterbox.received, 0);
}

void tst_WindowState::otherCommandsDoNothing_data()
{
    QTest::addColumn<int>("command");
    for (const int command : {-1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 255})
        QTest::addRow("command %d", command) << command;
}

void tst_WindowState::otherCommandsDoNothing()
{
    QFETCH(int, command);
    QWidget window;
    QCOMPARE(ShowWindow_X(&window, command), 1);
    QVERIFY(window.isHidden());
    QCOMPARE(window.windowState(), Qt::WindowNoState);

    window.showMaximized();
    QCOMPARE(ShowWindow_X(&window, command), 1);
    QVERIFY(window.isVisible());
    QCOMPARE(window.windowState() & ~Qt::WindowActive, Qt::WindowMaximized);
    QCOMPARE(window.property("lastPos"), QVariant());
}

void tst_WindowState::updateDoesNotPaintAtOnce()
{
    PaintedWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_VERIFY(window.paints > 0);
    const int before = window.paints;
    QCOMPARE(UpdateWindow_X(&window), 1);
    QCOMPARE(window.paints, before);
    QTRY_COMPARE(window.paints, before + 1);
}

XE_TEST(tst_WindowState)
#include "tst_windowstate.moc"
