#pragma once

#include "objreader/corner.h"
#include "objreader/freeform.h"

#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/string.h"

#include <memory>
#include <vector>

/// One face: a run of a record's corners.
struct Face
{
    int firstCorner = 0;
    int cornerCount = 0;
};

/// What a record has received.
struct Geometry
{
    GK_SimpleArray<V_TN_IDX> corners; ///< of every face, end to end in the order of the file
    GK_SimpleArray<Face> faces;
    GK_SimpleArray<GK_3dPoint> points;
    GK_SimpleArray<int> cloudVertices; ///< of all point clouds, end to end in the order of the file
    GK_SimpleArray<int> cloudEnds;     ///< one for each cloud: where its vertices end
    std::vector<CurveData> curves;
    std::vector<SurfaceData> surfaces;
};

/// The record of one combination of group, object and material name. Files may use very many, most
/// of them without geometry, so a record is small until it receives some.
struct Group_Object
{
    const GK_String* groupName;
    const GK_String* objectName;
    const GK_String* materialName;
    int groupNames = -1; ///< into the file's lists of group names: those current when it was
                         ///< first selected with any; -1: none
    std::unique_ptr<Geometry> geometry; ///< null until there is some

    /// The record's geometry, made when there is none yet.
    Geometry& GeometryToFill()
    {
        if (!geometry)
            geometry = std::make_unique<Geometry>();
        return *geometry;
    }
};
