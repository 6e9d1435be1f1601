#include "materials/material_libraries.h"
#include "objreader/read_obj.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/runtime/file.h"

#include <memory>

namespace {

struct CloseFile
{
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file by its name alone, as seen from the process's current folder. Folders, pipes and
/// devices are no libraries, and opening one might wait for ever.
File OpenUnchanged(const std::string& name)
{
    std::error_code error;
    const bool isFile = std::filesystem::is_regular_file(name, error);
    return File(isFile ? std::fopen(name.c_str(), "rb") : nullptr);
}

MtlMaterials ReadLibrary(CReadOBJ& objReader, File stream, const std::string& name)
{
    KelvoNoteFileRead(stream.get());
    CMtlReader reader(objReader, stream.release());
    MtlMaterials materials = reader.Read();
    if (reader.ReadFailed())
        KelvoApp().Print(L"Errors occurred reading the library %s, may be incomplete.\n",
                         GK_wString(std::string_view(name)).Array());
    return materials;
}

} // namespace

bool CReadOBJ::ReadMaterialLibrary()
{
    if (tokenizer.TokenCount() < 2)
        return false;
    std::string name = tokenizer.Token(1);
    for (int i = 2; i < tokenizer.TokenCount(); ++i)
        (name += ' ') += tokenizer.Token(i);

    if (materialLibraries == nullptr)
        materialLibraries = std::make_shared<MaterialLibraries>();
    const MtlMaterials* const materials = materialLibraries->Find(*this, name);
    if (materials != nullptr) {
        EnterMaterials(*materials, doc.MaterialTable());
        return true;
    }
    GK_wString path{std::string_view(name)};
    const int id = CompletePath(path) ? 24490 : 24489;
    const wchar_t* const text =
        KvLocalizeString(L"Unable to find or open %s.  Materials will be ignored.\n", id);
    KelvoApp().Print(text, path.Array());
    return false;
}

const MtlMaterials* MaterialLibraries::Find(CReadOBJ& reader, const std::string& name)
{
    const auto known = m_named.find(name);
    if (known != m_named.end())
        return known->second;
    return m_named[name] = Open(reader, name);
}

const MtlMaterials* MaterialLibraries::Open(CReadOBJ& reader, const std::string& name)
{
    std::filesystem::path key;
    File stream = OpenUnchanged(name);
    if (stream != nullptr) {
        key = FileKey(name.c_str());
    } else {
        GK_wString path{std::string_view(name)};
        if (!reader.CompletePath(path))
            return nullptr;
        stream.reset(_wfopen(path.Array(), L"rb"));
        key = FileKey(path.Array());
    }
    if (stream == nullptr || !IsPlainFile(stream.get()))
        return nullptr;
    auto place = m_read.find(key);
    if (place == m_read.end())
        place = m_read.emplace(key, ReadLibrary(reader, std::move(stream), name)).first;
    return &place->second;
}
