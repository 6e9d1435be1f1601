#pragma once

#include "host/geokit/brep.h"

#include <string>
#include <vector>

/// What a repair has to say.
struct BrepRepairReport
{
    std::string reason; ///< why the brep is refused, as a clause; empty when it is not
    std::vector<std::string> dropped; ///< why each loop that was dropped went
};

/// Makes a brep usable, in this order: drops loops without trims and faces without loops (when no
/// face has a loop left, the first gets its natural outer loop); joins trim ends that meet within
/// the tolerance into one vertex; makes the vertices, edge and direction of each trim agree; turns
/// outer loops counter-clockwise and inner ones clockwise; gives a face with only inner loops its
/// natural outer loop.
///
/// False, with the reason, for a brep without a face, a surface that is not valid, and a loop that
/// does not close within the tolerance. Work grows as n log n in the number of trims.
bool RepairBrep(GK_Brep& brep, double tolerance, BrepRepairReport& report);
