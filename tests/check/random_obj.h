#pragma once

#include <cstdint>
#include <string>

/// The text of an OBJ file with faults of all sorts, the same for a seed on every platform.
std::string RandomObj(std::uint32_t seed);

/// The text of a library with faults.
std::string RandomMtl(std::uint32_t seed);
