// A settings file: what it holds is in range, and what is saved reads back.

#include "console_host/app/profile_store.h"
#include "fuzz/own_folder.h"
#include "plugin/import_options.h"

namespace {

constexpr const wchar_t* Section = L"Plug-Ins\\[=;#%\\Settings";

bool AreEqual(const ObjImportOptions& a, const ObjImportOptions& b)
{
    return a.HowToAddGs == b.HowToAddGs && a.UseONames == b.UseONames && a.ZUp == b.ZUp &&
           a.DontShowDialog == b.DontShowDialog;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const OwnFolder& folder = OwnFolder::OfTheRun();
    const std::filesystem::path path = folder.Write("settings.ini", Text(data, size));
    ObjImportOptions options;
    {
        ProfileStore store(path);
        LoadImportOptions(store, Section, options);
        Expect(options.HowToAddGs >= 0 && options.HowToAddGs <= HowToAddGsLimit);
        options.ZUp = !options.ZUp;
        SaveImportOptions(store, Section, options);
        if (!store.Save())
            return 0;
    }
    ProfileStore store(path);
    ObjImportOptions loaded;
    LoadImportOptions(store, Section, loaded);
    Expect(AreEqual(loaded, options));
    return 0;
}
