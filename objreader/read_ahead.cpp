#include "objreader/read_ahead.h"

#include <limits>
#include <new>
#include <utility>

namespace {

/// Of the blocks of a segment that is read ahead, or whose room is used again.
constexpr std::size_t MostBlocks = 4;

} // namespace

ReadAhead::ReadAhead(SegmentReader& reader, std::size_t blockSize, std::size_t most)
    : m_reader(reader), m_blockSize(blockSize), m_mostAhead(MostBlocks * blockSize), m_ring(most)
{
}

void ReadAhead::Next(Segment& segment)
{
    std::unique_lock lock(m_mutex);
    while (!NextIsReady()) {
        lock.unlock();
        const bool hasRead = ReadOneForNext();
        lock.lock();
        if (!hasRead)
            m_changed.wait(lock, [this] { return NextIsReady() || m_count == 0; });
    }
    Slot& slot = m_ring[m_first];
    std::swap(segment, slot.segment);
    if (slot.segment.text.capacity > 2 * m_mostAhead)
        slot.segment.text = TextBuffer();
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
        const bool hasRead = ReadOne(Use::Later);
        lock.lock();
        if (!hasRead)
            m_changed.wait(lock, [this] { return m_stopped || m_readAll || MayRead(Use::Later); });
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

/// Reads one for the thread that takes them. Out of memory it is false as long as there are others
/// to be taken first.
bool ReadAhead::ReadOneForNext()
try {
    return ReadOne(Use::AtOnce);
} catch (const std::bad_alloc&) {
    const std::lock_guard lock(m_mutex);
    if (m_count == 0)
        throw;
    return false;
}

/// Reads one segment and its plain lines. False when there is none, or no room, or when it is not
/// to be read ahead.
bool ReadAhead::ReadOne(Use use)
{
    Slot* const slot = ReadIntoSlot(use);
    if (slot == nullptr)
        return false;
    slot->segment.ReadPlain();
    const std::lock_guard lock(m_mutex);
    slot->ready = true;
    m_changed.notify_all();
    return true;
}

/// Reads the text of the next segment; returns its slot, or null.
ReadAhead::Slot* ReadAhead::ReadIntoSlot(Use use)
{
    const std::lock_guard readLock(m_readMutex);
    Slot* slot = nullptr;
    std::size_t most = m_mostAhead;
    {
        const std::lock_guard lock(m_mutex);
        if (!MayRead(use))
            return nullptr;
        if (MayReadLong(use))
            most = std::numeric_limits<std::size_t>::max();
        slot = &m_ring[(m_first + m_count) % m_ring.size()];
    }
    // Only the holder of this mutex takes a slot, so the free one stays free.
    const bool hasRead = m_reader.Read(slot->segment, m_blockSize, most);
    const std::lock_guard lock(m_mutex);
    m_isLong = !hasRead;
    if (!hasRead)
        return nullptr;
    ++m_count;
    m_readAll = slot->segment.isLast;
    return slot;
}
