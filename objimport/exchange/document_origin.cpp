#include "objimport/exchange/document_origin.h"

#include "host/geokit/brep.h"
#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The smallest and the largest coordinate in each direction.
struct Box
{
    static constexpr double Infinity = std::numeric_limits<double>::infinity();
    GK_3dPoint low{Infinity, Infinity, Infinity};
    GK_3dPoint high{-Infinity, -Infinity, -Infinity};

    void Add(const GK_3dPoint& point)
    {
        low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
    }
};

/// Adds what stands for the place of an object: its points, or the control points of a curve, or
/// the corners of a brep.
struct BoxVisitor
{
    void operator()(const GK_Mesh* mesh) const
    {
        if (mesh->DoublePrecisionVerticesAreValid())
            for (const GK_3dPoint& vertex : mesh->DoublePrecisionVertices())
                box.Add(vertex);
    }
    void operator()(const GK_Curve* curve) const
    {
        const GK_NurbsCurve bspline = curve->AsBspline();
        for (int i = 0; i < bspline.controlPointCount; ++i)
            box.Add(bspline.ControlPoint(i));
    }
    void operator()(const GK_3dPoint* point) const { box.Add(*point); }
    void operator()(const GK_PointCloud* cloud) const
    {
        for (const GK_3dPoint& point : cloud->points)
            box.Add(point);
    }
    void operator()(const GK_Brep* brep) const
    {
        for (int i = 0; i < brep->VertexCount(); ++i)
            box.Add(brep->Vertex(i).point);
    }

    Box& box;
};

/// Returns the middle of an interval, without digits that are not needed.
double Middle(double low, double high)
{
    constexpr double Large = 16.0;
    const double middle = low / 2.0 + high / 2.0;
    return std::abs(middle) > Large ? std::round(middle) : middle;
}

} // namespace

GK_3dPoint OriginForSinglePrecision(const ExchangeDocument& document)
{
    constexpr double RoundingOfOne = 0x1p-24;
    constexpr double PartOfTolerance = 0.25;
    constexpr double Near = 0.125; // less would gain less than three bits

    Box box;
    for (const ExchangeObject& object : document.objects)
        std::visit(BoxVisitor{box}, object.geometry);
    const double size =
        std::max({box.high.x - box.low.x, box.high.y - box.low.y, box.high.z - box.low.z});
    const double farthest =
        std::max({std::abs(box.low.x), std::abs(box.low.y), std::abs(box.low.z),
                  std::abs(box.high.x), std::abs(box.high.y), std::abs(box.high.z)});
    const bool isRounded = farthest * RoundingOfOne > PartOfTolerance * document.tolerance;
    if (!isRounded || !(size < Near * farthest))
        return {};
    return {Middle(box.low.x, box.high.x), Middle(box.low.y, box.high.y),
            Middle(box.low.z, box.high.z)};
}
