#pragma once

#include <memory>
#include <string>

namespace CLI {
class FormatterBase;
class Option;
} // namespace CLI

/// Returns what lays out the program's help: how it is called, each option with its value and what
/// it does, then places of files, exit statuses and examples.
std::shared_ptr<CLI::FormatterBase> MakeHelpFormatter();

/// Returns how an option is written on the command line: "-q,--quiet", "--[no-]z-up".
std::string OptionName(const CLI::Option& option);
