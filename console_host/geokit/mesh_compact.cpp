#include "console_host/geokit/mesh_positions.h"

#include <cstdint>

namespace {

using Marks = GK_SimpleArray<std::uint8_t>;

constexpr int Removed = -1;

/// Marks the vertices of all faces. False when a face is not valid; some may have been marked then.
bool MarkVertices(const GK_Mesh& mesh, Marks& used, KelvoWorkSharing* threads)
{
    std::atomic<bool> allValid = true;
    const auto faceCount = static_cast<std::size_t>(mesh.FaceCount());
    KelvoForEachRange(threads, faceCount, [&](std::size_t begin, std::size_t end) {
        constexpr std::size_t FacesAhead = 16;
        const Positions positions(mesh.vertices.Array());
        for (std::size_t i = begin; i < end; ++i) {
            const GK_MeshFace& face = mesh.faces[static_cast<int>(i)];
            if (i + FacesAhead < end)
                FetchCorners(mesh.faces[static_cast<int>(i + FacesAhead)], mesh.VertexCount(),
                             positions);
            if (!face.IsValid(mesh.VertexCount(), mesh.vertices.Array())) {
                allValid = false;
                return;
            }
            for (const int vertex : face.vi)
                std::atomic_ref(used[vertex]).store(1, std::memory_order_relaxed);
        }
    });
    return allValid;
}

/// Keeps the valid faces, marks their vertices, and returns the new index of each old face, or an
/// empty list when all of them stay.
GK_SimpleArray<int> RemoveInvalidFaces(GK_Mesh& mesh, Marks& used, KelvoWorkSharing* threads)
{
    if (MarkVertices(mesh, used, threads))
        return {};
    std::fill(used.begin(), used.end(), std::uint8_t{0});
    GK_SimpleArray<int> newIndices;
    newIndices.Reserve(mesh.FaceCount());
    int kept = 0;
    for (const GK_MeshFace& face : mesh.faces) {
        if (!face.IsValid(mesh.VertexCount(), mesh.vertices.Array())) {
            newIndices.Append(Removed);
            continue;
        }
        for (const int vertex : face.vi)
            used[vertex] = 1;
        newIndices.Append(kept);
        mesh.faces[kept++] = face;
    }
    mesh.faces.SetCount(kept);
    return newIndices;
}

/// Removes the faces that are gone from the polygons, and polygons left without a face.
void UpdateNgonFaces(GK_MeshNgonList& ngons, const GK_SimpleArray<int>& newIndices)
{
    for (int i = 0; i < ngons.Count(); ++i) {
        const std::span<int> faces = ngons.Ngon(i).fi;
        std::size_t kept = 0;
        for (const int face : faces)
            if (face >= 0 && face < newIndices.Count() && newIndices[face] != Removed)
                faces[kept++] = newIndices[face];
        ngons.SetFaceCount(i, static_cast<int>(kept));
    }
    ngons.RemoveEmpty();
}

void MarkNgonVertices(GK_MeshNgonList& ngons, Marks& used)
{
    for (int i = 0; i < ngons.Count(); ++i)
        for (int& vertex : ngons.Ngon(i).vi)
            if (vertex >= 0 && vertex < used.Count())
                used[vertex] = 1;
}

template <class T>
void KeepMarked(GK_SimpleArray<T>& list, const Marks& used)
{
    if (list.Count() != used.Count())
        return;
    int kept = 0;
    for (int i = 0; i < used.Count(); ++i)
        if (used[i] != 0)
            list[kept++] = list[i];
    list.SetCount(kept);
}

/// Returns the new index of each vertex.
GK_SimpleArray<int> NewVertexIndices(const Marks& used)
{
    GK_SimpleArray<int> newIndices;
    newIndices.Reserve(used.Count());
    int kept = 0;
    for (const std::uint8_t mark : used)
        newIndices.Append(mark != 0 ? kept++ : Removed);
    return newIndices;
}

} // namespace

void GK_Mesh::Compact(KelvoWorkSharing* threads)
{
    Marks used;
    used.SetCount(VertexCount());
    const GK_SimpleArray<int> newFaceIndices = RemoveInvalidFaces(*this, used, threads);
    if (m_ngons != nullptr) {
        if (!newFaceIndices.IsEmpty())
            UpdateNgonFaces(*m_ngons, newFaceIndices);
        MarkNgonVertices(*m_ngons, used);
    }
    if (colors.Count() != VertexCount())
        colors.Destroy();
    if (std::find(used.begin(), used.end(), 0) == used.end())
        return;

    m_topology.reset();
    KeepMarked(normals, used);
    KeepMarked(textureCoordinates, used);
    KeepMarked(surfaceParameters, used);
    KeepMarked(colors, used);
    KeepMarked(m_dVertices, used);
    KeepMarked(vertices, used);

    const GK_SimpleArray<int> newIndices = NewVertexIndices(used);
    for (GK_MeshFace& face : faces)
        for (int& vertex : face.vi)
            vertex = newIndices[vertex];
    for (int i = 0; m_ngons != nullptr && i < m_ngons->Count(); ++i)
        for (int& vertex : m_ngons->Ngon(i).vi)
            if (vertex >= 0 && vertex < newIndices.Count())
                vertex = newIndices[vertex];
}
