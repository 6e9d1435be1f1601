#pragma once

#include "host/geokit/brep.h"

#include <string>
#include <vector>

/// Returns where the parts of a brep do not name each other both ways, a text for each fault.
std::vector<std::string> IndexFaultsOf(const GK_Brep& brep);
