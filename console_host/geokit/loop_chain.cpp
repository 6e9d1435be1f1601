#include "console_host/geokit/loop_chain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

// Returns how badly a piece that starts at `to` follows one that ends at `from`. What needs no step
// across a seam or along a pole is preferred.
double Gap(const Uv& from, const Uv& to, const ParameterPlane& plane)
{
    constexpr double Step = 1e-4;
    double gap = plane.Distance(from, to);
    const Uv periods = plane.PeriodsBetween(from, to);
    if (periods != Uv{})
        gap = std::min(gap, Step + plane.Distance(from, to + periods));
    if (plane.CommonPole(from, to))
        gap = std::min(gap, Step);
    return gap;
}

// The directions of all pieces that leave the least gaps in sum, for a given direction of the
// first: the cheapest way through a graph of two nodes for each piece.
class Directions
{
public:
    Directions(const std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
        : m_plane(plane), m_from(pieces.size())
    {
        m_ends.reserve(pieces.size());
        for (const LoopPiece& piece : pieces)
            m_ends.push_back({piece.Start(), piece.End()});
    }

    // Returns the sum of gaps.
    double Solve(bool firstTurned, std::vector<char>& turned);

private:
    [[nodiscard]] double GapBetween(std::size_t piece, std::size_t turned, std::size_t next,
                                    std::size_t nextTurned) const
    {
        return Gap(m_ends[piece][1 - turned], m_ends[next][nextTurned], m_plane);
    }

    std::vector<std::array<Uv, 2>> m_ends; // start and end of each piece
    const ParameterPlane& m_plane;
    std::vector<std::array<char, 2>> m_from; // the cheaper direction of the piece before
};

double Directions::Solve(bool firstTurned, std::vector<char>& turned)
{
    const std::size_t count = m_ends.size();
    std::array<double, 2> cost{firstTurned ? Infinity : 0.0, firstTurned ? 0.0 : Infinity};
    for (std::size_t k = 1; k < count; ++k) {
        std::array<double, 2> next{};
        for (const std::size_t turn : {0U, 1U}) {
            const double straight = cost[0] + GapBetween(k - 1, 0, k, turn);
            const double turnedBefore = cost[1] + GapBetween(k - 1, 1, k, turn);
            next[turn] = std::min(straight, turnedBefore);
            m_from[k][turn] = turnedBefore < straight ? 1 : 0;
        }
        cost = next;
    }
    const std::size_t first = firstTurned ? 1 : 0;
    for (const std::size_t turn : {0U, 1U})
        cost[turn] += GapBetween(count - 1, turn, 0, first);
    turned.assign(count, 0);
    turned.back() = cost[1] < cost[0] ? 1 : 0;
    for (std::size_t k = count - 1; k > 0; --k)
        turned[k - 1] = m_from[k][static_cast<std::size_t>(turned[k])];
    return std::min(cost[0], cost[1]);
}

void ChooseDirections(std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
{
    if (pieces.size() == 1)
        return;
    constexpr double Noise = 1e-9;
    Directions directions(pieces, plane);
    std::vector<char> asGiven;
    std::vector<char> firstTurned;
    const double costAsGiven = directions.Solve(false, asGiven);
    const double costTurned = directions.Solve(true, firstTurned);
    const std::vector<char>& best = costTurned < costAsGiven - Noise ? firstTurned : asGiven;
    for (std::size_t k = 0; k < pieces.size(); ++k)
        if (best[k] != 0)
            pieces[k].backwards = !pieces[k].backwards;
}

// Puts next, each time, the piece whose end lies nearest.
void ChooseOrder(std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
{
    for (std::size_t k = 0; k + 2 < pieces.size(); ++k) {
        const Uv end = pieces[k].End();
        std::size_t best = k + 1;
        bool turn = false;
        double least = Infinity;
        for (std::size_t i = k + 1; i < pieces.size(); ++i) {
            const double straight = Gap(end, pieces[i].Start(), plane);
            const double turned = Gap(end, pieces[i].End(), plane);
            if (std::min(straight, turned) >= least)
                continue;
            least = std::min(straight, turned);
            best = i;
            turn = turned < straight;
        }
        if (turn)
            pieces[best].backwards = !pieces[best].backwards;
        std::rotate(pieces.begin() + static_cast<std::ptrdiff_t>(k) + 1,
                    pieces.begin() + static_cast<std::ptrdiff_t>(best),
                    pieces.begin() + static_cast<std::ptrdiff_t>(best) + 1);
    }
}

// Returns the direction along a pole in which the loop leaps from one place to the other, or 2.
std::size_t LeapDirection(const Uv& from, const Uv& to, const ParameterPlane& plane)
{
    const auto pole = plane.CommonPole(from, to);
    return pole ? 1 - Across(*pole) : 2;
}

// Shifts each piece to where the one before it ends, and closes the loop.
class Lift
{
public:
    Lift(std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
        : m_pieces(pieces), m_plane(plane)
    {
    }

    LoopChain Run();

private:
    void Close(LoopChain& chain);
    void UnwindAtPole(LoopChain& chain, std::size_t direction);

    std::vector<LoopPiece>& m_pieces;
    const ParameterPlane& m_plane;
};

LoopChain Lift::Run()
{
    LoopChain chain;
    m_pieces.front().shift = {};
    for (std::size_t k = 1; k < m_pieces.size(); ++k) {
        const Uv end = m_pieces[k - 1].End();
        LoopPiece& piece = m_pieces[k];
        piece.shift = m_pieces[k - 1].shift;
        const Uv periods = m_plane.PeriodsBetween(end, piece.Start());
        const std::size_t leap = LeapDirection(end, piece.Start() + periods, m_plane);
        for (const std::size_t d : {0U, 1U})
            if (d != leap)
                piece.shift[d] += periods[d];
        if (!m_plane.Meet(end, piece.Start())) {
            chain.gapAfter = static_cast<std::ptrdiff_t>(k) - 1;
            return chain;
        }
    }
    Close(chain);
    return chain;
}

void Lift::Close(LoopChain& chain)
{
    const Uv start = m_pieces.front().Start();
    const Uv end = m_pieces.back().End();
    const Uv periods = m_plane.PeriodsBetween(end, start);
    if (!m_plane.Meet(end, start + periods)) {
        chain.gapAfter = static_cast<std::ptrdiff_t>(m_pieces.size()) - 1;
        return;
    }
    const std::size_t leap = LeapDirection(end, start + periods, m_plane);
    for (const std::size_t d : {0U, 1U})
        if (d != leap && m_plane.IsClosed(d))
            chain.winding[d] = static_cast<int>(std::lround(periods[d] / m_plane.Length(d)));
    for (const std::size_t d : {0U, 1U})
        if (chain.winding[d] != 0)
            UnwindAtPole(chain, d);
}

// A leap along a pole may go either way round: chooses the one in which the loop closes.
void Lift::UnwindAtPole(LoopChain& chain, std::size_t direction)
{
    for (std::size_t k = 1; k < m_pieces.size(); ++k) {
        if (LeapDirection(m_pieces[k - 1].End(), m_pieces[k].Start(), m_plane) != direction)
            continue;
        for (std::size_t i = k; i < m_pieces.size(); ++i)
            m_pieces[i].shift[direction] -= chain.winding[direction] * m_plane.Length(direction);
        chain.winding[direction] = 0;
        return;
    }
}

} // namespace

LoopChain ChainPieces(std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
{
    constexpr std::size_t MostToReorder = 1000;
    ChooseDirections(pieces, plane);
    LoopChain chain = Lift(pieces, plane).Run();
    if (chain.gapAfter < 0 || pieces.size() < 3 || pieces.size() > MostToReorder)
        return chain;
    std::vector<LoopPiece> reordered = pieces;
    for (LoopPiece& piece : reordered)
        piece.shift = {};
    ChooseOrder(reordered, plane);
    const LoopChain other = Lift(reordered, plane).Run();
    if (other.gapAfter < 0) {
        pieces = std::move(reordered);
        return other;
    }
    return chain;
}

namespace {

// Returns whether the pieces may be a ring, judging by the ends of the first and the last one.
bool MayClose(const LoopPiece& first, const LoopPiece& last, const ParameterPlane& plane)
{
    for (const Uv& start : {first.Start(), first.End()})
        for (const Uv& end : {last.Start(), last.End()}) {
            const Uv periods = plane.PeriodsBetween(end, start);
            if (periods != Uv{} && plane.Meet(end, start + periods))
                return true;
        }
    return false;
}

} // namespace

std::vector<std::vector<LoopPiece>> RingsOf(const std::vector<LoopPiece>& pieces,
                                            const ParameterPlane& plane)
{
    int attempts = 16; // each takes the time of its pieces, or their square
    std::vector<std::vector<LoopPiece>> rings;
    std::vector<LoopPiece> ring;
    for (const LoopPiece& piece : pieces) {
        ring.push_back(piece);
        ring.back().shift = {};
        if (!MayClose(ring.front(), ring.back(), plane))
            continue;
        if (--attempts < 0)
            return {};
        std::vector<LoopPiece> chained = ring;
        const LoopChain chain = ChainPieces(chained, plane);
        if (chain.gapAfter >= 0 || chain.winding == std::array<int, 2>{})
            continue;
        rings.push_back(std::move(chained));
        ring.clear();
    }
    return ring.empty() && rings.size() > 1 ? rings : std::vector<std::vector<LoopPiece>>{};
}
