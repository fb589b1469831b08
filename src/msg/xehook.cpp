#include "xehook.h"

#include "core/connections.h"
#include "msg/eventtranslation.h"
#include "xehost.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QTimer>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cstdarg>
#include <cstring>

QGlobalEventHandler g_appEventHandler;

namespace {

// Hooks, message functions and temporary objects may be left from an application that has ended.
void serveApplication() { g_appEventHandler.ServeApplication(); }
Q_COREAPP_STARTUP_FUNCTION(serveApplication)

bool isHostClass(const QObject& object)
{
    const char* const name = object.metaObject()->className();
    return std::any_of(std::begin(hookedClassNames), std::end(hookedClassNames),
                       [name](const char* hooked) { return !std::strcmp(name, hooked); });
}

bool isHostCommandActive()
{
    const QWidget* const frame = TavoGetMainFrame();
    const qlonglong address = frame ? frame->property("IsTavoCmdActive").toLongLong() : 0;
    return address && reinterpret_cast<bool (*)()>(address)();
}

template <class Function>
bool isEmpty(const QList<Function>& chain)
{
    return std::all_of(chain.cbegin(), chain.cend(), [](Function function) { return !function; });
}

const QMetaMethod& idleSignal()
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&QAbstractEventDispatcher::aboutToBlock);
    return signal;
}

// The idle signal and slot. Both objects must be there.
struct IdleConnection
{
    explicit IdleConnection(const QObject& object)
        : dispatcher(QAbstractEventDispatcher::instance()),
          signal(idleSignal()),
          slot(object.metaObject()->method(object.metaObject()->indexOfSlot("OnEnterIdle()")))
    {}
    bool isPossible() const { return dispatcher && slot.isValid(); }

    QAbstractEventDispatcher* dispatcher;
    const QMetaMethod& signal;
    QMetaMethod slot;
};

} // namespace

// -------------------------------------------------------------------------------------------------- the handler

QGlobalEventHandler::QGlobalEventHandler() = default;

QGlobalEventHandler::~QGlobalEventHandler()
{
    RemoveTempObject();
    const auto left = std::exchange(timers, {}); // a timer that goes takes its entry along
    for (const auto& timer : left)
        delete timer.second;
}

bool QGlobalEventHandler::IsEmptyHookChain() const { return isEmpty(m_hookChain) && isEmpty(m_messageFunctions); }

void QGlobalEventHandler::ServeApplication()
{
    if (!IsEmptyHookChain())
        QCoreApplication::instance()->installEventFilter(this);
    if (!m_temporaryObjects.isEmpty())
        ConnectIdleSlot(this);
}

template <class Function>
void QGlobalEventHandler::append(QList<Function>& chain, Function function)
{
    if (IsEmptyHookChain())
        QCoreApplication::instance()->installEventFilter(this);
    chain.append(function);
}

template <class Function>
void QGlobalEventHandler::remove(QList<Function>& chain, Function function)
{
    const auto found = std::find(chain.begin(), chain.end(), function);
    if (function && found != chain.end())
        *found = nullptr;
    dropRemoved();
    if (IsEmptyHookChain() && QCoreApplication::instance())
        QCoreApplication::instance()->removeEventFilter(this);
}

void QGlobalEventHandler::dropRemoved()
{
    if (m_walks)
        return;
    m_hookChain.removeAll(nullptr);
    m_messageFunctions.removeAll(nullptr);
}

HHOOK QGlobalEventHandler::AppendWinMsgFn(int id, HOOKPROC proc)
{
    if (id != WH_KEYBOARD || !proc || !QCoreApplication::instance())
        return nullptr;
    append(m_hookChain, proc);
    return reinterpret_cast<HHOOK>(proc);
}

void QGlobalEventHandler::AppendWinMsgFn(WinMsgFn function)
{
    if (function && QCoreApplication::instance())
        append(m_messageFunctions, function);
}

int QGlobalEventHandler::RemoveWinMsgFn(HHOOK hook)
{
    remove(m_hookChain, reinterpret_cast<HOOKPROC>(hook));
    return 1;
}

void QGlobalEventHandler::RemoveWinMsgFn(WinMsgFn function) { remove(m_messageFunctions, function); }

bool QGlobalEventHandler::eventFilter(QObject* object, QEvent* event)
{
    const xe::EventRow* const row = event ? xe::eventRow(event->type()) : nullptr;
    if (!object || !row || !row->shownToHooks || !isHostClass(*object) || IsEmptyHookChain())
        return false;

    const QPointer<QObject> living(object);
    ++m_walks;
    const auto endOfWalk = qScopeGuard([this] {
        --m_walks;
        dropRemoved();
    });
    const bool stopped = offerToChains(*row, living, event);
    if (living)
        return stopped;
    event->setAccepted(true); // Qt must go on neither with an object that is gone nor from it to its parents
    return true;
}

bool QGlobalEventHandler::offerToChains(const xe::EventRow& row, const QPointer<QObject>& object, QEvent* event)
{
    xe::PointerPosition pointer;
    tagMSG message = xe::translateEvent(row, *object, *event, pointer);
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && !IsRepeatFilterKeyEvent(static_cast<QKeyEvent*>(event)) && callHooks(message))
        return true;
    if (!object || isEmpty(m_messageFunctions))
        return false;
    xe::stampMessage(message, pointer);
    return callMessageFunctions(object, message);
}

bool QGlobalEventHandler::callHooks(const tagMSG& message)
{
    for (int i = m_hookChain.size() - 1; i >= 0; --i) {
        const HOOKPROC hook = m_hookChain.at(i);
        if (hook && hook(0, message.wParam, message.lParam) > 0)
            return true;
    }
    return false;
}

bool QGlobalEventHandler::callMessageFunctions(const QPointer<QObject>& object, tagMSG& message)
{
    for (int i = 0; object && i < m_messageFunctions.size(); ++i) {
        const WinMsgFn function = m_messageFunctions.at(i);
        if (function && function(&message))
            return true;
    }
    return false;
}

void QGlobalEventHandler::AppendTempObject(QObject* object)
{
    if (m_temporaryObjects.isEmpty())
        ConnectIdleSlot(this);
    m_temporaryObjects.append(object);
}

void QGlobalEventHandler::RemoveTempObject()
{
    // A destructor may add objects or empty the pool itself.
    while (!m_temporaryObjects.isEmpty())
        delete m_temporaryObjects.takeFirst();
    DisconnectIdleSlot(this);
}

void QGlobalEventHandler::OnEnterIdle()
{
    if (!isHostCommandActive())
        RemoveTempObject();
}

// ------------------------------------------------------------------------------------------------ free functions

QGlobalEventHandler* GetGlobalEventHandler() { return &g_appEventHandler; }

void ConnectIdleSlot(QObject* object)
{
    if (!object)
        return;
    // Qt::UniqueConnection would search all windows of the process.
    const IdleConnection idle(*object);
    if (idle.isPossible() && !xe::isConnected(idle.dispatcher, idle.signal, object, idle.slot))
        QMetaObject::connect(idle.dispatcher, idle.signal.methodIndex(), object, idle.slot.methodIndex());
}

bool DisconnectIdleSlot(QObject* object)
{
    if (!object)
        return false;
    const IdleConnection idle(*object);
    return idle.isPossible() && QObject::disconnect(idle.dispatcher, idle.signal, object, idle.slot);
}

void AppendTempObjectPool(QObject* object) { g_appEventHandler.AppendTempObject(object); }

void ClearTempObjectPool() { g_appEventHandler.RemoveTempObject(); }

HHOOK SetWindowsHookEx_X(int id, HOOKPROC proc) { return g_appEventHandler.AppendWinMsgFn(id, proc); }

int UnhookWindowsHookEx_X(HHOOK hook) { return g_appEventHandler.RemoveWinMsgFn(hook); }

long long CallNextHookEx_X(HHOOK, int, unsigned long, long long) { return 0; }

void AppendWinMsgFn(WinMsgFn function) { g_appEventHandler.AppendWinMsgFn(function); }

void RemoveWinMsgFn(WinMsgFn function) { g_appEventHandler.RemoveWinMsgFn(function); }

QList<QAction*> ActionRange(QAction* first, ...)
{
    QList<QAction*> actions;
    va_list rest;
    va_start(rest, first);
    for (QAction* action = first; action; action = va_arg(rest, QAction*))
        actions.append(action);
    va_end(rest);
    return actions;
}
