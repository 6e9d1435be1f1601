#include "console_host/runtime/files.h"

#include "console_host/runtime/native_path.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace {

struct CloseFile
{
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using File = std::unique_ptr<std::FILE, CloseFile>;

std::string Reason(int error)
{
    return std::generic_category().message(error);
}

File Open(const std::filesystem::path& path, const char* mode)
{
    return File(OpenNative(path, mode));
}

void WriteAll(const std::filesystem::path& path, std::string_view contents)
{
    errno = 0;
    File stream = Open(path, "wb");
    if (stream == nullptr)
        throw std::runtime_error(Reason(errno));
    bool good = std::fwrite(contents.data(), 1, contents.size(), stream.get()) == contents.size();
    good = std::fflush(stream.get()) == 0 && good;
    const int error = errno;
    good = std::fclose(stream.release()) == 0 && good;
    if (!good)
        throw std::runtime_error(Reason(error != 0 ? error : errno));
}

} // namespace

std::string WhyUnreadable(const std::filesystem::path& path)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return "no such file";
    if (error)
        return error.message();
    if (std::filesystem::is_directory(status))
        return "a folder, not a file";
    if (!std::filesystem::is_regular_file(status))
        return "not a plain file";
    errno = 0;
    if (Open(path, "rb") == nullptr)
        return Reason(errno);
    return {};
}

std::string ReadWholeFile(const std::filesystem::path& path)
{
    constexpr std::size_t LargestSize = std::size_t{16} << 20;
    if (const std::string why = WhyUnreadable(path); !why.empty())
        throw std::runtime_error(why);
    const File stream = Open(path, "rb");
    if (stream == nullptr)
        throw std::runtime_error(Reason(errno));
    std::string contents;
    char block[8192];
    while (const std::size_t count = std::fread(block, 1, sizeof block, stream.get())) {
        contents.append(block, count);
        if (contents.size() > LargestSize)
            throw std::runtime_error("larger than 16 MiB");
    }
    if (std::ferror(stream.get()) != 0)
        throw std::runtime_error(Reason(errno));
    return contents;
}

void WriteWholeFile(const std::filesystem::path& path, std::string_view contents)
{
    std::error_code error;
    // A link stays a link: what it points to is replaced.
    std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error)
        target = path;
    std::filesystem::create_directories(target.parent_path(), error);
    std::filesystem::path fresh = target;
    fresh += ".new";
    try {
        WriteAll(fresh, contents);
        std::filesystem::rename(fresh, target);
    } catch (const std::filesystem::filesystem_error& failure) {
        std::filesystem::remove(fresh, error);
        throw std::runtime_error(failure.code().message());
    } catch (const std::runtime_error&) {
        std::filesystem::remove(fresh, error);
        throw;
    }
}
