#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <string>

/// What an import of a file loses, as the import itself shows.
struct ImportLosses
{
    std::size_t badIndices = 0;
    std::size_t refusedFaces = 0;
    bool endsEarly = false;
    std::size_t unreadLines = 0; ///< of a file without joined lines
    std::set<std::string> changedNames;
    std::map<std::string, std::size_t> refused; ///< objects by type
    std::size_t missingLibraries = 0;           ///< by statements

    bool operator==(const ImportLosses&) const = default;
};

/// Imports a file; returns what is lost.
ImportLosses LossesOfImport(const std::filesystem::path& path);

/// Returns what --check says of the same.
ImportLosses LossesToldByCheck(const std::filesystem::path& path);

std::ostream& operator<<(std::ostream& stream, const ImportLosses& losses);
