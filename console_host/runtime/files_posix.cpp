#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include "host/runtime/file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

using Status = struct stat;

FileIdentity IdentityIn(const Status& status) noexcept
{
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

std::string WhyNotAllowed(const std::filesystem::path& path, int access)
{
    if (faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0)
        return {};
    return std::generic_category().message(errno);
}

/// Returns whether reading the file is bound to end: a device or a pipe may not, nor may a file of
/// the system's that has bytes but no size.
bool IsPlain(int descriptor)
{
    Status status{};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    char bytes[4096];
    return status.st_size > 0 || pread(descriptor, bytes, sizeof bytes, 0) <= 0;
}

} // namespace

FileKind KindOfFile(const std::filesystem::path& path) noexcept
{
    Status status{};
    if (stat(path.c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Unknown;
    if (S_ISREG(status.st_mode))
        return FileKind::Plain;
    return S_ISDIR(status.st_mode) ? FileKind::Folder : FileKind::Special;
}

bool IsPipe(const std::filesystem::path& path) noexcept
{
    struct stat status
    {
    };
    return stat(path.c_str(), &status) == 0 &&
           (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path) noexcept
{
    Status status{};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return IdentityIn(status);
}

std::optional<FileIdentity> IdentityOf(std::FILE* stream) noexcept
{
    Status status{};
    if (fstat(fileno(stream), &status) != 0)
        return std::nullopt;
    return IdentityIn(status);
}

std::filesystem::path AbsolutePath(const std::filesystem::path& path)
{
    return std::filesystem::absolute(path);
}

std::filesystem::path FolderOf(const std::filesystem::path& path)
{
    const std::filesystem::path folder = path.parent_path();
    return folder.empty() ? "." : folder;
}

std::filesystem::path FollowLinks(const std::filesystem::path& path)
{
    constexpr int MostLinks = 40; // as many as the system follows
    std::filesystem::path found = path;
    std::error_code error;
    for (int i = 0; i < MostLinks && std::filesystem::is_symlink(found, error); ++i) {
        const std::filesystem::path next = std::filesystem::read_symlink(found, error);
        if (error)
            break;
        found = FolderOf(found) / next;
    }
    return found;
}

std::string WhyUnwritable(const std::filesystem::path& path)
{
    const std::filesystem::path target = FollowLinks(path);
    const FileKind kind = KindOfFile(path);
    if (kind == FileKind::Folder)
        return "a folder, not a file";
    if (kind == FileKind::Plain || kind == FileKind::Special)
        if (std::string why = WhyNotAllowed(path, W_OK); !why.empty() || kind == FileKind::Special)
            return why;
    if (KindOfFile(FolderOf(target)) != FileKind::Folder)
        return "no such folder";
    return WhyNotAllowed(FolderOf(target), W_OK | X_OK);
}

// NOLINTNEXTLINE(*-reserved-identifier): the name that it has on Windows
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode)
{
    if (path == nullptr || mode == nullptr || std::wstring_view(mode) != L"rb")
        return nullptr;
    // Does not wait for the other end of a pipe.
    const int descriptor = open(NativePath(path).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    std::FILE* stream = IsPlain(descriptor) ? fdopen(descriptor, "rb") : nullptr;
    if (stream == nullptr)
        close(descriptor);
    return stream;
}

bool IsPlainFile(std::FILE* stream)
{
    return IsPlain(fileno(stream));
}

std::filesystem::path FileKey(const wchar_t* name)
{
    return FileKey(NativePath(name).c_str());
}

/// Returns the folder's own path with the name as it is in the folder.
std::filesystem::path FileKey(const char* name)
{
    std::error_code error;
    const std::filesystem::path path = name;
    const std::filesystem::path folder = std::filesystem::canonical(FolderOf(path), error);
    return error ? path.lexically_normal() : folder / path.filename();
}
