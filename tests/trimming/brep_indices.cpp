#include "tests/trimming/brep_indices.h"

#include <algorithm>

namespace {

class IndexWalk
{
public:
    explicit IndexWalk(const GK_Brep& brep) : m_brep(brep) {}

    std::vector<std::string> Run()
    {
        Require(m_brep.FaceCount() > 0, "the brep has no face");
        CheckOwnIndices();
        for (int i = 0; i < m_brep.FaceCount(); ++i)
            CheckFace(i);
        for (int i = 0; i < m_brep.LoopCount(); ++i)
            CheckLoop(i);
        if (m_faults.empty())
            for (int i = 0; i < m_brep.TrimCount(); ++i)
                CheckTrim(i);
        if (m_faults.empty())
            CheckUse();
        return std::move(m_faults);
    }

private:
    void Require(bool holds, const std::string& fault)
    {
        if (!holds)
            m_faults.push_back(fault);
    }

    static bool IsOf(int index, int count) { return index >= 0 && index < count; }

    void CheckOwnIndices()
    {
        for (int i = 0; i < m_brep.FaceCount(); ++i)
            Require(m_brep.Face(i).faceIndex == i, "a face has a wrong index");
        for (int i = 0; i < m_brep.LoopCount(); ++i)
            Require(m_brep.Loop(i).loopIndex == i, "a loop has a wrong index");
        for (int i = 0; i < m_brep.TrimCount(); ++i)
            Require(m_brep.Trim(i).trimIndex == i, "a trim has a wrong index");
        for (int i = 0; i < m_brep.EdgeCount(); ++i)
            Require(m_brep.Edge(i).edgeIndex == i, "an edge has a wrong index");
        for (int i = 0; i < m_brep.VertexCount(); ++i)
            Require(m_brep.Vertex(i).vertexIndex == i, "a vertex has a wrong index");
    }

    void CheckFace(int f)
    {
        const GK_BrepFace& face = m_brep.Face(f);
        const std::string name = "face " + std::to_string(f);
        Require(m_brep.Surface(face.surfaceIndex) != nullptr, name + " has no surface");
        Require(face.LoopCount() > 0, name + " has no loop");
        for (const int loop : face.loopIndices)
            Require(IsOf(loop, m_brep.LoopCount()) && m_brep.Loop(loop).faceIndex == f,
                    name + " names a loop that does not name it");
    }

    void CheckLoop(int l)
    {
        const GK_BrepLoop& loop = m_brep.Loop(l);
        const std::string name = "loop " + std::to_string(l);
        Require(loop.type == GK_BrepLoop::outer || loop.type == GK_BrepLoop::inner,
                name + " has no type");
        Require(!loop.trimIndices.IsEmpty(), name + " has no trims");
        if (!IsOf(loop.faceIndex, m_brep.FaceCount()))
            return Require(false, name + " has no face");
        const auto& loops = m_brep.Face(loop.faceIndex).loopIndices;
        Require(std::count(loops.begin(), loops.end(), l) == 1,
                name + " is not named once by its face");
        for (const int trim : loop.trimIndices)
            Require(IsOf(trim, m_brep.TrimCount()) && m_brep.Trim(trim).loopIndex == l,
                    name + " names a trim that does not name it");
    }

    void CheckTrim(int t)
    {
        const GK_BrepTrim& trim = m_brep.Trim(t);
        const std::string name = "trim " + std::to_string(t);
        if (!IsOf(trim.loopIndex, m_brep.LoopCount()))
            return Require(false, name + " has no loop");
        const auto& trims = m_brep.Loop(trim.loopIndex).trimIndices;
        Require(std::count(trims.begin(), trims.end(), t) == 1,
                name + " is not named once by its loop");
        const GK_Curve* curve = m_brep.TrimCurve(trim.curveIndex);
        Require(curve != nullptr && trim.ProxyCurve() == curve, name + " is not on its 2D curve");
        std::string reason;
        Require(trim.IsValid(&reason), name + ": " + reason);
        for (const int vertex : trim.vertexIndex)
            Require(IsOf(vertex, m_brep.VertexCount()), name + " has no vertex");
        if (trim.edgeIndex < 0)
            return;
        if (trim.edgeIndex >= m_brep.EdgeCount())
            return Require(false, name + " has an edge that is not there");
        const auto& users = m_brep.Edge(trim.edgeIndex).trimIndices;
        Require(std::count(users.begin(), users.end(), t) == 1,
                name + " is not named once by its edge");
    }

    void CheckUse()
    {
        std::vector<bool> used(static_cast<std::size_t>(m_brep.VertexCount()), false);
        for (int i = 0; i < m_brep.TrimCount(); ++i)
            for (const int vertex : m_brep.Trim(i).vertexIndex)
                used[static_cast<std::size_t>(vertex)] = true;
        Require(std::count(used.begin(), used.end(), false) == 0, "a vertex has no trim");
        for (int i = 0; i < m_brep.EdgeCount(); ++i)
            CheckEdge(i);
    }

    void CheckEdge(int e)
    {
        const GK_BrepEdge& edge = m_brep.Edge(e);
        const std::string name = "edge " + std::to_string(e);
        const int uses = edge.trimIndices.Count();
        Require(uses == 1 || uses == 2, name + " has " + std::to_string(uses) + " trims");
        for (const int trim : edge.trimIndices)
            Require(IsOf(trim, m_brep.TrimCount()) && m_brep.Trim(trim).edgeIndex == e,
                    name + " names a trim that does not name it");
        const GK_Curve* curve = m_brep.EdgeCurve(edge.curveIndex);
        Require(curve != nullptr && edge.ProxyCurve() == curve, name + " is not on its 3D curve");
        std::string reason;
        Require(edge.IsValid(&reason), name + ": " + reason);
        Require(edge.Domain().IsIncreasing(), name + " has a domain that does not increase");
    }

    const GK_Brep& m_brep;
    std::vector<std::string> m_faults;
};

} // namespace

std::vector<std::string> IndexFaultsOf(const GK_Brep& brep)
{
    return IndexWalk(brep).Run();
}
