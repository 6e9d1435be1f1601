#include "objreader/group_object.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

namespace {

constexpr int TokensPerTrim = 3;

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
    AddTrim(brep, surface, loopIndex, curve, {u0, u1});
    return true;
}

/// Trims share neither edges nor vertices; the repair of the brep joins them.
void CReadOBJ::AddTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex, int curveIndex,
                       const GK_Interval& part)
{
    auto curve2d = std::make_unique<VX_NurbsCurve>(trimCurves[curveIndex]);
    std::unique_ptr<GK_Curve> curve3d = surface.Pushup(*curve2d, tolerance, &part);
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
