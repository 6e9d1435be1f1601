#include "objimport/check_run.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/check/file_sort.h"
#include "objimport/check_text.h"
#include "objimport/found_files.h"
#include "objimport/program_error.h"
#include "objimport/sarif.h"

#include <algorithm>

namespace {

constexpr int NothingLost = 0;
constexpr int SomethingLost = 1;
constexpr int NotRead = 2;
constexpr std::size_t MostOfAKind = 20;
constexpr std::size_t MostInSarif = 10'000; // of a kind, so that memory stays bounded

/// Returns how many findings of a kind are kept for each file.
std::size_t MostToKeep(const CheckRequest& request)
{
    if (request.all)
        return Findings::All;
    return request.sarif.empty() ? MostOfAKind : MostInSarif;
}

[[noreturn]] void ThrowCannotWrite(const std::string& target, const std::string& why)
{
    throw ProgramError("cannot write " + target + ": " + why);
}

/// Checks a file that can be read; returns false when reading fails before its end.
bool CheckFile(const CheckRequest& request, const InputFile& input, TextOutput& output,
               Findings& findings)
{
    const std::size_t mostOfAKind = request.all ? Findings::All : MostOfAKind;
    const std::string name = input.name == "-" ? ShownFileName(input.name) : input.name;
    findings.BeginGroup();
    const int file = findings.AddFile(name);
    if (ReportNoText({findings, file, 0}, FirstBytes(input))) {
        if (!request.quiet)
            WriteFindings(output, findings, mostOfAKind);
        return true;
    }
    FilesBeside finder(input.path);
    ObjChecker checker(OpenNative(input.path, "rb"), findings, file, finder, request.tolerance);
    const CheckTotals totals = checker.Check();
    if (!request.quiet) {
        WriteFindings(output, findings, mostOfAKind);
        WriteCheckSummary(output, name, totals, findings, mostOfAKind);
    }
    return findings.CountInGroup(CheckKind::ReadError) == 0;
}

bool IsReadBy(const std::string& target, const CheckRequest& request, const Findings& findings)
{
    const std::filesystem::path path = PathFromUtf8(target);
    const auto isInput = [&](const InputFile& input) { return IsSameFile(path, input.path); };
    const auto isFile = [&](const std::string& file) {
        return IsSameFile(path, PathFromUtf8(file));
    };
    return std::any_of(request.files.begin(), request.files.end(), isInput) ||
           std::any_of(findings.Files().begin(), findings.Files().end(), isFile);
}

void WriteSarifTo(std::FILE* stream, const Findings& findings)
{
    TextOutput output(stream);
    WriteSarif(output, findings);
    if (const std::string why = output.Finish(); !why.empty())
        throw std::runtime_error(why);
}

void WriteSarifFile(const CheckRequest& request, const Findings& findings)
try {
    if (request.sarif == "-")
        return WriteSarifTo(stdout, findings);
    if (IsReadBy(request.sarif, request, findings))
        throw std::runtime_error("it is one of the files that are checked");
    FileReplacement file(PathFromUtf8(request.sarif), FileReplacement::Links::Follow);
    WriteSarifTo(file.Stream(), findings);
    file.Commit();
} catch (const std::runtime_error& failure) {
    ThrowCannotWrite(request.sarif == "-" ? "to standard output" : request.sarif, failure.what());
}

} // namespace

int CheckFilesAgainstFormat(const CheckRequest& request)
{
    Findings findings(MostToKeep(request));
    TextOutput output(request.sarif == "-" ? stderr : stdout);
    bool allRead = true;
    for (const InputFile& input : request.files) {
        const std::string& why = input.whyUnreadable;
        if (!why.empty())
            TellError("cannot read " + ShownFileName(input.name) + ": " + why);
        allRead = why.empty() && CheckFile(request, input, output, findings) && allRead;
    }
    if (const std::size_t leftOut = findings.LeftOut();
        leftOut > 0 && !request.sarif.empty() && !request.quiet)
        output.Write(PrintableLine(request.sarif + ": " + FindingsLeftOut(leftOut)) + "\n");
    if (const std::string why = output.Finish(); !why.empty() && !output.IsReaderGone())
        ThrowCannotWrite("to standard output", why);
    if (!request.sarif.empty())
        WriteSarifFile(request, findings);
    if (!allRead)
        return NotRead;
    return findings.AnyLoss() ? SomethingLost : NothingLost;
}
