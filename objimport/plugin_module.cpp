#include "objimport/plugin_module.h"

#include "console_host/app/printable.h"
#include "console_host/app/registration.h"
#include "console_host/runtime/allocation_failures.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/program_error.h"

#include "host/framework/win_app.h"
#include "host/geokit/string.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>
#include <utility>

namespace {

/// Returns the path, when there is a file to load.
const std::filesystem::path& Readable(const std::filesystem::path& path)
{
    if (const std::string why = WhyUnreadable(path); !why.empty())
        throw ProgramError("cannot load the module " + Utf8Path(path) + ": " + why);
    return path;
}

template <class Function>
Function Export(const Library& library, const char* name, const std::filesystem::path& path)
{
    const Library::Function found = library.Find(name);
    if (found == nullptr)
        throw ProgramError("the module " + Utf8Path(path) + " lacks the export " + name);
    return reinterpret_cast<Function>(found);
}

CKelvoFileImportPlugIn* RegisteredImportPlugIn()
{
    for (CKelvoPlugIn* plugIn : PlugIns())
        if (auto* importer = dynamic_cast<CKelvoFileImportPlugIn*>(plugIn))
            return importer;
    return nullptr;
}

} // namespace

PlugInModule::PlugInModule(const std::filesystem::path& path)
    : m_failuresBefore(AllocationFailures()), m_library(Readable(path))
{
    if (AllocationFailures() > m_failuresBefore)
        throw std::bad_alloc();
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        m_texts[i] = Export<TextFunction>(m_library, TextExports[i].second, path);
    m_sdkVersion = Export<NumberFunction>(m_library, "KelvoPlugInSdkVersion", path);
    m_sdkServiceRelease = Export<NumberFunction>(m_library, "KelvoPlugInSdkServiceRelease", path);
    m_plugIn = RegisteredImportPlugIn();
    if (m_plugIn == nullptr)
        throw ProgramError("the module " + Utf8Path(path) + " exports no import plug-in");
    const std::vector<CWinApp*>& apps = ModuleApps();
    if (!std::all_of(apps.begin(), apps.end(), [](CWinApp* app) { return app->InitInstance(); }))
        throw ProgramError("the module " + Utf8Path(path) + " does not start");
}

PlugInModule::~PlugInModule()
{
    try {
        RunUnloadHook();
    } catch (const std::exception& failure) {
        WriteForPerson(stderr,
                       std::string("objimport: the unload hook failed: ") + failure.what() + "\n");
    }
}

void PlugInModule::RunLoadHook()
{
    if (m_plugIn->OnLoad() != 1)
        throw ProgramError("the plug-in " + GK_wString(m_plugIn->PlugInName()).Utf8() +
                           " refused to load");
    m_loaded = true;
}

void PlugInModule::RunUnloadHook()
{
    if (std::exchange(m_loaded, false))
        m_plugIn->OnUnload();
}
