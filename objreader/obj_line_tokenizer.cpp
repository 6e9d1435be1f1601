#include "objreader/obj_line_tokenizer.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <cstring>

namespace {

/// Printable ASCII without the space: what tokens are made of.
constexpr bool IsPrintable(char byte)
{
    return byte > 0x20 && byte < 0x7F;
}

/// LF, CR or a zero byte.
constexpr bool IsLineEnd(char byte)
{
    return byte == '\n' || byte == '\r' || byte == '\0';
}

} // namespace

CObjLineTokenizer::CObjLineTokenizer(const wchar_t* path) : CObjLineTokenizer(_wfopen(path, L"rb"))
{
}

CObjLineTokenizer::CObjLineTokenizer(std::FILE* stream, std::size_t blockSize)
    : m_stream(stream), m_blockSize(blockSize)
{
    // Blocks go straight into the line buffer, so the stream needs none of its own.
    if (m_stream)
        std::setvbuf(m_stream.get(), nullptr, _IONBF, 0);
}

CObjLineTokenizer::~CObjLineTokenizer() = default;

bool CObjLineTokenizer::ReadLine()
{
    if (!m_stream)
        return false;
    if (m_atEnd)
        return true;
    m_tokens.Empty();
    CutState state;
    do {
        if (m_cursor == m_completeEnd)
            Refill(m_tokens.IsEmpty() ? m_cursor : m_buffer.get() + (m_tokens[0] - m_buffer.get()));
        EndPhysicalLine(CutPhysicalLine(state));
    } while (state.continued && !m_atEnd);
    return true;
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
    if (*end == '\r') {
        m_skipLineFeed = m_cursor == m_dataEnd;
        if (*m_cursor == '\n')
            ++m_cursor;
    }
    *end = '\0';
}

/// Reads until at least one whole line stands after the cursor, keeping what stands from
/// `keepFrom` on, which moves to the front of the buffer with all that points there.
void CObjLineTokenizer::Refill(char* keepFrom)
{
    const char* newBytes = nullptr;
    do {
        MoveToFront(keepFrom);
        keepFrom = m_buffer.get();
        newBytes = ReadBlock();
    } while (!FindCompleteLines(newBytes));
}

/// Brings the bytes to keep to the front of a buffer with room for one more block.
void CObjLineTokenizer::MoveToFront(char* keepFrom)
{
    const std::ptrdiff_t kept = m_dataEnd - keepFrom;
    const std::size_t needed = static_cast<std::size_t>(kept) + m_blockSize + Padding;
    if (keepFrom == m_buffer.get() && needed <= m_capacity)
        return;
    std::unique_ptr<char[]> larger;
    if (needed > m_capacity) {
        const std::size_t capacity = std::max(needed, m_capacity * 2);
        larger.reset(new char[capacity]);
        m_capacity = capacity;
    }
    char* const front = larger ? larger.get() : m_buffer.get();
    if (kept > 0)
        std::memmove(front, keepFrom, static_cast<std::size_t>(kept));
    for (const char*& token : m_tokens)
        token = front + (token - keepFrom);
    m_cursor = front + (m_cursor - keepFrom);
    m_dataEnd = front + kept;
    if (larger)
        m_buffer = std::move(larger);
}

/// Reads one more block after the data; returns where the bytes of it begin that are to be cut.
const char* CObjLineTokenizer::ReadBlock()
{
    const char* newBytes = m_dataEnd;
    const std::size_t count = std::fread(m_dataEnd, 1, m_blockSize, m_stream.get());
    m_streamEnded = count < m_blockSize;
    m_readFailed = m_streamEnded && std::ferror(m_stream.get()) != 0;
    if (m_skipLineFeed && count > 0) {
        m_skipLineFeed = false;
        if (*m_dataEnd == '\n')
            newBytes = ++m_cursor;
    }
    m_dataEnd += count;
    // After the data stands a zero byte, which ends the file's last line.
    std::memset(m_dataEnd, 0, Padding);
    return newBytes;
}

/// Notes how far whole lines reach, which only new bytes can change; false while not even one does.
bool CObjLineTokenizer::FindCompleteLines(const char* newBytes)
{
    if (m_streamEnded) {
        m_completeEnd = m_dataEnd + 1;
        return true;
    }
    char* end = m_dataEnd;
    while (end != newBytes && !IsLineEnd(end[-1]))
        --end;
    m_completeEnd = end == newBytes ? m_cursor : end;
    return m_completeEnd != m_cursor;
}
