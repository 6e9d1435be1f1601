#include "console_host/framework/work_note.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/native_path.h"
#include "objimport/platform.h"
#include "objimport/program_error.h"

#include "host/geokit/string.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <system_error>
#include <windows.h>

namespace {

/// Returns false, so that the event ends the program as it would have done.
BOOL WINAPI CleanUp(DWORD)
{
    WorkNote::EraseAtTheEnd();
    RemoveUnfinishedFiles();
    return FALSE;
}

} // namespace

void RemoveUnfinishedFilesAtTheEnd()
{
    SetConsoleCtrlHandler(CleanUp, TRUE);
}

std::vector<std::string> ProgramArguments(int, char**)
{
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; wide != nullptr && i < count; ++i)
        arguments.push_back(GK_wString(wide[i]).Utf8());
    LocalFree(wide);
    return arguments;
}

std::FILE* BinaryStandardInput()
{
    _setmode(_fileno(stdin), _O_BINARY);
    return stdin;
}

StandardStreams::StandardStreams() : m_before(GetConsoleOutputCP())
{
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

StandardStreams::~StandardStreams()
{
    if (m_before != 0)
        SetConsoleOutputCP(m_before);
}

void WaitInOwnWindow()
{
    DWORD processes[2];
    DWORD mode = 0;
    const bool alone = GetConsoleProcessList(processes, 2) == 1;
    if (!alone || GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) == 0 ||
        GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) == 0)
        return;
    std::fputs("\nPress Enter to close this window.", stdout);
    std::fflush(stdout);
    int typed = 0;
    while (typed != '\n' && typed != EOF)
        typed = std::getchar();
}

Library::Library(const std::filesystem::path& path, const std::string& what)
{
    // The system must not show a message box for a file that is not a module.
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS);
    m_handle = LoadLibraryW(path.c_str());
    const auto error = static_cast<int>(GetLastError());
    SetErrorMode(before);
    if (m_handle == nullptr)
        throw ProgramError("cannot load the " + what + " " + Utf8Path(path) + ": " +
                           std::system_category().message(error));
}

Library::~Library()
{
    FreeLibrary(static_cast<HMODULE>(m_handle));
}

Library::Function Library::Find(const char* name) const
{
    return reinterpret_cast<Function>(GetProcAddress(static_cast<HMODULE>(m_handle), name));
}
