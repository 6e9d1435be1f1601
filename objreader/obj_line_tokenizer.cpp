#include "objreader/obj_line_tokenizer.h"

#include "objreader/text_bytes.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <cstring>

namespace {

/// Printable ASCII without the space: what tokens are made of.
constexpr bool IsPrintable(char byte)
{
    return byte > 0x20 && byte < 0x7F;
}

} // namespace

CObjLineTokenizer::CObjLineTokenizer(const wchar_t* path) : CObjLineTokenizer(_wfopen(path, L"rb"))
{
}

CObjLineTokenizer::CObjLineTokenizer(std::FILE* stream, std::size_t blockSize)
    : m_stream(stream), m_source(stream, blockSize)
{
    // Blocks go straight into the segments, so the stream needs none of its own.
    if (m_stream)
        std::setvbuf(m_stream.get(), nullptr, _IONBF, 0);
}

CObjLineTokenizer::~CObjLineTokenizer() = default;

bool CObjLineTokenizer::FetchLine()
{
    if (!m_stream || m_atEnd)
        return false;
    if (m_cursor == m_completeEnd) {
        m_tokens.Empty();
        Refill(m_cursor);
    }
    return true;
}

const PlainRun* CObjLineTokenizer::RunAtCursor()
{
    const std::vector<PlainRun>& runs = m_segment.runs;
    while (m_nextRun < runs.size() && runs[m_nextRun].begin < Cursor())
        ++m_nextRun;
    return m_nextRun < runs.size() && runs[m_nextRun].begin == Cursor() ? &runs[m_nextRun]
                                                                        : nullptr;
}

const char* CObjLineTokenizer::NextRunOrEnd() const
{
    const std::vector<PlainRun>& runs = m_segment.runs;
    const std::size_t next =
        m_nextRun + (m_nextRun < runs.size() && runs[m_nextRun].begin == Cursor() ? 1 : 0);
    return next < runs.size() ? m_front + runs[next].begin : m_dataEnd;
}

bool CObjLineTokenizer::ReadLine()
{
    if (!m_stream)
        return false;
    if (m_atEnd)
        return true;
    m_tokens.Empty();
    if (m_rawLines != nullptr)
        m_rawLines->clear();
    CutState state;
    do {
        if (m_cursor == m_completeEnd)
            Refill(m_tokens.IsEmpty() ? m_cursor : m_tokens[0]);
        if (m_rawLines != nullptr)
            KeepRawLine();
        EndPhysicalLine(CutPhysicalLine(state));
    } while (state.continued && !m_atEnd);
    return true;
}

/// Appends the physical line at the cursor to the raw lines.
void CObjLineTokenizer::KeepRawLine() const
{
    char* const end = std::find_if(m_cursor, m_dataEnd, IsLineEnd);
    m_rawLines->append(m_cursor, end);
    if (end != m_dataEnd)
        *m_rawLines += '\n';
}

/// Cuts the physical line at the cursor into tokens; returns where it ends.
char* CObjLineTokenizer::CutPhysicalLine(CutState& state)
{
    state.insideToken = state.continued = false;
    char* byte = m_cursor;
    const bool comment = *byte == '#';
    for (; !IsLineEnd(*byte); ++byte) {
        if (!comment)
            CutByte(byte, state);
    }
    return byte;
}

inline void CObjLineTokenizer::CutByte(char* byte, CutState& state)
{
    if (*byte == '\\') {
        if (!IsPrintable(byte[1])) {
            state.continued = true;
            *byte = '\0';
            return;
        }
        state.pathMode = true;
    }
    if (IsPrintable(*byte)) {
        if (!state.insideToken)
            m_tokens.Append(byte);
        state.insideToken = true;
    } else if (*byte != ' ' || !state.pathMode) {
        state.insideToken = false;
        *byte = '\0';
    }
}

/// Ends the last token with its line and steps over the line end, which CR LF is one of.
void CObjLineTokenizer::EndPhysicalLine(char* end)
{
    if (end == m_dataEnd) {
        m_atEnd = true;
        return;
    }
    m_cursor = end + 1;
    if (*end == '\r' && *m_cursor == '\n')
        ++m_cursor;
    *end = '\0';
}

/// Goes on to the next segment, keeping what stands from `keepFrom` on, which moves in front of it
/// with all tokens that point there.
void CObjLineTokenizer::Refill(const char* keepFrom)
{
    if (keepFrom == m_dataEnd) {
        m_source.Next(m_segment);
        m_joined = TextBuffer();
        m_front = m_segment.text.bytes.get();
    } else {
        m_front = JoinSegment(keepFrom);
    }
    m_cursor = m_front;
    m_nextRun = 0;
    m_dataEnd = m_front + m_segment.text.size;
    // After the file stands a zero byte, which ends its last line.
    m_completeEnd = m_dataEnd + (m_segment.isLast ? 1 : 0);
}

/// Puts the next segment after the text to keep; returns where the segment begins.
char* CObjLineTokenizer::JoinSegment(const char* keepFrom)
{
    const auto kept = static_cast<std::size_t>(m_dataEnd - keepFrom);
    Segment next;
    m_source.Next(next);
    const std::size_t size = kept + next.text.size;
    if (keepFrom != m_joined.bytes.get() || !m_joined.HasRoomFor(size)) {
        TextBuffer larger;
        larger.Reserve(std::max(size, 2 * kept));
        std::memcpy(larger.bytes.get(), keepFrom, kept);
        for (const char*& token : m_tokens)
            token = larger.bytes.get() + (token - keepFrom);
        m_joined = std::move(larger);
    }
    char* const front = m_joined.bytes.get() + kept;
    std::memcpy(front, next.text.bytes.get(), next.text.size + Padding);
    m_segment = std::move(next);
    return front;
}
