#include "console_host/runtime/large_pages.h"

#include <cstdint>
#include <sys/mman.h>

// NOLINTBEGIN(performance-no-int-to-ptr): MAP_FAILED is made so

void* MapLargePages(std::size_t size) noexcept
{
    // One large page more always holds an aligned address; the rest is unmapped.
    void* const mapped = mmap(nullptr, size + LargePageSize, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return nullptr;
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(mapped) % LargePageSize;
    char* const pages = static_cast<char*>(mapped) + before;
    if (before > 0)
        munmap(mapped, before);
    munmap(pages + size, LargePageSize - before);
    // Without the advice, or where it is not followed, pages are small: slower, but as good.
    madvise(pages, size, MADV_HUGEPAGE);
    return pages;
}

void* RemapLargePages(void* pages, std::size_t size, std::size_t newSize) noexcept
{
    if (mremap(pages, size, newSize, 0) != MAP_FAILED)
        return pages;
    void* const target = MapLargePages(newSize);
    if (target == nullptr)
        return nullptr;
    if (mremap(pages, size, newSize, MREMAP_MAYMOVE | MREMAP_FIXED, target) == target)
        return target;
    munmap(target, newSize);
    return nullptr;
}

void UnmapLargePages(void* pages, std::size_t size) noexcept
{
    munmap(pages, size);
}

// NOLINTEND(performance-no-int-to-ptr)
