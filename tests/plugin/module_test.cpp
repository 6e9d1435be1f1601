#include "console_host/app/console_app.h"

#include "host/app/plugin.h"
#include "host/geokit/string.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

#ifdef _WIN32
const char* const ModulePath = BUILD_FOLDER "/bin/ImportOBJ.dll";

void* LoadModule()
{
    return LoadLibraryW(std::wstring(GK_wString(std::string_view(ModulePath)).View()).c_str());
}

void UnloadModule(void* module)
{
    FreeLibrary(static_cast<HMODULE>(module));
}

void* FindExport(void* module, const char* name)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), name));
}

/// The names in the export table of a loaded module.
std::vector<std::string> ExportedNames(void* module)
{
    const auto* const start = static_cast<const unsigned char*>(module);
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
const char* const ModulePath = BUILD_FOLDER "/bin/ImportOBJ.so";

void* LoadModule()
{
    return dlopen(ModulePath, RTLD_NOW | RTLD_LOCAL);
}

void UnloadModule(void* module)
{
    dlclose(module);
}

void* FindExport(void* module, const char* name)
{
    return dlsym(module, name);
}

/// The names that the file shows; the loader does not tell them.
std::vector<std::string> ExportedNames(void*)
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

/// What an export without arguments returns.
template <class T>
T Call(void* module, const std::string& name)
{
    void* const address = FindExport(module, name.c_str());
    EXPECT_NE(address, nullptr) << name;
    return address != nullptr ? reinterpret_cast<T (*)()>(address)() : T{};
}

std::string CallForText(void* module, const std::string& name)
{
    return GK_wString(Call<const wchar_t*>(module, name)).Utf8();
}

class Module : public testing::Test
{
protected:
    void SetUp() override
    {
        m_module = LoadModule();
        ASSERT_NE(m_module, nullptr) << ModulePath;
    }

    void TearDown() override
    {
        if (m_module != nullptr)
            UnloadModule(m_module);
    }

    void* m_module = nullptr;
};

TEST_F(Module, ExportsWhatTheShipperSet)
{
    const std::pair<const char*, const char*> texts[] = {
        {"DeveloperOrganization", IMPORTOBJ_ORGANIZATION},
        {"DeveloperAddress", IMPORTOBJ_ADDRESS_LINE_1 "\r\n" IMPORTOBJ_ADDRESS_LINE_2},
        {"DeveloperCountry", IMPORTOBJ_COUNTRY},
        {"DeveloperPhone", IMPORTOBJ_PHONE},
        {"DeveloperFax", IMPORTOBJ_FAX},
        {"DeveloperEmail", IMPORTOBJ_SUPPORT_EMAIL},
        {"DeveloperWebsite", IMPORTOBJ_WEBSITE},
        {"UpdateURL",
         IMPORTOBJ_UPDATE_HOST "/sr/plugin.asp?id=9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413"},
    };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(CallForText(m_module, std::string("KelvoPlugIn") + name), text) << name;
    EXPECT_EQ(Call<int>(m_module, "KelvoPlugInSdkVersion"), IMPORTOBJ_SDK_VERSION);
    EXPECT_EQ(Call<int>(m_module, "KelvoPlugInSdkServiceRelease"), IMPORTOBJ_SDK_SERVICE_RELEASE);
}

TEST_F(Module, HoldsOnePlugInWhileItIsLoaded)
{
    const auto& plugIns = ConsoleApp::Instance().PlugIns();
    ASSERT_EQ(plugIns.size(), 1U);
    EXPECT_STREQ(plugIns.front()->PlugInName(), L"WaveFront OBJ Import");
    UnloadModule(std::exchange(m_module, nullptr));
    EXPECT_TRUE(plugIns.empty());
}

TEST_F(Module, ShowsItsExportsAlone)
{
    EXPECT_THAT(ExportedNames(m_module),
                testing::UnorderedElementsAre(
                    "KelvoPlugInDeveloperOrganization", "KelvoPlugInDeveloperAddress",
                    "KelvoPlugInDeveloperCountry", "KelvoPlugInDeveloperPhone",
                    "KelvoPlugInDeveloperFax", "KelvoPlugInDeveloperEmail",
                    "KelvoPlugInDeveloperWebsite", "KelvoPlugInSdkVersion",
                    "KelvoPlugInSdkServiceRelease", "KelvoPlugInUpdateURL"));
}

} // namespace
