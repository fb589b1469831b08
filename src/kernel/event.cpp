#include "kernel/deadline.h"
#include "kernel/handlerecord.h"

#include <cerrno>

namespace {

void initialise(XeHandle::Event& event, bool manualReset, BOOL state)
{
    if (pthread_cond_init(&event.condStorage, nullptr) != 0)
        return;
    if (pthread_mutex_init(&event.mutexStorage, nullptr) != 0) {
        pthread_cond_destroy(&event.condStorage);
        return;
    }
    event.cond = &event.condStorage;
    event.mutex = &event.mutexStorage;
    event.manualReset = manualReset;
    event.signalCount.store(state);
}

void clearAfterWait(XeHandle::Event& event)
{
    if (!event.manualReset)
        interLockedSetFalse(event.signalCount);
}

// Unlike in a wait that has begun, an interruption counts as a limit that is over, and ETIMEDOUT does not.
DWORD lockFailure(int error)
{
    switch (error) {
    case EINTR:
        return WAIT_TIMEOUT;
    case xe::abandonedError:
        return WAIT_ABANDONED;
    default:
        return WAIT_FAILED;
    }
}

DWORD blockOn(XeHandle::Event& event, const xe::Deadline& deadline)
{
    if (!event.cond || !event.mutex || pthread_mutex_lock(event.mutex) != 0)
        return deadline ? lockFailure(errno) : WAIT_FAILED;
    xe::storePlain(event.waitingThread, pthread_self());
    if (deadline)
        errno = 0;
    const int error = xe::waitOn(event.cond, event.mutex, deadline);
    pthread_mutex_unlock(event.mutex);
    xe::storePlain(event.waitingThread, pthread_t());
    if (error == 0) {
        clearAfterWait(event);
        return WAIT_OBJECT_0;
    }
    if (!deadline)
        return WAIT_FAILED;
    errno = error;
    return xe::waitFailure(error);
}

} // namespace

HANDLE CreateEvent(LPSECURITY_ATTRIBUTES, BOOL manualReset, BOOL initialState, LPCWSTR name)
{
    if (const HANDLE existing = xe::existingObject(name, xe::EventObject))
        return existing;
    XeHandle& record = xe::enterNewRecord(name);
    initialise(*new (&record.asEvent) XeHandle::Event{}, manualReset != 0, initialState);
    if (record.asEvent.cond)
        record.type = xe::EventObject;
    return &record;
}

HANDLE CreateEventEx(LPSECURITY_ATTRIBUTES security, LPCWSTR name, DWORD, DWORD)
{
    return CreateEvent(security, TRUE, TRUE, name);
}

HANDLE OpenEvent(DWORD, BOOL, LPCWSTR name) { return xe::openObject(name, xe::EventObject); }

BOOL SetEvent(HANDLE handle)
{
    XeHandle* const record = xe::recordOf(handle, xe::EventObject);
    if (!record || !record->asEvent.cond)
        return FALSE;
    const xe::RecordUse use(*record);
    XeHandle::Event& event = record->asEvent;
    ++event.signalCount;
    return (event.manualReset ? pthread_cond_broadcast(event.cond) : pthread_cond_signal(event.cond)) == 0;
}

BOOL ResetEvent(HANDLE handle)
{
    if (XeHandle* const record = xe::recordOf(handle, xe::EventObject))
        interLockedSetFalse(record->asEvent.signalCount);
    return FALSE;
}

BOOL PulseEvent(HANDLE handle)
{
    if (XeHandle* const record = xe::recordOf(handle, xe::EventObject)) {
        const xe::RecordUse use(*record);
        SetEvent(handle);
        ResetEvent(handle);
    }
    return FALSE;
}

// One step, whatever the number is: counting it down would take minutes for some, and would not end while others set.
void interLockedSetFalse(std::atomic<std::int64_t>& state) { state = 0; }

DWORD xe::waitForEvent(XeHandle& record, DWORD milliseconds)
{
    XeHandle::Event& event = record.asEvent;
    const Deadline deadline = deadlineAfter(milliseconds);
    if (event.signalCount == 0) {
        const RecordUse use(record);
        return blockOn(event, deadline);
    }
    clearAfterWait(event);
    return WAIT_OBJECT_0;
}

bool xe::closeEvent(XeHandle& record)
{
    const XeHandle::Event& event = record.asEvent;
    if (!event.cond)
        return false;
    if (isInUse(record))
        return true; // those inside need the pieces, and the destruction would wait for them
    return pthread_cond_destroy(event.cond) == 0 && (!event.mutex || pthread_mutex_destroy(event.mutex) == 0);
}
