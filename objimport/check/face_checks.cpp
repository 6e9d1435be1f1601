#include "objimport/check/face_checks.h"

#include "objimport/check/check_texts.h"
#include "objimport/check/vertex_checks.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

/// Returns the names of a record, as far as it has any.
std::string NamesOf(const Group_Object& record)
{
    std::string names;
    for (const GK_String* name : {record.groupName, record.objectName, record.materialName})
        if (!name->IsEmpty())
            names.append(names.empty() ? "" : ", ").append(name->View());
    return names;
}

/// Returns whether three points lie on a line, but for rounding. False when one is not finite.
bool IsOnLine(const GK_3dPoint& a, const GK_3dPoint& b, const GK_3dPoint& c)
{
    constexpr double Rounding = 1e-18; // the square of an angle
    const GK_3dVector u{b.x - a.x, b.y - a.y, b.z - a.z};
    const GK_3dVector v{c.x - a.x, c.y - a.y, c.z - a.z};
    const GK_3dVector normal{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
    const auto square = [](const GK_3dVector& w) { return w.x * w.x + w.y * w.y + w.z * w.z; };
    return !(square(normal) > Rounding * square(u) * square(v));
}

bool HasNaN(const GK_3dPoint& point)
{
    return std::isnan(point.x) || std::isnan(point.y) || std::isnan(point.z);
}

/// Returns how many different places points lie at, none of which is NaN; their order changes.
std::size_t CountPlaces(GK_SimpleArray<GK_3dPoint>& points)
{
    std::sort(points.begin(), points.end(), [](const GK_3dPoint& a, const GK_3dPoint& b) {
        return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
    });
    const auto isSame = [](const GK_3dPoint& a, const GK_3dPoint& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    };
    return static_cast<std::size_t>(std::unique(points.begin(), points.end(), isSame) -
                                    points.begin());
}

} // namespace

FaceChecks::Record& FaceChecks::RecordOf(const Group_Object& record)
{
    if (&record != m_lastRecord) {
        m_lastRecord = &record;
        m_last = &m_records[&record];
    }
    return *m_last;
}

void FaceChecks::CheckFace(const CheckPlace& place, const Group_Object& record, const FaceRun& face)
{
    CheckValues(place, record, face);
    CheckArea(place, record, face);
}

/// Meshes have texture coordinates and normals for all of their vertices or for none.
void FaceChecks::CheckValues(const CheckPlace& place, const Group_Object& record,
                             const FaceRun& face)
{
    Record& known = RecordOf(record);
    const bool hadBothTexCoords = known.withTexCoord && known.withoutTexCoord;
    const bool hadBothNormals = known.withNormal && known.withoutNormal;
    const std::span<const int> values = face.Values();
    for (std::size_t i = 0; i < values.size(); i += face.form.stride) {
        const V_TN_IDX corner = face.CornerAt(&values[i]);
        if (corner.vi < 0)
            continue;
        (corner.ti >= 0 ? known.withTexCoord : known.withoutTexCoord) = true;
        (corner.ni >= 0 ? known.withNormal : known.withoutNormal) = true;
    }
    if (!hadBothTexCoords && known.withTexCoord && known.withoutTexCoord)
        place.Report(CheckTexts::SomeTexCoords, NamesOf(record));
    if (!hadBothNormals && known.withNormal && known.withoutNormal)
        place.Report(CheckTexts::SomeNormals, NamesOf(record));
}

void FaceChecks::CheckArea(const CheckPlace& place, const Group_Object& record, const FaceRun& face)
{
    m_points.Empty();
    const std::span<const int> values = face.Values();
    for (std::size_t i = 0; i < values.size(); i += face.form.stride)
        if (values[i] >= 0)
            m_points.Append(m_lists.Position(values[i]));
    const int count = m_points.Count();
    if (count < 3)
        return; // its bad indices have been reported
    bool flat = true;
    for (int i = 2; flat && i < count; ++i)
        flat = IsOnLine(m_points[0], m_points[i - 1], m_points[i]);
    // A point that is not finite leaves no sum of squares above anything.
    if (flat ||
        (count > 3 && !std::all_of(m_points.begin(), m_points.end(), VertexChecks::IsFinite)))
        CheckFlatFace(place, record, face);
    else
        ++m_meshFaces;
}

/// Returns how many corners are at places of their own. NaN equals no place, so that corners with
/// it differ when their indices do.
std::size_t FaceChecks::CountCornerPlaces(const FaceRun& face)
{
    m_points.Empty();
    std::vector<V_TN_IDX> nowhere;
    const std::span<const int> values = face.Values();
    for (std::size_t i = 0; i < values.size(); i += face.form.stride) {
        const V_TN_IDX corner = face.CornerAt(&values[i]);
        if (corner.vi < 0)
            continue;
        const GK_3dPoint point = m_lists.Position(corner.vi);
        if (!HasNaN(point))
            m_points.Append(point);
        else
            nowhere.push_back(corner);
    }
    std::sort(nowhere.begin(), nowhere.end(),
              [](const V_TN_IDX& a, const V_TN_IDX& b) { return CompareCorners(a, b) < 0; });
    const auto end = std::unique(nowhere.begin(), nowhere.end());
    return CountPlaces(m_points) + static_cast<std::size_t>(end - nowhere.begin());
}

/// Returns whether a face is kept that has a corner which is not finite. A polygon becomes a fan of
/// triangles, of which one at least must have three corners apart.
bool FaceChecks::HasSoundTriangle(const FaceRun& face) const
{
    constexpr std::size_t LeastOfAPolygon = 5;
    std::vector<V_TN_IDX> corners;
    const std::span<const int> values = face.Values();
    for (std::size_t i = 0; i < values.size(); i += face.form.stride)
        if (values[i] >= 0)
            corners.push_back(face.CornerAt(&values[i]));
    if (corners.size() < LeastOfAPolygon)
        return true;
    const auto areApart = [this](const V_TN_IDX& a, const V_TN_IDX& b) {
        const GK_3dPoint p = m_lists.Position(a.vi);
        const GK_3dPoint q = m_lists.Position(b.vi);
        return a != b && (p.x != q.x || p.y != q.y || p.z != q.z);
    };
    for (std::size_t i = 2; i < corners.size(); ++i)
        if (areApart(corners[0], corners[i - 1]) && areApart(corners[0], corners[i]) &&
            areApart(corners[i - 1], corners[i]))
            return true;
    return false;
}

/// Checks a face whose points have no area, or may not be finite.
void FaceChecks::CheckFlatFace(const CheckPlace& place, const Group_Object& record,
                               const FaceRun& face)
{
    constexpr std::size_t PlacesOfAFace = 3;
    const bool finite = std::all_of(m_points.begin(), m_points.end(), VertexChecks::IsFinite);
    if (CountCornerPlaces(face) < PlacesOfAFace) {
        place.Report(CheckTexts::TooFewPlaces);
        return;
    }
    if (finite) {
        ++m_meshFaces;
        place.Report(CheckTexts::NoArea);
        return;
    }
    if (!HasSoundTriangle(face)) {
        place.Report(CheckTexts::TooFewPlaces);
        return;
    }
    ++m_meshFaces;
    Record& known = RecordOf(record);
    if (!known.refused)
        place.Report(CheckTexts::MeshNotFinite, NamesOf(record));
    known.refused = true;
}

bool FaceChecks::CheckFinite(const CheckPlace& place, std::span<const int> cloud) const
{
    const bool finite = std::all_of(cloud.begin(), cloud.end(), [&](int vertex) {
        return VertexChecks::IsFinite(m_lists.Position(vertex));
    });
    if (cloud.empty() || !finite)
        place.Report(cloud.empty() ? CheckTexts::CloudEmpty : CheckTexts::CloudNotFinite);
    return finite && !cloud.empty();
}

bool FaceChecks::TakePoints(const CheckPlace& place, Geometry& geometry)
{
    bool any = false;
    for (const GK_3dPoint& point : geometry.points) {
        if (VertexChecks::IsFinite(point))
            any = true;
        else
            place.Report(CheckTexts::PointNotFinite);
    }
    int first = 0;
    for (const int end : geometry.cloudEnds) {
        const auto size = static_cast<std::size_t>(end - first);
        any = CheckFinite(place, {geometry.cloudVertices.Array() + first, size}) || any;
        first = end;
    }
    geometry.points.Empty();
    geometry.cloudEnds.Empty();
    geometry.cloudVertices.Empty();
    return any;
}
