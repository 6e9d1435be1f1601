#include "console_host/app/help.h"

#include "console_host/framework/dialog_state.h"
#include "console_host/framework/native_windows.h"
#include "console_host/framework/work_note.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/folders.h"

#include "host/geokit/string.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace {

std::filesystem::path HelpFile(int topicId)
{
    const std::string name = "help-" + std::to_string(topicId) + ".md";
    const std::filesystem::path program = ProgramFolder();
    const std::filesystem::path installed = program / ".." / "share" / "ImportOBJ" / "help" / name;
    return WhyUnreadable(installed).empty() ? installed : program / "help" / name;
}

} // namespace

std::string PlainHelpText(std::string_view page)
{
    std::string text;
    ForEachLine(page, [&text](std::string_view line) {
        const std::size_t start = line.find_first_not_of("# ");
        const bool isHeading = line.starts_with('#') && start != std::string_view::npos;
        text += isHeading ? line.substr(start) : line;
        text += '\n';
    });
    return text;
}

bool ShowHelpTopic(int topicId)
{
    WorkNote::Instance().Hide();
    std::string text;
    try {
        text = PlainHelpText(ReadWholeFile(HelpFile(topicId)));
    } catch (const std::runtime_error&) {
        std::fprintf(stderr, "There is no help on topic %d here.\n", topicId);
        return false;
    }
    if (Dialogs().open > 0)
        ShowTextWindow(GK_wString(std::string_view(text)).View(), L"Help");
    else
        std::fwrite(text.data(), 1, text.size(), stdout);
    return true;
}
