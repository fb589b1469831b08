#include "grid/cellpool.h"

#include "XeGridCell.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

namespace xe {
namespace {

constexpr std::size_t blockSize = 1 << 15; // and alignment, so that a cell finds its block

struct Free
{
    Free* next;
};

// Many cells stand in regions of large pages, since the processor looks up no more than some thousand places of pages
// quickly, and the pages of a million cells are ten times as many.
struct Region
{
    char* begin = nullptr;
    unsigned blocks = 0; // taken from it so far
    unsigned used = 0;   // of these, with cells
};

constexpr std::size_t largePage = std::size_t(1) << 21;
constexpr std::size_t regionSize = 2 * largePage;
constexpr unsigned blocksInRegion = regionSize / blockSize;
constexpr unsigned mostSingleBlocks = largePage / blockSize; // few cells take no more memory than they need

// A block is in the list as long as it has room.
struct Block
{
    Region* region; // null for a single one
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
unsigned singleBlocks = 0;
Region* current = nullptr; // that blocks are taken from

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

// At a multiple of the size of a large page.
char* mapRegion()
{
    const std::size_t size = regionSize + largePage;
    void* const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    auto* const begin = static_cast<char*>(memory);
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(begin) & (largePage - 1);
    if (before > 0)
        munmap(begin, before);
    munmap(begin + before + regionSize, largePage - before);
    madvise(begin + before, regionSize, MADV_HUGEPAGE); // a kernel without them gives small ones
    return begin + before;
}

Block* blockOfRegion()
{
    if (!current || current->blocks == blocksInRegion) {
        auto region = std::make_unique<Region>();
        region->begin = mapRegion();
        current = region.release();
    }
    return new (current->begin + blockSize * current->blocks++) Block{current, nullptr, nullptr, nullptr, 0, 0};
}

Block* singleBlock()
{
    void* const memory = std::aligned_alloc(blockSize, blockSize);
    if (!memory)
        throw std::bad_alloc();
    ++singleBlocks;
    return new (memory) Block{nullptr, nullptr, nullptr, nullptr, 0, 0};
}

void addBlock() { enlist(singleBlocks < mostSingleBlocks ? singleBlock() : blockOfRegion()); }

void giveRegionBack(Region* region)
{
    for (unsigned i = 0; i < region->blocks; ++i)
        unlist(reinterpret_cast<Block*>(region->begin + blockSize * i));
    munmap(region->begin, regionSize);
    if (region == current)
        current = nullptr;
    delete region;
}

// What may be needed for the next cell stays: an empty region while there are many cells, one block after the last
// cell.
void giveBlockBack(Block* block)
{
    if (Region* const region = block->region) {
        const bool isReserve = region == current && singleBlocks == mostSingleBlocks;
        if (--region->used == 0 && !isReserve)
            giveRegionBack(region);
        return;
    }
    if (block == blocksWithRoom && !block->next)
        return;
    unlist(block);
    std::free(block);
    --singleBlocks;
    if (current && current->used == 0)
        giveRegionBack(current);
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
    if (block->used == 0 && block->region)
        ++block->region->used;
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
    if (block->used == 0)
        giveBlockBack(block);
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
