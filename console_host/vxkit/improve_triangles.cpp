#include "console_host/vxkit/triangulate_planar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr int None = -1;

/// The triangles of a polygon and what lies beyond their sides. Side 3 t + k of triangle t runs
/// from its corner k to the next one.
class TriangleMesh
{
public:
    TriangleMesh(std::span<const PlanarPoint> points, std::span<int> corners)
        : m_points(points), m_corners(corners), m_opposite(corners.size(), None)
    {
        Connect();
    }

    void Improve();

private:
    static int Next(int side) { return side % 3 == 2 ? side - 2 : side + 1; }
    static int Previous(int side) { return side % 3 == 0 ? side + 2 : side - 1; }

    [[nodiscard]] int From(int side) const { return m_corners[static_cast<std::size_t>(side)]; }
    [[nodiscard]] int Opposite(int side) const
    {
        return m_opposite[static_cast<std::size_t>(side)];
    }
    [[nodiscard]] const PlanarPoint& Point(int corner) const
    {
        return m_points[static_cast<std::size_t>(corner)];
    }

    template <class Use>
    void ForEachDiagonal(const Use& use) const;
    void Connect();
    void Join(int side, int other);
    void SetTriangle(int first, const std::array<int, 3>& corners);
    [[nodiscard]] bool ShouldExchange(int side) const;
    void Exchange(int side);

    std::span<const PlanarPoint> m_points;
    std::span<int> m_corners;
    std::vector<int> m_opposite;
};

/// Calls `use` with each diagonal's side and its lower and upper end.
template <class Use>
void TriangleMesh::ForEachDiagonal(const Use& use) const
{
    for (int side = 0; side < std::ssize(m_corners); ++side) {
        const auto [lower, upper] = std::minmax({From(side), From(Next(side))});
        const bool isOutline =
            upper == lower + 1 || (lower == 0 && upper == std::ssize(m_points) - 1);
        if (!isOutline)
            use(side, lower, upper);
    }
}

/// Joins the two sides of each diagonal: those with the same two ends.
void TriangleMesh::Connect()
{
    struct Side
    {
        int upper;
        int side;
        auto operator<=>(const Side&) const = default;
    };
    // Distributed to their lower ends, only a few sides each are left to be sorted.
    std::vector<int> ends(m_points.size());
    const auto endOf = [&ends](int lower) -> int& { return ends[static_cast<std::size_t>(lower)]; };
    ForEachDiagonal([&](int /*side*/, int lower, int /*upper*/) { ++endOf(lower); });
    int sum = 0;
    for (int& end : ends)
        sum += std::exchange(end, sum);
    std::vector<Side> sides(static_cast<std::size_t>(sum));
    ForEachDiagonal([&](int side, int lower, int upper) {
        sides[static_cast<std::size_t>(endOf(lower)++)] = {upper, side};
    });

    auto first = sides.begin();
    for (const int end : ends) {
        const auto last = sides.begin() + end;
        std::sort(first, last);
        for (; first != last; ++first)
            if (first + 1 != last && first->upper == (first + 1)->upper)
                Join(first->side, (first + 1)->side);
    }
}

void TriangleMesh::Join(int side, int other)
{
    if (side != None)
        m_opposite[static_cast<std::size_t>(side)] = other;
    if (other != None)
        m_opposite[static_cast<std::size_t>(other)] = side;
}

void TriangleMesh::SetTriangle(int first, const std::array<int, 3>& corners)
{
    std::copy(corners.begin(), corners.end(), m_corners.begin() + first);
}

/// Returns whether the angles that face a diagonal from both sides are together more than half a
/// turn, and the other diagonal lies inside.
bool TriangleMesh::ShouldExchange(int side) const
{
    constexpr double Clearly = 1e-9;
    const PlanarPoint& a = Point(From(side));
    const PlanarPoint& b = Point(From(Next(side)));
    const PlanarPoint& c = Point(From(Previous(side)));
    const PlanarPoint& d = Point(From(Previous(Opposite(side))));
    const auto sine = [](const PlanarPoint& at, const PlanarPoint& p, const PlanarPoint& q) {
        return (p.x - at.x) * (q.y - at.y) - (p.y - at.y) * (q.x - at.x);
    };
    const auto cosine = [](const PlanarPoint& at, const PlanarPoint& p, const PlanarPoint& q) {
        return (p.x - at.x) * (q.x - at.x) + (p.y - at.y) * (q.y - at.y);
    };
    const double first = sine(c, a, b) * cosine(d, b, a);
    const double second = cosine(c, a, b) * sine(d, b, a);
    return first + second < -Clearly * (std::abs(first) + std::abs(second)) &&
           Orientation(c, a, d) > 0.0 && Orientation(d, b, c) > 0.0;
}

void TriangleMesh::Exchange(int side)
{
    const int other = Opposite(side);
    const int a = From(side);
    const int b = From(other);
    const int c = From(Previous(side));
    const int d = From(Previous(other));
    const int beyondBc = Opposite(Next(side));
    const int beyondCa = Opposite(Previous(side));
    const int beyondAd = Opposite(Next(other));
    const int beyondDb = Opposite(Previous(other));
    const int first = side - side % 3;
    const int second = other - other % 3;
    SetTriangle(first, {c, a, d});
    SetTriangle(second, {d, b, c});
    Join(first, beyondCa);
    Join(first + 1, beyondAd);
    Join(second, beyondDb);
    Join(second + 1, beyondBc);
    Join(first + 2, second + 2);
}

void TriangleMesh::Improve()
{
    // Enough for all but the most contrived polygons, for which it may take a square of steps.
    std::size_t exchangesLeft = 8 * m_corners.size();
    std::vector<int> open;
    for (int side = 0; side < std::ssize(m_corners); ++side)
        if (Opposite(side) > side)
            open.push_back(side);
    while (!open.empty() && exchangesLeft > 0) {
        const int side = open.back();
        open.pop_back();
        const int other = Opposite(side);
        if (other == None || !ShouldExchange(side))
            continue;
        Exchange(side);
        --exchangesLeft;
        const int first = side - side % 3;
        const int second = other - other % 3;
        open.insert(open.end(), {first, first + 1, second, second + 1});
    }
}

} // namespace

void ImproveTriangles(std::span<const PlanarPoint> points, std::span<int> triangles)
{
    TriangleMesh(points, triangles).Improve();
}
