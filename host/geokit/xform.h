#pragma once

#include "host/geokit/point.h"

/// A transform of points as a 4 x 4 matrix that is multiplied from the left: row by column. A
/// default-made one is the identity. A plain value; nothing here fails.
struct GK_Xform
{
    double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    [[nodiscard]] GK_3dPoint operator*(const GK_3dPoint& point) const;

    /// Turns a vector: the upper left 3 x 3 part only.
    [[nodiscard]] GK_3dVector operator*(const GK_3dVector& vector) const;
};
