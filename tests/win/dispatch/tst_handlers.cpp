#include "outcome.h"
#include "testclass.h"

#include <leavenothing.h>
#include <messagetrace.h>

#include <xeafxwin.h>

#include <QLineEdit>

#include <functional>

// The handlers of CWnd_X: what each one asks for.

namespace {

const UINT probedMessage = WM_USER + 1;

using Action = std::function<void(CWnd_X&)>;

// Runs one action as the handler of probedMessage.
class ActionWindow : public CWnd_X
{
public:
    LRESULT onProbed(WPARAM, LPARAM)
    {
        action(*this);
        return 5;
    }
    void RecalcLayout() override { layouts += accepted(); }

    // Each letter is one call: whether the current event was still accepted.
    QString accepted() const { return event->isAccepted() ? QStringLiteral("a") : QStringLiteral("c"); }

    Action action;
    QEvent* event = nullptr;
    QString layouts;

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(ActionWindow, CWnd_X)
    ON_MESSAGE_X(probedMessage, onProbed)
END_MESSAGE_MAP_X()

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_Handlers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void baseHandlers_data();
    void baseHandlers();
    void baseResults();
    void sizeLaysOutBeforeItPassesOn();
    void cursorShapes_data();
    void cursorShapes();
    void cursorOfNothing();
    void traceReadsAsText();
};

void tst_Handlers::baseHandlers_data()
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("expected");

    const auto passesOn = [](const char* name, Action action) {
        QTest::newRow(name) << action << QStringLiteral("passed on");
    };
    const auto consumes = [](const char* name, Action action) {
        QTest::newRow(name) << action << QStringLiteral("consumed, result 5");
    };
    passesOn("OnActivate", [](CWnd_X& w) { w.OnActivate(1, nullptr, 0); });
    passesOn("OnActivate_X", [](CWnd_X& w) { w.OnActivate_X(1, nullptr, 0); });
    passesOn("OnActivateApp", [](CWnd_X& w) { w.OnActivateApp(1, 2); });
    passesOn("OnEnable", [](CWnd_X& w) { w.OnEnable(1); });
    passesOn("OnKillFocus", [](CWnd_X& w) { w.OnKillFocus(nullptr); });
    passesOn("OnKillFocus_X", [](CWnd_X& w) { w.OnKillFocus_X(nullptr); });
    passesOn("OnMove", [](CWnd_X& w) { w.OnMove(1, 2); });
    passesOn("OnSetFocus", [](CWnd_X& w) { w.OnSetFocus(nullptr); });
    passesOn("OnSetFocus_X", [](CWnd_X& w) { w.OnSetFocus_X(nullptr); });
    passesOn("OnShowWindow", [](CWnd_X& w) { w.OnShowWindow(1, 0); });
    passesOn("OnWindowPosChanging", [](CWnd_X& w) { w.OnWindowPosChanging(nullptr); });
    passesOn("OnWindowPosChanged", [](CWnd_X& w) { w.OnWindowPosChanged(nullptr); });
    passesOn("OnPaletteIsChanging", [](CWnd_X& w) { w.OnPaletteIsChanging(nullptr); });
    passesOn("OnPaletteIsChanging_X", [](CWnd_X& w) { w.OnPaletteIsChanging_X(nullptr); });
    passesOn("OnPaletteChanged", [](CWnd_X& w) { w.OnPaletteChanged(nullptr); });
    passesOn("OnPaletteChanged_X", [](CWnd_X& w) { w.OnPaletteChanged_X(nullptr); });
    passesOn("OnFontChange", [](CWnd_X& w) { w.OnFontChange(); });
    passesOn("OnSysColorChange", [](CWnd_X& w) { w.OnSysColorChange(); });
    passesOn("OnKeyDown", [](CWnd_X& w) { w.OnKeyDown(65, 1, 0); });
    passesOn("OnKeyUp", [](CWnd_X& w) { w.OnKeyUp(65, 1, 0); });
    passesOn("OnSysKeyDown", [](CWnd_X& w) { w.OnSysKeyDown(65, 1, 0); });
    passesOn("OnSysKeyUp", [](CWnd_X& w) { w.OnSysKeyUp(65, 1, 0); });
    passesOn("OnLButtonDblClk", [](CWnd_X& w) { w.OnLButtonDblClk(1, {}); });
    passesOn("OnLButtonDown", [](CWnd_X& w) { w.OnLButtonDown(1, {}); });
    passesOn("OnLButtonUp", [](CWnd_X& w) { w.OnLButtonUp(1, {}); });
    passesOn("OnMButtonDblClk", [](CWnd_X& w) { w.OnMButtonDblClk(1, {}); });
    passesOn("OnMButtonDown", [](CWnd_X& w) { w.OnMButtonDown(1, {}); });
    passesOn("OnMButtonUp", [](CWnd_X& w) { w.OnMButtonUp(1, {}); });
    passesOn("OnRButtonDblClk", [](CWnd_X& w) { w.OnRButtonDblClk(1, {}); });
    passesOn("OnRButtonDown", [](CWnd_X& w) { w.OnRButtonDown(1, {}); });
    passesOn("OnRButtonUp", [](CWnd_X& w) { w.OnRButtonUp(1, {}); });
    passesOn("OnMouseHover", [](CWnd_X& w) { w.OnMouseHover(1, {}); });
    passesOn("OnMouseLeave", [](CWnd_X& w) { w.OnMouseLeave(); });
    passesOn("OnMouseMove", [](CWnd_X& w) { w.OnMouseMove(1, {}); });
    passesOn("OnTimer", [](CWnd_X& w) { w.OnTimer(1); });
    passesOn("OnStyleChanged", [](CWnd_X& w) { w.OnStyleChanged(-16, nullptr); });
    passesOn("OnStyleChanging", [](CWnd_X& w) { w.OnStyleChanging(-16, nullptr); });
    passesOn("OnSizing", [](CWnd_X& w) { w.OnSizing(1, nullptr); });
    passesOn("OnMoving", [](CWnd_X& w) { w.OnMoving(1, nullptr); });
    passesOn("OnCaptureChanged", [](CWnd_X& w) { w.OnCaptureChanged(nullptr); });
    passesOn("OnCaptureChanged_X", [](CWnd_X& w) { w.OnCaptureChanged_X(nullptr); });
    passesOn("OnMeasureItem", [](CWnd_X& w) { w.OnMeasureItem(1, nullptr); });
    passesOn("OnNcLButtonUp", [](CWnd_X& w) { w.OnNcLButtonUp(2, {}); });
    passesOn("OnSize", [](CWnd_X& w) { w.OnSize(0, 10, 20); });

    consumes("OnClose", [](CWnd_X& w) { w.OnClose(); });
    consumes("OnContextMenu", [](CWnd_X& w) { w.OnContextMenu(nullptr, {}); });
    consumes("OnContextMenu_X", [](CWnd_X& w) { w.OnContextMenu_X(nullptr, {}); });
    consumes("OnPaint", [](CWnd_X& w) { w.OnPaint(); });
    consumes("OnDropFiles", [](CWnd_X& w) { w.OnDropFiles(nullptr); });
    consumes("OnHScroll", [](CWnd_X& w) { w.OnHScroll(1, 2, nullptr); });
    consumes("OnVScroll", [](CWnd_X& w) { w.OnVScroll(1, 2, nullptr); });
    consumes("OnChar", [](CWnd_X& w) { w.OnChar(65, 1, 0); });
    consumes("OnSysChar", [](CWnd_X& w) { w.OnSysChar(65, 1, 0); });
    consumes("OnHotKey", [](CWnd_X& w) { w.OnHotKey(1, 2, 3); });

    consumes("OnCtlColor", [](CWnd_X& w) { w.OnCtlColor(nullptr, nullptr, 1); });
    consumes("OnCtlColor_X", [](CWnd_X& w) { w.OnCtlColor_X(nullptr, nullptr, 1); });
    consumes("OnEraseBkgnd", [](CWnd_X& w) { w.OnEraseBkgnd(nullptr); });
    consumes("OnNcHitTest", [](CWnd_X& w) { w.OnNcHitTest({}); });
    consumes("OnMouseWheel", [](CWnd_X& w) { w.OnMouseWheel(1, 120, {}); });
    consumes("OnSetCursor", [](CWnd_X& w) { w.OnSetCursor(nullptr, 1, WM_MOUSEMOVE); });
    consumes("OnSetCursor_X", [](CWnd_X& w) { w.OnSetCursor_X(nullptr, 1, WM_MOUSEMOVE); });
    consumes("OnDestroy", [](CWnd_X& w) { w.OnDestroy(); });
}

void tst_Handlers::baseHandlers()
{
    QFETCH(Action, action);
    QFETCH(QString, expected);
    QWidget widget;
    ActionWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    XeWinMsgEvent event(probedMessage, 0, 0);
    window.event = &event;
    window.action = action;

    const bool stopped = window.eventFilter(&widget, &event);
    const QString result = event.result ? QStringLiteral(", result %1").arg(event.result) : QString();
    QCOMPARE(outcome(stopped, event) + result, expected);
}

void tst_Handlers::baseResults()
{
    CWnd_X window;
    QVERIFY(!window.OnCtlColor(nullptr, nullptr, 1));
    QVERIFY(!window.OnCtlColor_X(nullptr, nullptr, 1));
    QCOMPARE(window.OnEraseBkgnd(nullptr), 0);
    QCOMPARE(window.OnNcHitTest({3, 4}), 0);
    QCOMPARE(window.OnMouseWheel(1, 120, {3, 4}), 0);
    QCOMPARE(window.OnCreate(nullptr), 0);
}

void tst_Handlers::sizeLaysOutBeforeItPassesOn()
{
    QWidget widget;
    ActionWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    QResizeEvent event({30, 40}, {10, 10});
    window.event = &event;

    const bool stopped = window.eventFilter(&widget, &event);
    QCOMPARE(outcome(stopped, event), QStringLiteral("passed on"));
    QCOMPARE(window.layouts, QStringLiteral("a"));
}

void tst_Handlers::cursorShapes_data()
{
    QTest::addColumn<bool>("edit");
    QTest::addColumn<bool>("wrapped");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("a line edit gets the text cursor") << true << false << Qt::IBeamCursor;
    QTest::newRow("any other widget gets the arrow") << false << false << Qt::ArrowCursor;
    QTest::newRow("by its wrapper: a line edit") << true << true << Qt::IBeamCursor;
    QTest::newRow("by its wrapper: any other widget") << false << true << Qt::ArrowCursor;
}

void tst_Handlers::cursorShapes()
{
    QFETCH(bool, edit);
    QFETCH(bool, wrapped);
    QFETCH(Qt::CursorShape, shape);
    const std::unique_ptr<QWidget> widget(edit ? new QLineEdit : new QWidget);
    widget->setCursor(Qt::SizeAllCursor);
    CWnd_X window;
    QVERIFY(window.SubclassWindow(widget.get()));
    const int result = wrapped ? window.OnSetCursor_X(&window, HTCAPTION, WM_MOUSEMOVE)
                               : window.OnSetCursor(widget.get(), HTCAPTION, WM_MOUSEMOVE);
    QCOMPARE(result, 0);
    QCOMPARE(widget->cursor().shape(), shape);
}

void tst_Handlers::cursorOfNothing()
{
    QWidget widget;
    widget.setCursor(Qt::SizeAllCursor);
    CWnd_X window, empty;
    QVERIFY(window.SubclassWindow(&widget));
    QCOMPARE(window.OnSetCursor(nullptr, 0, 0), 0);
    QCOMPARE(window.OnSetCursor_X(nullptr, 0, 0), 0);
    QCOMPARE(window.OnSetCursor_X(&empty, 0, 0), 0);
    QCOMPARE(widget.cursor().shape(), Qt::SizeAllCursor);
}

void tst_Handlers::traceReadsAsText()
{
    QWidget widget;
    Traced<> window;
    QVERIFY(window.SubclassWindow(&widget));
    window.SendMessage(WM_LBUTTONDOWN, 0, 0x14000A);
    window.trace.note(QStringLiteral("|"));
    window.SendMessage(WM_USER + 7, reinterpret_cast<WPARAM>(&widget), -1);
    window.SendMessage(0x0313, 0, 0);
    QCOMPARE(window.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x14000a) | "
                                                 "WM_USER+7(self, 0xffffffffffffffff) 0x0313(0x0, 0x0)"));
    QVERIFY(window.trace.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(window.trace.text(), QStringLiteral("WM_SETCURSOR(self, 0x2010000)"));
    window.trace.clear();
}

XE_TEST(tst_Handlers)
#include "tst_handlers.moc"
