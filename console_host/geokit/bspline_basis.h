#pragma once

#include "host/geokit/curve.h"

#include <algorithm>
#include <array>
#include <span>

/// Returns the span of a B-spline that holds a parameter: its first control point, 0 to `count`
/// - `order`. The span found is never empty; a parameter at a knot belongs to the span above it,
/// one outside the domain to the first or last span. The NURBS Book, A2.1, by bisection, for knots
/// without superfluous ends. The knots must be valid.
int FindSpan(std::span<const double> knots, int order, int count, double t);

/// The basis functions that are not zero on one span, at a parameter, which may lie outside the
/// span. The NURBS Book, A2.2.
class BasisValues
{
public:
    /// `spanKnots` points to the 2 * `degree` knots that the span's functions depend on: those from
    /// the span's number on. The degree is 1 to GK_MOST_ORDER - 1.
    BasisValues(const double* spanKnots, int degree, double t)
    {
        if (SetAtFullKnot(spanKnots, degree, t))
            return;
        m_values[0] = 1.0;
        for (int j = 1; j <= degree; ++j)
            Raise(spanKnots, degree, j, t);
    }

    /// For the control points from the span's number on, 0 to `degree`.
    [[nodiscard]] double operator[](int i) const { return m_values[At(i)]; }

private:
    friend class BasisFunctions;
    static std::size_t At(int i) { return static_cast<std::size_t>(i); }
    BasisValues() = default;

    // Sets the values at a knot of full multiplicity, where the curve meets a control point,
    // without rounding. Returns false at another parameter.
    bool SetAtFullKnot(const double* spanKnots, int degree, double t)
    {
        const bool atStart = t == spanKnots[0] && t == spanKnots[degree - 1];
        const bool atEnd = t == spanKnots[degree] && t == spanKnots[2 * degree - 1];
        if (!atStart && !atEnd)
            return false;
        std::fill_n(m_values.begin(), degree + 1, 0.0);
        m_values[At(atStart ? 0 : degree)] = 1.0;
        return true;
    }

    // Goes from the functions of degree `to` - 1 to those of degree `to`.
    void Raise(const double* spanKnots, int degree, int to, double t)
    {
        double saved = 0.0;
        for (int r = 0; r < to; ++r) {
            const double left = spanKnots[degree - to + r];
            const double right = spanKnots[degree + r];
            const double part = m_values[At(r)] / (right - left);
            m_values[At(r)] = saved + (right - t) * part;
            saved = (t - left) * part;
        }
        m_values[At(to)] = saved;
    }

    std::array<double, GK_MOST_ORDER> m_values; // NOLINT(*-member-init): only the used are set
};

/// The same functions and their first derivatives. The NURBS Book, A2.2 and equation 2.7.
class BasisFunctions
{
public:
    BasisFunctions(const double* spanKnots, int degree, double t);

    [[nodiscard]] double Value(int i) const { return m_values[i]; }
    [[nodiscard]] double Derivative(int i) const { return m_derivatives[BasisValues::At(i)]; }

private:
    void Derive(const double* spanKnots, int degree);

    BasisValues m_values;
    std::array<double, GK_MOST_ORDER> m_derivatives; // NOLINT(*-member-init)
};

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

    /// Returns the derivative of `Point`, which is `point`, when this is the derivative of the
    /// homogeneous point and `pointWeight` that one's weight. The NURBS Book, equation 4.8.
    [[nodiscard]] GK_3dVector Derivative(const GK_3dPoint& point, double pointWeight) const
    {
        return {(sum.x - weight * point.x) / pointWeight, (sum.y - weight * point.y) / pointWeight,
                (sum.z - weight * point.z) / pointWeight};
    }
};
