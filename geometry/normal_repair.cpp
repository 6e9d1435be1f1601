#include "geometry/normal_repair.h"

namespace {

/// The sums of the normals at the places of a mesh where a zero normal stands. A sum is made at the
/// first zero normal of its place and kept true from then on, so that many vertices at one place do
/// not make it be added up many times.
class NormalSums
{
public:
    explicit NormalSums(const GK_Mesh& mesh) : m_mesh(mesh), m_topology(mesh.Topology())
    {
        m_sumOfPlace.Reserve(m_topology.VertexCount());
        for (int i = 0; i < m_topology.VertexCount(); ++i)
            m_sumOfPlace.Append(-1);
    }

    /// The sum of all normals at the place of a mesh vertex, as they are now.
    GK_3fVector SumAt(int vertex)
    {
        int& sum = m_sumOfPlace[m_topology.TopologicalVertex(vertex)];
        if (sum < 0) {
            sum = m_sums.Count();
            m_sums.Append(AddUp(m_topology.TopologicalVertex(vertex)));
        }
        const GK_3dVector& total = m_sums[sum];
        return {static_cast<float>(total.x), static_cast<float>(total.y),
                static_cast<float>(total.z)};
    }

    /// A normal has changed.
    void Replace(int vertex, const GK_3fVector& before, const GK_3fVector& after)
    {
        const int sum = m_sumOfPlace[m_topology.TopologicalVertex(vertex)];
        if (sum < 0 || before == after)
            return;
        m_sums[sum] = m_sums[sum] + Widen(after) + -1.0 * Widen(before);
    }

private:
    static GK_3dVector Widen(const GK_3fVector& normal) { return {normal.x, normal.y, normal.z}; }

    [[nodiscard]] GK_3dVector AddUp(int place) const
    {
        GK_3dVector sum;
        for (const int vertex : m_topology.MeshVertices(place)) {
            if (vertex < m_mesh.normals.Count())
                sum = sum + Widen(m_mesh.normals[vertex]);
        }
        return sum;
    }

    const GK_Mesh& m_mesh;
    const GK_MeshTopology& m_topology;
    GK_SimpleArray<int> m_sumOfPlace;
    GK_SimpleArray<GK_3dVector> m_sums;
};

void MakeUnit(GK_3fVector& normal)
{
    if (!normal.IsUnitVector())
        normal.Unitize();
}

} // namespace

void RepairNormals(GK_Mesh& mesh)
{
    std::unique_ptr<NormalSums> sums;
    for (int i = 0; i < mesh.normals.Count(); ++i) {
        GK_3fVector& normal = mesh.normals[i];
        const GK_3fVector before = normal;
        if (!normal.IsZero()) {
            MakeUnit(normal);
        } else {
            if (!sums)
                sums = std::make_unique<NormalSums>(mesh);
            normal = sums->SumAt(i);
            if (normal.IsZero())
                normal = {0.0F, 0.0F, 1.0F};
            else
                normal.Unitize();
        }
        if (sums)
            sums->Replace(i, before, normal);
    }
}
