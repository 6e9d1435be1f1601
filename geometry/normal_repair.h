#pragma once

#include "host/geokit/mesh.h"

/// Makes the normals of a mesh unit vectors. A zero normal becomes the sum of the normals of all
/// mesh vertices at the same place, made unit, or (0, 0, 1) where that is zero too; normals are
/// taken in their order, so that the sum sees those before it repaired and those after it as they
/// were.
void RepairNormals(GK_Mesh& mesh);
