#pragma once

#include <cstddef>

/// Asks the system to back a block of memory with large pages where it can: filling a large array
/// then costs a fraction of the page faults. Changes nothing but speed, and never fails.
void PreferLargePages(void* block, std::size_t size) noexcept;
