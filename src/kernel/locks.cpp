#include "kernel/deadline.h"

#include <atomic>
#include <cerrno>

#include <unistd.h>

int InitializeCriticalSection_X(LPCRITICAL_SECTION section)
{
    return section ? pthread_mutex_init(section, nullptr) : EINVAL;
}

int EnterCriticalSection_X(LPCRITICAL_SECTION section) { return section ? pthread_mutex_lock(section) : EINVAL; }
int LeaveCriticalSection_X(LPCRITICAL_SECTION section) { return section ? pthread_mutex_unlock(section) : EINVAL; }
int DeleteCriticalSection_X(LPCRITICAL_SECTION section) { return section ? pthread_mutex_destroy(section) : EINVAL; }

int InitializeSRWLock(PSRWLOCK lock) { return lock ? pthread_rwlock_init(lock, nullptr) : EINVAL; }
int AcquireSRWLockExclusive(PSRWLOCK lock) { return lock ? pthread_rwlock_wrlock(lock) : EINVAL; }
int AcquireSRWLockShared(PSRWLOCK lock) { return lock ? pthread_rwlock_rdlock(lock) : EINVAL; }
int TryAcquireSRWLockExclusive(PSRWLOCK lock) { return lock ? pthread_rwlock_trywrlock(lock) : EINVAL; }
int TryAcquireSRWLockShared(PSRWLOCK lock) { return lock ? pthread_rwlock_tryrdlock(lock) : EINVAL; }

int ReleaseSRWLockExclusive(PSRWLOCK lock)
{
    if (!lock)
        return EINVAL;
    pthread_rwlock_unlock(lock);
    return pthread_rwlock_destroy(lock);
}

int ReleaseSRWLockShared(PSRWLOCK lock) { return ReleaseSRWLockExclusive(lock); }

// A condition variable waits with a mutex only. So whoever sleeps with a read-write lock waits with this mutex, and has
// it from before it lets go of the lock until it is in the wait; a waker that passes the mutex meanwhile loses nobody.
namespace {

pthread_mutex_t sleepMutex = PTHREAD_MUTEX_INITIALIZER;
std::atomic<int> sleepersWithLock{0};

void letSleepersBegin()
{
    if (sleepersWithLock == 0)
        return;
    pthread_mutex_lock(&sleepMutex);
    pthread_mutex_unlock(&sleepMutex);
}

int sleepWithout(PSRWLOCK lock, PCONDITION_VARIABLE condition, const xe::Deadline& deadline)
{
    ++sleepersWithLock;
    pthread_mutex_lock(&sleepMutex);
    pthread_rwlock_unlock(lock);
    const int error = xe::waitOn(condition, &sleepMutex, deadline);
    pthread_mutex_unlock(&sleepMutex);
    --sleepersWithLock;
    return error;
}

} // namespace

int InitializeConditionVariable(PCONDITION_VARIABLE condition)
{
    return condition ? pthread_cond_init(condition, nullptr) : EINVAL;
}

int WakeConditionVariable(PCONDITION_VARIABLE condition)
{
    letSleepersBegin();
    return condition ? pthread_cond_signal(condition) : EINVAL;
}

int WakeAllConditionVariable(PCONDITION_VARIABLE condition)
{
    letSleepersBegin();
    return condition ? pthread_cond_broadcast(condition) : EINVAL;
}

BOOL SleepConditionVariableCS(PCONDITION_VARIABLE condition, LPCRITICAL_SECTION section, DWORD milliseconds)
{
    return !condition || !section || xe::waitOn(condition, section, xe::deadlineAfter(milliseconds)) != 0;
}

BOOL SleepConditionVariableSRW(PCONDITION_VARIABLE condition, PSRWLOCK lock, DWORD milliseconds, ULONG)
{
    if (!condition || !lock)
        return TRUE;
    const int error = sleepWithout(lock, condition, xe::deadlineAfter(milliseconds));
    pthread_rwlock_wrlock(lock);
    return error != 0;
}

DWORD TlsAlloc_X()
{
    pthread_key_t key = TLS_OUT_OF_INDEXES;
    pthread_key_create(&key, nullptr);
    return key;
}

void* TlsGetValue_X(DWORD key) { return pthread_getspecific(key); }
int TlsSetValue_X(DWORD key, void* value) { return pthread_setspecific(key, value); }
BOOL TlsFree_X(DWORD key) { return pthread_key_delete(key) == 0; }

DWORD GetLastError() { return static_cast<DWORD>(errno); }
void SetLastError(unsigned int error) { errno = static_cast<int>(error); }

std::uint64_t GetCurrentThreadId() { return pthread_self(); }
DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }
