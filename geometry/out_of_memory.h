#pragma once

/// Prints what a failed allocation has cost, as far as there is memory to print. `format` has one
/// "%s", which the name takes the place of.
void PrintOutOfMemory(const wchar_t* format, const wchar_t* name) noexcept;
