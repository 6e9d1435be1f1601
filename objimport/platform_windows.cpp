#include "console_host/runtime/unfinished_file.h"
#include "objimport/platform.h"

#include "host/geokit/string.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

/// False leaves the event to end the program, as it would have done.
BOOL WINAPI CleanUp(DWORD)
{
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
