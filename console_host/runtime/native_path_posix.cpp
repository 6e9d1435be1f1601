#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <climits>
#include <clocale>
#include <cwctype>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace {

/// Case of letters beyond ASCII, whatever the process's locale is.
class CaseFolding
{
public:
    CaseFolding() : m_locale(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {}
    CaseFolding(const CaseFolding&) = delete;
    CaseFolding& operator=(const CaseFolding&) = delete;
    ~CaseFolding()
    {
        if (m_locale != nullptr)
            freelocale(m_locale);
    }

    [[nodiscard]] std::wstring Fold(std::string_view utf8) const
    {
        std::wstring text(GK_wString(utf8).View());
        for (wchar_t& character : text)
            character = static_cast<wchar_t>(FoldOne(static_cast<wint_t>(character)));
        return text;
    }

private:
    [[nodiscard]] wint_t FoldOne(wint_t character) const
    {
        return m_locale != nullptr ? towlower_l(character, m_locale) : std::towlower(character);
    }

    locale_t m_locale;
};

bool Exists(const std::string& path)
{
    struct stat status
    {
    };
    return stat(path.c_str(), &status) == 0;
}

/// The name in `folder` that equals `name` but for case; empty when there is none.
std::string NameWithoutCase(const std::string& folder, std::string_view name)
{
    const auto close = [](DIR* stream) { closedir(stream); };
    const std::unique_ptr<DIR, decltype(close)> stream(opendir(folder.c_str()), close);
    if (stream == nullptr)
        return {};
    const CaseFolding folding;
    const std::wstring wanted = folding.Fold(name);
    std::string found;
    while (const dirent* entry = readdir(stream.get())) {
        const std::string_view candidate = entry->d_name;
        const bool better = found.empty() || candidate < found;
        if (better && folding.Fold(candidate) == wanted)
            found = candidate;
    }
    return found;
}

/// Finds a path part by part.
std::string FindWithoutCase(std::string_view path)
{
    std::string found;
    while (!path.empty()) {
        const std::size_t slashes = std::min(path.find_first_not_of('/'), path.size());
        found += path.substr(0, slashes);
        path.remove_prefix(slashes);
        const std::string_view part = path.substr(0, path.find('/'));
        if (Exists(found + std::string(part))) {
            found += part;
        } else {
            const std::string name = NameWithoutCase(found.empty() ? "." : found, part);
            if (name.empty())
                return found.append(path);
            found += name;
        }
        path.remove_prefix(part.size());
    }
    return found;
}

} // namespace

std::filesystem::path NativePath(std::wstring_view path)
{
    GK_wString slashed{std::wstring(path)};
    slashed.Replace(L'\\', L'/');
    std::string utf8 = slashed.Utf8();
    // The system takes no longer path, so looking for its parts would find nothing either.
    if (utf8.size() < PATH_MAX && !Exists(utf8))
        utf8 = FindWithoutCase(utf8);
    return utf8;
}

std::wstring WidePath(const std::filesystem::path& path)
{
    return std::wstring(GK_wString(std::string_view(path.native())).View());
}

std::filesystem::path PathFromUtf8(std::string_view utf8)
{
    return std::string(utf8);
}

std::string Utf8Path(const std::filesystem::path& path)
{
    return path.native();
}

std::FILE* OpenNative(const std::filesystem::path& path, const char* mode)
{
    return std::fopen(path.c_str(), mode);
}
