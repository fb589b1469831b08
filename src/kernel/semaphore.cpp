#include "kernel/deadline.h"
#include "kernel/handlerecord.h"
#include "text/utf8.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include <fcntl.h>

namespace {

constexpr mode_t ownerOnly = 0700;

sem_t* openNamed(const char* name, long initialCount)
{
    if (!name) { // the text has no UTF-8 form
        errno = EINVAL;
        return nullptr;
    }
    const auto value = std::min<long>(initialCount, std::numeric_limits<unsigned>::max());
    errno = 0;
    sem_t* const opened = sem_open(name, O_CREAT, ownerOnly, static_cast<unsigned>(value));
    return opened == SEM_FAILED ? nullptr : opened;
}

// Counted before it is posted: a waiter that goes on at once takes from a count that has it.
bool postOnce(const XeHandle::Semaphore& semaphore)
{
    __atomic_fetch_add(&semaphore.countBlock->count, 1, __ATOMIC_RELAXED);
    return semaphore.semaphore && sem_post(semaphore.semaphore) == 0;
}

void takeOne(XeSemaphoreCount& book)
{
    std::int64_t count = xe::loadPlain(book.count);
    while (count > 0
           && !__atomic_compare_exchange_n(&book.count, &count, count - 1, true, __ATOMIC_RELAXED, __ATOMIC_RELAXED)) {
    }
}

bool isCreator(const XeHandle::Semaphore& semaphore)
{
    return semaphore.countBlock->openCountOwner == &semaphore.openCount;
}

} // namespace

HANDLE CreateSemaphore(LPSECURITY_ATTRIBUTES, long initialCount, long maximumCount, LPCWSTR name)
{
    if (const HANDLE existing = xe::existingObject(name, xe::SemaphoreObject))
        return existing;
    if (!name || initialCount < 0 || maximumCount <= 0)
        return &xe::enterNoObject(name);
    XeHandle& record = xe::enterNewRecord(name);
    XeHandle::Semaphore& semaphore = *new (&record.asSemaphore) XeHandle::Semaphore{};
    semaphore.name = xe::encodeUtf8(name).release();
    semaphore.countBlock = new XeSemaphoreCount{initialCount, maximumCount, &semaphore.openCount};
    semaphore.semaphore = openNamed(semaphore.name, initialCount);
    record.type = xe::SemaphoreObject;
    return &record;
}

HANDLE CreateSemaphoreEx(LPSECURITY_ATTRIBUTES security, long initialCount, long maximumCount, LPCWSTR name, DWORD,
                         DWORD)
{
    return CreateSemaphore(security, initialCount, maximumCount, name);
}

HANDLE OpenSemaphore(DWORD, BOOL, long, LPCWSTR name) { return xe::openObject(name, xe::SemaphoreObject); }

BOOL ReleaseSemaphore(HANDLE handle, long releaseCount, long* previousCount)
{
    XeHandle* const record = xe::recordOf(handle, xe::SemaphoreObject);
    if (!record || releaseCount < 1)
        return FALSE;
    const xe::RecordUse use(*record);
    XeHandle::Semaphore& semaphore = record->asSemaphore;
    std::int64_t count = xe::loadPlain(semaphore.countBlock->count);
    if (count > semaphore.countBlock->maximum - releaseCount)
        return FALSE;
    if (previousCount)
        *previousCount = count;
    do {
        if (!postOnce(semaphore))
            return FALSE;
    } while (++count < releaseCount);
    xe::storePlain(semaphore.lastThread, pthread_t());
    return TRUE;
}

DWORD xe::waitForSemaphore(XeHandle& record, DWORD milliseconds)
{
    const RecordUse use(record);
    XeHandle::Semaphore& semaphore = record.asSemaphore;
    if (!semaphore.semaphore)
        return WAIT_FAILED;
    if (const Deadline deadline = deadlineAfter(milliseconds)) {
        if (sem_timedwait(semaphore.semaphore, &*deadline) != 0)
            return errno == ETIMEDOUT ? WAIT_TIMEOUT : WAIT_FAILED;
    } else if (sem_wait(semaphore.semaphore) != 0)
        return WAIT_FAILED;
    storePlain(semaphore.lastThread, pthread_self());
    takeOne(*semaphore.countBlock);
    return WAIT_OBJECT_0;
}

bool xe::closeSemaphore(XeHandle& record)
{
    XeHandle::Semaphore& semaphore = record.asSemaphore;
    if (!semaphore.semaphore)
        return false;
    if (isCreator(semaphore) && semaphore.openCount != 0) { // it stays for those who opened it
        semaphore.semaphore = nullptr;
        semaphore.countBlock = nullptr;
        return true;
    }
    if (!isCreator(semaphore))
        --*semaphore.countBlock->openCountOwner;
    if (loadPlain(semaphore.countBlock->count) == 0)
        postOnce(semaphore);
    if (isCreator(semaphore) && semaphore.name)
        sem_unlink(semaphore.name);
    return true;
}

void xe::freeSemaphore(XeHandle::Semaphore& semaphore)
{
    if (semaphore.semaphore)
        sem_close(semaphore.semaphore);
    if (semaphore.countBlock && isCreator(semaphore))
        delete semaphore.countBlock;
    delete[] semaphore.name;
}
