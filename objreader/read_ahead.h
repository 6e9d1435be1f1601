#pragma once

#include "objreader/segment.h"

#include <condition_variable>
#include <mutex>

/// Reads segments and their plain lines on several threads, and hands them out in the order of the
/// file. A bounded number of them is ahead of their use.
class ReadAhead
{
public:
    /// Segments of `blockSize` bytes, up to `most` of them at a time. The reader must outlive this.
    ReadAhead(SegmentReader& reader, std::size_t blockSize, std::size_t most);

    /// Puts the next segment in the place of the last one, whose room is used again. Reads segments
    /// itself while there is none to hand out. One thread only. Throws std::bad_alloc when out of
    /// memory. Not to be called after the last segment.
    void Next(Segment& segment);

    /// Reads segments for the thread that calls Next, until all are read or Stop is called. Out of
    /// memory, or where a line is very long, it leaves the reading to that thread. On any number of
    /// threads.
    void Work() noexcept;

    void Stop();

private:
    struct Slot
    {
        Segment segment;
        bool ready = false;
    };

    /// Who a segment is read for.
    enum class Use
    {
        Later,
        AtOnce ///< unless others are to be taken before it
    };

    bool ReadOne(Use use);
    bool ReadOneForNext();
    Slot* ReadIntoSlot(Use use);
    [[nodiscard]] bool MayReadLong(Use use) const { return use == Use::AtOnce && m_count == 0; }
    [[nodiscard]] bool MayRead(Use use) const
    {
        return !m_stopped && !m_readAll && m_count < m_ring.size() &&
               (!m_isLong || MayReadLong(use));
    }
    [[nodiscard]] bool NextIsReady() const { return m_count > 0 && m_ring[m_first].ready; }

    SegmentReader& m_reader;
    std::size_t m_blockSize;
    std::size_t m_mostAhead; ///< bytes of a segment that is read before it is needed

    std::mutex m_readMutex; ///< held while the stream is read

    std::mutex m_mutex; ///< of all that follows
    std::condition_variable m_changed;
    std::vector<Slot> m_ring; ///< the segments being read or waiting, in their order
    std::size_t m_first = 0;
    std::size_t m_count = 0;
    bool m_readAll = false;
    bool m_isLong = false; ///< the next segment to be read is too long to be read ahead
    bool m_stopped = false;
};
