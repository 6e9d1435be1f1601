#include "objimport/plugin_command.h"

#include "console_host/app/printable.h"
#include "console_host/app/registration.h"
#include "console_host/framework/native_windows.h"
#include "objimport/host_run.h"
#include "objimport/program_error.h"
#include "objimport/settings_file.h"
#include "objimport/text_output.h"

#include "host/app/command.h"
#include "host/geokit/string.h"

#include <cstdio>
#include <string>

namespace {

CKelvoCommand& CommandAskedFor(const std::string& name)
{
    if (CKelvoCommand* command = FindCommand(GK_wString(std::string_view(name)).View()))
        return *command;
    std::string known;
    for (const CKelvoCommand* command : Commands())
        known += (known.empty() ? "" : ", ") + GK_wString(command->EnglishCommandName()).Utf8();
    throw ProgramError("there is no command " + name + "; the plug-in has " + known);
}

} // namespace

bool RunPlugInCommand(const CommandLine& commandLine, PlugInModule& module)
{
    CKelvoCommand& command = CommandAskedFor(commandLine.run);
    PrepareHost(commandLine, module, stdout);
    module.RunLoadHook();
    const int result = command.RunCommand();
    module.RunUnloadHook();
    SaveSettings(commandLine, result == CommandSuccess && Dialogs().shown > 0);
    CheckDialogsWereShown();
    WriteForUser(stdout, [&](TextOutput& output) {
        if (result != CommandSuccess && !commandLine.quiet)
            output.Write(PrintableLine(commandLine.run) +
                         (result == CommandCancel ? ": cancelled\n" : ": failed\n"));
    });
    return result == CommandSuccess;
}
