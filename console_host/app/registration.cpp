#include "console_host/app/registration.h"

#include "console_host/app/option_words.h"

#include "host/app/command.h"
#include "host/app/plugin.h"
#include "host/framework/win_app.h"

#include <algorithm>
#include <new>

namespace {

template <class Object>
void Append(std::vector<Object*>& list, Object* object) noexcept
try {
    list.push_back(object);
} catch (const std::bad_alloc&) {
    return;
}

} // namespace

std::vector<CKelvoPlugIn*>& PlugIns()
{
    static std::vector<CKelvoPlugIn*> plugIns;
    return plugIns;
}

std::vector<CKelvoCommand*>& Commands()
{
    static std::vector<CKelvoCommand*> commands;
    return commands;
}

std::vector<CWinApp*>& ModuleApps()
{
    static std::vector<CWinApp*> apps;
    return apps;
}

CKelvoCommand* FindCommand(std::wstring_view englishName)
{
    const auto found =
        std::find_if(Commands().begin(), Commands().end(), [=](const CKelvoCommand* command) {
            return SameWord(command->EnglishCommandName(), englishName);
        });
    return found != Commands().end() ? *found : nullptr;
}

CKelvoPlugIn::CKelvoPlugIn()
{
    Append(PlugIns(), this);
}

CKelvoPlugIn::~CKelvoPlugIn()
{
    std::erase(PlugIns(), this);
}

CKelvoCommand::CKelvoCommand(int, int, CKelvoPlugIn*)
{
    Append(Commands(), this);
}

CKelvoCommand::~CKelvoCommand()
{
    std::erase(Commands(), this);
}

CWinApp::CWinApp()
{
    Append(ModuleApps(), this);
}

CWinApp::~CWinApp()
{
    std::erase(ModuleApps(), this);
}

bool CWinApp::InitInstance()
{
    return true;
}
