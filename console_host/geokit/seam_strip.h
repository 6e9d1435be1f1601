#pragma once

#include "console_host/geokit/boundary_walk.h"

/// Takes out of the loops of a face what a walk along the sides of the domain makes again: what
/// runs along a pole, and along a seam what runs there in both directions. The pieces that follow
/// are marked.
void StripSeams(std::vector<DomainLoop>& loops, const ParameterPlane& plane);
