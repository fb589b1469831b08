#include "outcome.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxwin.h>

#include <QLineEdit>

// The macros of a message map: which message and signature each one enters for a handler of CWnd_X.

namespace {

QString text(int value) { return QString::number(value); }
QString text(short value) { return QString::number(value); }
QString text(UINT value) { return QString::number(value); }
QString text(UINT_PTR value) { return QString::number(value); }
QString text(CPoint value) { return QStringLiteral("(%1 %2)").arg(value.x).arg(value.y); }
QString text(QWidget* value) { return value ? value->objectName() : QStringLiteral("null"); }
QString text(CWnd_X* value) { return QStringLiteral("W(%1)").arg(value ? text(value->GetSafeHwnd()) : QString()); }
QString text(QAbstractSlider* value) { return QStringLiteral("@%1").arg(reinterpret_cast<quintptr>(value), 0, 16); }
QString text(const void* value) { return QStringLiteral("@%1").arg(reinterpret_cast<quintptr>(value), 0, 16); }

// Shows the filter a message; an event is made accepted.
QString filterMessage(CWnd_X& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    XeWinMsgEvent event(message, wParam, lParam);
    const bool stopped = window.eventFilter(window.GetSafeHwnd(), &event);
    const QString result = outcome(stopped, event);
    return event.result ? QStringLiteral("%1, result %2").arg(result).arg(event.result) : result;
}

// A class of a client that has every handler. Each writes its call down and goes on as its base does.
class BusyWindow : public CWnd_X
{
public:
    QStringList calls;

    template <class... Args>
    void record(const char* name, Args... args)
    {
        const QStringList list{text(args)...};
        calls += QStringLiteral("%1(%2)").arg(QLatin1String(name), list.join(QLatin1String(", ")));
    }

#define RECORD_0(result, name) \
    result name()              \
    {                          \
        record(#name);         \
        return CWnd_X::name(); \
    }
#define RECORD_1(result, name, A) \
    result name(A a)              \
    {                             \
        record(#name, a);         \
        return CWnd_X::name(a);   \
    }
#define RECORD_2(result, name, A, B) \
    result name(A a, B b)            \
    {                                \
        record(#name, a, b);         \
        return CWnd_X::name(a, b);   \
    }
#define RECORD_3(result, name, A, B, C) \
    result name(A a, B b, C c)          \
    {                                   \
        record(#name, a, b, c);         \
        return CWnd_X::name(a, b, c);   \
    }

    RECORD_3(void, OnActivate, UINT, QWidget*, BOOL)
    RECORD_3(void, OnActivate_X, UINT, CWnd_X*, BOOL)
    RECORD_2(void, OnActivateApp, BOOL, DWORD)
    RECORD_1(void, OnCaptureChanged, QWidget*)
    RECORD_1(void, OnCaptureChanged_X, CWnd_X*)
    RECORD_3(void, OnChar, UINT, UINT, UINT)
    RECORD_0(void, OnClose)
    RECORD_2(void, OnContextMenu, QWidget*, CPoint)
    RECORD_2(void, OnContextMenu_X, CWnd_X*, CPoint)
    int OnCreate(tagCREATESTRUCTW* createStruct) override
    {
        const bool byMessage = createStruct == reinterpret_cast<tagCREATESTRUCTW*>(0x11223344);
        if (byMessage)
            record("OnCreate", static_cast<const void*>(createStruct));
        return byMessage ? -9 : CWnd_X::OnCreate(createStruct);
    }
    RECORD_3(HBRUSH, OnCtlColor, CDC_X*, QWidget*, UINT)
    RECORD_3(HBRUSH, OnCtlColor_X, CDC_X*, CWnd_X*, UINT)
    RECORD_0(void, OnDestroy)
    RECORD_1(void, OnDropFiles, HDROP)
    RECORD_1(void, OnEnable, BOOL)
    RECORD_1(BOOL, OnEraseBkgnd, CDC_X*)
    RECORD_0(void, OnFontChange)
    RECORD_3(void, OnHotKey, UINT, UINT, UINT)
    RECORD_3(void, OnHScroll, UINT, UINT, QAbstractSlider*)
    RECORD_3(void, OnKeyDown, UINT, UINT, UINT)
    RECORD_3(void, OnKeyUp, UINT, UINT, UINT)
    RECORD_1(void, OnKillFocus, QWidget*)
    RECORD_1(void, OnKillFocus_X, CWnd_X*)
    RECORD_2(void, OnLButtonDblClk, UINT, CPoint)
    RECORD_2(void, OnLButtonDown, UINT, CPoint)
    RECORD_2(void, OnLButtonUp, UINT, CPoint)
    RECORD_2(void, OnMButtonDblClk, UINT, CPoint)
    RECORD_2(void, OnMButtonDown, UINT, CPoint)
    RECORD_2(void, OnMButtonUp, UINT, CPoint)
    RECORD_2(void, OnMeasureItem, int, tagMEASUREITEMSTRUCT*)
    RECORD_2(void, OnMouseHover, UINT, CPoint)
    RECORD_0(void, OnMouseLeave)
    RECORD_2(void, OnMouseMove, UINT, CPoint)
    RECORD_3(BOOL, OnMouseWheel, UINT, short, CPoint)
    RECORD_2(void, OnMove, int, int)
    RECORD_2(void, OnMoving, UINT, tagRECT*)
    void OnNcDestroy() { record("OnNcDestroy"); } // without the base, so that the window can be looked at afterwards
    RECORD_1(LRESULT, OnNcHitTest, CPoint)
    RECORD_2(void, OnNcLButtonUp, UINT, CPoint)
    RECORD_0(void, OnPaint)
    RECORD_1(void, OnPaletteChanged, QWidget*)
    RECORD_1(void, OnPaletteChanged_X, CWnd_X*)
    RECORD_1(void, OnPaletteIsChanging, QWidget*)
    RECORD_1(void, OnPaletteIsChanging_X, CWnd_X*)
    RECORD_2(void, OnRButtonDblClk, UINT, CPoint)
    RECORD_2(void, OnRButtonDown, UINT, CPoint)
    RECORD_2(void, OnRButtonUp, UINT, CPoint)
    RECORD_3(BOOL, OnSetCursor, QWidget*, UINT, UINT)
    RECORD_3(BOOL, OnSetCursor_X, CWnd_X*, UINT, UINT)
    RECORD_1(void, OnSetFocus, QWidget*)
    RECORD_1(void, OnSetFocus_X, CWnd_X*)
    RECORD_2(void, OnShowWindow, BOOL, UINT)
    RECORD_3(void, OnSize, UINT, int, int)
    RECORD_2(void, OnSizing, UINT, tagRECT*)
    RECORD_2(void, OnStyleChanged, int, tagSTYLESTRUCT*)
    RECORD_2(void, OnStyleChanging, int, tagSTYLESTRUCT*)
    RECORD_3(void, OnSysChar, UINT, UINT, UINT)
    RECORD_0(void, OnSysColorChange)
    RECORD_3(void, OnSysKeyDown, UINT, UINT, UINT)
    RECORD_3(void, OnSysKeyUp, UINT, UINT, UINT)
    RECORD_1(void, OnTimer, UINT_PTR)
    RECORD_3(void, OnVScroll, UINT, UINT, QAbstractSlider*)
    RECORD_1(void, OnWindowPosChanged, tagWINDOWPOS*)
    RECORD_1(void, OnWindowPosChanging, tagWINDOWPOS*)

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(BusyWindow, CWnd_X)
    ON_WM_ACTIVATE_X()
    ON_WM_ACTIVATEAPP_X()
    ON_WM_CAPTURECHANGED_X()
    ON_WM_CHAR_X()
    ON_WM_CLOSE_X()
    ON_WM_CONTEXTMENU_X()
    ON_WM_CREATE_X()
    ON_WM_CTLCOLOR_X()
    ON_WM_DESTROY_X()
    ON_WM_DROPFILES_X()
    ON_WM_ENABLE_X()
    ON_WM_ERASEBKGND_X()
    ON_WM_FONTCHANGE_X()
    ON_WM_HOTKEY_X()
    ON_WM_HSCROLL_X()
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
    ON_WM_KILLFOCUS_X()
    ON_WM_LBUTTONDBLCLK_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X()
    ON_WM_MBUTTONDBLCLK_X()
    ON_WM_MBUTTONDOWN_X()
    ON_WM_MBUTTONUP_X()
    ON_WM_MEASUREITEM_X()
    ON_WM_MOUSEHOVER_X()
    ON_WM_MOUSELEAVE_X()
    ON_WM_MOUSEMOVE_X()
    ON_WM_MOUSEWHEEL_X()
    ON_WM_MOVE_X()
    ON_WM_MOVING_X()
    ON_WM_NCDESTROY_X()
    ON_WM_NCHITTEST_X()
    ON_WM_NCLBUTTONUP_X()
    ON_WM_PAINT_X()
    ON_WM_PALETTECHANGED_X()
    ON_WM_PALETTEISCHANGING_X()
    ON_WM_RBUTTONDBLCLK_X()
    ON_WM_RBUTTONDOWN_X()
    ON_WM_RBUTTONUP_X()
    ON_WM_SETCURSOR_X()
    ON_WM_SETFOCUS_X()
    ON_WM_SHOWWINDOW_X()
    ON_WM_SIZE_X()
    ON_WM_SIZING_X()
    ON_WM_STYLECHANGED_X()
    ON_WM_STYLECHANGING_X()
    ON_WM_SYSCHAR_X()
    ON_WM_SYSCOLORCHANGE_X()
    ON_WM_SYSKEYDOWN_X()
    ON_WM_SYSKEYUP_X()
    ON_WM_TIMER_X()
    ON_WM_VSCROLL_X()
    ON_WM_WINDOWPOSCHANGED_X()
    ON_WM_WINDOWPOSCHANGING_X()
END_MESSAGE_MAP_X()

class CursorWindow : public CWnd_X
{
    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(CursorWindow, CWnd_X)
    ON_WM_SETCURSOR_X()
END_MESSAGE_MAP_X()

} // namespace

class tst_HandlerMacros : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void macros_data();
    void macros();
    void macrosOfRealEvents();
    void inheritedHandlersSuitTheMacros();
};

void tst_HandlerMacros::macros_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QByteArray>("widgetIn");

    // wParam 0xFFF4AABBFFF20003, lParam 0x1122334455668778, unless one of them is a widget.
    const auto row = [](const char* name, UINT message, const char* calls, const char* outcome,
                        const char* widgetIn = "") {
        QTest::newRow(name) << message << QString::fromLatin1(calls) << QString::fromLatin1(outcome)
                            << QByteArray(widgetIn);
    };
    row("WM_ACTIVATE", 0x0006, "OnActivate(3, other, 65522) OnActivate_X(3, W(other), 65522)", "passed on", "l");
    row("WM_ACTIVATEAPP", 0x001C, "OnActivateApp(-917501, 1432782712)", "passed on");
    row("WM_CAPTURECHANGED", 0x0215, "OnCaptureChanged(other) OnCaptureChanged_X(W(other))", "passed on", "l");
    row("WM_CHAR", 0x0102, "OnChar(4294049795, 34680, 21862)", "consumed");
    row("WM_CLOSE", 0x0010, "OnClose()", "consumed");
    row("WM_CONTEXTMENU", 0x007B, "OnContextMenu(other, (-30856 21862)) OnContextMenu_X(W(other), (-30856 21862))",
        "consumed", "w");
    row("WM_CREATE", 0x0001, "OnCreate(@11223344)", "consumed, result -9", "create");
    row("WM_CTLCOLOR", 0x0019, "", "consumed");
    row("WM_DESTROY", 0x0002, "OnDestroy()", "consumed");
    row("WM_DROPFILES", 0x0233, "OnDropFiles(@fff4aabbfff20003)", "consumed");
    row("WM_ENABLE", 0x000A, "OnEnable(-917501)", "passed on");
    row("WM_ERASEBKGND", 0x0014, "", "consumed");
    row("WM_FONTCHANGE", 0x001D, "OnFontChange()", "passed on");
    row("WM_HOTKEY", 0x0312, "OnHotKey(4294049795, 34680, 21862)", "consumed");
    row("WM_HSCROLL", 0x0114, "OnHScroll(3, 4294967282, @1122334455668778)", "consumed");
    row("WM_KEYDOWN", 0x0100, "OnKeyDown(4294049795, 34680, 21862)", "passed on");
    row("WM_KEYUP", 0x0101, "OnKeyUp(4294049795, 34680, 21862)", "passed on");
    row("WM_KILLFOCUS", 0x0008, "OnKillFocus(other) OnKillFocus_X(W(other))", "passed on", "w");
    row("WM_LBUTTONDBLCLK", 0x0203, "OnLButtonDblClk(4294049795, (-30856 21862))", "passed on");
    row("WM_LBUTTONDOWN", 0x0201, "OnLButtonDown(4294049795, (-30856 21862))", "passed on");
    row("WM_LBUTTONUP", 0x0202, "OnLButtonUp(4294049795, (-30856 21862))", "passed on");
    row("WM_MBUTTONDBLCLK", 0x0209, "OnMButtonDblClk(4294049795, (-30856 21862))", "passed on");
    row("WM_MBUTTONDOWN", 0x0207, "OnMButtonDown(4294049795, (-30856 21862))", "passed on");
    row("WM_MBUTTONUP", 0x0208, "OnMButtonUp(4294049795, (-30856 21862))", "passed on");
    row("WM_MEASUREITEM", 0x002C, "OnMeasureItem(-917501, @1122334455668778)", "passed on");
    row("WM_MOUSEHOVER", 0x02A1, "OnMouseHover(4294049795, (-30856 21862))", "passed on");
    row("WM_MOUSELEAVE", 0x02A3, "OnMouseLeave()", "passed on");
    row("WM_MOUSEMOVE", 0x0200, "OnMouseMove(4294049795, (-30856 21862))", "passed on");
    row("WM_MOUSEWHEEL", 0x020A, "OnMouseWheel(3, -14, (34680 21862))", "passed on, flag as before");
    row("WM_MOVE", 0x0003, "OnMove(34680, 21862)", "passed on");
    row("WM_MOVING", 0x0216, "OnMoving(4294049795, @1122334455668778)", "passed on");
    row("WM_NCDESTROY", 0x0082, "OnNcDestroy()", "consumed");
    row("WM_NCHITTEST", 0x0084, "OnNcHitTest((-30856 21862))", "consumed");
    row("WM_NCLBUTTONUP", 0x00A2, "OnNcLButtonUp(4294049795, (-30856 21862))", "passed on");
    row("WM_PAINT", 0x000F, "OnPaint()", "consumed");
    row("WM_PALETTECHANGED", 0x0311, "OnPaletteChanged(other) OnPaletteChanged_X(W(other))", "passed on", "w");
    row("WM_PALETTEISCHANGING", 0x0310, "OnPaletteIsChanging(other) OnPaletteIsChanging_X(W(other))", "passed on", "w");
    row("WM_RBUTTONDBLCLK", 0x0206, "OnRButtonDblClk(4294049795, (-30856 21862))", "passed on");
    row("WM_RBUTTONDOWN", 0x0204, "OnRButtonDown(4294049795, (-30856 21862))", "passed on");
    row("WM_RBUTTONUP", 0x0205, "OnRButtonUp(4294049795, (-30856 21862))", "passed on");
    row("WM_SETCURSOR", 0x0020, "OnSetCursor(other, 34680, 21862) OnSetCursor_X(W(other), 34680, 21862)", "consumed",
        "w");
    row("WM_SETFOCUS", 0x0007, "OnSetFocus(other) OnSetFocus_X(W(other))", "passed on", "w");
    row("WM_SHOWWINDOW", 0x0018, "OnShowWindow(-917501, 1432782712)", "passed on");
    row("WM_SIZE", 0x0005, "OnSize(4294049795, 34680, 21862)", "passed on");
    row("WM_SIZING", 0x0214, "OnSizing(4294049795, @1122334455668778)", "passed on");
    row("WM_STYLECHANGED", 0x007D, "OnStyleChanged(-917501, @1122334455668778)", "passed on");
    row("WM_STYLECHANGING", 0x007C, "OnStyleChanging(-917501, @1122334455668778)", "passed on");
    row("WM_SYSCHAR", 0x0106, "OnSysChar(4294049795, 34680, 21862)", "consumed");
    row("WM_SYSCOLORCHANGE", 0x0015, "OnSysColorChange()", "passed on");
    row("WM_SYSKEYDOWN", 0x0104, "OnSysKeyDown(4294049795, 34680, 21862)", "passed on");
    row("WM_SYSKEYUP", 0x0105, "OnSysKeyUp(4294049795, 34680, 21862)", "passed on");
    row("WM_TIMER", 0x0113, "OnTimer(18443554098418679811)", "passed on");
    row("WM_VSCROLL", 0x0115, "OnVScroll(3, 4294967282, @1122334455668778)", "consumed");
    row("WM_WINDOWPOSCHANGED", 0x0047, "OnWindowPosChanged(@1122334455668778)", "passed on");
    row("WM_WINDOWPOSCHANGING", 0x0046, "OnWindowPosChanging(@1122334455668778)", "passed on");
}

void tst_HandlerMacros::macros()
{
    QFETCH(UINT, message);
    QFETCH(QString, calls);
    QFETCH(QString, outcome);
    QFETCH(QByteArray, widgetIn);
    QWidget widget, other;
    other.setObjectName(QStringLiteral("other"));
    BusyWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    const auto address = reinterpret_cast<quintptr>(&other);
    const WPARAM wParam = widgetIn == "w" ? address : 0xFFF4AABBFFF20003;
    const LPARAM lParam = widgetIn == "l" ? LPARAM(address) : widgetIn == "create" ? 0x11223344 : 0x1122334455668778;

    QCOMPARE(filterMessage(window, message, wParam, lParam), outcome);
    QCOMPARE(window.calls.join(QLatin1Char(' ')), calls);
}

void tst_HandlerMacros::macrosOfRealEvents()
{
    QWidget widget;
    widget.setObjectName(QStringLiteral("widget"));
    BusyWindow window;
    QVERIFY(window.SubclassWindow(&widget));
    const auto callsOf = [&](QEvent&& event) {
        window.calls.clear();
        window.eventFilter(&widget, &event);
        return window.calls.join(QLatin1Char(' '));
    };
    const QPointF at(7, -3);
    QCOMPARE(callsOf(QMouseEvent(QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton, Qt::ShiftModifier)),
             QStringLiteral("OnRButtonDown(6, (7 -3))"));
    QCOMPARE(callsOf(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier)),
             QStringLiteral("OnKeyDown(65, 1, 8)"));
    QCOMPARE(callsOf(QKeyEvent(QEvent::KeyRelease, Qt::Key_F10, Qt::AltModifier)),
             QStringLiteral("OnSysKeyUp(121, 1, 32800)"));
    QCOMPARE(callsOf(QResizeEvent({640, 480}, {})), QStringLiteral("OnSize(0, 640, 480)"));
    QCOMPARE(callsOf(QEvent(QEvent::WindowActivate)),
             QStringLiteral("OnActivate(1, widget, 0) OnActivate_X(1, W(widget), 0)"));
    QCOMPARE(callsOf(QTimerEvent(42)), QStringLiteral("OnTimer(42)"));
    QCOMPARE(
        callsOf(QWheelEvent({5, 6}, {5, 6}, {}, {0, -240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false)),
        QStringLiteral("OnMouseWheel(0, -240, (5 6))"));
}

// A class without a handler of its own enters the base's.
void tst_HandlerMacros::inheritedHandlersSuitTheMacros()
{
    QLineEdit edit;
    edit.setCursor(Qt::SizeAllCursor);
    CursorWindow window;
    QVERIFY(window.SubclassWindow(&edit));
    QCOMPARE(window.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(&edit), 0), 0);
    QCOMPARE(edit.cursor().shape(), Qt::IBeamCursor);
}

XE_TEST(tst_HandlerMacros)
#include "tst_handlermacros.moc"
