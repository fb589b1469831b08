// What stands behind the handles of events, mutexes and semaphores.
#pragma once

#include "xesynchapi.h"

#include <QtGlobal>

namespace xe {

enum HandleKind : std::uint32_t { NoObject, MutexObject, SemaphoreObject, EventObject };

/// The public record and the number of its users: the handle until it is closed, and each call that others can make
/// return. The last one deletes it, so that a thread may close an event as soon as it has seen it, while the thread
/// that set it is still on its way out, and a waiter that the close wakes finds what it waited on.
struct HandleRecord : XeHandle
{
    std::atomic<int> users{1};
};

/// The record of a handle, null unless it is of that kind.
inline XeHandle* recordOf(HANDLE handle, HandleKind kind)
{
    auto* const record = static_cast<XeHandle*>(handle);
    return record && record->type == kind ? record : nullptr;
}

void addUser(XeHandle& record);
void removeUser(XeHandle& record);

/// Whether there are users besides the handle.
bool isInUse(const XeHandle& record);

class RecordUse
{
public:
    explicit RecordUse(XeHandle& used) : record(used) { addUser(record); }
    ~RecordUse() { removeUser(record); }
    Q_DISABLE_COPY_MOVE(RecordUse)

private:
    XeHandle& record;
};

// The bodies of Open*, of the first half of Create* and of its second: a new record without an object, in the table.
HANDLE openObject(LPCWSTR name, HandleKind kind);
HANDLE existingObject(LPCWSTR name, HandleKind kind);
XeHandle& enterNewRecord(LPCWSTR name);

/// Makes the name stand for no object, and returns the one record of all that are none.
XeHandle& enterNoObject(LPCWSTR name);

constexpr int abandonedError = 36; ///< of waits whose object was abandoned

/// The result of a wait that ended with an error number.
DWORD waitFailure(int error);

DWORD waitForMutex(XeHandle& record, DWORD milliseconds);
DWORD waitForSemaphore(XeHandle& record, DWORD milliseconds);
DWORD waitForEvent(XeHandle& record, DWORD milliseconds);

// Take an object apart; false when its table entry is to stay.
bool closeMutex(XeHandle& record);
bool closeSemaphore(XeHandle& record);
bool closeEvent(XeHandle& record);

/// Gives back what a closed semaphore's record owns.
void freeSemaphore(XeHandle::Semaphore& semaphore);

// The plain fields of a record are read and written by several threads without a lock.
template <class T>
T loadPlain(const T& field)
{
    return __atomic_load_n(&field, __ATOMIC_RELAXED);
}

template <class T>
void storePlain(T& field, T value)
{
    __atomic_store_n(&field, value, __ATOMIC_RELAXED);
}

} // namespace xe
