#pragma once

#include "geometry/distinct_corners.h"
#include "geometry/inconsistencies.h"
#include "objreader/group_object.h"
#include "objreader/stage_times.h"
#include "objreader/vertex_lists.h"

#include "host/geokit/mesh.h"

#include <memory>

/// Makes meshes of the faces of records. One thread at a time uses a builder.
class MeshBuilder
{
public:
    /// The lists must outlive the builder.
    explicit MeshBuilder(const VertexLists& lists) : m_lists(lists) {}

    /// Returns the mesh of a record's faces, or null when there is nothing to make one of. Takes
    /// the faces out of the record. What does not fit together is added to `inconsistencies`.
    /// `threads` may be null.
    std::unique_ptr<GK_Mesh> BuildMesh(Geometry& geometry, KelvoWorkSharing* threads,
                                       Inconsistencies& inconsistencies, StageLaps& laps);

private:
    const VertexLists& m_lists;
    DistinctCorners m_corners;
};

/// Returns an empty mesh with the parameter domains of an imported one.
std::unique_ptr<GK_Mesh> NewGroupMesh();
