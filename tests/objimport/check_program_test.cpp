#include "tests/json_values.h"
#include "tests/objimport/process.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

TEST(CheckOption, SaysByItsStatusWhetherSomethingIsLost)
{
    const TemporaryFolder folder;
    const std::string good = Utf8(folder.Write("good.obj", Triangle));
    const std::string noted = Utf8(folder.Write("noted.obj", Triangle + std::string("s 1\n")));
    const std::string bad = Utf8(folder.Write("bad.obj", Triangle + std::string("f 1 2\n")));
    EXPECT_EQ(RunObjimport({"--check", good}).status, 0);
    EXPECT_EQ(RunObjimport({"--check", noted}).status, 0);
    const ProcessResult lossy = RunObjimport({"--check", good, bad});
    EXPECT_EQ(lossy.status, 1);
    EXPECT_THAT(lossy.output, StartsWith(good + ":\n  4 lines: 1 f, 3 v\n"));
    EXPECT_THAT(lossy.output, HasSubstr("\n" + bad +
                                        ":5: warning: the face is refused: it has fewer "
                                        "than three corners (2) [refused-face]\n"));
    const ProcessResult absent = RunObjimport({"--check", "absent.obj", bad});
    EXPECT_EQ(absent.status, 2);
    EXPECT_THAT(absent.errors, HasSubstr("cannot read absent.obj: no such file"));
    EXPECT_THAT(absent.output, HasSubstr("[refused-face]"));
}

TEST(CheckOption, CutsListsUnlessAllIsAskedFor)
{
    const TemporaryFolder folder;
    std::string text = Triangle;
    for (int i = 0; i < 30; ++i)
        text += "f 1 2\n";
    const std::string file = Utf8(folder.Write("many.obj", text));
    const auto findings = [](const std::string& output) {
        std::size_t count = 0;
        for (std::size_t at = output.find("[refused-face]"); at != std::string::npos;
             at = output.find("[refused-face]", at + 1))
            ++count;
        return count;
    };
    const ProcessResult cut = RunObjimport({"--check", file});
    EXPECT_EQ(findings(cut.output), 20U);
    EXPECT_THAT(cut.output, HasSubstr("10 more findings of this kind; --all shows them"));
    EXPECT_EQ(findings(RunObjimport({"--check", "--all", file}).output), 30U);
    const std::string sarif = Utf8(folder / "found.sarif");
    EXPECT_EQ(RunObjimport({"--check", "--sarif", sarif, file}).output, cut.output);
    EXPECT_EQ(JsonCount(folder.Read("found.sarif"), "/runs/0/results"), 30U);
}

TEST(CheckOption, WritesSarifInTheUsersLanguage)
{
    const TemporaryFolder folder;
    const std::string bad = Utf8(folder.Write("bad.obj", Triangle + std::string("f 1 2\n")));
    const std::string strings =
        Utf8(folder.Write("de.txt", "41135\tDie Fl\xC3\xA4"
                                    "che hat nur %s Ecken\n41402\tWarnung\n"));
    const std::string sarif = Utf8(folder / "found.sarif");
    const ProcessResult result =
        RunObjimport({"--check", "--strings", strings, "--sarif", sarif, bad});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr(": Warnung: Die Fl\xC3\xA4"
                                         "che hat nur 2 Ecken [refused-face]\n"));
    const std::string json = folder.Read("found.sarif");
    EXPECT_EQ(JsonAt(json, "/runs/0/results/0/message/text"), "Die Fl\xC3\xA4"
                                                              "che hat nur 2 Ecken");
    EXPECT_EQ(RunObjimport({"--check", "--sarif", bad, bad}).status, 2);
    EXPECT_EQ(folder.Read("bad.obj"), Triangle + std::string("f 1 2\n"));
}

TEST(CheckOption, ShowsGermanFindingsAndCounts)
{
    const TemporaryFolder folder;
    std::string text = Triangle;
    for (int i = 0; i < 1200; ++i)
        text += "l 1 2\n";
    const std::string file = Utf8(folder.Write("lines.obj", text + "v 1\nf 1 2 3\n"));
    const ProcessResult result =
        RunObjimport({"--check", "--strings", PROJECT_FOLDER "/examples/summary.de.txt", file});
    for (const char* part :
         {":5: Warnung: Zeilen mit \"l\" werden nicht gelesen (insgesamt 1.200): ",
          ":1205: Fehler: das Lesen endet hier: \"v\" braucht 3 Zahlen; nicht gelesene Zeilen: 1 ",
          "\n  1.205 Zeilen: 1 f, 1.200 l, 4 v\n",
          " Anweisungen werden nicht gelesen (not-read)\n"})
        EXPECT_THAT(result.output, HasSubstr(part));
    EXPECT_EQ(result.errors, "");
}

TEST(CheckOption, SaysOfFilesThatAreNotTextNothingElse)
{
    using namespace std::string_literals;
    const TemporaryFolder folder;
    const std::string file = Utf8(folder.Write("utf16.obj", "\xFF\xFEv\0 \0001\0\n\0"s));
    const std::string what = "the file is UTF-16 text, which is not read; save it as UTF-8";
    const ProcessResult check = RunObjimport({"--check", file});
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(check.output, file + ": error: " + what + " [no-text]\n");
    const ProcessResult import = RunObjimport({"--settings", Utf8(folder / "s.ini"), file});
    EXPECT_THAT(import.output, HasSubstr("objects\n  " + what + "\n"));
    EXPECT_THAT(import.output, testing::Not(HasSubstr("--check")));
}

TEST(CheckOption, ExcludesWhatNeedsAnImport)
{
    const TemporaryFolder folder;
    const std::string good = Utf8(folder.Write("good.obj", Triangle));
    EXPECT_EQ(RunObjimport({"--check", "--json", "-", good}).status, 2);
    EXPECT_EQ(RunObjimport({"--sarif", "-", good}).status, 2);
}

} // namespace
