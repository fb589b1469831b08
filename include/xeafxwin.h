/// @file xeafxwin.h
/// The window object: the wrapper of a QWidget, with its message map, its members and its handlers.
#pragma once

#include "xeafx.h"
#include "xeafxmsg.h"
#include "xeafxstr.h"
#include "xeatltypes.h"
#include "xewinuser.h"

#include <QCursor>
#include <QPointer>
#include <QScrollBar>
#include <QVector>
#include <QWidget>

#include <memory>
#include <type_traits>
#include <vector>

class CDataExchange_X;
class CMenu_X;
class CWnd_X;
class QAbstractButton;
class QMenuBar;

namespace xe {
class DispatchFrame;
class PointerPosition;
class Viewport;
struct EventRow;
struct MessageParameters;
} // namespace xe

namespace xe::detail {
/// Allows a member that takes a window's widget to take its wrapper as well; a null wrapper stands for a null widget.
template <class Window>
using IfWindow = std::enable_if_t<std::is_base_of_v<CWnd_X, Window>, int>;
} // namespace xe::detail

/// The wrapper of a QWidget: a widget that lives as a window with a message map.
///
/// A host derives a class, gives it a message map with its handlers, and attaches an object of it to a widget:
/// SubclassWindow() to one that exists, Create() to one of its own.
///
/// @code
/// class CPlanView : public CWnd_X
/// {
///     Q_OBJECT
///     DECLARE_DYNCREATE_X(CPlanView)
/// public:
///     void OnLButtonDown(UINT flags, CPoint point);
///     DECLARE_MESSAGE_MAP_X()
/// };
/// IMPLEMENT_DYNCREATE_X(CPlanView, CWnd_X)
/// BEGIN_MESSAGE_MAP_X(CPlanView, CWnd_X)
///     ON_WM_LBUTTONDOWN_X()
/// END_MESSAGE_MAP_X()
/// @endcode
///
/// From then on the wrapper sees each event of the widget first. An event that has a message (xeQEventToMsg()) runs
/// through PreTranslateMessage(), ::TranslateMessage() and OnWndMsg(), which calls the handler that the message map
/// names. What the handler does decides what follows:
/// - no entry for the message: Qt goes on as if there were no wrapper;
/// - the handler ends in a base handler of the "pass on" kind, or calls SetCurrentEventAccepted(false): Qt goes on too
///   (WM_CLOSE is different: the close is refused);
/// - anything else: the event is consumed, and the widget does not see it.
///
/// The message map belongs to the object and is filled at attachment. The window ends by DestroyWindow(), which sends
/// WM_DESTROY and WM_NCDESTROY; the wrapper itself is deleted by its owner, or by its own PostNcDestroy(). It may be
/// deleted, detached or destroyed inside its own handlers. A wrapper that is deleted while it is attached sends
/// nothing.
///
/// Of a scroll area (an item view, a text edit) the viewport is the client area: what Qt sends to it of mouse, wheel
/// and context menu comes once, as the window's own, with points in the viewport. ClientToScreen() and ScreenToClient()
/// speak of the same points. The viewport is the one that the area has when it is attached.
///
/// Unlike a published window it gets no WM_COMMAND from controls: connect to their Qt signals, by CObject_X::Connect()
/// or by slots of the same names. CDialog_X is a window with OK and Cancel, CMenu_X its menu.
///
/// GUI thread only, but for PostMessage() and the form of PostEvent() that is not unique.
class XE_EXPORT CWnd_X : public CCmdTarget_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CWnd_X)
    DECLARE_IMP_CLASS_X(QWidget)

    CWnd_X();
    /// Detaches without any message. The bars of the window go too, an owned widget later.
    ~CWnd_X() override;

    /// The widget; null while nothing is attached and, as in the published function, for a null object.
    QWidget* GetSafeHwnd() const;

    /// The wrapper of a widget, a temporary one too; null if it has none or is null.
    static CWnd_X* FromHandlePermanent(QWidget* widget);
    /// The wrapper of a widget. One without gets a temporary wrapper of the class registered for its Qt class, which
    /// sees its events and is deleted at the next idle moment outside a host command: do not keep the pointer. Null for
    /// null, and where no class of windows is registered.
    static CWnd_X* FromHandle(QWidget* widget);
    /// CHandleMap_X::DeleteTemp of the handle map of windows, which FromHandle() does not use.
    static void DeleteTempMap();

    /// Wraps an existing widget, which stays its owner's, then calls PreSubclassWindow(). 0, with the widget untouched,
    /// if it is null or of the wrong class, or if the window refuses the attachment; otherwise 1.
    int SubclassWindow(QWidget* widget);

    /// SubclassWindow() for the child of this object name (UTF-8) in `parent`, at any depth; 0 if there is none.
    int SubclassDlgItem(const char* name, CWnd_X* parent);

    /// Makes a window of its own, a child of `parent` or, for null, of the host's main window. WS_VISIBLE shows it,
    /// WS_VSCROLL and WS_HSCROLL give it scroll bars; the other bits are only stored. 0 if the attachment fails,
    /// otherwise 1.
    int Create(DWORD style, QWidget* parent);
    /// The same in a place of the parent's, or of the screen's for a top-level window; see MoveWindow().
    int Create(DWORD style, const tagRECT& rect, QWidget* parent);
    /// The same with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const Window* parent)
    {
        return Create(style, handleOf(parent));
    }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const tagRECT& rect, const Window* parent)
    {
        return Create(style, rect, handleOf(parent));
    }

    // ---------------------------------------------------------------------------------------------- state and geometry
    // Pixels. Without a widget, here and in what follows, the members do nothing and give 0, null or a default value.
    // What is told of the free function of the same name (xewinuser.h) holds for the member, unless it says otherwise.

    /// Hides or shows the window by SW_HIDE, SW_SHOW and SW_SHOWNORMAL; any other command does nothing. 1 in any case:
    /// the published function tells whether the window was visible before.
    BOOL ShowWindow(int command) { return ShowWindow_X(GetSafeHwnd(), command); }
    /// Gives the previous *enabled* state, unlike the published function.
    BOOL EnableWindow(BOOL enable = TRUE) { return EnableWindow_X(GetSafeHwnd(), enable); }
    /// Whether the widget and all its parents are enabled.
    BOOL IsWindowEnabled() const { return IsWindowEnabled_X(GetSafeHwnd()); }
    /// Whether the widget itself is not hidden, whatever its parents are.
    BOOL IsWindowVisible() const { return IsWindowVisible_X(GetSafeHwnd()); }
    /// Whether the window is minimised.
    BOOL IsIconic() const { return IsIconic_X(GetSafeHwnd()); }
    /// Minimises the window, or restores it if it is minimised already. 1.
    BOOL CloseWindow() { return CloseWindow_X(GetSafeHwnd()); }
    /// Restores the window and gives it the focus. 1.
    BOOL OpenIcon() { return OpenIcon_X(GetSafeHwnd()); }

    /// The style given at creation or by ModifyStyle(); also without a widget.
    DWORD GetStyle() const { return m_dwStyle; }
    /// Changes the stored style and nothing about the widget, unlike the published function. 1, also without a widget.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);

    /// Resizes, moves, and shows or hides, as the SWP_ flags allow; `after` is a sibling to go under, or null. 1.
    BOOL SetWindowPos(QWidget* after, int x, int y, int width, int height, UINT flags)
    {
        return SetWindowPos_X(GetSafeHwnd(), after, x, y, width, height, flags);
    }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    BOOL SetWindowPos(const Window* after, int x, int y, int width, int height, UINT flags)
    {
        return SetWindowPos(handleOf(after), x, y, width, height, flags);
    }
    /// Moves the frame, in the parent's coordinates or the screen's, and gives the frame this size; MoveWindow_X()
    /// gives it to the widget in the frame. A negative width or height leaves the size alone.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    /// The same with a rectangle, whose swapped edges give the same size. Nothing for null.
    void MoveWindow(const tagRECT* rect, BOOL repaint = TRUE);
    /// Centres on the frame of `alternate`, else of the Qt parent, else on the screen.
    void CenterWindow(QWidget* alternate = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    void CenterWindow(const Window* alternate)
    {
        CenterWindow(handleOf(alternate));
    }
    /// The frame on the screen. 1, or 0 for null.
    BOOL GetWindowRect(tagRECT* rect) const { return GetWindowRect_X(GetSafeHwnd(), rect); }
    /// (0, 0, width, height) less 17 for each scroll bar that is shown. Without a widget the rectangle stays as it is.
    void GetClientRect(tagRECT* rect) const;
    /// From the widget's coordinates to the screen's, in place; of a rectangle both corners. Nothing for null. Of a
    /// scroll area they are the viewport's, unlike those of the free functions, which know the widget alone.
    void ClientToScreen(tagPOINT* point) const;
    void ClientToScreen(tagRECT* rect) const;
    /// From the screen's coordinates to the widget's, likewise.
    void ScreenToClient(tagPOINT* point) const;
    void ScreenToClient(tagRECT* rect) const;

    // -------------------------------------------------------------------------------------------------------- painting
    // A repaint comes from the event loop, never at once.

    /// Asks for a repaint of the whole window, and does not wait for it.
    void UpdateWindow() { UpdateWindow_X(GetSafeHwnd()); }
    /// Asks for a repaint of the whole window. `erase` is ignored.
    void Invalidate(BOOL erase = TRUE);
    /// Asks for a repaint of a part. A null rectangle repaints *nothing*, unlike Windows. The right and bottom edge are
    /// repainted too.
    void InvalidateRect(const tagRECT* rect, BOOL erase = TRUE);
    /// Asks for a repaint of the whole window. 1.
    BOOL RedrawWindow();
    /// With FALSE the window is not painted until TRUE follows, which repaints it.
    void SetRedraw(BOOL redraw = TRUE);
    /// SetRedraw(FALSE) for this window alone; any number of windows may be locked. 1.
    BOOL LockWindowUpdate();
    /// SetRedraw(TRUE).
    void UnlockWindowUpdate();
    /// Moves the content by `dx` to the right and `dy` downwards, of the rectangle alone if one is given. Without a
    /// rectangle the children move too.
    void ScrollWindow(int dx, int dy, const tagRECT* rect = nullptr);
    /// The mouse cursor of the widget; without a widget the arrow.
    QCursor GetCursor() const;
    /// Sets the mouse cursor of the widget, for itself and those of its children that have none.
    void SetCursor(const QCursor& cursor);
    /// The icon of the window; a null one without a widget.
    QIcon GetIcon() const;
    void SetIcon(const QIcon& icon);
    /// The widget's own font, which lives and changes with the widget; null without one.
    const QFont* GetFont() const;
    /// Copies the font; nothing for null. `redraw` is ignored: the widget is repainted.
    void SetFont(const QFont* font, BOOL redraw = TRUE);

    // ----------------------------------------------------------------------------------------- focus, mouse, relations

    /// Whether `child` is this window or below it in the same top-level window.
    BOOL IsChild(QWidget* child) const { return IsChild_X(GetSafeHwnd(), child); }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    BOOL IsChild(const Window* child) const
    {
        return IsChild(handleOf(child));
    }
    /// The wrapper, made by FromHandle(), of the logical parent, else of the Qt parent; null without one.
    CWnd_X* GetParent() const;
    /// Sets both parents, and gives the wrapper of the old one, made by FromHandle().
    CWnd_X* SetParent(QWidget* parent);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CWnd_X* SetParent(const Window* parent)
    {
        return SetParent(handleOf(parent));
    }
    /// The wrapper, made by FromHandle(), of the widget that stands for all screens together.
    static CWnd_X* GetDesktopWindow();
    /// The active window of this program, or null.
    static QWidget* GetActiveWindow() { return GetActiveWindow_X(); }
    /// Asks the window system to activate this widget's window. Gives the widget that is the active window at the
    /// moment; null if there is none, and without a widget, when nothing happens. Unlike from the published function
    /// the result is a widget, for FromHandle(), as it is from the two below.
    QWidget* SetActiveWindow();
    /// The widget of this program with the keyboard focus, or null.
    static QWidget* GetFocus() { return GetFocus_X(); }
    /// Activates this widget's window, as SetActiveWindow(), and gives the widget the focus in it. Gives the widget
    /// that had the focus before; null if none had, and without a widget, when nothing happens.
    QWidget* SetFocus();
    /// The widget that has grabbed the mouse, or null. A button held down over a widget is no grab.
    static QWidget* GetCapture() { return GetCapture_X(); }
    /// Has this widget, which must be visible, grab the mouse: all mouse events come to it until ReleaseCapture().
    /// Gives the widget that had grabbed it before; null if none had, and without a widget, when nothing happens.
    QWidget* SetCapture();
    /// Ends the grab of whichever widget has one.
    static void ReleaseCapture() { ReleaseCapture_X(); }
    /// The wrapper, made by FromHandle(), of the innermost child at a place on the screen; null if there is none. The
    /// viewport of a scroll area stands for the area.
    CWnd_X* WindowFromPoint(CPoint screen) const;

    // ---------------------------------------------------------------------------------------------------- dialog items
    // An item is named by its widget, its object name (UTF-8), or a resource id of the calling module (xeresource.h).
    // One that is not there gives null or 0.

    /// The first child of this name at any depth; null for a null or empty name.
    QWidget* GetChildWidget(const char* name) const;
    /// The item's wrapper, made by FromHandle().
    CWnd_X* GetDlgItem(QWidget* widget) const { return FromHandle(widget); }
    CWnd_X* GetDlgItem(const char* name) const { return FromHandle(GetChildWidget(name)); }
    CWnd_X* GetDlgItem(int id) const { return FromHandle(GetDlgItem_X(GetSafeHwnd(), id)); }
    /// The item's widget, which `*out` gets too, null as well; `out` may be null.
    QWidget* GetDlgItem(int id, QWidget** out) const;
    /// The resource id of this window's object name; 0 for a name without one.
    int GetDlgCtrlID() const { return GetDlgCtrlID_X(GetSafeHwnd()); }
    /// Gives the widget the object name of another id, an empty one for an id without a name. Gives the old id.
    int SetDlgCtrlID(int id);

    /// Fills in the item's text and gives its length in elements; `text` stays as it is without the item.
    int GetDlgItemText(QWidget* item, CString_X& text) const { return GetWindowText_X(item, text); }
    int GetDlgItemText(const char* name, CString_X& text) const { return GetDlgItemText(GetChildWidget(name), text); }
    int GetDlgItemText(int id, CString_X& text) const { return GetDlgItemText(GetDlgItem_X(GetSafeHwnd(), id), text); }
    /// Writes the item's text with its terminator, cut to `size` elements in all. Gives the number before the
    /// terminator.
    UINT GetDlgItemText(int id, wchar_t* buffer, int size) const
    {
        return GetDlgItemText_X(GetSafeHwnd(), id, buffer, size);
    }
    /// Sets the item's text as SetWindowText_X() does. 1.
    BOOL SetDlgItemText(QWidget* item, const wchar_t* text) { return SetWindowText_X(item, text); }
    BOOL SetDlgItemText(const char* name, const wchar_t* text) { return SetDlgItemText(GetChildWidget(name), text); }
    BOOL SetDlgItemText(int id, const wchar_t* text) { return SetDlgItemText_X(GetSafeHwnd(), id, text); }
    /// The first number anywhere in the item's text; `*translated` tells whether there is one. See GetDlgItemInt_X().
    UINT GetDlgItemInt(QWidget* item, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const
    {
        return GetDlgItemInt_X(GetSafeHwnd(), id, translated, isSigned);
    }
    /// Writes a number as SetDlgItemInt_X() does, so that -1 becomes "-4294967295". 1.
    BOOL SetDlgItemInt(QWidget* item, UINT value, BOOL isSigned = TRUE);
    BOOL SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE)
    {
        return SetDlgItemInt_X(GetSafeHwnd(), id, value, isSigned);
    }
    /// Checks a button for any value but 0, BST_INDETERMINATE too: there is no third state. Nothing for null.
    void CheckDlgButton(QAbstractButton* button, UINT value);
    /// Whether a button is checked, 1 or 0; 0 for null.
    UINT IsDlgButtonChecked(QAbstractButton* button) const;

    /// Runs DoDataExchange(): with TRUE from the controls to the variables, with FALSE the other way. 1, or 0 when the
    /// exchange was given up. An exception of a host's own that leaves DoDataExchange() gives it up too.
    int UpdateData(BOOL saveAndValidate = TRUE);

    /// MessageBox_X() over this window. Gives the id of the button; 0, and no box, without a widget.
    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT style = 0);
    /// Starts a timer of the process-wide id, which sends WM_TIMER to this window, or calls `proc`. Gives the id. See
    /// SetTimer_X(), also for an id that is in use.
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC proc = nullptr);
    /// Ends the timer with this id, whichever window's it is. 0 if there is none.
    BOOL KillTimer(UINT_PTR id) { return GetSafeHwnd() ? KillTimer_X(GetSafeHwnd(), id) : FALSE; }

    /// 1. FALSE hides the tool tip that is on the screen; nothing else: the tips are a CToolTipCtrl_X's.
    BOOL EnableToolTips(BOOL enable = TRUE);
    /// Hides the tool tip that is on the screen, once a CToolTipCtrl_X has been created. `keys` is ignored.
    static void CancelToolTips(BOOL keys = FALSE);

    // ----------------------------------------------------------------------------------------------------- scroll bars
    // Children of the widget, along its right and its bottom edge. `bar` is SB_HORZ or SB_VERT, of the functions that
    // show and hide also SB_BOTH. Positions, ranges and pages are in units of the host's.

    /// Whether the bar is there and not hidden.
    BOOL IsScrollBarEnabled(int bar) const;
    /// Shows or hides a bar. One to be shown is made when it is missing.
    void ShowScrollBar(UINT bar, BOOL show = TRUE);
    /// ShowScrollBar(): a disabled bar is a hidden one.
    void EnableScrollBarCtrl(int bar, BOOL enable = TRUE) { ShowScrollBar(static_cast<UINT>(bar), enable); }
    /// Shows a bar for ESB_ENABLE_BOTH and hides it otherwise. 1.
    BOOL EnableScrollBar(int bar, UINT arrows = ESB_ENABLE_BOTH);
    /// The maximum less 1; 0 without the bar.
    int GetScrollLimit(int bar) const;
    /// The bar's value; 0 without the bar.
    int GetScrollPos(int bar) const;
    /// Sets the bar's value, cut to its range, and gives the old one; 0 without the bar. `redraw` is ignored.
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    /// Writes the ends of the range to what is not null; nothing without the bar.
    void GetScrollRange(int bar, int* minimum, int* maximum) const;
    /// Sets the ends of the range; nothing without the bar. `redraw` is ignored.
    void SetScrollRange(int bar, int minimum, int maximum, BOOL redraw = TRUE);
    /// Sets what the record's `fMask` names, SIF_POS and SIF_TRACKPOS alike as the position of the slider. Whether it
    /// named anything; 0 without the bar and for null. The published function gives the position.
    BOOL SetScrollInfo(int bar, tagSCROLLINFO* info, BOOL redraw = TRUE);
    /// Fills what `mask` asks for and writes `mask` to the record; what the record says itself is not looked at. 1; 0
    /// without the bar and for null.
    BOOL GetScrollInfo(int bar, tagSCROLLINFO* info, UINT mask = SIF_ALL) const;

    // -------------------------------------------------------------------------------------------------------- messages

    /// Makes `handler` the one for `message`, in place of an earlier entry. The signature code selects how the handlers
    /// are called; the message-map macros write the right one, and XeHandler takes the type off a handler.
    ///
    /// A null handler is not called, the second one is all the same, and the message counts as handled, with the result
    /// that its signature fixes, else 0. The second handler is not called when the first has deleted the wrapper,
    /// detached or attached it anew, or deleted the widget that the message names.
    void AddMsgMapEntry(UINT message, unsigned long signature, AFX_PMSG_X handler, AFX_PMSG_X secondHandler = nullptr);

    /// Sets or clears the accept flag of the event now being handled: false passes it on to Qt. Nothing outside a
    /// handler.
    void SetCurrentEventAccepted(bool accepted);

    /// SendMessage_X() to the widget: gives the handler's result; 0 without a widget.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// PostMessage_X() to the widget: 1; 0 without a widget, and the message is dropped.
    LRESULT PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    /// Delivers an event of the caller's to the widget at once. False without a widget or event, otherwise true,
    /// whatever became of it.
    bool SendEvent(QEvent* event);

    /// Queues `event` for the widget, handing it over. With `unique` only one event of a type waits at a time: while
    /// one queued this way has not been delivered, the new one is deleted and the result is false. Without a widget or
    /// event the result is false too, and the event stays the caller's. What waits when the wrapper is attached anew
    /// was for the widget before, and no longer counts.
    bool PostEvent(QEvent* event, int priority = Qt::NormalEventPriority, bool unique = false);

    /// The way of an event of the widget's to its handler, as the class says. True stops the event. A null event is
    /// left alone.
    ///
    /// A handler that deletes the wrapper has its result counted as if the wrapper lived; when PreTranslateMessage()
    /// did it with the result 0, Qt gets the event. A handler that deletes the widget stops the event, which
    /// stays accepted, and its result counts: Qt must go on neither with the widget nor from it to its parents.
    ///
    /// Of another object than its own widget, a tool of its CToolTipCtrl_X, the window only sees the messages, in
    /// PreTranslateMessage(): its handlers are not called, and a result that is not 0 stops the event.
    bool eventFilter(QObject* target, QEvent* event) override;
    /// Brings the window to life: OnCreate(), then the slots of the wrapper take over connections of the widget's slots
    /// of the same names (ConnectSlotsFrom()), then OnMessageMap(). In all combo boxes below, the lists show their
    /// texts whole from then on. There is no message map during OnCreate(). False, which undoes the attachment, when
    /// OnCreate() refuses or the widget has gone.
    bool OnAttach() override;
    /// Deletes the scroll bars and the menu bar, when control returns to the event loop.
    void OnDetach() override;
    /// Enters OnDestroy(), OnNcDestroy() and OnSize(), and connects OnEnterIdle() to the event loop.
    void OnMessageMap() override;

    // ---------------------------------------------------------------------------------------------------- overridables

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual") // hides the form for any object: a window's parent is a window
    /// Makes a QWidget with this Qt parent, hover events and mouse tracking on, and attaches it as an owned one. False
    /// when the attachment fails.
    virtual bool AttachDefault(QWidget* parent);
    QT_WARNING_POP
    /// Builds the child widgets of the window: the code of a form, or the host's own. Here nothing.
    virtual void SetupUI();
    /// Places the scroll bars along the edges, where the corner between them stays empty, and a menu bar that is shown
    /// along the top. Called when the window's size changes.
    virtual void RecalcLayout();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual") // a dialog hides it by its forms with a template
    /// AttachDefault(); a null parent stands for the host's main window, if there is one. 0 when that fails, otherwise
    /// 1.
    virtual int Create(QWidget* parent);
    QT_WARNING_POP
    /// DestroyWindow_X() of the widget: hides the window and takes it apart with its children. 0 without a widget,
    /// otherwise 1.
    virtual int DestroyWindow();
    /// The last call that a wrapper gets from its window. An override may delete the wrapper. Here nothing.
    virtual void PostNcDestroy();
    /// Sees each message of the window first; a non-zero result ends its handling, and Qt does not see the event.
    virtual int PreTranslateMessage(tagMSG* message);
    /// Looks the message up in the map and calls its handler. 0, with `result` unwritten, without an entry or when the
    /// handler has passed the message up; otherwise 1. `result` may be null.
    ///
    /// WM_SETCURSOR with the window's own widget as wParam asks the wrapped ancestors first, outermost first, about the
    /// widget under the mouse: the first that claims it with a result that is not 0 has it. When one of them deletes
    /// that widget, nobody else is asked.
    virtual int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// Names the pairs of control and variable: one DDX_ call each, and DDV_ calls behind them (xeafxddx.h). Here
    /// nothing.
    virtual void DoDataExchange(CDataExchange_X* exchange);
    /// Adds the menu to the window's menu bar, in a QMainWindow its own, and shows that; null empties and hides it. 1;
    /// 0 without a menu bar, which a QSplitter never has, nor a QMainWindow with another widget in its place. A control
    /// or dialog has one only when it has been given a menu.
    virtual int SetMenu(CMenu_X* menu);
    /// Adds several menus, each a drop-down list with its title; a null one is left out.
    virtual int SetMenu(QList<CMenu_X*> menus);
    /// Called when SubclassWindow() has attached an existing widget. Here nothing.
    virtual void PreSubclassWindow();
    /// Fills in the title of the window, in the classes of controls the control's text. Without a widget `text` stays.
    virtual void GetWindowText(CString_X& text) const;
    /// Sets that text; null stands for the empty one.
    virtual void SetWindowText(const wchar_t* text);
    /// The vertical bar if `bar` is not 0, else the horizontal one; null if it was never made. It belongs to the
    /// window.
    virtual QScrollBar* GetScrollBarCtrl(int bar) const;
    /// The first step of an attachment: calls SetupUI(), makes the scroll bars of the style and, but for controls and
    /// dialogs, a hidden menu bar. Of the record only the style is filled in. A result that is not 0 refuses the
    /// attachment. It is not called by WM_CREATE, which nobody sends.
    virtual int OnCreate(tagCREATESTRUCTW* createStruct);

    // -------------------------------------------------------------- handlers that pass the event on to the widget (Qt)
    // A host declares a handler of the same name and type and enters it by ON_WM_..._X(); one that calls its base here
    // passes the event on. Of two forms both are called; the one with `_X` gets wrappers made by FromHandle().
    //
    // Points are pixels in the widget's coordinates, `flags` and `modifiers` MK_ flags, `vk` VK codes (0xFFFFFFFF for a
    // key without one). What Qt's events carry is the table of xeQEventToMsg(). "From the host alone" is said where no
    // event of Qt's becomes the message: the handler is called when the host sends it, with what the host has packed.

    /// The window has become active (WA_ACTIVE) or inactive (WA_INACTIVE). `other` is this window itself, not the other
    /// one, and `minimized` 0.
    void OnActivate(UINT state, QWidget* other, BOOL minimized);
    void OnActivate_X(UINT state, CWnd_X* other, BOOL minimized);
    /// From the host alone: wParam and the low 32 bits of lParam.
    void OnActivateApp(BOOL active, DWORD threadId);
    /// From the host alone: the widget in lParam.
    void OnCaptureChanged(QWidget* other);
    void OnCaptureChanged_X(CWnd_X* other);
    /// From the host alone: the low 32 bits of wParam.
    void OnEnable(BOOL enabled);
    /// From the host alone.
    void OnFontChange();
    /// A key without Alt has gone down. `repeatCount` is 1 also for a key that repeats; `modifiers` are MK_ flags, not
    /// the published scan code and flags.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// A key without Alt has gone up. `modifiers` has bit 15 set as well.
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    /// From the host alone: the widget in wParam. A QFocusEvent has no message.
    void OnKillFocus(QWidget* other);
    void OnKillFocus_X(CWnd_X* other);
    /// A mouse button has been clicked twice, gone down or gone up. `flags` are the MK_ flags of keys, Alt included,
    /// and of the buttons that are down after that; `point` is signed.
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnMButtonDblClk(UINT flags, CPoint point);
    void OnMButtonDown(UINT flags, CPoint point);
    void OnMButtonUp(UINT flags, CPoint point);
    /// From the host alone: the low 32 bits of wParam, and the record in lParam. The message's result is 1.
    void OnMeasureItem(int id, tagMEASUREITEMSTRUCT* item);
    /// The mouse has come in, at once and not after a time. `flags` has the keys and no buttons.
    void OnMouseHover(UINT flags, CPoint point);
    /// The mouse has gone out. With hover events on (as Create() has them) it is called twice, for Qt's HoverLeave and
    /// Leave.
    void OnMouseLeave();
    /// The mouse has moved, also without a button down if the widget tracks it. `flags` and `point` as above.
    void OnMouseMove(UINT flags, CPoint point);
    /// From the host alone: the words of lParam, without a sign.
    void OnMove(int x, int y);
    /// From the host alone: wParam, and the rectangle in lParam. The message's result is 1.
    void OnMoving(UINT side, tagRECT* rect);
    /// The left button has gone up on the frame. `hitCode` is HTCAPTION, HTLEFT, HTRIGHT or HTBOTTOM; the point is the
    /// pointer's on the screen.
    void OnNcLButtonUp(UINT hitCode, CPoint screenPoint);
    /// From the host alone: the widget in wParam.
    void OnPaletteChanged(QWidget* other);
    void OnPaletteChanged_X(CWnd_X* other);
    /// From the host alone: the widget in wParam.
    void OnPaletteIsChanging(QWidget* other);
    void OnPaletteIsChanging_X(CWnd_X* other);
    /// As OnLButtonDblClk() and its like.
    void OnRButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    /// From the host alone: the widget in wParam. A QFocusEvent has no message.
    void OnSetFocus(QWidget* other);
    void OnSetFocus_X(CWnd_X* other);
    /// The widget has been shown (Qt's ShowToParent), and both arguments are 0 all the same: the message carries
    /// nothing. Hiding has no message.
    void OnShowWindow(BOOL shown, UINT status);
    /// The widget has this size, in pixels up to 65535; `type` is 0. Calls RecalcLayout() before it passes the event
    /// on.
    void OnSize(UINT type, int width, int height);
    /// From the host alone: wParam, and the rectangle in lParam. The message's result is 1.
    void OnSizing(UINT side, tagRECT* rect);
    /// From the host alone: the low 32 bits of wParam, and the record in lParam.
    void OnStyleChanged(int which, tagSTYLESTRUCT* style);
    void OnStyleChanging(int which, tagSTYLESTRUCT* style);
    /// From the host alone.
    void OnSysColorChange();
    /// A key has gone down or up with Alt, as OnKeyDown() and OnKeyUp() say.
    void OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnSysKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    /// A timer of SetTimer() without a function, or of QObject::startTimer(), is due; `id` is its id.
    void OnTimer(UINT_PTR id);
    /// From the host alone: the record in lParam.
    void OnWindowPosChanged(tagWINDOWPOS* position);
    void OnWindowPosChanging(tagWINDOWPOS* position);

    // ---------------------------------------------------------- handlers that do nothing: the event counts as consumed

    /// A key press without Alt has made a character, a whole code point; `repeatCount` is 1, `modifiers` are MK_ flags.
    /// It comes behind OnKeyDown(), from the event queue.
    void OnChar(UINT character, UINT repeatCount, UINT modifiers);
    /// The window is to close, and does; SetCurrentEventAccepted(false) refuses.
    void OnClose();
    /// A context menu is wanted at a place in the widget's coordinates, signed; `widget` is this window. The published
    /// point is on the screen.
    void OnContextMenu(QWidget* widget, CPoint point);
    void OnContextMenu_X(CWnd_X* window, CPoint point);
    /// From the host alone: wParam.
    void OnDropFiles(HDROP files);
    /// From the host alone: the low 32 bits of wParam, and the words of lParam.
    void OnHotKey(UINT id, UINT key1, UINT key2);
    /// From the host alone: the words of wParam, with a sign, and the bar in lParam. Qt's scroll bars have signals
    /// instead.
    void OnHScroll(UINT code, UINT position, QWidget* bar);
    /// The widget is to be painted. With an entry in the message map the handler does that, and the widget does not;
    /// without an entry the widget paints itself.
    void OnPaint();
    /// The same as OnChar() for a key press with Alt.
    void OnSysChar(UINT character, UINT repeatCount, UINT modifiers);
    /// As OnHScroll().
    void OnVScroll(UINT code, UINT position, QWidget* bar);

    // ------------------------------------------------------------------------------------- handlers that give a result

    /// 0. Never called by a message: there is no device context outside a paint event.
    HBRUSH OnCtlColor(CDC_X* dc, QWidget* widget, UINT type);
    HBRUSH OnCtlColor_X(CDC_X* dc, CWnd_X* window, UINT type);
    /// 0. Never called by a message, likewise.
    BOOL OnEraseBkgnd(CDC_X* dc);
    /// The wheel has turned. `delta` is in eighths of a degree, 120 a notch, away from the user above 0; `flags` is 0;
    /// the point is in the widget's coordinates, whose negative values come as 65536 more. Here 0, which passes the
    /// event on to the widget.
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    /// From the host alone: the words of lParam, with a sign. Here 0.
    LRESULT OnNcHitTest(CPoint point);
    /// The mouse, which nobody has grabbed, has done something: `widget` is the one under it, which may be a child,
    /// `hitCode` 0, `message` the mouse message. Here sets the text cursor on a QLineEdit and the arrow on any other
    /// widget, and gives 0. The outermost wrapped window is asked first; see OnWndMsg().
    BOOL OnSetCursor(QWidget* widget, UINT hitCode, UINT message);
    BOOL OnSetCursor_X(CWnd_X* window, UINT hitCode, UINT message);

    // ----------------------------------------------------------------------------------------- handlers of destruction

    /// The window is being destroyed, its children are still there. Here deletes the scroll bars and the menu bar.
    void OnDestroy();
    /// The children are gone. Here detaches, which deletes an owned widget later, and calls PostNcDestroy().
    void OnNcDestroy();

public Q_SLOTS:
    /// Emits updateCmdUi(): the event loop is about to wait.
    void OnEnterIdle();

Q_SIGNALS:
    /// Not emitted by the library, for a timer either: it is there for hosts that connect to it or emit it.
    void timeOut(unsigned long id);
    /// Emitted whenever the event loop is about to wait, from the attachment on and as long as the wrapper lives, also
    /// without a widget: the moment to update what shows the state of commands.
    void updateCmdUi();

protected:
    /// For controls and dialogs, which hardly ever show a menu bar: it is made by SetMenu() and not by OnCreate(),
    /// since it takes Qt as long to make as ten controls.
    struct Control
    {
    };
    explicit CWnd_X(Control);

    // OnAttach() in its two steps, for a class that has something to do between them.

    /// Builds the window: OnCreate(). False if that refuses the attachment.
    bool CreateContents();
    /// Connects the slots, fills the message map and looks after the combo boxes. False if the widget has gone
    /// meanwhile.
    bool ConnectContents();

    DWORD m_dwStyle = 0; ///< what GetStyle() gives

private:
    friend class xe::DispatchFrame;

    struct PendingEvent
    {
        QEvent* event;
        QEvent::Type type;
    };

    // A line of the message map, with what its signature code stands for looked up.
    struct MappedMessage
    {
        UINT message;
        int (*call)(CWnd_X&, const xe::DispatchFrame&, const AFX_MSGMAP_ENTRY_X&, WPARAM, LPARAM, LRESULT&);
        AFX_MSGMAP_ENTRY_X entry;
    };

    // A hash table with free lines, which have no `call`. Messages of one subject have numbers in a row, so their last
    // bits are as good a hash as any.
    class MessageMap
    {
    public:
        void set(const MappedMessage& mapped);
        const MappedMessage* find(UINT message); // until the next set()

    private:
        MappedMessage* lineOf(UINT message); // also the free line where it belongs
        void grow();

        std::vector<MappedMessage> m_lines;
        std::size_t m_mask = 0;
        std::size_t m_count = 0;
    };

    static QWidget* handleOf(const CWnd_X* window) { return window ? window->GetSafeHwnd() : nullptr; }
    static void showPostedBox(QWidget* owner, const XeMsgBoxEvent& event); // defined beside the message boxes
    void showByStyle();
    void deleteBars();
    QMenuBar* menuBar(); // makes a control's
    QWidget* clientArea() const;

    bool filterMessage(QObject* target, QEvent* event, const xe::EventRow& row);
    bool filterUnusual(QObject* target, QEvent* event, const xe::EventRow* row);
    bool filterWithoutMessage(QObject* target, QEvent* event);
    bool filterViewport(QEvent* event, const xe::EventRow& row);
    bool filterTool(QObject* tool, QEvent* event, const xe::EventRow& row);
    int callEntry(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    int handleUnusual(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    bool offerCursorToAncestors(const xe::DispatchFrame& frame, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void forgetPending(QEvent* event);

    xe::DispatchFrame* m_dispatch = nullptr; // the innermost event or message in progress
    QPointer<QObject> m_attached;            // the widget of the last attachment
    QVector<PendingEvent> m_pendingEvents;   // posted as unique and not yet delivered
    MessageMap m_messageMap;
    QPointer<QScrollBar> m_horizontalBar; // children of the widget
    QPointer<QScrollBar> m_verticalBar;
    QPointer<QMenuBar> m_menuBar;
    std::unique_ptr<xe::Viewport> m_viewport; // of a scroll area
    const bool m_isControl = false;
};

namespace xe::detail {

/// The parent of a control that is to be made: a widget or its wrapper, null for the host's main window.
class ParentWindow
{
public:
    ParentWindow(QWidget* widget) : m_widget(widget) {}
    template <class Window, IfWindow<Window> = 0>
    ParentWindow(const Window* window) : m_widget(window ? window->GetSafeHwnd() : nullptr)
    {}

    operator QWidget*() const { return m_widget; }

private:
    QWidget* m_widget;
};

} // namespace xe::detail
