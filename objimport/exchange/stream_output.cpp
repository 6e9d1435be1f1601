#include "objimport/exchange/stream_output.h"

#include <cerrno>
#include <cstddef>
#include <system_error>

std::streamsize StreamOutput::xsputn(const char* bytes, std::streamsize count)
{
    if (m_error != 0)
        return 0;
    errno = 0;
    const std::size_t written = std::fwrite(bytes, 1, static_cast<std::size_t>(count), m_stream);
    if (written != static_cast<std::size_t>(count))
        m_error = errno != 0 ? errno : EIO;
    m_written += written;
    return static_cast<std::streamsize>(written);
}

StreamOutput::int_type StreamOutput::overflow(int_type byte)
{
    if (traits_type::eq_int_type(byte, traits_type::eof()))
        return traits_type::not_eof(byte);
    const char character = traits_type::to_char_type(byte);
    return xsputn(&character, 1) == 1 ? byte : traits_type::eof();
}

std::string StreamOutput::Finish()
{
    errno = 0;
    if (m_error == 0 && std::fflush(m_stream) != 0)
        m_error = errno != 0 ? errno : EIO;
    return m_error == 0 ? std::string() : std::generic_category().message(m_error);
}
