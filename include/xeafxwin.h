/// @file xeafxwin.h
/// The window object.
#pragma once

#include "xeafx.h"
#include "xeafxmsg.h"

#include <QVector>
#include <QWidget>

#include <map>

class XeDispatchFrame;

/// A point, as the published class. Passed by value it fills one 64-bit word.
class CPoint : public tagPOINT
{
public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int initX, int initY) : tagPOINT{initX, initY} {}
    CPoint(const tagPOINT& point) : tagPOINT(point) {}

    friend bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }
    friend bool operator!=(const CPoint& a, const CPoint& b) { return !(a == b); }
};

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

    /// Wraps an existing widget, which stays its owner's. 0, with the widget untouched, if it is null or of the wrong
    /// class, or if the window refuses the attachment; otherwise 1.
    int SubclassWindow(QWidget* widget);

    /// The widget that has grabbed the mouse, null if none has.
    static QWidget* GetCapture();

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
    bool OnAttach() override;
    void OnMessageMap() override;

    // --------------------------------------------------------------------------------------------- overridables

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual") // hides the form for any object: a window's parent is a window
    /// Makes a QWidget with this Qt parent and hover and mouse tracking on, and attaches it as an owned one.
    virtual bool AttachDefault(QWidget* parent);
    QT_WARNING_POP
    /// Builds the child widgets of the window: generated form code of the host.
    virtual void SetupUI();
    /// Places what the window lays out itself; called when its size changes.
    virtual void RecalcLayout();
    /// AttachDefault(); a null parent stands for the host's main window, if there is one.
    virtual int Create(QWidget* parent);
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
    /// Called when SubclassWindow() has attached an existing widget.
    virtual void PreSubclassWindow();
    /// The first step of an attachment: calls SetupUI(). A result that is not 0 refuses it.
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

    void OnDestroy();
    /// Detaches, which deletes an owned widget later, and calls PostNcDestroy().
    void OnNcDestroy();

public Q_SLOTS:
    /// Emits updateCmdUi(): the event loop is about to wait.
    void OnEnterIdle();

Q_SIGNALS:
    void timeOut(unsigned long id);
    void updateCmdUi();

private:
    friend class XeDispatchFrame;

    struct PendingEvent
    {
        QEvent* event;
        QEvent::Type type;
    };

    bool filterMessage(QObject* target, QEvent* event);
    bool filterWithoutMessage(QObject* target, QEvent* event);
    bool callEntry(const XeDispatchFrame& frame, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool offerCursorToAncestors(const XeDispatchFrame& frame, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void forgetPending(QEvent* event);

    XeDispatchFrame* m_dispatch = nullptr; // the innermost event or message in progress
    QVector<PendingEvent> m_pendingEvents; // posted as unique and not yet delivered
    std::map<UINT, AFX_MSGMAP_ENTRY_X> m_messageMap;
};
