#include "host/geokit/xform.h"

GK_3dPoint GK_Xform::operator*(const GK_3dPoint& point) const
{
    const auto row = [&](int i) {
        return m[i][0] * point.x + m[i][1] * point.y + m[i][2] * point.z + m[i][3];
    };
    const double w = row(3);
    if (w == 1.0 || w == 0.0)
        return {row(0), row(1), row(2)};
    return {row(0) / w, row(1) / w, row(2) / w};
}

GK_3dVector GK_Xform::operator*(const GK_3dVector& vector) const
{
    const auto row = [&](int i) {
        return m[i][0] * vector.x + m[i][1] * vector.y + m[i][2] * vector.z;
    };
    return {row(0), row(1), row(2)};
}
