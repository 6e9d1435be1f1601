#pragma once

/// Counts an allocation that failed, so that none goes unnoticed, whatever the code that needed it
/// does about it.
void NoteAllocationFailure() noexcept;

/// Does so and throws std::bad_alloc.
[[noreturn]] void NoteAllocationFailureAndThrow();

/// Returns how many failed since the program began.
[[nodiscard]] long AllocationFailures() noexcept;

/// For tests: makes the `nth` kernel allocation from now on fail (1: the next), and only that one;
/// 0: none.
void FailAllocation(long nth) noexcept;
