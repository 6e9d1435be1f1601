#pragma once

#include <cstdint>
#include <string>

/// Returns the text of an OBJ file with faults of all sorts, the same for a seed on every platform.
std::string RandomObj(std::uint32_t seed);

/// Returns the text of a library with faults.
std::string RandomMtl(std::uint32_t seed);
