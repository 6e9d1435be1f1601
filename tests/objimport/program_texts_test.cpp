#include "console_host/app/console_app.h"
#include "objimport/host_reasons.h"
#include "objimport/program_texts.h"
#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

fs::path Example(const char* name)
{
    return fs::path(PROJECT_FOLDER) / "examples" / name;
}

/// Uses the German table for its lifetime.
class GermanTable
{
public:
    GermanTable()
    {
        ConsoleApp::Instance().SetStrings(StringTable::Load(Example("summary.de.txt")));
    }
    GermanTable(const GermanTable&) = delete;
    GermanTable& operator=(const GermanTable&) = delete;
    ~GermanTable() { ConsoleApp::Instance().SetStrings({}); }
};

using TextsById = std::map<int, std::wstring>;

/// Adds the texts that a source gives ids; none may have the id of another.
void AddTextsOfSource(const fs::path& path, TextsById& texts)
{
    static const std::regex TextAndId(R"lit(L"((?:[^"\\]|\\.)*)",\s*(\d+)[})])lit");
    static const std::regex Joint(R"("\s+L")");
    const std::string source = std::regex_replace(ReadBytes(path), Joint, "");
    for (std::sregex_iterator found(source.begin(), source.end(), TextAndId), end; found != end;
         ++found) {
        const std::string text = found->str(1);
        const std::wstring wide(text.begin(), text.end());
        EXPECT_TRUE(texts.emplace(std::stoi(found->str(2)), wide).second)
            << found->str() << " in " << path;
    }
}

/// Returns the program's texts by their ids, as they stand in its sources.
TextsById TextsOfSources()
{
    TextsById texts;
    for (const auto& entry :
         fs::recursive_directory_iterator(fs::path(PROJECT_FOLDER) / "objimport"))
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
            AddTextsOfSource(entry.path(), texts);
    return texts;
}

TEST(ProgramTexts, AreAllInGerman)
{
    const TextsById texts = TextsOfSources();
    for (const int id : {41001, 41135, 41201, 41411, 41502, 41579, 60002, 60264})
        EXPECT_TRUE(texts.contains(id)) << id;
    StringTable table = StringTable::Load(Example("strings.de.txt"));
    table.Add(StringTable::Load(Example("summary.de.txt")));
    for (const auto& [id, text] : texts)
        EXPECT_NE(table.Localize(text.c_str(), id), text.c_str())
            << id << " is not translated, or has other placeholders";
}

TEST(ProgramTexts, AreWhatTheGermanTableHolds)
{
    const TextsById texts = TextsOfSources();
    std::istringstream lines(ReadBytes(Example("summary.de.txt")));
    std::set<int> ids;
    for (std::string line; std::getline(lines, line);) {
        const int id = std::stoi(line);
        EXPECT_TRUE(ids.insert(id).second) << line;
        EXPECT_TRUE(texts.contains(id)) << line;
    }
    EXPECT_GT(ids.size(), 300U);
}

TEST(ProgramTexts, TakeTheirArgumentsInOrder)
{
    EXPECT_EQ(Say(Texts::Size, {"1", "%s", "3"}), "size: 1 x %s x 3");
    EXPECT_EQ(Say(Texts::Reading, {"100%%.obj", "%s"}), "100%%.obj: %s % read");
    EXPECT_EQ(Counted(1, Texts::Meshes), "1 mesh");
    EXPECT_EQ(Counted(1234567, Texts::Meshes), "1,234,567 meshes");
    const GermanTable german;
    EXPECT_EQ(Counted(1234567, Texts::Meshes), "1.234.567 Netze");
}

TEST(HostReasons, AreSaidInTheUsersLanguage)
{
    const std::pair<const char*, const char*> cases[] = {
        {"the curve has no knots", "die Kurve hat keine Knoten"},
        {"the surface has 7 knots in u where 8 are needed",
         "die Fläche hat 7 Knoten in u, wo 8 nötig sind"},
        {"inner loop 2 of the brep does not close: trim 1 ends 0.5 away from the start of trim 3 "
         "(tolerance 0.001)",
         "innere Schleife 2 des Breps schließt sich nicht: Trim 1 endet 0.5 vor dem Anfang von "
         "Trim 3 (Toleranz 0.001)"},
        {"the brep has no face: the surface's control point 3 was never set",
         "der Brep hat keine Fläche: in der Fläche wurde Kontrollpunkt 3 nie gesetzt"},
        {"a: b.png: 9 x 9 pixels in a file of 7 bytes are out of proportion",
         "a: b.png: 9 x 9 Pixel in einer Datei von 7 Byte sind unverhältnismäßig viel"},
        {"another", "another"}};
    for (const auto& [english, german] : cases)
        EXPECT_EQ(LocalReason(english), english);
    const GermanTable table;
    for (const auto& [english, german] : cases)
        EXPECT_EQ(LocalReason(english), german);
}

} // namespace
