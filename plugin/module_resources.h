#pragma once

#include "host/framework/module_state.h"

/// Where the framework finds the resources of this module.
const CModuleState& ImportOBJModuleState();
