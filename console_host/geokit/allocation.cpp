#include "host/geokit/allocation.h"

#include "console_host/geokit/allocation_faults.h"
#include "console_host/runtime/large_pages.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

struct AllocationFaults
{
    long count = 0;
    long failing = 0;
};

AllocationFaults& Faults() noexcept
{
    static AllocationFaults faults;
    return faults;
}

} // namespace

void FailAllocation(long nth) noexcept
{
    Faults() = {0, nth};
}

long AllocationCount() noexcept
{
    return Faults().count;
}

void* GK_Allocate(std::size_t size)
{
    return GK_Reallocate(nullptr, size);
}

void* GK_Reallocate(void* block, std::size_t size)
{
    if (++Faults().count == Faults().failing)
        throw std::bad_alloc();
    void* moved = std::realloc(block, std::max<std::size_t>(size, 1));
    if (moved == nullptr)
        throw std::bad_alloc();
    PreferLargePages(moved, size);
    return moved;
}

void GK_Free(void* block) noexcept
{
    std::free(block);
}
