#include "objimport/program.h"

#include "console_host/app/console_app.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/about.h"
#include "objimport/check_run.h"
#include "objimport/command_line.h"
#include "objimport/file_checks.h"
#include "objimport/host_run.h"
#include "objimport/import_run.h"
#include "objimport/input_file.h"
#include "objimport/plugin_command.h"
#include "objimport/program_error.h"

#include <cstdio>
#include <new>

namespace {

constexpr int Succeeded = 0;
constexpr int ImportFailed = 1;
constexpr int NotDone = 2;

std::filesystem::path ModulePath(const CommandLine& commandLine)
{
    if (!commandLine.module.empty())
        return AbsolutePath(PathFromUtf8(commandLine.module));
    const std::filesystem::path beside = ProgramFolder() / IMPORTOBJ_MODULE;
    const std::filesystem::path installed =
        ProgramFolder() / IMPORTOBJ_MODULE_FOLDER / IMPORTOBJ_MODULE;
    return WhyUnreadable(beside).empty() || !WhyUnreadable(installed).empty() ? beside : installed;
}

int Import(const CommandLine& commandLine)
{
    std::vector<InputFile> files = FindInputFiles(commandLine);
    if (!commandLine.each)
        CheckReadable(files);
    CheckOutputs(commandLine, files);
    LoadStrings(commandLine);
    PlugInModule module(ModulePath(commandLine));
    KeepStreams(files);
    if (!commandLine.each)
        CheckReadable(files);
    return static_cast<int>(ImportFiles(commandLine, files, module));
}

int RunCheck(const CommandLine& commandLine)
{
    LoadStrings(commandLine);
    std::vector<InputFile> files = FindInputFiles(commandLine);
    KeepStreams(files);
    return CheckFilesAgainstFormat(
        {files, commandLine.sarif, commandLine.tolerance, commandLine.all, commandLine.quiet});
}

int Run(const CommandLine& commandLine)
{
    if (commandLine.check)
        return RunCheck(commandLine);
    if (commandLine.run.empty() && !commandLine.about)
        return Import(commandLine);
    CheckOutputs(commandLine, {});
    LoadStrings(commandLine);
    PlugInModule module(ModulePath(commandLine));
    if (!commandLine.run.empty())
        return RunPlugInCommand(commandLine, module) ? Succeeded : ImportFailed;
    WriteForUser(stdout, [&](TextOutput& output) { WriteAbout(output, module); });
    return Succeeded;
}

} // namespace

int RunProgram(std::vector<std::string> arguments)
{
    try {
        ConsoleApp::Instance(); // counts failed allocations from here on
        CommandLine commandLine;
        if (const std::optional<int> status = commandLine.Read(std::move(arguments)))
            return *status;
        return Run(commandLine);
    } catch (const ProgramError& error) {
        TellError(error.what());
    } catch (const std::bad_alloc&) {
        TellError("out of memory");
    }
    return NotDone;
}
