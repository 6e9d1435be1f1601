#include "geometry/normal_repair.h"

#include <algorithm>

namespace {

/// Sums of the normals that stand at one place. Each is made of two parts, the normals before a
/// zero one and those after it, so that nothing is ever taken away from a sum: beside a large
/// normal, a small one would be lost with it. Many vertices at one place are each added twice.
class NormalSums
{
public:
    /// Adds up what follows each zero normal.
    explicit NormalSums(const GK_Mesh& mesh) : m_mesh(mesh), m_topology(mesh.Topology())
    {
        m_sumOfPlace.SetCount(m_topology.VertexCount());
        for (int i = mesh.normals.Count() - 1; i >= 0; --i) {
            if (mesh.normals[i].IsZero())
                m_sumsAfter.Append(Sum(i));
            Add(i);
        }
        std::fill(m_sumOfPlace.begin(), m_sumOfPlace.end(), GK_3dVector());
    }

    /// The sum at the place of the next zero normal, which is that of `vertex`. All normals before
    /// it must have been added, as they are by now.
    GK_3fVector TakeSum(int vertex)
    {
        const GK_3dVector sum = Sum(vertex) + *m_sumsAfter.Last();
        m_sumsAfter.SetCount(m_sumsAfter.Count() - 1);
        return {static_cast<float>(sum.x), static_cast<float>(sum.y), static_cast<float>(sum.z)};
    }

    void Add(int vertex)
    {
        const GK_3fVector& normal = m_mesh.normals[vertex];
        Sum(vertex) = Sum(vertex) + GK_3dVector{normal.x, normal.y, normal.z};
    }

private:
    GK_3dVector& Sum(int vertex) { return m_sumOfPlace[m_topology.TopologicalVertex(vertex)]; }

    const GK_Mesh& m_mesh;
    const GK_MeshTopology& m_topology;
    GK_SimpleArray<GK_3dVector> m_sumOfPlace;
    GK_SimpleArray<GK_3dVector> m_sumsAfter; ///< that of the first zero normal last
};

void MakeUnit(GK_3fVector& normal)
{
    if (!normal.IsUnitVector())
        normal.Unitize();
}

} // namespace

void RepairNormals(GK_Mesh& mesh)
{
    const auto isZero = [](const GK_3fVector& normal) { return normal.IsZero(); };
    if (std::none_of(mesh.normals.begin(), mesh.normals.end(), isZero)) {
        std::for_each(mesh.normals.begin(), mesh.normals.end(), MakeUnit);
        return;
    }
    NormalSums sums(mesh);
    for (int i = 0; i < mesh.normals.Count(); ++i) {
        GK_3fVector& normal = mesh.normals[i];
        if (normal.IsZero())
            normal = sums.TakeSum(i);
        if (normal.IsZero())
            normal = {0.0F, 0.0F, 1.0F};
        MakeUnit(normal);
        sums.Add(i);
    }
}
