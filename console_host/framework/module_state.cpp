#include "host/framework/module_state.h"

namespace {

const CModuleState*& CurrentState()
{
    static const CModuleState* current = nullptr;
    return current;
}

} // namespace

const CModuleState* CModuleState::Current()
{
    return CurrentState();
}

CModuleStateScope::CModuleStateScope(const CModuleState& state) : m_before(CurrentState())
{
    CurrentState() = &state;
}

CModuleStateScope::~CModuleStateScope()
{
    CurrentState() = m_before;
}
