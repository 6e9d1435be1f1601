#include "console_host/geokit/equal_positions.h"

#include "host/geokit/mesh.h"

GK_MeshTopology::GK_MeshTopology(std::span<const GK_3fPoint> vertices)
    : m_vertexMap(FirstEqualPositions(vertices))
{
    const int count = m_vertexMap.Count();
    int topologicalCount = 0;
    for (int i = 0; i < count; ++i) {
        const int first = m_vertexMap[i];
        m_vertexMap[i] = first == i ? topologicalCount++ : m_vertexMap[first];
    }

    m_first.SetCount(topologicalCount + 1);
    for (const int vertex : m_vertexMap)
        ++m_first[vertex];
    int sum = 0;
    for (int& end : m_first)
        end = sum += end;
    // Filled from behind, each end moves down to its topological vertex's beginning.
    m_members.SetCount(count);
    for (int i = count - 1; i >= 0; --i)
        m_members[--m_first[m_vertexMap[i]]] = i;
}

std::span<const int> GK_MeshTopology::MeshVertices(int topologicalVertex) const
{
    return {m_members.begin() + m_first[topologicalVertex],
            m_members.begin() + m_first[topologicalVertex + 1]};
}
