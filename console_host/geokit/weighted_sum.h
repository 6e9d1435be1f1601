#pragma once

#include "host/geokit/point.h"

/// A sum of control points, each times its weight and a factor, and the sum of the factors'
/// weights: one point in homogeneous coordinates.
struct WeightedSum
{
    GK_3dVector sum;
    double weight = 0.0;

    /// Adds the control point at `values` (coordinates, then the weight when rational).
    void Add(double factor, const double* values, int dimension, bool rational)
    {
        const double w = rational ? factor * values[dimension] : factor;
        sum.x += w * values[0];
        sum.y += w * values[1];
        if (dimension > 2)
            sum.z += w * values[2];
        weight += w;
    }

    void Add(double factor, const WeightedSum& other)
    {
        sum = sum + factor * other.sum;
        weight += factor * other.weight;
    }

    [[nodiscard]] GK_3dPoint Point() const
    {
        return {sum.x / weight, sum.y / weight, sum.z / weight};
    }

    /// The derivative of `Point`, which is `point`, when this is the derivative of the homogeneous
    /// point and `pointWeight` that one's weight. The NURBS Book, equation 4.8.
    [[nodiscard]] GK_3dVector Derivative(const GK_3dPoint& point, double pointWeight) const
    {
        return {(sum.x - weight * point.x) / pointWeight, (sum.y - weight * point.y) / pointWeight,
                (sum.z - weight * point.z) / pointWeight};
    }
};
