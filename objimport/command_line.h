#pragma once

#include "objimport/exchange/exchange.h"
#include "objimport/option_switches.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// How the plug-in comes to its options.
enum class Asking
{
    EnterAtOnce, ///< its prompt is answered by Enter
    Prompt,      ///< its prompt is answered by the user
    Dialog       ///< its dialog
};

/// What the command line asks for. Texts are UTF-8.
struct CommandLine
{
    std::vector<std::string> files;
    OptionSwitches switches;
    Asking asking = Asking::EnterAtOnce;
    bool zoom = false;
    bool each = false; ///< each file goes into a document of its own
    bool all = false;  ///< no list is cut short
    bool about = false;
    bool quiet = false;
    bool check = false; ///< hold the files against the format instead of importing them
    double tolerance = 0.001;
    std::string run;  ///< the command to run; empty: none
    std::string json; ///< a path, under `each` with patterns; "-": standard output; empty: none
    std::vector<std::string> saves; ///< files to write, in forms that their endings name
    ExchangePicture picture;
    std::string sarif; ///< where to write what --check finds
    std::string settings;
    std::vector<std::string> strings;
    std::string module;

    CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;
    ~CommandLine();

    /// Reads the arguments. Returns an exit status when that ends the program: 0 after help or
    /// version, 2 after wrong usage, with one line on standard error.
    std::optional<int> Read(std::vector<std::string> arguments);

private:
    void AddOptionSwitches();
    void AddImportOptions();
    void AddProgramOptions();
    void AddSaveOptions();
    CLI::Option* AddText(const std::string& name, std::string& value, const char* kind,
                         const std::string& description);
    void AddSwitch(const std::string& name, bool& value, const char* description);

    void SetAsking();
    void CheckWhatIsAsked() const;
    void CheckFiles() const;
    void CheckUse(const std::string& mode, const std::vector<std::string>& used) const;
    void CheckNoEmptyValues() const;

    std::unique_ptr<CLI::App> m_app;
    bool m_prompt = false;
    bool m_dialog = false;
};
