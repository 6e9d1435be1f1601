#include "materials/mtl_reader.h"
#include "objreader/read_obj.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/runtime/file.h"

#include <filesystem>

namespace {

/// Opens a file by its name alone, as seen from the process's current folder. Folders and devices
/// are no libraries.
std::FILE* OpenUnchanged(const std::string& name)
{
    std::error_code error;
    return std::filesystem::is_regular_file(name, error) ? std::fopen(name.c_str(), "rb") : nullptr;
}

void PrintNotFound(const GK_wString& path, int id)
{
    const wchar_t* const text =
        KvLocalizeString(L"Unable to find or open %s.  Materials will be ignored.\n", id);
    KelvoApp().Print(text, path.Array());
}

} // namespace

bool CReadOBJ::ReadMaterialLibrary()
{
    if (tokenizer.TokenCount() < 2)
        return false;
    std::string name = tokenizer.Token(1);
    for (int i = 2; i < tokenizer.TokenCount(); ++i)
        (name += ' ') += tokenizer.Token(i);

    std::FILE* stream = OpenUnchanged(name);
    if (stream == nullptr) {
        GK_wString path{std::string_view(name)};
        if (!CompletePath(path)) {
            PrintNotFound(path, 24489);
            return false;
        }
        stream = _wfopen(path.Array(), L"rb");
        if (stream == nullptr) {
            PrintNotFound(path, 24490);
            return false;
        }
    }
    KelvoNoteFileRead(stream);
    CMtlReader reader(*this, stream);
    reader.Read();
    if (reader.ReadFailed())
        KelvoApp().Print(L"Errors occurred reading the library %s, may be incomplete.\n",
                         GK_wString(std::string_view(name)).Array());
    return true;
}
