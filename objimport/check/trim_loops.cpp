#include "objimport/check/trim_loops.h"

#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The largest difference that is unintended, as a share of the size.
constexpr double Rounding = 1e-9;

double SizeOf(const GK_NurbsSurface& surface)
{
    GK_3dPoint low = surface.ControlPoint(0, 0);
    GK_3dPoint high = low;
    for (int j = 0; j < surface.ControlPointCount(1); ++j)
        for (int i = 0; i < surface.ControlPointCount(0); ++i) {
            const GK_3dPoint point = surface.ControlPoint(i, j);
            low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
            high = {std::max(high.x, point.x), std::max(high.y, point.y),
                    std::max(high.z, point.z)};
        }
    return std::max({high.x - low.x, high.y - low.y, high.z - low.z});
}

bool AreNear(const GK_NurbsCurve& a, const GK_NurbsCurve& b, double gap)
{
    for (int i = 0; i < a.controlPointCount; ++i)
        if (!(a.ControlPoint(i).DistanceTo(b.ControlPoint(i)) <= gap))
            return false;
    return true;
}

bool IsOnePlace(const GK_NurbsCurve& side, double gap)
{
    for (int i = 1; i < side.controlPointCount; ++i)
        if (!(side.ControlPoint(0).DistanceTo(side.ControlPoint(i)) <= gap))
            return false;
    return true;
}

} // namespace

TrimEnds::TrimEnds(const GK_NurbsSurface& surface, double tolerance)
    : m_surface(surface), m_tolerance(tolerance)
{
    constexpr double ShareOfSize = 1e-3;
    const double size = SizeOf(surface);
    const double gap = std::max(std::min(tolerance, ShareOfSize * size), Rounding * size);
    for (const std::size_t d : {0U, 1U}) {
        const int direction = static_cast<int>(d);
        const GK_Interval domain = surface.Domain(direction);
        m_low[d] = domain[0];
        m_high[d] = domain[1];
        const auto low = surface.IsoCurve(1 - direction, domain[0]);
        const auto high = surface.IsoCurve(1 - direction, domain[1]);
        m_pole[d] = {IsOnePlace(*low, gap), IsOnePlace(*high, gap)};
        m_closed[d] = !(m_pole[d][0] && m_pole[d][1]) && AreNear(*low, *high, gap);
    }
}

/// Returns `to`, brought as near to `from` as whole periods bring it.
TrimEnds::Uv TrimEnds::Shifted(const Uv& from, const Uv& to) const
{
    Uv shifted = to;
    for (const std::size_t d : {0U, 1U})
        if (const double period = m_high[d] - m_low[d]; m_closed[d])
            shifted[d] += std::round((from[d] - to[d]) / period) * period;
    return shifted;
}

double TrimEnds::Distance(const Uv& a, const Uv& b) const
{
    const Uv near = Shifted(a, b);
    return std::hypot((near[0] - a[0]) / (m_high[0] - m_low[0]),
                      (near[1] - a[1]) / (m_high[1] - m_low[1]));
}

bool TrimEnds::OnOnePole(const Uv& a, const Uv& b) const
{
    constexpr double ShareOfDomain = 1.5e-6;
    for (const std::size_t d : {0U, 1U})
        for (const std::size_t side : {0U, 1U}) {
            const double value = side == 0 ? m_low[d] : m_high[d];
            const double slack = ShareOfDomain * (m_high[d] - m_low[d]);
            if (m_pole[d][side] && std::abs(a[d] - value) <= slack &&
                std::abs(b[d] - value) <= slack)
                return true;
        }
    return false;
}

bool TrimEnds::Meet(const Uv& a, const Uv& b) const
{
    constexpr double Digits = 6.0; // of numbers in files
    const Uv near = Shifted(a, b);
    bool coincide = true;
    for (const std::size_t d : {0U, 1U}) {
        const double largest = std::max(std::abs(m_low[d]), std::abs(m_high[d]));
        const double lastDigit = 1.001 * std::pow(10.0, std::ceil(std::log10(largest)) - Digits);
        const double most = std::max(1.5e-6 * (m_high[d] - m_low[d]), lastDigit);
        coincide = coincide && std::abs(near[d] - a[d]) <= most;
    }
    if (coincide || OnOnePole(a, b))
        return true;
    const auto pointAt = [&](Uv place) {
        for (const std::size_t d : {0U, 1U})
            if (const double period = m_high[d] - m_low[d]; m_closed[d])
                place[d] -= std::floor((place[d] - m_low[d]) / period) * period;
        return m_surface.Evaluate(place[0], place[1]).point;
    };
    const GK_3dPoint point = pointAt(a);
    if (!(point.DistanceTo(pointAt(near)) <= m_tolerance))
        return false;
    const Uv between{0.5 * (a[0] + near[0]), 0.5 * (a[1] + near[1])};
    return point.DistanceTo(pointAt(between)) <= 2.0 * m_tolerance;
}

/// Chains the pieces in their order, each turned so that it begins near the end before it.
std::vector<TrimEnds::Step> TrimEnds::ChainInOrder(const std::vector<LoopEnds>& pieces,
                                                   bool turnFirst) const
{
    std::vector<Step> chain;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        LoopEnds ends = pieces[i];
        const bool turn = chain.empty() ? turnFirst
                                        : Distance(chain.back().ends.end, ends.end) <
                                              Distance(chain.back().ends.end, ends.start);
        if (turn)
            std::swap(ends.start, ends.end);
        chain.push_back({i, ends});
    }
    return chain;
}

/// Chains the pieces from the first one on, each time with the one that begins or ends nearest.
std::vector<TrimEnds::Step> TrimEnds::ChainNearest(const std::vector<LoopEnds>& pieces) const
{
    std::vector<Step> rest = ChainInOrder(pieces, false);
    for (std::size_t k = 0; k + 1 < rest.size(); ++k) {
        const Uv end = rest[k].ends.end;
        double least = std::numeric_limits<double>::infinity();
        std::size_t best = k + 1;
        for (std::size_t i = k + 1; i < rest.size(); ++i) {
            LoopEnds& ends = rest[i].ends;
            if (Distance(end, ends.end) < Distance(end, ends.start))
                std::swap(ends.start, ends.end);
            if (const double distance = Distance(end, ends.start); distance < least) {
                least = distance;
                best = i;
            }
        }
        std::swap(rest[k + 1], rest[best]);
    }
    return rest;
}

std::optional<std::pair<std::size_t, std::size_t>>
TrimEnds::GapOf(const std::vector<Step>& chain) const
{
    for (std::size_t k = 0; k < chain.size(); ++k) {
        const Step& next = chain[(k + 1) % chain.size()];
        if (!Meet(chain[k].ends.end, next.ends.start))
            return std::pair{chain[k].piece, next.piece};
    }
    return std::nullopt;
}

std::optional<std::pair<std::size_t, std::size_t>>
TrimEnds::GapOf(const std::vector<LoopEnds>& pieces) const
{
    constexpr std::size_t MostToReorder = 1000;
    const auto gap = GapOf(ChainInOrder(pieces, false));
    if (!gap || pieces.size() > MostToReorder)
        return gap;
    if (!GapOf(ChainInOrder(pieces, true)) || !GapOf(ChainNearest(pieces)))
        return std::nullopt;
    // Each piece may be a ring around the surface.
    const bool allRings = std::all_of(pieces.begin(), pieces.end(), [this](const LoopEnds& ends) {
        return Meet(ends.end, ends.start);
    });
    if (allRings)
        return std::nullopt;
    return gap;
}
