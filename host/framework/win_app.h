#pragma once

/// The framework's application object of a module. A module has one, as a global object; making it
/// tells the host of it, destroying it withdraws it.
class CWinApp
{
public:
    CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    /// Called once after the module was loaded. False: the module cannot be used.
    virtual bool InitInstance();
};
