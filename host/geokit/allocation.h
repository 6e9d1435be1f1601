#pragma once

#include <cstddef>

/// The kernel's allocator. Every array that a kernel object owns comes from it. Any thread may call
/// it, at any time, and release what another thread allocated.

/// Returns `size` new bytes (at least 1), not cleared. Throws std::bad_alloc when there is no
/// memory. The caller owns the block and releases it with GK_Free.
[[nodiscard]] void* GK_Allocate(std::size_t size);

/// Changes the size of a block of GK_Allocate (or null), keeping its contents up to the smaller
/// size, and returns its new place, which the caller owns instead of the old one. On failure throws
/// std::bad_alloc and leaves the block as it was.
[[nodiscard]] void* GK_Reallocate(void* block, std::size_t size);

/// Releases a block of GK_Allocate or GK_Reallocate; null is ignored.
void GK_Free(void* block) noexcept;
