#pragma once

#include "console_host/geokit/face_bounds.h"

#include <map>

/// Replaces the faces of a brep and all that bounds them; the surfaces stay.
class BrepAssembly
{
public:
    /// Takes out all faces, loops, trims, edges, vertices and curves.
    explicit BrepAssembly(GK_Brep& brep);

    /// Adds faces on a surface of the brep, whose parameter plane is `plane`. Along seams the faces
    /// share edges. Trims do not share vertices yet, but with their edge.
    void Add(int surfaceIndex, const ParameterPlane& plane, const BoundedFaces& bounded);

private:
    GK_Brep& m_brep;
    std::map<int, int> m_edges; ///< old index to new index
};

/// Joins trim ends at one place in one vertex: the end of each trim and the start of the next in
/// its loop, which must meet; and ends anywhere else that are within `near` of each other, as long
/// as every edge is much longer than that. Vertices move to the middle of what they join. Edges
/// that collapse to a point are removed, and their trims stay without an edge. Work grows as n log
/// n at most.
void JoinTrimEnds(GK_Brep& brep, double near);
