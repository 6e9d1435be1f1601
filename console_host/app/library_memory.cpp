#include "console_host/app/library_memory.h"

#include "console_host/runtime/allocation_failures.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

thread_local LibraryMemory* currentMemory = nullptr;

/// With room for what stands before a block.
constexpr std::uint64_t MostThatCanBeHad = std::numeric_limits<std::ptrdiff_t>::max() / 2;

} // namespace

LibraryMemory::LibraryMemory(std::uint64_t largestBlock, WhenExhausted whenExhausted)
    : m_largestBlock(std::min(largestBlock, MostThatCanBeHad)), m_whenExhausted(whenExhausted)
{
}

LibraryMemory::~LibraryMemory()
{
    for (Block* block = m_blocks.next; block != &m_blocks;) {
        Block* const next = block->next;
        std::free(block);
        block = next;
    }
}

void* LibraryMemory::Allocate(std::size_t size)
{
    if (size > m_largestBlock)
        return Fail();
    return Link(static_cast<Block*>(std::calloc(1, sizeof(Block) + size)));
}

void* LibraryMemory::Reallocate(void* block, std::size_t size)
{
    if (block == nullptr)
        return Allocate(size);
    if (size > m_largestBlock)
        return Fail();
    auto* const moved =
        static_cast<Block*>(std::realloc(static_cast<Block*>(block) - 1, sizeof(Block) + size));
    if (moved == nullptr) {
        NoteAllocationFailure();
        return Fail();
    }
    moved->previous->next = moved;
    moved->next->previous = moved;
    return moved + 1;
}

void LibraryMemory::Free(void* block) noexcept
{
    if (block == nullptr)
        return;
    Block* const start = static_cast<Block*>(block) - 1;
    Unlink(start);
    std::free(start);
}

LibraryMemory::Block* LibraryMemory::Fail() const
{
    if (m_whenExhausted == WhenExhausted::Throw)
        throw std::bad_alloc();
    return nullptr;
}

void* LibraryMemory::Link(Block* block)
{
    if (block == nullptr) {
        NoteAllocationFailure();
        return Fail();
    }
    block->previous = &m_blocks;
    block->next = m_blocks.next;
    m_blocks.next->previous = block;
    m_blocks.next = block;
    return block + 1;
}

void LibraryMemory::Unlink(Block* block) noexcept
{
    block->previous->next = block->next;
    block->next->previous = block->previous;
}

LibraryMemory::Use::Use(LibraryMemory& memory)
{
    currentMemory = &memory;
}

LibraryMemory::Use::~Use()
{
    currentMemory = nullptr;
}

LibraryMemory& LibraryMemory::Current()
{
    return *currentMemory;
}
