#pragma once

#include "console_host/framework/resource_compiler/script.h"

#include <iosfwd>

/// Writes C++ source: a function of that name that gives the dialogs.
void WriteDialogTable(std::ostream& out, const std::vector<ScriptDialog>& dialogs,
                      const std::string& function);
