#include "console_host/geokit/equal_positions.h"

#include "host/geokit/mesh.h"

GK_MeshTopology::GK_MeshTopology(std::span<const GK_3fPoint> vertices)
    : m_vertexMap(FirstEqualPositions(vertices))
{
    for (int i = 0; i < m_vertexMap.Count(); ++i) {
        const int first = m_vertexMap[i];
        m_vertexMap[i] = first == i ? m_count++ : m_vertexMap[first];
    }
}
