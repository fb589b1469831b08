#include "kernel/handlerecord.h"

#include <cerrno>

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    auto* const record = static_cast<XeHandle*>(handle);
    switch (record ? record->type : xe::NoObject) {
    case xe::MutexObject:
        return xe::waitForMutex(*record, milliseconds);
    case xe::SemaphoreObject:
        return xe::waitForSemaphore(*record, milliseconds);
    case xe::EventObject:
        return xe::waitForEvent(*record, milliseconds);
    default:
        return WAIT_FAILED;
    }
}

DWORD xe::waitFailure(int error)
{
    switch (error) {
    case abandonedError:
        return WAIT_ABANDONED;
    case ETIMEDOUT:
        return WAIT_TIMEOUT;
    default:
        return WAIT_FAILED;
    }
}
