#pragma once

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <cstddef>
#include <vector>

/// The lines of the parameter plane across which one direction of a surface changes to another
/// polynomial: at its inner knots and, where the surface is closed, at its seam, repeated with its
/// period.
class KnotLines
{
public:
    /// The surface must be valid and stay as it is.
    KnotLines(const GK_NurbsSurface& surface, int direction, bool closed);

    /// Returns the lowest line above a parameter; infinity when there is none.
    [[nodiscard]] double NextAbove(double parameter) const;

    /// Returns where on the surface a parameter lies: on a closed one whole periods are taken off.
    [[nodiscard]] double OnSurface(double parameter) const
    {
        return parameter - Periods(parameter) * m_period;
    }

    /// Returns how many whole periods lie between the domain and a parameter; 0 within the domain,
    /// and where the surface is not closed.
    [[nodiscard]] double Periods(double parameter) const;

    [[nodiscard]] double Period() const { return m_period; }

private:
    const double* m_first; // the knots inside the domain, from the first to after the last
    const double* m_last;
    GK_Interval m_domain;
    double m_period = 0.0; // 0: not closed
};

/// Appends to `crossings` where between t0 and t1, which lie on one span of the plane curve, it
/// crosses lines of a direction: every crossing, unless two lie so near to each other that the
/// curve strays from the line by rounding only. Stops when there are more than `most`.
void FindCrossings(const GK_NurbsCurve& curve, int span, const GK_Interval& part, int direction,
                   const KnotLines& lines, std::size_t most, std::vector<double>& crossings);
