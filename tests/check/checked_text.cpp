#include "tests/check/checked_text.h"

#include "console_host/runtime/native_path.h"
#include "objimport/check/file_sort.h"
#include "objimport/check_text.h"
#include "objimport/found_files.h"
#include "tests/temporary_folder.h"

CheckedFile::CheckedFile(const std::filesystem::path& path, std::size_t mostOfAKind,
                         double tolerance)
    : findings(mostOfAKind)
{
    findings.BeginGroup();
    const int file = findings.AddFile(Utf8Path(path));
    ReportNoText({findings, file, 0}, ReadBytes(path).substr(0, 512));
    FilesBeside finder(path);
    ObjChecker checker(OpenNative(path, "rb"), findings, file, finder, tolerance);
    totals = checker.Check();
}

std::vector<std::string> CheckedFile::Lines() const
{
    std::vector<std::string> lines;
    for (const Finding* finding : findings.OfGroup()) {
        const std::string& file = findings.Files()[static_cast<std::size_t>(finding->file)];
        std::string line = PathFromUtf8(file).filename().string();
        line.append(":").append(std::to_string(finding->line)).append(": ");
        line.append(NameOf(finding->kind)).append(": ").append(InWords(*finding));
        lines.push_back(std::move(line));
    }
    return lines;
}
