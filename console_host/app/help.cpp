#include "console_host/app/help.h"

#include "console_host/app/printable.h"
#include "console_host/framework/native_windows.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace {

std::filesystem::path HelpFile(int topicId)
{
    const std::string name = "help-" + std::to_string(topicId) + ".md";
    const std::filesystem::path program = ProgramFolder();
    const std::filesystem::path installed = program / INSTALLED_HELP_FOLDER / name;
    return WhyUnreadable(installed).empty() ? installed : program / "help" / name;
}

/// Appends a heading in capitals, as plain text has no other form for it.
void AppendHeading(std::string& text, std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of("# "), line.size()));
    for (const char character : line) {
        const bool isLower = character >= 'a' && character <= 'z';
        text += isLower ? static_cast<char>(character - 'a' + 'A') : character;
    }
}

} // namespace

std::string PlainHelpText(std::string_view page)
{
    std::string text;
    bool inParagraph = false;
    ForEachLine(page, [&](std::string_view line) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        const bool goesOn = inParagraph && !line.empty() && !line.starts_with("- ");
        if (!text.empty())
            text += goesOn ? ' ' : '\n';
        inParagraph = !line.empty() && !line.starts_with('#');
        if (inParagraph || line.empty())
            text += line;
        else
            AppendHeading(text, line);
    });
    return text;
}

bool ShowHelpTopic(int topicId)
{
    const std::filesystem::path file = HelpFile(topicId);
    std::string text;
    try {
        text = ReadWholeFile(file);
    } catch (const std::runtime_error& failure) {
        WriteForPerson(stderr, "cannot show the help page " + PrintableLine(Utf8Path(file)) + ": " +
                                   failure.what() + "\n");
        return false;
    }
    if (Dialogs().open > 0)
        ShowTextWindow(GK_wString(PlainHelpText(text)).View(), L"Help");
    else
        WriteForPerson(stdout, text);
    return true;
}
