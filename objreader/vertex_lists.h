#pragma once

#include "host/geokit/color.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"

/// What was read of the vertex statements of a file, which all other statements refer to by
/// index. The lists only grow, in the order of the file.
struct VertexLists
{
    GK_SimpleArray<GK_3dPoint> vertices; ///< positions, each coordinate rounded to single precision
    GK_SimpleArray<double> vertexWeights; ///< one for each position
    bool hasVertexColors = false;
    GK_SimpleArray<GK_Color> vertexColors;  ///< of those positions that carry one
    GK_SimpleArray<GK_2dPoint> paramPoints; ///< points in the parameter space of surfaces
    GK_SimpleArray<double> paramWeights;    ///< one for each parameter point
    GK_SimpleArray<GK_2fPoint> texCoords;
    GK_SimpleArray<GK_3fVector> normals; ///< as in the file, of any length
};
