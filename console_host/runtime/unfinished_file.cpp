#include "console_host/runtime/unfinished_file.h"

#include <array>
#include <atomic>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

using NativeChar = std::filesystem::path::value_type;

/// Paths of unfinished files, in a form that a signal handler may read. Whoever takes a path out of
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

/// False when a signal handler was faster. A file that found no place is always the object's.
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
