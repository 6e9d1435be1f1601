#pragma once

#include "host/geokit/object.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"

/// Points without order or connection.
class GK_PointCloud : public GK_Geometry
{
public:
    GK_SimpleArray<GK_3dPoint> points;

    void AppendPoint(const GK_3dPoint& point) { points.Append(point); }
};
