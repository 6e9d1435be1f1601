#include "objimport/command_line.h"

#include "objimport/program_error.h"
#include "objimport/saved_forms.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>

CommandLine::CommandLine()
    : m_app(std::make_unique<CLI::App>(
          "Imports files into a new document and shows what it then holds.", "objimport"))
{
    m_app->allow_windows_style_options(false);
    m_app->set_help_flag("-h,--help", "Show this help and end");
    m_app->set_version_flag("--version", "objimport " IMPORTOBJ_VERSION,
                            "Show the version and end");
    m_app->add_option("FILE", files, "Files to import, in order")->option_text("...");
    AddOptionSwitches();
    AddImportOptions();
    AddProgramOptions();
}

CommandLine::~CommandLine() = default;

void CommandLine::AddOptionSwitches()
{
    constexpr const char* Heading = "Import options, for this run only";
    m_app->add_option("--groups", switches.groups, "What group names become")
        ->check(CLI::IsMember(OptionSwitches::GroupChoices()).description(""))
        ->option_text("none|groups|layers|names")
        ->group(Heading);
    for (OptionSwitch& one : switches.switches) {
        const std::string names =
            std::string("--").append(one.name).append(",!--no-").append(one.name);
        m_app
            ->add_flag(
                names, [&one](std::int64_t count) { one.value = count > 0; }, one.description)
            ->take_last()
            ->group(Heading);
    }
}

void CommandLine::AddImportOptions()
{
    constexpr const char* Heading = "Import";
    auto* prompt = m_app->add_flag(
        "--prompt", [this](std::int64_t) { asking = Asking::Prompt; },
        "Ask for the import options on the terminal");
    m_app
        ->add_flag(
            "--dialog", [this](std::int64_t) { asking = Asking::Dialog; },
            "Ask for the import options in a dialog")
        ->excludes(prompt)
        ->group(Heading);
    prompt->group(Heading);
    m_app->add_flag("--zoom", zoom, "Zoom the views to the extents after each import")
        ->group(Heading);
    m_app->add_option("--tolerance", tolerance, "The document's absolute tolerance")
        ->capture_default_str()
        ->option_text("X")
        ->group(Heading);
    m_app->add_option("--run", run, "Run a command of the plug-in instead of importing")
        ->option_text("COMMAND")
        ->group(Heading);
}

void CommandLine::AddProgramOptions()
{
    const auto addPath = [this](const char* name, std::string& path, const char* description) {
        m_app->add_option(name, path, description)->option_text("PATH");
    };
    addPath("--json", json, "Write the document as JSON; -: to standard output");
    AddSaveOptions();
    addPath("--settings", settings, "The settings file to use");
    addPath("--strings", strings, "A table of texts in the user's language");
    addPath("--module", module, "The plug-in's module (default: beside this program)");
    m_app->add_flag("--about", about, "Show what the module says of itself and end");
    m_app->add_flag("-q,--quiet", quiet, "Show neither messages nor summary");
}

void CommandLine::AddSaveOptions()
{
    m_app
        ->add_option("--save", saves,
                     "Write the document as the ending says, .glb, .step, .stp or .png; may be "
                     "given again")
        ->option_text("PATH")
        ->allow_extra_args(false)
        ->take_all();
    m_app
        ->add_option_function<std::string>(
            "--view",
            [this](const std::string& name) {
                const std::optional<ExchangeView> view = ViewOfName(name);
                if (!view)
                    throw ProgramError("--view takes iso, top, front or right, not " + name);
                picture.view = *view;
            },
            "Where the picture is seen from (iso)")
        ->option_text("iso|top|front|right");
    m_app
        ->add_option_function<std::string>(
            "--size",
            [this](const std::string& text) {
                const auto size = SizeOfText(text);
                if (!size)
                    throw ProgramError("--size takes two numbers of pixels from " +
                                       std::to_string(ExchangePicture::LeastSide) + " to " +
                                       std::to_string(ExchangePicture::MostSide) +
                                       ", such as 1200x900, not " + text);
                std::tie(picture.width, picture.height) = *size;
            },
            "Size of the picture in pixels (1200x900)")
        ->option_text("WxH");
}

void CommandLine::CheckWhatIsAsked() const
{
    if (!std::isfinite(tolerance) || tolerance <= 0.0)
        throw ProgramError("--tolerance must be a positive number");
    if (about && !run.empty())
        throw ProgramError("--about excludes --run");
    const bool instead = about || !run.empty();
    if (instead && !files.empty())
        throw ProgramError((about ? std::string("--about") : std::string("--run")) +
                           " takes no files");
    if (!instead && files.empty())
        throw ProgramError("no file to import; --help shows the usage");
}

std::optional<int> CommandLine::Read(std::vector<std::string> arguments)
{
    try {
        std::reverse(arguments.begin(), arguments.end());
        m_app->parse(arguments);
        CheckWhatIsAsked();
        return std::nullopt;
    } catch (const CLI::ParseError& end) {
        if (end.get_exit_code() == 0)
            return m_app->exit(end);
        TellError(end.what());
    } catch (const ProgramError& error) {
        TellError(error.what());
    }
    return 2;
}
