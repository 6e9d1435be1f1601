#pragma once

#include "materials/mtl_reader.h"

#include <filesystem>
#include <map>
#include <string>

/// The libraries of one import, each of which is read once, however often and under however many
/// names it is named.
class MaterialLibraries
{
public:
    /// The materials of the library that a "mtllib" statement of `reader` names, or null when it
    /// cannot be opened. They live as long as this object.
    const MtlMaterials* Find(CReadOBJ& reader, const std::string& name);

private:
    const MtlMaterials* Open(CReadOBJ& reader, const std::string& name);

    std::map<std::string, const MtlMaterials*> m_named; ///< null: cannot be opened
    std::map<std::filesystem::path, MtlMaterials> m_read;
};
