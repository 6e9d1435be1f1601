#include "console_host/runtime/folder_names.h"

#include "host/geokit/string.h"

#include <clocale>
#include <cstdint>
#include <cwctype>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <type_traits>

namespace {

using Status = struct stat;

/// Returns the name in lower case, letters beyond ASCII included, whatever the process's locale is.
std::wstring Folded(std::string_view name)
{
    using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&freelocale)>;
    static const Locale locale(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr), freelocale);
    std::wstring text(GK_wString(name).View());
    for (wchar_t& character : text) {
        const auto code = static_cast<wint_t>(character);
        character =
            static_cast<wchar_t>(locale ? towlower_l(code, locale.get()) : std::towlower(code));
    }
    return text;
}

/// Returns whether the folder last changed so long ago that any further change is visible in its
/// time: some file systems keep that in whole or even seconds, the others in ticks of the system.
bool IsSettled(const timespec& changed)
{
    constexpr std::int64_t Nanosecond = 1'000'000'000;
    constexpr std::int64_t CoarseClock = 2 * Nanosecond;
    constexpr std::int64_t FineClock = Nanosecond / 10;
    timespec now{};
    if (clock_gettime(CLOCK_REALTIME, &now) != 0)
        return false;
    const std::int64_t age =
        (now.tv_sec - changed.tv_sec) * Nanosecond + now.tv_nsec - changed.tv_nsec;
    return age > (changed.tv_nsec == 0 ? CoarseClock : FineClock);
}

} // namespace

FolderNames& FolderNames::Instance()
{
    static thread_local FolderNames names;
    return names;
}

std::string FolderNames::Find(const std::string& folder, std::string_view name)
{
    const Names& names = NamesIn(folder);
    const auto found = names.find(Folded(name));
    return found == names.end() ? std::string() : found->second;
}

const FolderNames::Names& FolderNames::NamesIn(const std::string& folder)
{
    static const Names none;
    Status status{};
    if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return none;
    const std::pair key(status.st_dev, status.st_ino);
    const timespec& changed = status.st_mtim;
    constexpr std::size_t MostListings = 16;
    if (m_listings.size() >= MostListings && !m_listings.contains(key))
        m_listings.clear();
    Listing& listing = m_listings[key];
    const bool isSame =
        listing.changed.tv_sec == changed.tv_sec && listing.changed.tv_nsec == changed.tv_nsec;
    if (!isSame || !listing.isSettled) {
        listing.isSettled = false;
        const bool isSettled = IsSettled(changed);
        listing.names = Read(folder);
        listing.changed = changed;
        listing.isSettled = isSettled;
    }
    return listing.names;
}

FolderNames::Names FolderNames::Read(const std::string& folder)
{
    ++m_readCount;
    Names names;
    const auto close = [](DIR* stream) { closedir(stream); };
    const std::unique_ptr<DIR, decltype(close)> stream(opendir(folder.c_str()), close);
    if (stream == nullptr)
        return names;
    while (const dirent* entry = readdir(stream.get())) {
        std::string name = entry->d_name;
        std::string& first = names[Folded(name)];
        if (first.empty() || name < first)
            first = std::move(name);
    }
    return names;
}
