#pragma once

#include <string>

/// What an import of a file is to add, as far as that can be counted.
struct Counts
{
    int meshes = 0;
    int vertices = 0; ///< of all meshes
    int faces = 0;    ///< of all meshes
    int ngons = 0;    ///< of all meshes
    int points = 0;
    int clouds = 0;
    int cloudPoints = 0;
    int groups = 0;
    int materials = 0;
};

/// Counts what is in a well-formed OBJ file of polygons and points, without any of the importer's
/// code: line by line and word by word, whatever that costs.
[[nodiscard]] Counts ReadPlainly(const std::string& path);
