#pragma once

/// Kinds of calls that this program makes fail in place of the system: it replaces them for itself
/// and for its libraries.
enum class Call
{
    Allocate,       ///< operator new
    KernelAllocate, ///< GK_Allocate and GK_Reallocate
    Open,
    Read,
    Write ///< writing, flushing, bringing to the disk, closing, renaming
};

/// Makes the `nth` call of this kind from now on fail (1: the next), and only that one; 0: none.
void FailCall(Call call, long nth) noexcept;
