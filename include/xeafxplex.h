/// @file xeafxplex.h
/// Chains of raw blocks, and the free lists of nodes that the list and map collections keep on them.
#pragma once

#include "xedef.h"

#include <cstddef>
#include <new>
#include <utility>

/// A place in a list or map: the address of a node or an association, null for none. It is for its container alone, and
/// dead once the element is removed or the container emptied.
struct __POSITION;
using POSITION = __POSITION*;

/// The header of a block of raw memory in a chain; the data follows it. A chain is held by a pointer to its newest
/// block.
///
///     CPlex_X* blocks = nullptr;
///     void* room = CPlex_X::Create(blocks, 10, sizeof(Item))->data(); // for ten items
///     blocks->FreeDataChain();
///
/// The data is aligned for pointers and numbers of 8 bytes, and holds no objects of its own.
struct XE_EXPORT CPlex_X
{
    CPlex_X* pNext; ///< the next older block, null for the oldest

    void* data() { return this + 1; }

    /// Puts a block with room for `max` times `element` bytes at the head of the chain and returns it. Raises a
    /// CInvalidArgException_X* if one of them is 0 or the size is more than a block can have, std::bad_alloc for want
    /// of memory.
    static CPlex_X* Create(CPlex_X*& head, std::size_t max, std::size_t element);

    /// Frees this block and all older ones.
    void FreeDataChain();
};

namespace xe::detail {

/// Frees the chain, which may be empty, and leaves it so.
XE_EXPORT void freeBlocks(CPlex_X*& blocks);

/// Adds a block of `blockSize` nodes and threads them through their `next`, so that the lowest address comes first.
template <class Node>
Node* threadNodes(CPlex_X*& blocks, long long blockSize)
{
    static_assert(alignof(Node) <= alignof(CPlex_X), "a node is aligned as the data of a block is");
    auto* nodes =
        static_cast<Node*>(CPlex_X::Create(blocks, static_cast<std::size_t>(blockSize), sizeof(Node))->data());
    Node* first = nullptr;
    for (long long i = blockSize; i-- > 0;) {
        nodes[i].next = first;
        first = nodes + i;
    }
    return first;
}

/// Makes a node from the head of the free list, which a new block refills when it is empty. The node's constructor must
/// not fail. A block size below 1 raises, as CPlex_X::Create() does.
template <class Node, class... Arguments>
Node* takeNode(Node*& freeList, CPlex_X*& blocks, long long blockSize, Arguments&&... arguments)
{
    if (!freeList)
        freeList = threadNodes<Node>(blocks, blockSize);
    Node* node = freeList;
    freeList = node->next;
    return new (node) Node{std::forward<Arguments>(arguments)...};
}

/// Ends a node and puts it at the head of the free list.
template <class Node>
void giveNodeBack(Node*& freeList, Node* node)
{
    node->~Node();
    node->next = freeList;
    freeList = node;
}

} // namespace xe::detail
