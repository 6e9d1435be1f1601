#include "console_host/app/profile_store.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "console_host/runtime/text.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace {

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view Blanks = " \t";
    const std::size_t first = std::min(text.find_first_not_of(Blanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

std::string Escaped(std::string_view name)
{
    constexpr std::string_view Special = "%[]=;#";
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char character = name[i];
        const auto code = static_cast<unsigned char>(character);
        const bool endBlank = character == ' ' && (i == 0 || i + 1 == name.size());
        if (code >= 0x20 && Special.find(character) == std::string_view::npos && !endBlank)
            text += character;
        else
            text += FormatText("%%%02X", code);
    }
    return text;
}

std::string Unescaped(std::string_view text)
{
    std::string name;
    while (!text.empty()) {
        unsigned int code = 0;
        const char* last = text.data() + std::min<std::size_t>(text.size(), 3);
        const bool escape = text.front() == '%' && text.size() >= 3 &&
                            std::from_chars(text.data() + 1, last, code, 16).ptr == last;
        name += escape ? static_cast<char>(code) : text.front();
        text.remove_prefix(escape ? 3 : 1);
    }
    return name;
}

bool IsRemark(std::string_view line)
{
    return line.empty() || line.front() == ';' || line.front() == '#';
}

/// Returns the name that a line puts between brackets; none for another line.
std::optional<std::string> SectionOf(std::string_view line)
{
    if (line.size() < 2 || line.front() != '[' || line.back() != ']')
        return std::nullopt;
    return Unescaped(line.substr(1, line.size() - 2));
}

void Report(const char* what, const std::filesystem::path& path, const std::string& reason)
{
    WriteForPerson(stderr,
                   std::string(what) + " " + PrintableLine(Utf8Path(path)) + ": " + reason + "\n");
}

} // namespace

ProfileStore::ProfileStore(std::filesystem::path path) : m_path(std::move(path))
{
    if (KindOfFile(m_path) == FileKind::Missing)
        return;
    try {
        Load();
    } catch (const std::runtime_error& failure) {
        m_whyUnreadable = failure.what();
    }
}

/// Loads the file, which must be empty or begin, after remarks, with a section: nothing else may be
/// replaced by settings.
void ProfileStore::Load()
{
    const std::runtime_error isOther("it is not a settings file");
    const std::string contents = ReadWholeFile(m_path);
    if (contents.find('\0') != std::string::npos)
        throw isOther;
    bool isEmpty = true;
    std::map<std::string, Section> sections;
    Section* section = nullptr;
    ForEachLine(contents, [&](std::string_view line) {
        line = Trimmed(line);
        isEmpty = isEmpty && line.empty();
        if (IsRemark(line))
            return;
        if (const std::optional<std::string> name = SectionOf(line))
            section = &sections[*name];
        else if (sections.empty())
            throw isOther;
        else if (const std::size_t equals = line.find('='); line.front() == '[')
            section = nullptr;
        else if (equals != std::string_view::npos && section != nullptr)
            (*section)[Unescaped(Trimmed(line.substr(0, equals)))] =
                std::string(Trimmed(line.substr(equals + 1)));
    });
    if (sections.empty() && !isEmpty)
        throw isOther;
    m_sections = std::move(sections);
}

std::optional<std::string> ProfileStore::Find(const wchar_t* section, const wchar_t* entry) const
{
    const auto entries = m_sections.find(GK_wString(section).Utf8());
    if (entries == m_sections.end())
        return std::nullopt;
    const auto value = entries->second.find(GK_wString(entry).Utf8());
    if (value == entries->second.end())
        return std::nullopt;
    return value->second;
}

bool ProfileStore::ReadInt(const wchar_t* section, const wchar_t* entry, int& value)
{
    const std::optional<std::string> text = Find(section, entry);
    if (!text)
        return false;
    int number = 0;
    const char* last = text->data() + text->size();
    const auto [end, error] = std::from_chars(text->data(), last, number);
    if (error != std::errc() || end != last)
        return false;
    value = number;
    return true;
}

bool ProfileStore::ReadBool(const wchar_t* section, const wchar_t* entry, bool& value)
{
    const std::optional<std::string> text = Find(section, entry);
    if (!text)
        return false;
    const bool on = *text == "true" || *text == "1";
    if (!on && *text != "false" && *text != "0")
        return false;
    value = on;
    return true;
}

void ProfileStore::WriteInt(const wchar_t* section, const wchar_t* entry, int value)
{
    Write(section, entry, std::to_string(value));
}

void ProfileStore::WriteBool(const wchar_t* section, const wchar_t* entry, bool value)
{
    Write(section, entry, value ? "true" : "false");
}

void ProfileStore::Write(const wchar_t* section, const wchar_t* entry, std::string value)
{
    std::string& kept = m_sections[GK_wString(section).Utf8()][GK_wString(entry).Utf8()];
    if (kept == value)
        return;
    kept = std::move(value);
    m_changed = true;
}

std::string ProfileStore::Text() const
{
    std::string text;
    for (const auto& [section, entries] : m_sections) {
        text.append(text.empty() ? "" : "\n").append("[").append(Escaped(section)).append("]\n");
        for (const auto& [entry, value] : entries)
            text.append(Escaped(entry)).append("=").append(value).append("\n");
    }
    return text;
}

bool ProfileStore::Save()
{
    if (!m_changed || m_path.empty())
        return true;
    if (!m_whyUnreadable.empty()) {
        Report("the settings are not saved to", m_path, m_whyUnreadable);
        return false;
    }
    try {
        MakeFolders(FolderOf(m_path));
        WriteInPlaceOf(m_path, Text(), FileReplacement::Links::Follow);
    } catch (const std::runtime_error& failure) {
        Report("cannot save the settings to", m_path, failure.what());
        return false;
    }
    m_changed = false;
    return true;
}
