#include "tests/failing_new.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> allocationsToFailure = 0;
std::atomic<long> liveAllocations = 0;

void* AllocateOrFail(std::size_t size)
{
    const bool fails = allocationsToFailure > 0 && --allocationsToFailure == 0;
    void* block = fails ? nullptr : std::malloc(size > 0 ? size : 1);
    if (block == nullptr) {
        // The handler throws.
        if (const std::new_handler handler = std::get_new_handler())
            handler();
        throw std::bad_alloc();
    }
    ++liveAllocations;
    return block;
}

void Release(void* block) noexcept
{
    liveAllocations -= block != nullptr ? 1 : 0;
    std::free(block);
}

} // namespace

void FailNew(long nth) noexcept
{
    allocationsToFailure = nth;
}

long LiveAllocations() noexcept
{
    return liveAllocations;
}

void* operator new(std::size_t size)
{
    return AllocateOrFail(size);
}

void* operator new[](std::size_t size)
{
    return AllocateOrFail(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return AllocateOrFail(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, nothrow);
}

void operator delete(void* block) noexcept
{
    Release(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept
{
    Release(block);
}

void operator delete[](void* block) noexcept
{
    Release(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    Release(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    Release(block);
}
