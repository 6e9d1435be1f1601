#pragma once

#include "host/geokit/string.h"

#include <string_view>

/// Where an OBJ file stands: its libraries and textures are looked for beside it.
class FileLocation
{
public:
    /// Takes the full path of the OBJ file.
    explicit FileLocation(std::wstring_view path);

    /// Puts the OBJ file's drive and folder before a file name and turns each '/' into '\'. False,
    /// with the name unchanged, for an empty name, for one that has drive, folder, name and
    /// extension, and for one with a part of more than 255 characters.
    bool CompletePath(GK_wString& path) const;

private:
    GK_wString m_folder; ///< with its drive and final slash
};

/// Whether a file name says where the file is: drive, folder, name and extension are all there.
bool IsFullFileName(std::wstring_view name);

/// Whether no part of the name is longer than the product's platform allows.
bool HasShortParts(std::wstring_view name);
