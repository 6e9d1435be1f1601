#include "console_host/geokit/mesh_positions.h"

#include <cmath>

namespace {

double LargestCoordinate(const GK_3dVector& v)
{
    return std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)});
}

/// The vector made unit; zero when it is zero or not finite.
GK_3dVector UnitVector(const GK_3dVector& vector)
{
    // Between these the squares neither overflow nor lose digits.
    constexpr double Smallest = 1e-280;
    constexpr double Largest = 1e280;
    const double squared = GK_DotProduct(vector, vector);
    if (squared > Smallest && squared < Largest)
        return (1.0 / std::sqrt(squared)) * vector;
    const double largest = LargestCoordinate(vector);
    if (!(largest > 0.0) || !std::isfinite(largest))
        return {};
    const GK_3dVector scaled{vector.x / largest, vector.y / largest, vector.z / largest};
    const double length = std::sqrt(GK_DotProduct(scaled, scaled));
    return std::isfinite(length) ? (1.0 / length) * scaled : GK_3dVector{};
}

/// The corners of a face in order, each vertex once: 3 or 4 of them unless the face is not sound.
int DistinctCorners(const GK_MeshFace& face, int (&corners)[4])
{
    int count = 0;
    for (const int vertex : face.vi)
        if (std::find(corners, corners + count, vertex) == corners + count)
            corners[count++] = vertex;
    return count;
}

GK_3fVector NormalOfSum(const GK_3dVector& sum)
{
    const GK_3dVector unit = UnitVector(sum);
    if (unit == GK_3dVector{})
        return {0.0F, 0.0F, 1.0F};
    return {static_cast<float>(unit.x), static_cast<float>(unit.y), static_cast<float>(unit.z)};
}

} // namespace

void GK_Mesh::ComputeVertexNormals()
{
    // A vertex may have a million faces, too many for a sum in single precision.
    GK_SimpleArray<GK_3dVector> sums;
    sums.SetCount(VertexCount());
    WithPositions(*this, [&](const auto& position) {
        for (const GK_MeshFace& face : faces) {
            if (!IndicesInRange(face, VertexCount()))
                continue;
            const GK_3dPoint a = position(face.vi[0]);
            const GK_3dPoint b = position(face.vi[1]);
            const GK_3dPoint c = position(face.vi[2]);
            const GK_3dVector normal = face.IsTriangle()
                                           ? GK_CrossProduct(b - a, c - a)
                                           : GK_CrossProduct(c - a, position(face.vi[3]) - b);
            const GK_3dVector unit = UnitVector(normal);
            int corners[4];
            const int count = DistinctCorners(face, corners);
            for (int i = 0; i < count; ++i)
                sums[corners[i]] = sums[corners[i]] + unit;
        }
    });
    normals.SetCount(VertexCount());
    std::transform(sums.begin(), sums.end(), normals.begin(), NormalOfSum);
}
