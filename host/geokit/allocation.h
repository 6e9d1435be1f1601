#pragma once

#include <cstddef>

/// The kernel's allocator. Every array that a kernel object owns comes from it. Any thread may call
/// it, at any time, and release what another thread allocated.

/// Changes the size of a block, keeping its contents up to the smaller size, and returns its new
/// place, which the caller owns instead of the old one and releases with GK_Free. A null block is
/// an empty one; new bytes are not cleared. `size` is at least 1. On failure throws std::bad_alloc
/// and leaves the block as it was.
[[nodiscard]] void* GK_Reallocate(void* block, std::size_t size);

/// Releases a block of GK_Reallocate; null is ignored.
void GK_Free(void* block) noexcept;
