#include "objimport/program.h"

#include "console_host/app/answer_source.h"
#include "console_host/app/console_app.h"
#include "console_host/app/registration.h"
#include "console_host/framework/native_windows.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/about.h"
#include "objimport/command_line.h"
#include "objimport/import_session.h"
#include "objimport/json_file.h"
#include "objimport/program_error.h"
#include "objimport/saved_forms.h"
#include "objimport/summary.h"

#include "host/app/command.h"
#include "host/geokit/string.h"

#include <cstdio>
#include <memory>
#include <new>

namespace {

constexpr int ImportFailed = 1;
constexpr int NotDone = 2;

/// Whether the plug-in finds the file by the wide name that it is given. Off Windows a file name
/// may hold '\' or bytes that are no UTF-8.
bool CanBeHandedOver(const std::filesystem::path& path)
{
    const std::filesystem::path absolute = AbsolutePath(path);
    const std::filesystem::path found = NativePath(WidePath(absolute));
    return found.native() == absolute.native() || IsSameFile(found, absolute);
}

/// Where the user's settings are kept; empty when the system names no folder for them.
std::filesystem::path UserSettings()
{
    const std::filesystem::path folder = UserSettingsFolder();
    return folder.empty() ? folder : folder / "kelvo" / "settings.ini";
}

/// Throws when what is written would take the place of something that is read, or of what is
/// written as well.
void CheckReplacements(const CommandLine& commandLine)
{
    struct Use
    {
        std::string name;
        std::string file;
    };
    std::vector<Use> uses = {
        {"the JSON", commandLine.json == "-" ? std::string() : commandLine.json},
        {"the settings",
         commandLine.settings.empty() ? Utf8Path(UserSettings()) : commandLine.settings}};
    for (const std::string& file : commandLine.saves)
        uses.push_back({"the saved file " + file, file});
    const std::size_t written = uses.size();
    uses.push_back({"the string table", commandLine.strings});
    uses.push_back({"the module", commandLine.module});
    for (const std::string& file : commandLine.files)
        uses.push_back({"the input " + file, file});
    for (std::size_t i = 0; i < written; ++i)
        for (std::size_t j = i + 1; j < uses.size(); ++j)
            if (!uses[i].file.empty() && !uses[j].file.empty() &&
                IsSameFile(PathFromUtf8(uses[i].file), PathFromUtf8(uses[j].file)))
                throw ProgramError(uses[i].name + " would replace " + uses[j].name);
}

void CheckFiles(const CommandLine& commandLine)
{
    for (const std::string& file : commandLine.files) {
        const std::filesystem::path path = PathFromUtf8(file);
        std::string why = WhyUnreadable(path);
        if (why.empty() && !CanBeHandedOver(path))
            why = "a name with '\\' or with bytes that are no UTF-8 cannot be given to the plug-in";
        if (!why.empty())
            throw ProgramError(std::string("cannot read ").append(file).append(": ").append(why));
    }
    CheckReplacements(commandLine);
    CheckJsonFile(commandLine.json);
}

std::filesystem::path ModulePath(const CommandLine& commandLine)
{
    if (!commandLine.module.empty())
        return AbsolutePath(PathFromUtf8(commandLine.module));
    const std::filesystem::path beside = ProgramFolder() / IMPORTOBJ_MODULE;
    const std::filesystem::path installed =
        ProgramFolder() / IMPORTOBJ_MODULE_FOLDER / IMPORTOBJ_MODULE;
    return WhyUnreadable(beside).empty() || !WhyUnreadable(installed).empty() ? beside : installed;
}

void LoadStrings(const CommandLine& commandLine)
{
    if (commandLine.strings.empty())
        return;
    try {
        ConsoleApp::Instance().SetStrings(StringTable::Load(PathFromUtf8(commandLine.strings)));
    } catch (const std::runtime_error& failure) {
        throw ProgramError("cannot read the string table " + commandLine.strings + ": " +
                           failure.what());
    }
}

/// The settings file of the command line, which need not exist yet.
std::unique_ptr<ProfileStore> SettingsAskedFor(const std::string& name)
{
    const std::filesystem::path path = PathFromUtf8(name);
    const bool isNew = KindOfFile(path) == FileKind::Missing;
    if (const std::string why = isNew ? "" : WhyUnreadable(path); !why.empty())
        throw ProgramError("cannot read the settings " + name + ": " + why);
    auto profile = std::make_unique<ProfileStore>(path);
    if (const std::string& why = profile->WhyUnreadable(); !why.empty())
        throw ProgramError("cannot read the settings " + name + ": " + why);
    return profile;
}

/// Options given for this run live in a store of their own, in memory.
std::unique_ptr<ProfileStore> MakeProfile(const CommandLine& commandLine, const GK_UUID& plugInId)
{
    if (commandLine.switches.AnyGiven()) {
        auto profile = std::make_unique<ProfileStore>();
        commandLine.switches.WriteTo(*profile, plugInId);
        return profile;
    }
    if (!commandLine.settings.empty())
        return SettingsAskedFor(commandLine.settings);
    const std::filesystem::path path = UserSettings();
    if (path.empty()) {
        TellError("the settings are not kept, since the system names no folder for them; "
                  "--settings names a file");
        return std::make_unique<ProfileStore>();
    }
    auto profile = std::make_unique<ProfileStore>(path);
    if (const std::string& why = profile->WhyUnreadable(); !why.empty())
        TellError("cannot read the settings " + Utf8Path(path) + ": " + why);
    return profile;
}

/// Writes text for the user; throws when it cannot be written.
template <class Write>
void WriteForUser(std::FILE* stream, Write write)
{
    TextOutput output(stream);
    write(output);
    if (const std::string why = output.Finish(); !why.empty())
        throw ProgramError("cannot write to standard output: " + why);
}

/// Throws when a dialog was asked for and could not be shown.
void CheckDialogsWereShown()
{
    if (Dialogs().notShown > 0)
        throw ProgramError("the dialog cannot be shown: there is no display; "
                           "--prompt asks for the import options on the terminal");
}

/// Tells the host how a user of this program gets the plug-in's options dialog back.
void SetDialogHint()
{
    const std::wstring command = L"OBJImportOptionsDialog";
    if (FindCommand(command) != nullptr)
        ConsoleApp::Instance().SetDialogHint(L"To get the dialog back, run the command " + command +
                                             L" (objimport --run " + command +
                                             L") and clear the box at its end.");
}

/// Prepares the host for a run in which messages go to `user`.
void PrepareHost(const CommandLine& commandLine, PlugInModule& module, std::FILE* user)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(commandLine.quiet ? nullptr : user);
    app.SetProfile(MakeProfile(commandLine, module.PlugIn().PlugInId()));
    SetDialogHint();
}

void RunUnloadHook(PlugInModule& module)
{
    module.RunUnloadHook();
    ConsoleApp::Instance().Profile().Save();
}

CKelvoCommand& CommandAskedFor(const std::string& name)
{
    if (CKelvoCommand* command = FindCommand(GK_wString(std::string_view(name)).View()))
        return *command;
    std::string known;
    for (const CKelvoCommand* command : Commands())
        known += (known.empty() ? "" : ", ") + GK_wString(command->EnglishCommandName()).Utf8();
    throw ProgramError("there is no command " + name + "; the plug-in has " + known);
}

int RunPlugInCommand(const CommandLine& commandLine, PlugInModule& module)
{
    CKelvoCommand& command = CommandAskedFor(commandLine.run);
    PrepareHost(commandLine, module, stdout);
    module.RunLoadHook();
    const int result = command.RunCommand();
    RunUnloadHook(module);
    CheckDialogsWereShown();
    WriteForUser(stdout, [](TextOutput&) {});
    return result == CommandSuccess ? 0 : ImportFailed;
}

/// Writes the document in the forms that --save asks for; what was written is told the user.
void SaveForms(const CommandLine& commandLine, const SavedForms& forms, const ConsoleDoc& doc,
               const DocumentOrigin& origin, std::FILE* user)
{
    if (commandLine.quiet)
        return forms.Write(commandLine.saves, doc, origin, nullptr);
    WriteForUser(user,
                 [&](TextOutput& output) { forms.Write(commandLine.saves, doc, origin, &output); });
}

int ImportFiles(const CommandLine& commandLine, PlugInModule& module)
{
    const SavedForms forms(commandLine.saves, commandLine.picture);
    // All that the messages and the summary are written to.
    std::FILE* user = commandLine.json == "-" ? stderr : stdout;
    PrepareHost(commandLine, module, user);
    if (commandLine.asking == Asking::Prompt)
        SetAnswerSource(MakeStandardInputAnswers());
    module.RunLoadHook();

    // The document goes before the module, whose code its objects may need.
    ConsoleDoc doc(commandLine.tolerance);
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, commandLine.asking != Asking::Dialog);
    options.SetMode(ReadModeZoomExtents, commandLine.zoom);
    ImportSession session(module.PlugIn(), doc, options);
    DocumentOrigin origin;
    for (const std::string& file : commandLine.files) {
        origin.sources.push_back({file, static_cast<std::size_t>(doc.ObjectCount())});
        session.Import(file);
        CheckDialogsWereShown();
    }

    RunUnloadHook(module);
    if (!commandLine.json.empty())
        WriteJsonFile(commandLine.json, session.Imports(), doc);
    if (!commandLine.quiet)
        WriteForUser(user,
                     [&](TextOutput& output) { WriteSummary(output, session.Imports(), doc); });
    origin.isZUp =
        OptionSwitches::IsOn(ConsoleApp::Instance().Profile(), module.PlugIn().PlugInId(), L"ZUp");
    SaveForms(commandLine, forms, doc, origin, user);
    return session.AllSucceeded() ? 0 : ImportFailed;
}

int Run(const CommandLine& commandLine)
{
    CheckFiles(commandLine);
    LoadStrings(commandLine);
    PlugInModule module(ModulePath(commandLine));
    if (!commandLine.run.empty())
        return RunPlugInCommand(commandLine, module);
    if (!commandLine.about)
        return ImportFiles(commandLine, module);
    WriteForUser(stdout, [&](TextOutput& output) { WriteAbout(output, module); });
    return 0;
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
