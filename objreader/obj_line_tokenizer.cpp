#include "objreader/obj_line_tokenizer.h"

#include "objreader/byte_classes.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <bit>
#include <cstring>

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
    if (m_cursor == m_completeEnd)
        Refill(m_cursor);
    CutLine();
    return true;
}

void CObjLineTokenizer::CutLine()
{
    if (*m_cursor == '#') {
        SkipComment();
        return;
    }
    CutState state;
    if (char* const rest = CutPlainBytes(state.insideToken))
        CutByRules(rest, state);
}

namespace {

constexpr int MaskBits = 64;

/// The bits up to and with the given one, or all 64.
constexpr std::uint64_t BitsThrough(int bit)
{
    return bit < MaskBits ? (std::uint64_t{2} << bit) - 1 : ~std::uint64_t{0};
}

} // namespace

/// Cuts 64 bytes at a time up to the line's end and gives null. A backslash asks for more care:
/// then gives where to go on by the full rules.
char* CObjLineTokenizer::CutPlainBytes(bool& insideToken)
{
    for (char* bytes = m_cursor;; bytes += MaskBits) {
        const ByteMasks masks = ClassifyBytes(bytes);
        const int end = std::countr_zero(masks.lineEnd);
        const std::uint64_t line = BitsThrough(end);
        if ((masks.backslash & line) != 0)
            return bytes;

        const std::uint64_t follows = masks.printable << 1 | (insideToken ? 1U : 0U);
        std::uint64_t starts = masks.printable & ~follows & line;
        std::uint64_t ends = ~(masks.printable | masks.lineEnd) & follows & line;
        m_tokens.Reserve(m_tokens.Count() + MaskBits);
        for (; starts != 0; starts &= starts - 1)
            m_tokens.Append(bytes + std::countr_zero(starts));
        for (; ends != 0; ends &= ends - 1)
            bytes[std::countr_zero(ends)] = '\0';

        if (end < MaskBits) {
            EndPhysicalLine(bytes + end);
            return nullptr;
        }
        insideToken = (masks.printable >> (MaskBits - 1)) != 0;
    }
}

/// Cuts the rest of a logical line, however many physical lines are joined to it.
void CObjLineTokenizer::CutByRules(char* bytes, CutState state)
{
    for (char* lineStart = m_cursor;;) {
        for (; !IsLineEnd(*bytes); ++bytes)
            CutByte(bytes, state);
        EndPhysicalLine(bytes);
        if (!state.continued || m_atEnd)
            return;

        if (m_cursor == m_completeEnd)
            lineStart = Refill(lineStart);
        if (*m_cursor == '#') {
            SkipComment();
            return;
        }
        bytes = m_cursor;
        state.continued = state.insideToken = false;
    }
}

void CObjLineTokenizer::CutByte(char* byte, CutState& state)
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

void CObjLineTokenizer::SkipComment()
{
    char* bytes = m_cursor;
    for (;; bytes += MaskBits) {
        const std::uint64_t lineEnd = ClassifyBytes(bytes).lineEnd;
        if (lineEnd == 0)
            continue;
        EndPhysicalLine(bytes + std::countr_zero(lineEnd));
        return;
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
        if (m_cursor == m_dataEnd)
            m_skipLineFeed = true;
        else if (*m_cursor == '\n')
            ++m_cursor;
    }
    *end = '\0';
}

/// Reads until at least one whole line stands behind the cursor, keeping what stands from
/// `keepFrom` on; gives where that stands now.
char* CObjLineTokenizer::Refill(char* keepFrom)
{
    do {
        MoveToFront(keepFrom);
        keepFrom = m_buffer.get();
        ReadBlock();
    } while (!FindCompleteLines());
    return keepFrom;
}

/// Brings the bytes to keep to the front of a buffer with room for one more block.
void CObjLineTokenizer::MoveToFront(char* keepFrom)
{
    const std::ptrdiff_t kept = m_dataEnd - keepFrom;
    const std::size_t needed = static_cast<std::size_t>(kept) + m_blockSize + Padding;
    std::unique_ptr<char[]> larger;
    if (needed > m_capacity) {
        m_capacity = std::max(needed, m_capacity * 2);
        larger.reset(new char[m_capacity]);
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

void CObjLineTokenizer::ReadBlock()
{
    const std::size_t count = std::fread(m_dataEnd, 1, m_blockSize, m_stream.get());
    m_streamEnded = count < m_blockSize;
    m_readFailed = m_streamEnded && std::ferror(m_stream.get()) != 0;
    if (m_skipLineFeed && count > 0) {
        m_skipLineFeed = false;
        if (*m_dataEnd == '\n')
            ++m_cursor;
    }
    m_dataEnd += count;
    // Behind the data stands a zero byte, which ends the file's last line.
    std::memset(m_dataEnd, 0, Padding);
}

/// Notes how far whole lines reach; false while not even one does.
bool CObjLineTokenizer::FindCompleteLines()
{
    if (m_streamEnded) {
        m_completeEnd = m_dataEnd + 1;
        return true;
    }
    const auto isLineEnd = [](char byte) { return IsLineEnd(byte); };
    const auto lastEnd = std::find_if(std::make_reverse_iterator(m_dataEnd),
                                      std::make_reverse_iterator(m_cursor), isLineEnd);
    m_completeEnd = lastEnd.base();
    return m_completeEnd != m_cursor;
}
