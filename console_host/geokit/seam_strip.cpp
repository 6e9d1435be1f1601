#include "console_host/geokit/boundary_walk.h"

#include <algorithm>
#include <utility>

namespace {

// What loops cover of one side of the domain, as intervals of the parameter along it.
class Coverage
{
public:
    void Add(double from, double to)
    {
        m_parts.emplace_back(std::min(from, to), std::max(from, to));
    }

    // Makes the intervals disjoint, joining those that are less than `slack` apart.
    void Finish(double slack)
    {
        std::sort(m_parts.begin(), m_parts.end());
        std::vector<std::pair<double, double>> joined;
        for (const auto& part : m_parts) {
            if (!joined.empty() && part.first <= joined.back().second + slack)
                joined.back().second = std::max(joined.back().second, part.second);
            else
                joined.push_back(part);
        }
        m_parts = std::move(joined);
    }

    [[nodiscard]] bool Holds(double value) const
    {
        const auto after = std::upper_bound(
            m_parts.begin(), m_parts.end(), value,
            [](double x, const std::pair<double, double>& part) { return x < part.first; });
        return after != m_parts.begin() && value <= std::prev(after)->second;
    }

    [[nodiscard]] std::vector<double> Ends() const
    {
        std::vector<double> ends;
        for (const auto& [from, to] : m_parts) {
            ends.push_back(from);
            ends.push_back(to);
        }
        return ends;
    }

private:
    std::vector<std::pair<double, double>> m_parts;
};

class Stripper
{
public:
    Stripper(const std::vector<DomainLoop>& loops, const ParameterPlane& plane);

    void Strip(DomainLoop& loop, SeamPlaces& seamEnds) const;

private:
    [[nodiscard]] const Coverage& Across(Side side) const
    {
        return m_coverage[static_cast<std::size_t>(Opposite(side))];
    }
    [[nodiscard]] bool IsDouble(const DomainPiece& piece) const;

    const ParameterPlane& m_plane;
    std::array<Coverage, AllSides.size()> m_coverage;
};

Stripper::Stripper(const std::vector<DomainLoop>& loops, const ParameterPlane& plane)
    : m_plane(plane)
{
    for (const DomainLoop& loop : loops) {
        for (const DomainPiece& piece : loop.pieces) {
            if (!piece.side)
                continue;
            const std::size_t along = 1 - ::Across(*piece.side);
            m_coverage[static_cast<std::size_t>(*piece.side)].Add(piece.piece.Start()[along],
                                                                  piece.piece.End()[along]);
        }
    }
    for (const Side side : AllSides)
        m_coverage[static_cast<std::size_t>(side)].Finish(plane.Slack(1 - ::Across(side)));
}

bool Stripper::IsDouble(const DomainPiece& piece) const
{
    const std::size_t along = 1 - ::Across(*piece.side);
    return Across(*piece.side).Holds(0.5 * (piece.piece.Start()[along] + piece.piece.End()[along]));
}

void Stripper::Strip(DomainLoop& loop, SeamPlaces& seamEnds) const
{
    std::vector<DomainPiece> kept;
    bool stripped = false;
    const auto keep = [&](DomainPiece piece) {
        piece.afterSeam = std::exchange(stripped, false);
        kept.push_back(std::move(piece));
    };
    for (DomainPiece& piece : loop.pieces) {
        if (!piece.side) {
            keep(std::move(piece));
        } else if (m_plane.IsPole(*piece.side)) {
            stripped = true;
        } else {
            for (DomainPiece& part : CutAlongSide(piece, Across(*piece.side).Ends(), m_plane)) {
                if (!IsDouble(part)) {
                    keep(std::move(part));
                    continue;
                }
                stripped = true;
                const std::size_t across = ::Across(*part.side);
                for (const Uv& end : {part.piece.Start(), part.piece.End()})
                    seamEnds[across].push_back(end[1 - across]);
            }
        }
    }
    if (stripped && !kept.empty())
        kept.front().afterSeam = true;
    loop.pieces = std::move(kept);
}

} // namespace

SeamPlaces StripSeams(std::vector<DomainLoop>& loops, const ParameterPlane& plane)
{
    SeamPlaces seamEnds;
    const Stripper stripper(loops, plane);
    for (DomainLoop& loop : loops)
        stripper.Strip(loop, seamEnds);
    return seamEnds;
}
