#pragma once

#include "objimport/command_line.h"
#include "objimport/plugin_module.h"

#include <cstdio>

/// What all runs of a plug-in ask of the console host, whatever the run is for.

/// Loads the tables of texts that the command line names; of texts for one id, the last counts.
/// Throws ProgramError when one cannot be read.
void LoadStrings(const CommandLine& commandLine);

/// Prepares the host for a run in which messages go to `user`.
void PrepareHost(const CommandLine& commandLine, PlugInModule& module, std::FILE* user);

/// Throws ProgramError when a dialog was asked for and could not be shown.
void CheckDialogsWereShown();
