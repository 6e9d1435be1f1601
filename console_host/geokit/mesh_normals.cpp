#include "console_host/geokit/mesh_positions.h"

#include <cmath>

namespace {

/// Faces are taken block by block, so that the square roots and divisions of many of them overlap.
constexpr int BlockSize = 256;

/// One vector for each face of a block.
struct FaceVectors
{
    std::array<double, BlockSize> x;
    std::array<double, BlockSize> y;
    std::array<double, BlockSize> z;

    void Set(std::size_t i, const GK_3dVector& vector)
    {
        x[i] = vector.x;
        y[i] = vector.y;
        z[i] = vector.z;
    }

    [[nodiscard]] GK_3dVector Get(std::size_t i) const { return {x[i], y[i], z[i]}; }
};

bool SquareIsOrdinary(double squared)
{
    // Beyond these the squares overflow or lose digits.
    return squared > 1e-280 && squared < 1e280;
}

/// Returns the unit vector of any vector; zero when it is zero or not finite.
GK_3dVector ScaledUnitVector(const GK_3dVector& vector)
{
    const double largest = std::max({std::abs(vector.x), std::abs(vector.y), std::abs(vector.z)});
    if (!(largest > 0.0) || !std::isfinite(largest))
        return {};
    const GK_3dVector scaled{vector.x / largest, vector.y / largest, vector.z / largest};
    const double length = std::sqrt(GK_DotProduct(scaled, scaled));
    return std::isfinite(length) ? (1.0 / length) * scaled : GK_3dVector{};
}

/// The cross product of two edges of a triangle or of the diagonals of a quad.
template <class Position>
GK_3dVector AreaVector(const GK_MeshFace& face, const Position& position)
{
    const GK_3dPoint a = position(face.vi[0]);
    const GK_3dPoint b = position(face.vi[1]);
    const GK_3dPoint c = position(face.vi[2]);
    return face.IsTriangle() ? GK_CrossProduct(b - a, c - a)
                             : GK_CrossProduct(c - a, position(face.vi[3]) - b);
}

void MakeUnit(FaceVectors& vectors, std::size_t count)
{
    std::array<double, BlockSize> squares;
    for (std::size_t i = 0; i < count; ++i)
        squares[i] =
            vectors.x[i] * vectors.x[i] + vectors.y[i] * vectors.y[i] + vectors.z[i] * vectors.z[i];
    for (std::size_t i = 0; i < count; ++i)
        if (!SquareIsOrdinary(squares[i])) {
            vectors.Set(i, ScaledUnitVector(vectors.Get(i)));
            squares[i] = 1.0;
        }
    for (std::size_t i = 0; i < count; ++i) {
        const double scale = 1.0 / std::sqrt(squares[i]);
        vectors.x[i] *= scale;
        vectors.y[i] *= scale;
        vectors.z[i] *= scale;
    }
}

void Add(GK_3dVector& sum, const GK_3dVector& vector)
{
    sum.x += vector.x;
    sum.y += vector.y;
    sum.z += vector.z;
}

/// The vertices whose normals one thread computes, from all faces in their order.
struct VertexRange
{
    int begin;
    int end;

    [[nodiscard]] bool Holds(int vertex) const { return vertex >= begin && vertex < end; }

    [[nodiscard]] bool HoldsOneOf(const GK_MeshFace& face) const
    {
        return Holds(face.vi[0]) || Holds(face.vi[1]) || Holds(face.vi[2]) || Holds(face.vi[3]);
    }
};

/// Adds a face's unit normal to each of its vertices in the range once. A triangle that names a
/// vertex twice has no area, so that nothing is added twice.
void AddToVertices(const GK_MeshFace& face, const GK_3dVector& normal, const VertexRange& range,
                   GK_3dVector* sums)
{
    const auto [a, b, c, d] = face.vi;
    const bool quad = face.IsQuad();
    if (range.Holds(a))
        Add(sums[a], normal);
    if (range.Holds(b) && (!quad || b != a))
        Add(sums[b], normal);
    if (range.Holds(c) && (!quad || c != b))
        Add(sums[c], normal);
    if (range.Holds(d) && quad && d != a)
        Add(sums[d], normal);
}

GK_3fVector NormalOfSum(const GK_3dVector& sum)
{
    const double squared = GK_DotProduct(sum, sum);
    const GK_3dVector unit =
        SquareIsOrdinary(squared) ? (1.0 / std::sqrt(squared)) * sum : ScaledUnitVector(sum);
    if (unit == GK_3dVector{})
        return {0.0F, 0.0F, 1.0F};
    return {static_cast<float>(unit.x), static_cast<float>(unit.y), static_cast<float>(unit.z)};
}

/// Sums up the unit normals of the faces at each vertex of a range.
void SumNormals(const GK_Mesh& mesh, const VertexRange& range, GK_3dVector* sums)
{
    std::fill(sums + range.begin, sums + range.end, GK_3dVector());
    WithPositions(mesh, [&](const auto& position) {
        FaceVectors unitNormals;
        std::array<const GK_MeshFace*, BlockSize> block{};
        std::size_t count = 0;
        const auto addBlock = [&] {
            for (std::size_t i = 0; i < count; ++i)
                unitNormals.Set(i, AreaVector(*block[i], position));
            MakeUnit(unitNormals, count);
            for (std::size_t i = 0; i < count; ++i)
                AddToVertices(*block[i], unitNormals.Get(i), range, sums);
            count = 0;
        };
        for (const GK_MeshFace& face : mesh.faces) {
            if (!range.HoldsOneOf(face) || !IndicesInRange(face, mesh.VertexCount()))
                continue;
            block[count++] = &face;
            FetchCorners(face, mesh.VertexCount(), position);
            for (const int vertex : face.vi)
                __builtin_prefetch(sums + vertex, 1);
            if (count == BlockSize)
                addBlock();
        }
        addBlock();
    });
}

} // namespace

void GK_Mesh::ComputeVertexNormals(KelvoWorkSharing* threads)
{
    // A vertex may have a million faces, too many for sums in single precision.
    GK_SimpleArray<GK_3dVector> sums;
    sums.AppendUnset(VertexCount());
    normals.Empty();
    normals.AppendUnset(VertexCount());
    // Each thread takes vertices, not faces, so that sums are made in the order of the faces.
    const std::int64_t rangeCount = threads == nullptr ? 1 : threads->ThreadCount();
    KelvoForEachIndex(threads, static_cast<std::size_t>(rangeCount), [&](std::size_t i) {
        const auto place = [&](std::int64_t range) {
            return static_cast<int>(VertexCount() * range / rangeCount);
        };
        const auto index = static_cast<std::int64_t>(i);
        const VertexRange range{place(index), place(index + 1)};
        SumNormals(*this, range, sums.Array());
        std::transform(sums.begin() + range.begin, sums.begin() + range.end,
                       normals.begin() + range.begin, NormalOfSum);
    });
}
