#pragma once

#include "host/runtime/file.h"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// What stands at a path, links followed.
enum class FileKind
{
    Missing,
    Plain,
    Folder,
    Special, ///< a pipe, a device, a terminal
    Unknown  ///< the system does not let it be seen
};

[[nodiscard]] FileKind KindOfFile(const std::filesystem::path& path) noexcept;

/// Returns whether a pipe stands at the path, links followed. Reading it may wait, but is bound to
/// end with what is written to it.
[[nodiscard]] bool IsPipe(const std::filesystem::path& path) noexcept;

/// What distinguishes a file from every other one, whatever names it has.
struct FileIdentity
{
    std::uint64_t volume = 0;
    std::uint64_t index = 0;
    auto operator<=>(const FileIdentity&) const = default;
};

/// Return the identity of the file at a path, links followed, or of an open stream; none when there
/// is no such file.
[[nodiscard]] std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path) noexcept;
[[nodiscard]] std::optional<FileIdentity> IdentityOf(std::FILE* stream) noexcept;

/// Returns whether both paths name one file, which need not exist yet.
[[nodiscard]] bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b);

/// Returns the path with the folder that it starts from, without "." and ".."; the file need not
/// exist. Paths on a network share and paths beginning with "\\?\" stay such.
[[nodiscard]] std::filesystem::path AbsolutePath(const std::filesystem::path& path);

/// Returns the folder that a path names its file in; "." when it names none.
[[nodiscard]] std::filesystem::path FolderOf(const std::filesystem::path& path);

/// Makes a folder and those on the way to it, as far as the system allows it.
void MakeFolders(const std::filesystem::path& folder);

/// Returns the path of the file that a link, or a chain of links, leads to, which need not exist;
/// the path itself when it is no link.
[[nodiscard]] std::filesystem::path FollowLinks(const std::filesystem::path& path);

/// Returns why no file can be put at this path, or why the file there cannot be replaced or written
/// to: "a folder, not a file", "no such folder", ...; empty when nothing is known to be against it.
[[nodiscard]] std::string WhyUnwritable(const std::filesystem::path& path);

/// Returns the bytes of a settings or text file. Throws std::runtime_error, saying why in a few
/// words, when it cannot be read or is larger than 16 MiB.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Returns why a file cannot be read: "no such file", "a folder, not a file", ...; empty when it
/// can.
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
