#pragma once

#include "objimport/command_line.h"
#include "objimport/input_file.h"

#include <vector>

/// Throws ProgramError, before anything is imported, when an output cannot be written, or when it
/// would take the place of what is read or of another output.
void CheckOutputs(const CommandLine& commandLine, const std::vector<InputFile>& inputs);
