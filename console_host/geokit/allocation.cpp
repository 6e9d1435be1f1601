#include "host/geokit/allocation.h"

#include "console_host/runtime/allocation_failures.h"
#include "console_host/runtime/large_pages.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace {

std::atomic<long>& Failures() noexcept
{
    static constinit std::atomic<long> failures = 0;
    return failures;
}

/// Returns how many allocations, with the one that is to fail, are left; 0: none is to fail.
std::atomic<long>& AllocationsToFailure() noexcept
{
    static constinit std::atomic<long> left = 0;
    return left;
}

/// Precedes every block.
struct alignas(std::max_align_t) BlockHeader
{
    std::size_t size; ///< of header and block together; that of a large page at least when in such
};

/// Leaves room for the header and for rounding up to large pages.
constexpr std::size_t LargestBlock = std::numeric_limits<std::size_t>::max() / 2;

BlockHeader* HeaderOf(void* block) noexcept
{
    return block == nullptr ? nullptr : static_cast<BlockHeader*>(block) - 1;
}

bool InLargePages(std::size_t size) noexcept
{
    return size >= LargePageSize;
}

/// Returns the size of the large pages that hold so many bytes.
std::size_t PagesSize(std::size_t size) noexcept
{
    return (size + LargePageSize - 1) / LargePageSize * LargePageSize;
}

BlockHeader* MoveToLargePages(BlockHeader* header, std::size_t size) noexcept
{
    void* const pages = MapLargePages(PagesSize(size));
    if (pages != nullptr && header != nullptr) {
        std::memcpy(pages, header, header->size);
        std::free(header);
    }
    return static_cast<BlockHeader*>(pages);
}

/// Makes a block, or makes it larger or smaller; returns null when out of memory. A block in large
/// pages stays in such.
BlockHeader* Resize(BlockHeader* header, std::size_t size) noexcept
{
    BlockHeader* resized = nullptr;
    if (header != nullptr && InLargePages(header->size)) {
        size = std::max(size, LargePageSize);
        resized = static_cast<BlockHeader*>(
            RemapLargePages(header, PagesSize(header->size), PagesSize(size)));
    } else if (InLargePages(size)) {
        resized = MoveToLargePages(header, size);
    } else {
        resized = static_cast<BlockHeader*>(std::realloc(header, size));
    }
    if (resized != nullptr)
        resized->size = size;
    return resized;
}

bool IsToFail() noexcept
{
    std::atomic<long>& left = AllocationsToFailure();
    return left > 0 && --left == 0;
}

} // namespace

void NoteAllocationFailure() noexcept
{
    ++Failures();
}

void NoteAllocationFailureAndThrow()
{
    NoteAllocationFailure();
    throw std::bad_alloc();
}

long AllocationFailures() noexcept
{
    return Failures();
}

void FailAllocation(long nth) noexcept
{
    AllocationsToFailure() = nth;
}

void* GK_Reallocate(void* block, std::size_t size)
{
    if (IsToFail() || size > LargestBlock)
        NoteAllocationFailureAndThrow();
    BlockHeader* const header = Resize(HeaderOf(block), size + sizeof(BlockHeader));
    if (header == nullptr)
        NoteAllocationFailureAndThrow();
    return header + 1;
}

void GK_Free(void* block) noexcept
{
    BlockHeader* const header = HeaderOf(block);
    if (header != nullptr && InLargePages(header->size))
        UnmapLargePages(header, PagesSize(header->size));
    else
        std::free(header);
}
