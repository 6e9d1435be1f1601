#pragma once

class CKelvoProfileContext;

/// The choices that shape an import. Each is kept in the host's settings under its own name.
struct ObjImportOptions
{
    int HowToAddGs = 1;               ///< 0 nothing, 1 groups, 2 layers, 3 object names
    bool UseONames = true;            ///< "o" names become object names (unless HowToAddGs is 3)
    bool IgnoreTextures = false;      ///< no object takes a material from the file
    bool ReverseGroupOrder = false;   ///< the last name of a "g" statement is the group's name
    bool ImportAsMorphTarget = false; ///< the whole file becomes one mesh
    bool DontShowDialog = false;      ///< an import uses these options without asking
    bool ZUp = false;                 ///< the file's Y axis becomes the document's Z axis
    bool Split32bitTextures = false;  ///< textures with alpha become a colour and an alpha file
};

/// The largest value of ObjImportOptions::HowToAddGs; the smallest is 0.
constexpr int HowToAddGsLimit = 3;

/// Reads the options from a section of the settings. An entry that is missing or cannot be used
/// leaves its option as it is.
void LoadImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       ObjImportOptions& options);

/// Writes every option to a section of the settings.
void SaveImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       const ObjImportOptions& options);

/// Copies the options that an import and the prompt work on: all but DontShowDialog. Either side
/// may be any type with members of these names.
template <class From, class To>
void CopyImportOptions(const From& from, To& to)
{
    to.HowToAddGs = from.HowToAddGs;
    to.UseONames = from.UseONames;
    to.IgnoreTextures = from.IgnoreTextures;
    to.ReverseGroupOrder = from.ReverseGroupOrder;
    to.ImportAsMorphTarget = from.ImportAsMorphTarget;
    to.ZUp = from.ZUp;
    to.Split32bitTextures = from.Split32bitTextures;
}
