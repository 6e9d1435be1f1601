#pragma once

#include "console_host/geokit/boundary_walk.h"
#include "console_host/geokit/brep_repair.h"

/// A face as it is to be: counter-clockwise outer loop first, then clockwise inner ones.
struct FaceBounds
{
    struct Loop
    {
        GK_BrepLoop::TYPE type;
        std::vector<LoopStep> steps;
    };

    std::vector<Loop> loops;
};

/// What becomes of a face.
struct BoundedFaces
{
    std::vector<FaceBounds> faces;
    SeamPlaces seamBreaks; ///< where edges along seams end in any case: as they were given
};

/// Works out what the loops of a face bound: closes them, turns them, cuts them at seams, completes
/// them along seams and poles, drops inner loops that bound nothing, and makes a face of each outer
/// loop. A face without outer loops is bounded by the sides of its surface's domain.
///
/// Returns at least one face, or none when the face cannot be bounded; the report then has the
/// reason. Loops that were dropped stand in the report in any case.
BoundedFaces BoundFace(const GK_Brep& brep, const GK_BrepFace& face, const ParameterPlane& plane,
                       BrepRepairReport& report);
