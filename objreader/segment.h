#pragma once

#include "objreader/plain_lines.h"
#include "objreader/stage_times.h"

#include <cstddef>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

/// Bytes of a file, in a buffer that grows.
struct TextBuffer
{
    /// Readable bytes after the end of the text, so that numbers may be read eight bytes at a time.
    static constexpr std::size_t Padding = 64;

    std::unique_ptr<char[]> bytes;
    std::size_t capacity = 0;
    std::size_t size = 0; ///< of the text

    /// Makes room for so many bytes in all, and the padding; keeps the text. Throws std::bad_alloc,
    /// and changes nothing, when out of memory.
    void Reserve(std::size_t newSize);

    [[nodiscard]] bool HasRoomFor(std::size_t newSize) const
    {
        return newSize + Padding <= capacity;
    }
};

/// A stretch of a file that ends with a line end, unless the file ends with it, and that no CR LF
/// goes beyond. Zero bytes follow a file's last.
struct Segment
{
    TextBuffer text;
    bool isLast = false;
    bool readFailed = false; ///< it is the last because the stream could not be read any further
    StageTimes times;        ///< what reading it has taken

    // Its plain lines, when they have been read ahead.
    VertexLists lists;
    std::unique_ptr<FaceBlock> faces;
    std::vector<PlainRun> runs;

    [[nodiscard]] const char* End() const { return text.bytes.get() + text.size; }

    /// Returns where the lists ended before one of the runs.
    [[nodiscard]] ListCounts ListsBefore(const PlainRun& run) const
    {
        return &run == runs.data() ? ListCounts{} : (&run - 1)->listEnds;
    }

    /// Reads all plain lines into the segment's own lists. Out of memory, it holds none.
    void ReadPlain();

private:
    void ReadRuns();
};

/// Cuts a stream into segments.
class SegmentReader
{
public:
    /// The stream must outlive the reader.
    explicit SegmentReader(std::FILE* stream) : m_stream(stream) {}

    /// Reads the next segment, of `blockSize` bytes and what the last block had left, or more where
    /// lines are longer, into the buffer that `segment` has. False when it has more than `most`
    /// bytes. Throws std::bad_alloc when out of memory. In both cases, what was read is part of the
    /// next segment. Not to be called after the last one.
    bool Read(Segment& segment, std::size_t blockSize,
              std::size_t most = std::numeric_limits<std::size_t>::max());

    [[nodiscard]] std::size_t BytesRead() const { return m_bytesRead; }

private:
    bool FillBuffer(Segment& segment, std::size_t blockSize, std::size_t most);
    void PutBack(Segment& segment);
    std::size_t ReadBlock(Segment& segment, std::size_t blockSize);

    std::FILE* m_stream;
    std::size_t m_bytesRead = 0;
    TextBuffer m_rest; ///< what follows the last line end that was read
};
