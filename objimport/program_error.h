#pragma once

#include "console_host/app/printable.h"

#include <cstdio>
#include <new>
#include <stdexcept>
#include <string_view>

/// What keeps the program from doing what it was asked; one line that names what and why.
class ProgramError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Says on standard error what went wrong, in one line whatever stands in it.
inline void TellError(std::string_view what) noexcept
try {
    WriteForPerson(stderr, "objimport: " + PrintableLine(what) + "\n");
} catch (const std::bad_alloc&) {
    std::fputs("objimport: out of memory\n", stderr);
}
