#include "geometry/brep_builder.h"

#include <algorithm>
#include <limits>

BrepBuilder::BrepBuilder(const VertexLists& lists, std::vector<CurveData>& trimCurves,
                         double tolerance)
    : m_lists(lists), m_trimCurveData(trimCurves), m_tolerance(tolerance)
{
}

std::unique_ptr<VX_Brep> BrepBuilder::MakeBrep(const SurfaceData& data)
{
    auto brep = std::make_unique<VX_Brep>();
    auto owned = std::make_unique<VX_NurbsSurface>();
    VX_NurbsSurface& surface = *owned;
    brep->AddSurface(std::move(owned));
    surface.Create(data.rational, data.order[0], data.order[1]);

    const double* values = data.values.Array();
    const TrimData* trim = data.trims.Array();
    for (const SurfaceStep& step : data.steps) {
        if (step.kind == SurfaceStep::Knots || step.kind == SurfaceStep::PatchKnots) {
            SetKnots(surface, data, step, values);
            values += step.valueCount;
            if (step.completes)
                CompleteSurface(*brep, surface, data);
            continue;
        }
        const auto type =
            step.kind == SurfaceStep::OuterLoop ? GK_BrepLoop::outer : GK_BrepLoop::inner;
        const int loop = brep->NewLoop(type, brep->Face(0)).loopIndex;
        for (int i = 0; i < step.valueCount; ++i)
            AddTrim(*brep, surface, loop, *trim++);
    }
    return brep;
}

/// Sets the knots of a direction, and how many control points they claim.
void BrepBuilder::SetKnots(VX_NurbsSurface& surface, const SurfaceData& data,
                           const SurfaceStep& step, const double* values)
{
    if (step.controlPointCount != SurfaceStep::CountStays)
        surface.SetControlPointCount(step.direction, step.controlPointCount);
    GK_SimpleArray<double> knots;
    if (step.kind == SurfaceStep::Knots) {
        knots.Reserve(step.valueCount);
        knots.Append(step.valueCount, values);
    } else if (const int degree = surface.Degree(step.direction);
               degree < GK_MOST_ORDER && degree < data.surfaceCVs.Count()) {
        // A patch of a higher degree, or of more control points than were named, is refused: its
        // knots are not needed.
        for (int i = 0; i < 2 * degree; ++i)
            knots.Append(values[i < degree ? 0 : 1]);
    }
    surface.SetKnots(step.direction, std::move(knots));
}

/// Hands the control points over and makes the face.
void BrepBuilder::CompleteSurface(VX_Brep& brep, VX_NurbsSurface& surface,
                                  const SurfaceData& data) const
{
    const GK_SimpleArray<int>& indices = data.surfaceCVs;
    const int countU = surface.ControlPointCount(0);
    const std::int64_t netSize = std::int64_t{countU} * surface.ControlPointCount(1);
    const int stride = surface.ControlPointStride();
    const std::int64_t most = std::numeric_limits<int>::max() / stride;
    // A net that is larger than the indices given is left incomplete, however large it claims to
    // be. As u runs fastest, the place of an index does not depend on the counts: when knots were
    // given before, only what is new is set.
    const int first = surface.ControlPointCapacity();
    const int last = static_cast<int>(std::min({netSize, std::int64_t{indices.Count()}, most}));
    surface.ReserveCVCapacity(last * stride);
    for (int k = first; k < last; ++k) {
        const GK_3dPoint point = m_lists.Position(indices[k]);
        const double values[] = {point.x, point.y, point.z, m_lists.VertexWeight(indices[k])};
        surface.SetCV(k % countU, k / countU,
                      surface.IsRational() ? GK::euclidean_rational : GK::not_rational, values);
    }
    brep.NewFace(0);
}
