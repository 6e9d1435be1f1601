#pragma once

#include "host/geokit/mesh.h"
#include "host/runtime/work_sharing.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

/// The corners of a face by their topological vertices.
struct FaceCorners
{
    int a;
    int b;
    int c;
    int d; ///< of a triangle: a
    bool isTriangle;

    template <class VertexOf>
    FaceCorners(const GK_MeshFace& face, const VertexOf& vertexOf)
        : a(vertexOf(face.vi[0])), b(vertexOf(face.vi[1])), c(vertexOf(face.vi[2])),
          d(face.IsTriangle() ? a : vertexOf(face.vi[3])), isTriangle(face.IsTriangle())
    {
    }

    /// Two of the corners are one, so that sides can be points or lie on each other.
    [[nodiscard]] bool Touch() const
    {
        return a == b || b == c || c == d || a == c || (!isTriangle && (d == a || d == b));
    }

    /// Calls `use` with the lower and the upper end of each edge, once for each edge.
    template <class Use>
    void ForEachEdge(const Use& use) const
    {
        if (Touch())
            return ForEachEdgeOnce(use);
        UseEdge(a, b, use);
        UseEdge(b, c, use);
        UseEdge(c, d, use);
        if (!isTriangle)
            UseEdge(d, a, use);
    }

private:
    template <class Use>
    static void UseEdge(int from, int to, const Use& use)
    {
        use(std::min(from, to), std::max(from, to));
    }

    template <class Use>
    void ForEachEdgeOnce(const Use& use) const
    {
        const std::array<int, 4> corners{a, b, c, d};
        std::array<std::pair<int, int>, 4> edges;
        std::size_t count = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const std::pair<int, int> edge = std::minmax({corners[i], corners[(i + 1) % 4]});
            if (edge.first == edge.second ||
                std::count(edges.data(), edges.data() + count, edge) > 0)
                continue;
            edges[count++] = edge;
            use(edge.first, edge.second);
        }
    }
};

/// The edges of faces, each with its lower and its upper end, in buckets by their lower ends: a
/// bucket is small enough for a processor's own memory, so that its edges are sorted quickly
/// wherever they stand in the mesh. Threads fill different parts of it at the same time.
class EdgeBuckets
{
public:
    /// For `vertexCount` vertices and so many parts.
    EdgeBuckets(int vertexCount, std::size_t partCount);

    [[nodiscard]] std::size_t Count() const { return m_bucketCount; }

    /// Counts an edge of a part; then, after MakeRoom, puts it there.
    void CountEdge(std::size_t part, int lower) { ++PlaceOf(part, lower); }
    void PutEdge(std::size_t part, int lower, int upper)
    {
        const std::size_t place = PlaceOf(part, lower)++;
        m_lowers[place] = static_cast<std::uint16_t>(lower & (BucketSize - 1));
        m_uppers[place] = upper;
    }

    /// Makes room for all edges that were counted.
    void MakeRoom();

    /// Returns whether each edge of a bucket is there twice and not more often.
    [[nodiscard]] bool AllInPairs(std::size_t bucket) const;

private:
    static constexpr int BucketBits = 14;
    static constexpr int BucketSize = 1 << BucketBits;

    std::size_t& PlaceOf(std::size_t part, int lower)
    {
        return m_places[part * m_bucketCount + static_cast<std::size_t>(lower >> BucketBits)];
    }

    std::size_t m_bucketCount;
    int m_lowersPerBucket;
    std::vector<std::size_t> m_places; ///< by part and bucket: a count, then where edges are put
    std::vector<std::size_t> m_ends;   ///< of each bucket
    std::unique_ptr<std::uint16_t[]> m_lowers; ///< lower ends, counted from their bucket's first
    std::unique_ptr<int[]> m_uppers;
};

/// Returns whether every edge of a mesh belongs to two faces exactly. `vertexOf` returns the
/// topological vertex of a mesh vertex; all indices must be in range. `threads` may be null.
template <class VertexOf>
bool EveryEdgeHasTwoFaces(const GK_Mesh& mesh, const VertexOf& vertexOf, KelvoWorkSharing* threads)
{
    const std::size_t partCount = threads == nullptr ? 1 : threads->ThreadCount();
    const auto faceCount = static_cast<std::size_t>(mesh.FaceCount());
    EdgeBuckets edges(mesh.VertexCount(), partCount);
    const auto forEachEdge = [&](const auto& use) {
        KelvoForEachIndex(threads, partCount, [&](std::size_t part) {
            const std::size_t end = faceCount * (part + 1) / partCount;
            for (std::size_t i = faceCount * part / partCount; i < end; ++i)
                FaceCorners(mesh.faces[static_cast<int>(i)], vertexOf)
                    .ForEachEdge([&](int lower, int upper) { use(part, lower, upper); });
        });
    };
    forEachEdge(
        [&edges](std::size_t part, int lower, int /*upper*/) { edges.CountEdge(part, lower); });
    edges.MakeRoom();
    forEachEdge(
        [&edges](std::size_t part, int lower, int upper) { edges.PutEdge(part, lower, upper); });
    std::atomic<bool> allInPairs = true;
    KelvoForEachIndex(threads, edges.Count(), [&](std::size_t bucket) {
        if (allInPairs && !edges.AllInPairs(bucket))
            allInPairs = false;
    });
    return allInPairs;
}
