#include "host/geokit/brep.h"

#include <algorithm>

namespace {

// For each part its new index, or -1 when it goes.
std::vector<int> Renumber(const std::vector<char>& keep)
{
    std::vector<int> numbers;
    numbers.reserve(keep.size());
    int next = 0;
    for (const char kept : keep)
        numbers.push_back(kept != 0 ? next++ : -1);
    return numbers;
}

int New(const std::vector<int>& numbers, int index)
{
    return index < 0 ? -1 : numbers[static_cast<std::size_t>(index)];
}

// Replaces each index by the new one and drops those of parts that go.
void Replace(const std::vector<int>& numbers, GK_SimpleArray<int>& indices)
{
    GK_SimpleArray<int> kept;
    for (const int index : indices)
        if (New(numbers, index) >= 0)
            kept.Append(New(numbers, index));
    kept.Shrink();
    indices = std::move(kept);
}

template <class List>
void Erase(List& list, const std::vector<char>& keep)
{
    List kept;
    kept.Reserve(
        static_cast<int>(std::count_if(keep.begin(), keep.end(), [](char k) { return k != 0; })));
    std::size_t i = 0;
    for (auto& item : list)
        if (keep[i++] != 0)
            kept.Append(std::move(item));
    list = std::move(kept);
}

template <class Pointer>
std::vector<int> EraseUnused(std::vector<Pointer>& list, const std::vector<int>& used)
{
    std::vector<char> keep(list.size(), 0);
    for (const int index : used)
        if (index >= 0)
            keep[static_cast<std::size_t>(index)] = 1;
    std::vector<Pointer> kept;
    kept.reserve(static_cast<std::size_t>(std::count(keep.begin(), keep.end(), 1)));
    for (std::size_t i = 0; i < list.size(); ++i)
        if (keep[i] != 0)
            kept.push_back(std::move(list[i]));
    list = std::move(kept);
    return Renumber(keep);
}

// Takes out the curves or surfaces that no part names through `member`.
template <class Pointer, class List, class Part>
void RemoveUnused(std::vector<Pointer>& list, List& parts, int Part::*member)
{
    std::vector<int> used;
    for (const Part& part : parts)
        used.push_back(part.*member);
    const std::vector<int> numbers = EraseUnused(list, used);
    for (Part& part : parts)
        part.*member = New(numbers, part.*member);
}

} // namespace

void GK_Brep::Keep(const Survivors& survivors)
{
    const std::vector<int> faces = Renumber(survivors.faces);
    const std::vector<int> loops = Renumber(survivors.loops);
    const std::vector<int> trims = Renumber(survivors.trims);
    const std::vector<int> edges = Renumber(survivors.edges);
    const std::vector<int> vertices = Renumber(survivors.vertices);
    Erase(m_faces, survivors.faces);
    Erase(m_loops, survivors.loops);
    Erase(m_trims, survivors.trims);
    Erase(m_edges, survivors.edges);
    Erase(m_vertices, survivors.vertices);
    for (GK_BrepFace& face : m_faces) {
        face.faceIndex = New(faces, face.faceIndex);
        Replace(loops, face.loopIndices);
    }
    for (GK_BrepLoop& loop : m_loops) {
        loop.loopIndex = New(loops, loop.loopIndex);
        loop.faceIndex = New(faces, loop.faceIndex);
        Replace(trims, loop.trimIndices);
    }
    for (GK_BrepTrim& trim : m_trims) {
        trim.trimIndex = New(trims, trim.trimIndex);
        trim.loopIndex = New(loops, trim.loopIndex);
        trim.edgeIndex = New(edges, trim.edgeIndex);
        for (int& vertex : trim.vertexIndex)
            vertex = New(vertices, vertex);
    }
    for (GK_BrepEdge& edge : m_edges) {
        edge.edgeIndex = New(edges, edge.edgeIndex);
        Replace(trims, edge.trimIndices);
        for (int& vertex : edge.vertexIndex)
            vertex = New(vertices, vertex);
    }
    for (GK_BrepVertex& vertex : m_vertices)
        vertex.vertexIndex = New(vertices, vertex.vertexIndex);
    RemoveUnused(m_surfaces, m_faces, &GK_BrepFace::surfaceIndex);
    RemoveUnused(m_trimCurves, m_trims, &GK_BrepTrim::curveIndex);
    RemoveUnused(m_edgeCurves, m_edges, &GK_BrepEdge::curveIndex);
}
