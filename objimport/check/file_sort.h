#pragma once

#include "objimport/check/findings.h"

#include <string_view>

/// Reports, by its first bytes, a file that is not text. Returns whether it is not.
bool ReportNoText(const CheckPlace& place, std::string_view firstBytes);
