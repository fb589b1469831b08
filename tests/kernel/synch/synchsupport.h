#pragma once

#include "kernel/handlerecord.h"

#include <xesynchapi.h>

#include <QDir>

#include <cerrno>
#include <csignal>
#include <string>
#include <thread>

#include <unistd.h>

#if defined(__SANITIZE_THREAD__)
inline constexpr bool underThreadSanitizer = true;
#else
inline constexpr bool underThreadSanitizer = false;
#endif

inline XeHandle& record(HANDLE handle) { return *static_cast<XeHandle*>(handle); }

/// A name of this process's own for a semaphore of the system; its file is fileOf() it.
inline std::wstring semaphoreName(const wchar_t* suffix)
{
    return L"/xe_test_" + std::to_wstring(getpid()) + L"_" + suffix;
}

inline QString fileOf(const std::wstring& name)
{
    return QStringLiteral("/dev/shm/sem.") + QString::fromStdWString(name).remove(QLatin1Char('/'));
}

/// What is left in the table and of the semaphores of this process, as one line.
inline QString leftInSystem()
{
    QStringList left =
        QDir(QStringLiteral("/dev/shm")).entryList({QStringLiteral("sem.xe_test_%1_*").arg(getpid())}, QDir::Files);
    if (!g_mapXeHandle.isEmpty())
        left += QStringLiteral("%1 handles").arg(g_mapXeHandle.size());
    g_mapXeHandle.clear();
    return left.join(QLatin1Char(' '));
}

/// Takes a handle that cannot be closed, as one without an object, out of the table.
inline void forget(HANDLE handle)
{
    for (const wchar_t* key : g_mapXeHandle.keys(static_cast<XeHandle*>(handle)))
        g_mapXeHandle.remove(key);
}

/// Calls with one last error and gives the one afterwards; the result goes to `result`.
template <class Result, class Call>
DWORD lastErrorAfter(Result& result, DWORD before, Call call)
{
    SetLastError(before);
    result = call();
    return GetLastError();
}

inline QString waitName(DWORD result)
{
    switch (result) {
    case 0:
        return QStringLiteral("object");
    case 128:
        return QStringLiteral("abandoned");
    case 258:
        return QStringLiteral("timeout");
    case 0xFFFFFFFF:
        return QStringLiteral("failed");
    default:
        return QString::number(result);
    }
}

/// A wait as "outcome, last error".
inline QString waited(HANDLE handle, DWORD milliseconds, DWORD errorBefore = 77)
{
    DWORD result = 0;
    const DWORD error = lastErrorAfter(result, errorBefore, [&] { return WaitForSingleObject(handle, milliseconds); });
    return QStringLiteral("%1, %2").arg(waitName(result)).arg(error);
}

/// Waits on a thread of its own.
class Waiter
{
public:
    Waiter(HANDLE handle, DWORD milliseconds)
        : thread([=] {
              outcome = waited(handle, milliseconds);
              ended = true;
          })
    {}
    ~Waiter()
    {
        if (thread.joinable())
            thread.join();
    }
    Q_DISABLE_COPY_MOVE(Waiter)

    pthread_t id() { return thread.native_handle(); }
    bool hasEnded() const { return ended; }

    QString result()
    {
        thread.join();
        return outcome;
    }

private:
    QString outcome;
    std::atomic<bool> ended{false};
    std::thread thread;
};

/// Handles a signal as long as the object lives; what the signal interrupts is not restarted.
class SignalHandler
{
public:
    SignalHandler(int number, void (*handler)(int)) : signalNumber(number)
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        sigaction(signalNumber, &action, &before);
    }
    ~SignalHandler() { sigaction(signalNumber, &before, nullptr); }
    Q_DISABLE_COPY_MOVE(SignalHandler)

private:
    const int signalNumber;
    struct sigaction before = {};
};

/// Until the handle has that number of calls inside that can block.
inline void untilInside(HANDLE handle, int calls)
{
    const auto& users = static_cast<xe::HandleRecord&>(record(handle)).users;
    while (users != calls + 1)
        std::this_thread::yield();
}

/// Until the waiter is blocked on the event.
inline void untilBlocked(HANDLE event, Waiter& waiter)
{
    auto& fields = record(event).asEvent;
    while (xe::loadPlain(fields.waitingThread) != waiter.id())
        std::this_thread::yield();
    pthread_mutex_lock(fields.mutex); // the waiter has let go of it
    pthread_mutex_unlock(fields.mutex);
}
