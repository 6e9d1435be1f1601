#pragma once

#include "objreader/face_run.h"
#include "objreader/freeform.h"

#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/string.h"

#include <algorithm>
#include <memory>
#include <vector>

/// What a record has received.
struct Geometry
{
    std::vector<FaceRun> faces;  ///< in the order of the file
    bool hasEmptyCorner = false; ///< a rejected face left a corner without any index
    GK_SimpleArray<GK_3dPoint> points;
    GK_SimpleArray<int> cloudVertices; ///< of all point clouds, end to end in the order of the file
    GK_SimpleArray<int> cloudEnds;     ///< one for each cloud: where its vertices end
    std::vector<CurveData> curves;
    std::vector<SurfaceData> surfaces;

    /// There is something to make a mesh of, if only in vain.
    [[nodiscard]] bool HasCorners() const
    {
        const auto hasCorners = [](const FaceRun& run) { return run.EndValue() > run.firstValue; };
        return hasEmptyCorner || std::any_of(faces.begin(), faces.end(), hasCorners);
    }

    /// Appends faces, whose run may go on with the last one.
    void AddFaces(const FaceRun& run)
    {
        if (!faces.empty()) {
            FaceRun& last = faces.back();
            if (last.block == run.block && last.form == run.form &&
                last.EndValue() == run.firstValue &&
                last.firstFace + last.faceCount == run.firstFace) {
                last.faceCount += run.faceCount;
                return;
            }
        }
        faces.push_back(run);
        ++run.block->runs;
    }
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
