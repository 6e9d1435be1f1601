#pragma once

#include "host/geokit/mesh.h"

#include <cstddef>

/// How many faces of each kind a mesh has, as a person counts them: a polygon is one face, however
/// many triangles cover it.
struct FaceCounts
{
    std::size_t triangles = 0;
    std::size_t quads = 0;
    std::size_t ngons = 0;

    [[nodiscard]] std::size_t All() const { return triangles + quads + ngons; }
};

/// Returns how many faces of each kind a mesh has.
inline FaceCounts CountFaces(const GK_Mesh& mesh)
{
    FaceCounts counts;
    for (const GK_MeshFace& face : mesh.faces)
        ++(face.IsTriangle() ? counts.triangles : counts.quads);
    const GK_MeshNgonList* const ngons = mesh.NgonList();
    for (int i = 0; ngons != nullptr && i < ngons->Count(); ++i) {
        ++counts.ngons;
        for (const int face : ngons->Ngon(i).fi)
            if (face >= 0 && face < mesh.FaceCount())
                --(mesh.faces[face].IsTriangle() ? counts.triangles : counts.quads);
    }
    return counts;
}
