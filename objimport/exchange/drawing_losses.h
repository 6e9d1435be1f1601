#pragma once

#include "objimport/exchange/object_drawing.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// Counts what drawings of objects could not show, or not as closely as was asked for.
class DrawingLosses
{
public:
    void Note(const ObjectDrawing& drawing);

    /// Appends a line for each kind of loss, with its count.
    void AppendTo(std::vector<std::string>& losses) const;

private:
    std::size_t m_coarseLines = 0;
    std::size_t m_coarseSurfaces = 0;
    std::map<std::string, std::size_t> m_facesWithout; ///< of breps, by the reason
};
