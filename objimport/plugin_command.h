#pragma once

#include "objimport/command_line.h"
#include "objimport/plugin_module.h"

/// Runs the command of the plug-in that the command line names; returns whether it succeeded.
/// Throws ProgramError when there is no such command.
bool RunPlugInCommand(const CommandLine& commandLine, PlugInModule& module);
