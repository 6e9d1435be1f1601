#include "console_host/runtime/files.h"

#include "host/runtime/file.h"

#include <io.h>
#include <memory>
#include <type_traits>
#include <windows.h>

namespace {

struct CloseHandleOf
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseHandleOf>;

/// Opens a file or folder to be asked about; null, with the last error set, when there is none.
Handle OpenForQuestions(const std::filesystem::path& path) noexcept
{
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE const handle = CreateFileW(path.c_str(), 0, ShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    // NOLINTNEXTLINE(*-no-int-to-ptr, *-old-style-cast): as the platform defines it
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

std::optional<FileIdentity> IdentityOf(HANDLE handle) noexcept
{
    BY_HANDLE_FILE_INFORMATION information{};
    if (GetFileInformationByHandle(handle, &information) == 0)
        return std::nullopt;
    return FileIdentity{information.dwVolumeSerialNumber,
                        std::uint64_t{information.nFileIndexHigh} << 32U |
                            information.nFileIndexLow};
}

FileKind KindOf(HANDLE handle) noexcept
{
    if (GetFileType(handle) != FILE_TYPE_DISK)
        return FileKind::Special;
    BY_HANDLE_FILE_INFORMATION information{};
    if (GetFileInformationByHandle(handle, &information) == 0)
        return FileKind::Unknown;
    const bool isFolder = (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? FileKind::Folder : FileKind::Plain;
}

} // namespace

bool IsPipe(const std::filesystem::path& path) noexcept
{
    const Handle handle = OpenForQuestions(path);
    return handle != nullptr && GetFileType(handle.get()) == FILE_TYPE_PIPE;
}

FileKind KindOfFile(const std::filesystem::path& path) noexcept
{
    if (const Handle handle = OpenForQuestions(path))
        return KindOf(handle.get());
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
        return FileKind::Missing;
    default:
        return FileKind::Unknown;
    }
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path) noexcept
{
    const Handle handle = OpenForQuestions(path);
    return handle != nullptr ? IdentityOf(handle.get()) : std::nullopt;
}

std::optional<FileIdentity> IdentityOf(std::FILE* stream) noexcept
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    return IdentityOf(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))));
}

// The library's own functions for paths take "\\server" for a folder with one backslash too many.

std::filesystem::path AbsolutePath(const std::filesystem::path& path)
{
    constexpr std::wstring_view Verbatim = L"\\\\?\\";
    if (path.native().starts_with(Verbatim))
        return path;
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full.empty() ? path : std::filesystem::path(full);
}

std::filesystem::path FolderOf(const std::filesystem::path& path)
{
    const std::wstring& text = path.native();
    const std::size_t slash = text.find_last_of(L"\\/");
    if (slash == std::wstring::npos)
        return L".";
    // The root folder of a drive keeps its slash.
    const bool isRoot = slash == 0 || text[slash - 1] == L':';
    return text.substr(0, isRoot ? slash + 1 : slash);
}

std::filesystem::path FollowLinks(const std::filesystem::path& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const Handle handle = OpenForQuestions(path);
    if (handle == nullptr)
        return path;
    const DWORD size = GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0);
    std::wstring found(size, L'\0');
    found.resize(GetFinalPathNameByHandleW(handle.get(), found.data(), size, 0));
    return found.empty() ? path : std::filesystem::path(found);
}

std::string WhyUnwritable(const std::filesystem::path& path)
{
    const FileKind kind = KindOfFile(path);
    if (kind == FileKind::Folder)
        return "a folder, not a file";
    if (kind != FileKind::Special && KindOfFile(FolderOf(path)) != FileKind::Folder)
        return "no such folder";
    return {};
}

bool IsPlainFile(std::FILE* stream)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)))) == FILE_TYPE_DISK;
}

std::filesystem::path FileKey(const wchar_t* name)
{
    std::wstring path = AbsolutePath(name).native();
    CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
    return path;
}

std::filesystem::path FileKey(const char* name)
{
    return FileKey(std::filesystem::path(name).c_str());
}
