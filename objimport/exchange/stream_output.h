#pragma once

#include <cstdint>
#include <cstdio>
#include <ios>
#include <streambuf>
#include <string>

/// Passes what is written to a C++ stream on to a C stream, which remains the caller's. Remembers
/// the first failure; what comes after it is dropped.
class StreamOutput : public std::streambuf
{
public:
    explicit StreamOutput(std::FILE* stream) : m_stream(stream) {}

    /// Returns how many bytes were written.
    [[nodiscard]] std::uint64_t Written() const { return m_written; }

    /// Writes out what the C stream holds. Returns why not all was written; empty when it was.
    std::string Finish();

protected:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    int_type overflow(int_type byte) override;

private:
    std::FILE* m_stream;
    std::uint64_t m_written = 0;
    int m_error = 0;
};
