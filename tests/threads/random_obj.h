#pragma once

#include <random>
#include <string>

/// Returns the text of an OBJ file with everything that is difficult to read: faults, relative
/// indices, names, joined lines, comments, zero bytes, all line ends.
std::string RandomObj(std::mt19937& random);
