// Uses the installed host library by the headers of the boundary, and the installed module by its
// exports. Prints what the module says of itself; status 1 when anything is missing.
#include "host/app/app.h"
#include "host/geokit/mesh.h"

#include <cstdio>
#include <dlfcn.h>

namespace {

using TextFunction = const wchar_t* (*)();
using NumberFunction = int (*)();

constexpr const char* TextExports[] = {
    "KelvoPlugInDeveloperOrganization", "KelvoPlugInDeveloperAddress",
    "KelvoPlugInDeveloperCountry",      "KelvoPlugInDeveloperPhone",
    "KelvoPlugInDeveloperFax",          "KelvoPlugInDeveloperEmail",
    "KelvoPlugInDeveloperWebsite",      "KelvoPlugInUpdateURL"};

constexpr const char* NumberExports[] = {"KelvoPlugInSdkVersion", "KelvoPlugInSdkServiceRelease"};

bool ModuleSpeaks(void* module)
{
    for (const char* name : TextExports) {
        const auto text = reinterpret_cast<TextFunction>(dlsym(module, name));
        if (text == nullptr || *text() == L'\0')
            return false;
        KelvoApp().Print(L"%S: %s\n", name, text());
    }
    for (const char* name : NumberExports) {
        const auto number = reinterpret_cast<NumberFunction>(dlsym(module, name));
        if (number == nullptr || number() <= 0)
            return false;
        KelvoApp().Print(L"%S: %d\n", name, number());
    }
    return true;
}

bool KernelWorks()
{
    GK_Mesh tetrahedron;
    tetrahedron.vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    tetrahedron.faces = {{{0, 2, 1, 1}}, {{0, 1, 3, 3}}, {{1, 2, 3, 3}}, {{0, 3, 2, 2}}};
    return tetrahedron.IsClosed();
}

} // namespace

int main()
{
    void* module = dlopen(MODULE, RTLD_NOW);
    if (module == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    const bool works = ModuleSpeaks(module) && KernelWorks();
    dlclose(module);
    return works ? 0 : 1;
}
