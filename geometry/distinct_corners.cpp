#include "geometry/distinct_corners.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <utility>

namespace {

/// A table of more slots for each corner would take longer to walk than the corners to sort.
constexpr std::int64_t MostSlotsPerCorner = 16;

constexpr std::size_t PartsPerThread = 4;

bool ComesBefore(const V_TN_IDX& a, const V_TN_IDX& b)
{
    return CompareCorners(a, b) < 0;
}

/// Calls `use` with each corner of a run.
template <class Use>
void ForEachCorner(const FaceRun& run, const Use& use)
{
    const std::span<const int> values = run.Values();
    const int* const end = values.data() + values.size();
    for (const int* row = values.data(); row != end; row += run.form.stride)
        use(run.CornerAt(row));
}

} // namespace

void DistinctCorners::Positions::Add(const Positions& other)
{
    if (other.most >= other.least) {
        least = most < least ? other.least : std::min(least, other.least);
        most = std::max(most, other.most);
    }
    cornerCount += other.cornerCount;
    without.insert(without.end(), other.without.begin(), other.without.end());
}

DistinctCorners::Positions DistinctCorners::PositionsOf(const FaceRun& run, int vertexCount)
{
    Positions positions;
    int least = vertexCount;
    int most = -1;
    ForEachCorner(run, [&](const V_TN_IDX& corner) {
        if (corner.vi < 0 || corner.vi >= vertexCount) {
            positions.without.push_back(corner);
            return;
        }
        least = std::min(least, corner.vi);
        most = std::max(most, corner.vi);
    });
    positions.least = least;
    positions.most = most;
    positions.cornerCount = run.CornerCount();
    return positions;
}

void DistinctCorners::Find(std::span<const FaceRun> runs, int vertexCount, bool withEmptyCorner,
                           KelvoWorkSharing* team)
{
    FindPositions(runs, vertexCount, team);
    if (withEmptyCorner)
        m_withoutPosition.emplace_back();
    SortDistinct(m_withoutPosition);
    m_shared.clear();
    const std::int64_t range = std::int64_t{m_positions.most} - m_positions.least + 1;
    m_isDense = range <= MostSlotsPerCorner * m_positions.cornerCount;
    if (m_isDense)
        FillSlots(runs, team);
    else
        SortAll(runs);
    DivideIntoParts(team);
}

void DistinctCorners::FindPositions(std::span<const FaceRun> runs, int vertexCount,
                                    KelvoWorkSharing* team)
{
    m_positions = Positions();
    std::mutex mutex;
    KelvoForEachRangeOf(team, runs.size(), 1, [&](std::size_t begin, std::size_t end) {
        Positions positions;
        for (const FaceRun& run : runs.subspan(begin, end - begin))
            positions.Add(PositionsOf(run, vertexCount));
        const std::lock_guard lock(mutex);
        m_positions.Add(positions);
    });
    m_withoutPosition = std::move(m_positions.without);
}

void DistinctCorners::FillSlots(std::span<const FaceRun> runs, KelvoWorkSharing* team)
{
    m_slots.Empty();
    const int slotCount = m_positions.most - m_positions.least + 1;
    std::uint64_t* const slots = m_slots.AppendUnset(slotCount);
    std::fill(slots, slots + slotCount, std::bit_cast<std::uint64_t>(Slot{Unused, Unused}));

    std::mutex mutex;
    const bool sharedByThreads = team != nullptr && runs.size() > 1;
    KelvoForEachRangeOf(team, runs.size(), 1, [&](std::size_t begin, std::size_t end) {
        std::vector<V_TN_IDX> others;
        for (const FaceRun& run : runs.subspan(begin, end - begin)) {
            if (sharedByThreads)
                FillSlotsOf<true>(run, others);
            else
                FillSlotsOf<false>(run, others);
        }
        if (others.empty())
            return;
        const std::lock_guard lock(mutex);
        m_shared.insert(m_shared.end(), others.begin(), others.end());
    });
    if (m_shared.empty())
        return;
    SortDistinct(m_shared);
    AddFirstCorners();
}

/// Puts corners into the slots of their positions; `others` takes those that differ from the one
/// that is there. Which one is there first does not matter to what comes of it, so several threads
/// may do this at the same time.
template <bool SharedByThreads>
void DistinctCorners::FillSlotsOf(const FaceRun& run, std::vector<V_TN_IDX>& others)
{
    const auto slotCount = static_cast<unsigned>(m_slots.Count());
    constexpr auto unused = std::bit_cast<std::uint64_t>(Slot{Unused, Unused});
    ForEachCorner(run, [&](const V_TN_IDX& corner) {
        const auto place = static_cast<unsigned>(corner.vi - m_positions.least);
        if (place >= slotCount)
            return;
        std::uint64_t& slot = m_slots[static_cast<int>(place)];
        const auto wanted = std::bit_cast<std::uint64_t>(Slot{corner.ti, corner.ni});
        std::uint64_t found = unused;
        if constexpr (SharedByThreads) {
            std::atomic_ref<std::uint64_t> shared(slot);
            found = shared.load(std::memory_order_relaxed);
            if (found == unused &&
                shared.compare_exchange_strong(found, wanted, std::memory_order_relaxed))
                return;
        } else {
            found = std::exchange(slot, slot == unused ? wanted : slot);
            if (found == unused)
                return;
        }
        if (found != wanted)
            others.push_back(corner);
    });
}

/// Adds the corners in the slots of those positions that have others.
void DistinctCorners::AddFirstCorners()
{
    const std::size_t otherCount = m_shared.size();
    for (std::size_t i = 0; i < otherCount; ++i) {
        const int vi = m_shared[i].vi;
        if (i > 0 && m_shared[i - 1].vi == vi)
            continue;
        const Slot slot = SlotAt(static_cast<std::size_t>(vi - m_positions.least));
        m_shared.push_back(
            V_TN_IDX{.vi = vi, .ti = slot.textureOrNumber, .ni = slot.normalOrShared});
    }
    std::inplace_merge(m_shared.begin(), m_shared.begin() + static_cast<std::ptrdiff_t>(otherCount),
                       m_shared.end(), ComesBefore);
}

void DistinctCorners::SortAll(std::span<const FaceRun> runs)
{
    m_shared.reserve(static_cast<std::size_t>(m_positions.cornerCount));
    for (const FaceRun& run : runs)
        ForEachCorner(run, [this](const V_TN_IDX& corner) {
            if (corner.vi >= m_positions.least && corner.vi <= m_positions.most)
                m_shared.push_back(corner);
        });
    SortDistinct(m_shared);
}

void DistinctCorners::DivideIntoParts(KelvoWorkSharing* team)
{
    m_parts.clear();
    if (!m_isDense) {
        m_parts.emplace_back();
        m_count = static_cast<int>(m_shared.size());
        return;
    }
    const auto slotCount = static_cast<std::size_t>(m_slots.Count());
    const std::size_t partCount = team == nullptr ? 1 : team->ThreadCount() * PartsPerThread;
    for (std::size_t i = 0; i < partCount; ++i)
        m_parts.push_back({slotCount * i / partCount, slotCount * (i + 1) / partCount, 0, 0});
    KelvoForEachIndex(team, partCount, [this](std::size_t i) {
        const auto ofPosition = [](const V_TN_IDX& corner, int vi) { return corner.vi < vi; };
        Part& part = m_parts[i];
        const int vi = m_positions.least + static_cast<int>(part.begin);
        part.shared = static_cast<std::size_t>(
            std::lower_bound(m_shared.begin(), m_shared.end(), vi, ofPosition) - m_shared.begin());
        part.number = CountOf(part);
    });
    m_count = 0;
    for (Part& part : m_parts)
        m_count += std::exchange(part.number, m_count);
}

/// Returns how many corners stand at the positions of a part.
int DistinctCorners::CountOf(const Part& part) const
{
    int count = 0;
    for (std::size_t i = part.begin; i < part.end; ++i)
        count += SlotAt(i).textureOrNumber == Unused ? 0 : 1;
    // The first one of each position has been counted.
    const int endPosition = m_positions.least + static_cast<int>(part.end);
    for (std::size_t i = part.shared; i < m_shared.size() && m_shared[i].vi < endPosition; ++i)
        count += i > part.shared && m_shared[i - 1].vi == m_shared[i].vi ? 1 : 0;
    return count;
}

/// Returns how far a corner stands after the first of some corners, or -1 when it is none of them.
int DistinctCorners::NumberAmong(const std::vector<V_TN_IDX>& corners, std::size_t first,
                                 const V_TN_IDX& corner) const
{
    const auto begin = corners.begin() + static_cast<std::ptrdiff_t>(first);
    // Positions seldom have more than a few corners.
    constexpr int Few = 8;
    const auto few = begin + std::min<std::ptrdiff_t>(Few, corners.end() - begin);
    auto place = std::find(begin, few, corner);
    if (place == few)
        place = std::lower_bound(few, corners.end(), corner, ComesBefore);
    return place != corners.end() && *place == corner ? static_cast<int>(place - begin) : -1;
}
