// Windows that end themselves in their own handlers.

#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>

namespace {

// A popup that ends when it loses the active state. Both forms of the handler are there.
class Popup : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = Popup;
        CWnd_X::OnMessageMap();
        ON_WM_ACTIVATE_X()
    }
    void OnActivate(UINT state, QWidget*, BOOL)
    {
        calls += QStringLiteral("first ");
        if (state == WA_INACTIVE)
            DestroyWindow();
    }
    void OnActivate_X(UINT, CWnd_X*, BOOL) { calls += QStringLiteral("second "); }

    QString calls;
};

// A window that deletes its wrapper when `message` comes.
class Vanishing : public CWnd_X
{
public:
    explicit Vanishing(UINT message) : m_message(message) {}

    int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        if (message != m_message)
            return CWnd_X::OnWndMsg(message, wParam, lParam, result);
        delete this;
        return 0;
    }

private:
    const UINT m_message;
};

// Moves to a child of its widget, and makes a wrapper for the widget, when it loses the active state.
class LastGuest : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = LastGuest;
        CWnd_X::OnMessageMap();
        ON_WM_ACTIVATE_X()
    }
    void OnActivate(UINT state, QWidget*, BOOL)
    {
        QWidget* const widget = GetSafeHwnd();
        if (state != WA_INACTIVE || widget == host)
            return;
        Detach();
        calls += guest.SubclassWindow(widget) ? QStringLiteral("attached ") : QString();
        guest.ShowScrollBar(SB_BOTH, TRUE);
        calls += SubclassWindow(host) ? QStringLiteral("attached ") : QString();
    }
    void OnActivate_X(UINT, CWnd_X*, BOOL) {}

    QWidget* host = nullptr;
    CWnd_X guest;
    QString calls;
};

} // namespace

class tst_WndSelfDestruction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aPopupThatIsDeletedWhileActive();
    void aSecondFormOfADetachedWindow();
    void createSurvivesItsHandlers_data();
    void createSurvivesItsHandlers();
    void aWrapperForAWidgetOnItsWayOut();
};

void tst_WndSelfDestruction::aPopupThatIsDeletedWhileActive()
{
    auto* const widget = new QWidget;
    Popup popup;
    popup.SubclassWindow(widget);
    widget->show();
    QApplication::setActiveWindow(widget);
    QCOMPARE(popup.calls, QStringLiteral("first second "));
    delete widget;
    QCOMPARE(popup.calls, QStringLiteral("first second first "));
    QCOMPARE(popup.GetSafeHwnd(), nullptr);
}

void tst_WndSelfDestruction::aSecondFormOfADetachedWindow()
{
    QWidget widget;
    Popup popup;
    popup.SubclassWindow(&widget);
    popup.SendMessage(WM_ACTIVATE, WA_INACTIVE, 0);
    QCOMPARE(popup.calls, QStringLiteral("first "));
    popup.OnWndMsg(WM_ACTIVATE, WA_ACTIVE, 0, nullptr); // never attached meanwhile: nobody has gone
    QCOMPARE(popup.calls, QStringLiteral("first first second "));
    CWnd_X::FromHandle(&widget);
    ClearTempObjectPool();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_WndSelfDestruction::createSurvivesItsHandlers_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<bool>("withPlace");
    for (const bool withPlace : {false, true}) {
        QTest::addRow("shown%s", withPlace ? " in a place" : "") << WM_SHOWWINDOW << withPlace;
        QTest::addRow("sized%s", withPlace ? " in a place" : "") << WM_SIZE << withPlace;
        QTest::addRow("activated%s", withPlace ? " in a place" : "") << WM_ACTIVATE << withPlace;
    }
}

void tst_WndSelfDestruction::createSurvivesItsHandlers()
{
    QFETCH(UINT, message);
    QFETCH(bool, withPlace);
    QWidget frame;
    frame.show();
    QApplication::setActiveWindow(&frame);
    const QPointer<Vanishing> window(new Vanishing(message));
    constexpr DWORD style = WS_VISIBLE | WS_VSCROLL | WS_HSCROLL;
    const tagRECT place = {0, 0, 50, 60};
    QCOMPARE(withPlace ? window->Create(style, place, &frame) : window->Create(style, &frame), 1);
    delete window; // where the message did not come
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// As the second form of a handler gets one for the widget that it is told of.
void tst_WndSelfDestruction::aWrapperForAWidgetOnItsWayOut()
{
    auto* const widget = new QWidget;
    auto* const child = new QWidget(widget);
    LastGuest window;
    window.host = child;
    QVERIFY(window.SubclassWindow(widget));
    widget->show();
    QApplication::setActiveWindow(widget);
    delete widget;
    QCOMPARE(window.calls, QStringLiteral("attached attached "));
    QVERIFY(!window.guest.GetSafeHwnd());
}

XE_TEST(tst_WndSelfDestruction)
#include "tst_wndselfdestruction.moc"
