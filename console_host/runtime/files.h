#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

/// The bytes of a settings or text file. Throws std::runtime_error, saying why in a few words, when
/// it cannot be read or is larger than 16 MiB.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Why a file cannot be read: "no such file", "a folder, not a file", ...; empty when it can.
std::string WhyUnreadable(const std::filesystem::path& path);

/// Calls `take` for each line, without its line end (LF or CR LF) and without a byte order mark.
template <class Take>
void ForEachLine(std::string_view text, Take take)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, ByteOrderMark.size()) == ByteOrderMark)
        text.remove_prefix(ByteOrderMark.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        take(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}
