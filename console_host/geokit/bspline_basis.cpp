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

BasisValues::BasisValues(const double* spanKnots, int degree, double t)
{
    if (SetAtFullKnot(spanKnots, degree, t))
        return;
    m_values[0] = 1.0;
    for (int j = 1; j <= degree; ++j)
        Raise(spanKnots, degree, j, t);
}

// From the functions of degree `to` - 1 to those of degree `to`.
void BasisValues::Raise(const double* spanKnots, int degree, int to, double t)
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

// At a knot of full multiplicity the curve meets a control point: no rounding.
bool BasisValues::SetAtFullKnot(const double* spanKnots, int degree, double t)
{
    const bool atStart = t == spanKnots[0] && t == spanKnots[degree - 1];
    const bool atEnd = t == spanKnots[degree] && t == spanKnots[2 * degree - 1];
    if (!atStart && !atEnd)
        return false;
    std::fill_n(m_values.begin(), degree + 1, 0.0);
    m_values[At(atStart ? 0 : degree)] = 1.0;
    return true;
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

// From the functions of one degree less.
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
