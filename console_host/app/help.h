#pragma once

#include <string>
#include <string_view>

/// Returns a help page as plain text: each paragraph on one line, headings in capitals.
std::string PlainHelpText(std::string_view page);

/// Shows a help topic: in a window while a dialog is open, otherwise on standard output. Topics are
/// files "help-N.md" in the folder "help" beside the program or in the shared files of an
/// installation. Returns false, after a line on standard error, when there is no such topic.
bool ShowHelpTopic(int topicId);
