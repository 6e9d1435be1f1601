#include "host/geokit/mesh.h"

#include <cstdint>

namespace {

using Marks = GK_SimpleArray<std::uint8_t>;

constexpr int Removed = -1;

/// Keeps the valid faces, marks their vertices, and gives the new index of each old face, or an
/// empty list when all of them stay.
GK_SimpleArray<int> RemoveInvalidFaces(GK_Mesh& mesh, Marks& used)
{
    const int count = mesh.FaceCount();
    GK_SimpleArray<int> newIndices;
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        const GK_MeshFace face = mesh.faces[i];
        const bool valid = face.IsValid(mesh.VertexCount(), mesh.vertices.Array());
        if (!valid && newIndices.IsEmpty()) {
            newIndices.SetCount(count);
            for (int j = 0; j < i; ++j)
                newIndices[j] = j;
        }
        if (!newIndices.IsEmpty()) {
            newIndices[i] = valid ? kept : Removed;
            mesh.faces[kept] = face;
        }
        if (!valid)
            continue;
        for (const int vertex : face.vi)
            used[vertex] = 1;
        ++kept;
    }
    mesh.faces.SetCount(kept);
    return newIndices;
}

/// Takes the faces that are gone out of the polygons, and the polygons that lose their last one.
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

/// The new index of each vertex.
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

void GK_Mesh::Compact()
{
    Marks used;
    used.SetCount(VertexCount());
    const GK_SimpleArray<int> newFaceIndices = RemoveInvalidFaces(*this, used);
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
