#pragma once

#include "geometry/mesh_builder.h"
#include "objreader/import_choices.h"
#include "objreader/obj_file.h"
#include "objreader/thread_use.h"

#include <cstddef>
#include <memory>
#include <vector>

/// What became of the faces of a record.
struct RecordMesh
{
    enum class Outcome
    {
        Nothing, ///< there was nothing to make a mesh of
        Unfit,   ///< nothing was left of the mesh
        OutOfMemory,
        Ready
    };

    Outcome outcome = Outcome::Nothing;
    std::unique_ptr<GK_Mesh> mesh; ///< when it is ready
    Inconsistencies inconsistencies;
};

/// Makes the meshes of a file's records, fit for a document, with the threads of a team: many small
/// records side by side, a large one by ranges. Meshes are made shortly before they are taken. One
/// thread uses the object; the host's documents, messages and reports are not touched.
class RecordMeshes
{
public:
    /// All must outlive the object. Without a team one thread does everything.
    RecordMeshes(ObjFile& file, const ImportChoices& choices, const ThreadUse& threads,
                 ThreadTeam* team, StageTimes& times);

    RecordMeshes(const RecordMeshes&) = delete;
    RecordMeshes& operator=(const RecordMeshes&) = delete;
    ~RecordMeshes();

    /// Returns the mesh of the next record that has geometry. To be called for each of them, in the
    /// order of the records.
    RecordMesh TakeNext();

private:
    struct Worker;

    void MakeBatch();
    void MakeSideBySide(std::size_t first, std::size_t count);
    void MakeWith(Worker& worker, Geometry& geometry, RecordMesh& result) const;

    const ImportChoices& m_choices;
    ThreadTeam* m_team;
    std::int64_t m_manyCorners;
    StageTimes& m_times;
    std::vector<Geometry*> m_records;               ///< those with geometry, in order
    std::vector<RecordMesh> m_made;                 ///< the current batch
    std::size_t m_firstMade = 0;                    ///< which record's the first of them is
    std::size_t m_next = 0;                         ///< record to be taken
    std::unique_ptr<Worker> m_together;             ///< works with the whole team
    std::vector<std::unique_ptr<Worker>> m_workers; ///< one for each thread, which works alone
};
