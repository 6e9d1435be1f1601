// For builds without the library that makes triangles of trimmed surfaces.

#include "objimport/exchange/brep_triangles.h"
#include "objimport/exchange/exchange_texts.h"

bool HasBrepTriangles()
{
    return false;
}

BrepTriangles TrianglesOfBrep(const GK_Brep& brep, double)
{
    BrepTriangles none;
    none.facesWithout = static_cast<std::size_t>(brep.FaceCount());
    none.faceEnds.resize(none.facesWithout);
    none.whyWithout = Say(ExchangeTexts::WithoutLibrary);
    return none;
}
