#include "console_host/runtime/large_pages.h"

#include <limits>

// Large pages need a privilege on Windows that few users have, and the address sanitizer does not
// watch over them.

std::size_t LargePageSize() noexcept
{
    return std::numeric_limits<std::size_t>::max();
}

void* MapLargePages(std::size_t) noexcept
{
    return nullptr;
}

void* RemapLargePages(void*, std::size_t, std::size_t) noexcept
{
    return nullptr;
}

void UnmapLargePages(void*, std::size_t) noexcept {}
