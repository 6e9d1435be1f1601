#pragma once

#include "objimport/plugin_module.h"
#include "objimport/text_output.h"

/// Writes what a module's exports and its plug-in say of themselves.
void WriteAbout(TextOutput& output, const PlugInModule& module);
