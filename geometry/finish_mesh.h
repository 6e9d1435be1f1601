#pragma once

#include "objreader/stage_times.h"

#include "host/geokit/mesh.h"

/// Makes a mesh fit for a document: lists in step, no useless faces or vertices, unit normals
/// (those of a morph target computed from its faces), facing outward when closed. False when
/// nothing is left of it. `threads` may be null.
[[nodiscard]] bool FinishMesh(GK_Mesh* mesh, bool isMorphTarget, KelvoWorkSharing* threads,
                              StageLaps& laps);
