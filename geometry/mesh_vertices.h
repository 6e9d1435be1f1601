#pragma once

#include "geometry/distinct_corners.h"
#include "geometry/inconsistencies.h"
#include "objreader/vertex_lists.h"

#include "host/geokit/mesh.h"

/// Makes one mesh vertex of each distinct corner that has a position, in their order, with the
/// normal, texture coordinate and colour that the corner has. A list of these in which a vertex
/// would have none is left empty. `team` may be null.
void MakeMeshVertices(DistinctCorners& corners, const VertexLists& lists, KelvoWorkSharing* team,
                      GK_Mesh& mesh, Inconsistencies& inconsistencies);
