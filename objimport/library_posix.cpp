#include "objimport/library.h"
#include "objimport/program_error.h"

#include <dlfcn.h>

Library::Library(const std::filesystem::path& path) : m_handle(dlopen(path.c_str(), RTLD_NOW))
{
    if (m_handle != nullptr)
        return;
    std::string reason = dlerror();
    if (const std::string start = path.native() + ": "; reason.rfind(start, 0) == 0)
        reason.erase(0, start.size());
    throw ProgramError("cannot load the module " + path.native() + ": " + reason);
}

Library::~Library()
{
    dlclose(m_handle);
}

Library::Function Library::Find(const char* name) const
{
    return reinterpret_cast<Function>(dlsym(m_handle, name));
}
