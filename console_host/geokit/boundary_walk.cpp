#include "console_host/geokit/boundary_walk.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double SideCount = AllSides.size();

// Positions on the boundary of the domain count its sides: 1.5 is the middle of the east side.
constexpr double Near = 1e-9; // not more: a loop may reach over a seam by very little

// The pieces of a loop between two visits to the boundary.
struct Strand
{
    std::vector<DomainPiece> pieces;
    int number;
    double departure;
    double arrival;
};

// Returns the value along a side at a share of the way.
double ValueAlong(Side side, double share, const ParameterPlane& plane)
{
    const std::size_t d = 1 - Across(side);
    const bool rising = side == Side::South || side == Side::East;
    const double start = rising ? plane.Low(d) : plane.High(d);
    const double end = rising ? plane.High(d) : plane.Low(d);
    if (share <= 0.0)
        return start;
    return share >= 1.0 ? end : start + share * (end - start);
}

// Returns the position of a place that is on the boundary; negative for one that is not.
double PositionOf(const Uv& place, const ParameterPlane& plane)
{
    constexpr double OnSide = 1e-3;
    const Uv at = plane.Normalized(place);
    const std::array<double, 4> distances{at[1], 1.0 - at[0], 1.0 - at[1], at[0]};
    const std::array<double, 4> shares{at[0], at[1], 1.0 - at[0], 1.0 - at[1]};
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < distances.size(); ++i)
        if (std::abs(distances[i]) < std::abs(distances[nearest]))
            nearest = i;
    if (std::abs(distances[nearest]) > OnSide)
        return -1.0;
    const double position = static_cast<double>(nearest) + std::clamp(shares[nearest], 0.0, 1.0);
    return position >= SideCount ? 0.0 : position;
}

class Walker
{
public:
    Walker(const ParameterPlane& plane, bool natural) : m_plane(plane), m_natural(natural) {}

    BoundaryWalk Run(std::vector<DomainLoop> loops);

private:
    void Split(DomainLoop& loop);
    bool AddStrand(std::vector<DomainPiece> pieces, int number);
    bool Trace(std::size_t first);
    [[nodiscard]] std::size_t NextDeparture(double arrival) const;
    bool FollowSides(double from, double to, WalkedLoop& loop);
    bool Fail(int loop, std::string reason);

    const ParameterPlane& m_plane;
    bool m_natural;
    std::vector<Strand> m_strands;
    std::vector<std::pair<double, std::size_t>> m_departures; // by position, the strand there
    std::vector<char> m_used;                                 // for each departure
    BoundaryWalk m_walk;
};

bool Walker::Fail(int loop, std::string reason)
{
    m_walk.badLoop = loop;
    m_walk.reason = std::move(reason);
    return false;
}

void AppendPieces(std::vector<DomainPiece>& pieces, WalkedLoop& loop)
{
    for (DomainPiece& piece : pieces)
        loop.steps.emplace_back(std::move(piece.piece));
}

BoundaryWalk Walker::Run(std::vector<DomainLoop> loops)
{
    bool wholeSides = m_natural;
    for (DomainLoop& loop : loops) {
        wholeSides = wholeSides || loop.pieces.empty();
        Split(loop);
        if (m_walk.badLoop != 0)
            return std::move(m_walk);
    }
    for (std::size_t i = 0; i < m_strands.size(); ++i)
        m_departures.emplace_back(m_strands[i].departure, i);
    std::sort(m_departures.begin(), m_departures.end());
    m_used.assign(m_strands.size(), 0);
    for (std::size_t i = 0; i < m_departures.size(); ++i)
        if (m_used[i] == 0 && !Trace(i))
            return std::move(m_walk);
    if (m_strands.empty() && wholeSides) {
        WalkedLoop sides;
        sides.type = GK_BrepLoop::outer;
        if (FollowSides(0.0, SideCount, sides))
            m_walk.loops.insert(m_walk.loops.begin(), std::move(sides));
    }
    return std::move(m_walk);
}

void Walker::Split(DomainLoop& loop)
{
    std::vector<DomainPiece>& pieces = loop.pieces;
    const std::size_t count = pieces.size();
    const std::size_t first = FirstAfterBreak(pieces, m_plane);
    if (first == count) {
        if (count == 0)
            return;
        WalkedLoop closed;
        closed.number = loop.number;
        closed.type = loop.type;
        closed.periods = pieces.front().periods;
        AppendPieces(pieces, closed);
        m_walk.loops.push_back(std::move(closed));
        return;
    }
    std::rotate(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(first), pieces.end());
    std::vector<DomainPiece> strand;
    for (std::size_t i = 0; i < count; ++i) {
        strand.push_back(pieces[i]);
        if (i + 1 < count && !IsBreak(pieces[i], pieces[i + 1], m_plane))
            continue;
        if (!AddStrand(std::exchange(strand, {}), loop.number))
            return;
    }
}

bool Walker::AddStrand(std::vector<DomainPiece> pieces, int number)
{
    const double departure = PositionOf(pieces.front().piece.Start(), m_plane);
    const double arrival = PositionOf(pieces.back().piece.End(), m_plane);
    if (departure < 0.0 || arrival < 0.0)
        return Fail(number, "leaps from one place of the surface to another");
    m_strands.push_back({std::move(pieces), number, departure, arrival});
    return true;
}

// Returns the first departure at a position or after it, around the domain; one that is taken only
// when there is no other as near.
std::size_t Walker::NextDeparture(double arrival) const
{
    const std::size_t count = m_departures.size();
    const auto ahead = [&](std::size_t i) {
        const double way = m_departures[i].first - arrival;
        const double around = way < -Near ? way + SideCount : way;
        return around > SideCount - Near ? around - SideCount : around;
    };
    const auto from = std::lower_bound(m_departures.begin(), m_departures.end(),
                                       std::pair<double, std::size_t>(arrival - Near, 0));
    std::size_t best = static_cast<std::size_t>(from - m_departures.begin()) % count;
    if (ahead(count - 1) <= Near)
        best = count - 1;
    for (std::size_t i = best, tried = 0; tried < count && ahead(i) <= ahead(best) + Near;
         i = (i + 1) % count, ++tried)
        if (m_used[i] == 0)
            return i;
    return best;
}

bool Walker::Trace(std::size_t first)
{
    WalkedLoop loop;
    std::size_t at = first;
    do {
        const std::size_t index = m_departures[at].second;
        Strand& strand = m_strands[index];
        if (m_used[at] != 0)
            return Fail(strand.number, "crosses another loop at a seam");
        m_used[at] = 1;
        loop.number = std::max(loop.number, strand.number);
        AppendPieces(strand.pieces, loop);
        const std::size_t next = std::abs(m_departures[first].first - strand.arrival) <= Near
                                     ? first
                                     : NextDeparture(strand.arrival);
        double way = m_departures[next].first - strand.arrival;
        if (way < -Near)
            way += SideCount;
        if (way < SideCount - Near && !FollowSides(strand.arrival, strand.arrival + way, loop))
            return Fail(strand.number, "runs around the surface, and nothing bounds the face on "
                                       "its left");
        at = next;
    } while (at != first);
    m_walk.loops.push_back(std::move(loop));
    return true;
}

// Appends the sides between two positions.
bool Walker::FollowSides(double from, double to, WalkedLoop& loop)
{
    while (from < to - Near) {
        const double number = std::floor(from + Near);
        const Side side = AllSides[static_cast<std::size_t>(number) % AllSides.size()];
        if (!m_plane.IsSeam(side) && !m_plane.IsPole(side) && !m_natural)
            return false;
        const double end = std::min(number + 1.0, to);
        loop.steps.emplace_back(SidePart{side, ValueAlong(side, from - number, m_plane),
                                         ValueAlong(side, end - number, m_plane)});
        from = end;
    }
    return true;
}

} // namespace

bool IsBreak(const DomainPiece& piece, const DomainPiece& next, const ParameterPlane& plane)
{
    const Uv end = piece.piece.End();
    const Uv start = next.piece.Start();
    return next.afterSeam || plane.PeriodsBetween(end, start) != Uv{} ||
           (plane.CommonPole(end, start) && !plane.Coincide(end, start));
}

std::size_t FirstAfterBreak(const std::vector<DomainPiece>& pieces, const ParameterPlane& plane)
{
    const std::size_t count = pieces.size();
    std::size_t first = 0;
    while (first < count && !IsBreak(pieces[(first + count - 1) % count], pieces[first], plane))
        ++first;
    return first;
}

BoundaryWalk WalkBoundary(std::vector<DomainLoop> loops, const ParameterPlane& plane, bool natural)
{
    return Walker(plane, natural).Run(std::move(loops));
}
