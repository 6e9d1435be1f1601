// Whole imports, compared with the documents that are expected.
//
// A case is a file: cases/NAME.obj or an example of this project. A first line "#! SWITCHES" in it
// is one run of it under these switches of objimport; each further line is another run, into a new
// document. "#! SWITCHES FILE..." imports these files of the folder instead. Runs of an example
// stand in cases/NAME.runs. Without such lines there is one run without switches. The result of the
// runs is expected to be as in cases/NAME.expected. To write these files again, run this program
// with RENEW_CASES=1 in the environment, and read what has changed.

#include "tests/temporary_folder.h"
#include "tests/whole/session.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {

const std::string CaseFolder = PROJECT_FOLDER "/tests/whole/cases/";
const std::string ExampleFolder = PROJECT_FOLDER "/examples/";

/// Returns the switches of each run of a case.
std::vector<std::string> Runs(const std::string& objPath, const std::string& name)
{
    const std::string runsPath = CaseFolder + name + ".runs";
    std::istringstream lines(ReadBytes(std::filesystem::exists(runsPath) ? runsPath : objPath));
    std::vector<std::string> runs;
    for (std::string line; std::getline(lines, line) && line.starts_with("#!");)
        runs.push_back(line.substr(2));
    if (runs.empty())
        runs.emplace_back();
    return runs;
}

/// Returns the report with the names of files without the folder of the case.
std::string WithoutFolder(std::string report, const std::string& objPath)
{
    std::string folder;
    for (const char character : std::filesystem::path(objPath).parent_path().generic_string() + "/")
        folder += character == '/' ? std::string("\\\\") : std::string(1, character);
    for (auto at = report.find(folder); at != std::string::npos; at = report.find(folder, at))
        report.erase(at, folder.size());
    return report;
}

std::string RunCase(const std::string& objPath, const std::string& switches)
{
    Session session;
    const std::vector<std::string> files = session.SetOptions(switches);
    for (const std::string& file : files)
        session.Import((std::filesystem::path(objPath).parent_path() / file).string());
    if (files.empty())
        session.Import(objPath);
    return WithoutFolder(session.ReportText(), objPath);
}

using Cases = testing::TestWithParam<std::string>;

TEST_P(Cases, DocumentIsAsExpected)
{
    const std::string& objPath = GetParam();
    const std::string name = std::filesystem::path(objPath).stem().string();
    std::string report;
    for (const std::string& switches : Runs(objPath, name))
        report += "#!" + switches + "\n" + RunCase(objPath, switches) + "\n";

    const std::string expectedPath = CaseFolder + name + ".expected";
    if (std::getenv("RENEW_CASES") != nullptr) {
        std::ofstream(expectedPath, std::ios::binary) << report;
        return;
    }
    EXPECT_EQ(report, ReadBytes(expectedPath)) << expectedPath;
}

std::string CaseName(const testing::TestParamInfo<std::string>& info)
{
    return std::filesystem::path(info.param).stem().string();
}

INSTANTIATE_TEST_SUITE_P(Written, Cases, testing::ValuesIn(FilesIn(CaseFolder, ".obj")), CaseName);
INSTANTIATE_TEST_SUITE_P(Examples, Cases, testing::ValuesIn(FilesIn(ExampleFolder, ".obj")),
                         CaseName);

} // namespace
