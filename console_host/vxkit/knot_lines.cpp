#include "console_host/vxkit/knot_lines.h"

#include "console_host/vxkit/curve_restriction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

KnotLines::KnotLines(const GK_NurbsSurface& surface, int direction, bool closed)
    : m_domain(surface.Domain(direction)), m_period(closed ? m_domain.Length() : 0.0)
{
    const GK_SimpleArray<double>& knots = surface.Knots(direction);
    m_first = std::upper_bound(knots.begin(), knots.end(), m_domain[0]);
    m_last = std::lower_bound(m_first, knots.end(), m_domain[1]);
}

double KnotLines::Periods(double parameter) const
{
    if (m_period == 0.0 || (parameter >= m_domain[0] && parameter <= m_domain[1]))
        return 0.0;
    return std::floor((parameter - m_domain[0]) / m_period);
}

double KnotLines::NextAbove(double parameter) const
{
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const bool closed = m_period != 0.0;
    const double way = closed ? std::floor((parameter - m_domain[0]) / m_period) * m_period : 0.0;
    const double* knot = std::upper_bound(m_first, m_last, parameter - way);
    if (knot == m_last && !closed)
        return Infinity;
    const double line = (knot == m_last ? m_domain[1] : *knot) + way;
    return line > parameter ? line : Infinity; // far outside, rounding swallows the period
}

namespace {

// One coordinate of a part of a span, in Bezier form over fractions 0 to 1 of it.
class Coordinate
{
public:
    Coordinate(const GK_NurbsCurve& bezier, int direction);

    [[nodiscard]] double At(double fraction) const;
    [[nodiscard]] double First() const { return Value(0); }
    [[nodiscard]] double Last() const { return Value(m_count - 1); }
    [[nodiscard]] GK_Interval Bounds() const;

    // Returns whether the control values never turn round, so that the curve meets each value once
    // at most.
    [[nodiscard]] bool IsMonotone() const;

    // Leaves the first half here and returns the second.
    Coordinate Split();

private:
    using Values = std::array<double, GK_MOST_ORDER>;

    [[nodiscard]] double Value(std::size_t i) const { return m_values[i] / m_weights[i]; }

    std::size_t m_count;
    Values m_values; // times the weights
    Values m_weights;
};

Coordinate::Coordinate(const GK_NurbsCurve& bezier, int direction)
    : m_count(static_cast<std::size_t>(bezier.order)), m_values(), m_weights()
{
    for (std::size_t i = 0; i < m_count; ++i) {
        const GK_3dPoint point = bezier.ControlPoint(static_cast<int>(i));
        m_weights[i] = bezier.Weight(static_cast<int>(i));
        m_values[i] = m_weights[i] * (direction == 0 ? point.x : point.y);
    }
}

double Coordinate::At(double fraction) const
{
    Values values = m_values;
    Values weights = m_weights;
    for (std::size_t last = m_count - 1; last > 0; --last) {
        for (std::size_t i = 0; i < last; ++i) {
            values[i] += fraction * (values[i + 1] - values[i]);
            weights[i] += fraction * (weights[i + 1] - weights[i]);
        }
    }
    return values[0] / weights[0];
}

GK_Interval Coordinate::Bounds() const
{
    double low = First();
    double high = low;
    for (std::size_t i = 1; i < m_count; ++i) {
        low = std::min(low, Value(i));
        high = std::max(high, Value(i));
    }
    return {low, high};
}

bool Coordinate::IsMonotone() const
{
    bool rises = false;
    bool falls = false;
    for (std::size_t i = 1; i < m_count; ++i) {
        rises = rises || Value(i) > Value(i - 1);
        falls = falls || Value(i) < Value(i - 1);
    }
    return !(rises && falls);
}

Coordinate Coordinate::Split()
{
    Coordinate second = *this;
    for (Values* values : {&m_values, &m_weights}) {
        Values& of = values == &m_values ? second.m_values : second.m_weights;
        for (std::size_t step = 0; step < m_count; ++step) {
            of[m_count - 1 - step] = (*values)[m_count - 1];
            for (std::size_t i = m_count - 1; i > step; --i)
                (*values)[i] = 0.5 * ((*values)[i - 1] + (*values)[i]);
        }
    }
    return second;
}

// Returns where a monotone coordinate takes a value that lies between its ends: the false-position
// method with the Illinois rule (M. Dowell and P. Jarratt, 1971).
double FractionAt(const Coordinate& coordinate, double value)
{
    constexpr int MostSteps = 60;
    constexpr double Enough = 4.0 * std::numeric_limits<double>::epsilon();
    double t0 = 0.0;
    double t1 = 1.0;
    double f0 = coordinate.First() - value;
    double f1 = coordinate.Last() - value;
    const double enough = Enough * (std::abs(value) + std::max(std::abs(f0), std::abs(f1)));
    for (int step = 0; step < MostSteps; ++step) {
        if (std::abs(f0) <= enough)
            return t0;
        if (std::abs(f1) <= enough)
            return t1;
        const double t = t1 - f1 * ((t1 - t0) / (f1 - f0));
        const double f = coordinate.At(t) - value;
        if ((f > 0.0) != (f1 > 0.0)) {
            t0 = t1;
            f0 = f1;
        } else {
            f0 *= 0.5;
        }
        t1 = t;
        f1 = f;
    }
    return t1;
}

class Search
{
public:
    Search(const KnotLines& lines, std::size_t most, std::vector<double>& crossings)
        : m_lines(lines), m_most(most), m_crossings(crossings)
    {
    }

    void Run(Coordinate coordinate, const GK_Interval& part, int depth);

private:
    void Solve(const Coordinate& coordinate, const GK_Interval& part);

    const KnotLines& m_lines;
    std::size_t m_most;
    std::vector<double>& m_crossings;
};

bool MayCross(const GK_Interval& bounds, const KnotLines& lines)
{
    constexpr double Rounding = 1e-13; // a curve along a line does not cross it
    const double noise = Rounding * std::max(std::abs(bounds[0]), std::abs(bounds[1]));
    return bounds.Length() > noise && lines.NextAbove(bounds[0]) < bounds[1];
}

void Search::Run(Coordinate coordinate, const GK_Interval& part, int depth)
{
    constexpr int MostHalvings = 30;
    if (m_crossings.size() > m_most || !MayCross(coordinate.Bounds(), m_lines))
        return;
    if (depth == MostHalvings || coordinate.IsMonotone()) {
        Solve(coordinate, part);
        return;
    }
    const Coordinate second = coordinate.Split();
    const double middle = part.ParameterAt(0.5);
    Run(coordinate, {part[0], middle}, depth + 1);
    // A line through the point where the halves meet.
    constexpr double Below = -std::numeric_limits<double>::infinity();
    if (const double value = second.First();
        m_lines.NextAbove(std::nextafter(value, Below)) == value)
        m_crossings.push_back(middle);
    Run(second, {middle, part[1]}, depth + 1);
}

void Search::Solve(const Coordinate& coordinate, const GK_Interval& part)
{
    const double low = std::min(coordinate.First(), coordinate.Last());
    const double high = std::max(coordinate.First(), coordinate.Last());
    for (double line = m_lines.NextAbove(low); line < high && m_crossings.size() <= m_most;
         line = m_lines.NextAbove(line))
        m_crossings.push_back(part.ParameterAt(FractionAt(coordinate, line)));
}

} // namespace

void FindCrossings(const GK_NurbsCurve& curve, int span, const GK_Interval& part, int direction,
                   const KnotLines& lines, std::size_t most, std::vector<double>& crossings)
{
    // The span lies between the lowest and the highest of its control points.
    const double* values =
        curve.controlPoints.Array() + direction + std::int64_t{span} * curve.controlPointStride;
    double low = *values;
    double high = low;
    for (int i = 1; i < curve.order; ++i) {
        values += curve.controlPointStride;
        low = std::min(low, *values);
        high = std::max(high, *values);
    }
    if (!MayCross({low, high}, lines))
        return;
    const auto bezier = RestrictCurve(curve, part[0], part[1]);
    Search(lines, most, crossings).Run(Coordinate(*bezier, direction), part, 0);
}
