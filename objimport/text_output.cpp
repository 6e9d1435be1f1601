#include "objimport/text_output.h"

#include "console_host/framework/work_note.h"
#include "console_host/runtime/terminal.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

namespace {

constexpr std::size_t BufferSize = std::size_t{1} << 16;
constexpr std::size_t LongestNumber = 32;

} // namespace

TextOutput::TextOutput(std::FILE* stream)
    : m_stream(stream), m_isTerminal(IsTerminal(stream)), m_buffer(BufferSize, '\0')
{
}

TextOutput::~TextOutput()
{
    Flush();
}

void TextOutput::Flush()
{
    if (m_isTerminal)
        WorkNote::Instance().Hide();
    errno = 0;
    if (m_error == 0 && m_used > 0 && !WriteUtf8(m_stream, {m_buffer.data(), m_used}))
        m_error = errno != 0 ? errno : EIO;
    m_used = 0;
}

void TextOutput::MakeRoom(std::size_t size)
{
    if (m_buffer.size() - m_used < size)
        Flush();
}

void TextOutput::Write(std::string_view text)
{
    // A character is never split between two writes.
    MakeRoom(std::min(text.size(), m_buffer.size()));
    while (!text.empty()) {
        MakeRoom(1);
        const std::size_t count = std::min(text.size(), m_buffer.size() - m_used);
        std::memcpy(m_buffer.data() + m_used, text.data(), count);
        m_used += count;
        text.remove_prefix(count);
    }
}

void TextOutput::Write(char character)
{
    MakeRoom(1);
    m_buffer[m_used++] = character;
}

void TextOutput::Write(double number)
{
    if (!std::isfinite(number))
        return Write("null");
    // "-0" would be read as an integer, which has no sign for zero.
    if (number == 0.0 && std::signbit(number))
        return Write("-0.0");
    WriteNumber(number);
}

void TextOutput::Write(int number)
{
    WriteNumber(number);
}

template <class Number>
void TextOutput::WriteNumber(Number number)
{
    MakeRoom(LongestNumber);
    char* first = m_buffer.data() + m_used;
    m_used +=
        static_cast<std::size_t>(std::to_chars(first, first + LongestNumber, number).ptr - first);
}

std::string TextOutput::Finish()
{
    Flush();
    errno = 0;
    if (m_error == 0 && std::fflush(m_stream) != 0)
        m_error = errno != 0 ? errno : EIO;
    return m_error == 0 ? std::string() : std::generic_category().message(m_error);
}
