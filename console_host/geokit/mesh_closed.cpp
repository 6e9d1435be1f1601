#include "console_host/geokit/equal_positions.h"
#include "console_host/geokit/mesh_positions.h"
#include "console_host/geokit/position_hash.h"

#include <vector>

namespace {

int CornerCount(const GK_MeshFace& face)
{
    return face.IsTriangle() ? 3 : 4;
}

enum class Screening
{
    Open,
    Unsound,
    Undecided
};

/// When every edge belongs to two faces, the exclusive or over all sides of all faces, of a value
/// that both sides of an edge have in common, is 0. Another result proves the mesh open without a
/// table of edges. A face that names a vertex that is not there is not sound.
Screening Screen(const GK_Mesh& mesh)
{
    std::uint64_t sum = 0;
    bool undecided = false;
    for (const GK_MeshFace& face : mesh.faces) {
        if (!IndicesInRange(face, mesh.VertexCount()))
            return Screening::Unsound;
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
    return sum != 0 && !undecided ? Screening::Open : Screening::Undecided;
}

/// Calls `use` with the lower and the upper end of each edge of a face, once for each edge.
template <class Use>
void ForEachEdge(const GK_MeshFace& face, const GK_SimpleArray<int>& topologicalVertices,
                 const Use& use)
{
    const std::size_t count = static_cast<std::size_t>(CornerCount(face));
    std::array<std::pair<int, int>, 4> edges;
    auto* end = edges.begin();
    for (std::size_t i = 0; i < count; ++i) {
        const int a = topologicalVertices[face.vi[i]];
        const int b = topologicalVertices[face.vi[i + 1 < count ? i + 1 : 0]];
        const std::pair<int, int> edge = std::minmax(a, b);
        if (a == b || std::find(edges.begin(), end, edge) != end)
            continue;
        *end++ = edge;
        use(edge.first, edge.second);
    }
}

/// Every value stands twice, neither less nor more often. Sorts the values.
bool AllInPairs(std::span<int> values)
{
    if (values.size() % 2 != 0)
        return false;
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
                    [&](int lower, int /*upper*/) { ++ends[static_cast<std::size_t>(lower)]; });
    std::size_t sum = 0;
    for (std::size_t& end : ends) {
        if (end % 2 != 0)
            return false;
        end = sum += end;
    }
    std::vector<int> uppers(sum);
    for (const GK_MeshFace& face : mesh.faces)
        ForEachEdge(face, topologicalVertices, [&](int lower, int upper) {
            uppers[--ends[static_cast<std::size_t>(lower)]] = upper;
        });
    for (std::size_t i = 0; i + 1 < ends.size(); ++i)
        if (!AllInPairs({uppers.data() + ends[i], ends[i + 1] - ends[i]}))
            return false;
    return true;
}

} // namespace

bool GK_Mesh::IsClosed() const
{
    return !faces.IsEmpty() && Screen(*this) == Screening::Undecided && EveryEdgeHasTwoFaces(*this);
}
