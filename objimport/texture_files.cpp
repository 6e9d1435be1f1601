#include "objimport/texture_files.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

/// Returns whether a shell takes the character for nothing but itself.
bool IsPlain(char character)
{
    constexpr std::string_view Signs = "_-./+,:@%";
    const bool isLetter = (character >= 'a' && character <= 'z') ||
                          (character >= 'A' && character <= 'Z') ||
                          (character >= '0' && character <= '9');
    return isLetter || static_cast<unsigned char>(character) >= 0x80 ||
           Signs.find(character) != std::string_view::npos;
}

std::string Quoted(const std::string& path)
{
#ifdef _WIN32
    const auto isPlain = [](char c) { return IsPlain(c) || c == '\\'; };
    return std::all_of(path.begin(), path.end(), isPlain) ? path : '"' + path + '"';
#else
    if (std::all_of(path.begin(), path.end(), IsPlain))
        return path;
    std::string quoted = "'";
    for (const char character : path)
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
#endif
}

/// Returns the path from the current folder, when it lies in there.
std::string FromCurrentFolder(const std::string& path)
{
    std::error_code error;
    std::string folder = Utf8Path(std::filesystem::current_path(error));
    if (error || folder.empty())
        return path;
    constexpr auto Separator = static_cast<char>(std::filesystem::path::preferred_separator);
    if (folder.back() != Separator)
        folder += Separator;
    if (path.rfind(folder, 0) != 0 || path.size() == folder.size())
        return path;
    const std::string rest = path.substr(folder.size());
    return rest.front() == '-' ? std::string(".") + Separator + rest : rest;
}

} // namespace

TextureFile FindTextureFile(const GK_Texture& texture)
{
    const std::filesystem::path path = NativePath(texture.filename.View());
    return {Utf8Path(path), KindOfFile(path) == FileKind::Plain};
}

std::string ShellPath(const std::string& path)
{
    return PrintableLine(Quoted(FromCurrentFolder(path)));
}
