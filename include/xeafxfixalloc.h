/// @file xeafxfixalloc.h
/// A pool of items of one size.
#pragma once

#include "xedef.h"

struct CPlex_X;

/// Hands out items of one size from blocks, which are freed all at once. For one thread.
class XE_EXPORT CFixedAllocNoSync_X
{
public:
    /// A size below 8 becomes 8, since a free item holds a link; a count below 2 becomes 64.
    explicit CFixedAllocNoSync_X(UINT itemSize, UINT itemsPerBlock = 64);
    ~CFixedAllocNoSync_X();
    CFixedAllocNoSync_X(const CFixedAllocNoSync_X&) = delete;
    CFixedAllocNoSync_X& operator=(const CFixedAllocNoSync_X&) = delete;

    UINT GetAllocSize() const { return m_itemSize; }

    void* Alloc(); ///< not cleared, aligned to 8 bytes if the size is. What CPlex_X::Create raises passes through
    void Free(void* item); ///< nothing for null
    void FreeAll();        ///< every item, also those that are in use

private:
    UINT m_itemSize;
    UINT m_itemsPerBlock;
    CPlex_X* m_blocks = nullptr;
    void* m_free = nullptr; // starts with the address of the next one, on any boundary
};
