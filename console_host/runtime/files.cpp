#include "console_host/runtime/files.h"

#include "console_host/runtime/native_path.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace {

std::runtime_error SystemError(int error)
{
    return std::runtime_error(std::generic_category().message(error));
}

/// Opens a plain file; throws std::runtime_error, saying why it cannot be read.
KelvoFile OpenToRead(const std::filesystem::path& path)
{
    switch (KindOfFile(path)) {
    case FileKind::Missing:
        throw std::runtime_error("no such file");
    case FileKind::Folder:
        throw std::runtime_error("a folder, not a file");
    case FileKind::Special:
        throw std::runtime_error("not a plain file");
    default:
        break;
    }
    errno = 0;
    KelvoFile stream(OpenNative(path, "rb"));
    if (stream == nullptr)
        throw SystemError(errno);
    return stream;
}

} // namespace

std::string WhyUnreadable(const std::filesystem::path& path)
try {
    OpenToRead(path);
    return {};
} catch (const std::runtime_error& failure) {
    return failure.what();
}

std::string ReadWholeFile(const std::filesystem::path& path)
{
    constexpr std::size_t LargestSize = std::size_t{16} << 20;
    const KelvoFile stream = OpenToRead(path);
    std::string contents;
    char block[8192];
    while (const std::size_t count = std::fread(block, 1, sizeof block, stream.get())) {
        contents.append(block, count);
        if (contents.size() > LargestSize)
            throw std::runtime_error("larger than 16 MiB");
    }
    if (std::ferror(stream.get()) != 0)
        throw SystemError(errno);
    return contents;
}

bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b)
{
    const std::optional<FileIdentity> first = IdentityOf(a);
    const std::optional<FileIdentity> second = IdentityOf(b);
    if (first || second)
        return first == second;
    // Files that do not exist are one when they have one name in one folder.
    const std::filesystem::path targetA = FollowLinks(a);
    const std::filesystem::path targetB = FollowLinks(b);
    const std::optional<FileIdentity> folder = IdentityOf(FolderOf(targetA));
    return folder && folder == IdentityOf(FolderOf(targetB)) &&
           targetA.filename() == targetB.filename();
}

void MakeFolders(const std::filesystem::path& folder)
{
    if (KindOfFile(folder) != FileKind::Missing)
        return;
    if (const std::filesystem::path parent = FolderOf(folder); parent.native() != folder.native())
        MakeFolders(parent);
    std::error_code error;
    std::filesystem::create_directory(folder, error);
}
