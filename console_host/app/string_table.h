#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

/// Texts by id, in place of the plug-ins' English ones. A file of them holds lines of an id, a tab
/// and a text, in UTF-8; in the text "\n", "\t" and "\\" mean a line end, a tab and '\'.
class StringTable
{
public:
    /// Returns the table of a file. Lines without an id and a tab are reported on standard error,
    /// except empty ones, and ignored. Throws std::runtime_error, saying why, when the file cannot
    /// be read.
    static StringTable Load(const std::filesystem::path& path);

    /// Adds the texts of another table, which take the place of those with the same ids.
    void Add(StringTable other);

    /// Sets the text of an id.
    void Set(int id, std::wstring text);

    /// Returns the table's text for the id, or `text` when the table has none. A table text whose
    /// placeholders are not those of `text` would take other arguments than there are: it is not
    /// used, which is reported on standard error once.
    const wchar_t* Localize(const wchar_t* text, int id);

private:
    std::map<int, std::wstring> m_texts;
    std::set<int> m_noted;
};
