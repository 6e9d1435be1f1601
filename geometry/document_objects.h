#pragma once

#include "geometry/brep_builder.h"
#include "geometry/object_attributes.h"
#include "geometry/record_meshes.h"

#include <span>

/// Adds what a file holds to a document.
class DocumentObjects
{
public:
    /// All must outlive the object. The file's geometry is moved out of it as it is added. Without
    /// a team one thread does everything.
    DocumentObjects(ObjFile& file, const ImportChoices& choices, CKelvoDoc& doc,
                    const ThreadUse& threads, ThreadTeam* team, StageTimes& times);

    /// Adds everything, record by record in the order of their names. Returns the outcome of the
    /// last object attempted: true when it was added, or when there was none.
    bool Build();

private:
    void BuildRecord(Group_Object& record);
    void AddMesh(StageLaps& laps);
    void AddCurves(Geometry& geometry);
    void AddPoints(const Geometry& geometry);
    void AddBreps(Geometry& geometry);
    bool AddBrep(std::unique_ptr<VX_Brep> brep);
    bool AddPointCloud(std::span<const int> indices);

    ObjFile& m_file;
    CKelvoDoc& m_doc;
    double m_tolerance;
    ObjectAttributes m_objectAttributes;
    RecordMeshes m_meshes;
    BrepBuilder m_breps;
    StageTimes& m_times;
    StageSampling m_sampling;
    GK_MdxObjectAttributes m_attributes; ///< of the current record's objects
    bool m_result = true;                ///< of the last object attempted
};
