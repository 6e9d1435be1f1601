#pragma once

#include "console_host/runtime/file_replacement.h"
#include "objimport/command_line.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// A file to import.
struct InputFile
{
    std::string name;                    ///< as it was typed, or as a pattern found it
    std::filesystem::path path;          ///< what is read
    std::unique_ptr<TemporaryFile> copy; ///< keeps what came from standard input or a pipe
    std::string whyUnreadable;           ///< empty when it can be read
};

/// Returns the name of an input as it is shown in one line.
std::string ShownFileName(const std::string& name);

/// Returns the files that a command line names, in order, patterns replaced by the names that they
/// find. Each is found readable or says why it is not.
std::vector<InputFile> FindInputFiles(const CommandLine& commandLine);

/// Keeps what comes from standard input and from pipes in temporary files, to the end of the input.
/// A file for which that fails says why it is unreadable.
void KeepStreams(std::vector<InputFile>& files);

/// Returns the beginning of a file, by which to tell what kind of file it is; empty when it does
/// not open.
std::string FirstBytes(const InputFile& file);

/// Throws ProgramError for the first file that cannot be read.
void CheckReadable(const std::vector<InputFile>& files);
