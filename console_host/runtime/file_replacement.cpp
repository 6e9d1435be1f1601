#include "console_host/runtime/file_replacement.h"

#include "console_host/runtime/file_steps.h"
#include "console_host/runtime/text.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <random>
#include <stdexcept>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

using NativeChar = std::filesystem::path::value_type;

/// Paths of unfinished files, in a form that a signal handler may read. Whoever takes a path from
/// the list removes the file.
using List = std::array<std::atomic<const NativeChar*>, 64>;

List& UnfinishedFiles() noexcept
{
    static constinit List list{};
    return list;
}

void Remove(const NativeChar* path) noexcept
{
#ifdef _WIN32
    DeleteFileW(path);
#else
    unlink(path);
#endif
}

/// Returns a name that nobody can guess, for a file beside `target`.
std::filesystem::path FreshName(const std::filesystem::path& target)
{
    constexpr int RandomWords = 4;
    std::random_device device;
    std::string name = ".kelvo-";
    for (int word = 0; word < RandomWords; ++word)
        name += FormatText("%08x", device());
    return FolderOf(target) / (name + ".tmp");
}

/// Runs a step and returns its result; throws what the system says of a failure in a few words.
template <class Step>
auto Try(Step step)
try {
    return step();
} catch (const std::system_error& failure) {
    throw std::runtime_error(failure.code().message());
}

} // namespace

UnfinishedFile::UnfinishedFile(std::filesystem::path path) : m_path(std::move(path))
{
    for (List& list = UnfinishedFiles(); m_place < list.size(); ++m_place) {
        const NativeChar* none = nullptr;
        if (list[m_place].compare_exchange_strong(none, m_path.c_str()))
            return;
    }
}

UnfinishedFile::~UnfinishedFile()
{
    if (m_ours && TakeFromList())
        Remove(m_path.c_str());
}

/// Returns false when a signal handler was faster. A file that found no place is always the
/// object's.
bool UnfinishedFile::TakeFromList() noexcept
{
    List& list = UnfinishedFiles();
    return m_place == list.size() || list[m_place].exchange(nullptr) != nullptr;
}

void RemoveUnfinishedFiles() noexcept
{
    for (std::atomic<const NativeChar*>& path : UnfinishedFiles())
        if (const NativeChar* taken = path.exchange(nullptr))
            Remove(taken);
}

FileReplacement::FileReplacement(const std::filesystem::path& path, Links links) : m_target(path)
{
    Try([&] {
        if (links == Links::Follow) {
            if (KindOfFile(path) == FileKind::Special || NamesOpenStream(path)) {
                m_stream.reset(OpenSpecial(path));
                return;
            }
            m_target = FollowLinks(path);
        }
        m_fresh.emplace(FreshName(m_target));
        try {
            m_stream.reset(CreateFresh(m_fresh->Path(), m_target));
        } catch (const std::system_error& failure) {
            // An existing file of that name belongs to someone else.
            if (failure.code() == std::errc::file_exists)
                m_fresh->Finish();
            throw;
        }
    });
}

/// The stream is closed first: some systems do not remove an open file.
FileReplacement::~FileReplacement()
{
    m_stream.reset();
}

void FileReplacement::Commit()
{
    Try([&] {
        if (m_fresh)
            MakeDurable(m_stream.get());
        else if (std::fflush(m_stream.get()) != 0)
            throw std::system_error(errno, std::generic_category());
        if (std::fclose(m_stream.release()) != 0)
            throw std::system_error(errno, std::generic_category());
        if (!m_fresh)
            return;
        MoveInto(m_fresh->Path(), m_target);
        m_fresh->Finish();
    });
}

TemporaryFile::TemporaryFile(const std::filesystem::path& folder) : m_file(FreshName(folder / "-"))
{
    Try([&] {
        try {
            m_stream.reset(CreateFresh(m_file.Path(), m_file.Path()));
        } catch (const std::system_error& failure) {
            // A file of that name is another's.
            if (failure.code() == std::errc::file_exists)
                m_file.Finish();
            throw;
        }
        using std::filesystem::perms;
        std::error_code error;
        std::filesystem::permissions(m_file.Path(), perms::owner_read | perms::owner_write, error);
    });
}

void TemporaryFile::Close()
{
    errno = 0;
    if (std::fclose(m_stream.release()) != 0)
        throw std::runtime_error(std::generic_category().message(errno != 0 ? errno : EIO));
}

void WriteInPlaceOf(const std::filesystem::path& path, std::string_view contents,
                    FileReplacement::Links links)
{
    FileReplacement file(path, links);
    errno = 0;
    if (std::fwrite(contents.data(), 1, contents.size(), file.Stream()) != contents.size())
        throw std::runtime_error(std::generic_category().message(errno != 0 ? errno : EIO));
    file.Commit();
}
