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
    std::map<int, int> m_edges; ///< those of the brep before, and their new index
};
