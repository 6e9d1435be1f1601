#include "console_host/geokit/brep_repair.h"

#include "console_host/geokit/brep_assembly.h"
#include "console_host/runtime/text.h"

#include <algorithm>
#include <cmath>

namespace {

class Repair
{
public:
    Repair(GK_Brep& brep, double tolerance, BrepRepairReport& report)
        : m_brep(brep), m_tolerance(tolerance > 0.0 ? tolerance : 0.0), m_report(report)
    {
    }

    bool Run();

private:
    // A face of the brep, and what it becomes.
    struct Bounded
    {
        int surface;
        ParameterPlane plane;
        BoundedFaces bounds;
    };

    bool Refuse(std::string reason);
    bool CheckFaces();
    bool CheckCurves();
    [[nodiscard]] std::vector<int> FacesToKeep() const;
    bool Bound(int face);
    [[nodiscard]] double Nearness() const;

    GK_Brep& m_brep;
    double m_tolerance;
    BrepRepairReport& m_report;
    std::vector<Bounded> m_bounded;
};

bool Repair::Run()
{
    if (!CheckFaces() || !CheckCurves())
        return false;
    for (const int face : FacesToKeep())
        if (!Bound(face))
            return false;
    BrepAssembly assembly(m_brep);
    for (const Bounded& bounded : m_bounded)
        assembly.Add(bounded.surface, bounded.plane, bounded.bounds);
    JoinTrimEnds(m_brep, Nearness());
    m_brep.RemoveUnused();
    for (int i = 0; i < m_brep.SurfaceCount(); ++i) // no more curves are pushed up onto it
        GK_NurbsSurface::Cast(m_brep.Surface(i))->DerivedData().Set(nullptr);
    return true;
}

bool Repair::Refuse(std::string reason)
{
    m_report.reason = std::move(reason);
    return false;
}

bool Repair::CheckFaces()
{
    std::string reason;
    if (m_brep.FaceCount() == 0) {
        const GK_Surface* surface = m_brep.Surface(0);
        const bool unsound = surface != nullptr && !surface->IsValid(&reason);
        return Refuse("the brep has no face" + (unsound ? ": " + reason : ""));
    }
    for (int i = 0; i < m_brep.FaceCount(); ++i) {
        const GK_Surface* surface = m_brep.Surface(m_brep.Face(i).surfaceIndex);
        if (GK_NurbsSurface::Cast(surface) == nullptr)
            return Refuse("a face has no B-spline surface");
        if (!surface->IsValid(&reason))
            return Refuse(reason);
    }
    return true;
}

// Returns why a part of a curve cannot be used, empty when it can.
std::string WhyUnsound(const GK_CurveProxy& part)
{
    std::string reason;
    const GK_Curve* curve = part.ProxyCurve();
    if (curve == nullptr)
        return "it has no curve";
    if (!curve->IsValid(&reason))
        return reason;
    const bool finite = std::isfinite(part.Domain()[0]) && std::isfinite(part.Domain()[1]);
    return finite && part.Domain().Length() != 0.0 ? "" : "its part of the curve is empty";
}

bool Repair::CheckCurves()
{
    for (int i = 0; i < m_brep.TrimCount(); ++i)
        if (const std::string reason = WhyUnsound(m_brep.Trim(i)); !reason.empty())
            return Refuse(FormatText("trim %d is not sound: ", i + 1) + reason);
    for (int i = 0; i < m_brep.EdgeCount(); ++i)
        if (const std::string reason = WhyUnsound(m_brep.Edge(i)); !reason.empty())
            return Refuse(FormatText("edge %d is not sound: ", i + 1) + reason);
    return true;
}

// Returns the faces that have a loop with trims, or the first when none has.
std::vector<int> Repair::FacesToKeep() const
{
    std::vector<int> faces;
    for (int i = 0; i < m_brep.FaceCount(); ++i) {
        const GK_SimpleArray<int>& loops = m_brep.Face(i).loopIndices;
        if (std::any_of(loops.begin(), loops.end(),
                        [&](int loop) { return !m_brep.Loop(loop).trimIndices.IsEmpty(); }))
            faces.push_back(i);
    }
    return faces.empty() ? std::vector<int>{0} : faces;
}

bool Repair::Bound(int face)
{
    const int surface = m_brep.Face(face).surfaceIndex;
    const ParameterPlane plane(*GK_NurbsSurface::Cast(m_brep.Surface(surface)), m_tolerance);
    BoundedFaces bounds = BoundFace(m_brep, m_brep.Face(face), plane, m_report);
    if (bounds.faces.empty())
        return false;
    m_bounded.push_back({surface, plane, std::move(bounds)});
    return true;
}

// Returns the distance within which ends of different loops are one place: the tolerance, or the
// rounding of files where that is less, since corners of a small or narrow model lie nearer than
// the tolerance.
double Repair::Nearness() const
{
    constexpr double RoundingOfFiles = 3e-6;
    double size = 0.0;
    for (const Bounded& bounded : m_bounded)
        size = std::max(size, bounded.plane.Size());
    return std::min(m_tolerance, RoundingOfFiles * size);
}

} // namespace

void BrepRepairReport::Drop(GK_BrepLoop::TYPE type, int number, const std::string& why)
{
    dropped.push_back(FormatText("%s loop %d of the brep ",
                                 type == GK_BrepLoop::inner ? "inner" : "outer", number) +
                      why);
}

bool RepairBrep(GK_Brep& brep, double tolerance, BrepRepairReport& report)
{
    return Repair(brep, tolerance, report).Run();
}
