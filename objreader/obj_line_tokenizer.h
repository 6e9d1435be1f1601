#pragma once

#include "host/geokit/simple_array.h"

#include <cstddef>
#include <cstdio>
#include <memory>

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
    static constexpr std::size_t Padding = 64;

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

    /// The text of the next physical line, as far as it has been read from the stream: after it
    /// stands a line end, or a zero byte where it is not whole. For those who can do without
    /// tokens. Null before anything was read.
    [[nodiscard]] const char* NextLine() const { return m_cursor; }

    /// Steps over the next line, whose text ends at `end`. False, and nothing done, when no line
    /// end stands there.
    bool SkipLine(const char* end)
    {
        const bool isReturn = *end == '\r' && end + 1 != m_dataEnd;
        if (*end != '\n' && !isReturn)
            return false;
        const bool isPair = isReturn && end[1] == '\n';
        m_cursor += end - m_cursor + (isPair ? 2 : 1);
        return true;
    }

    /// The end of the file was met.
    [[nodiscard]] bool AtEnd() const { return m_atEnd; }

    /// Reading broke off with an error of the stream, which counts as the end of the file.
    [[nodiscard]] bool ReadFailed() const { return m_readFailed; }

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
    struct CloseFile
    {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    /// Where the cutting of a logical line stands.
    struct CutState
    {
        bool insideToken = false;
        bool pathMode = false;
        bool continued = false;
    };

    char* CutPhysicalLine(CutState& state);
    inline void CutByte(char* byte, CutState& state);
    void EndPhysicalLine(char* end);

    void Refill(char* keepFrom);
    void MoveToFront(char* keepFrom);
    const char* ReadBlock();
    [[nodiscard]] bool FindCompleteLines(const char* newBytes);

    std::unique_ptr<std::FILE, CloseFile> m_stream;
    std::size_t m_blockSize;

    GK_SimpleArray<const char*> m_tokens; ///< of the current line

    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity = 0;
    char* m_cursor = nullptr;      ///< what is to be cut next
    char* m_dataEnd = nullptr;     ///< after the last byte read
    char* m_completeEnd = nullptr; ///< after the last line end among the bytes read
    bool m_skipLineFeed = false;   ///< the last byte read was a CR that ended a line
    bool m_streamEnded = false;
    bool m_readFailed = false;
    bool m_atEnd = false;
};
