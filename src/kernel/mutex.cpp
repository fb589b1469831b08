#include "kernel/deadline.h"
#include "kernel/handlerecord.h"

#include <cerrno>

namespace {

int lockUntil(pthread_mutex_t* mutex, const xe::Deadline& deadline)
{
    return deadline ? pthread_mutex_timedlock(mutex, &*deadline) : pthread_mutex_lock(mutex);
}

// pthread_self() takes as long as half of a lock, so each thread remembers it.
pthread_t thisThread()
{
    [[gnu::tls_model("initial-exec")]] static thread_local pthread_t self;
    return self ? self : self = pthread_self();
}

DWORD acquired(XeHandle::Mutex& mutex)
{
    xe::storePlain(mutex.ownerThread, thisThread());
    return WAIT_OBJECT_0;
}

// The outcome of a failure comes from errno, as the contract says, though the pthread functions leave that alone.
DWORD waitForOwner(XeHandle& record, DWORD milliseconds)
{
    const xe::RecordUse use(record);
    XeHandle::Mutex& mutex = record.asMutex;
    return lockUntil(mutex.mutex, xe::deadlineAfter(milliseconds)) == 0 ? acquired(mutex) : xe::waitFailure(errno);
}

} // namespace

HANDLE CreateMutex(LPSECURITY_ATTRIBUTES, BOOL initialOwner, LPCWSTR name)
{
    if (const HANDLE existing = xe::existingObject(name, xe::MutexObject))
        return existing;
    XeHandle& record = xe::enterNewRecord(name);
    XeHandle::Mutex& mutex = record.asMutex;
    if (pthread_mutex_init(&mutex.mutexStorage, nullptr) != 0)
        return &record;
    record.type = xe::MutexObject;
    mutex.mutex = &mutex.mutexStorage;
    if (initialOwner && pthread_mutex_trylock(mutex.mutex) == 0)
        acquired(mutex);
    return &record;
}

HANDLE CreateMutexEx(LPSECURITY_ATTRIBUTES security, LPCWSTR name, DWORD flags, DWORD)
{
    return CreateMutex(security, flags != 0, name);
}

HANDLE OpenMutex(DWORD, BOOL, LPCWSTR name) { return xe::openObject(name, xe::MutexObject); }

// The owner is cleared while the mutex is still held: afterwards it might be another's. A mutex that nobody has is
// taken first, since pthreads promises nothing for the unlock of a free one.
BOOL ReleaseMutex(HANDLE handle)
{
    XeHandle* const record = xe::recordOf(handle, xe::MutexObject);
    if (!record || !record->asMutex.mutex)
        return FALSE;
    XeHandle::Mutex& mutex = record->asMutex;
    const pthread_t owner = xe::loadPlain(mutex.ownerThread);
    if (!owner)
        pthread_mutex_trylock(mutex.mutex);
    xe::storePlain(mutex.ownerThread, pthread_t());
    if (pthread_mutex_unlock(mutex.mutex) == 0)
        return TRUE;
    xe::storePlain(mutex.ownerThread, owner);
    return FALSE;
}

DWORD xe::waitForMutex(XeHandle& record, DWORD milliseconds)
{
    XeHandle::Mutex& mutex = record.asMutex;
    if (!mutex.mutex)
        return waitFailure(errno);
    return pthread_mutex_trylock(mutex.mutex) == 0 ? acquired(mutex) : waitForOwner(record, milliseconds);
}

bool xe::closeMutex(XeHandle& record)
{
    const XeHandle::Mutex& mutex = record.asMutex;
    const bool busy = isInUse(record) || loadPlain(mutex.ownerThread);
    return mutex.mutex && !busy && pthread_mutex_destroy(mutex.mutex) == 0;
}
