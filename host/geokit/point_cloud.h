#pragma once

#include "host/geokit/object.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"

/// Points without order or connection. Any thread may use a cloud, one thread at a time while it
/// changes. Appending throws std::bad_alloc when out of memory.
class GK_PointCloud : public GK_Geometry
{
public:
    GK_SimpleArray<GK_3dPoint> points;

    void AppendPoint(const GK_3dPoint& point) { points.Append(point); }
};
