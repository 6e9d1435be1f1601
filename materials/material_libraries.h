#pragma once

#include "materials/file_location.h"
#include "materials/mtl_reader.h"
#include "materials/split_outcomes.h"
#include "objreader/import_choices.h"

#include "host/app/tables.h"

#include <filesystem>
#include <map>
#include <string>

/// The material libraries of one import. Each is read once, however often and under however many
/// names it is named, and its materials are added to the document's table each time.
class MaterialLibraries
{
public:
    /// Takes the full path of the OBJ file. The choices and the table must outlive the object.
    MaterialLibraries(std::wstring_view objPath, const ImportChoices& choices,
                      CKelvoMaterialTable& table);

    /// Adds the materials of the library that a "mtllib" statement names. False when it cannot be
    /// opened, which is then printed.
    bool ReadMaterialLibrary(const std::string& name);

    /// Brings the files of textures that were split to their final state; to be called when all
    /// libraries have been read.
    void FinishTextures() { m_splitOutcomes.Finish(); }

private:
    const MtlMaterials* Find(const std::string& name);
    const MtlMaterials* Open(const std::string& name);
    MtlMaterials Read(std::FILE* stream, const std::string& name);

    const FileLocation m_location;
    const ImportChoices& m_choices;
    CKelvoMaterialTable& m_table;
    SplitOutcomes m_splitOutcomes;
    std::map<std::string, const MtlMaterials*> m_named; ///< null: cannot be opened
    std::map<std::filesystem::path, MtlMaterials> m_read;
};
