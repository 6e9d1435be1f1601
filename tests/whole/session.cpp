#include "tests/whole/session.h"

#include "console_host/app/console_app.h"
#include "console_host/framework/work_note.h"
#include "objimport/command_line.h"
#include "objimport/document_json.h"
#include "objimport/plugin_module.h"
#include "tests/temporary_folder.h"
#include "tests/whole/report.h"

#include <array>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace {

/// Returns the module, loaded once: it is to serve any number of imports.
PlugInModule& Module()
{
#ifdef _WIN32
    static constexpr const char* ModuleFile = BUILD_FOLDER "/bin/ImportOBJ.dll";
#else
    static constexpr const char* ModuleFile = BUILD_FOLDER "/bin/ImportOBJ.so";
#endif
    static const auto module = [] {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        auto loaded = std::make_unique<PlugInModule>(ModuleFile);
        loaded->RunLoadHook();
        return loaded;
    }();
    return *module;
}

/// Every switch at its default, so that none is left from the previous session.
constexpr const char* DefaultSwitches =
    "--groups groups --object-names --no-reverse-groups --no-morph-target --no-ignore-textures "
    "--no-z-up --no-split-textures ";

/// Reads switches and files as the program does. Throws std::invalid_argument when they are wrong.
void ReadCommandLine(CommandLine& commandLine, const std::string& text)
{
    std::istringstream words(text + " ending.obj");
    std::vector<std::string> arguments;
    for (std::string word; words >> word;)
        arguments.push_back(word);
    if (commandLine.Read(arguments).has_value())
        throw std::invalid_argument(text);
    commandLine.files.pop_back(); // the program wants one file at least
}

/// Returns whether the module, which keeps its options from session to session, has the defaults.
bool& OptionsAreDefaults()
{
    static bool areDefaults = false;
    return areDefaults;
}

/// Throws std::logic_error when an import has not released the wait cursor or broke a rule of the
/// host.
void CheckManners(const ImportJournal& journal)
{
    if (WorkNote::Instance().Depth() != 0)
        throw std::logic_error("the wait cursor was not ended");
    for (const ImportJournal::KernelError& error : journal.kernelErrors)
        if (error.source == "host")
            throw std::logic_error(error.text);
}

} // namespace

Session::Session() : m_doc(0.001)
{
    if (!OptionsAreDefaults())
        SetOptions("");
}

Session::~Session() = default;

std::vector<std::string> Session::SetOptions(const std::string& switches)
{
    CKelvoPlugIn& plugIn = Module().PlugIn();
    CommandLine commandLine;
    ReadCommandLine(commandLine, switches);
    CommandLine defaults;
    ReadCommandLine(defaults, DefaultSwitches);
    for (const CommandLine* one : std::array<const CommandLine*, 2>{&defaults, &commandLine})
        one->switches.WriteTo(KelvoApp().ProfileContext(), plugIn.PlugInId());
    plugIn.OnLoad();
    m_zoom = commandLine.zoom;
    OptionsAreDefaults() = switches.empty();
    return commandLine.files;
}

bool Session::Import(const std::string& path)
{
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, true);
    options.SetMode(ReadModeZoomExtents, m_zoom);
    const GK_wString widePath{std::string_view(path)};

    ConsoleApp::Instance().TakeJournal();
    const bool result = Module().PlugIn().ReadFile(widePath.Array(), 0, m_doc, options);
    ImportJournal journal = ConsoleApp::Instance().TakeJournal();
    CheckManners(journal);
    m_records.push_back(
        {std::filesystem::path(path).filename().string(), result, std::move(journal)});
    return result;
}

bool Session::ImportBytes(std::string_view bytes)
{
    const TemporaryFolder folder;
    return Import(Utf8(folder.Write("bytes", bytes)));
}

std::vector<std::string> Session::Prints() const
{
    std::vector<std::string> prints;
    for (const ImportRecord& record : m_records)
        prints.insert(prints.end(), record.journal.prints.begin(), record.journal.prints.end());
    return prints;
}

std::string Session::ReportText() const
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::tmpfile(), &std::fclose);
    if (stream == nullptr)
        throw std::runtime_error("no temporary file");
    TextOutput output(stream.get());
    WriteDocumentJson(output, m_records, m_doc);
    if (const std::string why = output.Finish(); !why.empty())
        throw std::runtime_error(why);
    std::rewind(stream.get());
    return Report(stream.get());
}

std::vector<std::string> FilesIn(const std::string& folder, const std::string& extension)
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == extension)
            files.push_back(entry.path().generic_string());
    std::sort(files.begin(), files.end());
    return files;
}
