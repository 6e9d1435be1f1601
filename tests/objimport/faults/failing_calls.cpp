#include "tests/objimport/faults/failing_calls.h"

#include "console_host/runtime/allocation_failures.h"
#include "tests/failing_new.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>

namespace {

std::array<std::atomic<long>, 5> callsToFailure{};

bool Fails(Call call) noexcept
{
    std::atomic<long>& left = callsToFailure[static_cast<std::size_t>(call)];
    return left > 0 && --left == 0;
}

bool FailsWith(Call call, int error) noexcept
{
    if (!Fails(call))
        return false;
    errno = error;
    return true;
}

/// Returns the function that this program's own replaces.
template <class Function>
Function* Next(const char* name) noexcept
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

void FailCall(Call call, long nth) noexcept
{
    if (call == Call::Allocate)
        FailNew(nth);
    else if (call == Call::KernelAllocate)
        FailAllocation(nth);
    else
        callsToFailure[static_cast<std::size_t>(call)] = nth;
}

// Calls of the C library. Its own calls inside do not come here.
// NOLINTBEGIN(*-identifier*, *-vararg*)

extern "C" {

std::FILE* fopen(const char* path, const char* mode)
{
    static auto* const next = Next<std::FILE*(const char*, const char*)>("fopen");
    return FailsWith(Call::Open, EMFILE) ? nullptr : next(path, mode);
}

int open(const char* path, int flags, ...)
{
    static auto* const next = Next<int(const char*, int, ...)>("open");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return FailsWith(Call::Open, EMFILE) ? -1 : next(path, flags, mode);
}

std::FILE* fdopen(int descriptor, const char* mode) noexcept
{
    static auto* const next = Next<std::FILE*(int, const char*)>("fdopen");
    return FailsWith(Call::Open, ENOMEM) ? nullptr : next(descriptor, mode);
}

std::size_t fread(void* data, std::size_t size, std::size_t count, std::FILE* stream)
{
    static auto* const next =
        Next<std::size_t(void*, std::size_t, std::size_t, std::FILE*)>("fread");
    if (!FailsWith(Call::Read, EIO))
        return next(data, size, count, stream);
    constexpr int ErrorSeen = 0x20;
    stream->_flags |= ErrorSeen;
    return 0;
}

// What a call becomes when the compiler knows how large the target is.
std::size_t __fread_chk(void* data, std::size_t, std::size_t size, std::size_t count,
                        std::FILE* stream)
{
    return fread(data, size, count, stream);
}

std::size_t fwrite(const void* data, std::size_t size, std::size_t count, std::FILE* stream)
{
    static auto* const next =
        Next<std::size_t(const void*, std::size_t, std::size_t, std::FILE*)>("fwrite");
    return FailsWith(Call::Write, ENOSPC) ? 0 : next(data, size, count, stream);
}

int fflush(std::FILE* stream)
{
    static auto* const next = Next<int(std::FILE*)>("fflush");
    return FailsWith(Call::Write, ENOSPC) ? EOF : next(stream);
}

int fsync(int descriptor)
{
    static auto* const next = Next<int(int)>("fsync");
    return FailsWith(Call::Write, EIO) ? -1 : next(descriptor);
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const next = Next<int(const char*, const char*)>("rename");
    return FailsWith(Call::Write, EACCES) ? -1 : next(from, to);
}
}

// NOLINTEND(*-identifier*, *-vararg*)
