#pragma once

#include "host/geokit/brep.h"

#include <string>
#include <vector>

/// What a repair reports.
struct BrepRepairReport
{
    std::string reason; ///< why the brep is refused, as a clause; empty when it is not
    std::vector<std::string> dropped; ///< why each loop that was dropped went

    /// Notes a loop that is dropped by its number in the brep, from 1, and what is wrong with it.
    void Drop(GK_BrepLoop::TYPE type, int number, const std::string& why);
};

/// Makes a brep usable:
/// - Loops without trims are dropped, then faces without loops; when no face has a loop left, the
///   first is bounded by the sides of its surface's domain.
/// - The pieces of a loop are chained by the ends that lie nearest, in either direction of each.
///   Ends meet within the tolerance in space, or within the rounding of files in the parameter
///   plane, and share a vertex.
/// - On a surface that is closed, loops are shifted by whole periods or cut at the seam; what is
///   missing along a seam or a pole is added. The two trims of a seam share an edge, and a trim
///   along a pole has none.
/// - Outer loops run counter-clockwise and inner ones clockwise. Each outer loop makes a face, with
///   the inner loops that lie in it; without outer loops the sides of the domain are one. Loops
///   that run around a closed surface bound the face between them.
/// - Inner loops that do not close, cross another loop or lie in no outer one are dropped.
///
/// Returns false, with the reason, for a brep without a face, a surface or curve that is not valid,
/// an outer loop that does not close, and a loop that leaves the domain; the brep is then as it
/// was. Work grows as n log n in the number of trims, and with how many loops lie side by side.
bool RepairBrep(GK_Brep& brep, double tolerance, BrepRepairReport& report);
