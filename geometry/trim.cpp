#include "geometry/brep_builder.h"
#include "geometry/freeform_curve.h"

/// Returns a "curv2" curve of the file. Copies of it share its storage.
const VX_NurbsCurve& BrepBuilder::TrimCurve(int index)
{
    const auto place = static_cast<std::size_t>(index);
    m_trimCurves.resize(m_trimCurveData.size());
    if (m_trimCurves[place] == nullptr)
        m_trimCurves[place] = MakeCurve(m_trimCurveData[place]);
    return *m_trimCurves[place];
}

void BrepBuilder::AddTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex,
                          const TrimData& data)
{
    const GK_Interval part(data.from, data.to);
    auto curve2d = std::make_unique<VX_NurbsCurve>(TrimCurve(data.curve));
    std::unique_ptr<GK_Curve> curve3d = surface.Pushup(*curve2d, m_tolerance, &part);
    const int c2i = brep.AddTrimCurve(std::move(curve2d));
    if (curve3d == nullptr)
        return;

    const GK_3dPoint startPoint = curve3d->PointAtStart();
    const GK_3dPoint endPoint = curve3d->PointAtEnd();
    const bool isClosed = curve3d->IsClosed();
    const int c3i = brep.AddEdgeCurve(std::move(curve3d));
    const int start = brep.NewVertex(startPoint, m_tolerance).vertexIndex;
    const int end = isClosed ? start : brep.NewVertex(endPoint, m_tolerance).vertexIndex;
    GK_BrepEdge& edge =
        brep.NewEdge(brep.Vertex(start), brep.Vertex(end), c3i, &part, GK_UNSET_VALUE);
    GK_BrepTrim& trim = brep.NewTrim(edge, 1, brep.Loop(loopIndex), c2i);
    trim.SetDomain(part);
    trim.reversed = isClosed ? trim.Domain().IsIncreasing() == edge.Domain().IsDecreasing()
                             : trim.vertexIndex[0] == edge.vertexIndex[0];
}
