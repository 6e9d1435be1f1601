#pragma once

/// Makes the allocations of GK_Allocate and GK_Reallocate fail, for tests.

/// The `nth` allocation from now on fails (1: the next), and only that one. 0: none does.
void FailAllocation(long nth) noexcept;
