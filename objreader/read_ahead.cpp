#include "objreader/read_ahead.h"

#include <new>
#include <utility>

ReadAhead::ReadAhead(SegmentReader& reader, std::size_t blockSize, std::size_t most)
    : m_reader(reader), m_blockSize(blockSize), m_ring(most)
{
}

void ReadAhead::Next(Segment& segment)
{
    std::unique_lock lock(m_mutex);
    while (!NextIsReady()) {
        lock.unlock();
        const bool hasRead = ReadOne();
        lock.lock();
        if (!hasRead)
            m_changed.wait(lock, [this] { return NextIsReady() || m_count == 0; });
    }
    Slot& slot = m_ring[m_first];
    std::swap(segment, slot.segment);
    slot.ready = false;
    m_first = (m_first + 1) % m_ring.size();
    --m_count;
    m_changed.notify_all();
}

void ReadAhead::Work() noexcept
try {
    std::unique_lock lock(m_mutex);
    while (!m_stopped && !m_readAll) {
        lock.unlock();
        const bool hasRead = ReadOne();
        lock.lock();
        if (!hasRead)
            m_changed.wait(lock, [this] { return m_stopped || m_readAll || MayRead(); });
    }
} catch (const std::bad_alloc&) {
    return;
}

void ReadAhead::Stop()
{
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_changed.notify_all();
}

/// Reads one segment and its plain lines. False when there is none, or no room.
bool ReadAhead::ReadOne()
{
    Slot* const slot = ReadIntoSlot();
    if (slot == nullptr)
        return false;
    slot->segment.ReadPlain();
    const std::lock_guard lock(m_mutex);
    slot->ready = true;
    m_changed.notify_all();
    return true;
}

/// Reads the text of the next segment; returns its slot, or null.
ReadAhead::Slot* ReadAhead::ReadIntoSlot()
{
    const std::lock_guard readLock(m_readMutex);
    Slot* slot = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        if (!MayRead())
            return nullptr;
        slot = &m_ring[(m_first + m_count) % m_ring.size()];
    }
    // Only the holder of this mutex takes a slot, so the free one stays free.
    m_reader.Read(slot->segment, m_blockSize);
    const std::lock_guard lock(m_mutex);
    ++m_count;
    m_readAll = slot->segment.isLast;
    return slot;
}
