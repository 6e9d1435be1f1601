#pragma once

#include <charconv>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

/// Writes text to a file in large blocks. Throws std::runtime_error when the file cannot be
/// written.
class TextSink
{
public:
    explicit TextSink(const std::string& path) : m_file(std::fopen(path.c_str(), "wb"))
    {
        if (m_file == nullptr)
            throw std::runtime_error(path + ": cannot be written");
        m_block.reserve(BlockSize + Slack);
    }

    TextSink(const TextSink&) = delete;
    TextSink& operator=(const TextSink&) = delete;

    ~TextSink()
    {
        if (m_file != nullptr)
            std::fclose(m_file);
    }

    TextSink& operator<<(std::string_view text)
    {
        m_block += text;
        m_written += text.size();
        FlushWhenFull();
        return *this;
    }

    TextSink& operator<<(long long number)
    {
        char digits[32];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        return *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
    }

    /// With six decimals, as most programs write them.
    TextSink& operator<<(double number)
    {
        WriteFixed(number, 6);
        return *this;
    }

    void WriteFixed(double number, int decimals)
    {
        char digits[512];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number,
                                              std::chars_format::fixed, decimals)
                                    .ptr;
        *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
    }

    /// With seventeen digits, as programs write them that lose nothing.
    void WriteDigits17(double number)
    {
        char digits[64];
        const char* const end =
            std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 17)
                .ptr;
        *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
    }

    [[nodiscard]] std::size_t Written() const { return m_written; }

    void Close()
    {
        Flush();
        const int result = std::fclose(m_file);
        m_file = nullptr;
        if (result != 0)
            throw std::runtime_error("a scene cannot be written: is the disk full?");
    }

private:
    static constexpr std::size_t BlockSize = 1 << 20;
    static constexpr std::size_t Slack = 256;

    void FlushWhenFull()
    {
        if (m_block.size() >= BlockSize)
            Flush();
    }

    void Flush()
    {
        if (std::fwrite(m_block.data(), 1, m_block.size(), m_file) != m_block.size())
            throw std::runtime_error("a scene cannot be written: is the disk full?");
        m_block.clear();
    }

    std::FILE* m_file;
    std::string m_block;
    std::size_t m_written = 0;
};
