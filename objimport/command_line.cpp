#include "objimport/command_line.h"

#include "objimport/command_line_help.h"
#include "objimport/program_error.h"
#include "objimport/saved_forms.h"
#include "objimport/text_output.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <tuple>

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

/// Returns "a", "a and b", "a, b and c".
std::string Listed(const std::vector<std::string>& words, const char* last)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text.append(i == 0 ? "" : i + 1 < words.size() ? ", " : last).append(words[i]);
    return text;
}

std::string GroupChoice(const std::string& typed)
{
    const std::vector<std::string>& choices = OptionSwitches::GroupChoices();
    const auto found = std::find(choices.begin(), choices.end(), Lower(typed));
    if (found == choices.end())
        throw ProgramError("--groups takes " + Listed(choices, " or ") + ", not " + typed);
    return *found;
}

double Tolerance(const std::string& typed)
{
    double value = 0.0;
    const char* const last = typed.data() + typed.size();
    const auto [end, error] = std::from_chars(typed.data(), last, value);
    if (error != std::errc() || end != last || !std::isfinite(value) || value <= 0.0)
        throw ProgramError("--tolerance takes a positive number, such as 0.001, not " + typed);
    return value;
}

/// Returns what is wrong with the arguments in the words of this program, not of its parser.
std::string WhatIsWrong(const CLI::App& app, const CLI::ParseError& error)
{
    const std::string text = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return "there is no option " + Listed(app.remaining(), " or ");
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) == nullptr)
        return text;
    std::string name = text.substr(0, text.find_first_of(": "));
    if (name.front() != '-')
        name.insert(0, "--");
    const CLI::Option* const option = app.get_option_no_throw(name);
    const bool isSwitch = option != nullptr && option->get_items_expected_max() == 0;
    return name + (isSwitch ? " takes no value" : " needs a value after it");
}

/// Writes what --help or --version ask for; returns the exit status.
int ShowHelpOrVersion(const CLI::App& app, const CLI::ParseError& asked)
{
    std::ostringstream text;
    const int status = app.exit(asked, text, text);
    WriteForUser(stdout, [&](TextOutput& output) { output.Write(text.str()); });
    return status;
}

} // namespace

CommandLine::CommandLine()
    : m_app(std::make_unique<CLI::App>(
          "Imports OBJ files into a new document and shows what it then holds.", "objimport"))
{
    m_app->allow_windows_style_options(false);
    m_app->formatter(MakeHelpFormatter());
    m_app->add_option("FILE", files)->take_all();
    AddOptionSwitches();
    AddImportOptions();
    AddProgramOptions();
}

CommandLine::~CommandLine() = default;

CLI::Option* CommandLine::AddText(const std::string& name, std::string& value, const char* kind,
                                  const std::string& description)
{
    return m_app->add_option(name, value, description)->option_text(kind)->take_last();
}

void CommandLine::AddSwitch(const std::string& name, bool& value, const char* description)
{
    m_app->add_flag(name, value, description)->disable_flag_override()->take_last();
}

void CommandLine::AddOptionSwitches()
{
    m_app->option_defaults()->group("Options of the import");
    const auto setGroups = [this](const std::string& typed) {
        switches.groups = GroupChoice(typed);
    };
    m_app
        ->add_option_function<std::string>("--groups", setGroups,
                                           "What group names become (at first: groups)")
        ->option_text("none|groups|layers|names")
        ->take_last();
    for (OptionSwitch& one : switches.switches) {
        const std::string names =
            std::string("--").append(one.name).append(",!--no-").append(one.name);
        m_app
            ->add_flag(
                names, [&one](std::int64_t count) { one.value = count > 0; }, one.description)
            ->disable_flag_override()
            ->take_last();
    }
}

void CommandLine::AddImportOptions()
{
    m_app->option_defaults()->group("Import");
    AddSwitch("--prompt", m_prompt, "Ask for the options on the terminal first");
    AddSwitch("--dialog", m_dialog, "Ask for the options in a dialog first");
    AddSwitch("--each", each, "Import each file into a document of its own");
    AddSwitch("--zoom", zoom, "Zoom the views to what the document holds");
    m_app
        ->add_option_function<std::string>(
            "--tolerance", [this](const std::string& typed) { tolerance = Tolerance(typed); },
            "The document's absolute tolerance (0.001)")
        ->option_text("X")
        ->take_last();
    AddText("--run", run, "COMMAND",
            "Run a command of the plug-in, such as\n"
            "OBJImportOptionsDialog, instead of importing");
}

void CommandLine::AddProgramOptions()
{
    m_app->option_defaults()->group("Results");
    AddText("--json", json, "PATH",
            "Write the document as JSON; -: to standard output.\n"
            "Under --each, {name} and {folder} stand for the\nfile's name and folder");
    AddSaveOptions();
    AddSwitch("--check", check,
              "Tell what an import of the files would lose, line\nby line, and import nothing");
    AddText("--sarif", sarif, "PATH", "Write what --check finds as SARIF; -: to standard\noutput");
    AddSwitch("--all", all, "Show every row of every list");
    AddSwitch("-q,--quiet", quiet, "Show neither messages nor summary");
    m_app->option_defaults()->group("Program");
    AddText("--settings", settings, "PATH", "The settings file to use");
    m_app
        ->add_option("--strings", strings,
                     "A table of texts in the user's language; may be\ngiven again, tables add up")
        ->option_text("PATH")
        ->allow_extra_args(false)
        ->take_all();
    AddText("--module", module, "PATH", "The plug-in's module to use");
    m_app->set_help_flag("-h,--help", "Show this help and end")->group("Program");
    m_app->set_version_flag("--version", "objimport " IMPORTOBJ_VERSION, "Show the version and end")
        ->group("Program");
    AddSwitch("--about", about, "Show what the module says of itself and end");
}

void CommandLine::AddSaveOptions()
{
    m_app
        ->add_option("--save", saves,
                     "Write the document as the ending says: .glb,\n.step, .stp or .png; may be "
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
        ->option_text("iso|top|front|right")
        ->take_last();
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
        ->option_text("WxH")
        ->take_last();
}

void CommandLine::SetAsking()
{
    if (m_prompt && m_dialog)
        throw ProgramError("--prompt and --dialog ask for the same options; choose one");
    if (m_prompt || m_dialog)
        asking = m_prompt ? Asking::Prompt : Asking::Dialog;
}

void CommandLine::CheckNoEmptyValues() const
{
    for (const CLI::Option* option : m_app->get_options())
        for (const std::string& value : option->results())
            if (value.empty() && option->get_items_expected_max() > 0)
                throw ProgramError(option->get_positional()
                                       ? std::string("the name of a file to import is empty")
                                       : OptionName(*option) + ": the value is empty");
}

/// Throws when an option is given that a run of this mode does not use.
void CommandLine::CheckUse(const std::string& mode, const std::vector<std::string>& used) const
{
    std::vector<std::string> unused;
    for (const CLI::Option* option : m_app->get_options())
        if (option->count() > 0 && !option->get_positional() &&
            std::find(used.begin(), used.end(), option->get_lnames().front()) == used.end())
            unused.push_back("--" + option->get_lnames().front());
    if (!files.empty() && !check)
        unused.emplace_back("files");
    if (!unused.empty())
        throw ProgramError(mode + " does not use " + Listed(unused, " and ") +
                           (unused.size() == 1 ? "; leave it out" : "; leave them out"));
}

void CommandLine::CheckFiles() const
{
    if (files.empty())
        throw ProgramError("no file to import");
    const auto inputs = std::count(files.begin(), files.end(), "-");
    if (inputs > 1)
        throw ProgramError("standard input can be imported once only");
    if (inputs == 1 && asking == Asking::Prompt)
        throw ProgramError("the file and the answers to --prompt cannot both be standard input");
}

void CommandLine::CheckWhatIsAsked() const
{
    CheckNoEmptyValues();
    if (about)
        return CheckUse("--about", {"about", "module", "strings", "settings"});
    if (check) {
        CheckFiles();
        return CheckUse("--check", {"check", "sarif", "all", "quiet", "tolerance", "strings"});
    }
    if (!sarif.empty())
        throw ProgramError("--sarif needs --check");
    if (run.empty())
        return CheckFiles();
    std::vector<std::string> used = {"run", "groups", "module", "strings", "settings", "quiet"};
    for (const OptionSwitch& one : switches.switches)
        used.emplace_back(one.name);
    CheckUse("--run", used);
}

std::optional<int> CommandLine::Read(std::vector<std::string> arguments)
{
    std::string wrong;
    try {
        std::reverse(arguments.begin(), arguments.end());
        m_app->parse(arguments);
        SetAsking();
        CheckWhatIsAsked();
        return std::nullopt;
    } catch (const CLI::ParseError& end) {
        if (end.get_exit_code() == 0)
            return ShowHelpOrVersion(*m_app, end);
        wrong = WhatIsWrong(*m_app, end);
    } catch (const ProgramError& error) {
        wrong = error.what();
    }
    TellError(wrong + " (try objimport --help)");
    return 2;
}
