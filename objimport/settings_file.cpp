#include "objimport/settings_file.h"

#include "console_host/app/console_app.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/program_error.h"

#include <string>

namespace {

/// Returns the settings file of the command line, which need not exist yet.
std::unique_ptr<ProfileStore> SettingsAskedFor(const std::string& name)
{
    const std::filesystem::path path = PathFromUtf8(name);
    const bool isNew = KindOfFile(path) == FileKind::Missing;
    if (const std::string why = isNew ? "" : WhyUnreadable(path); !why.empty())
        throw ProgramError("cannot read the settings " + name + ": " + why);
    auto profile = std::make_unique<ProfileStore>(path);
    if (const std::string& why = profile->WhyUnreadable(); !why.empty())
        throw ProgramError("cannot read the settings " + name + ": " + why);
    return profile;
}

/// Returns whether the run shows the options to the user, who may accept them.
bool UserIsAsked(const CommandLine& commandLine)
{
    return commandLine.asking != Asking::EnterAtOnce || !commandLine.run.empty();
}

/// Returns the settings that are kept from one run to the next.
std::unique_ptr<ProfileStore> KeptSettings(const CommandLine& commandLine)
{
    if (!commandLine.settings.empty())
        return SettingsAskedFor(commandLine.settings);
    const std::filesystem::path path = UserSettings();
    if (path.empty()) {
        TellError("the settings are not kept, since the system names no folder for them; "
                  "--settings names a file");
        return std::make_unique<ProfileStore>();
    }
    auto profile = std::make_unique<ProfileStore>(path);
    if (const std::string& why = profile->WhyUnreadable(); !why.empty())
        TellError("cannot read the settings " + Utf8Path(path) + ": " + why);
    return profile;
}

} // namespace

std::filesystem::path UserSettings()
{
    const std::filesystem::path folder = UserSettingsFolder();
    return folder.empty() ? folder : folder / "kelvo" / "settings.ini";
}

std::unique_ptr<ProfileStore> MakeProfile(const CommandLine& commandLine, const GK_UUID& plugInId)
{
    const bool given = commandLine.switches.AnyGiven();
    auto profile = given && !UserIsAsked(commandLine) ? std::make_unique<ProfileStore>()
                                                      : KeptSettings(commandLine);
    commandLine.switches.WriteTo(*profile, plugInId);
    return profile;
}

void SaveSettings(const CommandLine& commandLine, bool accepted)
{
    if (accepted || !commandLine.switches.AnyGiven())
        ConsoleApp::Instance().Profile().Save();
}
