#include "objimport/input_file.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/file_pattern.h"
#include "objimport/platform.h"
#include "objimport/program_error.h"
#include "objimport/program_texts.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace {

constexpr const char* StandardInput = "-";

/// Returns whether the plug-in finds the file by the wide name that it is given. Off Windows a file
/// name may hold '\' or bytes that are not UTF-8.
bool CanBePassed(const std::filesystem::path& path)
{
    const std::filesystem::path absolute = AbsolutePath(path);
    const std::filesystem::path found = NativePath(WidePath(absolute));
    return found.native() == absolute.native() || IsSameFile(found, absolute);
}

bool IsStream(const InputFile& file)
{
    return file.name == StandardInput || IsPipe(file.path);
}

InputFile FileOfName(const std::string& name)
{
    InputFile file{name, PathFromUtf8(name), nullptr, {}};
    if (IsStream(file))
        return file;
    file.whyUnreadable = WhyUnreadable(file.path);
    if (file.whyUnreadable.empty() && !CanBePassed(file.path))
        file.whyUnreadable =
            "a name with '\\' or with bytes that are not UTF-8 cannot be passed to the plug-in";
    return file;
}

/// Returns whether the name is to be taken for a pattern: one that no file has.
bool IsToBeFound(const std::string& name)
{
    if (!IsPattern(name))
        return false;
    const FileKind kind = KindOfFile(PathFromUtf8(name));
    return kind == FileKind::Missing || kind == FileKind::Unknown;
}

/// Returns a new file in the current folder, where libraries and textures are looked for, or else
/// in that of temporary files.
std::unique_ptr<TemporaryFile> MakeTemporaryFile()
{
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    if (!error && CanBePassed(current)) {
        try {
            return std::make_unique<TemporaryFile>(current);
        } catch (const std::runtime_error&) {
            // The folder is not writable.
        }
    }
    return std::make_unique<TemporaryFile>(std::filesystem::temp_directory_path());
}

std::string Reason()
{
    return std::generic_category().message(errno != 0 ? errno : EIO);
}

void CopyStream(std::FILE* from, TemporaryFile& to)
{
    std::array<char, 65536> block{};
    errno = 0;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), from))
        if (std::fwrite(block.data(), 1, count, to.Stream()) != count)
            throw std::runtime_error("cannot keep it in " + Utf8Path(to.Path()) + ": " + Reason());
    if (std::ferror(from) != 0)
        throw std::runtime_error(Reason());
    to.Close();
}

void KeepStream(InputFile& file)
try {
    const bool isInput = file.name == StandardInput;
    const KelvoFile pipe(isInput ? nullptr : OpenNative(file.path, "rb"));
    std::FILE* const stream = isInput ? BinaryStandardInput() : pipe.get();
    if (stream == nullptr)
        throw std::runtime_error(Reason());
    file.copy = MakeTemporaryFile();
    CopyStream(stream, *file.copy);
    file.path = file.copy->Path();
} catch (const std::runtime_error& failure) {
    file.whyUnreadable = failure.what();
}

} // namespace

std::string ShownFileName(const std::string& name)
{
    return name == StandardInput ? Say(Texts::StandardInput) : PrintableLine(name);
}

std::vector<InputFile> FindInputFiles(const CommandLine& commandLine)
{
    std::vector<InputFile> files;
    for (const std::string& name : commandLine.files) {
        if (!IsToBeFound(name)) {
            files.push_back(FileOfName(name));
            continue;
        }
        const std::vector<std::string> found = FilesOfPattern(name);
        for (const std::string& one : found)
            files.push_back(FileOfName(one));
        if (found.empty())
            files.push_back({name, PathFromUtf8(name), nullptr, "no file has such a name"});
    }
    return files;
}

void KeepStreams(std::vector<InputFile>& files)
{
    for (InputFile& file : files)
        if (file.whyUnreadable.empty() && IsStream(file))
            KeepStream(file);
}

std::string FirstBytes(const InputFile& file)
{
    std::array<char, 512> bytes{};
    const KelvoFile stream(OpenNative(file.path, "rb"));
    const std::size_t count =
        stream == nullptr ? 0 : std::fread(bytes.data(), 1, bytes.size(), stream.get());
    return {bytes.data(), count};
}

void CheckReadable(const std::vector<InputFile>& files)
{
    for (const InputFile& file : files)
        if (!file.whyUnreadable.empty())
            throw ProgramError(
                "cannot read " + ShownFileName(file.name) + ": " + file.whyUnreadable +
                (files.size() > 1 ? "; nothing was imported (--each imports the others)" : ""));
}
