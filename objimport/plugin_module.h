#pragma once

#include "objimport/platform.h"

#include "host/app/plugin.h"

#include <array>
#include <utility>

/// An import plug-in's module, loaded into the program.
class PlugInModule
{
public:
    /// What the exported texts are, and the functions that return them.
    static constexpr std::pair<const char*, const char*> TextExports[] = {
        {"Organisation", "KelvoPlugInDeveloperOrganization"},
        {"Address", "KelvoPlugInDeveloperAddress"},
        {"Country", "KelvoPlugInDeveloperCountry"},
        {"Telephone", "KelvoPlugInDeveloperPhone"},
        {"Fax", "KelvoPlugInDeveloperFax"},
        {"E-mail", "KelvoPlugInDeveloperEmail"},
        {"Web site", "KelvoPlugInDeveloperWebsite"},
        {"Updates", "KelvoPlugInUpdateURL"}};

    /// Loads the module and finds its exports and its plug-in. Throws ProgramError, which names the
    /// file and the reason, when it is not a module, lacks an export or exports no import plug-in.
    explicit PlugInModule(const std::filesystem::path& path);
    PlugInModule(const PlugInModule&) = delete;
    PlugInModule& operator=(const PlugInModule&) = delete;

    /// Unloads the module, after the unload hook when the load hook was run.
    ~PlugInModule();

    /// Runs the load hook. Throws ProgramError when the plug-in refuses to load.
    void RunLoadHook();

    /// Runs the unload hook, once, when the load hook was run.
    void RunUnloadHook();

    [[nodiscard]] CKelvoFileImportPlugIn& PlugIn() const { return *m_plugIn; }

    /// Returns what the `i`th of the exported texts says.
    [[nodiscard]] const wchar_t* Text(std::size_t i) const { return m_texts[i](); }
    [[nodiscard]] int SdkVersion() const { return m_sdkVersion(); }
    [[nodiscard]] int SdkServiceRelease() const { return m_sdkServiceRelease(); }

private:
    using TextFunction = const wchar_t* (*)();
    using NumberFunction = int (*)();

    long m_failuresBefore; ///< allocations that failed before the module was loaded
    Library m_library;
    std::array<TextFunction, std::size(TextExports)> m_texts{};
    NumberFunction m_sdkVersion = nullptr;
    NumberFunction m_sdkServiceRelease = nullptr;
    CKelvoFileImportPlugIn* m_plugIn = nullptr;
    bool m_loaded = false;
};
