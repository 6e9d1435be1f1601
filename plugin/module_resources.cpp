#include "plugin/module_resources.h"

/// Made from the resource script when the module is built.
std::span<const DialogTemplate> ImportOBJDialogs();

const CModuleState& ImportOBJModuleState()
{
    static const CModuleState State(nullptr, ImportOBJDialogs());
    return State;
}
