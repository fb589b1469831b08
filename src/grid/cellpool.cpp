#include "grid/cellpool.h"

#include "XeGridCell.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace xe {
namespace {

constexpr std::size_t blockSize = 1 << 15; // and alignment, so that a cell finds its block

struct Free
{
    Free* next;
};

// A block is in the list as long as it has room.
struct Block
{
    Block* previous;
    Block* next;
    Free* free;
    unsigned fresh; // cells that have never been taken begin here
    unsigned used;
};

union CellMemory {
    Free free;
    alignas(CGridCell_X) unsigned char bytes[sizeof(CGridCell_X)];
};

constexpr std::size_t firstCell = (sizeof(Block) + alignof(CellMemory) - 1) / alignof(CellMemory) * alignof(CellMemory);
constexpr unsigned cellsInBlock = (blockSize - firstCell) / sizeof(CellMemory);

Block* blocksWithRoom = nullptr;

Block* blockOf(void* cell)
{
    return reinterpret_cast<Block*>(reinterpret_cast<std::uintptr_t>(cell)
                                    & ~static_cast<std::uintptr_t>(blockSize - 1));
}

void* cellOf(Block* block, unsigned index)
{
    return reinterpret_cast<unsigned char*>(block) + firstCell + index * sizeof(CellMemory);
}

void enlist(Block* block)
{
    block->previous = nullptr;
    block->next = blocksWithRoom;
    if (blocksWithRoom)
        blocksWithRoom->previous = block;
    blocksWithRoom = block;
}

void unlist(Block* block)
{
    (block->previous ? block->previous->next : blocksWithRoom) = block->next;
    if (block->next)
        block->next->previous = block->previous;
}

void addBlock()
{
    void* const memory = std::aligned_alloc(blockSize, blockSize);
    if (!memory)
        throw std::bad_alloc();
    enlist(new (memory) Block{nullptr, nullptr, nullptr, 0, 0});
}

} // namespace

void* takeCellMemory()
{
    if (!blocksWithRoom)
        addBlock();
    Block* const block = blocksWithRoom;
    void* cell = block->free;
    if (cell)
        block->free = block->free->next;
    else
        cell = cellOf(block, block->fresh++);
    if (++block->used == cellsInBlock)
        unlist(block);
    return cell;
}

void giveCellMemoryBack(void* cell) noexcept
{
    Block* const block = blockOf(cell);
    if (block->used-- == cellsInBlock)
        enlist(block);
    block->free = new (cell) Free{block->free};
    const bool isOnlyOne = block == blocksWithRoom && !block->next;
    if (block->used > 0 || isOnlyOne)
        return;
    unlist(block);
    std::free(block);
}

} // namespace xe

// The sanitizers see a cell that is used too late only if it has memory of its own.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool usesPool = false;
#else
constexpr bool usesPool = true;
#endif

void* CGridCell_X::operator new(std::size_t size)
{
    return usesPool && size == sizeof(CGridCell_X) ? xe::takeCellMemory() : ::operator new(size);
}

void CGridCell_X::operator delete(void* cell, std::size_t size) noexcept
{
    if (usesPool && size == sizeof(CGridCell_X))
        xe::giveCellMemoryBack(cell);
    else
        ::operator delete(cell);
}
