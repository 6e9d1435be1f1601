#pragma once

#include <string>
#include <vector>

/// Runs the program on its arguments, in UTF-8; returns its exit status: 0, 1 when an import
/// failed, 2 when what was asked for could not be done.
int RunProgram(std::vector<std::string> arguments);
