#include "objimport/exchange/step_seams.h"

#include <StepData_StepModel.hxx>
#include <StepGeom_SurfaceCurve.hxx>
#include <StepShape_EdgeCurve.hxx>
#include <StepShape_EdgeLoop.hxx>
#include <StepShape_OrientedEdge.hxx>

namespace {

Handle(StepShape_EdgeCurve) EdgeAt(const StepShape_EdgeLoop& loop, int index)
{
    const int count = loop.NbEdgeList();
    return Handle(StepShape_EdgeCurve)::DownCast(
        loop.EdgeListValue((index - 1) % count + 1)->EdgeElement());
}

// Returns how often the loop runs along an edge and straight back.
int TurnsOf(const StepShape_EdgeLoop& loop)
{
    int turns = 0;
    for (int i = 1; i <= loop.NbEdgeList(); ++i)
        turns += EdgeAt(loop, i) == EdgeAt(loop, i + 1) ? 1 : 0;
    return turns;
}

} // namespace

void DropPlaneCurvesAtPoles(const StepData_StepModel& model)
{
    constexpr int EdgesOfWholeSphere = 2; // its one seam, both ways
    for (int i = 1; i <= model.NbEntities(); ++i) {
        const auto loop = Handle(StepShape_EdgeLoop)::DownCast(model.Value(i));
        if (loop.IsNull() || loop->NbEdgeList() <= EdgesOfWholeSphere || TurnsOf(*loop) < 2)
            continue;
        for (int k = 1; k <= loop->NbEdgeList(); ++k) {
            const auto edge = EdgeAt(*loop, k);
            const auto curve = Handle(StepGeom_SurfaceCurve)::DownCast(edge->EdgeGeometry());
            if (!curve.IsNull())
                edge->SetEdgeGeometry(curve->Curve3d());
        }
    }
}
