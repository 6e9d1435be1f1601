#include "materials/material_libraries.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/runtime/file.h"

#include <memory>

namespace {

/// Opens a file by its name alone, as seen from the process's current folder. Folders, pipes and
/// devices are no libraries, and opening one might wait for ever.
KelvoFile OpenUnchanged(const std::string& name)
{
    std::error_code error;
    const bool isFile = std::filesystem::is_regular_file(name, error);
    return KelvoFile(isFile ? std::fopen(name.c_str(), "rb") : nullptr);
}

/// Adds the materials of a library to a table; the last one only when the table has none of its
/// name.
void EnterMaterials(const MtlMaterials& materials, CKelvoMaterialTable& table)
{
    for (const GK_Material& material : materials) {
        const bool isLast = &material == materials.Last();
        if (!isLast || table.FindMaterial(material.Name(), true) == -1)
            table.AddMaterial(material, false);
    }
}

} // namespace

MaterialLibraries::MaterialLibraries(std::wstring_view objPath, const ImportChoices& choices,
                                     CKelvoMaterialTable& table)
    : m_location(objPath), m_choices(choices), m_table(table)
{
}

bool MaterialLibraries::ReadMaterialLibrary(const std::string& name)
{
    const MtlMaterials* const materials = Find(name);
    if (materials != nullptr) {
        EnterMaterials(*materials, m_table);
        return true;
    }
    GK_wString path{std::string_view(name)};
    const int id = m_location.CompletePath(path) ? 24490 : 24489;
    const wchar_t* const text =
        KvLocalizeString(L"Unable to find or open %s.  Materials will be ignored.\n", id);
    KelvoApp().Print(text, path.Array());
    return false;
}

const MtlMaterials* MaterialLibraries::Find(const std::string& name)
{
    const auto known = m_named.find(name);
    if (known != m_named.end())
        return known->second;
    return m_named[name] = Open(name);
}

const MtlMaterials* MaterialLibraries::Open(const std::string& name)
{
    std::filesystem::path key;
    KelvoFile stream = OpenUnchanged(name);
    if (stream != nullptr) {
        key = FileKey(name.c_str());
    } else {
        GK_wString path{std::string_view(name)};
        if (!m_location.CompletePath(path))
            return nullptr;
        stream.reset(_wfopen(path.Array(), L"rb"));
        key = FileKey(path.Array());
    }
    if (stream == nullptr || !IsPlainFile(stream.get()))
        return nullptr;
    auto place = m_read.find(key);
    if (place == m_read.end()) {
        KelvoNoteFileRead(stream.get());
        place = m_read.emplace(key, Read(stream.release(), name)).first;
    }
    return &place->second;
}

/// Reads a library from a stream, which is taken over.
MtlMaterials MaterialLibraries::Read(std::FILE* stream, const std::string& name)
{
    SplitOutcomes* const outcomes = m_choices.Split32bitTextures ? &m_splitOutcomes : nullptr;
    CMtlReader reader(stream, m_location, outcomes);
    MtlMaterials materials = reader.Read();
    if (reader.ReadFailed())
        KelvoApp().Print(
            KvLocalizeString(L"Errors occurred reading the library %s, may be incomplete.\n",
                             36004),
            GK_wString(std::string_view(name)).Array());
    return materials;
}
