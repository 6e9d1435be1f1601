#include "objimport/exchange/drawing_losses.h"

#include "objimport/exchange/counted.h"

void DrawingLosses::Note(const ObjectDrawing& drawing)
{
    if (drawing.isCoarse)
        ++(drawing.kind == ObjectDrawing::Kind::Line ? m_coarseLines : m_coarseSurfaces);
    if (drawing.facesWithout > 0)
        m_facesWithout[drawing.whyWithout] += drawing.facesWithout;
}

void DrawingLosses::AppendTo(std::vector<std::string>& losses) const
{
    for (const auto& [why, count] : m_facesWithout)
        losses.push_back(Counted(count, "face of a brep is", "faces of breps are") +
                         " left out: " + why);
    if (m_coarseLines > 0)
        losses.push_back(Counted(m_coarseLines, "curve is", "curves are") +
                         " not followed within the tolerance: it would take too many points");
    if (m_coarseSurfaces > 0)
        losses.push_back(Counted(m_coarseSurfaces, "surface is", "surfaces are") +
                         " not followed within the tolerance: it would take too many triangles");
}
