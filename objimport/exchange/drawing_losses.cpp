#include "objimport/exchange/drawing_losses.h"

#include "objimport/exchange/exchange_texts.h"

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
        losses.push_back(Counted(count, ExchangeTexts::FacesLeftOut, why));
    if (m_coarseLines > 0)
        losses.push_back(Counted(m_coarseLines, ExchangeTexts::CoarseCurves));
    if (m_coarseSurfaces > 0)
        losses.push_back(Counted(m_coarseSurfaces, ExchangeTexts::CoarseSurfaces));
}
