#include "objimport/file_pattern.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "console_host/runtime/utf8.h"

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <system_error>

namespace {

#ifdef _WIN32
constexpr bool IgnoresCase = true;
constexpr std::string_view Separators = "/\\:";
#else
constexpr bool IgnoresCase = false;
constexpr std::string_view Separators = "/";
#endif

char32_t WithoutCase(char32_t code)
{
    return code <= 0xFFFF ? static_cast<char32_t>(std::towlower(static_cast<wint_t>(code))) : code;
}

/// Takes one character off a text.
char32_t TakeCharacter(std::string_view& text)
{
    const Utf8Character first = FirstCharacter(text);
    text.remove_prefix(first.size);
    return first.code;
}

} // namespace

bool IsPattern(std::string_view name)
{
    return name.find_first_of("*?") != std::string_view::npos;
}

bool MatchesPattern(std::string_view name, std::string_view pattern, bool ignoreCase)
{
    std::string_view afterStar = pattern; // where to continue when the last '*' takes one more
    std::string_view taken = name;        // what that '*' leaves
    bool sawStar = false;
    while (!name.empty()) {
        std::string_view rest = pattern;
        const char32_t wanted = rest.empty() ? U'\0' : TakeCharacter(rest);
        std::string_view left = name;
        const char32_t found = TakeCharacter(left);
        if (!pattern.empty() && wanted == U'*') {
            sawStar = true;
            afterStar = pattern = rest;
            taken = name;
        } else if (!pattern.empty() &&
                   (wanted == U'?' || wanted == found ||
                    (ignoreCase && WithoutCase(wanted) == WithoutCase(found)))) {
            pattern = rest;
            name = left;
        } else if (sawStar) {
            TakeCharacter(taken);
            name = taken;
            pattern = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

std::vector<std::string> FilesOfPattern(const std::string& pattern)
{
    const std::size_t slash = pattern.find_last_of(Separators);
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::string folder = pattern.substr(0, start);
    const std::string last = pattern.substr(start);
    std::vector<std::string> found;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : PathFromUtf8(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = Utf8Path(entry->path().filename());
        const bool isHidden = name.front() == '.' && last.front() != '.';
        if (!isHidden && MatchesPattern(name, last, IgnoresCase) &&
            KindOfFile(entry->path()) != FileKind::Folder)
            found.push_back(folder + name);
    }
    std::sort(found.begin(), found.end());
    return found;
}
