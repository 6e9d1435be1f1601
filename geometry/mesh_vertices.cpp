#include "geometry/mesh_vertices.h"

#include <algorithm>

namespace {

/// A list of a mesh that has a value for each vertex, or none at all.
template <class T>
class VertexValues
{
public:
    /// The values come from `source`, none when that is empty.
    VertexValues(GK_SimpleArray<T>& values, const GK_SimpleArray<T>& source, int vertexCount)
        : m_values(values), m_source(source), m_isComplete(!source.IsEmpty())
    {
        if (m_isComplete)
            m_values.AppendUnset(vertexCount);
    }

    /// The file has such values.
    [[nodiscard]] bool Exist() const { return !m_source.IsEmpty(); }

    /// Sets a vertex's value from the element at `index`; -1 is none. False when there is no such
    /// element.
    bool Set(int vertex, int index)
    {
        if (index >= m_source.Count())
            return m_isComplete = false;
        if (index >= 0 && m_isComplete)
            m_values[vertex] = m_source[index];
        else
            m_isComplete = false;
        return true;
    }

    [[nodiscard]] bool IsComplete() const { return m_isComplete; }

private:
    GK_SimpleArray<T>& m_values;
    const GK_SimpleArray<T>& m_source;
    bool m_isComplete;
};

/// Fills the vertex lists of a mesh, one part of the corners at a time.
class VertexFiller
{
public:
    VertexFiller(const VertexLists& lists, GK_Mesh& mesh, int vertexCount)
        : m_lists(lists), m_points(mesh.vertices.AppendUnset(vertexCount)),
          m_exactPoints(mesh.DoublePrecisionVertices().AppendUnset(vertexCount)),
          m_normals(mesh.normals, lists.normals, vertexCount),
          m_texCoords(mesh.textureCoordinates, lists.texCoords, vertexCount),
          m_colors(mesh.colors, lists.vertexColors, vertexCount)
    {
    }

    void Fill(const V_TN_IDX& corner, int vertex)
    {
        // Both precisions hold the same values, so neither needs to be made of the other later.
        m_points[vertex] = m_lists.vertices[corner.vi];
        m_exactPoints[vertex] = m_lists.Position(corner.vi);
        if (m_normals.Exist() && !m_normals.Set(vertex, corner.ni))
            m_inconsistencies.Add("Bogus normal index.\n");
        else if (m_texCoords.Exist() && !m_texCoords.Set(vertex, corner.ti))
            m_inconsistencies.Add("Bogus texture index.\n");
        else if (m_colors.Exist() && !m_colors.Set(vertex, corner.vi))
            m_inconsistencies.Add("Bogus color index.\n");
    }

    /// Empties the lists in which a vertex of this part has no value.
    void DropIncomplete(GK_Mesh& mesh) const
    {
        if (!m_normals.IsComplete())
            mesh.normals.Destroy();
        if (!m_texCoords.IsComplete())
            mesh.textureCoordinates.Destroy();
        if (!m_colors.IsComplete())
            mesh.colors.Destroy();
    }

    [[nodiscard]] const Inconsistencies& Found() const { return m_inconsistencies; }

private:
    const VertexLists& m_lists;
    GK_3fPoint* m_points;
    GK_3dPoint* m_exactPoints;
    VertexValues<GK_3fVector> m_normals;
    VertexValues<GK_2fPoint> m_texCoords;
    VertexValues<GK_Color> m_colors;
    Inconsistencies m_inconsistencies;
};

int CountBefore(const std::vector<V_TN_IDX>& corners, int position)
{
    return static_cast<int>(
        std::count_if(corners.begin(), corners.end(),
                      [position](const V_TN_IDX& corner) { return corner.vi < position; }));
}

} // namespace

void MakeMeshVertices(DistinctCorners& corners, const VertexLists& lists, KelvoWorkSharing* team,
                      GK_Mesh& mesh, Inconsistencies& inconsistencies)
{
    // Every part has a filler of its own, a copy of the first, which has made the lists.
    std::vector<VertexFiller> parts(corners.PartCount(),
                                    VertexFiller(lists, mesh, corners.Count()));
    KelvoForEachIndex(team, parts.size(), [&](std::size_t i) {
        corners.NumberPart(i, [filler = &parts[i]](const V_TN_IDX& corner, int vertex) {
            filler->Fill(corner, vertex);
        });
    });

    const std::vector<V_TN_IDX>& without = corners.WithoutPosition();
    const int before = CountBefore(without, 0);
    inconsistencies.Add("Bogus vertex index.\n", before);
    for (const VertexFiller& part : parts) {
        inconsistencies.Add(part.Found());
        part.DropIncomplete(mesh);
    }
    inconsistencies.Add("Bogus vertex index.\n", static_cast<int>(without.size()) - before);
}
