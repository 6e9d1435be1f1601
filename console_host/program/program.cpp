#include "console_host/program/program.h"

#include "console_host/app/command_registry.h"
#include "console_host/app/console_app.h"
#include "console_host/app/input_answers.h"
#include "console_host/framework/dialog_state.h"
#include "console_host/program/about.h"
#include "console_host/program/command_line.h"
#include "console_host/program/document_json.h"
#include "console_host/program/import_session.h"
#include "console_host/program/program_error.h"
#include "console_host/program/summary.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/folders.h"
#include "console_host/runtime/native_path.h"

#include "host/app/command.h"
#include "host/geokit/string.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace {

constexpr int ImportFailed = 1;
constexpr int NotDone = 2;

/// A file, or standard output for "-", for the JSON.
class JsonFile
{
public:
    explicit JsonFile(const std::string& name) : m_name(name)
    {
        if (name.empty())
            return;
        m_stream = name == "-" ? stdout : OpenNative(PathFromUtf8(name), "wb");
        if (m_stream == nullptr)
            throw ProgramError("cannot write " + name + ": " +
                               std::generic_category().message(errno));
    }

    JsonFile(const JsonFile&) = delete;
    JsonFile& operator=(const JsonFile&) = delete;

    ~JsonFile()
    {
        if (m_stream != nullptr && m_stream != stdout)
            std::fclose(m_stream);
    }

    void Write(const ImportSession& session, const ConsoleDoc& doc)
    {
        if (m_stream == nullptr)
            return;
        TextOutput output(m_stream);
        WriteDocumentJson(output, session.Imports(), doc);
        if (const std::string why = output.Finish(); !why.empty())
            throw ProgramError("cannot write " + (m_name == "-" ? "to standard output" : m_name) +
                               ": " + why);
    }

private:
    std::string m_name;
    std::FILE* m_stream = nullptr;
};

/// Whether the plug-in finds the file by the wide name that it is given. Off Windows a file name
/// may hold '\' or bytes that are no UTF-8.
bool CanBeHandedOver(const std::filesystem::path& path)
{
    const std::filesystem::path absolute = std::filesystem::absolute(path);
    const std::filesystem::path found = NativePath(WidePath(absolute));
    std::error_code error;
    return found == absolute || std::filesystem::equivalent(found, absolute, error);
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
        std::error_code error;
        if (std::filesystem::equivalent(path, PathFromUtf8(commandLine.json), error))
            throw ProgramError("the JSON would replace the input " + file);
    }
}

std::filesystem::path ModulePath(const CommandLine& commandLine)
{
    if (!commandLine.module.empty())
        return std::filesystem::absolute(PathFromUtf8(commandLine.module));
    return ProgramFolder() / IMPORTOBJ_MODULE;
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
std::filesystem::path SettingsAskedFor(const std::string& name)
{
    std::filesystem::path path = PathFromUtf8(name);
    std::error_code error;
    const bool isNew = !std::filesystem::exists(path, error) && !error;
    if (const std::string why = isNew ? "" : WhyUnreadable(path); !why.empty())
        throw ProgramError("cannot read the settings " + name + ": " + why);
    return path;
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
        return std::make_unique<ProfileStore>(SettingsAskedFor(commandLine.settings));
    const std::filesystem::path folder = UserSettingsFolder();
    if (folder.empty()) {
        std::fputs("objimport: the settings are not kept, since the system names no folder for "
                   "them; --settings names a file\n",
                   stderr);
        return std::make_unique<ProfileStore>();
    }
    return std::make_unique<ProfileStore>(folder / "kelvo" / "settings.ini");
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

/// Prepares the host for a run in which messages go to `user`.
void PrepareHost(const CommandLine& commandLine, PlugInModule& module, std::FILE* user)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(commandLine.quiet ? nullptr : user);
    app.SetProfile(MakeProfile(commandLine, module.PlugIn().PlugInId()));
}

void RunUnloadHook(PlugInModule& module)
{
    module.RunUnloadHook();
    ConsoleApp::Instance().Profile().Save();
}

CKelvoCommand& FindCommand(const std::string& name)
{
    const CommandRegistry& registry = CommandRegistry::Instance();
    if (CKelvoCommand* command = registry.Find(GK_wString(std::string_view(name)).View()))
        return *command;
    std::string known;
    for (const CKelvoCommand* command : registry.Commands())
        known += (known.empty() ? "" : ", ") + GK_wString(command->EnglishCommandName()).Utf8();
    throw ProgramError("there is no command " + name + "; the plug-in has " + known);
}

int RunPlugInCommand(const CommandLine& commandLine, PlugInModule& module)
{
    CKelvoCommand& command = FindCommand(commandLine.run);
    PrepareHost(commandLine, module, stdout);
    module.RunLoadHook();
    const int result = command.RunCommand();
    RunUnloadHook(module);
    CheckDialogsWereShown();
    WriteForUser(stdout, [](TextOutput&) {});
    return result == CommandSuccess ? 0 : ImportFailed;
}

int ImportFiles(const CommandLine& commandLine, PlugInModule& module)
{
    // All that the messages and the summary are written to.
    std::FILE* user = commandLine.json == "-" ? stderr : stdout;
    PrepareHost(commandLine, module, user);
    if (commandLine.asking == Asking::Prompt)
        SetAnswerSource(MakeStandardInputAnswers());
    JsonFile json(commandLine.json);
    module.RunLoadHook();

    // The document goes before the module, whose code its objects may need.
    ConsoleDoc doc(commandLine.tolerance);
    const bool onCommandLine = commandLine.asking != Asking::Dialog;
    ImportSession session(module.PlugIn(), doc, {onCommandLine, commandLine.zoom});
    for (const std::string& file : commandLine.files) {
        session.Import(file);
        CheckDialogsWereShown();
    }

    RunUnloadHook(module);
    json.Write(session, doc);
    if (!commandLine.quiet)
        WriteForUser(user,
                     [&](TextOutput& output) { WriteSummary(output, session.Imports(), doc); });
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
    CommandLine commandLine;
    if (const std::optional<int> status = commandLine.Read(std::move(arguments)))
        return *status;
    try {
        return Run(commandLine);
    } catch (const ProgramError& error) {
        std::fprintf(stderr, "objimport: %s\n", error.what());
    } catch (const std::bad_alloc&) {
        std::fputs("objimport: out of memory\n", stderr);
    }
    return NotDone;
}
