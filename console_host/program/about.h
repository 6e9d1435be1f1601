#pragma once

#include "console_host/program/plugin_module.h"
#include "console_host/program/text_output.h"

/// Writes what a module's exports and its plug-in say of themselves.
void WriteAbout(TextOutput& output, const PlugInModule& module);
