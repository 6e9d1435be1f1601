#pragma once

/// What group names become in the document.
enum GroupChoice : int
{
    DoNotImportOBJGroups = 0,
    AsGroups = 1,
    AsLayers = 2,
    AsObjectNames = 3
};

/// The choices that shape an import.
struct ImportChoices
{
    int HowToAddGs = AsGroups;        ///< a GroupChoice
    bool UseONames = true;            ///< "o" names become object names (unless AsObjectNames)
    bool IgnoreTextures = false;      ///< "usemtl" statements are ignored
    bool ImportAsMorphTarget = false; ///< all faces become one mesh, without the file's normals and
                                      ///< texture coordinates
    bool ReverseGroupOrder = false;   ///< the last name of a "g" statement is the group's name
    bool ZUp = false;                 ///< meshes are turned from Y up to Z up
    bool Split32bitTextures = false;  ///< textures with an alpha channel become two files
};
