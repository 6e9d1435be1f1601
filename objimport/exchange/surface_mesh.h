#pragma once

#include "objimport/exchange/brep_triangles.h"

#include "host/geokit/nurbs_surface.h"

/// The part of a surface that a face bounds, divided into triangles.
struct SurfaceMesh
{
    std::vector<GK_2dPoint> parameters;
    std::vector<GK_3dPoint> positions; ///< of the same nodes
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

/// Divides triangles until they lie within the tolerance of the surface, and returns true. Returns
/// false when there would be more than so many; then they are as near as they came. The edges at
/// the border of the mesh stay as they are.
bool RefineToTolerance(SurfaceMesh& mesh, const GK_NurbsSurface& surface, double tolerance,
                       std::size_t mostTriangles);

/// Removes triangles two of whose corners are at the same position, as there are at poles.
void RemoveCollapsed(SurfaceMesh& mesh);

/// Appends the triangles of a face to those of its brep, with the surface's normals. Nodes where
/// the normal leaps, or where there is none, become a vertex for each direction from which
/// triangles meet there.
void AppendWithNormals(const SurfaceMesh& mesh, const GK_NurbsSurface& surface,
                       BrepTriangles& result);
