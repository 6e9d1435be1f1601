#pragma once

/// Counts the allocations that failed, so that none goes unnoticed, whatever was done about it
/// where it happened.
void NoteAllocationFailure() noexcept;

/// Does so and throws std::bad_alloc.
[[noreturn]] void NoteAllocationFailureAndThrow();

/// Returns how many failed since the program began.
[[nodiscard]] long AllocationFailures() noexcept;

/// For tests: the `nth` kernel allocation from now on fails (1: the next), and only that one. 0:
/// none does.
void FailAllocation(long nth) noexcept;
