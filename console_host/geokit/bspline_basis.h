#pragma once

#include <array>
#include <span>
#include <vector>

/// Which span of a B-spline holds a parameter: the number of its first control point, 0 to `count`
/// - `order`. The span found is never empty; a parameter at a knot belongs to the span above it,
/// one outside the domain to the first or last span. The NURBS Book, A2.1, by bisection, for knots
/// without superfluous ends. The knots must be valid.
int FindSpan(std::span<const double> knots, int order, int count, double t);

/// The basis functions that are not zero on one span, and their first derivatives, at a parameter,
/// which may lie outside the span. The NURBS Book, A2.2 and equation 2.7.
class BasisFunctions
{
public:
    /// `spanKnots` points to the 2 * `degree` knots that the span's functions depend on: those from
    /// the span's number on.
    BasisFunctions(const double* spanKnots, int degree, double t);
    BasisFunctions(const BasisFunctions&) = delete;
    BasisFunctions(BasisFunctions&&) = delete;
    BasisFunctions& operator=(const BasisFunctions&) = delete;
    BasisFunctions& operator=(BasisFunctions&&) = delete;
    ~BasisFunctions() = default;

    /// For the control points from the span's number on, 0 to `degree`.
    [[nodiscard]] double Value(int i) const { return m_values[i]; }
    [[nodiscard]] double Derivative(int i) const { return m_derivatives[i]; }

private:
    void Raise(const double* spanKnots, int degree, int to, double t);
    void Derive(const double* spanKnots, int degree);
    bool AtFullKnot(const double* spanKnots, int degree, double t);

    static constexpr int SmallOrder = 12;
    std::array<double, std::size_t{2} * SmallOrder> m_small;
    std::vector<double> m_large; // used above the small order
    double* m_values;
    double* m_derivatives;
};
