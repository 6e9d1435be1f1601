#pragma once

#include "host/geokit/string.h"

/// A group record.
struct GK_Group
{
    GK_wString name;
};
