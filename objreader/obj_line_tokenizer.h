#pragma once

#include "host/geokit/simple_array.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

class ByteBlock;

/// Reads a text file one logical line at a time and cuts the line into tokens.
///
/// - A '#' that is the very first byte of a physical line makes that line a comment.
/// - A backslash that ends a line, or stands before a byte that is not printable ASCII, joins the
///   next physical line to this one.
/// - Once a logical line holds a backslash before a printable byte, as in a path, spaces in the
/// rest
///   of it no longer separate tokens.
///
/// LF, CR, CR LF and a zero byte each end a physical line. Lines and tokens may have any length.
class CObjLineTokenizer
{
public:
    /// Bytes asked of the stream at a time.
    static constexpr std::size_t DefaultBlockSize = 65536;

    /// Readable bytes behind every token's terminating zero, so that numbers may be read eight
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
    bool ReadLine()
    {
        if (m_linesServed == m_lineEnds.Count())
            return ReadMoreLines();
        ServePlainLine();
        return true;
    }

    /// The end of the file was met.
    [[nodiscard]] bool AtEnd() const { return m_atEnd; }

    /// Reading broke off with an error of the stream, which counts as the end of the file.
    [[nodiscard]] bool ReadFailed() const { return m_readFailed; }

    [[nodiscard]] int TokenCount() const { return m_tokenCount; }

    /// A token of the current line: not empty, zero-terminated, valid until the next ReadLine. Null
    /// when there is no such token.
    [[nodiscard]] const char* Token(int index) const
    {
        return index >= 0 && index < m_tokenCount ? m_lineTokens[index] : nullptr;
    }

    /// All tokens of the current line, for those who know how many there are.
    [[nodiscard]] const char* const* Tokens() const { return m_lineTokens; }

private:
    struct CloseFile
    {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    /// Where the cutting of a logical line stands.
    struct CutState
    {
        bool insideToken = false;
        bool insideComment = false;
        bool pathMode = false;
        bool continued = false;
        bool lineFeedFollows = false; ///< the LF of a CR LF is the next byte
    };

    /// Serves the next of the lines cut together.
    void ServePlainLine()
    {
        const int tokensEnd = m_lineEnds[m_linesServed++];
        m_lineTokens = m_tokens.Array() + m_tokensServed;
        m_tokenCount = tokensEnd - m_tokensServed;
        m_tokensServed = tokensEnd;
        // Behind the last line of an ended stream stands its zero byte, which was cut with it.
        m_atEnd = m_cursor > m_dataEnd && m_linesServed == m_lineEnds.Count();
    }

    bool ReadMoreLines();
    void ForgetLines();
    void CutPlainLines();
    void CutBlock(const ByteBlock& block, std::uint64_t valid);
    inline void EndPlainLine(const char* end);
    void CutByRules();
    void CutByte(char* byte);
    void EndPhysicalLine(char* end);

    void Refill(char* keepFrom);
    void MoveToFront(char* keepFrom);
    const char* ReadBlock();
    [[nodiscard]] bool FindCompleteLines(const char* newBytes);

    std::unique_ptr<std::FILE, CloseFile> m_stream;
    std::size_t m_blockSize;

    const char* const* m_lineTokens = nullptr; ///< of the current line
    int m_tokenCount = 0;

    GK_SimpleArray<const char*> m_tokens; ///< of the lines cut together, end to end
    GK_SimpleArray<int> m_lineEnds; ///< for each of these lines the count of tokens up to its end
    int m_linesServed = 0;
    int m_tokensServed = 0;
    CutState m_state;          ///< of the line behind these lines, as far as it has been cut
    bool m_needsRules = false; ///< that line holds a backslash

    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity = 0;
    char* m_cursor = nullptr;      ///< what is to be cut next
    char* m_dataEnd = nullptr;     ///< behind the last byte read
    char* m_completeEnd = nullptr; ///< behind the last line end among the bytes read
    bool m_skipLineFeed = false;   ///< the last byte read was a CR that ended a line
    bool m_streamEnded = false;
    bool m_readFailed = false;
    bool m_atEnd = false;
};
