#pragma once

#include "geometry/distinct_corners.h"

#include "host/geokit/mesh.h"

#include <span>
#include <vector>

/// Makes the mesh faces of a record's faces, in the order of the file: triangles and quads as they
/// are, polygons of five or more corners as n-gons over the triangles that cover them. Corners
/// without a position are left out; what has fewer than three corners then is no face.
class MeshFaces
{
public:
    /// The corners must have been found and numbered for these faces, as the vertices of the mesh.
    /// `team` may be null. All must outlive the object.
    MeshFaces(const DistinctCorners& corners, std::span<const FaceRun> runs, KelvoWorkSharing* team,
              GK_Mesh& mesh);

    /// Makes room for all faces and n-gons. False when the mesh takes no n-gons.
    bool Place();

    /// Makes the faces. Each run of faces in the file's data is released as soon as it is done.
    void Fill() const;

private:
    /// Where the faces of a run begin in the mesh.
    struct RunPlace
    {
        int meshFace = 0;
        int ngon = 0;
    };

    class Filler;

    bool PlaceRun(const FaceRun& run, RunPlace& next);
    [[nodiscard]] int CornerCount(const FaceRun& run, std::span<const int> values) const;

    const DistinctCorners& m_corners;
    std::span<const FaceRun> m_runs;
    KelvoWorkSharing* m_team;
    GK_Mesh& m_mesh;
    GK_MeshNgonList* m_ngons = nullptr;
    std::vector<RunPlace> m_places; ///< of each run
};
