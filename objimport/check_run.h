#pragma once

#include "objimport/input_file.h"

#include <span>
#include <string>

/// What --check is asked for. Texts are UTF-8.
struct CheckRequest
{
    std::span<const InputFile> files; ///< streams among them have been kept
    std::string sarif; ///< where findings are written; empty: nowhere; "-": standard output
    double tolerance = 0.001;
    bool all = false; ///< no list is cut short
    bool quiet = false;
};

/// Holds files against the format and tells on standard output what an import will lose; returns
/// the program's exit status: 0 when nothing is lost, 1 when something is, 2 when a file could not
/// be read. Throws ProgramError when the result cannot be written.
int CheckFilesAgainstFormat(const CheckRequest& request);
