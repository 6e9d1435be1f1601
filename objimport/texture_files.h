#pragma once

#include "host/geokit/texture.h"

#include <string>

/// The file that a texture names, as this machine knows it.
struct TextureFile
{
    std::string path; ///< as the machine's own programs write it
    bool exists = false;
};

/// Returns the file that the host reads for a texture.
TextureFile FindTextureFile(const GK_Texture& texture);

/// Returns a path as it can be pasted into the platform's shell: from the current folder when it
/// lies in there, quoted where it has to be. A byte that would steer a terminal stands as an
/// escape.
std::string ShellPath(const std::string& path);
