#include "console_host/runtime/large_pages.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

void PreferLargePages([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size) noexcept
{
#ifdef MADV_HUGEPAGE
    constexpr std::size_t LargePage = std::size_t{1} << 21;
    if (size < LargePage)
        return;
    // All pages that the block touches: a mapping of which only a part is treated otherwise could
    // not be moved as a whole when the block grows.
    const auto pageSize = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t offset = reinterpret_cast<std::uintptr_t>(block) % pageSize; // NOLINT
    madvise(static_cast<char*>(block) - offset, offset + size, MADV_HUGEPAGE);
#endif
}
