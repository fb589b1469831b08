/// @file xeafxwin.h
/// The window object.
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

#include <map>
#include <type_traits>

class CDataExchange_X;
class CMenu_X;
class CWnd_X;
class QAbstractButton;
class QMenuBar;

namespace xe {
class DispatchFrame;
struct EventRow;
} // namespace xe

/// Allows a member that takes a window's widget to take its wrapper as well.
template <class Window>
using XeIfWindow = std::enable_if_t<std::is_base_of_v<CWnd_X, Window>, int>;

/// The wrapper of a QWidget: a widget that lives as a window with a message map.
///
/// Attach it to a widget (SubclassWindow() for one that exists, Create() for one of its own) and it sees each event of
/// the widget first. An event that has a message runs through PreTranslateMessage(), ::TranslateMessage() and OnWndMsg(),
/// which calls the handler that the message map names. What the handler does decides what follows:
/// - no entry for the message: Qt goes on as if there were no wrapper;
/// - the handler ends in a base handler of the "pass on" kind, or calls SetCurrentEventAccepted(false): Qt goes on too
///   (WM_CLOSE is different: the close is refused);
/// - anything else: the event is consumed, and the widget does not see it.
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
/// The message map belongs to the object and is filled at attachment. A wrapper may be deleted, detached or destroyed
/// inside its own handlers. GUI thread only, but for PostMessage() and the form of PostEvent() that is not unique.
class XE_EXPORT CWnd_X : public CCmdTarget_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CWnd_X)
    DECLARE_IMP_CLASS_X(QWidget)

    CWnd_X();
    ~CWnd_X() override;

    /// The widget, null while nothing is attached and, as the published function, for a null object.
    QWidget* GetSafeHwnd() const;

    /// The wrapper of a widget, null if it has none or is null.
    static CWnd_X* FromHandlePermanent(QWidget* widget);
    /// The wrapper of a widget. One without gets a temporary wrapper of the class registered for it, which lives until
    /// the next idle moment outside a host command. Null for null.
    static CWnd_X* FromHandle(QWidget* widget);
    /// CHandleMap_X::DeleteTemp of the handle map of windows, which FromHandle() does not use.
    static void DeleteTempMap();

    /// Wraps an existing widget, which stays its owner's. 0, with the widget untouched, if it is null or of the wrong
    /// class, or if the window refuses the attachment; otherwise 1.
    int SubclassWindow(QWidget* widget);

    /// SubclassWindow() for the child of this name in `parent`; 0 if there is none.
    int SubclassDlgItem(const char* name, CWnd_X* parent);

    /// Create() with a style. WS_VISIBLE shows the window, WS_VSCROLL and WS_HSCROLL give it scroll bars; the other bits
    /// are only stored. 0 if the attachment fails, otherwise 1.
    int Create(DWORD style, QWidget* parent);
    /// The same in a place of the parent's; see MoveWindow().
    int Create(DWORD style, const tagRECT& rect, QWidget* parent);
    template <class Window, XeIfWindow<Window> = 0>
    int Create(DWORD style, const Window* parent)
    {
        return Create(style, handleOf(parent));
    }
    template <class Window, XeIfWindow<Window> = 0>
    int Create(DWORD style, const tagRECT& rect, const Window* parent)
    {
        return Create(style, rect, handleOf(parent));
    }

    // ---------------------------------------------------------------------------------------- state and geometry
    // Pixels. Without a widget these do nothing and give 0, null or a default value. What is told of the free function of
    // the same name (xewinuser.h) holds here.

    BOOL ShowWindow(int command) { return ShowWindow_X(GetSafeHwnd(), command); }
    BOOL EnableWindow(BOOL enable = TRUE) { return EnableWindow_X(GetSafeHwnd(), enable); }
    BOOL IsWindowEnabled() const { return IsWindowEnabled_X(GetSafeHwnd()); }
    BOOL IsWindowVisible() const { return IsWindowVisible_X(GetSafeHwnd()); }
    BOOL IsIconic() const { return IsIconic_X(GetSafeHwnd()); }
    BOOL CloseWindow() { return CloseWindow_X(GetSafeHwnd()); }
    BOOL OpenIcon() { return OpenIcon_X(GetSafeHwnd()); }

    /// The style given at creation or by ModifyStyle().
    DWORD GetStyle() const { return m_dwStyle; }
    /// Changes the stored style, and nothing about the widget. 1.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);

    BOOL SetWindowPos(QWidget* after, int x, int y, int width, int height, UINT flags)
    {
        return SetWindowPos_X(GetSafeHwnd(), after, x, y, width, height, flags);
    }
    template <class Window, XeIfWindow<Window> = 0>
    BOOL SetWindowPos(const Window* after, int x, int y, int width, int height, UINT flags)
    {
        return SetWindowPos(handleOf(after), x, y, width, height, flags);
    }
    /// Moves the frame and gives it this size; a negative width or height leaves the size alone.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    /// Swapped edges of the rectangle give the same size.
    void MoveWindow(const tagRECT* rect, BOOL repaint = TRUE);
    /// Centres on `alternate`, else on the Qt parent, else on the screen.
    void CenterWindow(QWidget* alternate = nullptr);
    template <class Window, XeIfWindow<Window> = 0>
    void CenterWindow(const Window* alternate)
    {
        CenterWindow(handleOf(alternate));
    }
    BOOL GetWindowRect(tagRECT* rect) const { return GetWindowRect_X(GetSafeHwnd(), rect); }
    /// (0, 0, width, height) without the scroll bars that are shown.
    void GetClientRect(tagRECT* rect) const;
    void ClientToScreen(tagPOINT* point) const;
    void ClientToScreen(tagRECT* rect) const;
    void ScreenToClient(tagPOINT* point) const;
    void ScreenToClient(tagRECT* rect) const;

    // ------------------------------------------------------------------------------------------------- painting

    void UpdateWindow() { UpdateWindow_X(GetSafeHwnd()); }
    /// Asks for a repaint of the whole window. `erase` is ignored.
    void Invalidate(BOOL erase = TRUE);
    /// A null rectangle repaints *nothing*, unlike Windows. The right and bottom edge are repainted too.
    void InvalidateRect(const tagRECT* rect, BOOL erase = TRUE);
    BOOL RedrawWindow();
    void SetRedraw(BOOL redraw = TRUE);
    BOOL LockWindowUpdate();
    void UnlockWindowUpdate();
    /// Moves the content, of the rectangle alone if one is given.
    void ScrollWindow(int dx, int dy, const tagRECT* rect = nullptr);
    QCursor GetCursor() const;
    void SetCursor(const QCursor& cursor);
    QIcon GetIcon() const;
    void SetIcon(const QIcon& icon);
    const QFont* GetFont() const; ///< the widget's own, null without one
    void SetFont(const QFont* font, BOOL redraw = TRUE);

    // -------------------------------------------------------------------------------------- focus, mouse, relations

    BOOL IsChild(QWidget* child) const { return IsChild_X(GetSafeHwnd(), child); }
    template <class Window, XeIfWindow<Window> = 0>
    BOOL IsChild(const Window* child) const
    {
        return IsChild(handleOf(child));
    }
    CWnd_X* GetParent() const;
    CWnd_X* SetParent(QWidget* parent); ///< gives the old parent
    template <class Window, XeIfWindow<Window> = 0>
    CWnd_X* SetParent(const Window* parent)
    {
        return SetParent(handleOf(parent));
    }
    static CWnd_X* GetDesktopWindow();
    static QWidget* GetActiveWindow() { return GetActiveWindow_X(); }
    QWidget* SetActiveWindow();
    static QWidget* GetFocus() { return GetFocus_X(); }
    QWidget* SetFocus();
    static QWidget* GetCapture() { return GetCapture_X(); }
    QWidget* SetCapture();
    static void ReleaseCapture() { ReleaseCapture_X(); }
    /// The child at a place on the screen, null if there is none. The viewport of a scroll area stands for the area.
    CWnd_X* WindowFromPoint(CPoint screen) const;

    // ---------------------------------------------------------------------------------------------- dialog items
    // An item is named by its widget, its object name, or a resource id of the calling module. One that is not there gives
    // null or 0.

    QWidget* GetChildWidget(const char* name) const; ///< at any depth
    CWnd_X* GetDlgItem(QWidget* widget) const { return FromHandle(widget); }
    CWnd_X* GetDlgItem(const char* name) const { return FromHandle(GetChildWidget(name)); }
    CWnd_X* GetDlgItem(int id) const { return FromHandle(GetDlgItem_X(GetSafeHwnd(), id)); }
    QWidget* GetDlgItem(int id, QWidget** out) const;
    int GetDlgCtrlID() const { return GetDlgCtrlID_X(GetSafeHwnd()); }
    int SetDlgCtrlID(int id); ///< renames the widget; gives the old id

    int GetDlgItemText(QWidget* item, CString_X& text) const { return GetWindowText_X(item, text); }
    int GetDlgItemText(const char* name, CString_X& text) const { return GetDlgItemText(GetChildWidget(name), text); }
    int GetDlgItemText(int id, CString_X& text) const { return GetDlgItemText(GetDlgItem_X(GetSafeHwnd(), id), text); }
    UINT GetDlgItemText(int id, wchar_t* buffer, int size) const
    {
        return GetDlgItemText_X(GetSafeHwnd(), id, buffer, size);
    }
    BOOL SetDlgItemText(QWidget* item, const wchar_t* text) { return SetWindowText_X(item, text); }
    BOOL SetDlgItemText(const char* name, const wchar_t* text) { return SetDlgItemText(GetChildWidget(name), text); }
    BOOL SetDlgItemText(int id, const wchar_t* text) { return SetDlgItemText_X(GetSafeHwnd(), id, text); }
    UINT GetDlgItemInt(QWidget* item, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const
    {
        return GetDlgItemInt_X(GetSafeHwnd(), id, translated, isSigned);
    }
    BOOL SetDlgItemInt(QWidget* item, UINT value, BOOL isSigned = TRUE);
    BOOL SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE)
    {
        return SetDlgItemInt_X(GetSafeHwnd(), id, value, isSigned);
    }
    void CheckDlgButton(QAbstractButton* button, UINT value);
    UINT IsDlgButtonChecked(QAbstractButton* button) const;

    /// Runs DoDataExchange(): with TRUE from the controls to the variables, with FALSE the other way. 1, or 0 when the
    /// exchange was given up.
    int UpdateData(BOOL saveAndValidate = TRUE);

    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT style = 0);
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC proc = nullptr);
    BOOL KillTimer(UINT_PTR id) { return GetSafeHwnd() ? KillTimer_X(GetSafeHwnd(), id) : FALSE; }

    // ---------------------------------------------------------------------------------------------- scroll bars
    // `bar` is SB_HORZ, SB_VERT or SB_BOTH.

    BOOL IsScrollBarEnabled(int bar) const; ///< whether the bar is there and not hidden
    /// Shows or hides a bar, which is made when it is missing.
    void ShowScrollBar(UINT bar, BOOL show = TRUE);
    void EnableScrollBarCtrl(int bar, BOOL enable = TRUE) { ShowScrollBar(static_cast<UINT>(bar), enable); }
    /// A disabled bar is a hidden one: shows it for ESB_ENABLE_BOTH and hides it otherwise. 1.
    BOOL EnableScrollBar(int bar, UINT arrows = ESB_ENABLE_BOTH);
    int GetScrollLimit(int bar) const; ///< the maximum less 1
    int GetScrollPos(int bar) const; ///< 0 without the bar
    /// Gives the old position; 0 without the bar. `redraw` is ignored.
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    /// Fills what is not null; nothing without the bar.
    void GetScrollRange(int bar, int* minimum, int* maximum) const;
    void SetScrollRange(int bar, int minimum, int maximum, BOOL redraw = TRUE);
    BOOL SetScrollInfo(int bar, tagSCROLLINFO* info, BOOL redraw = TRUE);
    /// Fills what `mask` asks for and writes `mask` to the record; what the record says itself is not looked at.
    BOOL GetScrollInfo(int bar, tagSCROLLINFO* info, UINT mask = SIF_ALL) const;

    // ------------------------------------------------------------------------------------------------- messages

    /// Makes `handler` the one for `message`, in place of an earlier entry. The signature code selects how the handlers
    /// are called; the message-map macros write the right one, and XeHandler takes the type off a handler. A null handler
    /// is not called, and the message still counts as handled.
    void AddMsgMapEntry(UINT message, unsigned long signature, AFX_PMSG_X handler, AFX_PMSG_X secondHandler = nullptr);

    /// Sets or clears the accept flag of the event now being handled: false passes it on to Qt. Nothing outside a
    /// handler.
    void SetCurrentEventAccepted(bool accepted);

    /// SendMessage_X() and PostMessage_X() to the widget; 0 without one.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    /// Delivers an event of the caller's to the widget at once. False without a widget or event, otherwise true, whatever
    /// became of it.
    bool SendEvent(QEvent* event);

    /// Queues `event` for the widget, handing it over. With `unique` only one event of a type waits at a time: while one
    /// queued this way has not been delivered, the new one is deleted and the result is false.
    /// Without a widget the result is false too, and the event stays the caller's.
    bool PostEvent(QEvent* event, int priority = Qt::NormalEventPriority, bool unique = false);

    bool eventFilter(QObject* target, QEvent* event) override;
    /// Brings the window to life: OnCreate(), the slots, OnMessageMap(). Combo boxes in the window no longer cut the texts
    /// of their lists short.
    bool OnAttach() override;
    void OnDetach() override;
    void OnMessageMap() override;

    // --------------------------------------------------------------------------------------------- overridables

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual") // hides the form for any object: a window's parent is a window
    /// Makes a QWidget with this Qt parent and hover and mouse tracking on, and attaches it as an owned one.
    virtual bool AttachDefault(QWidget* parent);
    QT_WARNING_POP
    /// Builds the child widgets of the window: generated form code of the host.
    virtual void SetupUI();
    /// Places the scroll bars along the edges; the corner between them stays empty. Called when the window's size changes.
    virtual void RecalcLayout();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual") // a dialog hides it by its forms with a template
    /// AttachDefault(); a null parent stands for the host's main window, if there is one.
    virtual int Create(QWidget* parent);
    QT_WARNING_POP
    /// DestroyWindow_X() of the widget; 0 without one.
    virtual int DestroyWindow();
    /// The last call that a wrapper gets from its window. An override may delete the wrapper.
    virtual void PostNcDestroy();
    /// Sees each message of the window first; a non-zero result ends its handling, and Qt does not see the event.
    virtual int PreTranslateMessage(tagMSG* message);
    /// Looks the message up in the map and calls its handler. 0, with `result` unwritten, without an entry or when the
    /// handler has passed the message up; otherwise 1. `result` may be null.
    ///
    /// WM_SETCURSOR with the window's own widget as wParam asks the wrapped ancestors first, outermost first: the first
    /// that claims it with a result that is not 0 has it.
    virtual int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// Names the pairs of control and variable: one DDX_ call each, and DDV_ calls behind them (xeafxddx.h).
    virtual void DoDataExchange(CDataExchange_X* exchange);
    /// Puts the menu into the window's menu bar and shows that; null empties and hides it. 0 without a menu bar.
    virtual int SetMenu(CMenu_X* menu);
    virtual int SetMenu(QList<CMenu_X*> menus);
    /// Called when SubclassWindow() has attached an existing widget.
    virtual void PreSubclassWindow();
    /// The title of the window; a control's text in the classes of controls.
    virtual void GetWindowText(CString_X& text) const;
    virtual void SetWindowText(const wchar_t* text);
    /// The vertical bar if `bar` is not 0, else the horizontal one; null if it was never made.
    virtual QScrollBar* GetScrollBarCtrl(int bar) const;
    /// The first step of an attachment: calls SetupUI(), makes the scroll bars of the style and a hidden menu bar. A result
    /// that is not 0 refuses the attachment.
    virtual int OnCreate(tagCREATESTRUCTW* createStruct);

    // ---------------------------------------------------------- handlers that pass the event on to the widget (Qt)

    void OnActivate(UINT state, QWidget* other, BOOL minimized);
    void OnActivate_X(UINT state, CWnd_X* other, BOOL minimized);
    void OnActivateApp(BOOL active, DWORD threadId);
    void OnCaptureChanged(QWidget* other);
    void OnCaptureChanged_X(CWnd_X* other);
    void OnEnable(BOOL enabled);
    void OnFontChange();
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    void OnKillFocus(QWidget* other);
    void OnKillFocus_X(CWnd_X* other);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnMButtonDblClk(UINT flags, CPoint point);
    void OnMButtonDown(UINT flags, CPoint point);
    void OnMButtonUp(UINT flags, CPoint point);
    void OnMeasureItem(int id, tagMEASUREITEMSTRUCT* item);
    void OnMouseHover(UINT flags, CPoint point);
    void OnMouseLeave();
    void OnMouseMove(UINT flags, CPoint point);
    void OnMove(int x, int y);
    void OnMoving(UINT side, tagRECT* rect);
    void OnNcLButtonUp(UINT hitCode, CPoint screenPoint);
    void OnPaletteChanged(QWidget* other);
    void OnPaletteChanged_X(CWnd_X* other);
    void OnPaletteIsChanging(QWidget* other);
    void OnPaletteIsChanging_X(CWnd_X* other);
    void OnRButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnSetFocus(QWidget* other);
    void OnSetFocus_X(CWnd_X* other);
    void OnShowWindow(BOOL shown, UINT status);
    /// Calls RecalcLayout() before it passes the event on.
    void OnSize(UINT type, int width, int height);
    void OnSizing(UINT side, tagRECT* rect);
    void OnStyleChanged(int which, tagSTYLESTRUCT* style);
    void OnStyleChanging(int which, tagSTYLESTRUCT* style);
    void OnSysColorChange();
    void OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnSysKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    void OnTimer(UINT_PTR id);
    void OnWindowPosChanged(tagWINDOWPOS* position);
    void OnWindowPosChanging(tagWINDOWPOS* position);

    // ------------------------------------------------------- handlers that do nothing: the event counts as consumed

    void OnChar(UINT character, UINT repeatCount, UINT modifiers);
    /// The window closes.
    void OnClose();
    void OnContextMenu(QWidget* widget, CPoint point);
    void OnContextMenu_X(CWnd_X* window, CPoint point);
    void OnDropFiles(HDROP files);
    void OnHotKey(UINT id, UINT key1, UINT key2);
    void OnHScroll(UINT code, UINT position, QWidget* bar);
    /// The widget does not paint itself.
    void OnPaint();
    void OnSysChar(UINT character, UINT repeatCount, UINT modifiers);
    void OnVScroll(UINT code, UINT position, QWidget* bar);

    // --------------------------------------------------------------------------------- handlers that give a result

    /// 0. Never called by a message: there is no device context outside a paint event.
    HBRUSH OnCtlColor(CDC_X* dc, QWidget* widget, UINT type);
    HBRUSH OnCtlColor_X(CDC_X* dc, CWnd_X* window, UINT type);
    BOOL OnEraseBkgnd(CDC_X* dc);
    /// 0, which passes the wheel on to the widget.
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    LRESULT OnNcHitTest(CPoint point);
    /// Sets the text cursor on a QLineEdit and the arrow on any other widget; 0.
    BOOL OnSetCursor(QWidget* widget, UINT hitCode, UINT message);
    BOOL OnSetCursor_X(CWnd_X* window, UINT hitCode, UINT message);

    // ------------------------------------------------------------------------------------- handlers of destruction

    /// Deletes the scroll bars and the menu bar.
    void OnDestroy();
    /// Detaches, which deletes an owned widget later, and calls PostNcDestroy().
    void OnNcDestroy();

public Q_SLOTS:
    /// Emits updateCmdUi(): the event loop is about to wait.
    void OnEnterIdle();

Q_SIGNALS:
    void timeOut(unsigned long id);
    void updateCmdUi();

protected:
    // OnAttach() in its two steps, for a class that has something to do between them.

    /// Builds the window: OnCreate(). False if that refuses the attachment.
    bool CreateContents();
    /// Connects the slots, fills the message map and looks after the combo boxes. False if the widget has gone meanwhile.
    bool ConnectContents();

    DWORD m_dwStyle = 0; ///< see GetStyle(); controls read their own bits in it

private:
    friend class xe::DispatchFrame;

    struct PendingEvent
    {
        QEvent* event;
        QEvent::Type type;
    };

    static QWidget* handleOf(const CWnd_X* window) { return window ? window->GetSafeHwnd() : nullptr; }
    int showByStyle();
    void deleteBars();

    bool filterMessage(const xe::EventRow& row, QObject* target, QEvent* event);
    bool filterWithoutMessage(QObject* target, QEvent* event);
    bool callEntry(const xe::DispatchFrame& frame, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool offerCursorToAncestors(const xe::DispatchFrame& frame, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void forgetPending(QEvent* event);

    xe::DispatchFrame* m_dispatch = nullptr; // the innermost event or message in progress
    QVector<PendingEvent> m_pendingEvents;   // posted as unique and not yet delivered
    std::map<UINT, AFX_MSGMAP_ENTRY_X> m_messageMap;
    QPointer<QScrollBar> m_horizontalBar; // children of the widget
    QPointer<QScrollBar> m_verticalBar;
    QPointer<QMenuBar> m_menuBar;
};
