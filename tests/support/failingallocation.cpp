#include "failingallocation.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <new>

namespace {

thread_local int allocationsToGo = 0; // 0: none is to fail
thread_local bool wasReached = false;
thread_local long allocationsMade = 0;
std::atomic<long> liveBlocks{0};

bool mustFail()
{
    ++allocationsMade;
    if (allocationsToGo == 0 || --allocationsToGo != 0)
        return false;
    wasReached = true;
    errno = ENOMEM;
    return true;
}

void* counted(void* block)
{
    liveBlocks += block != nullptr;
    return block;
}

} // namespace

FailingAllocation::FailingAllocation(int number)
{
    wasReached = false;
    allocationsToGo = number;
}

bool FailingAllocation::end()
{
    allocationsToGo = 0;
    return wasReached;
}

long FailingAllocation::blocks() { return liveBlocks; }
long FailingAllocation::made() { return allocationsMade; }

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

void* operator new(std::size_t size)
{
    void* const block = mustFail() ? nullptr : counted(std::malloc(size));
    if (!block)
        throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    liveBlocks -= block != nullptr;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

#else

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

Q_DECL_EXPORT void free(void* block)
{
    liveBlocks -= block != nullptr;
    __libc_free(block);
}

Q_DECL_EXPORT void* malloc(std::size_t size) { return mustFail() ? nullptr : counted(__libc_malloc(size)); }

Q_DECL_EXPORT void* calloc(std::size_t count, std::size_t size)
{
    return mustFail() ? nullptr : counted(__libc_calloc(count, size));
}

Q_DECL_EXPORT void* realloc(void* block, std::size_t size)
{
    if (!block)
        return malloc(size);
    if (size == 0) {
        free(block);
        return nullptr;
    }
    return mustFail() ? nullptr : __libc_realloc(block, size);
}

Q_DECL_EXPORT void* memalign(std::size_t alignment, std::size_t size)
{
    return mustFail() ? nullptr : counted(__libc_memalign(alignment, size));
}

Q_DECL_EXPORT void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

Q_DECL_EXPORT int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

} // extern "C"

#endif
