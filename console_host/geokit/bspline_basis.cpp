#include "console_host/geokit/bspline_basis.h"

#include <algorithm>

int FindSpan(std::span<const double> knots, int order, int count, double t)
{
    const auto first = knots.begin() + (order - 2);
    const auto last = knots.begin() + (count - 1);
    const auto above = t < *last ? std::upper_bound(first, last, std::max(t, *first))
                                 : std::lower_bound(first, last, *last);
    return std::clamp(static_cast<int>(above - first) - 1, 0, count - order);
}

BasisFunctions::BasisFunctions(const double* spanKnots, int degree, double t)
{
    const int order = degree + 1;
    if (order > SmallOrder)
        m_large.resize(std::size_t{2} * static_cast<std::size_t>(order));
    m_values = order > SmallOrder ? m_large.data() : m_small.data();
    m_derivatives = m_values + order;
    if (AtFullKnot(spanKnots, degree, t))
        return;
    m_values[0] = 1.0;
    for (int j = 1; j < degree; ++j)
        Raise(spanKnots, degree, j, t);
    Derive(spanKnots, degree);
    Raise(spanKnots, degree, degree, t);
}

// From the functions of degree `to` - 1 to those of degree `to`.
void BasisFunctions::Raise(const double* spanKnots, int degree, int to, double t)
{
    double saved = 0.0;
    for (int r = 0; r < to; ++r) {
        const double left = spanKnots[degree - to + r];
        const double right = spanKnots[degree + r];
        const double part = m_values[r] / (right - left);
        m_values[r] = saved + (right - t) * part;
        saved = (t - left) * part;
    }
    m_values[to] = saved;
}

// From the functions of one degree less.
void BasisFunctions::Derive(const double* spanKnots, int degree)
{
    double saved = 0.0;
    for (int r = 0; r < degree; ++r) {
        const double part = degree * m_values[r] / (spanKnots[degree + r] - spanKnots[r]);
        m_derivatives[r] = saved - part;
        saved = part;
    }
    m_derivatives[degree] = saved;
}

// At a knot of full multiplicity the curve meets a control point: no recursion, no rounding, and
// degrees in the thousands cost nothing at the ends of a curve.
bool BasisFunctions::AtFullKnot(const double* spanKnots, int degree, double t)
{
    const bool atStart = t == spanKnots[0] && t == spanKnots[degree - 1];
    const bool atEnd = t == spanKnots[degree] && t == spanKnots[2 * degree - 1];
    if (!atStart && !atEnd)
        return false;
    std::fill_n(m_values, 2 * (degree + 1), 0.0);
    const double slope = degree / (spanKnots[degree] - spanKnots[degree - 1]);
    const int first = atStart ? 0 : degree - 1;
    m_values[atStart ? 0 : degree] = 1.0;
    m_derivatives[first] = -slope;
    m_derivatives[first + 1] = slope;
    return true;
}
