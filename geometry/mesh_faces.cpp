#include "geometry/mesh_faces.h"

#include "host/vxkit/triangulate.h"

#include <algorithm>
#include <array>

namespace {

constexpr int MostSimpleCorners = 4; ///< of a face that is no n-gon

/// Triangles and quads.
GK_MeshFace SimpleFace(const GK_Mesh& mesh, std::span<const int> s)
{
    GK_MeshFace face{{s[0], s[1], s[2], s.back()}};
    if (!face.IsValid(mesh.VertexCount(), mesh.vertices.Array()))
        face.Repair(mesh.VertexCount(), mesh.vertices.Array());
    return face;
}

/// Cuts polygons into triangles. Its room is used again for the next polygon.
class PolygonCutter
{
public:
    explicit PolygonCutter(const GK_Mesh& mesh) : m_mesh(mesh) {}

    /// Returns the corners of each triangle, as places in `corners`.
    std::span<const int> Cut(std::span<const int> corners)
    {
        const auto count = static_cast<int>(corners.size());
        m_points.Empty();
        for (const int corner : corners) {
            const GK_3fPoint& point = m_mesh.vertices[corner];
            for (const float coordinate : {point.x, point.y, point.z})
                m_points.Append(coordinate);
        }
        m_triangles.Empty();
        int* const triangles = m_triangles.AppendUnset((count - 2) * 3);
        if (!VX_Triangulate3dPolygon(count, 3, m_points.Array(), 3, triangles))
            MakeFan(triangles, count);
        return {m_triangles.begin(), m_triangles.end()};
    }

private:
    static void MakeFan(int* corner, int count)
    {
        for (int i = 0; i < count - 2; ++i) {
            *corner++ = 0;
            *corner++ = i + 1;
            *corner++ = i + 2;
        }
    }

    const GK_Mesh& m_mesh;
    GK_SimpleArray<double> m_points;
    GK_SimpleArray<int> m_triangles;
};

/// Makes an n-gon of these vertices and the triangles that cover it, the first at `meshFace`.
void FillNgon(const GK_MeshNgon& ngon, std::span<const int> s, std::span<const int> triangles,
              int meshFace, GK_Mesh& mesh)
{
    std::copy(s.begin(), s.end(), ngon.vi.begin());
    const auto vertex = [&](std::size_t i) { return s[static_cast<std::size_t>(triangles[i])]; };
    for (std::size_t i = 0; i < ngon.fi.size(); ++i) {
        const int third = vertex(3 * i + 2);
        mesh.faces[meshFace] = {{vertex(3 * i), vertex(3 * i + 1), third, third}};
        ngon.fi[i] = meshFace++;
    }
}

} // namespace

/// Makes the faces of runs. Its room is used again from run to run.
class MeshFaces::Filler
{
public:
    explicit Filler(const MeshFaces& faces)
        : m_corners(faces.m_corners), m_ngons(faces.m_ngons), m_mesh(faces.m_mesh),
          m_cutter(faces.m_mesh)
    {
    }

    void FillRun(const FaceRun& run, RunPlace place)
    {
        for (int face = 0; face < run.faceCount;) {
            face = TakeNumbers(run, face);
            int first = 0;
            for (const int end : m_ends) {
                Fill({m_numbers.begin() + first, m_numbers.begin() + end}, place);
                first = end;
            }
        }
    }

private:
    /// Takes the vertices of some faces; returns which one follows them. Places that files name in
    /// a scattered order are fetched early and many at a time.
    int TakeNumbers(const FaceRun& run, int face)
    {
        constexpr int ManyCorners = 256;
        constexpr std::ptrdiff_t CornersAhead = 32;
        const int* const endOfRun = run.Values().data() + run.Values().size();
        const std::ptrdiff_t ahead = CornersAhead * run.form.stride;
        m_numbers.Empty();
        m_ends.Empty();
        for (; face < run.faceCount && m_numbers.Count() < ManyCorners; ++face) {
            const std::span<const int> values = run.FaceValues(face);
            const int* const end = values.data() + values.size();
            for (const int* row = values.data(); row != end; row += run.form.stride) {
                if (endOfRun - row > ahead)
                    m_corners.FetchNumberOf(row[ahead]);
                const int number = m_corners.NumberOf(run.CornerAt(row));
                if (number < 0)
                    continue;
                m_numbers.Append(number);
                __builtin_prefetch(m_mesh.vertices.Array() + number);
            }
            m_ends.Append(m_numbers.Count());
        }
        return face;
    }

    /// Makes one face, and steps to the place of the next.
    void Fill(std::span<const int> s, RunPlace& place)
    {
        if (s.size() < 3)
            return;
        if (s.size() <= MostSimpleCorners) {
            m_mesh.faces[place.meshFace++] = SimpleFace(m_mesh, s);
            return;
        }
        const GK_MeshNgon ngon = m_ngons->Ngon(place.ngon++);
        FillNgon(ngon, s, m_cutter.Cut(s), place.meshFace, m_mesh);
        place.meshFace += static_cast<int>(ngon.fi.size());
    }

    const DistinctCorners& m_corners;
    GK_MeshNgonList* m_ngons;
    GK_Mesh& m_mesh;
    PolygonCutter m_cutter;
    GK_SimpleArray<int> m_numbers; ///< of the corners of some faces, end to end
    GK_SimpleArray<int> m_ends;    ///< one for each of these faces
};

MeshFaces::MeshFaces(const DistinctCorners& corners, std::span<const FaceRun> runs,
                     KelvoWorkSharing* team, GK_Mesh& mesh)
    : m_corners(corners), m_runs(runs), m_team(team), m_mesh(mesh)
{
}

/// Returns how many corners of a face have a position.
int MeshFaces::CornerCount(const FaceRun& run, std::span<const int> values) const
{
    if (m_corners.WithoutPosition().empty())
        return static_cast<int>(values.size()) / run.form.stride;
    int count = 0;
    for (std::size_t i = 0; i < values.size(); i += run.form.stride)
        count += m_corners.NumberOf(run.CornerAt(&values[i])) >= 0 ? 1 : 0;
    return count;
}

bool MeshFaces::Place()
{
    RunPlace next;
    m_places.reserve(m_runs.size());
    for (const FaceRun& run : m_runs) {
        m_places.push_back(next);
        if (!PlaceRun(run, next))
            return false;
    }
    m_mesh.faces.AppendUnset(next.meshFace);
    return true;
}

bool MeshFaces::PlaceRun(const FaceRun& run, RunPlace& next)
{
    for (int face = 0; face < run.faceCount; ++face) {
        const int count = CornerCount(run, run.FaceValues(face));
        if (count < 3)
            continue;
        if (count <= MostSimpleCorners) {
            ++next.meshFace;
            continue;
        }
        m_ngons = m_mesh.ModifyNgonList();
        if (m_ngons == nullptr)
            return false;
        static_cast<void>(m_ngons->AddNgon(count));
        ++next.ngon;
        next.meshFace += count - 2;
    }
    return true;
}

void MeshFaces::Fill() const
{
    KelvoForEachRangeOf(m_team, m_runs.size(), 1, [this](std::size_t begin, std::size_t end) {
        Filler filler(*this);
        for (std::size_t i = begin; i < end; ++i) {
            filler.FillRun(m_runs[i], m_places[i]);
            ReleaseFaces(m_runs[i]);
        }
    });
}
