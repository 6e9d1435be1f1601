#pragma once

#include "objreader/read_ahead.h"

/// The segments of a stream in their order, read one after the other or ahead of their use.
class SegmentSource
{
public:
    /// The stream must outlive the source.
    SegmentSource(std::FILE* stream, std::size_t blockSize)
        : m_reader(stream), m_blockSize(blockSize)
    {
    }

    /// Puts the next segment in the place of the last one, whose room is used again. Throws
    /// std::bad_alloc when out of memory. Not to be called after the last segment.
    void Next(Segment& segment)
    {
        if (m_ahead != nullptr)
            m_ahead->Next(segment);
        else
            m_reader.Read(segment, m_blockSize);
    }

    /// Where segments come from when they are not read ahead.
    [[nodiscard]] SegmentReader& Reader() { return m_reader; }

    /// While this lives, segments come from a ReadAhead, which reads from Reader().
    class AheadUse
    {
    public:
        /// Both must outlive this.
        AheadUse(SegmentSource& source, ReadAhead& ahead) : m_source(source)
        {
            source.m_ahead = &ahead;
        }
        AheadUse(const AheadUse&) = delete;
        AheadUse& operator=(const AheadUse&) = delete;
        ~AheadUse() { m_source.m_ahead = nullptr; }

    private:
        SegmentSource& m_source;
    };

private:
    SegmentReader m_reader;
    std::size_t m_blockSize;
    ReadAhead* m_ahead = nullptr;
};
