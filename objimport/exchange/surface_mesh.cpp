#include "objimport/exchange/surface_mesh.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr std::uint32_t None = ~std::uint32_t{0};

std::optional<GK_3dVector> Unit(const GK_3dVector& vector)
{
    const double length = vector.Length();
    if (!(length > 0.0) || !std::isfinite(length))
        return std::nullopt;
    return (1.0 / length) * vector;
}

// Returns the parameters of a direction at which the surface may have an edge.
std::vector<double> CreasesOf(const GK_NurbsSurface& surface, int direction)
{
    const GK_SimpleArray<double>& knots = surface.Knots(direction);
    const GK_Interval domain = surface.Domain(direction);
    const int degree = surface.Degree(direction);
    std::vector<double> creases;
    for (int i = 0; i + degree <= knots.Count(); ++i)
        if (knots[i] == knots[i + degree - 1] && knots[i] > domain[0] && knots[i] < domain[1] &&
            (creases.empty() || creases.back() != knots[i]))
            creases.push_back(knots[i]);
    return creases;
}

class Normals
{
public:
    explicit Normals(const GK_NurbsSurface& surface)
        : m_surface(surface), m_creases{CreasesOf(surface, 0), CreasesOf(surface, 1)},
          m_lengths{surface.Domain(0).Length(), surface.Domain(1).Length()}
    {
    }

    // Returns whether the normal may depend on the direction from which one comes.
    [[nodiscard]] bool IsOnCrease(const GK_2dPoint& uv) const
    {
        return IsNear(0, uv.x) || IsNear(1, uv.y);
    }

    // Returns the normal of a place, or none where the surface has collapsed in a direction.
    [[nodiscard]] std::optional<GK_3dVector> At(const GK_2dPoint& uv) const
    {
        constexpr double Collapsed = 1e-7;
        const GK_SurfacePoint at = m_surface.Evaluate(uv.x, uv.y);
        const GK_3dVector u = m_lengths[0] * at.du;
        const GK_3dVector v = m_lengths[1] * at.dv;
        const double longest = std::max(u.Length(), v.Length());
        const double shortest = std::min(u.Length(), v.Length());
        const GK_3dVector cross = GK_CrossProduct(u, v);
        if (!(shortest > Collapsed * longest) || !(cross.Length() > Collapsed * longest * shortest))
            return std::nullopt;
        return Unit(cross);
    }

    // Returns the normal of a place as it is on the way to another one nearby, or none.
    [[nodiscard]] std::optional<GK_3dVector> Towards(const GK_2dPoint& uv,
                                                     const GK_2dPoint& other) const
    {
        for (const double way : {1e-3, 1e-2, 0.1, 1.0})
            if (const auto normal =
                    At({uv.x + way * (other.x - uv.x), uv.y + way * (other.y - uv.y)}))
                return normal;
        return std::nullopt;
    }

private:
    [[nodiscard]] bool IsNear(std::size_t direction, double parameter) const
    {
        const double room = 1e-9 * m_lengths[direction];
        const std::vector<double>& creases = m_creases[direction];
        const auto next = std::lower_bound(creases.begin(), creases.end(), parameter - room);
        return next != creases.end() && *next <= parameter + room;
    }

    const GK_NurbsSurface& m_surface;
    std::array<std::vector<double>, 2> m_creases;
    std::array<double, 2> m_lengths;
};

class Appender
{
public:
    Appender(const SurfaceMesh& mesh, const GK_NurbsSurface& surface, BrepTriangles& result)
        : m_mesh(mesh), m_normals(surface), m_result(result), m_first(mesh.positions.size(), None),
          m_base(result.positions.size())
    {
    }

    void Run()
    {
        m_result.triangles.reserve(m_result.triangles.size() + m_mesh.triangles.size());
        for (const auto& triangle : m_mesh.triangles) {
            std::array<std::uint32_t, 3> corners{};
            for (std::size_t k = 0; k < corners.size(); ++k)
                corners[k] = VertexOf(triangle[k], triangle);
            m_result.triangles.push_back(corners);
        }
    }

private:
    std::uint32_t VertexOf(std::uint32_t node, const std::array<std::uint32_t, 3>& triangle)
    {
        const GK_2dPoint& uv = m_mesh.parameters[node];
        if (m_first[node] == None) {
            const bool isOnCrease = m_normals.IsOnCrease(uv);
            if (const auto normal = isOnCrease ? std::nullopt : m_normals.At(uv))
                return m_first[node] = NewVertex(node, *normal, false);
            return m_first[node] = NewVertex(node, NormalWithin(triangle, uv), true);
        }
        if (!m_hasMore[m_first[node] - m_base])
            return m_first[node];
        return Matching(node, NormalWithin(triangle, uv));
    }

    // Returns the vertex of a node that has about this normal.
    std::uint32_t Matching(std::uint32_t node, const GK_3dVector& normal)
    {
        constexpr double SameDirection = 0.9998; // cosine of about a degree
        std::uint32_t vertex = m_first[node];
        for (;;) {
            const GK_3fVector& n = m_result.normals[vertex];
            if (n.x * normal.x + n.y * normal.y + n.z * normal.z > SameDirection)
                return vertex;
            const std::uint32_t next = m_next[vertex - m_base];
            if (next == None)
                break;
            vertex = next;
        }
        const std::uint32_t fresh = NewVertex(node, normal, true);
        return m_next[vertex - m_base] = fresh;
    }

    std::uint32_t NewVertex(std::uint32_t node, const GK_3dVector& normal, bool hasMore)
    {
        const auto vertex = static_cast<std::uint32_t>(m_result.positions.size());
        m_result.positions.push_back(m_mesh.positions[node]);
        m_result.normals.push_back({static_cast<float>(normal.x), static_cast<float>(normal.y),
                                    static_cast<float>(normal.z)});
        m_next.push_back(None);
        m_hasMore.push_back(hasMore);
        return vertex;
    }

    // Returns the surface's normal at a corner of a triangle, on the side of the triangle.
    [[nodiscard]] GK_3dVector NormalWithin(const std::array<std::uint32_t, 3>& triangle,
                                           const GK_2dPoint& corner) const
    {
        GK_2dPoint middle;
        for (const std::uint32_t node : triangle) {
            middle.x += m_mesh.parameters[node].x / 3.0;
            middle.y += m_mesh.parameters[node].y / 3.0;
        }
        if (const auto normal = m_normals.Towards(corner, middle))
            return *normal;
        const auto at = [&](std::size_t k) { return m_mesh.positions[triangle[k]]; };
        return Unit(GK_CrossProduct(at(1) - at(0), at(2) - at(0))).value_or(GK_3dVector{0, 0, 1});
    }

    const SurfaceMesh& m_mesh;
    Normals m_normals;
    BrepTriangles& m_result;
    std::vector<std::uint32_t> m_first; // vertex of each node
    std::size_t m_base;
    std::vector<std::uint32_t> m_next; // of the same node, for each vertex of the mesh
    std::vector<bool> m_hasMore;
};

} // namespace

void RemoveCollapsed(SurfaceMesh& mesh)
{
    std::erase_if(mesh.triangles, [&](const std::array<std::uint32_t, 3>& triangle) {
        const GK_3dPoint& a = mesh.positions[triangle[0]];
        const GK_3dPoint& b = mesh.positions[triangle[1]];
        const GK_3dPoint& c = mesh.positions[triangle[2]];
        return a == b || b == c || c == a;
    });
}

void AppendWithNormals(const SurfaceMesh& mesh, const GK_NurbsSurface& surface,
                       BrepTriangles& result)
{
    Appender(mesh, surface, result).Run();
}
