#pragma once

#include "host/framework/dialog_template.h"

#include <span>

/// Returns the dialogs of the module's resource script, for platforms that hold no resources in
/// modules.
std::span<const DialogTemplate> ImportOBJDialogs();
