#pragma once

#include "console_host/app/profile_store.h"
#include "objimport/command_line.h"

#include "host/geokit/uuid.h"

#include <filesystem>
#include <memory>

/// Returns where the user's settings are kept; empty when the system names no folder for them.
std::filesystem::path UserSettings();

/// Returns the settings store of a run. Where the user is asked for options, it holds what the
/// settings file has and over that the options of the command line. Otherwise options of the
/// command line stand in a store of their own, in memory. Throws ProgramError when a settings file
/// that the command line names cannot be read; what is wrong with the user's is told on standard
/// error.
std::unique_ptr<ProfileStore> MakeProfile(const CommandLine& commandLine, const GK_UUID& plugInId);

/// Saves the settings of the run. `accepted`: the user was asked for options and accepted them;
/// unless so, options of the command line are not kept.
void SaveSettings(const CommandLine& commandLine, bool accepted);
