#include "xeafxlist.h"

#include <type_traits>

namespace {

bool matches(const void* element, const void* sought) { return element == sought; }
bool matches(const CString_X& element, const wchar_t* sought) { return element.Compare(sought) == 0; }

} // namespace

template <class List, class Value, class Sought>
POSITION XeList<List, Value, Sought>::Find(Sought value, POSITION startAfter) const
{
    CNode_X* node = startAfter ? nodeBehind(startAfter) : head;
    while (node && !matches(node->value, value))
        node = node->next;
    return positionOf(node);
}

template <class List, class Value, class Sought>
POSITION XeList<List, Value, Sought>::FindIndex(long long index) const
{
    if (index < 0 || index >= count)
        return nullptr;
    CNode_X* node = head;
    while (index-- > 0)
        node = node->next;
    return positionOf(node);
}

// The number of elements is taken beforehand, as the other list may be this one and grow meanwhile.
template <class List, class Value, class Sought>
void XeList<List, Value, Sought>::AddHead(const List* other)
{
    if (!other)
        AfxThrowInvalidArgException_X();
    const CNode_X* node = other->tail;
    for (long long rest = other->count; rest > 0; --rest, node = node->prev)
        AddHead(node->value);
}

template <class List, class Value, class Sought>
void XeList<List, Value, Sought>::AddTail(const List* other)
{
    if (!other)
        AfxThrowInvalidArgException_X();
    const CNode_X* node = other->head;
    for (long long rest = other->count; rest > 0; --rest, node = node->next)
        AddTail(node->value);
}

template <class List, class Value, class Sought>
Value XeList<List, Value, Sought>::remove(CNode_X* node)
{
    Value value = std::move(node->value);
    (node->prev ? node->prev->next : head) = node->next;
    (node->next ? node->next->prev : tail) = node->prev;
    xe::detail::giveNodeBack(freeList, node);
    if (--count == 0)
        RemoveAll();
    return value;
}

template <class List, class Value, class Sought>
void XeList<List, Value, Sought>::RemoveAll()
{
    if constexpr (!std::is_trivially_destructible_v<CNode_X>)
        for (CNode_X* node = head; node;)
            std::exchange(node, node->next)->~CNode_X();
    head = tail = freeList = nullptr;
    count = 0;
    xe::detail::freeBlocks(blocks);
}

template class XeList<CPtrList_X, void*>;
template class XeList<CObList_X, CObject_X*>;
template class XeList<CStringList_X, CString_X, const wchar_t*>;

IMPLEMENT_DYNAMIC_X(CPtrList_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CObList_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CStringList_X, CObject_X)
