#pragma once

#include "objimport/check/findings.h"
#include "objreader/group_object.h"
#include "objreader/vertex_lists.h"

#include <span>
#include <unordered_map>

/// Follows the faces and points of a file, record by record.
class FaceChecks
{
public:
    /// The lists must outlive the object.
    explicit FaceChecks(const VertexLists& lists) : m_lists(lists) {}

    /// Checks a record's last face, which is the run's only one.
    void CheckFace(const CheckPlace& place, const Group_Object& record, const FaceRun& face);

    /// Checks the points and point clouds of the last statement, and removes them from the record.
    /// Returns whether there was any that is not refused.
    bool TakePoints(const CheckPlace& place, Geometry& geometry);

    /// Returns how many faces became part of a mesh.
    [[nodiscard]] std::size_t MeshFaces() const { return m_meshFaces; }

private:
    /// What the corners of a record had so far.
    struct Record
    {
        bool withTexCoord = false;
        bool withoutTexCoord = false;
        bool withNormal = false;
        bool withoutNormal = false;
        bool refused = false;
    };

    void CheckValues(const CheckPlace& place, const Group_Object& record, const FaceRun& face);
    void CheckArea(const CheckPlace& place, const Group_Object& record, const FaceRun& face);
    void CheckFlatFace(const CheckPlace& place, const Group_Object& record, const FaceRun& face);
    [[nodiscard]] bool HasSoundTriangle(const FaceRun& face) const;
    std::size_t CountCornerPlaces(const FaceRun& face);
    bool CheckFinite(const CheckPlace& place, std::span<const int> cloud) const;
    Record& RecordOf(const Group_Object& record);

    const VertexLists& m_lists;
    std::unordered_map<const Group_Object*, Record> m_records;
    const Group_Object* m_lastRecord = nullptr;
    Record* m_last = nullptr;            ///< what stands for the last record
    GK_SimpleArray<GK_3dPoint> m_points; ///< scratch: the positions of a face's corners
    std::size_t m_meshFaces = 0;
};
