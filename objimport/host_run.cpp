#include "objimport/host_run.h"

#include "console_host/app/console_app.h"
#include "console_host/app/registration.h"
#include "console_host/framework/native_windows.h"
#include "console_host/runtime/native_path.h"
#include "objimport/program_error.h"
#include "objimport/settings_file.h"

#include <stdexcept>
#include <utility>

namespace {

/// Tells the host how a user of this program gets the plug-in's options dialog back.
void SetDialogHint()
{
    const std::wstring command = L"OBJImportOptionsDialog";
    if (FindCommand(command) != nullptr)
        ConsoleApp::Instance().SetDialogHint(L"To get the dialog back, run the command " + command +
                                             L" (objimport --run " + command +
                                             L") and clear the box at its end.");
}

} // namespace

void LoadStrings(const CommandLine& commandLine)
{
    StringTable table;
    for (const std::string& name : commandLine.strings) {
        try {
            table.Add(StringTable::Load(PathFromUtf8(name)));
        } catch (const std::runtime_error& failure) {
            throw ProgramError("cannot read the string table " + name + ": " + failure.what());
        }
    }
    ConsoleApp::Instance().SetStrings(std::move(table));
}

void PrepareHost(const CommandLine& commandLine, PlugInModule& module, std::FILE* user)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(commandLine.quiet ? nullptr : user);
    app.SetProfile(MakeProfile(commandLine, module.PlugIn().PlugInId()));
    SetDialogHint();
}

void CheckDialogsWereShown()
{
    if (Dialogs().notShown > 0)
        throw ProgramError(
            "the dialog cannot be shown: there is no display; "
            "objimport --prompt FILE asks for the options on the terminal and keeps them");
}
