#include "filteredevents.h"
#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QLineEdit>
#include <QSlider>

// The event filter of a window: what becomes of an event.

namespace {

using Setup = std::function<void(ScreeningWindow&)>;

void addWheelEntry(CWnd_X& window)
{
    window.AddMsgMapEntry(WM_MOUSEWHEEL, AfxSig_MOUSEWHEEL,
                          XeHandler<BOOL(UINT, short, CPoint)>::of(&CWnd_X::OnMouseWheel), nullptr);
}

class LayoutWindow : public CWnd_X
{
public:
    void RecalcLayout() override { ++layouts; }
    void OnMessageMap() override
    {
        ++maps;
        CWnd_X::OnMessageMap();
        AddMsgMapEntry(WM_USER + 1, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::first),
                       nullptr);
    }
    LRESULT first(WPARAM, LPARAM) { return 1; }
    LRESULT second(WPARAM, LPARAM) { return 2; }
    UINT third(CPoint point) { return static_cast<UINT>(point.x); }

    int layouts = 0;
    int maps = 0;
};

// A base that attaches in its constructor, where an override of a class behind it is not yet the window's.
class EarlyWindow : public CWnd_X
{
public:
    explicit EarlyWindow(QWidget& widget)
    {
        SubclassWindow(&widget);
        SendMessage_X(&widget, WM_USER, 1, 0);
    }
};

class LateScreen : public EarlyWindow
{
public:
    using EarlyWindow::EarlyWindow;
    int PreTranslateMessage(tagMSG* message) override
    {
        seen += message->wParam;
        return 0;
    }

    QVector<WPARAM> seen;
};

} // namespace

Q_DECLARE_METATYPE(Setup)

class tst_Dispatch : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void decision_data();
    void decision();
    void resultIsStoredForConsumedMessagesAlone();
    void paintEntryStopsPainting();
    void paintsWithoutEntry();
    void close_data();
    void close();
    void lineEditGetsKeysThatArePassedOn();
    void lineEditGetsNoConsumedKeys();
    void wheelOfTheBaseMovesASlider();
    void characterOfTheBaseIsConsumed();
    void messageWithoutEntry();
    void sizeIsLaidOutAndPassedOn();
    void sizeWithoutTheBaseStopsQt();

    void laterEntryReplacesSignatureToo();
    void mapIsFilledAtEachAttachment();
    void nullAndForeignEvents();
    void screensFromTheEndOfItsConstructorOn();

    void handlerReplacesItsOwnEntry();
};

void tst_Dispatch::decision_data()
{
    QTest::addColumn<MakeEvent>("makeEvent");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QString>("ifAccepted");
    QTest::addColumn<QString>("ifIgnored");

    const auto row = [](const char* name, MakeEvent makeEvent, Setup setup, const char* ifAccepted,
                        const char* ifIgnored) {
        QTest::newRow(name) << makeEvent << setup << QString::fromLatin1(ifAccepted) << QString::fromLatin1(ifIgnored);
    };
    const Setup nothing = [](ScreeningWindow&) {};
    row("no entry leaves the flag as it was", pressEvent, nothing, "goes on, accepted", "goes on, ignored");
    row("a message without entry likewise", messageEvent, nothing, "goes on, accepted", "goes on, ignored");
    row(
        "a type without message is not touched", [] { return new QFocusEvent(QEvent::FocusIn); }, nothing,
        "goes on, accepted", "goes on, ignored");
    row(
        "a handler that does nothing consumes", pressEvent, [](ScreeningWindow& w) { w.on<WM_LBUTTONDOWN>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handler that clears the flag passes on", pressEvent,
        [](ScreeningWindow& w) { w.on<WM_LBUTTONDOWN>([&w] { clearFlag(w); }); }, "goes on, ignored",
        "goes on, ignored");
    row(
        "a handler may set the flag again", pressEvent,
        [](ScreeningWindow& w) {
            w.on<WM_LBUTTONDOWN>([&w] {
                clearFlag(w);
                w.SetCurrentEventAccepted(true);
            });
        },
        "stopped, accepted", "stopped, accepted");
    row("a wheel passed up leaves the flag as it was", wheelEvent, addWheelEntry, "goes on, accepted",
        "goes on, ignored");
    row(
        "an entry that swallows consumes", pressEvent,
        [](ScreeningWindow& w) { w.AddMsgMapEntry(WM_LBUTTONDOWN, AfxSig_b_D_v, nullptr, nullptr); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a null handler consumes", pressEvent,
        [](ScreeningWindow& w) { w.AddMsgMapEntry(WM_LBUTTONDOWN, AfxSig_v_u_p, nullptr, nullptr); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handled message is consumed", messageEvent, [](ScreeningWindow& w) { w.on<WM_USER + 1>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a screened event is consumed", pressEvent, [](ScreeningWindow& w) { w.screen = [](tagMSG*) { return -1; }; },
        "stopped, accepted", "stopped, accepted");
    row(
        "a handled close is consumed", closeEvent, [](ScreeningWindow& w) { w.on<WM_CLOSE>([] {}); },
        "stopped, accepted", "stopped, accepted");
    row(
        "a close with the flag cleared is refused", closeEvent,
        [](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { clearFlag(w); }); }, "stopped, ignored", "stopped, ignored");
    row("a close without entry goes on", closeEvent, nothing, "goes on, accepted", "goes on, ignored");
}

void tst_Dispatch::decision()
{
    QFETCH(MakeEvent, makeEvent);
    QFETCH(Setup, setup);
    QFETCH(QString, ifAccepted);
    QFETCH(QString, ifIgnored);
    QWidget widget;
    ScreeningWindow window(&widget);
    setup(window);
    const std::unique_ptr<QEvent> event(makeEvent());

    event->setAccepted(true);
    QCOMPARE(filterText(window, *event), ifAccepted);
    event->setAccepted(false);
    QCOMPARE(filterText(window, *event), ifIgnored);
    QCoreApplication::removePostedEvents(&widget);
}

void tst_Dispatch::resultIsStoredForConsumedMessagesAlone()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 0x123456789ABC; });
    window.on<WM_USER + 2>([&](WPARAM, LPARAM) {
        clearFlag(window);
        return 5;
    });
    XeWinMsgEvent consumed(WM_USER + 1, 0, 0), passedOn(WM_USER + 2, 0, 0), unknown(WM_USER + 3, 0, 0);
    unknown.result = 7;
    for (XeWinMsgEvent* event : {&consumed, &passedOn, &unknown})
        window.eventFilter(&widget, event);
    QCOMPARE(consumed.result, 0x123456789ABC);
    QCOMPARE(passedOn.result, 0);
    QCOMPARE(unknown.result, 7);
}

void tst_Dispatch::paintEntryStopsPainting()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_PAINT>([] {});
    widget.grab();
    QCOMPARE(widget.count(QEvent::Paint), 0);
}

void tst_Dispatch::paintsWithoutEntry()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    widget.grab();
    QCOMPARE(widget.count(QEvent::Paint), 1);
    QVERIFY(window.trace.text().contains(QLatin1String("WM_PAINT(0x0, 0x0)")));

    QPaintEvent event{QRect(0, 0, 1, 1)};
    QVERIFY(!window.eventFilter(&widget, &event));
}

void tst_Dispatch::close_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<int>("seenByWidget");
    QTest::newRow("no entry") << Setup([](ScreeningWindow&) {}) << true << 1;
    QTest::newRow("a handler that does nothing")
        << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([] {}); }) << true << 0;
    QTest::newRow("the base handler") << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { w.OnClose(); }); })
                                      << true << 0;
    QTest::newRow("a handler that refuses")
        << Setup([](ScreeningWindow& w) { w.on<WM_CLOSE>([&w] { clearFlag(w); }); }) << false << 0;
    QTest::newRow("screened") << Setup([](ScreeningWindow& w) {
        w.screen = [](tagMSG* message) { return int(message->message == WM_CLOSE); };
    }) << true << 0;
}

void tst_Dispatch::close()
{
    QFETCH(Setup, setup);
    QFETCH(bool, closed);
    QFETCH(int, seenByWidget);
    ListeningWidget widget;
    widget.show();
    ScreeningWindow window(&widget);
    setup(window);
    QCOMPARE(widget.close(), closed);
    QCOMPARE(widget.isVisible(), !closed);
    QCOMPARE(widget.count(QEvent::Close), seenByWidget);
}

void tst_Dispatch::lineEditGetsKeysThatArePassedOn()
{
    QLineEdit edit;
    ScriptWindow window(&edit);
    window.on<WM_KEYDOWN>([&] { window.OnKeyDown(0, 1, 0); });
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QCOMPARE(edit.text(), QStringLiteral("ab"));
    QCoreApplication::processEvents();
    QCOMPARE(edit.text(), QStringLiteral("ab"));
}

void tst_Dispatch::lineEditGetsNoConsumedKeys()
{
    QLineEdit edit;
    ScriptWindow window(&edit);
    window.on<WM_KEYDOWN>([] {});
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QCOMPARE(edit.text(), QString());
}

void tst_Dispatch::wheelOfTheBaseMovesASlider()
{
    QSlider slider;
    slider.setValue(50);
    ScriptWindow window(&slider);
    addWheelEntry(window);
    const std::unique_ptr<QEvent> event(wheelEvent());
    QVERIFY(QCoreApplication::sendEvent(&slider, event.get()));
    QVERIFY(slider.value() > 50);
}

void tst_Dispatch::characterOfTheBaseIsConsumed()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_CHAR>([&] { window.OnChar('a', 1, 0); });
    XeWinMsgEvent event(WM_CHAR, 'a', 1);
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 0);
}

void tst_Dispatch::messageWithoutEntry()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    XeWinMsgEvent event(WM_USER + 9, 1, 2);
    QVERIFY(!window.eventFilter(&widget, &event));
    QCOMPARE(SendMessage_X(&widget, WM_USER + 9, 1, 2), 0);
    QCOMPARE(widget.count(XeWinMsgEvent::EventType), 1);
}

void tst_Dispatch::sizeIsLaidOutAndPassedOn()
{
    ListeningWidget widget;
    LayoutWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    QResizeEvent event({30, 40}, {20, 20});
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(window.layouts, 1);
    QCOMPARE(widget.count(QEvent::Resize), 1);
}

void tst_Dispatch::sizeWithoutTheBaseStopsQt()
{
    ListeningWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_SIZE>([] {});
    QResizeEvent event({30, 40}, {20, 20});
    QVERIFY(QCoreApplication::sendEvent(&widget, &event));
    QCOMPARE(widget.count(QEvent::Resize), 0);
}

// ---------------------------------------------------------------------------------------------------------- map

void tst_Dispatch::laterEntryReplacesSignatureToo()
{
    LayoutWindow window;
    LRESULT result = 0;
    window.AddMsgMapEntry(WM_USER + 2, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::second),
                          nullptr);
    QVERIFY(window.OnWndMsg(WM_USER + 2, 0, 0x14000A, &result));
    QCOMPARE(result, 2);
    window.AddMsgMapEntry(WM_USER + 2, 49, XeHandler<UINT(CPoint)>::of(&LayoutWindow::third), nullptr);
    QVERIFY(window.OnWndMsg(WM_USER + 2, 0, 0x14000A, &result));
    QCOMPARE(result, 10);
}

void tst_Dispatch::mapIsFilledAtEachAttachment()
{
    QWidget widget;
    LayoutWindow window;
    QCOMPARE(window.maps, 0);
    QCOMPARE(window.OnWndMsg(WM_USER + 1, 0, 0, nullptr), 0);
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.maps, 1);

    for (const UINT message : {WM_USER + 1, WM_USER + 2})
        window.AddMsgMapEntry(message, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&LayoutWindow::second),
                              nullptr);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 2);
    window.Detach();
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.maps, 2);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 1); // entered anew
    QCOMPARE(window.SendMessage(WM_USER + 2, 0, 0), 2); // kept
}

void tst_Dispatch::nullAndForeignEvents()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_CLOSE>([] {});
    const std::unique_ptr<QEvent> event(closeEvent());
    event->setAccepted(false);
    QVERIFY(!window.eventFilter(nullptr, nullptr));
    QVERIFY(!window.eventFilter(&widget, nullptr));
    QVERIFY(!window.eventFilter(nullptr, event.get()));
    QVERIFY(!event->isAccepted());
    QCOMPARE(window.trace.text(), QString());
}

void tst_Dispatch::screensFromTheEndOfItsConstructorOn()
{
    QWidget widget;
    LateScreen window(widget);
    SendMessage_X(&widget, WM_USER, 2, 0);
    QCOMPARE(window.seen, QVector<WPARAM>{2});
}

void tst_Dispatch::handlerReplacesItsOwnEntry()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER + 1>([&](WPARAM, LPARAM) {
        window.on<WM_USER + 1>([](WPARAM, LPARAM) { return 2; });
        window.AddMsgMapEntry(WM_USER + 1, AfxSig_b_D_v, nullptr, nullptr);
        return 1;
    });
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 1);
    QCOMPARE(window.SendMessage(WM_USER + 1, 0, 0), 0);
}

XE_TEST(tst_Dispatch)
#include "tst_dispatch.moc"
