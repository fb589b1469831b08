#include "kernel/handlerecord.h"

#include <cerrno>

namespace {

using HandleTable = QMap<const wchar_t*, XeHandle*>;

// Made by the first who asks and never destroyed: static objects of the host may be the first and the last to ask.
HandleTable& handleTable()
{
    static auto& table = *new HandleTable;
    return table;
}

void removeEntries(const XeHandle* record)
{
    HandleTable& table = handleTable();
    for (auto entry = table.begin(); entry != table.end();)
        entry = *entry == record ? table.erase(entry) : std::next(entry);
}

XeHandle noObject = {};

// What is left in the table must not point to a record that is gone.
void keepEntries(const XeHandle* record)
{
    for (XeHandle*& entry : handleTable())
        if (entry == record)
            entry = &noObject;
}

bool takeApart(XeHandle& record)
{
    switch (record.type) {
    case xe::MutexObject:
        return xe::closeMutex(record);
    case xe::SemaphoreObject:
        return xe::closeSemaphore(record);
    default:
        return xe::closeEvent(record);
    }
}

} // namespace

HandleTable& g_mapXeHandle = handleTable();

HANDLE xe::openObject(LPCWSTR name, HandleKind kind)
{
    const HandleTable& table = handleTable();
    const auto entry = table.constFind(name);
    if (entry != table.constEnd() && *entry && (*entry)->type == kind)
        return *entry;
    errno = entry == table.constEnd() ? ENOENT : ENXIO;
    return nullptr;
}

HANDLE xe::existingObject(LPCWSTR name, HandleKind kind)
{
    const HANDLE existing = openObject(name, kind);
    if (existing)
        errno = ERROR_ALREADY_EXISTS;
    return existing;
}

XeHandle& xe::enterNewRecord(LPCWSTR name)
{
    auto* record = new HandleRecord{};
    handleTable()[name] = record;
    return *record;
}

XeHandle& xe::enterNoObject(LPCWSTR name)
{
    handleTable()[name] = &noObject;
    return noObject;
}

void xe::addUser(XeHandle& record) { static_cast<HandleRecord&>(record).users.fetch_add(1, std::memory_order_relaxed); }

void xe::removeUser(XeHandle& record)
{
    auto& counted = static_cast<HandleRecord&>(record);
    if (counted.users.fetch_sub(1, std::memory_order_acq_rel) > 1)
        return;
    if (record.type == SemaphoreObject)
        freeSemaphore(record.asSemaphore);
    delete &counted;
}

bool xe::isInUse(const XeHandle& record)
{
    return static_cast<const HandleRecord&>(record).users.load(std::memory_order_acquire) > 1;
}

BOOL XeCloseHandle(HANDLE handle) noexcept
{
    auto* const record = static_cast<XeHandle*>(handle);
    if (!record || record->type < xe::MutexObject || record->type > xe::EventObject)
        return FALSE;
    if (takeApart(*record))
        removeEntries(record);
    else
        keepEntries(record);
    xe::removeUser(*record);
    return TRUE;
}
