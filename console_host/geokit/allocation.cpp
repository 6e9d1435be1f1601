#include "host/geokit/allocation.h"

#include <algorithm>
#include <cstdlib>
#include <new>

void* GK_Allocate(std::size_t size)
{
    return GK_Reallocate(nullptr, size);
}

void* GK_Reallocate(void* block, std::size_t size)
{
    void* moved = std::realloc(block, std::max<std::size_t>(size, 1));
    if (moved == nullptr)
        throw std::bad_alloc();
    return moved;
}

void GK_Free(void* block) noexcept
{
    std::free(block);
}
