#pragma once

#include "objimport/program_error.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>

/// Buffered writing of UTF-8 text to a stream, which remains the caller's. A failed write is
/// remembered.
class TextOutput
{
public:
    explicit TextOutput(std::FILE* stream);
    TextOutput(const TextOutput&) = delete;
    TextOutput& operator=(const TextOutput&) = delete;
    ~TextOutput();

    void Write(std::string_view text);
    void Write(char character);

    /// A number that reads back exactly; null for one that is not finite.
    void Write(double number);
    void Write(int number);

    /// Writes out what is buffered. Empty, or why some of the text could not be written.
    std::string Finish();

    /// Returns whether some of the text could not be written because nobody reads it any more.
    [[nodiscard]] bool IsReaderGone() const { return m_error == EPIPE; }

private:
    void MakeRoom(std::size_t size);
    void Flush();
    template <class Number>
    void WriteNumber(Number number);

    std::FILE* m_stream;
    bool m_isTerminal;
    std::string m_buffer;
    std::size_t m_used = 0;
    int m_error = 0;
};

/// Writes text for the user by `write(TextOutput&)`; throws ProgramError when it cannot be written.
/// What nobody reads any more, as after `objimport a.obj | head`, is no error.
template <class Write>
void WriteForUser(std::FILE* stream, Write write)
{
    TextOutput output(stream);
    write(output);
    if (const std::string why = output.Finish(); !why.empty() && !output.IsReaderGone())
        throw ProgramError("cannot write to standard output: " + why);
}
