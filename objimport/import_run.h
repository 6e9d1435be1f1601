#pragma once

#include "objimport/command_line.h"
#include "objimport/input_file.h"
#include "objimport/plugin_module.h"

#include <vector>

/// The outcome of a run that imports files, as its exit status.
enum class RunOutcome : int
{
    Succeeded = 0,
    ImportFailed = 1, ///< an import was not whole
    NotDone = 2       ///< a file could not be read or written
};

/// Imports files into a new document, or each into one of its own, writes the documents where the
/// command line says, and shows what came of each file and what the documents hold. Throws
/// ProgramError when something cannot be read or written that the whole run depends on.
RunOutcome ImportFiles(const CommandLine& commandLine, const std::vector<InputFile>& files,
                       PlugInModule& module);
