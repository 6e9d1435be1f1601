#include "objimport/check/raw_line.h"

#include <algorithm>

namespace {

constexpr std::string_view Blanks = " \t";

} // namespace

std::size_t CountRawLines(std::string_view raw)
{
    const auto ends = static_cast<std::size_t>(std::count(raw.begin(), raw.end(), '\n'));
    return raw.empty() || raw.back() == '\n' ? ends : ends + 1;
}

std::string RawRest(std::string_view raw)
{
    std::string joined;
    while (!raw.empty()) {
        const std::size_t end = std::min(raw.find('\n'), raw.size());
        std::string_view line = raw.substr(0, end);
        raw.remove_prefix(std::min(end + 1, raw.size()));
        if (line.starts_with('#'))
            continue;
        if (line.ends_with('\\'))
            line.remove_suffix(1);
        joined.append(joined.empty() ? "" : " ").append(line);
    }
    const std::string_view text = Trimmed(joined);
    const std::size_t keywordEnd = std::min(text.find_first_of(Blanks), text.size());
    return std::string(Trimmed(text.substr(keywordEnd)));
}

std::string WithSingleSpaces(std::string_view text)
{
    std::string result;
    for (const char c : Trimmed(text)) {
        const bool isBlank = Blanks.find(c) != std::string_view::npos;
        if (!isBlank)
            result += c;
        else if (result.back() != ' ')
            result += ' ';
    }
    return result;
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(Blanks), text.size());
    text.remove_prefix(first);
    const std::size_t last = text.find_last_not_of(Blanks);
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}
