/// @file xesynchapi.h
/// Events, mutexes and semaphores with waits on them; locks, thread storage and the last error.
///
/// The last error is the thread's `errno`, also where a function below "sets the last error". Milliseconds are counted
/// from the call; only INFINITE waits for ever.
#pragma once

#include "xedef.h"

#include <QMap>

#include <atomic>
#include <cstdint>

#include <pthread.h>
#include <semaphore.h>

// --------------------------------------------------------------------------------------------- what a handle points to

/// The process's own book on a semaphore. Another process that uses the same semaphore has its own.
struct XeSemaphoreCount
{
    std::int64_t count;
    std::int64_t maximum;
    std::int32_t* openCountOwner; ///< the `openCount` of the record that created the semaphore
};

/// The record behind the handle of an event, a mutex or a semaphore. Only the Create* functions make one and only
/// XeCloseHandle deletes it. `type` says which member is valid.
struct XeHandle
{
    struct Mutex
    {
        pthread_mutex_t mutexStorage;
        pthread_mutex_t* mutex;
        pthread_t ownerThread; ///< 0 while nobody has it
    };

    struct Semaphore
    {
        char* name;       ///< in UTF-8; the record owns it
        sem_t* semaphore; ///< null when the system refused it
        XeSemaphoreCount* countBlock;
        std::int32_t openCount;
        pthread_t lastThread; ///< of the last successful wait; 0 after a release
    };

    struct Event
    {
        pthread_cond_t condStorage;
        pthread_cond_t* cond;
        pthread_mutex_t mutexStorage;
        pthread_mutex_t* mutex;
        pthread_t waitingThread; ///< the last that began to wait; 0 after a wait
        bool manualReset;
        std::atomic<std::int64_t> signalCount; ///< signalled unless 0
    };

    std::uint32_t type; ///< 0 no object, 1 mutex, 2 semaphore, 3 event
    union {
        Mutex asMutex;
        Semaphore asSemaphore;
        Event asEvent;
    };
};

/// The records by the *address* of their name; nameless ones stand under null. Nothing is closed at the end of the
/// process. No lock guards it: the host creates, opens and closes from one thread at a time.
///
/// The entry of a record that XeCloseHandle could not take apart stays, and has a record without a kind from then on.
extern XE_EXPORT QMap<const wchar_t*, XeHandle*>& g_mapXeHandle;

// ----------------------------------------------------------------------------------------------------- create and open
// Security attributes, access masks and inherit flags are ignored.
//
// A name is known by its address alone: the same text at another address is another name, and the text of events and
// mutexes is never read. Open* returns the very handle that Create* gave and counts nothing, so the first XeCloseHandle
// ends the object for all. It returns null and sets the last error to 2 (ENOENT) for an unknown name, to 6 (ENXIO) when
// the name has an object of another kind.
//
// Create* returns the object of that kind and name as it is, with the last error ERROR_ALREADY_EXISTS, if there is one.
// Null is a name like any other here, unlike in the published interface: all nameless events are one object until it is
// closed, and so are all nameless mutexes. An object of another kind under the name is forgotten, not closed. After a
// first creation the last error is 2, from the search; for a semaphore it is what `sem_open` left, whether or not that
// succeeded. The handle is never null: when there can be no object, waits on it fail and XeCloseHandle gives 0.

/// An event. Any `initialState` but 0 is signalled.
XE_EXPORT HANDLE CreateEvent(LPSECURITY_ATTRIBUTES security, BOOL manualReset, BOOL initialState, LPCWSTR name);

/// A manual-reset event that is signalled, whatever the flags say, unlike the published function.
XE_EXPORT HANDLE CreateEventEx(LPSECURITY_ATTRIBUTES security, LPCWSTR name, DWORD flags, DWORD access);
/// The event of a name; see Open* above.
XE_EXPORT HANDLE OpenEvent(DWORD access, BOOL inherit, LPCWSTR name);

/// A mutex for the threads of this process. It is not recursive, unlike the published one.
XE_EXPORT HANDLE CreateMutex(LPSECURITY_ATTRIBUTES security, BOOL initialOwner, LPCWSTR name);

/// CreateMutex; any flag makes the caller the owner.
XE_EXPORT HANDLE CreateMutexEx(LPSECURITY_ATTRIBUTES security, LPCWSTR name, DWORD flags, DWORD access);
/// The mutex of a name; see Open* above.
XE_EXPORT HANDLE OpenMutex(DWORD access, BOOL inherit, LPCWSTR name);

/// The system's semaphore of that name, which other processes can join. The name goes to `sem_open` as it is, in UTF-8:
/// it should begin with "/" and have no other. One that the system has already is joined with the value it has, while
/// the count of this process begins at `initialCount`. When the system refuses, the handle is one to close and no more.
///
/// There are named semaphores only: for a null name, a negative initial count or a maximum below 1 there is no object;
/// nor for a name without a UTF-8 form, which makes 22 (EINVAL) the last error.
XE_EXPORT HANDLE CreateSemaphore(LPSECURITY_ATTRIBUTES security, long initialCount, long maximumCount, LPCWSTR name);

/// CreateSemaphore; the flags are ignored.
XE_EXPORT HANDLE CreateSemaphoreEx(LPSECURITY_ATTRIBUTES security, long initialCount, long maximumCount, LPCWSTR name,
                                   DWORD flags, DWORD access);

/// The semaphore of a name; see Open* above. The third argument is ignored.
XE_EXPORT HANDLE OpenSemaphore(DWORD access, BOOL inherit, long maximumCount, LPCWSTR name);

/// Ends the object for all who have the handle and deletes its record. Gives 1; 0 for null and for a handle without an
/// object, which stays as it is. The handle is not to be used afterwards; calls that are inside at that moment end
/// safely.
///
/// A semaphore whose count is 0 is posted once, which lets a waiter go, and its name is removed from the system, also
/// when another process made it. Other waiters stay in their wait. A mutex that is in use goes too, but its table entry
/// stays. Files are closed by CloseHandle_X.
XE_EXPORT BOOL XeCloseHandle(HANDLE handle) noexcept;

// ----------------------------------------------------------------------------------------- change of state and waiting
// A null handle, and one of another kind or without an object, gives 0, or WAIT_FAILED from the wait.

/// Signals an event: all waiters go on when it is a manual-reset one, else one does. 1 on success.
XE_EXPORT BOOL SetEvent(HANDLE event);

/// Clears an event. The result is 0 also on success, unlike the published function's.
XE_EXPORT BOOL ResetEvent(HANDLE event);

/// SetEvent, then ResetEvent. The result is always 0.
XE_EXPORT BOOL PulseEvent(HANDLE event);

/// Sets the state of an event to 0, in one step.
XE_EXPORT void interLockedSetFalse(std::atomic<std::int64_t>& state);

/// Lets go of a mutex, also one of another thread or of nobody, unlike the published function. 1 on success.
XE_EXPORT BOOL ReleaseMutex(HANDLE mutex);

/// Posts a semaphore until the count of this process has reached `releaseCount`, and at least once: releasing 3 from a
/// count of 1 posts twice, from 5 once. The published function posts `releaseCount` times.
///
/// `previousCount` gets the count before; it may be null. 1 on success. 0, with nothing changed, for a `releaseCount`
/// below 1 or one that with the count exceeds the maximum; 0 also when a post fails.
XE_EXPORT BOOL ReleaseSemaphore(HANDLE semaphore, long releaseCount, long* previousCount);

inline constexpr DWORD INFINITE = 0xFFFFFFFF;
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_ABANDONED = 128;
inline constexpr DWORD WAIT_TIMEOUT = 258;
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;

/// Waits for an event, a mutex or a semaphore. WAIT_OBJECT_0 means that the caller has it.
///
/// - Event: an auto-reset one is cleared by the waiter that it lets go, whatever number of times it was set. Any
///   wake-up of the condition variable counts as the event. A SetEvent in the moment before a waiter blocks does not
///   wake it; the *next* wait sees the event, so callers wait with a limit, and again. A wait with a limit that blocked
///   leaves the last error 0, or 110 (ETIMEDOUT) with WAIT_TIMEOUT.
/// - Mutex: a limit that is over gives WAIT_FAILED, and WAIT_TIMEOUT only if the last error was 110 (ETIMEDOUT) before.
///   Whatever is not WAIT_OBJECT_0 means that the caller does not have the mutex. Its owner does not get it again.
/// - Semaphore: WAIT_TIMEOUT when the limit is over; a signal handler that runs meanwhile makes it WAIT_FAILED.
XE_EXPORT DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

// --------------------------------------------------------------------------------------------------------------- locks
// The types are those of pthreads. Unless it says otherwise, a function gives the result of the pthread function: 0 on
// success, which is the reverse of the published BOOL, else an error number. Null gives EINVAL.

using CRITICAL_SECTION = pthread_mutex_t;
using PCRITICAL_SECTION = pthread_mutex_t*;
using LPCRITICAL_SECTION = pthread_mutex_t*;
using SRWLOCK = pthread_rwlock_t;
using PSRWLOCK = pthread_rwlock_t*;
using CONDITION_VARIABLE = pthread_cond_t;
using PCONDITION_VARIABLE = pthread_cond_t*;

/// Makes a critical section, which is not recursive, unlike the published one.
XE_EXPORT int InitializeCriticalSection_X(LPCRITICAL_SECTION section);
/// Waits until nobody is inside and enters. A second entry by the thread that is inside blocks for ever.
XE_EXPORT int EnterCriticalSection_X(LPCRITICAL_SECTION section);
/// Leaves a section that the thread is in.
XE_EXPORT int LeaveCriticalSection_X(LPCRITICAL_SECTION section);
/// Ends a section that nobody is in.
XE_EXPORT int DeleteCriticalSection_X(LPCRITICAL_SECTION section);

/// Makes a lock that many may hold shared, or one exclusively.
XE_EXPORT int InitializeSRWLock(PSRWLOCK lock);
/// Waits for the lock.
XE_EXPORT int AcquireSRWLockExclusive(PSRWLOCK lock);
XE_EXPORT int AcquireSRWLockShared(PSRWLOCK lock);
/// Takes the lock if that is possible at once: 0 when taken, 16 (EBUSY) when not.
XE_EXPORT int TryAcquireSRWLockExclusive(PSRWLOCK lock);
XE_EXPORT int TryAcquireSRWLockShared(PSRWLOCK lock);

/// Unlocks and *destroys* the lock, unlike the published function: it serves for one hold and is initialised again
/// before the next. Gives the result of the destruction.
XE_EXPORT int ReleaseSRWLockExclusive(PSRWLOCK lock);
XE_EXPORT int ReleaseSRWLockShared(PSRWLOCK lock); ///< the same, also while others hold the lock

/// Makes a condition variable.
XE_EXPORT int InitializeConditionVariable(PCONDITION_VARIABLE condition);
/// Wakes one sleeper, if there is any; WakeAllConditionVariable wakes all.
XE_EXPORT int WakeConditionVariable(PCONDITION_VARIABLE condition);
XE_EXPORT int WakeAllConditionVariable(PCONDITION_VARIABLE condition);

/// Leaves the critical section, which the caller is in, until the condition variable wakes it or the limit is over, and
/// enters it again. 0 when woken, 1 on failure, for null and when the limit is over: the reverse of the published
/// results. It can wake without a cause, so the caller tests its own condition.
XE_EXPORT BOOL SleepConditionVariableCS(PCONDITION_VARIABLE condition, LPCRITICAL_SECTION section, DWORD milliseconds);

/// The same with a lock that the caller holds, shared or exclusively. The flags are ignored: when the call returns, the
/// lock is held *exclusively*, with either result. A wake by a thread that had the lock after the sleeper is not lost.
XE_EXPORT BOOL SleepConditionVariableSRW(PCONDITION_VARIABLE condition, PSRWLOCK lock, DWORD milliseconds, ULONG flags);

// --------------------------------------------------------------------------------------- thread storage and last error

inline constexpr DWORD TLS_OUT_OF_INDEXES = 0xFFFFFFFF;

/// A new key, whose value is null on every thread; TLS_OUT_OF_INDEXES when there is none left.
XE_EXPORT DWORD TlsAlloc_X();
/// The calling thread's value; null for an unknown key.
XE_EXPORT void* TlsGetValue_X(DWORD key);
/// Stores the calling thread's value. 0 on success, unlike the published function; else an error number.
XE_EXPORT int TlsSetValue_X(DWORD key, void* value);
/// Gives a key back; what the values point at stays. 1 on success, else 0.
XE_EXPORT BOOL TlsFree_X(DWORD key);

/// The calling thread's `errno`. Any call of the C library can change it.
XE_EXPORT DWORD GetLastError();
/// Sets the calling thread's `errno`.
XE_EXPORT void SetLastError(unsigned int error);

XE_EXPORT std::uint64_t GetCurrentThreadId(); ///< the whole pthread_t, wider than the published type
XE_EXPORT DWORD GetCurrentProcessId();
