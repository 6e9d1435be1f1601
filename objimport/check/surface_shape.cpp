#include "objimport/check/surface_shape.h"

#include "objimport/check/bspline_rules.h"

#include "host/geokit/curve.h"

#include <algorithm>

namespace {

std::span<const double> SpanOf(const GK_SimpleArray<double>& array)
{
    return {array.Array(), static_cast<std::size_t>(array.Count())};
}

} // namespace

SurfaceShape::SurfaceShape(const SurfaceData& data, const VertexLists& lists)
    : m_data(data), m_lists(lists)
{
    FollowSteps();
}

void SurfaceShape::FollowSteps()
{
    const double* values = m_data.values.Array();
    for (const SurfaceStep& step : m_data.steps) {
        if (step.kind != SurfaceStep::Knots && step.kind != SurfaceStep::PatchKnots)
            continue;
        SetKnots(step, values);
        values += step.valueCount;
        if (step.completes)
            TakePoints();
    }
}

void SurfaceShape::SetKnots(const SurfaceStep& step, const double* values)
{
    const auto d = static_cast<std::size_t>(step.direction);
    if (step.controlPointCount != SurfaceStep::CountStays) {
        m_count[d] = step.controlPointCount;
        m_hasKnots[d] = true;
    }
    GK_SimpleArray<double>& knots = m_knots[d];
    knots.Empty();
    const int degree = m_data.order[d] - 1;
    if (step.kind == SurfaceStep::Knots)
        knots.Append(step.valueCount, values);
    else if (degree < GK_MOST_ORDER && degree < m_data.surfaceCVs.Count())
        for (int i = 0; i < 2 * degree; ++i)
            knots.Append(values[i < degree ? 0 : 1]);
}

/// Takes the control points that the net has room for; those taken before stay.
void SurfaceShape::TakePoints()
{
    const int stride = m_data.rational ? 4 : 3;
    const std::int64_t net = std::int64_t{m_count[0]} * m_count[1];
    const int last = static_cast<int>(std::min<std::int64_t>(net, m_data.surfaceCVs.Count()));
    for (int k = m_points.Count() / stride; k < last; ++k) {
        const int index = m_data.surfaceCVs[k];
        const GK_3dPoint point = m_lists.Position(index);
        const std::array<double, 4> values{point.x, point.y, point.z, m_lists.VertexWeight(index)};
        m_points.Append(stride, values.data());
    }
}

std::optional<Phrase> SurfaceShape::WhyUnsound() const
{
    const std::array<BsplineRow, 2> rows{
        {{m_data.order[0], m_count[0], SpanOf(m_knots[0]), " in u"},
         {m_data.order[1], m_count[1], SpanOf(m_knots[1]), " in v"}}};
    for (const BsplineRow& row : rows)
        if (auto why = WhyWrongOrder(row))
            return why;
    const std::int64_t net = std::int64_t{m_count[0]} * m_count[1];
    if (auto why = WhyWrongPoints(SpanOf(m_points), net, 3, m_data.rational))
        return why;
    for (const BsplineRow& row : rows)
        if (auto why = WhyWrongKnots(row))
            return why;
    return std::nullopt;
}

std::string SurfaceShape::DirectionsWithoutKnots() const
{
    if (!m_hasKnots[0])
        return m_hasKnots[1] ? "u" : "u, v";
    return m_hasKnots[1] ? "" : "v";
}

GK_NurbsSurface SurfaceShape::MakeSurface() const
{
    GK_NurbsSurface surface;
    surface.Create(m_data.rational, m_data.order[0], m_data.order[1]);
    for (const int d : {0, 1}) {
        surface.SetControlPointCount(d, m_count[static_cast<std::size_t>(d)]);
        surface.SetKnots(d, m_knots[static_cast<std::size_t>(d)]);
    }
    surface.ReserveCVCapacity(m_points.Count());
    const int stride = surface.ControlPointStride();
    for (int k = 0; k < m_points.Count() / stride; ++k)
        surface.SetCV(k % m_count[0], k / m_count[0],
                      m_data.rational ? GK::euclidean_rational : GK::not_rational,
                      m_points.Array() + std::ptrdiff_t{k} * stride);
    return surface;
}
