#include "xeafxplex.h"

#include "xeexcept.h"

#include <cstdint>

CPlex_X* CPlex_X::Create(CPlex_X*& head, std::size_t max, std::size_t element)
{
    constexpr std::size_t largest = PTRDIFF_MAX - sizeof(CPlex_X);
    if (max == 0 || element == 0 || max > largest / element)
        AfxThrowInvalidArgException_X();
    head = new (operator new(sizeof(CPlex_X) + max * element)) CPlex_X{head};
    return head;
}

void CPlex_X::FreeDataChain()
{
    for (CPlex_X* block = this; block;) {
        CPlex_X* older = block->pNext;
        operator delete(block);
        block = older;
    }
}

void xe::detail::freeBlocks(CPlex_X*& blocks)
{
    if (!blocks)
        return;
    blocks->FreeDataChain();
    blocks = nullptr;
}
