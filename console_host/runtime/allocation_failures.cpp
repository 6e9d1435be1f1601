#include "console_host/runtime/allocation_failures.h"

#include <atomic>

namespace {

std::atomic<long>& Failures() noexcept
{
    static std::atomic<long> failures = 0;
    return failures;
}

} // namespace

void NoteAllocationFailure() noexcept
{
    ++Failures();
}

long AllocationFailures() noexcept
{
    return Failures();
}
