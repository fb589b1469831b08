/// @file xehook.h
/// What belongs to no single window: keyboard hooks, message functions, the pool of temporary objects, timers, and the
/// state of keyboard and mouse.
///
/// GUI thread only.
#pragma once

#include "xeafx.h"
#include "xedef.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <map>

class QAction;
class QKeyEvent;
class QTimer;
struct tagMSG;

namespace xe {
struct EventRow;
}

inline constexpr int WH_KEYBOARD = 2;
inline constexpr int WH_MOUSE = 7;

/// A keyboard hook: gets code 0, the VK code and the packed lParam of the key message. A result above 0 stops the
/// event.
using HOOKPROC = long long (*)(int code, unsigned long wParam, long long lParam);

/// A message function: true stops the event.
using WinMsgFn = bool (*)(tagMSG* message);

/// The host's classes whose input hooks and message functions see: the names that their meta-objects give. A class that
/// is derived from one of them is another.
inline constexpr const char* hookedClassNames[] = {"CTavoView", "CTavoMainFrame", "XeQtCommandBar"};

/// The one object behind the functions of this header, an application-wide event filter while a hook or a message
/// function is set. Hooks and message functions see only input that arrives at objects of the #hookedClassNames.
///
/// Both kinds may be added and removed, themselves or each other, while they are called: a removed one is not called
/// any more, a message function that was added is called in the same walk, a hook at the next event. When one of them
/// deletes the target, message functions are not shown it any more, and the event is stopped.
class XE_EXPORT QGlobalEventHandler : public QObject
{
    Q_OBJECT

public:
    QGlobalEventHandler();
    /// Deletes the temporary objects that are left.
    ~QGlobalEventHandler() override;

    bool eventFilter(QObject* object, QEvent* event) override;

    /// See SetWindowsHookEx_X().
    HHOOK AppendWinMsgFn(int id, HOOKPROC proc);
    /// See the functions ::AppendWinMsgFn(), UnhookWindowsHookEx_X() and ::RemoveWinMsgFn().
    void AppendWinMsgFn(WinMsgFn function);
    int RemoveWinMsgFn(HHOOK hook);
    void RemoveWinMsgFn(WinMsgFn function);
    /// True if there is neither a hook nor a message function.
    bool IsEmptyHookChain() const;

    /// Called when an application object has been made: hooks, message functions and temporary objects that are left
    /// from one that has ended serve the new one.
    void ServeApplication();

    /// See AppendTempObjectPool() and ClearTempObjectPool().
    void AppendTempObject(QObject* object);
    void RemoveTempObject();

public Q_SLOTS:
    /// Deletes the temporary objects, unless the host's main window says by its property "IsTavoCmdActive" (the address
    /// of a function `bool()`, as a `qlonglong`) that a command is running. Without the property, and without a main
    /// window, none is running.
    void OnEnterIdle();

private:
    template <class Function>
    void append(QList<Function>& chain, Function function);
    template <class Function>
    void remove(QList<Function>& chain, Function function);
    void dropRemoved();
    bool offerToChains(const xe::EventRow& row, const QPointer<QObject>& object, QEvent* event);
    bool callHooks(const tagMSG& message);
    bool callMessageFunctions(const QPointer<QObject>& object, tagMSG& message);

    QList<HOOKPROC> m_hookChain;        // oldest first
    QList<WinMsgFn> m_messageFunctions; // likewise
    QList<QPointer<QObject>> m_temporaryObjects;

public:
    /// All timers of the process by timer id.
    std::map<int, QTimer*> timers;

private:
    int m_walks = 0; // while a chain is walked, a removed entry stays as null until the outermost walk has ended
};

/// The one handler object. It lives from the loading of the library to the end of the process.
extern XE_EXPORT QGlobalEventHandler g_appEventHandler;
/// Its address.
XE_EXPORT QGlobalEventHandler* GetGlobalEventHandler();

/// Has the slot `OnEnterIdle()` of `object` called whenever the event dispatcher is about to wait; once, however often
/// this is said. Nothing for null and while there is no dispatcher.
XE_EXPORT void ConnectIdleSlot(QObject* object);
/// The reverse. False if it was not connected, and for null.
XE_EXPORT bool DisconnectIdleSlot(QObject* object);

/// Deletes the temporary objects (::AppendTempObjectPool()) at once, whatever the host is doing.
XE_EXPORT void ClearTempObjectPool();

/// Sets a keyboard hook (`id` WH_KEYBOARD) and gives its handle, the address of `proc`. The newest hook is called
/// first; a key that repeats, and the same key event at further objects, is not shown to hooks. Null for any other id,
/// for a null `proc` and without a QApplication.
XE_EXPORT HHOOK SetWindowsHookEx_X(int id, HOOKPROC proc);
/// Takes the oldest hook with this handle away. Always 1, also for an unknown handle.
XE_EXPORT int UnhookWindowsHookEx_X(HHOOK hook);
/// Always 0: the library walks the chain of hooks, not the hooks themselves.
XE_EXPORT long long CallNextHookEx_X(HHOOK hook, int code, unsigned long wParam, long long lParam);

/// Adds a message function behind those already set. Nothing for null and without a QApplication.
XE_EXPORT void AppendWinMsgFn(WinMsgFn function);
/// Takes the oldest entry of this function away.
XE_EXPORT void RemoveWinMsgFn(WinMsgFn function);

/// True if `event` has the key, the type and the modifiers of the last key event that counted as new; otherwise it
/// counts as new now. A null event counts as a repeat.
XE_EXPORT bool IsRepeatFilterKeyEvent(QKeyEvent* event);

/// 0x8000 while the key or button of a VK code is down at the X server, otherwise 0. The value is positive where
/// Windows gives a negative SHORT, and the toggle state of lock keys is never reported. 'Q' reports the G key; no code
/// reports the Q key, and VK_MBUTTON has no state. 0 without an X server. Each call opens a display of its own: not for
/// tight loops.
XE_EXPORT int GetKeyState_X(int vk);
/// The same for keys alone.
XE_EXPORT int GetKeyStateByX11(int vk);
/// 0x8000 while a mouse button (1 left, 2 right) is down at the X server, otherwise 0; 0 for any other number.
XE_EXPORT int GetMouseStateByX11(int button);

/// The upper-case form of the low 16 bits of a character; there is no shift state in the high byte, unlike Windows.
XE_EXPORT unsigned VkKeyScan_X(wchar_t character);

/// The arguments up to the terminating null as a list.
XE_EXPORT QList<QAction*> ActionRange(QAction* first, ...);
