/// @file xeafxmsg.h
/// Window messages: their numbers and record, the translation between them and Qt events, sending and posting, and the
/// message-map macros.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

#include <QEvent>
#include <QObject>

#include <cstring>

class CDC_X;
class CPoint;
class CWnd_X;
class QAbstractSlider;

// ----------------------------------------------------------------------------------------------------- message numbers

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_CTLCOLOR = 0x0019;
inline constexpr UINT WM_ACTIVATEAPP = 0x001C;
inline constexpr UINT WM_FONTCHANGE = 0x001D;
inline constexpr UINT WM_SETCURSOR = 0x0020;
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_GETFONT = 0x0031;
inline constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_STYLECHANGING = 0x007C;
inline constexpr UINT WM_STYLECHANGED = 0x007D;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_NCHITTEST = 0x0084;
inline constexpr UINT WM_NCLBUTTONUP = 0x00A2;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCHAR = 0x0106;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_SIZING = 0x0214;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_MOVING = 0x0216;
inline constexpr UINT WM_DROPFILES = 0x0233;
inline constexpr UINT WM_MOUSEHOVER = 0x02A1;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_PALETTEISCHANGING = 0x0310;
inline constexpr UINT WM_PALETTECHANGED = 0x0311;
inline constexpr UINT WM_HOTKEY = 0x0312;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

/// What stands for the message of a mouse button that has none. No message map has an entry for it.
inline constexpr UINT XE_WM_NONE = 0xFFFFFFFF;

// ----------------------------------------------------------------------------------------- flags, hit codes, key codes

inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;
inline constexpr UINT MK_MBUTTON = 0x0010;
inline constexpr UINT MK_ALT = 0x0020; ///< the Alt key, which Windows does not send in mouse messages

inline constexpr UINT WA_INACTIVE = 0;
inline constexpr UINT WA_ACTIVE = 1;

inline constexpr int HTNOWHERE = 0;
inline constexpr int HTCLIENT = 1;
inline constexpr int HTCAPTION = 2;
inline constexpr int HTLEFT = 10;
inline constexpr int HTRIGHT = 11;
inline constexpr int HTTOP = 12;
inline constexpr int HTBOTTOM = 15;

inline constexpr int VK_LBUTTON = 0x01;
inline constexpr int VK_RBUTTON = 0x02;
inline constexpr int VK_MBUTTON = 0x04;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_CLEAR = 0x0C;
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_PAUSE = 0x13;
inline constexpr int VK_CAPITAL = 0x14;
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_SELECT = 0x29;
inline constexpr int VK_PRINT = 0x2A;
inline constexpr int VK_EXECUTE = 0x2B;
inline constexpr int VK_SNAPSHOT = 0x2C;
inline constexpr int VK_INSERT = 0x2D;
inline constexpr int VK_DELETE = 0x2E;
inline constexpr int VK_HELP = 0x2F;
inline constexpr int VK_MULTIPLY = 0x6A;
inline constexpr int VK_F1 = 0x70;
inline constexpr int VK_F2 = 0x71;
inline constexpr int VK_F3 = 0x72;
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F5 = 0x74;
inline constexpr int VK_F6 = 0x75;
inline constexpr int VK_F7 = 0x76;
inline constexpr int VK_F8 = 0x77;
inline constexpr int VK_F9 = 0x78;
inline constexpr int VK_F10 = 0x79;
inline constexpr int VK_F11 = 0x7A;
inline constexpr int VK_F12 = 0x7B;
inline constexpr int VK_F13 = 0x7C;
inline constexpr int VK_F14 = 0x7D;
inline constexpr int VK_F15 = 0x7E;
inline constexpr int VK_F16 = 0x7F;
inline constexpr int VK_F17 = 0x80;
inline constexpr int VK_F18 = 0x81;
inline constexpr int VK_F19 = 0x82;
inline constexpr int VK_F20 = 0x83;
inline constexpr int VK_F21 = 0x84;
inline constexpr int VK_F22 = 0x85;
inline constexpr int VK_F23 = 0x86;
inline constexpr int VK_F24 = 0x87;
inline constexpr int VK_NUMLOCK = 0x90;
inline constexpr int VK_SCROLL = 0x91;
inline constexpr int VK_VOLUME_MUTE = 0xAD;
inline constexpr int VK_VOLUME_DOWN = 0xAE;
inline constexpr int VK_VOLUME_UP = 0xAF;
inline constexpr int VK_MEDIA_STOP = 0xB2;
inline constexpr int VK_MEDIA_PLAY_PAUSE = 0xB3;
inline constexpr int VK_OEM_1 = 0xBA;
inline constexpr int VK_OEM_PLUS = 0xBB;
inline constexpr int VK_OEM_COMMA = 0xBC;
inline constexpr int VK_OEM_MINUS = 0xBD;
inline constexpr int VK_OEM_PERIOD = 0xBE;
inline constexpr int VK_OEM_2 = 0xBF;
inline constexpr int VK_OEM_3 = 0xC0;
inline constexpr int VK_OEM_4 = 0xDB;
inline constexpr int VK_OEM_5 = 0xDC;
inline constexpr int VK_OEM_6 = 0xDD;
inline constexpr int VK_OEM_7 = 0xDE;

// ------------------------------------------------------------------------------------------------- messages and events

/// A window message on its way to a handler.
struct tagMSG
{
    QObject* hwnd; ///< the object that the event came to
    UINT message;  ///< XE_WM_NONE for a mouse event that has no message
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;  ///< seconds since the epoch, not milliseconds since the start of the system
    tagPOINT pt; ///< where the pointer was on the screen at translation time, whatever the event's own position
};

using MSG = tagMSG;
using LPMSG = tagMSG*;

/// The event that carries a message without a Qt event of its own. It means something only to a wrapped widget whose
/// message map has an entry for the message.
class XE_EXPORT XeWinMsgEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(QEvent::User + 128);

    XeWinMsgEvent(UINT number, WPARAM firstParameter, LPARAM secondParameter);
    ~XeWinMsgEvent() override;

    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT result = 0; ///< written when a handler has consumed the event
};

/// Puts up a message box from the event queue of a wrapped window, when whatever is now on the stack has unwound.
class XE_EXPORT XeMsgBoxEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(QEvent::User + 129);

    XeMsgBoxEvent(CString_X message, CString_X title);
    ~XeMsgBoxEvent() override;

    CString_X text;
    CString_X caption;
    unsigned style = 0; ///< not read: the box is shown with style 0
};

/// Qt::KeyboardModifiers as MK_ flags: Shift 4, Control 8, Alt 32; others are dropped.
XE_EXPORT int qt_kb_flag_2_flag(unsigned modifiers);
/// Always 0: messages carry no modifiers back to Qt.
XE_EXPORT int mfc_flag_2_qt_kb_flag(unsigned flags);
/// Qt::MouseButtons as MK_ flags: left 1, right 2, middle 16; others are dropped.
XE_EXPORT int qt_mouse_flag_2_flag(unsigned buttons);
/// Always 0: messages carry no buttons back to Qt.
XE_EXPORT int mfc_flag_2_qt_mouse_flag(unsigned flags);

/// The VK code of a Qt key, -1 if it has none. Both characters of a key on a US keyboard have one VK code.
XE_EXPORT int qt_key_to_ansi_vk(int key);
/// The lowest Qt key with this VK code, -1 if there is none. So 0x30 gives Qt::Key_ParenRight, not Qt::Key_0.
XE_EXPORT int ansi_vk_to_qt_key(int vk);

/// Fills `out` with the message that stands for `event` at `target`. 0, with `out` left as it was, for a null argument
/// and for an event type that has no message; otherwise 1.
///
/// | event                            | message                            | wParam        | lParam                |
/// | -------------------------------- | ---------------------------------- | ------------- | --------------------- |
/// | Timer                            | WM_TIMER                           | timer id      | 0                     |
/// | MouseButtonPress and its like    | WM_LBUTTONDOWN and its like        | flags         | position              |
/// | MouseMove                        | WM_MOUSEMOVE                       | flags         | position              |
/// | KeyPress                         | WM_KEYDOWN; WM_SYSKEYDOWN with Alt | VK code or -1 | modifiers, 1          |
/// | KeyRelease                       | WM_KEYUP; WM_SYSKEYUP with Alt     | VK code or -1 | modifiers, 0x80000001 |
/// | Leave                            | WM_MOUSELEAVE                      | 0             | 0                     |
/// | Paint, Close, ShowToParent       | WM_PAINT, WM_CLOSE, WM_SHOWWINDOW  | 0             | 0                     |
/// | Resize                           | WM_SIZE                            | 0             | width, height         |
/// | WindowActivate, WindowDeactivate | WM_ACTIVATE                        | 1, 0          | `target`              |
/// | Wheel                            | WM_MOUSEWHEEL                      | delta << 16   | position              |
/// | ContextMenu                      | WM_CONTEXTMENU                     | `target`      | position              |
/// | HoverEnter, HoverLeave           | WM_MOUSEHOVER, WM_MOUSELEAVE       | modifiers     | position              |
/// | NonClientAreaMouseButtonRelease  | WM_NCLBUTTONUP                     | hit code      | pointer on the screen |
/// | XeWinMsgEvent                    | its own                            | its own       | its own               |
///
/// Positions are local to the target, in pixels, x in the low word and y in the high one: unlike in published messages
/// so are those of the wheel and the context menu, and WM_MOUSELEAVE has one. Flags and modifiers are MK_ flags; key
/// messages have the modifiers in bits 16 to 21, in place of the scan code, and the wheel has none. A mouse button that
/// is not the left, right or middle one, of a frame not the left one, gives XE_WM_NONE. FocusIn, FocusOut, Move, Show,
/// Hide and all other types have no message.
XE_EXPORT int xeQEventToMsg(QObject* target, QEvent* event, tagMSG* out);

/// A new event that stands for a message; the caller owns it. It is not the mirror of the table above:
///
/// | message                     | event                                                                           |
/// | --------------------------- | ------------------------------------------------------------------------------- |
/// | WM_LBUTTONDOWN and its like | QMouseEvent at the words of lParam, taken without a sign                        |
/// | WM_MOUSEMOVE                | likewise, without a button                                                      |
/// | WM_KEYDOWN                  | press of ansi_vk_to_qt_key(wParam), with that key's number in decimal as text   |
/// | WM_KEYUP                    | release of wParam, taken for a Qt key, with that number in decimal as text      |
/// | WM_CHAR, WM_SYSKEYDOWN      | press of wParam, taken for a Qt key, with the character of that code as text    |
/// | WM_SIZE                     | QResizeEvent to the words of lParam from the target's size, invalid without one |
/// | any other                   | XeWinMsgEvent; so is the WM_KEYDOWN of a code that has no key                   |
///
/// The events have no modifiers, whatever wParam says. Since a key event has a text, a WM_KEYDOWN for a wrapped window
/// is followed by a WM_CHAR for each digit of its key code.
XE_EXPORT QEvent* xeMsgToQEvent(const QWidget* target, UINT message, WPARAM wParam, LPARAM lParam);

/// Posts to `target` what follows from an event that was translated to `msg`: one WM_CHAR, or WM_SYSCHAR with Alt, for
/// each character of a key press, and a WM_SETCURSOR after each mouse event unless a widget has grabbed the mouse.
/// 1 for a mouse event and for a key press with text, 0 for anything else and for null arguments.
///
/// What is posted arrives after the handling of the event: a WM_CHAR can come when the key is up and its WM_KEYUP has
/// been handled. A WM_SETCURSOR has `target` as wParam, and the mouse message in the high word of lParam.
XE_EXPORT int TranslateMessage(QObject* target, const QEvent* event, const tagMSG* msg);

/// Delivers a message at once, on the calling thread, as the event that xeMsgToQEvent() makes of it, and gives the
/// handler's result. 0 for a message that became a mouse, key or size event, whatever its handler gave, for one that
/// nobody handled, and for a null target. Unlike with the published function the message passes the target's
/// PreTranslateMessage() on its way. A real Qt event reaches widgets without a wrapper too: a synthetic click presses a
/// plain QPushButton. The event is gone when the call returns.
XE_EXPORT LRESULT SendMessage_X(QWidget* target, UINT message, WPARAM wParam, LPARAM lParam);

/// Queues the event of a message with normal priority and returns 1, whether or not anything will handle it. Safe from
/// any thread. A null target drops the message.
XE_EXPORT LRESULT PostMessage_X(QWidget* target, UINT message, WPARAM wParam, LPARAM lParam);

// -------------------------------------------------------------------------------------------------------- message maps

/// A handler with its type taken off. The signature code of its entry says what it is called with.
using AFX_PMSG_X = void (CWnd_X::*)();

/// What a window does with one message.
struct AFX_MSGMAP_ENTRY_X
{
    unsigned long signature; ///< selects how wParam and lParam are unpacked
    AFX_PMSG_X handler;      ///< called with QWidget* for window arguments
    /// Called after it with CWnd_X* instead; its result replaces the first one's. Not called when the first has deleted
    /// or detached the window, or deleted the window that it was told of.
    AFX_PMSG_X secondHandler;
};

/// Signature codes: what a handler is called with, and what becomes of its result. The macros below write them.
///
/// The name lists the result and what is unpacked from wParam and lParam: v void, b BOOL, u UINT, i int, l LRESULT or
/// LPARAM, w WPARAM, W window, p CPoint, D device context, h handle, s or S pointer. A number without a name is as
/// valid in CWnd_X::AddMsgMapEntry(): it unpacks nothing and swallows its message without a call.
enum AfxSig_X : unsigned long {
    AfxSig_b_D_v = 1, ///< never called: there is no device context outside a paint event
    AfxSig_b_b_v = 2,
    AfxSig_b_u_v = 3,
    AfxSig_b_h_v = 4,
    AfxSig_b_W_uu = 5,
    AfxSig_b_W_COPYDATASTRUCT = 6,
    AfxSig_b_v_HELPINFO = 7,
    AfxSig_CTLCOLOR = 8, ///< never called, likewise
    AfxSig_i_u_W_u = 10,
    AfxSig_i_uu_v = 11,
    AfxSig_i_W_uu = 12,
    AfxSig_i_v_s = 13,
    AfxSig_l_w_l = 14,
    AfxSig_v_b_h = 16,
    AfxSig_v_h_v = 17,
    AfxSig_v_h_h = 18,
    AfxSig_v_v_v = 19,
    AfxSig_v_u_v = 20,
    AfxSig_v_up_v = 21,
    AfxSig_v_u_u = 22,
    AfxSig_v_uu_v = 23,
    AfxSig_v_v_ii = 24,
    AfxSig_v_u_uu = 25,
    AfxSig_v_u_ii = 26,
    AfxSig_v_u_W = 27,
    AfxSig_i_u_v = 28,
    AfxSig_u_u_v = 29,
    AfxSig_b_v_v = 30,
    AfxSig_v_w_l = 31,
    AfxSig_v_W_v = 36,
    AfxSig_v_v_W = 37,
    AfxSig_v_W_uu = 38,
    AfxSig_v_W_p = 39,
    AfxSig_v_W_h = 40,
    AfxSig_C_v_v = 41,
    AfxSig_ACTIVATE = 42,
    AfxSig_SCROLL = 43,
    AfxSig_SCROLL_REFLECT = 44,
    AfxSig_v_v_s = 45,
    AfxSig_v_u_cs = 46,
    AfxSig_OWNERDRAW = 47,
    AfxSig_i_i_s = 48,
    AfxSig_u_v_p = 49,
    AfxSig_u_v_v = 50,
    AfxSig_v_b_NCCALCSIZEPARAMS = 51,
    AfxSig_v_v_WINDOWPOS = 52,
    AfxSig_v_uu_M = 53,
    AfxSig_v_u_p = 54,
    AfxSig_SIZING = 55,
    AfxSig_MOUSEWHEEL = 56, ///< 0 passes the message up
    AfxSig_MOUSEHWHEEL = 57,
    AfxSig_l = 70, ///< a result that is not 0 passes the message up
    AfxSig_l_p = 71,
    AfxSig_u_W_u = 72,
    AfxSig_u_v_MENUGETOBJECTINFO = 75,
    AfxSig_v_u_LPMDINEXTMENU = 77,
    AfxSig_APPCOMMAND = 78,
    AfxSig_RAWINPUT = 79,
    AfxSig_u_u_u = 80,
    AfxSig_MOUSE_XBUTTON = 81,
    AfxSig_MOUSE_NCXBUTTON = 82,
    AfxSig_INPUTLANGCHANGE = 83,
    AfxSig_v_u_h = 84,
    AfxSig_INPUTDEVICECHANGE = 85,
    AfxSig_i_v_S = 87,
    AfxSig_h_v_v = 89,
    AfxSig_h_b_h = 90,
    AfxSig_b_v_ii = 91,
    AfxSig_h_h_h = 92,
    AfxSig_MDINext = 93,
    AfxSig_u_u_l = 94,
    AfxSig_v_w_p = 95,
};

namespace xe::detail {

/// A handler under another function type. A compiler would warn of a cast, since only the caller knows the true type.
template <class To, class From>
To handlerCast(From handler)
{
    static_assert(sizeof(To) == sizeof(From));
    To result;
    std::memcpy(&result, &handler, sizeof result);
    return result;
}

} // namespace xe::detail

/// Takes the type off a handler, after checking it: `XeHandler<void(UINT, CPoint)>::of(&CView::OnLButtonDown)` compiles
/// for a handler of exactly that type only, and picks it out of overloads.
template <class Function>
struct XeHandler;

template <class Result, class... Args>
struct XeHandler<Result(Args...)>
{
    template <class Class>
    static AFX_PMSG_X of(Result (Class::*handler)(Args...))
    {
        return xe::detail::handlerCast<AFX_PMSG_X>(static_cast<Result (CWnd_X::*)(Args...)>(handler));
    }
};

/// The same for a scroll handler, whose bar may be declared as a QWidget or as the QAbstractSlider that it is.
struct XeScrollHandler
{
    template <class Class>
    static AFX_PMSG_X of(void (Class::*handler)(UINT, UINT, QWidget*))
    {
        return XeHandler<void(UINT, UINT, QWidget*)>::of(handler);
    }
    template <class Class>
    static AFX_PMSG_X of(void (Class::*handler)(UINT, UINT, QAbstractSlider*))
    {
        return XeHandler<void(UINT, UINT, QAbstractSlider*)>::of(handler);
    }
};

/// In a class derived from CWnd_X: it has a message map. Members that follow are protected.
#define DECLARE_MESSAGE_MAP_X()                                               \
protected:                                                                    \
    QT_WARNING_PUSH Q_OBJECT_NO_OVERRIDE_WARNING virtual void OnMessageMap(); \
    QT_WARNING_POP

/// In one source file, around the entries below: the message map of a class, added to that of its base. An entry for a
/// message that the base has too replaces the base's.
/// @code
/// BEGIN_MESSAGE_MAP_X(CPartsView, CWnd_X)
///     ON_WM_LBUTTONDOWN_X()
///     ON_MESSAGE_X(WM_USER + 1, OnPartChanged)
/// END_MESSAGE_MAP_X()
/// @endcode
#define BEGIN_MESSAGE_MAP_X(theClass, baseClass) \
    void theClass::OnMessageMap()                \
    {                                            \
        using ThisClass = theClass;              \
        baseClass::OnMessageMap();

#define END_MESSAGE_MAP_X() }

/// One entry: the class's member `name`, which must be of the function type that follows.
#define XE_MSG_ENTRY(message, signature, name, ...) \
    this->AddMsgMapEntry(message, signature, XeHandler<__VA_ARGS__>::of<ThisClass>(&ThisClass::name), nullptr);

/// One entry for a handler with a window argument: the members `name` (first type) and `name_X` (second type). Both are
/// called, whichever the class has of its own, and the result of `name_X` counts: a class with the first form alone is
/// overruled by CWnd_X's second.
#define XE_MSG_ENTRY_WINDOW(message, signature, name, type, typeX)                             \
    this->AddMsgMapEntry(message, signature, XeHandler<type>::of<ThisClass>(&ThisClass::name), \
                         XeHandler<typeX>::of<ThisClass>(&ThisClass::name##_X));

/// One entry for a scroll handler.
#define XE_MSG_ENTRY_SCROLL(message, name) \
    this->AddMsgMapEntry(message, AfxSig_SCROLL, XeScrollHandler::of<ThisClass>(&ThisClass::name), nullptr);

/// A member `LRESULT memberFxn(WPARAM, LPARAM)` for any message, given by its bare name.
#define ON_MESSAGE_X(message, memberFxn) XE_MSG_ENTRY(message, AfxSig_l_w_l, memberFxn, LRESULT(WPARAM, LPARAM))

// The handlers of CWnd_X, each under the message it stands for. The class's own member of that name is entered, or the
// inherited one where it has none.

#define ON_WM_ACTIVATE_X() \
    XE_MSG_ENTRY_WINDOW(WM_ACTIVATE, AfxSig_ACTIVATE, OnActivate, void(UINT, QWidget*, BOOL), void(UINT, CWnd_X*, BOOL))
#define ON_WM_ACTIVATEAPP_X() XE_MSG_ENTRY(WM_ACTIVATEAPP, AfxSig_v_u_u, OnActivateApp, void(BOOL, DWORD))
#define ON_WM_CAPTURECHANGED_X() \
    XE_MSG_ENTRY_WINDOW(WM_CAPTURECHANGED, AfxSig_v_v_W, OnCaptureChanged, void(QWidget*), void(CWnd_X*))
#define ON_WM_CHAR_X() XE_MSG_ENTRY(WM_CHAR, AfxSig_v_u_uu, OnChar, void(UINT, UINT, UINT))
#define ON_WM_CLOSE_X() XE_MSG_ENTRY(WM_CLOSE, AfxSig_v_v_v, OnClose, void())
#define ON_WM_CONTEXTMENU_X() \
    XE_MSG_ENTRY_WINDOW(WM_CONTEXTMENU, AfxSig_v_W_p, OnContextMenu, void(QWidget*, CPoint), void(CWnd_X*, CPoint))
#define ON_WM_CREATE_X() XE_MSG_ENTRY(WM_CREATE, AfxSig_i_v_s, OnCreate, int(tagCREATESTRUCTW*))
#define ON_WM_CTLCOLOR_X()                                                                        \
    XE_MSG_ENTRY_WINDOW(WM_CTLCOLOR, AfxSig_CTLCOLOR, OnCtlColor, HBRUSH(CDC_X*, QWidget*, UINT), \
                        HBRUSH(CDC_X*, CWnd_X*, UINT))
#define ON_WM_DESTROY_X() XE_MSG_ENTRY(WM_DESTROY, AfxSig_v_v_v, OnDestroy, void())
#define ON_WM_DROPFILES_X() XE_MSG_ENTRY(WM_DROPFILES, AfxSig_v_h_v, OnDropFiles, void(HDROP))
#define ON_WM_ENABLE_X() XE_MSG_ENTRY(WM_ENABLE, AfxSig_v_u_v, OnEnable, void(BOOL))
#define ON_WM_ERASEBKGND_X() XE_MSG_ENTRY(WM_ERASEBKGND, AfxSig_b_D_v, OnEraseBkgnd, BOOL(CDC_X*))
#define ON_WM_FONTCHANGE_X() XE_MSG_ENTRY(WM_FONTCHANGE, AfxSig_v_v_v, OnFontChange, void())
#define ON_WM_HOTKEY_X() XE_MSG_ENTRY(WM_HOTKEY, AfxSig_v_u_uu, OnHotKey, void(UINT, UINT, UINT))
#define ON_WM_HSCROLL_X() XE_MSG_ENTRY_SCROLL(WM_HSCROLL, OnHScroll)
#define ON_WM_KEYDOWN_X() XE_MSG_ENTRY(WM_KEYDOWN, AfxSig_v_u_uu, OnKeyDown, void(UINT, UINT, UINT))
#define ON_WM_KEYUP_X() XE_MSG_ENTRY(WM_KEYUP, AfxSig_v_u_uu, OnKeyUp, void(UINT, UINT, UINT))
#define ON_WM_KILLFOCUS_X() XE_MSG_ENTRY_WINDOW(WM_KILLFOCUS, AfxSig_v_W_v, OnKillFocus, void(QWidget*), void(CWnd_X*))
#define ON_WM_LBUTTONDBLCLK_X() XE_MSG_ENTRY(WM_LBUTTONDBLCLK, AfxSig_v_u_p, OnLButtonDblClk, void(UINT, CPoint))
#define ON_WM_LBUTTONDOWN_X() XE_MSG_ENTRY(WM_LBUTTONDOWN, AfxSig_v_u_p, OnLButtonDown, void(UINT, CPoint))
#define ON_WM_LBUTTONUP_X() XE_MSG_ENTRY(WM_LBUTTONUP, AfxSig_v_u_p, OnLButtonUp, void(UINT, CPoint))
#define ON_WM_MBUTTONDBLCLK_X() XE_MSG_ENTRY(WM_MBUTTONDBLCLK, AfxSig_v_u_p, OnMButtonDblClk, void(UINT, CPoint))
#define ON_WM_MBUTTONDOWN_X() XE_MSG_ENTRY(WM_MBUTTONDOWN, AfxSig_v_u_p, OnMButtonDown, void(UINT, CPoint))
#define ON_WM_MBUTTONUP_X() XE_MSG_ENTRY(WM_MBUTTONUP, AfxSig_v_u_p, OnMButtonUp, void(UINT, CPoint))
#define ON_WM_MEASUREITEM_X() \
    XE_MSG_ENTRY(WM_MEASUREITEM, AfxSig_OWNERDRAW, OnMeasureItem, void(int, tagMEASUREITEMSTRUCT*))
#define ON_WM_MOUSEHOVER_X() XE_MSG_ENTRY(WM_MOUSEHOVER, AfxSig_v_u_p, OnMouseHover, void(UINT, CPoint))
#define ON_WM_MOUSELEAVE_X() XE_MSG_ENTRY(WM_MOUSELEAVE, AfxSig_v_v_v, OnMouseLeave, void())
#define ON_WM_MOUSEMOVE_X() XE_MSG_ENTRY(WM_MOUSEMOVE, AfxSig_v_u_p, OnMouseMove, void(UINT, CPoint))
#define ON_WM_MOUSEWHEEL_X() XE_MSG_ENTRY(WM_MOUSEWHEEL, AfxSig_MOUSEWHEEL, OnMouseWheel, BOOL(UINT, short, CPoint))
#define ON_WM_MOVE_X() XE_MSG_ENTRY(WM_MOVE, AfxSig_v_v_ii, OnMove, void(int, int))
#define ON_WM_MOVING_X() XE_MSG_ENTRY(WM_MOVING, AfxSig_SIZING, OnMoving, void(UINT, tagRECT*))
#define ON_WM_NCDESTROY_X() XE_MSG_ENTRY(WM_NCDESTROY, AfxSig_v_v_v, OnNcDestroy, void())
#define ON_WM_NCHITTEST_X() XE_MSG_ENTRY(WM_NCHITTEST, AfxSig_l_p, OnNcHitTest, LRESULT(CPoint))
#define ON_WM_NCLBUTTONUP_X() XE_MSG_ENTRY(WM_NCLBUTTONUP, AfxSig_v_u_p, OnNcLButtonUp, void(UINT, CPoint))
#define ON_WM_PAINT_X() XE_MSG_ENTRY(WM_PAINT, AfxSig_v_v_v, OnPaint, void())
#define ON_WM_PALETTECHANGED_X() \
    XE_MSG_ENTRY_WINDOW(WM_PALETTECHANGED, AfxSig_v_W_v, OnPaletteChanged, void(QWidget*), void(CWnd_X*))
#define ON_WM_PALETTEISCHANGING_X() \
    XE_MSG_ENTRY_WINDOW(WM_PALETTEISCHANGING, AfxSig_v_W_v, OnPaletteIsChanging, void(QWidget*), void(CWnd_X*))
#define ON_WM_RBUTTONDBLCLK_X() XE_MSG_ENTRY(WM_RBUTTONDBLCLK, AfxSig_v_u_p, OnRButtonDblClk, void(UINT, CPoint))
#define ON_WM_RBUTTONDOWN_X() XE_MSG_ENTRY(WM_RBUTTONDOWN, AfxSig_v_u_p, OnRButtonDown, void(UINT, CPoint))
#define ON_WM_RBUTTONUP_X() XE_MSG_ENTRY(WM_RBUTTONUP, AfxSig_v_u_p, OnRButtonUp, void(UINT, CPoint))
#define ON_WM_SETCURSOR_X() \
    XE_MSG_ENTRY_WINDOW(WM_SETCURSOR, AfxSig_b_W_uu, OnSetCursor, BOOL(QWidget*, UINT, UINT), BOOL(CWnd_X*, UINT, UINT))
#define ON_WM_SETFOCUS_X() XE_MSG_ENTRY_WINDOW(WM_SETFOCUS, AfxSig_v_W_v, OnSetFocus, void(QWidget*), void(CWnd_X*))
#define ON_WM_SHOWWINDOW_X() XE_MSG_ENTRY(WM_SHOWWINDOW, AfxSig_v_u_u, OnShowWindow, void(BOOL, UINT))
#define ON_WM_SIZE_X() XE_MSG_ENTRY(WM_SIZE, AfxSig_v_u_ii, OnSize, void(UINT, int, int))
#define ON_WM_SIZING_X() XE_MSG_ENTRY(WM_SIZING, AfxSig_SIZING, OnSizing, void(UINT, tagRECT*))
#define ON_WM_STYLECHANGED_X() XE_MSG_ENTRY(WM_STYLECHANGED, AfxSig_v_u_cs, OnStyleChanged, void(int, tagSTYLESTRUCT*))
#define ON_WM_STYLECHANGING_X() \
    XE_MSG_ENTRY(WM_STYLECHANGING, AfxSig_v_u_cs, OnStyleChanging, void(int, tagSTYLESTRUCT*))
#define ON_WM_SYSCHAR_X() XE_MSG_ENTRY(WM_SYSCHAR, AfxSig_v_u_uu, OnSysChar, void(UINT, UINT, UINT))
#define ON_WM_SYSCOLORCHANGE_X() XE_MSG_ENTRY(WM_SYSCOLORCHANGE, AfxSig_v_v_v, OnSysColorChange, void())
#define ON_WM_SYSKEYDOWN_X() XE_MSG_ENTRY(WM_SYSKEYDOWN, AfxSig_v_u_uu, OnSysKeyDown, void(UINT, UINT, UINT))
#define ON_WM_SYSKEYUP_X() XE_MSG_ENTRY(WM_SYSKEYUP, AfxSig_v_u_uu, OnSysKeyUp, void(UINT, UINT, UINT))
#define ON_WM_TIMER_X() XE_MSG_ENTRY(WM_TIMER, AfxSig_v_up_v, OnTimer, void(UINT_PTR))
#define ON_WM_VSCROLL_X() XE_MSG_ENTRY_SCROLL(WM_VSCROLL, OnVScroll)
#define ON_WM_WINDOWPOSCHANGED_X() \
    XE_MSG_ENTRY(WM_WINDOWPOSCHANGED, AfxSig_v_v_WINDOWPOS, OnWindowPosChanged, void(tagWINDOWPOS*))
#define ON_WM_WINDOWPOSCHANGING_X() \
    XE_MSG_ENTRY(WM_WINDOWPOSCHANGING, AfxSig_v_v_WINDOWPOS, OnWindowPosChanging, void(tagWINDOWPOS*))
