#include "console_host/geokit/equal_positions.h"
#include "console_host/geokit/mesh_edges.h"
#include "console_host/geokit/mesh_positions.h"

namespace {

std::uint64_t Mixed(int vertex)
{
    std::uint64_t hash = (static_cast<std::uint64_t>(vertex) + 1) * 0x9E3779B97F4A7C15;
    hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93;
    return hash ^ (hash >> 32);
}

/// When every edge belongs to two faces, the exclusive or over all sides of all faces, of a value
/// that both sides of an edge have in common, is 0. Another result proves the mesh open without a
/// table of edges. The sides of a face that touches itself need not be edges of their own: such a
/// mesh is left undecided.
template <class VertexOf>
bool MayBeClosed(const GK_Mesh& mesh, const VertexOf& vertexOf, KelvoWorkSharing* threads)
{
    std::atomic<std::uint64_t> sum = 0;
    std::atomic<bool> undecided = false;
    const GK_MeshFace* const faces = mesh.faces.Array();
    const auto faceCount = static_cast<std::size_t>(mesh.FaceCount());
    KelvoForEachRange(threads, faceCount, [&](std::size_t begin, std::size_t end) {
        std::uint64_t sumOfRange = 0;
        bool isFolded = false;
        for (std::size_t i = begin; i < end; ++i) {
            const FaceCorners corners(faces[i], vertexOf);
            isFolded |= corners.Touch();
            const std::uint64_t a = Mixed(corners.a);
            const std::uint64_t b = Mixed(corners.b);
            const std::uint64_t c = Mixed(corners.c);
            const std::uint64_t d = corners.isTriangle ? a : Mixed(corners.d);
            sumOfRange ^= (a * b) ^ (b * c) ^ (c * d) ^ (corners.isTriangle ? 0 : d * a);
        }
        sum ^= sumOfRange;
        if (isFolded)
            undecided = true;
    });
    return sum == 0 || undecided;
}

bool AllIndicesInRange(const GK_Mesh& mesh, KelvoWorkSharing* threads)
{
    std::atomic<bool> all = true;
    const GK_MeshFace* const faces = mesh.faces.Array();
    const auto faceCount = static_cast<std::size_t>(mesh.FaceCount());
    KelvoForEachRange(threads, faceCount, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i)
            if (!IndicesInRange(faces[i], mesh.VertexCount()))
                all = false;
    });
    return all;
}

} // namespace

bool GK_Mesh::IsClosed(KelvoWorkSharing* threads) const
{
    if (faces.IsEmpty() || !AllIndicesInRange(*this, threads))
        return false;
    const auto isClosed = [&](const auto& vertexOf) {
        return MayBeClosed(*this, vertexOf, threads) &&
               EveryEdgeHasTwoFaces(*this, vertexOf, threads);
    };
    const GK_SimpleArray<int> first =
        FirstEqualPositions(std::span(vertices.begin(), vertices.end()), threads);
    if (first.IsEmpty())
        return isClosed([](int vertex) { return vertex; });
    return isClosed([map = first.Array()](int vertex) { return map[vertex]; });
}
