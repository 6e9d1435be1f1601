#include "console_host/runtime/large_pages.h"

// Large pages need a privilege here that few users have.
void PreferLargePages(void*, std::size_t) noexcept {}
