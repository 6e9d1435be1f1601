#pragma once

#include <string>
#include <string_view>

/// The text with '?' for every control character but line ends and tabs, so that what stands in a
/// file cannot steer a terminal.
std::string Printable(std::string_view utf8);
