#pragma once

#include <cstddef>

/// Memory in whole large pages, straight from the system: filling and growing a large array then
/// costs a fraction of the page faults, and no copying.

/// What the sizes below are multiples of; more than any size where there are no such pages.
[[nodiscard]] std::size_t LargePageSize() noexcept;

/// Maps `size` bytes, all zero; null when there is no memory. The caller releases them with
/// UnmapLargePages.
[[nodiscard]] void* MapLargePages(std::size_t size) noexcept;

/// Changes the size of a mapping, which may move, and keeps its contents up to the smaller size.
/// Null when there is no memory: the mapping is then as it was.
[[nodiscard]] void* RemapLargePages(void* pages, std::size_t size, std::size_t newSize) noexcept;

/// Releases a mapping of this size.
void UnmapLargePages(void* pages, std::size_t size) noexcept;
