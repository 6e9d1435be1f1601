#pragma once

#include <filesystem>

/// The folder in which programs keep the user's settings; empty when the system names none.
std::filesystem::path UserSettingsFolder();

/// The folder of the running program; empty when the system does not tell.
std::filesystem::path ProgramFolder();
