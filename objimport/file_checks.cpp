#include "objimport/file_checks.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/json_file.h"
#include "objimport/output_name.h"
#include "objimport/program_error.h"
#include "objimport/settings_file.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace {

/// What distinguishes the places of files, whether the files exist yet or not: volume and index of
/// a file, or those of its folder with its name.
using FilePlace = std::tuple<std::uint64_t, std::uint64_t, std::filesystem::path::string_type>;

FilePlace PlaceOf(const std::filesystem::path& path)
{
    if (const std::optional<FileIdentity> file = IdentityOf(path))
        return {file->volume, file->index, {}};
    const std::filesystem::path target = FollowLinks(path);
    if (const std::optional<FileIdentity> folder = IdentityOf(FolderOf(target)))
        return {folder->volume, folder->index, target.filename().native()};
    return {0, 0, target.native()};
}

/// What the files of a run are used for, each by the one that came first.
class FileUses
{
public:
    /// Adds a file that is read. No name: no file.
    void AddRead(const std::string& file, const std::string& use) { Add(file, use); }

    /// Adds a file that is written; throws, with advice, when something else uses it.
    void AddWritten(const std::string& file, const std::string& use, const std::string& advice = "")
    {
        if (const std::string other = Add(file, use); !other.empty())
            throw ProgramError(use + " would replace " + other + advice);
    }

private:
    std::string Add(const std::string& file, const std::string& use)
    {
        if (file.empty())
            return {};
        const auto [place, isNew] = m_uses.emplace(PlaceOf(PathFromUtf8(file)), use);
        return isNew ? std::string() : place->second;
    }

    std::map<FilePlace, std::string> m_uses;
};

void CheckPlaceholders(const std::string& path, bool each)
{
    if (!each && HasPlaceholders(path))
        throw ProgramError(path + ": {name} and {folder} stand for something under --each only");
    if (const std::string unknown = UnknownPlaceholder(path); each && !unknown.empty())
        throw ProgramError(path + ": " + unknown + " stands for nothing; {name} and {folder} do");
}

/// Adds what is written of an input, or of all together.
void AddOutputs(FileUses& uses, const CommandLine& commandLine, const InputFile& input)
{
    const auto advice = [&](const std::string& path) {
        return commandLine.each && !HasPlaceholders(path)
                   ? "; with {name} in its path each file has its own"
                   : "";
    };
    const std::string of = commandLine.each ? " of " + input.name : "";
    if (!commandLine.json.empty() && commandLine.json != "-") {
        const std::string file = OutputName(commandLine.json, input.name);
        uses.AddWritten(file, "the JSON" + of, advice(commandLine.json));
        CheckJsonFile(file);
    }
    for (const std::string& path : commandLine.saves) {
        const std::string file = OutputName(path, input.name);
        uses.AddWritten(file, std::string("the saved file ").append(file).append(of), advice(path));
    }
}

} // namespace

void CheckOutputs(const CommandLine& commandLine, const std::vector<InputFile>& inputs)
{
    CheckPlaceholders(commandLine.json, commandLine.each);
    for (const std::string& path : commandLine.saves)
        CheckPlaceholders(path, commandLine.each);
    FileUses uses;
    uses.AddRead(commandLine.module, "the module");
    for (const std::string& file : commandLine.strings)
        uses.AddRead(file, "the string table");
    for (const InputFile& input : inputs)
        if (input.name != "-")
            uses.AddRead(input.name, "the input " + input.name);
    uses.AddWritten(commandLine.settings.empty() ? Utf8Path(UserSettings()) : commandLine.settings,
                    "the settings");
    for (const InputFile& input : inputs) {
        AddOutputs(uses, commandLine, input);
        if (!commandLine.each)
            break;
    }
}
