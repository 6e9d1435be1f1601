#include "console_host/app/soundness.h"

#include <algorithm>
#include <cmath>

namespace {

template <class Point>
bool IsFiniteTriple(const Point& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

template <class Point>
bool AreFinite(const GK_SimpleArray<Point>& points)
{
    return std::all_of(points.begin(), points.end(), IsFiniteTriple<Point>);
}

std::string WhyUnsound(const GK_Mesh& mesh)
{
    if (mesh.FaceCount() == 0)
        return "the mesh has no faces";
    // Where there are valid double-precision vertices, they are the positions; the others are their
    // roundings, which for a large one may be infinite.
    const bool finite = mesh.DoublePrecisionVerticesAreValid()
                            ? AreFinite(mesh.DoublePrecisionVertices())
                            : AreFinite(mesh.vertices);
    return finite ? "" : "the mesh has a vertex that is not finite";
}

std::string WhyUnsound(const GK_Curve& curve)
{
    std::string reason;
    return curve.IsValid(&reason) ? "" : reason;
}

std::string WhyUnsound(const GK_3dPoint& point)
{
    return IsFiniteTriple(point) ? "" : "the point is not finite";
}

std::string WhyUnsound(const GK_PointCloud& cloud)
{
    if (cloud.points.IsEmpty())
        return "the point cloud has no points";
    return AreFinite(cloud.points) ? "" : "the point cloud has a point that is not finite";
}

std::string WhyUnsound(const GK_Brep& brep)
{
    if (brep.FaceCount() == 0)
        return "the brep has no face";
    std::string reason;
    for (int i = 0; i < brep.SurfaceCount(); ++i)
        if (!brep.Surface(i)->IsValid(&reason))
            return reason;
    return {};
}

} // namespace

std::string WhyUnsound(const AnyGeometry& geometry)
{
    return std::visit(
        [](const auto* any) { return any != nullptr ? WhyUnsound(*any) : "there is no geometry"; },
        geometry);
}

void ReplaceUnsoundDirections(GK_Mesh& mesh)
{
    for (GK_3fVector& normal : mesh.normals)
        if (!IsFiniteTriple(normal))
            normal = {0.0F, 0.0F, 1.0F};
    for (GK_2fPoint& coordinates : mesh.textureCoordinates)
        if (!std::isfinite(coordinates.x) || !std::isfinite(coordinates.y))
            coordinates = {};
}
