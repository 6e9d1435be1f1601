#pragma once

/// Counts the allocations that failed, so that none goes unnoticed, whatever was done about it
/// where it happened.
void NoteAllocationFailure() noexcept;

/// Returns how many failed since the program began.
[[nodiscard]] long AllocationFailures() noexcept;
