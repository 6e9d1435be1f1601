#include "plugin/module_resources.h"

#include "plugin/dialog_table.h"

const CModuleState& ImportOBJModuleState()
{
    static const CModuleState State(nullptr, ImportOBJDialogs());
    return State;
}
