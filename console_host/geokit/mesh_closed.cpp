#include "console_host/geokit/equal_positions.h"
#include "console_host/geokit/mesh_positions.h"

#include <memory>
#include <vector>

namespace {

/// When every edge belongs to two faces, the exclusive or over all sides of all faces, of a value
/// that both sides of an edge have in common, is 0. Another result proves the mesh open without a
/// table of edges. A mesh with a face that names a vertex that is not there is not closed either.
bool MayBeClosed(const GK_Mesh& mesh)
{
    std::uint64_t sum = 0;
    bool undecided = false;
    for (const GK_MeshFace& face : mesh.faces) {
        if (!IndicesInRange(face, mesh.VertexCount()))
            return false;
        const auto hash = [&](std::size_t i) { return PositionHash(mesh.vertices[face.vi[i]]); };
        const bool triangle = face.IsTriangle();
        const std::uint64_t a = hash(0);
        const std::uint64_t b = hash(1);
        const std::uint64_t c = hash(2);
        const std::uint64_t d = triangle ? a : hash(3);
        // The sides of a face that may touch itself need not be edges of their own.
        undecided |= a == b || b == c || c == d || a == c || (!triangle && (d == a || d == b));
        sum ^= (a * b) ^ (b * c) ^ (c * d) ^ (triangle ? 0 : d * a);
    }
    return sum == 0 || undecided;
}

template <class Use>
void UseEdge(int a, int b, const Use& use)
{
    use(static_cast<std::size_t>(std::min(a, b)), std::max(a, b));
}

/// For a face of which corners are one: sides can be points or lie on each other.
template <class Use>
void ForEachEdgeOfFoldedFace(const std::array<int, 4>& corners, const Use& use)
{
    std::array<std::pair<int, int>, 4> edges;
    std::size_t count = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::pair<int, int> edge = std::minmax({corners[i], corners[(i + 1) % 4]});
        if (edge.first == edge.second || std::count(edges.data(), edges.data() + count, edge) > 0)
            continue;
        edges[count++] = edge;
        UseEdge(edge.first, edge.second, use);
    }
}

/// Calls `use` with the lower and the upper end of each edge of a face, once for each edge.
template <class Use>
void ForEachEdge(const GK_MeshFace& face, const GK_SimpleArray<int>& topologicalVertices,
                 const Use& use)
{
    const bool triangle = face.IsTriangle();
    const int a = topologicalVertices[face.vi[0]];
    const int b = topologicalVertices[face.vi[1]];
    const int c = topologicalVertices[face.vi[2]];
    const int d = triangle ? a : topologicalVertices[face.vi[3]];
    if (a == b || b == c || c == d || a == c || (!triangle && (d == a || d == b))) {
        ForEachEdgeOfFoldedFace({a, b, c, d}, use);
        return;
    }
    UseEdge(a, b, use);
    UseEdge(b, c, use);
    UseEdge(c, d, use);
    if (!triangle)
        UseEdge(d, a, use);
}

/// Every one of the values, an even number of them, stands twice and not more often. Sorts them.
bool AllInPairs(std::span<int> values)
{
    std::sort(values.begin(), values.end());
    for (std::size_t i = 0; i < values.size(); i += 2) {
        const bool more = i + 2 < values.size() && values[i + 1] == values[i + 2];
        if (values[i] != values[i + 1] || more)
            return false;
    }
    return true;
}

/// Collects for each lower end of an edge the upper ends, one for each face.
bool EveryEdgeHasTwoFaces(const GK_Mesh& mesh)
{
    const GK_SimpleArray<int> topologicalVertices =
        FirstEqualPositions(std::span(mesh.vertices.begin(), mesh.vertices.end()));
    std::vector<std::size_t> ends(static_cast<std::size_t>(mesh.VertexCount()) + 1);
    for (const GK_MeshFace& face : mesh.faces)
        ForEachEdge(face, topologicalVertices,
                    [&ends](std::size_t lower, int /*upper*/) { ++ends[lower]; });
    std::size_t sum = 0;
    for (std::size_t& end : ends) {
        if (end % 2 != 0)
            return false;
        end = sum += end;
    }
    if (sum == 0)
        return true;
    const auto uppers = std::make_unique_for_overwrite<int[]>(sum);
    for (const GK_MeshFace& face : mesh.faces)
        ForEachEdge(face, topologicalVertices,
                    [&](std::size_t lower, int upper) { uppers[--ends[lower]] = upper; });
    for (std::size_t i = 0; i + 1 < ends.size(); ++i)
        if (!AllInPairs({uppers.get() + ends[i], ends[i + 1] - ends[i]}))
            return false;
    return true;
}

} // namespace

bool GK_Mesh::IsClosed() const
{
    return !faces.IsEmpty() && MayBeClosed(*this) && EveryEdgeHasTwoFaces(*this);
}
