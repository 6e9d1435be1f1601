#pragma once

#include "objreader/corner.h"

#include "host/geokit/simple_array.h"

#include <atomic>
#include <span>

/// Where the indices of a corner stand in its row of numbers. The position's comes first.
struct CornerForm
{
    unsigned char stride = 1;    ///< numbers of each corner
    unsigned char textureAt = 0; ///< 0: corners have none
    unsigned char normalAt = 0;  ///< 0: corners have none

    friend bool operator==(const CornerForm&, const CornerForm&) = default;
};

inline constexpr CornerForm AllIndices{3, 1, 2};

/// The corners of many faces, end to end, no wider than they need.
struct FaceBlock
{
    GK_SimpleArray<int> values;   ///< 0-based indices, of each corner as its form says; -1 is none
    GK_SimpleArray<int> faceEnds; ///< one for each face: where its values end
    std::atomic<int> runs = 0;    ///< that refer to this block
};

/// Faces that follow each other in a block and whose corners have one form.
struct FaceRun
{
    FaceBlock* block = nullptr;
    int firstValue = 0;
    int firstFace = 0;
    int faceCount = 0;
    CornerForm form;

    [[nodiscard]] int EndValue() const
    {
        return faceCount == 0 ? firstValue : block->faceEnds[firstFace + faceCount - 1];
    }

    [[nodiscard]] int CornerCount() const { return (EndValue() - firstValue) / form.stride; }

    /// All indices of the run's corners.
    [[nodiscard]] std::span<const int> Values() const
    {
        const int* const values = block->values.Array();
        return {values + firstValue, values + EndValue()};
    }

    /// The indices of the corners of the face at `index`.
    [[nodiscard]] std::span<const int> FaceValues(int index) const
    {
        const int* const values = block->values.Array();
        const int* const ends = block->faceEnds.Array() + firstFace;
        return {values + (index == 0 ? firstValue : ends[index - 1]), values + ends[index]};
    }

    /// Returns the corner whose row of numbers begins here.
    [[nodiscard]] V_TN_IDX CornerAt(const int* row) const
    {
        return {.vi = row[0],
                .ti = form.textureAt == 0 ? -1 : row[form.textureAt],
                .ni = form.normalAt == 0 ? -1 : row[form.normalAt]};
    }
};

/// Releases a block's room when no other run refers to it. To be called once for each run.
inline void ReleaseFaces(const FaceRun& run)
{
    if (--run.block->runs > 0)
        return;
    run.block->values.Destroy();
    run.block->faceEnds.Destroy();
}
