#include "console_host/runtime/native_path.h"
#include "objimport/library.h"
#include "objimport/program_error.h"

#include <system_error>
#include <windows.h>

Library::Library(const std::filesystem::path& path)
{
    // No box of the system's own for a file that is no module.
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS);
    m_handle = LoadLibraryW(path.c_str());
    const auto error = static_cast<int>(GetLastError());
    SetErrorMode(before);
    if (m_handle == nullptr)
        throw ProgramError("cannot load the module " + Utf8Path(path) + ": " +
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
