#include "console_host/geokit/brep_repair.h"

#include "console_host/geokit/brep_join.h"
#include "console_host/geokit/brep_trims.h"

#include <algorithm>
#include <cstdio>

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
    bool Refuse(std::string reason);
    bool CheckFaces();
    bool CheckCurves();
    void DropEmptyParts();
    void NaturalOuterLoop(int face);
    bool MakeChain(GK_BrepLoop& loop);
    [[nodiscard]] bool Meet(int trim, std::size_t end, int next, std::size_t endOfNext) const;
    bool RefuseGap(const GK_BrepLoop& loop, int k);
    void Orient(GK_BrepLoop& loop);
    void BoundHoles();
    void DropUnusedParts();

    GK_Brep& m_brep;
    double m_tolerance;
    BrepRepairReport& m_report;
};

template <class... Arguments>
std::string Text(const char* format, Arguments... arguments)
{
    char text[256];
    std::snprintf(text, sizeof text, format, arguments...);
    return text;
}

std::vector<char> All(int count)
{
    std::vector<char> all(static_cast<std::size_t>(count), 1);
    return all;
}

GK_Brep::Survivors Everything(const GK_Brep& brep)
{
    return {All(brep.FaceCount()), All(brep.LoopCount()), All(brep.TrimCount()),
            All(brep.EdgeCount()), All(brep.VertexCount())};
}

bool Repair::Run()
{
    if (!CheckFaces() || !CheckCurves())
        return false;
    DropEmptyParts();
    SeparateTrimCurves(m_brep);
    for (int i = 0; i < m_brep.TrimCount(); ++i)
        AgreeWithEdge(m_brep, m_brep.Trim(i));
    for (int i = 0; i < m_brep.LoopCount(); ++i)
        if (!MakeChain(m_brep.Loop(i)))
            return false;
    JoinTrimEnds(m_brep, m_tolerance);
    for (int i = 0; i < m_brep.LoopCount(); ++i)
        Orient(m_brep.Loop(i));
    BoundHoles();
    DropUnusedParts();
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
        if (surface == nullptr)
            return Refuse("a face has no surface");
        if (!surface->IsValid(&reason))
            return Refuse(reason);
    }
    return true;
}

bool Repair::CheckCurves()
{
    std::string reason;
    for (int i = 0; i < m_brep.TrimCount(); ++i) {
        const GK_BrepTrim& trim = m_brep.Trim(i);
        const GK_Curve* curve = m_brep.TrimCurve(trim.curveIndex);
        if (curve == nullptr || !curve->IsValid(&reason) || trim.Domain().Length() == 0.0)
            return Refuse(Text("trim %d is not sound", i + 1) +
                          (reason.empty() ? "" : ": " + reason));
    }
    for (int i = 0; i < m_brep.EdgeCount(); ++i) {
        const GK_Curve* curve = m_brep.EdgeCurve(m_brep.Edge(i).curveIndex);
        if (curve == nullptr || !curve->IsValid(&reason))
            return Refuse(Text("edge %d is not sound", i + 1) +
                          (reason.empty() ? "" : ": " + reason));
    }
    return true;
}

void Repair::DropEmptyParts()
{
    GK_Brep::Survivors survivors = Everything(m_brep);
    std::vector<int> loopsOfFace(survivors.faces.size(), 0);
    for (int i = 0; i < m_brep.LoopCount(); ++i) {
        const GK_BrepLoop& loop = m_brep.Loop(i);
        if (!loop.trimIndices.IsEmpty()) {
            ++loopsOfFace[static_cast<std::size_t>(loop.faceIndex)];
            continue;
        }
        survivors.loops[static_cast<std::size_t>(i)] = 0;
        m_report.dropped.push_back(Text("%s loop %d of the brep has no trims",
                                        loop.type == GK_BrepLoop::inner ? "inner" : "outer",
                                        i + 1));
    }
    const bool bare = std::count(loopsOfFace.begin(), loopsOfFace.end(), 0) ==
                      static_cast<std::ptrdiff_t>(loopsOfFace.size());
    for (std::size_t i = 0; i < loopsOfFace.size(); ++i)
        survivors.faces[i] = loopsOfFace[i] > 0 || (bare && i == 0) ? 1 : 0;
    m_brep.Keep(survivors);
    if (bare)
        NaturalOuterLoop(0);
}

void Repair::NaturalOuterLoop(int face)
{
    int vertices[4] = {-1, -1, -1, -1};
    int edges[4] = {-1, -1, -1, -1};
    bool reversed[4] = {};
    m_brep.NewOuterLoop(face, vertices, edges, reversed);
}

bool Repair::Meet(int trim, std::size_t end, int next, std::size_t endOfNext) const
{
    const GK_BrepTrim& a = m_brep.Trim(trim);
    const GK_BrepTrim& b = m_brep.Trim(next);
    return EndsMeet(TrimSurface(m_brep, a), EndsOf(m_brep, a), end, EndsOf(m_brep, b), endOfNext,
                    m_tolerance);
}

// Turns trims that stand the wrong way round in their loop, so that each ends where the next
// starts.
bool Repair::MakeChain(GK_BrepLoop& loop)
{
    const GK_SimpleArray<int>& trims = loop.trimIndices;
    const int count = trims.Count();
    const auto follows = [&](int k, std::size_t end, std::size_t endOfNext) {
        return Meet(trims[k], end, trims[(k + 1) % count], endOfNext);
    };
    if (count > 1 && !follows(0, 1, 0) && !follows(0, 1, 1) &&
        (follows(0, 0, 0) || follows(0, 0, 1)))
        FlipTrim(m_brep, m_brep.Trim(trims[0]));
    for (int k = 0; k < count; ++k) {
        if (follows(k, 1, 0))
            continue;
        if (k + 1 == count || !follows(k, 1, 1))
            return RefuseGap(loop, k);
        FlipTrim(m_brep, m_brep.Trim(trims[k + 1]));
    }
    return true;
}

bool Repair::RefuseGap(const GK_BrepLoop& loop, int k)
{
    const int next = (k + 1) % loop.trimIndices.Count();
    const TrimEnds here = EndsOf(m_brep, m_brep.Trim(loop.trimIndices[k]));
    const TrimEnds there = EndsOf(m_brep, m_brep.Trim(loop.trimIndices[next]));
    const double gap = here.point[1].DistanceTo(there.point[0]);
    const std::string where =
        Text("loop %d does not close: trim %d ends ", loop.loopIndex + 1, k + 1);
    if (gap <= m_tolerance)
        return Refuse(where +
                      Text("where trim %d starts, but elsewhere in the parameter plane", next + 1));
    return Refuse(where + Text("%.6g away from the start of trim %d (tolerance %.6g)", gap,
                               next + 1, m_tolerance));
}

void Repair::Orient(GK_BrepLoop& loop)
{
    const double area = SignedArea(m_brep, loop);
    const bool wrong = loop.type == GK_BrepLoop::inner ? area > 0.0 : area < 0.0;
    if (!wrong)
        return;
    std::reverse(loop.trimIndices.begin(), loop.trimIndices.end());
    for (const int trim : loop.trimIndices)
        FlipTrim(m_brep, m_brep.Trim(trim));
}

void Repair::BoundHoles()
{
    for (int i = 0; i < m_brep.FaceCount(); ++i) {
        const GK_SimpleArray<int>& loops = m_brep.Face(i).loopIndices;
        const bool onlyHoles = std::all_of(loops.begin(), loops.end(), [&](int loop) {
            return m_brep.Loop(loop).type == GK_BrepLoop::inner;
        });
        if (!onlyHoles)
            continue;
        NaturalOuterLoop(i);
        GK_SimpleArray<int>& all = m_brep.Face(i).loopIndices;
        std::rotate(all.begin(), all.end() - 1, all.end());
    }
}

void Repair::DropUnusedParts()
{
    GK_Brep::Survivors survivors = Everything(m_brep);
    std::fill(survivors.edges.begin(), survivors.edges.end(), char{0});
    std::fill(survivors.vertices.begin(), survivors.vertices.end(), char{0});
    for (int i = 0; i < m_brep.TrimCount(); ++i) {
        const GK_BrepTrim& trim = m_brep.Trim(i);
        if (trim.edgeIndex >= 0)
            survivors.edges[static_cast<std::size_t>(trim.edgeIndex)] = 1;
        for (const int vertex : trim.vertexIndex)
            survivors.vertices[static_cast<std::size_t>(vertex)] = 1;
    }
    m_brep.Keep(survivors);
}

} // namespace

bool RepairBrep(GK_Brep& brep, double tolerance, BrepRepairReport& report)
{
    return Repair(brep, tolerance, report).Run();
}
