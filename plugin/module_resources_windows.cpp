#include "plugin/module_resources.h"

namespace {

constexpr char InThisModule = 0;

} // namespace

const CModuleState& ImportOBJModuleState()
{
    static const CModuleState State(&InThisModule, {});
    return State;
}
