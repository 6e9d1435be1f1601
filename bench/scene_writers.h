#pragma once

#include <cstddef>
#include <string>

// Each writes a file of about `bytes` bytes, always the same for the same size, and throws
// std::runtime_error when it cannot be written.

// A wavy sheet of grid points, row by row.

/// Quads with v, vt and vn.
void WriteQuads(const std::string& path, std::size_t bytes);
/// Triangles with v only.
void WriteTriangles(const std::string& path, std::size_t bytes);
/// Quads with v only, whose coordinates have seventeen digits.
void WriteLongNumbers(const std::string& path, std::size_t bytes);
/// Triangles; every third vertex has a colour.
void WriteSomeColors(const std::string& path, std::size_t bytes);
/// Quads with v and vt; one of a few materials is chosen after every few faces.
void WriteMaterialSwitches(const std::string& path, std::size_t bytes);
/// Polygons of five to eight corners that share their vertices.
void WriteSharedPolygons(const std::string& path, std::size_t bytes);

// Many small parts.

/// 20,000 groups, each under a name of its own, the size made up of quads.
void WriteGroups(const std::string& path, std::size_t bytes);
/// Objects of 200 quads with v and vn, each a closed surface; the size decides how many.
void WriteObjects(const std::string& path, std::size_t bytes);
/// Quads that share nothing, named by indices relative to the end of the lists.
void WriteNegative(const std::string& path, std::size_t bytes);

// Polygons that are not convex.

/// Polygons of 5 to 16 corners that share nothing.
void WritePolygons(const std::string& path, std::size_t bytes);
/// One polygon; its corners fill the size.
void WriteOnePolygon(const std::string& path, std::size_t bytes);
/// Polygons of 100,000 corners each.
void WriteLargePolygons(const std::string& path, std::size_t bytes);

/// How the numbers of vertices differ from the order in which faces visit them.
enum class Scatter
{
    InBlocks, ///< shuffled among each thousand neighbours
    Wholly
};

/// A closed surface of triangles, visited in scan order.
void WriteScattered(const std::string& path, std::size_t bytes, Scatter scatter);
/// The same with vt and vn. Vertices along seams have several texture coordinates.
void WriteScatteredWithSeams(const std::string& path, std::size_t bytes, Scatter scatter);

/// The OBJ files of a folder and its subfolders, one after the other and again from the first until
/// the size is reached, their indices adjusted. Statements other than v, vt, vn, f, g, o, usemtl
/// and s, and those that are faulty, are left out. Throws also when the folder has none.
void WriteModelMix(const std::string& folder, const std::string& path, std::size_t bytes);
