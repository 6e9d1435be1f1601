#include "host/geokit/mesh.h"

#include "console_host/geokit/equal_positions.h"
#include "console_host/geokit/mesh_positions.h"

#include <algorithm>
#include <limits>
#include <new>
#include <numeric>
#include <vector>

bool GK_MeshFace::Repair(int vertexCount, const GK_3fPoint* vertices)
{
    std::array<int, 4> kept{};
    std::size_t count = 0;
    for (const int corner : vi) {
        if (corner < 0 || corner >= vertexCount)
            return false;
        const auto repeats = [&](int earlier) {
            return earlier == corner || vertices[earlier] == vertices[corner];
        };
        if (std::none_of(kept.data(), kept.data() + count, repeats))
            kept[count++] = corner;
    }
    if (count < 3)
        return false;
    if (count == 3)
        kept[3] = kept[2];
    vi = kept;
    return true;
}

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

namespace {

/// Returns six times the volume that faces span with a point.
double SixfoldVolume(const GK_Mesh& mesh, std::span<const GK_MeshFace> faces,
                     const GK_3dPoint& basePoint)
{
    // Taken from a corner of each face, the products stay small far from the base point.
    const auto sixfold = [&](const GK_3dPoint& a, const GK_3dPoint& b, const GK_3dPoint& c) {
        return GK_DotProduct(a - basePoint, GK_CrossProduct(b - a, c - a));
    };
    return WithPositions(mesh, [&](const auto& position) {
        constexpr std::size_t FacesAhead = 16;
        double sum = 0.0;
        for (std::size_t i = 0; i < faces.size(); ++i) {
            const GK_MeshFace& face = faces[i];
            if (!IndicesInRange(face, mesh.VertexCount()))
                continue;
            if (i + FacesAhead < faces.size())
                FetchCorners(faces[i + FacesAhead], mesh.VertexCount(), position);
            const GK_3dPoint a = position(face.vi[0]);
            const GK_3dPoint c = position(face.vi[2]);
            sum += sixfold(a, position(face.vi[1]), c);
            if (face.IsQuad())
                sum += sixfold(a, c, position(face.vi[3]));
        }
        return sum;
    });
}

} // namespace

GK_MeshTopology::GK_MeshTopology(std::span<const GK_3fPoint> vertices)
    : m_vertexMap(FirstEqualPositions(vertices, nullptr))
{
    if (m_vertexMap.IsEmpty()) {
        m_count = static_cast<int>(vertices.size());
        m_vertexMap.SetCount(m_count);
        std::iota(m_vertexMap.begin(), m_vertexMap.end(), 0);
        return;
    }
    for (int i = 0; i < m_vertexMap.Count(); ++i) {
        const int first = m_vertexMap[i];
        m_vertexMap[i] = first == i ? m_count++ : m_vertexMap[first];
    }
}

bool GK_Mesh::HasVertexNormals() const
{
    return !normals.IsEmpty() && normals.Count() == VertexCount();
}

void GK_Mesh::UpdateSinglePrecisionVertices()
{
    m_topology.reset();
    vertices.SetCount(m_dVertices.Count());
    std::transform(m_dVertices.begin(), m_dVertices.end(), vertices.begin(),
                   [](const GK_3dPoint& point) { return GK_3fPoint(point); });
}

GK_MeshNgonList* GK_Mesh::ModifyNgonList()
{
    if (m_ngons == nullptr)
        m_ngons.reset(new (std::nothrow) GK_MeshNgonList);
    return m_ngons.get();
}

const GK_MeshTopology& GK_Mesh::Topology() const
{
    if (m_topology == nullptr)
        m_topology = std::make_unique<GK_MeshTopology>(std::span(vertices.begin(), vertices.end()));
    return *m_topology;
}

double GK_Mesh::Volume(const GK_3dPoint& basePoint, double* /*errorEstimate*/,
                       KelvoWorkSharing* threads) const
{
    // Parts of a fixed size have the same sum whatever the number of threads.
    constexpr std::size_t PartSize = std::size_t{1} << 16;
    const std::span all(faces.begin(), faces.end());
    std::vector<double> sums(all.size() / PartSize + 1);
    KelvoForEachIndex(threads, sums.size(), [&](std::size_t i) {
        const std::size_t first = i * PartSize;
        sums[i] = SixfoldVolume(*this, all.subspan(first, std::min(PartSize, all.size() - first)),
                                basePoint);
    });
    return std::accumulate(sums.begin(), sums.end(), 0.0) / 6.0;
}

void GK_Mesh::Flip()
{
    for (GK_MeshFace& face : faces) {
        const auto [a, b, c, d] = face.vi;
        face.vi = face.IsTriangle() ? std::array{a, c, b, b} : std::array{a, d, c, b};
    }
    if (m_ngons != nullptr)
        m_ngons->Reverse();
    // Subtracted from 0, a 0 does not become -0.
    for (GK_3fVector& normal : normals)
        normal = {0.0F - normal.x, 0.0F - normal.y, 0.0F - normal.z};
}

void GK_Mesh::Transform(const GK_Xform& xform)
{
    m_topology.reset();
    const bool exact = m_dVerticesValid && m_dVertices.Count() == VertexCount();
    for (GK_3dPoint& point : m_dVertices)
        point = xform * point;
    if (exact)
        UpdateSinglePrecisionVertices();
    else
        for (GK_3fPoint& point : vertices)
            point = GK_3fPoint(xform * GK_3dPoint{point.x, point.y, point.z});
    for (GK_3fVector& normal : normals) {
        const GK_3dVector turned = xform * GK_3dVector{normal.x, normal.y, normal.z};
        normal = {static_cast<float>(turned.x), static_cast<float>(turned.y),
                  static_cast<float>(turned.z)};
        if (!normal.IsUnitVector())
            normal.Unitize();
    }
}
