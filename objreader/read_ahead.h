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
    /// memory it leaves the reading to that thread. On any number of threads.
    void Work() noexcept;

    void Stop();

private:
    struct Slot
    {
        Segment segment;
        bool ready = false;
    };

    bool ReadOne();
    Slot* ReadIntoSlot();
    [[nodiscard]] bool MayRead() const
    {
        return !m_stopped && !m_readAll && m_count < m_ring.size();
    }
    [[nodiscard]] bool NextIsReady() const { return m_count > 0 && m_ring[m_first].ready; }

    SegmentReader& m_reader;
    std::size_t m_blockSize;

    std::mutex m_readMutex; ///< held while the stream is read

    std::mutex m_mutex; ///< of all that follows
    std::condition_variable m_changed;
    std::vector<Slot> m_ring; ///< the segments being read or waiting, in their order
    std::size_t m_first = 0;
    std::size_t m_count = 0;
    bool m_readAll = false;
    bool m_stopped = false;
};
