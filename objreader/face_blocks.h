#pragma once

#include "objreader/face_run.h"

#include <memory>
#include <vector>

/// The blocks that hold all faces of a file.
class FaceBlocks
{
public:
    /// Returns the block that faces are to be appended to: a fresh one when the last is full.
    FaceBlock& BlockToFill()
    {
        if (m_filling == nullptr || m_filling->values.Count() >= MostValues) {
            FinishFilling();
            m_blocks.push_back(std::make_unique<FaceBlock>());
            m_filling = m_blocks.back().get();
        }
        return *m_filling;
    }

    /// Takes over a block that was filled elsewhere.
    FaceBlock& Add(std::unique_ptr<FaceBlock> block)
    {
        m_blocks.push_back(std::move(block));
        return *m_blocks.back();
    }

    /// Releases the room that nothing will be put into any more.
    void FinishFilling()
    {
        if (m_filling == nullptr)
            return;
        m_filling->values.Shrink();
        m_filling->faceEnds.Shrink();
        m_filling = nullptr;
    }

private:
    /// Few enough to release room as soon as it is not needed any more.
    static constexpr int MostValues = 1 << 20;

    std::vector<std::unique_ptr<FaceBlock>> m_blocks;
    FaceBlock* m_filling = nullptr;
};
