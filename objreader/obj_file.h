#pragma once

#include "objreader/face_blocks.h"
#include "objreader/group_objects.h"
#include "objreader/name_table.h"
#include "objreader/vertex_lists.h"

#include <vector>

/// What was read of a file: plain data, of which everything else is made.
struct ObjFile
{
    NameTable names;
    VertexLists lists;
    FaceBlocks faceBlocks;
    GroupObjects groupObjects;

    /// The names of "g" statements, each in the order of its line. Records made under the same
    /// statement share them.
    std::vector<GK_SimpleArray<const GK_String*>> groupNames;

    std::vector<CurveData> trimCurves; ///< of all "curv2" statements, in their order

    int BogusIndexCount = 0; ///< how many indices named nothing that was read before them
};
