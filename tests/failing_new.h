#pragma once

/// This program's own operator new, which can be made to fail, serves the libraries that it links
/// too.

/// Makes the `nth` allocation by operator new from now on fail (1: the next), and only that one; 0:
/// none.
void FailNew(long nth) noexcept;

/// Returns how many blocks of operator new there are.
long LiveAllocations() noexcept;
