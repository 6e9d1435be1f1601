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
    if (m_values.SetAtFullKnot(spanKnots, degree, t)) {
        std::fill_n(m_derivatives.begin(), degree + 1, 0.0);
        const double slope = degree / (spanKnots[degree] - spanKnots[degree - 1]);
        const auto first = BasisValues::At(m_values[0] == 1.0 ? 0 : degree - 1);
        m_derivatives[first] = -slope;
        m_derivatives[first + 1] = slope;
        return;
    }
    m_values.m_values[0] = 1.0;
    for (int j = 1; j < degree; ++j)
        m_values.Raise(spanKnots, degree, j, t);
    Derive(spanKnots, degree);
    m_values.Raise(spanKnots, degree, degree, t);
}

// Computes the derivatives from the functions of one degree less.
void BasisFunctions::Derive(const double* spanKnots, int degree)
{
    double saved = 0.0;
    for (int r = 0; r < degree; ++r) {
        const double part = degree * m_values[r] / (spanKnots[degree + r] - spanKnots[r]);
        m_derivatives[BasisValues::At(r)] = saved - part;
        saved = part;
    }
    m_derivatives[BasisValues::At(degree)] = saved;
}
