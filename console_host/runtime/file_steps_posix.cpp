#include "console_host/runtime/file_steps.h"
#include "console_host/runtime/files.h"

#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

using Status = struct stat;

constexpr mode_t ReadAndWrite = 0666;
constexpr mode_t Permissions = 0777;

[[noreturn]] void ThrowError(int error = errno)
{
    throw std::system_error(error, std::generic_category());
}

std::FILE* StreamOf(int descriptor)
{
    if (descriptor < 0)
        ThrowError();
    std::FILE* stream = fdopen(descriptor, "wb");
    if (stream == nullptr) {
        const int error = errno;
        close(descriptor);
        ThrowError(error);
    }
    return stream;
}

/// Returns the descriptor of this program's open stream that a path names; -1 when it names none.
int DescriptorNamed(const std::filesystem::path& path)
{
    const std::string own = "/proc/" + std::to_string(getpid()) + "/fd";
    std::filesystem::path link = path;
    std::error_code error;
    for (int links = 0; links < 4; ++links) {
        const std::string number = link.filename();
        int descriptor = -1;
        const char* last = number.data() + number.size();
        const bool isNumber = std::from_chars(number.data(), last, descriptor).ptr == last;
        if (isNumber && std::filesystem::canonical(FolderOf(link), error) == own)
            return descriptor;
        const std::filesystem::path next = std::filesystem::read_symlink(link, error);
        if (error)
            break;
        link = FolderOf(link) / next;
    }
    return -1;
}

/// Makes a rename durable, where the system can open folders.
void SyncFolder(const std::filesystem::path& folder)
{
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

std::FILE* CreateFresh(const std::filesystem::path& fresh, const std::filesystem::path& target)
{
    Status old{};
    const bool replaces = lstat(target.c_str(), &old) == 0 && S_ISREG(old.st_mode);
    if (replaces && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        ThrowError();
    const int descriptor = open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                replaces ? S_IRUSR | S_IWUSR : ReadAndWrite);
    // The owner is kept where the user may change it.
    if (descriptor >= 0 && replaces &&
        (fchown(descriptor, old.st_uid, old.st_gid) == 0 || old.st_uid == geteuid()))
        fchmod(descriptor, old.st_mode & Permissions);
    return StreamOf(descriptor);
}

bool NamesOpenStream(const std::filesystem::path& path)
{
    return DescriptorNamed(path) >= 0;
}

std::FILE* OpenSpecial(const std::filesystem::path& path)
{
    if (const int own = DescriptorNamed(path); own >= 0)
        return StreamOf(fcntl(own, F_DUPFD_CLOEXEC, 0));
    return StreamOf(open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
}

void MakeDurable(std::FILE* stream)
{
    if (std::fflush(stream) != 0)
        ThrowError();
    // Some file systems do not support this.
    if (fsync(fileno(stream)) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
        ThrowError();
}

void MoveInto(const std::filesystem::path& fresh, const std::filesystem::path& target)
{
    if (std::rename(fresh.c_str(), target.c_str()) != 0)
        ThrowError();
    SyncFolder(FolderOf(target));
}
