#pragma once

#include "objreader/read_obj.h"

#include "host/geokit/mesh.h"
#include "host/geokit/object_attributes.h"

#include <vector>

/// The names of one "g" statement, in the order of the line. Records made under the same statement
/// share them, and what has become of them in the document.
struct CReadOBJ::GroupNames
{
    GK_SimpleArray<const GK_String*> names;

    bool entered = false;              ///< into the document, which sets the following
    GK_MdxObjectAttributes attributes; ///< layer and groups of the objects under these names
};

/// One face: a run of a record's corners.
struct CReadOBJ::Face
{
    int firstCorner = 0;
    int cornerCount = 0;
};

/// What a record has received.
struct CReadOBJ::Geometry
{
    std::unique_ptr<GK_Mesh> mesh;    ///< made by the first "f" statement
    GK_SimpleArray<V_TN_IDX> corners; ///< of every face, end to end in the order of the file
    GK_SimpleArray<Face> faces;
    GK_SimpleArray<GK_3dPoint> points;
    GK_SimpleArray<int> cloudVertices; ///< of all point clouds, end to end in the order of the file
    GK_SimpleArray<int> cloudEnds;     ///< one for each cloud: where its vertices end
    std::vector<std::unique_ptr<VX_NurbsCurve>> curves;
    std::vector<std::unique_ptr<VX_Brep>> breps; ///< one for each surface
    GK_SimpleArray<int> surfaceCVs; ///< positions that the latest surface names, in its order
};

/// The record of one combination of group, object and material name. Files may use very many, most
/// of them without geometry, so a record is small until it receives some.
struct CReadOBJ::Group_Object
{
    const GK_String* groupName;
    const GK_String* objectName;
    const GK_String* materialName;
    std::shared_ptr<GroupNames> groupNames; ///< of the "g" in force at first; null: none
    std::unique_ptr<Geometry> geometry;     ///< null until there is some

    /// The record's geometry, made when there is none yet.
    Geometry& GeometryToFill()
    {
        if (!geometry)
            geometry = std::make_unique<Geometry>();
        return *geometry;
    }
};
