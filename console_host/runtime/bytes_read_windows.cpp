#include "console_host/runtime/bytes_read.h"

#include <windows.h>

std::uint64_t BytesReadSoFar() noexcept
{
    IO_COUNTERS counters{};
    return GetProcessIoCounters(GetCurrentProcess(), &counters) != 0 ? counters.ReadTransferCount
                                                                     : 0;
}
