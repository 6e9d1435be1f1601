#pragma once

#include "objreader/segment_source.h"

#include "host/geokit/simple_array.h"
#include "host/runtime/file.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

/// Reads a text file one logical line at a time and cuts the line into tokens.
///
/// - A '#' that is the very first byte of a physical line makes that line a comment.
/// - A backslash that ends a line, or stands before a byte that is not printable ASCII, joins the
///   next physical line to this one.
/// - Once a logical line holds a backslash before a printable byte, as in a path, spaces in the
///   rest of it no longer separate tokens.
///
/// LF, CR, CR LF and a zero byte each end a physical line. Lines and tokens may have any length.
class CObjLineTokenizer
{
public:
    /// Bytes asked of the stream at a time.
    static constexpr std::size_t DefaultBlockSize = 65536;

    /// Readable bytes after the end of every token and line, so that numbers may be read eight
    /// bytes at a time.
    static constexpr std::size_t Padding = TextBuffer::Padding;

    /// Opens a file; one that cannot be opened leaves the tokenizer without a stream.
    explicit CObjLineTokenizer(const wchar_t* path);

    /// Takes over an open stream, or null.
    explicit CObjLineTokenizer(std::FILE* stream, std::size_t blockSize = DefaultBlockSize);

    CObjLineTokenizer(const CObjLineTokenizer&) = delete;
    CObjLineTokenizer& operator=(const CObjLineTokenizer&) = delete;
    ~CObjLineTokenizer();

    /// Reads the next logical line. False only without a stream. The line that meets the end of the
    /// file is still to be handled; after it nothing changes any more.
    bool ReadLine();

    /// Has each ReadLine put the text of its physical lines into `receiver`, as it stands in the
    /// file, with a line feed for each line end. The receiver stays the caller's and must outlive
    /// the tokenizer.
    void KeepRawLines(std::string& receiver) { m_rawLines = &receiver; }

    /// The next line is in the next segment.
    [[nodiscard]] bool AtSegmentEnd() const { return m_cursor == m_completeEnd; }

    /// Has the next physical line stand whole at the cursor. False when there is none.
    bool FetchLine();

    // For those who can do without tokens: whole lines in place, after FetchLine. Places are
    // counted from the front of the segment that they stand in.

    [[nodiscard]] const char* Front() const { return m_front; }
    [[nodiscard]] std::size_t Cursor() const
    {
        return static_cast<std::size_t>(m_cursor - m_front);
    }

    /// The segment that the cursor is in.
    [[nodiscard]] Segment& CurrentSegment() { return m_segment; }

    /// Returns the plain lines at the cursor when they have been read ahead, or null.
    [[nodiscard]] const PlainRun* RunAtCursor();

    /// Returns where the next lines after the cursor that have been read ahead begin, or the end of
    /// the data.
    [[nodiscard]] const char* NextRunOrEnd() const;

    /// Steps over lines.
    void SkipTo(std::size_t place) { m_cursor = m_front + place; }

    /// The stream's segments, which may be read ahead.
    [[nodiscard]] SegmentSource& Source() { return m_source; }

    /// The end of the file was met.
    [[nodiscard]] bool AtEnd() const { return m_atEnd; }

    /// The end of the file was met because of an error of the stream.
    [[nodiscard]] bool ReadFailed() const { return m_atEnd && m_segment.readFailed; }

    [[nodiscard]] int TokenCount() const { return m_tokens.Count(); }

    /// A token of the current line: not empty, zero-terminated, valid until the next ReadLine. Null
    /// when there is no such token.
    [[nodiscard]] const char* Token(int index) const
    {
        return index >= 0 && index < TokenCount() ? m_tokens[index] : nullptr;
    }

    /// All tokens of the current line, for those who know how many there are.
    [[nodiscard]] const char* const* Tokens() const { return m_tokens.Array(); }

private:
    /// Where the cutting of a logical line stands.
    struct CutState
    {
        bool insideToken = false;
        bool pathMode = false;
        bool continued = false;
    };

    void KeepRawLine() const;
    char* CutPhysicalLine(CutState& state);
    inline void CutByte(char* byte, CutState& state);
    void EndPhysicalLine(char* end);

    void Refill(const char* keepFrom);
    char* JoinSegment(const char* keepFrom);

    KelvoFile m_stream;
    SegmentSource m_source;

    GK_SimpleArray<const char*> m_tokens; ///< of the current line
    std::string* m_rawLines = nullptr;    ///< receives the current line as it stands in the file

    Segment m_segment;         ///< whose lines are being cut
    TextBuffer m_joined;       ///< a line that goes beyond a segment, with the segments it is in
    char* m_front = nullptr;   ///< of the segment, wherever its text stands now
    char* m_cursor = nullptr;  ///< what is to be cut next
    char* m_dataEnd = nullptr; ///< after the last byte of the segment
    char* m_completeEnd = nullptr; ///< after the last line, which a zero byte may end
    std::size_t m_nextRun = 0;     ///< of the segment's runs, the first at the cursor or after it
    bool m_atEnd = false;
};
