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

/// The `nth` call of this kind from now on fails (1: the next), and only that one; 0: none does.
void FailCall(Call call, long nth) noexcept;
