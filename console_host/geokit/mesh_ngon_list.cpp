#include "host/geokit/mesh.h"

#include <algorithm>
#include <limits>
#include <new>

GK_MeshNgon GK_MeshNgonList::AddNgon(int vertexCount)
{
    constexpr int Largest = std::numeric_limits<int>::max();
    const int first = m_indices.Count();
    if (vertexCount > (Largest - first) / 2)
        throw std::bad_alloc();
    const int faceCount = vertexCount - 2;
    const int needed = first + vertexCount + faceCount;
    if (needed > m_indices.Capacity())
        m_indices.Reserve(std::max(needed, first > Largest / 2 ? Largest : 2 * first));
    m_ngons.Append({.first = first, .vertexCount = vertexCount, .faceCount = faceCount});
    m_indices.SetCount(needed);
    std::fill(m_indices.begin() + first, m_indices.end(), -1);
    return Ngon(m_ngons.Count() - 1);
}

GK_MeshNgon GK_MeshNgonList::Ngon(int index)
{
    const Place& place = m_ngons[index];
    int* const vertices = m_indices.Array() + place.first;
    return {.vi = {vertices, static_cast<std::size_t>(place.vertexCount)},
            .fi = {vertices + place.vertexCount, static_cast<std::size_t>(place.faceCount)}};
}

GK_MeshConstNgon GK_MeshNgonList::Ngon(int index) const
{
    const Place& place = m_ngons[index];
    const int* const vertices = m_indices.Array() + place.first;
    return {.vi = {vertices, static_cast<std::size_t>(place.vertexCount)},
            .fi = {vertices + place.vertexCount, static_cast<std::size_t>(place.faceCount)}};
}

void GK_MeshNgonList::RemoveEmpty()
{
    const auto* const end = std::remove_if(m_ngons.begin(), m_ngons.end(),
                                           [](const Place& place) { return place.faceCount == 0; });
    m_ngons.SetCount(static_cast<int>(end - m_ngons.begin()));
}

void GK_MeshNgonList::Reverse()
{
    for (int i = 0; i < Count(); ++i) {
        const std::span<int> vertices = Ngon(i).vi;
        std::reverse(vertices.begin() + 1, vertices.end());
    }
}
