#include "objimport/output_name.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view Name = "{name}";
constexpr std::string_view Folder = "{folder}";

} // namespace

bool HasPlaceholders(const std::string& path)
{
    return path.find(Name) != std::string::npos || path.find(Folder) != std::string::npos;
}

std::string UnknownPlaceholder(const std::string& path)
{
    constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (std::size_t at = path.find('{'); at != std::string::npos; at = path.find('{', at + 1)) {
        const std::size_t end = std::min(path.find_first_not_of(Letters, at + 1), path.size() - 1);
        std::string word = path.substr(at, end - at + 1);
        if (word.size() > 2 && word.back() == '}' && word != Name && word != Folder)
            return word;
    }
    return {};
}

std::string OutputName(const std::string& path, const std::string& input)
{
    const std::filesystem::path inputPath = PathFromUtf8(input);
    const std::string name = input == "-" ? "stdin" : Utf8Path(inputPath.stem());
    const std::string folder = Utf8Path(FolderOf(inputPath));
    std::string output;
    for (std::size_t i = 0; i < path.size();) {
        const std::string_view rest = std::string_view(path).substr(i);
        if (rest.starts_with(Name)) {
            output += name;
            i += Name.size();
        } else if (rest.starts_with(Folder)) {
            output += folder;
            i += Folder.size();
        } else {
            output += path[i++];
        }
    }
    return output;
}
