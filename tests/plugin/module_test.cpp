#include "console_host/app/console_app.h"
#include "console_host/app/registration.h"
#include "objimport/plugin_module.h"

#include "host/geokit/string.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

#ifdef _WIN32
constexpr const char* ModulePath = BUILD_FOLDER "/bin/ImportOBJ.dll";

/// Returns the names in the export table of the module, which is loaded.
std::vector<std::string> ExportedNames()
{
    const auto* const start =
        reinterpret_cast<const unsigned char*>(GetModuleHandleW(L"ImportOBJ.dll"));
    const auto at = [start](auto offset) { return static_cast<const void*>(start + offset); };
    const auto* const dosHeader = static_cast<const IMAGE_DOS_HEADER*>(at(0));
    const auto* const header = static_cast<const IMAGE_NT_HEADERS*>(at(dosHeader->e_lfanew));
    const IMAGE_DATA_DIRECTORY& place =
        header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* const table = static_cast<const IMAGE_EXPORT_DIRECTORY*>(at(place.VirtualAddress));
    const auto* const names = static_cast<const DWORD*>(at(table->AddressOfNames));
    std::vector<std::string> result;
    for (DWORD i = 0; i < table->NumberOfNames; ++i)
        result.emplace_back(static_cast<const char*>(at(names[i])));
    return result;
}
#else
constexpr const char* ModulePath = BUILD_FOLDER "/bin/ImportOBJ.so";

/// Returns the names that the file shows; the loader does not list them.
std::vector<std::string> ExportedNames()
{
    std::FILE* symbols = popen("nm -D --defined-only " BUILD_FOLDER "/bin/ImportOBJ.so", "r");
    std::vector<std::string> names;
    char address[64], kind[8], name[512];
    while (std::fscanf(symbols, "%63s %7s %511s", address, kind, name) == 3)
        names.emplace_back(name);
    EXPECT_EQ(pclose(symbols), 0);
    return names;
}
#endif

TEST(Module, ExportsWhatTheShipperSet)
{
    const PlugInModule module(ModulePath);
    const char* const texts[] = {
        IMPORTOBJ_ORGANIZATION,
        IMPORTOBJ_ADDRESS_LINE_1 "\r\n" IMPORTOBJ_ADDRESS_LINE_2,
        IMPORTOBJ_COUNTRY,
        IMPORTOBJ_PHONE,
        IMPORTOBJ_FAX,
        IMPORTOBJ_SUPPORT_EMAIL,
        IMPORTOBJ_WEBSITE,
        IMPORTOBJ_UPDATE_HOST "/sr/plugin.asp?id=9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413",
    };
    for (std::size_t i = 0; i < std::size(texts); ++i)
        EXPECT_EQ(GK_wString(module.Text(i)).Utf8(), texts[i]);
    EXPECT_EQ(module.SdkVersion(), IMPORTOBJ_SDK_VERSION);
    EXPECT_EQ(module.SdkServiceRelease(), IMPORTOBJ_SDK_SERVICE_RELEASE);
}

TEST(Module, HoldsOnePlugInAndShowsItsExportsAloneWhileItIsLoaded)
{
    const auto& plugIns = PlugIns();
    {
        const PlugInModule module(ModulePath);
        ASSERT_EQ(plugIns.size(), 1U);
        EXPECT_STREQ(plugIns.front()->PlugInName(), L"WaveFront OBJ Import");
        EXPECT_THAT(ExportedNames(),
                    testing::UnorderedElementsAre(
                        "KelvoPlugInDeveloperOrganization", "KelvoPlugInDeveloperAddress",
                        "KelvoPlugInDeveloperCountry", "KelvoPlugInDeveloperPhone",
                        "KelvoPlugInDeveloperFax", "KelvoPlugInDeveloperEmail",
                        "KelvoPlugInDeveloperWebsite", "KelvoPlugInSdkVersion",
                        "KelvoPlugInSdkServiceRelease", "KelvoPlugInUpdateURL"));
    }
    EXPECT_TRUE(plugIns.empty());
}

} // namespace
