#include "objimport/command_line_help.h"

#include "console_host/runtime/native_path.h"
#include "objimport/settings_file.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace {

constexpr std::size_t NamesWidth = 30;

std::string SettingsPlace()
{
    const std::filesystem::path path = UserSettings();
    return path.empty() ? "not kept: the system names no folder for settings" : Utf8Path(path);
}

/// Lays out the help; the parser's own layout names its internals: values of flags, types,
/// exclusions.
class HelpFormatter : public CLI::Formatter
{
public:
    std::string make_usage(const CLI::App*, std::string) const override
    {
        return "Usage: objimport [OPTION]... FILE...\n"
               "       objimport [OPTION]... --run COMMAND\n"
               "       objimport --about\n\n"
               "FILE is an OBJ file, a pipe, or - for standard input; * and ? in its name stand\n"
               "for any characters, where the shell leaves them. A repeated option: the last\n"
               "counts.\n\n";
    }

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override
    {
        const std::string text =
            CLI::Formatter::make_group(std::move(group), isPositional, std::move(options));
        return text.substr(std::min(text.find_first_not_of('\n'), text.size()));
    }

    std::string make_positionals(const CLI::App*) const override { return {}; }

    std::string make_option_name(const CLI::Option* option, bool) const override
    {
        return OptionName(*option);
    }

    std::string make_option_opts(const CLI::Option* option) const override
    {
        const std::string& value = option->get_option_text();
        return value.empty() ? "" : " " + value;
    }

    std::string make_footer(const CLI::App*) const override
    {
        return "The options of the import are kept from one run to the next, in the settings.\n"
               "Those given here hold for this run only, unless they are accepted at --prompt\n"
               "or in --dialog, which start from them.\n"
               "\nPlaces of files:\n"
               "  settings   " +
               SettingsPlace() +
               "\n"
               "  module     " IMPORTOBJ_MODULE
               " beside this program, or in " IMPORTOBJ_MODULE_FOLDER " from there\n"
               "\nExit status:\n"
               "  0  every import succeeded, though parts of a file may be left out, as the\n"
               "     summary says; with --check: nothing would be lost\n"
               "  1  an import failed, was cancelled or ran out of memory; with --check:\n"
               "     something would be lost\n"
               "  2  wrong usage, or a file that could not be read, loaded or written\n"
               "\nExamples:\n"
               "  objimport house.obj\n"
               "  objimport --groups layers --z-up --json house.json house.obj\n"
               "  objimport --each --json \"{folder}/{name}.json\" models/*.obj\n";
    }
};

} // namespace

std::shared_ptr<CLI::FormatterBase> MakeHelpFormatter()
{
    auto formatter = std::make_shared<HelpFormatter>();
    formatter->column_width(NamesWidth);
    return formatter;
}

std::string OptionName(const CLI::Option& option)
{
    std::string text;
    const std::vector<std::string>& names = option.get_lnames();
    for (const std::string& name : option.get_snames())
        text += "-" + name + ",";
    const bool hasOpposite =
        std::find(names.begin(), names.end(), "no-" + names.front()) != names.end();
    return text + (hasOpposite ? "--[no-]" : "--") + names.front();
}
