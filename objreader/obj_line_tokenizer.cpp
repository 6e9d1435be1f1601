#include "objreader/obj_line_tokenizer.h"

#include "objreader/byte_classes.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <bit>
#include <cstring>

// Lines without a backslash are cut many at a time, 64 bytes in one step: that is where the speed
// comes from. A line with a backslash is cut byte by byte, by the full rules.

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

/// Reads the next line when all lines cut so far have been served.
bool CObjLineTokenizer::ReadMoreLines()
{
    if (!m_stream)
        return false;
    if (m_atEnd)
        return true;
    if (!m_needsRules) {
        ForgetLines();
        if (m_cursor == m_completeEnd)
            Refill(m_cursor);
        CutPlainLines();
    }
    if (m_linesServed < m_lineEnds.Count())
        ServePlainLine();
    else
        CutByRules();
    return true;
}

void CObjLineTokenizer::ForgetLines()
{
    m_tokens.Empty();
    m_lineEnds.Empty();
    m_linesServed = m_tokensServed = 0;
}

/// Cuts all whole lines from the cursor on, up to the first block of bytes that holds a backslash.
/// The line that reaches into that block is left as far as it has been cut.
void CObjLineTokenizer::CutPlainLines()
{
    m_state = {};
    m_state.insideComment = *m_cursor == '#';
    while (m_cursor < m_completeEnd) {
        const ByteBlock block(m_cursor);
        if (block.anyBackslash) {
            if (m_state.lineFeedFollows)
                ++m_cursor;
            m_state.lineFeedFollows = false;
            m_needsRules = m_cursor < m_completeEnd;
            return;
        }
        const std::ptrdiff_t left = m_completeEnd - m_cursor;
        if (left >= ByteBlock::Size) {
            CutBlock(block, ~std::uint64_t{0});
            block.StorePrintable(m_cursor);
            m_cursor += ByteBlock::Size;
        } else {
            CutBlock(block, (std::uint64_t{1} << left) - 1);
            std::replace_if(
                m_cursor, m_completeEnd, [](char byte) { return !IsPrintable(byte); }, '\0');
            m_cursor = m_completeEnd;
        }
    }
}

namespace {

/// Puts down the places of the bytes whose bits are set; gives the place behind the last.
const char** PutTokens(const char** token, const char* bytes, std::uint64_t starts)
{
    for (; starts != 0; starts &= starts - 1)
        *token++ = bytes + std::countr_zero(starts);
    return token;
}

} // namespace

/// Notes what follows a line end: the LF of a CR LF, a comment.
inline void CObjLineTokenizer::EndPlainLine(const char* end)
{
    const char* next = end + 1;
    if (*end == '\r') {
        m_skipLineFeed = next == m_dataEnd;
        m_state.lineFeedFollows = *next == '\n';
        if (m_state.lineFeedFollows)
            ++next;
    }
    m_state.insideComment = *next == '#';
}

/// Cuts the `valid` bytes of the block at the cursor.
void CObjLineTokenizer::CutBlock(const ByteBlock& block, std::uint64_t valid)
{
    const std::uint64_t printable = block.printable & valid;
    const std::uint64_t follows = printable << 1 | (m_state.insideToken ? 1U : 0U);
    std::uint64_t starts = printable & ~follows;
    std::uint64_t lineEnds = block.lineEnds & valid;
    if (m_state.lineFeedFollows)
        lineEnds &= ~std::uint64_t{1};
    m_state.lineFeedFollows = false;

    const char* const bytes = m_cursor;
    const char** token = m_tokens.AppendUnset(ByteBlock::Size);
    const char* const* const tokens = m_tokens.Array();
    int* lineEnd = m_lineEnds.AppendUnset(ByteBlock::Size);
    while (lineEnds != 0) {
        const int place = std::countr_zero(lineEnds);
        const std::uint64_t before = lineEnds ^ (lineEnds - 1);
        lineEnds &= ~before;
        if (!IsLineEnd(bytes[place]))
            continue;
        if (!m_state.insideComment)
            token = PutTokens(token, bytes, starts & before);
        starts &= ~before;
        *lineEnd++ = static_cast<int>(token - tokens);
        EndPlainLine(bytes + place);
        if (m_state.lineFeedFollows && place < ByteBlock::Size - 1) {
            lineEnds &= lineEnds - 1;
            m_state.lineFeedFollows = false;
        }
    }
    if (!m_state.insideComment)
        token = PutTokens(token, bytes, starts);
    m_tokens.SetCount(static_cast<int>(token - tokens));
    m_lineEnds.SetCount(static_cast<int>(lineEnd - m_lineEnds.Array()));
    m_state.insideToken = (printable >> (ByteBlock::Size - 1)) != 0;
}

/// Cuts the rest of the line at the cursor, and all physical lines that are joined to it.
void CObjLineTokenizer::CutByRules()
{
    m_tokens.RemoveFirst(m_tokensServed);
    for (;;) {
        char* byte = m_cursor;
        for (; !IsLineEnd(*byte); ++byte)
            CutByte(byte);
        EndPhysicalLine(byte);
        if (!m_state.continued || m_atEnd)
            break;
        if (m_cursor == m_completeEnd)
            Refill(m_tokens.IsEmpty() ? m_cursor : m_buffer.get() + (m_tokens[0] - m_buffer.get()));
        m_state.insideComment = *m_cursor == '#';
        m_state.insideToken = m_state.continued = false;
    }
    m_lineTokens = m_tokens.Array();
    m_tokenCount = m_tokens.Count();
    m_lineEnds.Empty();
    m_linesServed = 0;
    m_needsRules = false;
}

void CObjLineTokenizer::CutByte(char* byte)
{
    if (m_state.insideComment)
        return;
    if (*byte == '\\') {
        if (!IsPrintable(byte[1])) {
            m_state.continued = true;
            *byte = '\0';
            return;
        }
        m_state.pathMode = true;
    }
    if (IsPrintable(*byte)) {
        if (!m_state.insideToken)
            m_tokens.Append(byte);
        m_state.insideToken = true;
    } else if (*byte != ' ' || !m_state.pathMode) {
        m_state.insideToken = false;
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
    EndPlainLine(end);
    m_cursor = end + (m_state.lineFeedFollows ? 2 : 1);
    m_state.lineFeedFollows = false;
    *end = '\0';
}

/// Reads until at least one whole line stands behind the cursor, keeping what stands from
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

/// Reads one more block behind the data; gives where the bytes of it begin that are to be cut.
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
    // Behind the data stands a zero byte, which ends the file's last line.
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
