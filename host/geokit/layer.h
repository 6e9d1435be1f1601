#pragma once

#include "host/geokit/string.h"
#include "host/geokit/uuid.h"

/// A layer record, a plain value. A new one holds the nil id; the layer table gives it an id of its
/// own.
struct GK_Layer
{
    GK_wString name;
    GK_UUID id;
    GK_UUID parentId; ///< nil: a top-level layer
};
