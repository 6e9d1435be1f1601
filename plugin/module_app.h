#pragma once

#include "host/framework/win_app.h"

/// The framework's application object of the module.
class CPlugInModuleApp : public CWinApp
{
public:
    CPlugInModuleApp();
    ~CPlugInModuleApp() override;

    /// Always true.
    bool InitInstance() override;
};
