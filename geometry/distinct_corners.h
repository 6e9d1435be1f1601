#pragma once

#include "geometry/corner_order.h"
#include "objreader/face_run.h"

#include "host/geokit/simple_array.h"
#include "host/runtime/work_sharing.h"

#include <bit>
#include <cstdint>
#include <span>
#include <vector>

/// Numbers the distinct corners of a record's faces in the order of CompareCorners. Its room is
/// used again for the next record.
///
/// Most positions have one distinct corner. A table of the record's positions holds the first one
/// that was met at each, and only positions with several have theirs sorted. A record that uses few
/// positions of a wide range has all its corners sorted instead.
class DistinctCorners
{
public:
    /// Finds the distinct corners of faces, and one without any index when `withEmptyCorner`;
    /// positions are those below `vertexCount`. `team` may be null.
    void Find(std::span<const FaceRun> runs, int vertexCount, bool withEmptyCorner,
              KelvoWorkSharing* team);

    /// How many were found, not counting those without a position.
    [[nodiscard]] int Count() const { return m_count; }

    /// The distinct corners whose position is none, in their order.
    [[nodiscard]] const std::vector<V_TN_IDX>& WithoutPosition() const { return m_withoutPosition; }

    /// How many parts the corners fall into, each for one thread.
    [[nodiscard]] std::size_t PartCount() const { return m_parts.size(); }

    /// Numbers the corners of a part: calls `use` with each and its number, in their order. To be
    /// called once for each part.
    template <class Use>
    void NumberPart(std::size_t part, const Use& use);

    /// Returns the number of a corner of the faces, or -1 for one without a position. To be called
    /// after all parts were numbered.
    [[nodiscard]] int NumberOf(const V_TN_IDX& corner) const;

    /// Has what NumberOf needs for a corner at this position fetched into the processor's cache.
    void FetchNumberOf(int position) const
    {
        const auto place = static_cast<unsigned>(position - m_positions.least);
        if (place < static_cast<unsigned>(m_slots.Count()))
            __builtin_prefetch(m_slots.Array() + place);
    }

private:
    /// Of one position: first the first corner met there, then the numbers of all.
    struct Slot
    {
        int textureOrNumber; ///< its texture coordinate; then the number of the first corner
        int normalOrShared;  ///< its normal; then the place of the corners in m_shared, or -1
    };

    static constexpr int Unused = -2;

    /// Slots whose corners are numbered one after the other.
    struct Part
    {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t shared = 0; ///< the first of m_shared at these positions
        int number = 0;         ///< of the first corner
    };

    /// The positions that faces use, and the corners that have none.
    struct Positions
    {
        int least = 0;
        int most = -1;
        std::int64_t cornerCount = 0;
        std::vector<V_TN_IDX> without;

        void Add(const Positions& other);
    };

    static Positions PositionsOf(const FaceRun& run, int vertexCount);
    void FindPositions(std::span<const FaceRun> runs, int vertexCount, KelvoWorkSharing* team);
    void FillSlots(std::span<const FaceRun> runs, KelvoWorkSharing* team);
    template <bool SharedByThreads>
    void FillSlotsOf(const FaceRun& run, std::vector<V_TN_IDX>& others);
    void AddFirstCorners();
    void SortAll(std::span<const FaceRun> runs);
    void DivideIntoParts(KelvoWorkSharing* team);
    [[nodiscard]] int CountOf(const Part& part) const;
    [[nodiscard]] int NumberAmong(const std::vector<V_TN_IDX>& corners, std::size_t first,
                                  const V_TN_IDX& corner) const;

    [[nodiscard]] Slot SlotAt(std::size_t place) const
    {
        return std::bit_cast<Slot>(m_slots[static_cast<int>(place)]);
    }

    /// Slots of the positions from the least on, as numbers, which threads can exchange.
    GK_SimpleArray<std::uint64_t> m_slots;
    Positions m_positions;
    std::vector<V_TN_IDX> m_shared; ///< those of positions that have several, or all; in order
    std::vector<V_TN_IDX> m_withoutPosition;
    std::vector<Part> m_parts;
    bool m_isDense = true; ///< the table is used
    int m_count = 0;
};

template <class Use>
void DistinctCorners::NumberPart(std::size_t part, const Use& use)
{
    auto [begin, end, shared, number] = m_parts[part];
    if (!m_isDense) {
        for (const V_TN_IDX& corner : m_shared)
            use(corner, number++);
        return;
    }
    for (std::size_t i = begin; i < end; ++i) {
        std::uint64_t& place = m_slots[static_cast<int>(i)];
        const auto slot = std::bit_cast<Slot>(place);
        if (slot.textureOrNumber == Unused)
            continue;
        const int vi = m_positions.least + static_cast<int>(i);
        const int first = number;
        if (shared == m_shared.size() || m_shared[shared].vi != vi) {
            use(V_TN_IDX{.vi = vi, .ti = slot.textureOrNumber, .ni = slot.normalOrShared},
                number++);
            place = std::bit_cast<std::uint64_t>(Slot{first, -1});
            continue;
        }
        place = std::bit_cast<std::uint64_t>(Slot{first, static_cast<int>(shared)});
        for (; shared < m_shared.size() && m_shared[shared].vi == vi; ++shared)
            use(m_shared[shared], number++);
    }
}

inline int DistinctCorners::NumberOf(const V_TN_IDX& corner) const
{
    if (!m_isDense)
        return NumberAmong(m_shared, 0, corner);
    const auto place = static_cast<unsigned>(corner.vi - m_positions.least);
    if (place >= static_cast<unsigned>(m_slots.Count()))
        return -1;
    const auto [number, shared] = SlotAt(place);
    if (shared < 0)
        return number;
    return number + NumberAmong(m_shared, static_cast<std::size_t>(shared), corner);
}
