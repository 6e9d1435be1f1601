#pragma once

#include <cstddef>
#include <limits>

/// Memory in whole large pages, straight from the system: filling and growing a large array then
/// costs a fraction of the page faults, and no copying. On Windows they need a privilege that few
/// users have, and the address sanitizer does not check them.
#ifdef HAVE_LARGE_PAGES

/// What the sizes below are multiples of; more than any size where there are no such pages.
constexpr std::size_t LargePageSize = std::size_t{1} << 21;

/// Maps `size` bytes, all zero, which the caller releases with UnmapLargePages; returns null when
/// out of memory.
[[nodiscard]] void* MapLargePages(std::size_t size) noexcept;

/// Changes the size of a mapping, keeps its contents up to the smaller size, and returns its new
/// place. Returns null when out of memory; the mapping is then as it was.
[[nodiscard]] void* RemapLargePages(void* pages, std::size_t size, std::size_t newSize) noexcept;

/// Releases a mapping of this size.
void UnmapLargePages(void* pages, std::size_t size) noexcept;

#else

constexpr std::size_t LargePageSize = std::numeric_limits<std::size_t>::max();
inline void* MapLargePages(std::size_t) noexcept
{
    return nullptr;
}
inline void* RemapLargePages(void*, std::size_t, std::size_t) noexcept
{
    return nullptr;
}
inline void UnmapLargePages(void*, std::size_t) noexcept {}

#endif
