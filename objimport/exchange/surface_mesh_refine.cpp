#include "objimport/exchange/surface_mesh.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <unordered_map>

namespace {

using Triangle = std::array<std::uint32_t, 3>;

double DistanceToChord(const GK_3dPoint& p, const GK_3dPoint& a, const GK_3dPoint& b)
{
    const GK_3dVector chord = b - a;
    const double squared = GK_DotProduct(chord, chord);
    const double share =
        squared > 0.0 ? std::clamp(GK_DotProduct(p - a, chord) / squared, 0.0, 1.0) : 0.0;
    return p.DistanceTo(a + share * chord);
}

GK_2dPoint Between(const GK_2dPoint& a, const GK_2dPoint& b, double share)
{
    return {a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)};
}

// Halves edges until none lies farther off the surface than it may. Edges at the border of the mesh
// stay: what lies on their other side has the same points.
class Refinement
{
public:
    Refinement(SurfaceMesh& mesh, const GK_NurbsSurface& surface, double tolerance,
               std::size_t mostTriangles)
        : m_mesh(mesh), m_surface(surface), m_tolerance(tolerance), m_most(mostTriangles)
    {
    }

    bool Run()
    {
        constexpr int MostPasses = 40;
        CountEdges();
        for (int pass = 0; pass < MostPasses; ++pass) {
            const std::size_t marked = MarkEdges();
            if (marked == 0 && MarkBulges() == 0)
                return true;
            if (m_mesh.triangles.size() + 2 * marked > m_most)
                return false;
            HalveMarked();
        }
        return false;
    }

private:
    enum class State : std::uint8_t
    {
        Border, // one triangle has it
        Unchecked,
        Close,
        Marked
    };
    struct Edge
    {
        State state = State::Border;
        std::uint32_t middle = 0; // node, once it was halved
    };

    static std::uint64_t KeyOf(std::uint32_t a, std::uint32_t b)
    {
        return (std::uint64_t{std::min(a, b)} << 32U) | std::max(a, b);
    }

    void CountEdges()
    {
        m_edges.reserve(2 * m_mesh.triangles.size());
        for (const Triangle& t : m_mesh.triangles)
            for (std::size_t k = 0; k < 3; ++k) {
                const auto [edge, isNew] = m_edges.try_emplace(KeyOf(t[k], t[(k + 1) % 3]));
                if (!isNew)
                    edge->second.state = State::Unchecked;
            }
    }

    [[nodiscard]] GK_3dPoint PointAt(const GK_2dPoint& uv) const
    {
        return m_surface.PointAt(uv.x, uv.y);
    }

    [[nodiscard]] bool IsClose(std::uint32_t a, std::uint32_t b) const
    {
        const GK_2dPoint& start = m_mesh.parameters[a];
        const GK_2dPoint& end = m_mesh.parameters[b];
        return std::ranges::all_of(std::array{0.5, 0.25, 0.75}, [&](double share) {
            return DistanceToChord(PointAt(Between(start, end, share)), m_mesh.positions[a],
                                   m_mesh.positions[b]) <= m_tolerance;
        });
    }

    std::size_t MarkEdges()
    {
        std::size_t marked = 0;
        for (auto& [key, edge] : m_edges)
            if (edge.state == State::Unchecked) {
                const bool isClose = IsClose(static_cast<std::uint32_t>(key >> 32U),
                                             static_cast<std::uint32_t>(key));
                edge.state = isClose ? State::Close : State::Marked;
                marked += isClose ? 0 : 1;
            }
        return marked;
    }

    // Marks an edge of each triangle from whose middle the surface lies too far off.
    std::size_t MarkBulges()
    {
        std::size_t marked = 0;
        for (const Triangle& t : m_mesh.triangles) {
            if (IsFlatInside(t))
                continue;
            Edge* edge = LongestInnerEdge(t);
            if (edge != nullptr && edge->state == State::Close) {
                edge->state = State::Marked;
                ++marked;
            }
        }
        return marked;
    }

    [[nodiscard]] bool IsFlatInside(const Triangle& t) const
    {
        GK_2dPoint uv;
        GK_3dPoint middle;
        for (const std::uint32_t node : t) {
            const GK_2dPoint& q = m_mesh.parameters[node];
            uv = {uv.x + q.x / 3.0, uv.y + q.y / 3.0};
            middle = middle + (1.0 / 3.0) * (m_mesh.positions[node] - GK_origin);
        }
        const GK_3dVector off = PointAt(uv) - middle;
        if (off.Length() <= m_tolerance)
            return true;
        const auto side = [&](std::size_t k) {
            return m_mesh.positions[t[k]] - m_mesh.positions[t[0]];
        };
        const GK_3dVector normal = GK_CrossProduct(side(1), side(2));
        return std::abs(GK_DotProduct(off, normal)) <= m_tolerance * normal.Length();
    }

    Edge* LongestInnerEdge(const Triangle& t)
    {
        Edge* longest = nullptr;
        double most = -1.0;
        for (std::size_t k = 0; k < 3; ++k) {
            const std::uint32_t a = t[k];
            const std::uint32_t b = t[(k + 1) % 3];
            Edge& edge = m_edges.find(KeyOf(a, b))->second;
            const double length = m_mesh.positions[a].DistanceTo(m_mesh.positions[b]);
            if (edge.state != State::Border && length > most) {
                most = length;
                longest = &edge;
            }
        }
        return longest;
    }

    void HalveMarked()
    {
        std::vector<Triangle> old;
        old.swap(m_mesh.triangles);
        m_mesh.triangles.reserve(2 * old.size());
        for (const Triangle& t : old)
            HalveEdgesOf(t);
    }

    // Returns the middle of a marked edge, the same for both triangles; no node of an edge that
    // stays.
    std::uint32_t MiddleOf(std::uint32_t a, std::uint32_t b)
    {
        Edge& edge = m_edges.find(KeyOf(a, b))->second;
        if (edge.state != State::Marked)
            return None;
        if (edge.middle == 0) {
            const GK_2dPoint uv = Between(m_mesh.parameters[a], m_mesh.parameters[b], 0.5);
            edge.middle = static_cast<std::uint32_t>(m_mesh.positions.size());
            m_mesh.parameters.push_back(uv);
            m_mesh.positions.push_back(PointAt(uv));
        }
        return edge.middle;
    }

    void HalveEdgesOf(const Triangle& t)
    {
        const Triangle middles{MiddleOf(t[0], t[1]), MiddleOf(t[1], t[2]), MiddleOf(t[2], t[0])};
        const auto count = 3 - std::ranges::count(middles, None);
        std::size_t first = 0; // so that the first edge is halved, or the first two are
        while (count % 3 != 0 && (middles[first] == None || middles[(first + 2) % 3] != None))
            ++first;
        const std::uint32_t a = t[first];
        const std::uint32_t b = t[(first + 1) % 3];
        const std::uint32_t c = t[(first + 2) % 3];
        const std::uint32_t ab = middles[first];
        const std::uint32_t bc = middles[(first + 1) % 3];
        const std::uint32_t ca = middles[(first + 2) % 3];
        if (count == 0)
            m_mesh.triangles.push_back(t);
        else if (count == 1)
            AddAll({{a, ab, c}, {ab, b, c}});
        else if (count == 3)
            AddAll({{a, ab, ca}, {ab, b, bc}, {ca, bc, c}, {ab, bc, ca}});
        else
            HalveTwo({a, b, c}, ab, bc);
    }

    // Divides a triangle whose first two edges are halved, across the shorter way.
    void HalveTwo(const Triangle& t, std::uint32_t ab, std::uint32_t bc)
    {
        const auto& [a, b, c] = t;
        AddAll({{ab, b, bc}});
        if (m_mesh.positions[a].DistanceTo(m_mesh.positions[bc]) <
            m_mesh.positions[ab].DistanceTo(m_mesh.positions[c]))
            AddAll({{a, ab, bc}, {a, bc, c}});
        else
            AddAll({{a, ab, c}, {ab, bc, c}});
    }

    void AddAll(std::initializer_list<Triangle> triangles)
    {
        for (const Triangle& t : triangles) {
            m_mesh.triangles.push_back(t);
            for (std::size_t k = 0; k < 3; ++k)
                m_edges.try_emplace(KeyOf(t[k], t[(k + 1) % 3]), Edge{State::Unchecked, 0});
        }
    }

    static constexpr std::uint32_t None = ~std::uint32_t{0};

    SurfaceMesh& m_mesh;
    const GK_NurbsSurface& m_surface;
    double m_tolerance;
    std::size_t m_most;
    std::unordered_map<std::uint64_t, Edge> m_edges;
};

} // namespace

bool RefineToTolerance(SurfaceMesh& mesh, const GK_NurbsSurface& surface, double tolerance,
                       std::size_t mostTriangles)
{
    return Refinement(mesh, surface, tolerance, mostTriangles).Run();
}
