#include "geometry/record_meshes.h"

#include "geometry/finish_mesh.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

/// (x, y, z) becomes (x, -z, y).
constexpr GK_Xform ObjYToZ{{{1, 0, 0, 0}, {0, 0, -1, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}}};

/// So many corners are enough work for each thread of a batch.
constexpr std::int64_t BatchCornersPerThread = std::int64_t{1} << 16;
constexpr std::size_t MostOfBatchPerThread = 512;

/// Records of fewer corners are timed by samples.
constexpr std::int64_t TimedCorners = 4096;
constexpr int SamplingInterval = 31;

std::int64_t CornerCountOf(const Geometry& geometry)
{
    std::int64_t count = 0;
    for (const FaceRun& run : geometry.faces)
        count += run.CornerCount();
    return count;
}

} // namespace

/// What one thread needs to make meshes, used again from record to record.
struct RecordMeshes::Worker
{
    explicit Worker(const VertexLists& lists) : meshes(lists) {}

    MeshBuilder meshes;
    StageTimes times;
    StageSampling sampling{SamplingInterval};
};

RecordMeshes::RecordMeshes(ObjFile& file, const ImportChoices& choices, const ThreadUse& threads,
                           ThreadTeam* team, StageTimes& times)
    : m_choices(choices), m_team(team), m_manyCorners(threads.manyCorners), m_times(times),
      m_together(std::make_unique<Worker>(file.lists))
{
    for (const std::unique_ptr<Group_Object>& record : file.groupObjects)
        if (record->geometry)
            m_records.push_back(record->geometry.get());
    if (team != nullptr && m_records.size() > 1)
        for (unsigned i = 0; i < team->ThreadCount(); ++i)
            m_workers.push_back(std::make_unique<Worker>(file.lists));
}

RecordMeshes::~RecordMeshes() = default;

RecordMesh RecordMeshes::TakeNext()
{
    if (m_next == m_firstMade + m_made.size())
        MakeBatch();
    return std::move(m_made[m_next++ - m_firstMade]);
}

/// Makes the next record's mesh, and those of some that follow it when there are threads for them.
void RecordMeshes::MakeBatch()
{
    m_made.clear();
    m_firstMade = m_next;
    std::size_t count = 1;
    if (!m_workers.empty()) {
        const auto threads = static_cast<std::int64_t>(m_workers.size());
        const std::size_t most =
            std::min(m_records.size() - m_next, MostOfBatchPerThread * m_workers.size());
        std::int64_t corners = 0;
        for (count = 0; count < most && corners < threads * BatchCornersPerThread; ++count) {
            const std::int64_t ofRecord = CornerCountOf(*m_records[m_next + count]);
            if (ofRecord >= m_manyCorners)
                break;
            corners += ofRecord;
        }
    }
    m_made.resize(std::max<std::size_t>(count, 1));
    if (count > 1)
        MakeSideBySide(m_next, count);
    else
        MakeWith(*m_together, *m_records[m_next], m_made.front());
}

void RecordMeshes::MakeSideBySide(std::size_t first, std::size_t count)
{
    std::atomic<std::size_t> next = 0;
    m_team->Run([&](unsigned thread) {
        for (std::size_t i = next++; i < count; i = next++)
            MakeWith(*m_workers[thread], *m_records[first + i], m_made[i]);
    });
    for (const std::unique_ptr<Worker>& worker : m_workers)
        m_times.Add(std::exchange(worker->times, StageTimes()));
}

/// A mesh that cannot be made, out of memory, costs only itself.
void RecordMeshes::MakeWith(Worker& worker, Geometry& geometry, RecordMesh& result) const
try {
    const std::int64_t cornerCount = CornerCountOf(geometry);
    KelvoWorkSharing* const threads = cornerCount >= m_manyCorners ? m_team : nullptr;
    StageLaps laps(&worker == m_together.get() ? m_times : worker.times,
                   cornerCount >= TimedCorners ? 1 : worker.sampling.NextWeight());
    result.mesh = worker.meshes.BuildMesh(geometry, threads, result.inconsistencies, laps);
    if (result.mesh == nullptr)
        return;
    result.outcome = RecordMesh::Outcome::Unfit;
    if (!FinishMesh(result.mesh.get(), m_choices.ImportAsMorphTarget, threads, laps))
        return;
    if (m_choices.ZUp)
        result.mesh->Transform(ObjYToZ);
    laps.Lap(ImportStage::CleanUp);
    result.outcome = RecordMesh::Outcome::Ready;
} catch (const std::bad_alloc&) {
    result.outcome = RecordMesh::Outcome::OutOfMemory;
}
