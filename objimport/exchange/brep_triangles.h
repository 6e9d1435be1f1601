#pragma once

#include "host/geokit/brep.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The faces of a brep as triangles. Faces that meet in an edge have its points in common, and so
/// have the two sides of a seam: the same coordinates, though each side has vertices of its own. So
/// have the parts of a face that meet in a crease. No triangle has two corners at one place.
struct BrepTriangles
{
    std::vector<GK_3dPoint> positions;
    std::vector<GK_3fVector> normals; ///< unit, of the surface, on the outer side of the face
    std::vector<std::array<std::uint32_t, 3>> triangles; ///< counter-clockwise, seen from outside
    std::vector<std::size_t> faceEnds; ///< for each face of the brep, where its triangles end
    std::size_t facesWithout = 0;      ///< faces that could not be made triangles
    std::string whyWithout;            ///< why the first of them could not; a clause

    /// Whether triangles lie farther off than was asked for, since there would be too many.
    bool isCoarse = false;
};

/// Returns whether this build can make triangles of breps. When it cannot, no brep has any.
bool HasBrepTriangles();

/// Returns the triangles of a brep that is valid in a document. They lie within the tolerance
/// (above 0, in the unit of the document), and within a thousandth of the brep's size, of its
/// surfaces, as far as bounded work allows it: not nearer than a fifty-thousandth of the size,
/// and less near where surfaces are folded very often. Equal breps have equal triangles. Throws
/// std::bad_alloc when out of memory.
BrepTriangles TrianglesOfBrep(const GK_Brep& brep, double tolerance);
