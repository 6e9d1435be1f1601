#include "host/framework/win_app.h"

#include "console_host/app/registration.h"
#include "console_host/framework/module_apps.h"

#include <algorithm>

std::vector<CWinApp*>& ModuleApps()
{
    static std::vector<CWinApp*> apps;
    return apps;
}

CWinApp::CWinApp()
{
    AppendWhileLoading(ModuleApps(), this);
}

CWinApp::~CWinApp()
{
    std::vector<CWinApp*>& apps = ModuleApps();
    apps.erase(std::remove(apps.begin(), apps.end(), this), apps.end());
}

bool CWinApp::InitInstance()
{
    return true;
}
