#pragma once

#include <cstddef>
#include <string>

/// Returns a number with commas between thousands: "81,002".
std::string NumberText(std::size_t number);

/// Returns a number and what is counted, in the singular or the plural: "1 node", "2 nodes".
std::string Counted(std::size_t number, const char* one, const char* many);
