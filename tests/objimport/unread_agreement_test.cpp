// What the summary of an import says is not read, and what --check says of the same file.

#include "console_host/app/console_app.h"
#include "console_host/runtime/native_path.h"
#include "objimport/check/obj_checker.h"
#include "objimport/found_files.h"
#include "objimport/import_session.h"
#include "objimport/plugin_module.h"
#include "tests/temporary_folder.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

namespace fs = std::filesystem;

/// Lines that are not read: by their statements, and those after an early end under its line.
using Counts = std::map<std::string, std::size_t>;

std::string AfterLine(std::size_t line)
{
    return "after line " + std::to_string(line);
}

class UnreadAgreement : public testing::Test
{
protected:
    UnreadAgreement()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        m_module.RunLoadHook();
    }
    void TearDown() override { ConsoleApp::Instance().SetPrintStream(stdout); }

    Counts ToldBySummary(const fs::path& path)
    {
        ConsoleDoc doc(0.001);
        CKelvoFileReadOptions options;
        options.SetMode(ReadModeAskOnCommandLine, true);
        ImportSession session(m_module.PlugIn(), doc, options);
        session.LookForUnreadLines();
        const UnreadLines& unread = session.Import({Utf8(path), path, nullptr, {}}).unread;
        Counts counts(unread.keywords.begin(), unread.keywords.end());
        if (unread.end.linesAfter > 0)
            counts[AfterLine(unread.end.line)] = unread.end.linesAfter;
        return counts;
    }

    void ExpectAgreement(const fs::path& path);

private:
    PlugInModule m_module{fs::path(IMPORT_MODULE)};
};

Counts ToldByCheck(const fs::path& path)
{
    Findings findings(Findings::All);
    FilesBeside finder(path);
    ObjChecker checker(OpenNative(path, "rb"), findings, findings.AddFile(Utf8(path)), finder,
                       0.001);
    const CheckTotals totals = checker.Check();
    Counts counts;
    for (const Finding& finding : findings.Kept()) {
        const std::vector<PhraseArgument>& arguments = finding.what.arguments;
        const bool isUnread =
            finding.kind == CheckKind::NotRead || finding.kind == CheckKind::UnknownStatement;
        if (isUnread && finding.file == 0)
            counts[std::get<std::string>(arguments.at(0))] = std::get<std::size_t>(arguments.at(1));
    }
    if (totals.unread > 0)
        counts[AfterLine(totals.lines)] = totals.unread;
    return counts;
}

/// Counts those that the summary does not name together, under no keyword, as it does.
Counts WithRestTogether(const Counts& counts, const Counts& summary)
{
    Counts together;
    for (const auto& [keyword, count] : counts)
        together[summary.contains(keyword) ? keyword : std::string()] += count;
    return together;
}

void UnreadAgreement::ExpectAgreement(const fs::path& path)
{
    const Counts summary = ToldBySummary(path);
    const Counts check = ToldByCheck(path);
    EXPECT_EQ(summary, WithRestTogether(check, summary)) << path;
    EXPECT_GE(summary.size(), std::min<std::size_t>(check.size(), 12)) << path;
}

TEST_F(UnreadAgreement, InFilesOfTheProject)
{
    std::size_t lossy = 0;
    for (const char* name : {"examples", "tests/whole/cases"})
        for (const auto& entry : fs::directory_iterator(fs::path(PROJECT_FOLDER) / name))
            if (entry.path().extension() == ".obj") {
                ExpectAgreement(entry.path());
                lossy += ToldByCheck(entry.path()).empty() ? 0U : 1U;
            }
    EXPECT_GT(lossy, 5U);
}

TEST_F(UnreadAgreement, InFilesWithManyUnreadStatements)
{
    using namespace std::string_literals;
    const auto keywords = [](int count, const std::string& start) {
        std::string text;
        for (int i = 0; i < count; ++i)
            for (int line = 0; line <= i % 3; ++line)
                text += start + std::to_string(i) + " 1\n";
        return text;
    };
    const std::string triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
    const std::string texts[] = {
        "s 1\nS 2\ns off\ns 0\ns\nl 1 2\nL 2 3\n # a comment\n#l 1\nend\nEND\n",
        "bevel on\nlod 1\nnonsense\nNonsense 2\nnonsens\n",
        "l 1 2\nusemtl early\nfoo\nv 1\nl 1 2\nusemtl late\nbar\n# the end\n",
        "l 1 \\\n2\rl 3\r\nzz\0xx\nvt 1 \\\r\n\\\n\n\nl 1\r\rl 2\r\ns 1"s,
        "l 1 2\nv 1\n",
        "con 1\np 99\nl 1",
        keywords(12, "x"),
        keywords(13, "x"),
        keywords(1000, "x"),
        keywords(5, std::string(30, 'y')),
        keywords(5, std::string(60, 'Y')) + "l 1\n"};
    const TemporaryFolder folder;
    for (const std::string& text : texts) {
        fs::remove(folder / "unread.obj");
        const fs::path path = folder.Write("unread.obj", triangle + text);
        EXPECT_FALSE(ToldByCheck(path).empty()) << text;
        ExpectAgreement(path);
    }
}

TEST_F(UnreadAgreement, ReportsLinesAfterAnEarlyEnd)
{
    EXPECT_EQ(ToldBySummary(fs::path(PROJECT_FOLDER) / "examples" / "faulty.obj"),
              (Counts{{"vertex", 1}, {"s", 1}, {"l", 1}, {"nonsense", 1}, {"after line 44", 2}}));
}

} // namespace
