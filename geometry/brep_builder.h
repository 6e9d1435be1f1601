#pragma once

#include "objreader/freeform.h"
#include "objreader/vertex_lists.h"

#include "host/vxkit/brep.h"
#include "host/vxkit/nurbs_curve.h"
#include "host/vxkit/nurbs_surface.h"

#include <memory>
#include <vector>

/// Makes breps of surfaces and their loops.
class BrepBuilder
{
public:
    /// The lists, and the "curv2" curves of the file, must outlive the builder. `tolerance` is that
    /// of the document.
    BrepBuilder(const VertexLists& lists, std::vector<CurveData>& trimCurves, double tolerance);

    /// Returns a brep of what the statements held: its surface, a face for each time that it
    /// was complete, and the loops. Trims share neither edges nor vertices; a repair joins them.
    /// Nothing is checked.
    std::unique_ptr<VX_Brep> MakeBrep(const SurfaceData& data);

private:
    static void SetKnots(VX_NurbsSurface& surface, const SurfaceData& data, const SurfaceStep& step,
                         const double* values);
    void CompleteSurface(VX_Brep& brep, VX_NurbsSurface& surface, const SurfaceData& data) const;
    void AddTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex,
                 const TrimData& data);
    const VX_NurbsCurve& TrimCurve(int index);

    const VertexLists& m_lists;
    std::vector<CurveData>& m_trimCurveData;
    std::vector<std::unique_ptr<VX_NurbsCurve>> m_trimCurves; ///< made when they are first needed
    double m_tolerance;
};
