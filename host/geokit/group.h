#pragma once

#include "host/geokit/string.h"

/// A group record, a plain value.
struct GK_Group
{
    GK_wString name;
};
