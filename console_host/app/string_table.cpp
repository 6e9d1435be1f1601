#include "console_host/app/string_table.h"

#include "console_host/app/format_text.h"
#include "console_host/app/printable.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <utility>

namespace {

std::wstring Unescaped(std::string_view escaped)
{
    std::string text;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const char next = i + 1 < escaped.size() ? escaped[i + 1] : '\0';
        const bool known = next == 'n' || next == 't' || next == '\\';
        if (escaped[i] != '\\' || !known) {
            text += escaped[i];
            continue;
        }
        text += next == 'n' ? '\n' : next == 't' ? '\t' : '\\';
        ++i;
    }
    return std::wstring(GK_wString(std::string_view(text)).View());
}

/// Reads one line into the table; false for a line that holds no id and tab.
bool ReadLine(std::string_view line, StringTable& table)
{
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos)
        return false;
    int id = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + tab, id);
    if (error != std::errc() || end != line.data() + tab)
        return false;
    table.Set(id, Unescaped(line.substr(tab + 1)));
    return true;
}

} // namespace

StringTable StringTable::Load(const std::filesystem::path& path)
{
    const std::string contents = ReadWholeFile(path);
    StringTable table;
    int lineNumber = 0;
    ForEachLine(contents, [&](std::string_view line) {
        ++lineNumber;
        if (!line.empty() && !ReadLine(line, table))
            WriteForPerson(stderr, PrintableLine(Utf8Path(path)) + ", line " +
                                       std::to_string(lineNumber) +
                                       ": no id, tab and text; ignored\n");
    });
    return table;
}

void StringTable::Add(StringTable other)
{
    other.m_texts.merge(m_texts);
    m_texts = std::move(other.m_texts);
}

void StringTable::Set(int id, std::wstring text)
{
    m_texts[id] = std::move(text);
}

const wchar_t* StringTable::Localize(const wchar_t* text, int id)
{
    const auto found = m_texts.find(id);
    if (found == m_texts.end())
        return text;
    if (Placeholders(found->second) == Placeholders(text != nullptr ? text : L""))
        return found->second.c_str();
    if (m_noted.insert(id).second)
        WriteForPerson(stderr, "text " + std::to_string(id) +
                                   " of the string table has other placeholders than the "
                                   "original; the original is used\n");
    return text;
}
