#pragma once

#include "objimport/check/file_finder.h"

#include <filesystem>

/// Finds libraries and textures beside an OBJ file, by the rules of its import.
class FilesBeside : public FileFinder
{
public:
    /// Takes the OBJ file's path.
    explicit FilesBeside(const std::filesystem::path& objFile);

    std::optional<FoundFile> FindLibrary(const std::string& name) override;
    std::optional<FoundFile> FindTexture(const std::string& name) override;

private:
    [[nodiscard]] std::optional<FoundFile> FindBeside(const std::string& name) const;

    std::filesystem::path m_folder;
};
