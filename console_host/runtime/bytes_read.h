#pragma once

#include <cstdint>

/// Returns how many bytes this process has read so far, from files of any kind; 0 when the system
/// does not tell. Any thread.
std::uint64_t BytesReadSoFar() noexcept;
