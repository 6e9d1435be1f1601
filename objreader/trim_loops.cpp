#include "objreader/group_object.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

namespace {

constexpr int TokensPerTrim = 3;

/// False for what a push-up refuses at a glance.
bool CanPushUp(const VX_NurbsSurface& surface, const VX_NurbsCurve& curve, const GK_Interval& part)
{
    constexpr double RoundingOfFiles = 1e-6;
    const GK_Interval domain = curve.Domain();
    const double slack = RoundingOfFiles * domain.Length();
    return part.Min() >= domain.Min() - slack && part.Max() <= domain.Max() + slack &&
           part.Min() < part.Max() && curve.IsValid() && surface.IsValid();
}

/// What a trim took, in numbers of the copy and control points of usual degrees in space; `result`
/// is null when a push-up that was worth trying gave nothing.
double WorkOf(const VX_NurbsSurface& surface, const VX_NurbsCurve& curve,
              const GK_NurbsCurve* result)
{
    constexpr double WithoutResult = 100'000.0;
    constexpr double UsualCost = 64.0; // of a point of the image: the squares of the orders
    if (result == nullptr)
        return WithoutResult;
    double cost = 1.0;
    for (const double order : {curve.order, surface.Order(0), surface.Order(1)})
        cost += order * order / UsualCost;
    return cost * (curve.controlPointCount + result->controlPointCount);
}

} // namespace

bool CReadOBJ::ReadTrimLoop()
{
    VX_Brep* brep = CurrentBrep();
    if (brep == nullptr || brep->FaceCount() == 0)
        return false;
    const auto* surface = VX_NurbsSurface::Cast(brep->Surface(brep->Face(0).surfaceIndex));
    if (surface == nullptr || (tokenizer.TokenCount() - 1) % TokensPerTrim != 0)
        return false;
    const bool isTrim = IsKeyword(tokenizer.Token(0), "trim");
    const int loop =
        brep->NewLoop(isTrim ? GK_BrepLoop::outer : GK_BrepLoop::inner, brep->Face(0)).loopIndex;
    for (int i = 1; i < tokenizer.TokenCount(); i += TokensPerTrim)
        if (!ReadTrim(*brep, *surface, loop, i))
            return false;
    return true;
}

bool CReadOBJ::ReadTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex,
                        int firstToken)
{
    double u0 = 0.0;
    double u1 = 0.0;
    int curve = -1;
    if (!ReadReal(tokenizer.Token(firstToken), u0) ||
        !ReadReal(tokenizer.Token(firstToken + 1), u1) ||
        !ReadInteger(tokenizer.Token(firstToken + 2), curve) ||
        !ResolveIndex(curve, trimCurves.Count()))
        return false;
    if (MayTrim())
        AddTrim(brep, surface, loopIndex, curve, {u0, u1});
    return true;
}

/// Each trim takes a copy of its curve, so a few lines that name one great curve again and again
/// could ask for any amount of memory and time. What trims may take in all grows with the file.
bool CReadOBJ::MayTrim() const
{
    constexpr double ForAnyFile = 1e6;
    constexpr double ForEachPoint = 64.0;
    const double points = 1.0 * vertices.Count() + paramPoints.Count();
    return m_trimWork < ForAnyFile + ForEachPoint * points;
}

/// Trims share neither edges nor vertices; the repair of the brep joins them.
void CReadOBJ::AddTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex, int curveIndex,
                       const GK_Interval& part)
{
    auto curve2d = std::make_unique<VX_NurbsCurve>(trimCurves[curveIndex]);
    std::unique_ptr<GK_Curve> curve3d = surface.Pushup(*curve2d, tolerance, &part);
    m_trimWork += curve2d->controlPoints.Count() + curve2d->knots.Count();
    if (CanPushUp(surface, *curve2d, part))
        m_trimWork += WorkOf(surface, *curve2d, GK_NurbsCurve::Cast(curve3d.get()));
    const int c2i = brep.AddTrimCurve(std::move(curve2d));
    if (curve3d == nullptr)
        return;

    const GK_3dPoint startPoint = curve3d->PointAtStart();
    const GK_3dPoint endPoint = curve3d->PointAtEnd();
    const bool isClosed = curve3d->IsClosed();
    const int c3i = brep.AddEdgeCurve(std::move(curve3d));
    const int start = brep.NewVertex(startPoint, tolerance).vertexIndex;
    const int end = isClosed ? start : brep.NewVertex(endPoint, tolerance).vertexIndex;
    GK_BrepEdge& edge =
        brep.NewEdge(brep.Vertex(start), brep.Vertex(end), c3i, &part, GK_UNSET_VALUE);
    GK_BrepTrim& trim = brep.NewTrim(edge, 1, brep.Loop(loopIndex), c2i);
    trim.SetDomain(part);
    trim.reversed = isClosed ? trim.Domain().IsIncreasing() == edge.Domain().IsDecreasing()
                             : trim.vertexIndex[0] == edge.vertexIndex[0];
}
