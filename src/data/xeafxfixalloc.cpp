#include "xeafxfixalloc.h"

#include "xeafxplex.h"

#include <algorithm>

CFixedAllocNoSync_X::CFixedAllocNoSync_X(UINT itemSize, UINT itemsPerBlock)
    : m_itemSize(std::max<UINT>(itemSize, sizeof(Node))),
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
    Node* const item = m_free;
    m_free = item->next;
    return item;
}

void CFixedAllocNoSync_X::Free(void* item)
{
    if (item)
        m_free = new (item) Node{m_free};
}

void CFixedAllocNoSync_X::FreeAll()
{
    if (m_blocks)
        m_blocks->FreeDataChain();
    m_blocks = nullptr;
    m_free = nullptr;
}
