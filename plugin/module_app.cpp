#include "plugin/module_app.h"

CPlugInModuleApp::CPlugInModuleApp() = default;

CPlugInModuleApp::~CPlugInModuleApp() = default;

bool CPlugInModuleApp::InitInstance()
{
    CWinApp::InitInstance();
    return true;
}
