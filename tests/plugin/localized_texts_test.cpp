#include "console_host/app/string_table.h"
#include "tests/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

const fs::path Project = PROJECT_FOLDER;

/// Texts by localization id, in the escaped form of a string table.
using Texts = std::map<int, std::string>;

/// Returns the importer's sources, one after the other.
std::string ImporterSources()
{
    std::string sources;
    for (const char* folder : {"plugin", "objreader", "geometry", "materials"})
        for (const auto& file : fs::recursive_directory_iterator(Project / folder))
            if (file.path().extension() == ".cpp" || file.path().extension() == ".h")
                sources += ReadBytes(file.path());
    return sources;
}

/// Returns all that looks like `L"text", 12345`, the text in one or more literals: the arguments of
/// a localizing call, or a row of a table for one. Localization ids have five digits; dialog
/// controls have fewer.
Texts TextsOfSources(const std::string& sources)
{
    const std::string joined = std::regex_replace(sources, std::regex(R"("\s+L?")"), "");
    static const std::regex TextAndId(R"lit(L"((?:[^"\\]|\\.)*)",\s*(\d{5})\b)lit");
    Texts texts;
    for (std::sregex_iterator found(joined.begin(), joined.end(), TextAndId), end; found != end;
         ++found) {
        const std::string text = std::regex_replace(found->str(1), std::regex(R"(\\")"), "\"");
        const auto [place, isNew] = texts.emplace(std::stoi(found->str(2)), text);
        EXPECT_TRUE(isNew || place->second == text) << place->first << " stands for two texts";
    }
    return texts;
}

/// Returns every five-digit number of the sources that can be an id, some of which go through a
/// variable.
std::set<int> IdsOfSources(const std::string& sources)
{
    static const std::regex FiveDigits(R"(\b\d{5}\b)");
    std::set<int> ids;
    for (std::sregex_iterator found(sources.begin(), sources.end(), FiveDigits), end; found != end;
         ++found) {
        const int number = std::stoi(found->str());
        const bool isSize = (number & (number - 1)) == 0;
        if (number > 12000 && !isSize)
            ids.insert(number);
    }
    return ids;
}

Texts TextsOfTable(const char* name)
{
    Texts texts;
    std::istringstream lines(ReadBytes(Project / "examples" / name));
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

    for (const auto& [id, text] : TextsOfSources(sources))
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
