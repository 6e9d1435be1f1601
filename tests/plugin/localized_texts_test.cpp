#include "console_host/app/string_table.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

const fs::path Project = PROJECT_FOLDER;

std::string FileText(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path;
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// Texts by localization id, in the escaped form of a string table.
using Texts = std::map<int, std::string>;

/// Finds what looks like `L"text", 12345`, the text in one or more literals: the arguments of a
/// localizing call, or a row of a table for one.
class SourceScanner
{
public:
    SourceScanner(std::string_view source, Texts& texts) : m_rest(source), m_texts(texts) {}

    void Scan()
    {
        for (std::size_t at = m_rest.find("L\""); at != std::string_view::npos;
             at = m_rest.find("L\"")) {
            m_rest.remove_prefix(at);
            std::string text;
            while (TakeLiteral(text))
                SkipBlanks();
            if (Take(","))
                TakeId(text);
        }
    }

private:
    bool Take(std::string_view what)
    {
        if (m_rest.substr(0, what.size()) != what)
            return false;
        m_rest.remove_prefix(what.size());
        return true;
    }

    void SkipBlanks()
    {
        while (!m_rest.empty() && std::isspace(static_cast<unsigned char>(m_rest.front())) != 0)
            m_rest.remove_prefix(1);
    }

    bool TakeLiteral(std::string& text)
    {
        if (!Take("L\"") && !Take("\""))
            return false;
        while (!m_rest.empty() && !Take("\"")) {
            const bool quote = Take("\\\"");
            const std::size_t length = quote ? 0 : m_rest.front() == '\\' ? 2 : 1;
            text += quote ? "\"" : std::string(m_rest.substr(0, length));
            m_rest.remove_prefix(std::min(length, m_rest.size()));
        }
        return true;
    }

    /// Localization ids have five digits; dialog controls have fewer.
    void TakeId(const std::string& text)
    {
        SkipBlanks();
        const std::size_t digits = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        if (digits != 5)
            return;
        const int id = std::stoi(std::string(m_rest.substr(0, digits)));
        const auto [place, isNew] = m_texts.emplace(id, text);
        EXPECT_TRUE(isNew || place->second == text) << id << " stands for two texts";
    }

    std::string_view m_rest;
    Texts& m_texts;
};

/// The importer's sources, one after the other.
std::string ImporterSources()
{
    std::string sources;
    for (const char* folder : {"plugin", "objreader", "geometry", "materials"})
        for (const auto& file : fs::recursive_directory_iterator(Project / folder))
            if (file.path().extension() == ".cpp" || file.path().extension() == ".h")
                sources += FileText(file.path());
    return sources;
}

/// Every five-digit number of the sources that can be an id, some of which go through a variable.
std::set<int> IdsOfSources(const std::string& sources)
{
    std::set<int> ids;
    const auto isPart = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const std::size_t begin = i;
        while (i < sources.size() && isPart(sources[i]))
            ++i;
        const std::string word = sources.substr(begin, i - begin);
        if (word.size() != 5 || word.find_first_not_of("0123456789") != std::string::npos)
            continue;
        const int number = std::stoi(word);
        const bool isSize = (number & (number - 1)) == 0;
        if (number > 12000 && !isSize)
            ids.insert(number);
    }
    return ids;
}

Texts TextsOfTable(const char* name)
{
    Texts texts;
    std::istringstream lines(FileText(Project / "examples" / name));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos || line.find_first_not_of("0123456789") != tab)
            continue;
        EXPECT_TRUE(texts.emplace(std::stoi(line), line.substr(tab + 1)).second) << line;
    }
    return texts;
}

std::wstring Unescaped(std::string_view text)
{
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool newLine = text.substr(i, 2) == "\\n";
        plain += newLine ? L'\n' : static_cast<wchar_t>(text[i]);
        i += newLine ? 1 : 0;
    }
    return plain;
}

TEST(LocalizedTexts, TheEnglishTableHoldsWhatTheImporterSays)
{
    const std::string sources = ImporterSources();
    const Texts english = TextsOfTable("strings.en.txt");
    std::set<int> ids;
    for (const auto& [id, text] : english)
        ids.insert(id);
    EXPECT_EQ(IdsOfSources(sources), ids);

    Texts said;
    SourceScanner(sources, said).Scan();
    for (const auto& [id, text] : said)
        EXPECT_EQ(english.contains(id) ? english.at(id) : "", text) << id;
}

TEST(LocalizedTexts, TheGermanTableReplacesEveryText)
{
    const Texts english = TextsOfTable("strings.en.txt");
    const Texts german = TextsOfTable("strings.de.txt");
    StringTable table = StringTable::Load(Project / "examples" / "strings.de.txt");
    for (const auto& [id, text] : english) {
        ASSERT_EQ(german.count(id), 1U) << id << " is not translated";
        const std::wstring original = Unescaped(text);
        EXPECT_NE(table.Localize(original.c_str(), id), original.c_str())
            << id << " has other placeholders than its original";
        const bool endsLine = !original.empty() && original.back() == L'\n';
        const std::wstring local = table.Localize(original.c_str(), id);
        EXPECT_EQ(!local.empty() && local.back() == L'\n', endsLine) << id;
    }
    EXPECT_EQ(german.size(), english.size());
}

TEST(LocalizedTexts, TranslatedOptionNamesCanBeTyped)
{
    constexpr int OptionIds[] = {24469, 24470, 24471, 24474, 24475, 24476, 24477,
                                 24478, 24479, 24480, 24481, 24482, 24483, 24484,
                                 24485, 24486, 24487, 26311, 26312, 26313};
    const Texts german = TextsOfTable("strings.de.txt");
    for (const int id : OptionIds)
        EXPECT_EQ(german.at(id).find_first_of(" ="), std::string::npos) << id;
}

} // namespace
