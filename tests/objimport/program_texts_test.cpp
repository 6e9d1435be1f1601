#include "console_host/app/console_app.h"
#include "objimport/host_reasons.h"
#include "objimport/program_texts.h"
#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <string>

namespace {

namespace fs = std::filesystem;

/// Uses the German table for as long as it lives.
class GermanTable
{
public:
    GermanTable()
    {
        ConsoleApp::Instance().SetStrings(
            StringTable::Load(fs::path(PROJECT_FOLDER) / "examples" / "summary.de.txt"));
    }
    GermanTable(const GermanTable&) = delete;
    GermanTable& operator=(const GermanTable&) = delete;
    ~GermanTable() { ConsoleApp::Instance().SetStrings({}); }
};

/// The program's texts by their ids, as they stand in its sources.
std::map<int, std::wstring> TextsOfSources()
{
    std::map<int, std::wstring> texts;
    static const std::regex TextAndId(R"lit(L"((?:[^"\\]|\\.)*)",\s*(60\d{3})\})lit");
    for (const char* name : {"program_texts.h", "host_reasons.cpp"}) {
        const std::string source = std::regex_replace(
            ReadBytes(fs::path(PROJECT_FOLDER) / "objimport" / name), std::regex(R"("\s+L")"), "");
        for (std::sregex_iterator found(source.begin(), source.end(), TextAndId), end; found != end;
             ++found) {
            const std::string text = found->str(1);
            EXPECT_TRUE(
                texts.emplace(std::stoi(found->str(2)), std::wstring(text.begin(), text.end()))
                    .second)
                << found->str();
        }
    }
    return texts;
}

TEST(ProgramTexts, AreAllInTheGermanTable)
{
    const std::map<int, std::wstring> texts = TextsOfSources();
    EXPECT_GT(texts.size(), 150U);
    StringTable table = StringTable::Load(fs::path(PROJECT_FOLDER) / "examples" / "summary.de.txt");
    for (const auto& [id, text] : texts)
        EXPECT_NE(table.Localize(text.c_str(), id), text.c_str())
            << id << " is not translated, or has other placeholders";
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
