#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

/// Returns the program's arguments in UTF-8, without the program's name.
std::vector<std::string> ProgramArguments(int count, char** arguments);

/// Has whatever ends the program from outside (a signal, the closing of the console) remove the
/// files that are not finished, and take the note of the work off the terminal.
void RemoveUnfinishedFilesAtTheEnd();

/// Returns standard input, which passes on every byte as it is from now on.
std::FILE* BinaryStandardInput();

/// Makes the standard streams carry UTF-8 as it is written, and writing into a closed pipe an error
/// like any other, for as long as the object lives.
class StandardStreams
{
public:
    StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;
    ~StandardStreams(); // NOLINT(*-trivially-destructible): not so on Windows

private:
    [[maybe_unused]] unsigned int m_before = 0;
};

/// Waits for Enter when a console window was opened for this program alone, as for one that was
/// started by mouse: the window closes with the program. There is none off Windows.
void WaitInOwnWindow();

/// A shared library loaded at run time, unloaded when the object goes.
class Library
{
public:
    using Function = void (*)();

    /// Throws ProgramError, which names the file, `what` it is and the reason, when it cannot be
    /// loaded.
    explicit Library(const std::filesystem::path& path, const std::string& what = "module");
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    /// Returns the function that the library exports under this plain name, or null.
    [[nodiscard]] Function Find(const char* name) const;

private:
    void* m_handle = nullptr;
};
