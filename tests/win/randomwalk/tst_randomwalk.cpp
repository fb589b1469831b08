// Windows, wrappers and applications that come and go at random, also inside each other's handlers. What counts is that
// the sanitizers have nothing to say.
//
// WALK_SECONDS and WALK_SEED in the environment make another walk of it: 5 seconds and 1 if they are not there.

#include "testclass.h"
#include "walk.h"

#include <XeMFCEmu.h>

#include <QElapsedTimer>
#include <QtTest>
#include <QtWidgets>

namespace {

// Each handler makes a step of the walk, and calls its base if it is still there.
#define WALKING(place, name, parameters, ...) \
    void name parameters                      \
    {                                         \
        const QPointer<Window> living(this);  \
        Walk::current->disturb(Place::place); \
        if (living)                           \
            CWnd_X::name(__VA_ARGS__);        \
    }

class Window : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(Window)

public:
    WALKING(TightHandler, OnActivate, (UINT state, QWidget* other, BOOL minimized), state, other, minimized)
    WALKING(TightHandler, OnActivate_X, (UINT state, CWnd_X* other, BOOL minimized), state, other, minimized)
    WALKING(TightHandler, OnSetFocus, (QWidget * other), other)
    WALKING(TightHandler, OnSetFocus_X, (CWnd_X * other), other)
    WALKING(TightHandler, OnKillFocus, (QWidget * other), other)
    WALKING(TightHandler, OnKillFocus_X, (CWnd_X * other), other)
    WALKING(TightHandler, OnShowWindow, (BOOL shown, UINT status), shown, status)
    WALKING(TightHandler, OnSize, (UINT type, int width, int height), type, width, height)
    WALKING(TightHandler, OnMove, (int x, int y), x, y)
    WALKING(TightHandler, OnPaint, ())
    WALKING(TightHandler, OnEnable, (BOOL enabled), enabled)
    WALKING(Handler, OnLButtonDown, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnLButtonUp, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnRButtonDown, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnMouseMove, (UINT flags, CPoint point), flags, point)
    WALKING(Handler, OnMouseLeave, ())
    WALKING(Handler, OnKeyDown, (UINT vk, UINT count, UINT modifiers), vk, count, modifiers)
    WALKING(Handler, OnKeyUp, (UINT vk, UINT count, UINT modifiers), vk, count, modifiers)
    WALKING(Handler, OnChar, (UINT character, UINT count, UINT modifiers), character, count, modifiers)
    WALKING(Handler, OnContextMenu, (QWidget * widget, CPoint point), widget, point)
    WALKING(Handler, OnContextMenu_X, (CWnd_X * window, CPoint point), window, point)
    WALKING(Handler, OnTimer, (UINT_PTR id), id)
    WALKING(TightHandler, OnClose, ())
    WALKING(TightHandler, OnDestroy, ())
    WALKING(TightHandler, OnNcDestroy, ())

    LRESULT OnUser(WPARAM, LPARAM)
    {
        Walk::current->disturb(Place::Handler);
        return 5;
    }

    BOOL OnSetCursor(QWidget*, UINT, UINT)
    {
        Walk::current->disturb(Place::Handler);
        return FALSE;
    }

    DECLARE_MESSAGE_MAP_X()
};

IMPLEMENT_DYNCREATE_X(Window, CWnd_X)

BEGIN_MESSAGE_MAP_X(Window, CWnd_X)
    ON_WM_ACTIVATE_X()
    ON_WM_SETFOCUS_X()
    ON_WM_KILLFOCUS_X()
    ON_WM_SHOWWINDOW_X()
    ON_WM_SIZE_X()
    ON_WM_MOVE_X()
    ON_WM_PAINT_X()
    ON_WM_ENABLE_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X()
    ON_WM_RBUTTONDOWN_X()
    ON_WM_MOUSEMOVE_X()
    ON_WM_MOUSELEAVE_X()
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
    ON_WM_CHAR_X()
    ON_WM_CONTEXTMENU_X()
    ON_WM_TIMER_X()
    ON_WM_CLOSE_X()
    ON_WM_DESTROY_X()
    ON_WM_NCDESTROY_X()
    ON_WM_SETCURSOR_X()
    ON_MESSAGE_X(WM_USER + 1, OnUser)
END_MESSAGE_MAP_X()

// Of the class whose input hooks and message functions see.
class CTavoView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};

} // namespace

CWnd_X* newWalkingWindow() { return new Window; }

QWidget* newTavoView(QWidget* parent) { return new CTavoView(parent); }

class tst_RandomWalk : public QObject
{
    Q_OBJECT

private slots:
    void walk();
};

void tst_RandomWalk::walk()
{
    const int seconds = qEnvironmentVariableIsSet("WALK_SECONDS") ? qEnvironmentVariableIntValue("WALK_SECONDS") : 5;
    const int seed = qEnvironmentVariableIsSet("WALK_SEED") ? qEnvironmentVariableIntValue("WALK_SEED") : 1;
    const auto previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const auto restore = qScopeGuard([previous] { qInstallMessageHandler(previous); });
    QElapsedTimer time;
    time.start();
    Walk walk(static_cast<unsigned>(seed));
    while (time.elapsed() < seconds * 1000) {
        int argc = 1;
        char name[] = "walk";
        char* argv[] = {name, nullptr};
        QApplication application(argc, argv); // each time another one
        QApplication::setQuitOnLastWindowClosed(false);
        walk.live(400);
    }
}

XE_APPLESS_TEST(tst_RandomWalk)
#include "tst_randomwalk.moc"
