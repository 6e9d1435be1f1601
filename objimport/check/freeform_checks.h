#pragma once

#include "objimport/check/findings.h"
#include "objimport/check/trim_loops.h"
#include "objreader/obj_file.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <optional>
#include <unordered_map>

/// Follows the curves and surfaces of a file, and judges them when all of their statements have
/// been read.
class FreeformChecks
{
public:
    /// The file must outlive the object.
    FreeformChecks(const ObjFile& file, double tolerance) : m_file(file), m_tolerance(tolerance) {}

    /// To be called after each "curv", "surf", "trim" and "hole" with the record that was current.
    void NoteStatement(std::size_t line, const Group_Object& record);

    /// Reports all curves and surfaces that will be refused, and loops that will be dropped.
    /// Returns how many curves and surfaces will be there.
    std::size_t Finish(CheckPlace place);

    [[nodiscard]] std::size_t CurveCount() const { return m_curves.size(); }
    [[nodiscard]] std::size_t SurfaceCount() const { return m_surfaces.size(); }

private:
    struct Curve
    {
        const Group_Object* record;
        std::size_t index;
        std::size_t line;
    };

    struct Surface
    {
        const Group_Object* record;
        std::size_t index;
        std::size_t line;
        std::vector<std::size_t> loopLines;
    };

    struct Loop
    {
        std::size_t line;
        bool isHole;
        std::vector<LoopEnds> pieces; ///< those that can be used
    };

    /// What of a record has been noted.
    struct Noted
    {
        std::size_t curves = 0;
        std::size_t surfaces = 0;
        std::size_t lastSurface = 0; ///< into the list of surfaces
        int loops = 0;               ///< of the last surface
    };

    bool CheckSurface(CheckPlace& place, const Surface& noted);
    bool CheckLoops(CheckPlace& place, const Surface& noted, const SurfaceData& data,
                    const GK_NurbsSurface& surface);
    std::vector<Loop> LoopsOf(CheckPlace& place, const Surface& noted, const SurfaceData& data);
    const GK_NurbsCurve& TrimCurve(int index);

    const ObjFile& m_file;
    double m_tolerance;
    std::vector<Curve> m_curves;
    std::vector<Surface> m_surfaces;
    std::unordered_map<const Group_Object*, Noted> m_noted;
    std::unordered_map<int, GK_NurbsCurve> m_trimCurves;
};

/// Returns why a host refuses a curve; nothing when it takes it.
std::optional<Phrase> WhyUnsoundCurve(const CurveData& data);
