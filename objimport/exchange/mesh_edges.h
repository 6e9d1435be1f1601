#pragma once

#include "host/geokit/mesh.h"

#include <array>
#include <vector>

/// Returns the sides of the mesh's faces and polygons, each once, as pairs of mesh vertices in
/// ascending order. Sides between faces of one polygon are left out. Throws std::bad_alloc when out
/// of memory.
std::vector<std::array<int, 2>> EdgesOfMesh(const GK_Mesh& mesh);
