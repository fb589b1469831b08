#include "xeafxfixalloc.h"

#include "xeafxplex.h"

#include <algorithm>
#include <cstring>

CFixedAllocNoSync_X::CFixedAllocNoSync_X(UINT itemSize, UINT itemsPerBlock)
    : m_itemSize(std::max<UINT>(itemSize, sizeof m_free)),
      m_itemsPerBlock(itemsPerBlock < 2 ? 64 : itemsPerBlock)
{}

CFixedAllocNoSync_X::~CFixedAllocNoSync_X() { FreeAll(); }

void* CFixedAllocNoSync_X::Alloc()
{
    if (!m_free) {
        auto* const items = static_cast<char*>(CPlex_X::Create(m_blocks, m_itemsPerBlock, m_itemSize)->data());
        for (UINT i = m_itemsPerBlock; i-- > 0;)
            Free(items + static_cast<std::size_t>(i) * m_itemSize);
    }
    void* const item = m_free;
    std::memcpy(&m_free, item, sizeof m_free);
    return item;
}

void CFixedAllocNoSync_X::Free(void* item)
{
    if (!item)
        return;
    std::memcpy(item, &m_free, sizeof m_free);
    m_free = item;
}

void CFixedAllocNoSync_X::FreeAll()
{
    if (m_blocks)
        m_blocks->FreeDataChain();
    m_blocks = nullptr;
    m_free = nullptr;
}
