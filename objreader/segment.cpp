#include "objreader/segment.h"

#include "objreader/text_bytes.h"

#include <algorithm>
#include <cstring>
#include <new>

void TextBuffer::Reserve(std::size_t newSize)
{
    if (HasRoomFor(newSize))
        return;
    const std::size_t newCapacity = std::max(newSize + Padding, capacity * 2);
    auto larger = std::make_unique_for_overwrite<char[]>(newCapacity);
    if (size > 0)
        std::memcpy(larger.get(), bytes.get(), size);
    bytes = std::move(larger);
    capacity = newCapacity;
}

void Segment::ReadPlain()
{
    StageLaps laps(times);
    try {
        ReadRuns();
    } catch (const std::bad_alloc&) {
        // Whoever needs the lines reads them again, and then says what is out of memory.
        lists = VertexLists();
        faces.reset();
        runs.clear();
    }
    laps.Lap(ImportStage::PlainLines);
}

void Segment::ReadRuns()
{
    lists.Empty();
    faces = std::make_unique<FaceBlock>();
    const PlainTarget target{lists, *faces, false};
    const char* const front = text.bytes.get();
    std::size_t place = 0;
    // More of them would take room out of proportion to the text. Whoever takes the segment reads
    // the rest.
    constexpr std::size_t TextPerRun = 1024;
    const std::size_t most = text.size / TextPerRun + 1;
    while (place < text.size && runs.size() < most) {
        const PlainRun run = ReadPlainLines(front, place, End(), target);
        place = run.end;
        if (run.IsEmpty())
            place = static_cast<std::size_t>(AfterLine(front + place, End()) - front);
        else
            runs.push_back(run);
    }
    faces->values.Shrink();
    faces->faceEnds.Shrink();
}

bool SegmentReader::Read(Segment& segment, std::size_t blockSize, std::size_t most)
{
    segment.runs.clear();
    segment.text.size = 0;
    segment.times = StageTimes();
    StageLaps laps(segment.times);
    try {
        if (!FillBuffer(segment, blockSize, most)) {
            PutBack(segment);
            return false;
        }
        laps.Lap(ImportStage::ReadBytes);
        return true;
    } catch (const std::bad_alloc&) {
        PutBack(segment);
        throw;
    }
}

void SegmentReader::PutBack(Segment& segment)
{
    if (segment.text.size > 0)
        std::swap(segment.text, m_rest);
}

/// Reads blocks until a line ends in one. False, having read more than `most` bytes, when none
/// does.
bool SegmentReader::FillBuffer(Segment& segment, std::size_t blockSize, std::size_t most)
{
    TextBuffer& text = segment.text;
    text.Reserve(m_rest.size + blockSize);
    if (m_rest.size > 0)
        std::memcpy(text.bytes.get(), m_rest.bytes.get(), m_rest.size);
    text.size = m_rest.size;
    m_rest.size = 0;
    std::size_t end = 0;
    while (end == 0 && !segment.isLast) {
        if (text.size > most)
            return false;
        text.Reserve(text.size + blockSize);
        end = ReadBlock(segment, blockSize);
    }
    if (segment.isLast)
        return true;
    const std::size_t restSize = text.size - end;
    m_rest.Reserve(restSize);
    std::memcpy(m_rest.bytes.get(), text.bytes.get() + end, restSize);
    m_rest.size = restSize;
    text.size = end;
    return true;
}

/// Appends a block; returns after which byte the last whole line ends, or 0 when none does.
std::size_t SegmentReader::ReadBlock(Segment& segment, std::size_t blockSize)
{
    TextBuffer& text = segment.text;
    char* const block = text.bytes.get() + text.size;
    const std::size_t count = std::fread(block, 1, blockSize, m_stream);
    m_bytesRead += count;
    text.size += count;
    segment.isLast = count < blockSize;
    segment.readFailed = segment.isLast && std::ferror(m_stream) != 0;
    const char* end = block + count;
    std::memset(block + count, 0, TextBuffer::Padding);

    // A CR at the end of the block may have an LF after it, so it is looked at with the next one.
    if (count > 0 && end[-1] == '\r')
        --end;
    const char* const lowest = block == text.bytes.get() ? block : block - 1;
    while (end > lowest && !IsLineEnd(end[-1]))
        --end;
    return end > lowest ? static_cast<std::size_t>(end - text.bytes.get()) : 0;
}
