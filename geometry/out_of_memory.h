#pragma once

/// Prints what a failed allocation has cost, as far as there is memory to print. `format`, or its
/// localized form by `id`, has one "%s", which the name takes the place of.
void PrintOutOfMemory(const wchar_t* format, int id, const wchar_t* name) noexcept;
